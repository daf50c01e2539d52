#pragma once

#include "shapes/pointlist/TZoLineItem.h"

#include <QGraphicsPolygonItem>

class CZoPolylineMapObject;

// Arrows and names reach beyond the points: 200 pixels of margin cover them.
class CLineItemQtImpl final : public TZoLineItem<QGraphicsPolygonItem, CZoPolylineMapObject, 200>
{
public:
    explicit CLineItemQtImpl(CZoPolylineMapObject* owner) : TZoLineItem(owner) {}
};
