#include "content/markpoint/CMarkPointItemQtImpl.h"

#include "content/markpoint/CZoMarkPointMapObject.h"

#include <QMutexLocker>
#include <QPainter>

namespace
{
// The room the pin's frame keeps around icon and label, in pixels.
constexpr double kFrameMargin = 20.0;
constexpr double kFallbackRadius = 3.0;

} // namespace

CMarkPointItemQtImpl::CMarkPointItemQtImpl(CZoMarkPointMapObject* owner) : TZoGraphicsItem(owner) {}

QRectF CMarkPointItemQtImpl::IconRect() const
{
    QMutexLocker lock(&m_mutex);
    return m_iconRect;
}

QRectF CMarkPointItemQtImpl::ItemRect() const
{
    QMutexLocker lock(&m_mutex);
    return m_itemRect;
}

QRectF CMarkPointItemQtImpl::boundingRect() const
{
    if (m_owner->Core().IsSuppressed())
        return QRectF();
    const double margin = kFrameMargin * m_owner->Core().PixelScale();
    QRectF rect = ItemRect().adjusted(-margin, -margin, margin, margin);
    // Icon and label turn about the anchor; the frame covers them turned.
    if (m_owner->GetRotateAngle() != 0.0)
        rect = QTransform().rotate(m_owner->GetRotateAngle()).mapRect(rect);
    return rect;
}

QPainterPath CMarkPointItemQtImpl::shape() const
{
    QPainterPath path;
    if (m_owner->Core().IsSuppressed())
        return path;
    path.addRect(ItemRect());
    return m_owner->GetRotateAngle() != 0.0 ? QTransform().rotate(m_owner->GetRotateAngle()).map(path) : path;
}

QRectF CMarkPointItemQtImpl::ComputeIconRect(double s) const
{
    if (!m_owner->IsIconVisible())
        return QRectF();
    double width = s * m_owner->GetIconWidth();
    double height = s * m_owner->GetIconHeight();
    if (width <= 0.0 || height <= 0.0)
    {
        width = 3.0 * s;
        height = 3.0 * s;
    }
    const CVector3D anchor = m_owner->GetIconAnchor();
    return QRectF(-s * anchor.x, -s * anchor.y, width, height);
}

void CMarkPointItemQtImpl::RebuildShape(bool forced)
{
    if (!forced && m_owner->Core().IsSuppressed())
        return;
    const QRectF iconRect = ComputeIconRect(m_owner->Core().PixelScale());
    {
        QMutexLocker lock(&m_mutex);
        m_iconRect = iconRect;
    }
    RebuildName(forced);
}

QRectF CMarkPointItemQtImpl::PlaceLabel(CZoNameLabel& label, int lod) const
{
    if (!label.IsShownAt(lod, m_owner->GetGraphicsMapLayer()))
        return QRectF();
    const double w = m_owner->GetIconWidth();
    const double h = m_owner->GetIconHeight();
    const CVector3D anchor = m_owner->GetIconAnchor();
    QPointF side;
    EZoLabelPlacement placement;
    if (!ZoSurfaceLabelAnchor(m_owner->GetLabelPosition(), m_owner->GetLabelAlignment(), w, h, &side, &placement))
        return QRectF();
    // The sides are those of the icon, whose centre lies off the anchor.
    const QPointF iconCentre(w / 2 - anchor.x, h / 2 - anchor.y);
    label.clipToRect = false;
    label.Place(placement, side.x() + iconCentre.x(), side.y() + iconCentre.y());
    return label.TextRect();
}

void CMarkPointItemQtImpl::RebuildName(bool forced)
{
    CZoMapObjectCore& core = m_owner->Core();
    if (!forced && core.IsSuppressed())
        return;
    const double s = core.PixelScale();
    const QRectF labelRect = PlaceLabel(core.Label(), core.CurrentLod());
    QMutexLocker lock(&m_mutex);
    QRectF itemRect = m_iconRect;
    if (!labelRect.isNull())
    {
        const QRectF scaled(labelRect.topLeft() * s, labelRect.size() * s);
        itemRect = itemRect.isNull() ? scaled : itemRect.united(scaled);
    }
    if (itemRect != m_itemRect)
    {
        lock.unlock();
        prepareGeometryChange();
        lock.relock();
        m_itemRect = itemRect;
    }
}

void CMarkPointItemQtImpl::paint(QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*)
{
    const CZoMapObjectCore& core = m_owner->Core();
    if (core.IsSuppressed())
        return;
    PaintPin(painter, IconRect(), core.Label(), core.PixelScale(), core.CurrentLod());
}

double CMarkPointItemQtImpl::LabelAngle() const
{
    return m_owner ? m_owner->GetRotateAngle() : 0.0;
}

void CMarkPointItemQtImpl::PaintOnCanvas(QPainter* painter, int level)
{
    CZoNameLabel label = m_owner->Core().Label();
    PlaceLabel(label, level);
    PaintPin(painter, ComputeIconRect(1.0), label, 1.0, level);
}

void CMarkPointItemQtImpl::PaintPin(QPainter* painter, const QRectF& iconRect, const CZoNameLabel& label, double s,
                                    int lod) const
{
    const bool iconVisible = m_owner->IsIconVisible();
    bool drawn = false;
    // Most pins stand upright: they spare the painter a state round trip.
    const double angle = m_owner->GetRotateAngle();
    if (angle != 0.0)
    {
        painter->save();
        painter->rotate(angle);
    }
    const QImage& icon = m_owner->IconImage();
    if (!icon.isNull() && iconVisible)
    {
        painter->drawImage(iconRect, icon);
        drawn = true;
    }
    if (label.IsShownAt(lod, m_owner->GetGraphicsMapLayer()))
    {
        m_owner->Core().PaintName(painter, label, s, lod);
        drawn = true;
    }
    if (angle != 0.0)
        painter->restore();
    if (!drawn && iconVisible)
    {
        // Neither icon nor name: a dot still marks the place.
        painter->save();
        painter->setPen(QPen(label.outlineColor));
        painter->setBrush(QBrush(label.textColor));
        painter->drawEllipse(QPointF(0.0, 0.0), kFallbackRadius * s, kFallbackRadius * s);
        painter->restore();
    }
}
