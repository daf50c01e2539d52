#include "shapes/rectangle/CRectangleItemQtImpl.h"

#include "shapes/rectangle/CZoRectangleMapObject.h"

#include <QTransform>

CRectangleItemQtImpl::CRectangleItemQtImpl(CZoRectangleMapObject* owner) : TZoOutlineItem(owner, kTraits)
{
    setRotation(owner->GetRotation());
}

QPainterPath CRectangleItemQtImpl::BuildShape(const QRectF&, const QRectF& shapeRect) const
{
    QPainterPath path;
    path.addRect(shapeRect);
    return path;
}

void CRectangleItemQtImpl::PaintShape(QPainter* painter, const QRectF& outline, double s) const
{
    const SurfaceStyle& style = m_owner->Style();
    // Picture mode, how a tile shows its picture: the texture fills the
    // rectangle, with neither outline nor fill. It asks the brush style,
    // where the brush itself asks the pen style.
    if (style.brushStyle == Qt::TexturePattern && !style.brushTexture.isNull())
    {
        painter->drawImage(outline, style.brushTexture.toImage());
        return;
    }
    painter->scale(s, s);
    const QRectF rect = QTransform::fromScale(1.0 / s, 1.0 / s).mapRect(outline);
    ZoApplySurfaceStyle(painter, *m_owner, 1.0, rect);
    painter->drawRects(&rect, 1);
}
