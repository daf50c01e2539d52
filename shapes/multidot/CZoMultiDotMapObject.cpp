#include "shapes/multidot/CZoMultiDotMapObject.h"

#include "object/ZoPixelValues.h"

void CZoMultiDotMapObject::SetPosition(const CVector3D& first)
{
    if (Points().empty() || !GetItem() || !Accept(first, "SetPosition"))
        return;
    EditMoveBy(first, Points().front());
    Core().RebuildAndRepaint(false);
}

void CZoMultiDotMapObject::SetDotSize(double size)
{
    if (!ZoPlausiblePixels(size))
        return;
    m_dotSize = size;
    Core().RebuildAndRepaint(false);
}
