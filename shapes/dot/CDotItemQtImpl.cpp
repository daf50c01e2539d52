#include "shapes/dot/CDotItemQtImpl.h"

#include "shapes/dot/CZoDotMapObject.h"

#include <ZoGraphics/IZoGraphicsMapLayer.h>
#include <ZoGraphics/ZoCoreUtility.h>

#include <QPainter>
#include <cmath>

CDotItemQtImpl::CDotItemQtImpl(CZoDotMapObject* owner) : TZoGraphicsItem(owner) {}

QRectF CDotItemQtImpl::ShapeRect(double s) const
{
    if (IsEqual(m_owner->GetRadius(), 0.0))
        return QRectF();
    const double r = (m_owner->GetRadius() + m_owner->GetPenWidth()) * s;
    // Nothing that is not a number may reach the scene's index.
    if (!std::isfinite(r))
        return QRectF();
    return QRectF(-r, -r, 2 * r, 2 * r);
}

QRectF CDotItemQtImpl::boundingRect() const
{
    return m_owner->Core().IsSuppressed() ? QRectF() : m_shapeRect;
}

QPainterPath CDotItemQtImpl::shape() const
{
    QPainterPath path;
    if (!m_owner->Core().IsSuppressed() && !m_shapeRect.isNull())
        path.addEllipse(m_shapeRect);
    return path;
}

void CDotItemQtImpl::RebuildShape(bool forced)
{
    const CZoMapObjectCore& core = m_owner->Core();
    if (!forced && core.IsSuppressed())
        return;
    // A dot of radius 0 lays nothing out, its name included.
    const QRectF rect = IsEqual(m_owner->GetRadius(), 0.0) ? QRectF() : ShapeRect(core.PixelScale());
    if (rect != m_shapeRect && !core.IsGeometryChangeAnnounced())
        prepareGeometryChange();
    m_shapeRect = rect;
    RebuildName(forced);
}

void CDotItemQtImpl::RebuildName(bool forced)
{
    CZoMapObjectCore& core = m_owner->Core();
    if ((!forced && core.IsSuppressed()) || IsEqual(m_owner->GetRadius(), 0.0))
        return;
    PlaceLabel(core.Label(), core.CurrentLod());
}

void CDotItemQtImpl::PlaceLabel(CZoNameLabel& label, int lod) const
{
    const IZoGraphicsMapLayer* layer = m_owner->GetGraphicsMapLayer();
    if (!label.IsShownAt(lod, layer))
        return;
    const double r = m_owner->GetRadius();
    const unsigned int position = m_owner->GetLabelPosition();
    QPointF anchor;
    EZoLabelPlacement placement;
    // A dot has no sides worth aligning to: always the middle of each side.
    if (!ZoSurfaceLabelAnchor(position, E_LABEL_ALIGN_MIDDLE, 2 * r, 2 * r, &anchor, &placement))
        return;
    if (position == E_LABEL_CENTRE)
    {
        label.clipRect = QRectF(-r, -r, 2 * r, 2 * r);
        label.clipToRect = layer && layer->IsSecondShapeCache();
    }
    else
    {
        label.clipToRect = false;
    }
    label.Place(placement, anchor.x(), anchor.y());
}

void CDotItemQtImpl::paint(QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*)
{
    const CZoMapObjectCore& core = m_owner->Core();
    if (core.IsSuppressed())
        return;
    PaintDot(painter, core.Label(), core.PixelScale(), core.CurrentLod());
}

void CDotItemQtImpl::PaintOnCanvas(QPainter* painter, int level)
{
    CZoNameLabel label = m_owner->Core().Label();
    PlaceLabel(label, level);
    PaintDot(painter, label, 1.0, level);
}

void CDotItemQtImpl::PaintDot(QPainter* painter, const CZoNameLabel& label, double s, int lod) const
{
    const SurfaceStyle& style = m_owner->Style();
    const double r = m_owner->GetRadius() * s;

    painter->save();
    painter->rotate(m_owner->GetRotation());
    if (style.brushStyle == Qt::TexturePattern && !style.brushTexture.isNull())
    {
        const QRectF target = ShapeRect(s);
        if (!target.isEmpty())
            painter->drawImage(target, style.brushTexture.toImage());
    }
    else
    {
        // The shape includes the pen width so that it covers the stroke; the
        // drawn circle does not.
        QPen pen;
        style.ApplyToPen(pen, s);
        QBrush brush;
        style.ApplyToBrush(brush);
        painter->setPen(pen);
        painter->setBrush(brush);
        painter->drawEllipse(QPointF(0.0, 0.0), r, r);
    }
    painter->restore();
    m_owner->Core().PaintName(painter, label, s, lod);
}
