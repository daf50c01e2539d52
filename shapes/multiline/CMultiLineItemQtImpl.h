#pragma once

#include "shapes/pointlist/TZoLineItem.h"

#include <QGraphicsItem>

class CZoMultiLineMapObject;

// The lines' own box, without margin.
class CMultiLineItemQtImpl final : public TZoLineItem<QGraphicsItem, CZoMultiLineMapObject, 0>
{
public:
    explicit CMultiLineItemQtImpl(CZoMultiLineMapObject* owner) : TZoLineItem(owner) {}
};
