#pragma once

#include "object/CZoCanvasProjection.h"
#include "object/TZoGraphicsItem.h"
#include "object/ZoAntimeridian.h"
#include "shapes/pointlist/CZoPointOffsets.h"
#include "shapes/smoothing/ZoScreenSpaceReduction.h"

#include <ZoGraphics/IZoGraphicsMapLayer.h>

#include <QMutex>
#include <QMutexLocker>
#include <QPainterPath>
#include <QStyleOptionGraphicsItem>
#include <vector>

// The item side every point-list kind shares: the offsets, the geometry
// handed from the rebuild to paint and hit testing under a mutex, and the
// shape-cache rule. A kind's item supplies the geometry itself.
template <class QtBase, class Owner>
class TZoPointListItem : public TZoGraphicsItem<QtBase, Owner>
{
public:
    explicit TZoPointListItem(Owner* owner) : TZoGraphicsItem<QtBase, Owner>(owner) {}

    CZoPointOffsets& Offsets() { return m_offsets; }
    const CZoPointOffsets& Offsets() const { return m_offsets; }

    QRectF boundingRect() const override { return Suppressed() ? QRectF() : m_bounds; }

    void paint(QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*) override
    {
        if (Suppressed())
            return;
        std::vector<QPolygonF> drawn;
        {
            QMutexLocker lock(&m_mutex);
            drawn = m_drawn;
        }
        PaintLines(painter, drawn, Scale(), this->m_owner->Core().CurrentLod());
    }

    // Canvas painting without a projection: the item's own pixels.
    void PaintOnCanvas(QPainter* painter, int level) override
    {
        this->m_owner->SyncOffsets(m_offsets, nullptr);
        PaintLines(painter, m_offsets.lines, 1.0, level);
    }

    // On a foreign canvas every point is projected through it, so that the
    // shape keeps its geographic size at the canvas's level; across the
    // antimeridian the short way, as on the scene.
    void PaintOnCanvas(QPainter* painter, const CZoCanvasProjection& canvas) override
    {
        std::vector<QPolygonF> lines;
        for (auto line : this->m_owner->Lines())
        {
            ZoAntimeridian::Unwrap(
                line.size(), [&line](std::size_t i) { return line[i].x; },
                [&line](std::size_t i, double lon) { line[i].x = lon; });
            QPolygonF projected;
            projected.reserve(static_cast<int>(line.size()));
            QPointF pixel;
            for (const CVector3D& point : line)
                if (canvas.ToPixel(point, &pixel))
                    projected.append(pixel);
            lines.push_back(projected);
        }
        PaintLines(painter, lines, 1.0, canvas.Level());
    }

protected:
    // Draws the lines (item pixels) at pixel scale s, with the name as it
    // shows at lod.
    virtual void PaintLines(QPainter* painter, const std::vector<QPolygonF>& lines, double s, int lod) const = 0;

    bool Suppressed() const { return this->m_owner->Core().IsSuppressed(); }
    double Scale() const
    {
        const double s = this->m_owner->Core().PixelScale();
        return s > 0.0 ? s : 1.0;
    }

    // Brings the offsets to the current level; false when an unforced
    // rebuild is to be skipped under the shape cache.
    bool BeginRebuild(bool forced)
    {
        if (!forced && Suppressed())
            return false;
        this->m_owner->SyncOffsets(m_offsets, this);
        return true;
    }

    // The lines as they are drawn: thinned in screen space when the layer
    // asks for it.
    std::vector<QPolygonF> DrawnLines(double s) const
    {
        const IZoGraphicsMapLayer* layer = this->m_owner->GetGraphicsMapLayer();
        if (!layer || !layer->IsSimplifyEnabled())
            return m_offsets.lines;
        std::vector<QPolygonF> reduced;
        reduced.reserve(m_offsets.lines.size());
        for (const QPolygonF& line : m_offsets.lines)
            reduced.push_back(ZoGraphicsInternalNS::ReduceScreenSpaceVertices(line, s * s * 0.0625));
        return reduced;
    }

    void SetBounds(const QRectF& bounds)
    {
        if (bounds != m_bounds)
            this->prepareGeometryChange();
        m_bounds = bounds;
    }

    CZoPointOffsets m_offsets;
    // Guards what the rebuild hands to paint and hit testing.
    mutable QMutex m_mutex;
    std::vector<QPolygonF> m_drawn;

private:
    QRectF m_bounds;
};
