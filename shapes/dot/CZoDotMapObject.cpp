#include "shapes/dot/CZoDotMapObject.h"

void CZoDotMapObject::SetPosition(const CVector3D& position)
{
    m_position = position;
    Core().UpdatePosition();
}

void CZoDotMapObject::SetRadius(double radius)
{
    m_radius = radius;
    Core().RebuildAndRepaint(false);
}

void CZoDotMapObject::SetOffset(const CVector3D& offset)
{
    m_offset = offset;
    Core().PrepareGeometryChange();
    Core().Update();
}

void CZoDotMapObject::SetRotation(double degrees)
{
    m_offset.z = degrees;
    Core().PrepareGeometryChange();
    Core().Update();
}

QPointF CZoDotMapObject::ConvertAnchorToPixel()
{
    return Core().ConvertGeoToScenePixel(m_position, kLogNames.anchorConvertMethod);
}
