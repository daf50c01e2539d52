#pragma once

#include "shapes/pointlist/TZoLineItem.h"

#include <QGraphicsItem>

class CZoMultiLineMapObject;

// The lines' own box, without margin beyond their stroke; a closed line is
// drawn with its closing edge.
class CMultiLineItemQtImpl final : public TZoLineItem<QGraphicsItem, CZoMultiLineMapObject>
{
public:
    explicit CMultiLineItemQtImpl(CZoMultiLineMapObject* owner) : TZoLineItem(owner, {0.0, true, false}) {}
};
