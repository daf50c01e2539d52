#include "shapes/polyline/CZoPolylineMapObject.h"

void CZoPolylineMapObject::SetClosed(bool closed)
{
    m_closed = closed;
    Core().RebuildAndRepaint(false);
}
