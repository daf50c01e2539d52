#pragma once

#include "object/CZoCanvasProjection.h"

class QGraphicsItem;
class QPainter;

// What the object core asks of every Qt item, whatever Qt item class it
// derives from.
class IZoGraphicsItemImpl
{
public:
    virtual ~IZoGraphicsItemImpl() = default;

    virtual QGraphicsItem* GraphicsItem() = 0;
    // Recomputes the shape (and then the name); an unforced request is
    // skipped while the owner's shape cache holds.
    virtual void RebuildShape(bool forced) = 0;
    // Re-places the name label inside the item.
    virtual void RebuildName(bool forced) = 0;
    // prepareGeometryChange, which Qt keeps protected inside the item.
    virtual void NotifyGeometryChange() = 0;
    // Schedules a repaint of what the item draws.
    virtual void Repaint() = 0;
    // Paints at pixel scale 1.0 into a painter already translated to the
    // object's anchor; level is the canvas's level of detail.
    virtual void PaintOnCanvas(QPainter* painter, int level) = 0;
    // The same for items whose size is geographic: they project their other
    // points through the canvas. Others paint at the anchor alone.
    virtual void PaintOnCanvas(QPainter* painter, const CZoCanvasProjection& canvas)
    {
        PaintOnCanvas(painter, canvas.Level());
    }
    // Degrees the item turns its name label by about the anchor, for those
    // who draw the label in its stead.
    virtual double LabelAngle() const { return 0.0; }
    // The object is letting go of its item: the item, which may live on for
    // a while (see ZoDisposeItem), must not reach the object again.
    virtual void ForgetOwner() {}
};
