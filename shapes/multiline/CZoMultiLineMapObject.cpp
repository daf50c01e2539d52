#include "shapes/multiline/CZoMultiLineMapObject.h"

void CZoMultiLineMapObject::SetClosed(bool closed)
{
    m_closed = closed;
    Core().RebuildAndRepaint(false);
}
