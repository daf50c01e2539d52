#pragma once

#include "shapes/pointlist/TZoFillItem.h"

#include <QGraphicsItem>

class CZoPolygonMapObject;

class CPolygonItemQtImpl final : public TZoFillItem<QGraphicsItem, CZoPolygonMapObject, 100, true>
{
public:
    explicit CPolygonItemQtImpl(CZoPolygonMapObject* owner) : TZoFillItem(owner) {}
};
