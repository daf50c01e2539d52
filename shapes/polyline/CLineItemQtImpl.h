#pragma once

#include "shapes/pointlist/TZoLineItem.h"

#include <QGraphicsPolygonItem>

class CZoPolylineMapObject;

// Arrows and names reach beyond the points: 200 pixels of margin cover them.
// The closing edge of a closed polyline is hit but not drawn. Its rectangle
// has always also held its points divided by the pixel scale, and hosts
// size their redraws by it.
class CLineItemQtImpl final : public TZoLineItem<QGraphicsPolygonItem, CZoPolylineMapObject>
{
public:
    explicit CLineItemQtImpl(CZoPolylineMapObject* owner) : TZoLineItem(owner, {200.0, false, true}) {}
};
