#include "content/canvas/CLayerCanvasItemQtImpl.h"

#include "content/canvas/CZoLayerCanvasMapObject.h"

#include <QPainter>

CLayerCanvasItemQtImpl::CLayerCanvasItemQtImpl(CZoLayerCanvasMapObject* owner) : TZoGraphicsItem(owner) {}

QPainterPath CLayerCanvasItemQtImpl::shape() const
{
    QPainterPath path;
    path.addRect(m_rect);
    return path;
}

void CLayerCanvasItemQtImpl::RebuildShape(bool)
{
    const QPointF size = m_owner->ExtentSizeInPixels();
    const QRectF rect = QRectF(QPointF(0.0, 0.0), size).normalized();
    if (rect == m_rect)
        return;
    prepareGeometryChange();
    m_rect = rect;
}

void CLayerCanvasItemQtImpl::paint(QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*)
{
    if (m_rect.isEmpty())
        return;
    m_owner->WithImage([&](const QImage& image) {
        if (!image.isNull())
            painter->drawImage(m_rect, image);
    });
}

void CLayerCanvasItemQtImpl::PaintOnCanvas(QPainter*, int)
{
    // A canvas covers a geographic extent: without the projection there is
    // nothing to size it by.
}

void CLayerCanvasItemQtImpl::PaintOnCanvas(QPainter* painter, const CZoCanvasProjection& canvas)
{
    const EXTENT extent = m_owner->GetExtent();
    QPointF bottomRight;
    if (!canvas.ToPixel(CVector3D(extent.xmax, extent.ymin, 0.0), &bottomRight))
        return;
    const QRectF target = QRectF(QPointF(0.0, 0.0), bottomRight).normalized();
    if (target.isEmpty())
        return;
    m_owner->WithImage([&](const QImage& image) {
        if (!image.isNull())
            painter->drawImage(target, image);
    });
}
