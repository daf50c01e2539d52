#pragma once

#include "object/CZoNameLabel.h"
#include "shapes/pointlist/TZoPointListItem.h"
#include "shapes/pointlist/ZoLineGeometry.h"

#include <QPainter>

// The filled rings of the polygon and the multi-polygon: all rings in one
// path under the odd-even rule, so that a ring inside another cuts a hole
// and overlaps stay empty. The hit area is the filled area of the rings as
// given (not thinned); the bounding rectangle is theirs, grown by
// marginPixels pixels. The name shows only centred (label position 4).
template <class QtBase, class Owner, int marginPixels>
class TZoFillItem : public TZoPointListItem<QtBase, Owner>
{
public:
    explicit TZoFillItem(Owner* owner) : TZoPointListItem<QtBase, Owner>(owner) {}

    QPainterPath shape() const override
    {
        if (this->Suppressed())
            return QPainterPath();
        QMutexLocker lock(&this->m_mutex);
        return m_shape;
    }

    void RebuildShape(bool forced) override
    {
        if (!this->BeginRebuild(forced))
            return;
        const double s = this->Scale();
        std::vector<QPolygonF> drawn = this->DrawnLines(s);
        const QPainterPath shape = RingsPath(this->m_offsets.lines);
        const QRectF rings = ZoPointList::BoundsOf(this->m_offsets.lines);
        const double margin = marginPixels * s;
        {
            QMutexLocker lock(&this->m_mutex);
            this->m_drawn = std::move(drawn);
            m_shape = shape;
            m_rings = rings;
        }
        this->SetBounds(this->m_offsets.PointCount() == 0 ? QRectF()
                                                          : rings.adjusted(-margin, -margin, margin, margin));
        RebuildName(forced);
    }

    void RebuildName(bool forced) override
    {
        if (!forced && this->Suppressed())
            return;
        CZoMapObjectCore& core = this->m_owner->Core();
        QRectF rings;
        {
            QMutexLocker lock(&this->m_mutex);
            rings = m_rings;
        }
        if (this->m_offsets.PointCount() < 2)
            return;
        PlaceLabel(core.Label(), rings, this->Scale(), core.CurrentLod());
    }

protected:
    void PaintLines(QPainter* painter, const std::vector<QPolygonF>& rings, double s, int lod) const override
    {
        int points = 0;
        for (const QPolygonF& ring : rings)
            points += ring.size();
        if (points < 2 || !this->m_owner->GetGraphicsMapLayer())
            return;
        const SurfaceStyle& style = this->m_owner->Style();
        painter->save();
        style.ApplyToPainter(painter, s);
        painter->drawPath(RingsPath(rings));
        painter->restore();
        if (style.labelPosition != 4)
            return;
        CZoNameLabel label = this->m_owner->Core().Label();
        PlaceLabel(label, ZoPointList::BoundsOf(rings), s, lod);
        this->m_owner->Core().PaintName(painter, label, s, lod);
    }

private:
    static QPainterPath RingsPath(const std::vector<QPolygonF>& rings)
    {
        QPainterPath path;
        path.setFillRule(Qt::OddEvenFill);
        for (const QPolygonF& ring : rings)
        {
            if (ring.size() < 2)
                continue;
            path.addPolygon(ring);
            path.closeSubpath();
        }
        return path;
    }

    // Centred on the rings' box; while the map is not zoomed in to level 19
    // the name keeps inside the box when the layer's second cache switch
    // asks for it.
    void PlaceLabel(CZoNameLabel& label, const QRectF& rings, double s, int lod) const
    {
        const QPointF centre = rings.center() / s;
        if (lod < 19)
        {
            label.clipRect = QRectF(rings.topLeft() / s, rings.size() / s);
            const IZoGraphicsMapLayer* layer = this->m_owner->GetGraphicsMapLayer();
            label.clipToRect = layer && layer->IsSecondShapeCache();
        }
        else
        {
            label.clipToRect = false;
        }
        label.Place(EZoLabelPlacement::Centred, centre.x(), centre.y());
    }

    QPainterPath m_shape;
    QRectF m_rings;
};
