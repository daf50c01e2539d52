#pragma once

#include "shapes/pointlist/TZoFillItem.h"

#include <QGraphicsItem>

class CZoMultiPolygonMapObject;

// The rings' own box, without margin.
class CMultiPolygonItemQtImpl final : public TZoFillItem<QGraphicsItem, CZoMultiPolygonMapObject, 0, false>
{
public:
    explicit CMultiPolygonItemQtImpl(CZoMultiPolygonMapObject* owner) : TZoFillItem(owner) {}
};
