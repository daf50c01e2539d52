#include "shapes/ellipse/CEllipseItemQtImpl.h"

#include "shapes/ellipse/CZoEllipseMapObject.h"

#include <cmath>

CEllipseItemQtImpl::CEllipseItemQtImpl(CZoEllipseMapObject* owner) : TZoOutlineItem(owner, kTraits)
{
    setRotation(owner->GetRotation());
}

QPainterPath CEllipseItemQtImpl::BuildShape(const QRectF&, const QRectF& shapeRect) const
{
    QPainterPath path;
    if (shapeRect.isValid())
        path.addEllipse(shapeRect);
    return path;
}

void CEllipseItemQtImpl::PaintShape(QPainter* painter, const QRectF& outline, double s) const
{
    // Scene units throughout: the pen is scaled instead of the painter.
    const double rx = std::trunc(outline.width()) * 0.5;
    const double ry = std::trunc(outline.height()) * 0.5;
    ZoApplySurfaceStyle(painter, *m_owner, s, QRectF(-rx, -ry, 2 * rx, 2 * ry));
    painter->drawEllipse(QPointF(0.0, 0.0), rx, ry);
}
