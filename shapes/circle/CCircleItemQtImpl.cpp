#include "shapes/circle/CCircleItemQtImpl.h"

#include "shapes/circle/CZoCircleMapObject.h"

#include <QTransform>

CCircleItemQtImpl::CCircleItemQtImpl(CZoCircleMapObject* owner) : TZoOutlineItem(owner, kTraits) {}

QPainterPath CCircleItemQtImpl::BuildShape(const QRectF& outline, const QRectF& shapeRect) const
{
    // A rim on the centre: nothing to hit.
    QPainterPath path;
    if (!outline.isEmpty())
        path.addEllipse(shapeRect);
    return path;
}

void CCircleItemQtImpl::PaintShape(QPainter* painter, const QRectF& outline, double s) const
{
    // Painted in device pixels, so that the pen keeps its width at every zoom;
    // the circle itself is mapped back to scene units.
    painter->scale(s, s);
    const QRectF circle = QTransform::fromScale(1.0 / s, 1.0 / s).mapRect(outline);
    ZoApplySurfaceStyle(painter, *m_owner, 1.0, circle);
    painter->drawEllipse(circle);
}
