#pragma once

#include <ZoGraphics/IZoGraphicsMapObject.h>
#include "object/CZoMapObjectCore.h"
#include "object/TZoGraphicsItem.h"
#include "object/ZoAnchoredShape.h"

#include <ZoGraphics/IZoGraphicsMapLayer.h>

#include <QPainter>
#include <QPainterPath>
#include <QPen>
#include <QStyleOptionGraphicsItem>
#include <algorithm>
#include <cmath>

// How the item of an anchored shape differs from its siblings, as data.
struct SZoOutlineItemTraits
{
    double labelMargin;         // pixels around the shape kept in the bounding rectangle for the label
    bool labelFollowsAlignment; // false: the label stands on the middle of each side, whatever the alignment
    bool shapeGrowsByPen;       // the shape covers the outline grown by the full pen width on every side
};

// The Qt item of a shape drawn inside an outline rectangle around its anchor:
// circle, ellipse, bow and rectangle. The owner supplies the outline, in scene
// pixels relative to the anchor and on a foreign canvas:
//   bool SceneOutline(QRectF* outline) const;
//   bool CanvasOutline(const CZoCanvasProjection& canvas, QRectF* outline) const;
// false while the geometry cannot be drawn (missing map module, coordinates
// that do not convert); the item then draws nothing. The kind's item adds the
// shape path and the painting of the shape itself.
template <class QtBase, class Owner>
class TZoOutlineItem : public TZoGraphicsItem<QtBase, Owner>
{
public:
    TZoOutlineItem(Owner* owner, const SZoOutlineItemTraits& traits)
        : TZoGraphicsItem<QtBase, Owner>(owner), m_traits(traits)
    {
    }

    QRectF boundingRect() const override
    {
        const CZoMapObjectCore& core = this->m_owner->Core();
        if (core.IsSuppressed())
            return QRectF();
        const double margin = m_traits.labelMargin * core.PixelScale();
        return m_shape.controlPointRect().adjusted(-margin, -margin, margin, margin);
    }
    QPainterPath shape() const override { return this->m_owner->Core().IsSuppressed() ? QPainterPath() : m_shape; }

    void paint(QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*) override
    {
        const CZoMapObjectCore& core = this->m_owner->Core();
        if (core.IsSuppressed() || !m_hasOutline)
            return;
        PaintAll(painter, core.Label(), m_outline, core.PixelScale(), core.CurrentLod());
    }

    void RebuildShape(bool forced) override
    {
        if (!forced && this->m_owner->Core().IsSuppressed())
            return;
        QRectF outline;
        m_hasOutline = this->m_owner->SceneOutline(&outline);
        m_outline = m_hasOutline ? outline : QRectF();
        const QPainterPath path = m_hasOutline ? BuildShape(m_outline, ShapeRect(m_outline)) : QPainterPath();
        if (path.controlPointRect() != m_shape.controlPointRect())
            this->prepareGeometryChange();
        m_shape = path;
        RebuildName(forced);
    }
    void RebuildName(bool forced) override
    {
        CZoMapObjectCore& core = this->m_owner->Core();
        if ((!forced && core.IsSuppressed()) || !m_hasOutline)
            return;
        PlaceLabel(core.Label(), m_outline, core.PixelScale(), core.CurrentLod());
    }

    // Without a projection the item paints its scene outline at scale 1.
    void PaintOnCanvas(QPainter* painter, int level) override
    {
        QRectF outline;
        if (this->m_owner->SceneOutline(&outline))
            PaintOnCanvasWithin(painter, outline, level);
    }
    void PaintOnCanvas(QPainter* painter, const CZoCanvasProjection& canvas) override
    {
        QRectF outline;
        if (this->m_owner->CanvasOutline(canvas, &outline))
            PaintOnCanvasWithin(painter, outline, canvas.Level());
    }

