#include "shapes/multidot/CMultiDotItemQtImpl.h"

#include "shapes/multidot/CZoMultiDotMapObject.h"
#include "shapes/pointlist/ZoPointListRules.h"

#include <ZoGraphics/ZoCoreUtility.h>

#include <QPainter>

CMultiDotItemQtImpl::CMultiDotItemQtImpl(CZoMultiDotMapObject* owner) : TZoPointListItem(owner) {}

QPainterPath CMultiDotItemQtImpl::shape() const
{
    if (Suppressed())
        return QPainterPath();
    QMutexLocker lock(&m_mutex);
    return m_dots;
}

QPainterPath CMultiDotItemQtImpl::DotPath(const std::vector<QPolygonF>& lines, double s) const
{
    QPainterPath path;
    if (lines.empty() || IsEqual(m_owner->GetDotSize(), 0.0))
        return path;
    const double r = m_owner->GetDotSize() * s + static_cast<double>(m_owner->GetPenWidth()) * s;
    if (IsEqual(r, 0.0))
        return path;
    const QPolygonF& points = lines.front();
    int n = points.size();
    // A list that returns to its first point draws that dot once.
    if (n > 1 && ZoPointList::SamePoint(points.first(), points.last()))
        --n;
    for (int i = 0; i < n; ++i)
        path.addEllipse(points[i], r, r);
    return path;
}

void CMultiDotItemQtImpl::RebuildShape(bool forced)
{
    if (!BeginRebuild(forced))
        return;
    const QPainterPath dots = DotPath(m_offsets.lines, Scale());
    {
        QMutexLocker lock(&m_mutex);
        m_dots = dots;
        m_drawn = m_offsets.lines;
    }
    SetBounds(dots.controlPointRect());
    RebuildName(forced);
}

void CMultiDotItemQtImpl::RebuildName(bool forced)
{
    if (!forced && Suppressed())
        return;
    CZoMapObjectCore& core = m_owner->Core();
    QRectF dots;
    {
        QMutexLocker lock(&m_mutex);
        dots = m_dots.controlPointRect();
    }
    PlaceLabel(core.Label(), dots, Scale(), core.CurrentLod());
}

// Beside the box of all dots, as a dot places its name beside itself.
void CMultiDotItemQtImpl::PlaceLabel(CZoNameLabel& label, const QRectF& dots, double s, int lod) const
{
    if (dots.isEmpty() || !label.IsShownAt(lod, m_owner->GetGraphicsMapLayer()))
        return;
    QPointF anchor;
    EZoLabelPlacement placement;
    if (!ZoSurfaceLabelAnchor(m_owner->GetLabelPosition(), E_LABEL_ALIGN_MIDDLE, dots.width() / s, dots.height() / s, &anchor, &placement))
        return;
    anchor += dots.center() / s;
    label.clipToRect = false;
    label.Place(placement, anchor.x(), anchor.y());
}

void CMultiDotItemQtImpl::PaintLines(QPainter* painter, const std::vector<QPolygonF>& lines, double s, int lod) const
{
    const QPainterPath dots = DotPath(lines, s);
    if (dots.isEmpty())
        return;
    const SurfaceStyle& style = m_owner->Style();
    painter->save();
    if (style.brushStyle == Qt::TexturePattern && !style.brushTexture.isNull())
    {
        painter->setPen(Qt::NoPen);
        painter->setBrush(QBrush(style.brushTexture));
    }
    else
    {
        style.ApplyToPainter(painter, s);
    }
    painter->drawPath(dots);
    painter->restore();
    CZoNameLabel label = m_owner->Core().Label();
    PlaceLabel(label, dots.controlPointRect(), s, lod);
    m_owner->Core().PaintName(painter, label, s, lod);
}
