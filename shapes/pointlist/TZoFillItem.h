#pragma once

#include "object/CZoNameLabel.h"
#include "object/ZoDevicePixels.h"
#include "shapes/pointlist/TZoPointListItem.h"
#include "shapes/pointlist/ZoLineGeometry.h"
#include "shapes/pointlist/ZoRingPaths.h"

#include <QPainter>

// The filled rings of the polygon and the multi-polygon, all in one path
// (ZoPointList::RingsPath): under the odd-even rule when oddEven is set, else
// as the union of the parts with their holes. The hit area is the filled
// area of the rings as given (not thinned); the bounding rectangle is
// theirs, grown by marginPixels pixels. The name shows only centred (label
// position 4).
template <class QtBase, class Owner, int marginPixels, bool oddEven>
class TZoFillItem : public TZoPointListItem<QtBase, Owner>
{
public:
    explicit TZoFillItem(Owner* owner) : TZoPointListItem<QtBase, Owner>(owner) {}

    void paint(QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*) override
    {
        if (this->Suppressed())
            return;
        std::vector<QPainterPath> drawn;
        QRectF rings;
        {
            QMutexLocker lock(&this->m_mutex);
            drawn = m_drawnPieces;
            rings = m_rings;
        }
        PaintPieces(painter, drawn, rings, this->Scale(), this->m_owner->Core().CurrentLod());
    }

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
        const CZoPointOffsets& offsets = this->m_offsets;
        // Points repeating the one before change neither the area nor its
        // edge: the hit shape and the drawing both do without them.
        const QPainterPath shape = ZoPointList::RingsPath(ZoPointList::WithoutRepeats(offsets.lines), offsets, oddEven);
        const IZoGraphicsMapLayer* layer = this->m_owner->GetGraphicsMapLayer();
        const QPainterPath drawn = layer && layer->IsSimplifyEnabled()
                                       ? ZoPointList::RingsPath(this->DrawnLines(s), offsets, oddEven)
                                       : shape;
        const QRectF rings = ZoPointList::BoundsOf(offsets.lines);
        const double margin = marginPixels * s;
        {
            QMutexLocker lock(&this->m_mutex);
            m_drawnPieces = ZoPointList::ApartPieces(drawn);
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
    // Canvas painting. The item's own offsets know the map's world width; the
    // rings of a foreign canvas close round no pole.
    void PaintLines(QPainter* painter, const std::vector<QPolygonF>& rings, double s, int lod) const override
    {
        const CZoPointOffsets noWorld;
        const CZoPointOffsets& world = &rings == &this->m_offsets.lines ? this->m_offsets : noWorld;
        PaintPieces(painter, {ZoPointList::RingsPath(rings, world, oddEven)}, ZoPointList::BoundsOf(rings), s, lod);
    }

private:
    void PaintPieces(QPainter* painter, const std::vector<QPainterPath>& pieces, const QRectF& rings, double s,
                     int lod) const
    {
        int elements = 0;
        for (const QPainterPath& piece : pieces)
            elements += piece.elementCount();
        if (elements < 2 || !this->m_owner->GetGraphicsMapLayer())
            return;
        const SurfaceStyle& style = this->m_owner->Style();
        painter->save();
        style.ApplyToPainter(painter, s);
        if (pieces.size() == 1)
        {
            painter->drawPath(pieces.front());
        }
        else
        {
            // Pieces wholly out of what the device shows cost a painter their
            // whole outline all the same.
            const CZoDevicePixels device(painter);
            const double reach = painter->pen().widthF() + 1.0;
            const QRectF shown =
                device.IsValid() ? device.AreaInPainter().adjusted(-reach, -reach, reach, reach) : QRectF();
            for (const QPainterPath& piece : pieces)
                if (shown.isNull() || piece.controlPointRect().intersects(shown))
                    painter->drawPath(piece);
        }
        painter->restore();
        if (style.labelPosition != E_LABEL_CENTRE)
            return;
        CZoNameLabel label = this->m_owner->Core().Label();
        PlaceLabel(label, rings, s, lod);
        this->m_owner->Core().PaintName(painter, label, s, lod);
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
    std::vector<QPainterPath> m_drawnPieces; // the drawn rings, ApartPieces
    QRectF m_rings;
};
