#include "content/widget/CZoWidgetMapObject.h"

#include "object/ZoPixelValues.h"

#include <cmath>

void CZoWidgetMapObject::SetPosition(const CVector3D& position)
{
    m_position = position;
    Core().UpdatePosition();
}

void CZoWidgetMapObject::SetSize(int width, int height)
{
    m_width = width;
    m_height = height;
    if (CWidgetItemQtImpl* item = GetItem())
        item->setGeometry(QRectF(0.0, 0.0, width, height));
}

void CZoWidgetMapObject::SetAnchor(const CVector3D& anchor)
{
    if (!ZoPlausiblePixels(anchor.x) || !ZoPlausiblePixels(anchor.y))
        return;
    m_anchor = anchor;
    Core().UpdatePosition();
}

void CZoWidgetMapObject::SetWidget(QWidget* widget)
{
    m_widget = widget;
    // The widget's own size, read before the frame lays it out.
    const QSize own = widget ? widget->size() : QSize();
    if (CWidgetItemQtImpl* item = GetItem())
        item->Embed(widget);
    // A size set earlier in full is kept.
    if (widget && (m_width == 0 || m_height == 0))
        SetSize(own.width(), own.height());
}

void CZoWidgetMapObject::Dirty()
{
    if (CWidgetItemQtImpl* item = GetItem())
    {
        item->setGeometry(QRectF(0.0, 0.0, m_width, m_height));
        item->Embed(m_widget);
    }
    Core().Dirty();
}

QPointF CZoWidgetMapObject::ConvertAnchorToPixel()
{
    const QPointF pixel = Core().ConvertGeoToScenePixel(m_position, kLogNames.anchorConvertMethod);
    const double s = Core().PixelScale();
    return QPointF(pixel.x() - s * m_anchor.x, pixel.y() - s * m_anchor.y);
}