    // The outline of the last rebuild, in scene pixels around the anchor.
    QRectF Outline() const { return m_outline; }

protected:
    // The shape path for an outline, drawn over shapeRect (the outline, grown
    // by the pen where the kind says so); empty when nothing is to be hit.
    virtual QPainterPath BuildShape(const QRectF& outline, const QRectF& shapeRect) const = 0;
    // Draws the shape within an outline given in scene units, for pixel scale s.
    virtual void PaintShape(QPainter* painter, const QRectF& outline, double s) const = 0;

private:
    QRectF ShapeRect(const QRectF& outline) const
    {
        if (!m_traits.shapeGrowsByPen)
            return outline;
        const double pen = this->m_owner->GetPenWidth();
        return outline.adjusted(-pen, -pen, pen, pen);
    }
    void PlaceLabel(CZoNameLabel& label, const QRectF& outline, double s, int lod) const
    {
        if (!(s > 0.0))
            return;
        const unsigned int alignment = m_traits.labelFollowsAlignment ? this->m_owner->GetLabelAlignment() : E_LABEL_ALIGN_MIDDLE;
        ZoPlaceSurfaceLabel(label, this->m_owner->GetGraphicsMapLayer(), lod, this->m_owner->GetLabelPosition(),
                            alignment, outline.width() / s, outline.height() / s);
    }
    void PaintOnCanvasWithin(QPainter* painter, const QRectF& outline, int level) const
    {
        CZoNameLabel label = this->m_owner->Core().Label();
        PlaceLabel(label, outline, 1.0, level);
        PaintAll(painter, label, outline, 1.0, level);
    }
    void PaintAll(QPainter* painter, const CZoNameLabel& label, const QRectF& outline, double s, int lod) const
    {
        if (!(s > 0.0))
            return;
        painter->save();
        PaintShape(painter, outline, s);
        painter->restore();
        this->m_owner->Core().PaintName(painter, label, s, lod);
    }

    const SZoOutlineItemTraits m_traits;
    QPainterPath m_shape;
    QRectF m_outline;
    bool m_hasOutline = false;
};

// Qt's dash stroker walks every dash of an outline, visible or not; a
// dashed outline blown up far past the screen would take minutes. Past this
// many dashes the pattern is stretched so that the count stays there.
constexpr double kZoMostDashes = 20000.0;

inline void ZoKeepDashesCountable(QPen* pen, const QPainter* painter, const QRectF& drawn)
{
    if (pen->style() == Qt::SolidLine || pen->style() == Qt::NoPen)
        return;
    const QTransform device = painter->deviceTransform();
    const QRectF onDevice = device.mapRect(drawn);
    const double perimeter = 2.0 * (onDevice.width() + onDevice.height());
    const double scale = std::sqrt(std::abs(device.determinant()));
    const double width = std::max(1.0, pen->isCosmetic() ? pen->widthF() : pen->widthF() * scale);
    QVector<qreal> pattern = pen->dashPattern();
    double period = 0.0;
    for (qreal length : pattern)
        period += length;
    if (!(perimeter < 1e300) || !(period > 0.0))
        return pen->setStyle(Qt::SolidLine);
    const double dashes = perimeter / (period * width);
    if (dashes <= kZoMostDashes)
        return;
    for (qreal& length : pattern)
        length *= dashes / kZoMostDashes;
    pen->setDashPattern(pattern);
}

// Pen and brush of a surface style, set on a painter; the pen width is
// scaled. drawn is the outline about to be drawn, in the painter's current
// coordinates.
template <class Owner>
void ZoApplySurfaceStyle(QPainter* painter, const Owner& owner, double penScale, const QRectF& drawn)
{
    QPen pen;
    owner.Style().ApplyToPen(pen, penScale);
    ZoKeepDashesCountable(&pen, painter, drawn);
    QBrush brush;
    owner.Style().ApplyToBrush(brush);
    painter->setPen(pen);
    painter->setBrush(brush);
}
