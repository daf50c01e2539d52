#include "shapes/dot/CZoDotMapObject.h"

#include "object/ZoPixelValues.h"

#include <cmath>

void CZoDotMapObject::SetPosition(const CVector3D& position)
{
    m_position = position;
    Core().UpdatePosition();
}

void CZoDotMapObject::SetRadius(double radius)
{
    if (!ZoPlausiblePixels(radius))
        return;
    m_radius = radius;
    Core().RebuildAndRepaint(false);
}

void CZoDotMapObject::SetOffset(const CVector3D& offset)
{
    if (!ZoPlausiblePixels(offset.x) || !ZoPlausiblePixels(offset.y) || !std::isfinite(offset.z))
        return;
    m_offset = offset;
    Core().PrepareGeometryChange();
    Core().Update();
}

void CZoDotMapObject::SetRotation(double degrees)
{
    if (!std::isfinite(degrees))
        return;
    m_offset.z = degrees;
    Core().PrepareGeometryChange();
    Core().Update();
}

QPointF CZoDotMapObject::ConvertAnchorToPixel()
{
    return Core().ConvertGeoToScenePixel(m_position, kLogNames.anchorConvertMethod);
}
