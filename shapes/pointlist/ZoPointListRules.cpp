#include "shapes/pointlist/ZoPointListRules.h"

#include <algorithm>
#include <cmath>

namespace ZoPointList
{
bool CheckIndex(const SZoIndexText& text, int index, std::size_t count, bool endAllowed)
{
    if (IndexValid(index, count, endAllowed))
        return true;
    LogIndexFault(text, index);
    return false;
}

void LogIndexFault(const SZoIndexText& text, int index)
{
    ZoLogWarnAt(text.cls, text.method) << text.reason << index;
}

bool SameCoordinate(double a, double b)
{
    const double difference = std::fabs(a - b);
    if (a == 0.0 || b == 0.0)
        return difference <= 1e-12;
    return difference * 1e12 <= std::min(std::fabs(a), std::fabs(b));
}

bool SamePoint(const QPointF& a, const QPointF& b)
{
    return SameCoordinate(a.x(), b.x()) && SameCoordinate(a.y(), b.y());
}

bool IsFinite(const CVector3D& point)
{
    return std::isfinite(point.x) && std::isfinite(point.y) && std::isfinite(point.z);
}

void ExtendExtent(CAABB& extent, const CVector3D& point)
{
    extent.Extend(CVector3D(point.x, point.y, -1.0));
    extent.Extend(CVector3D(point.x, point.y, 1.0));
}

CAABB ExtentOf(const std::vector<Line>& lines)
{
    CAABB extent;
    for (const Line& line : lines)
        for (const CVector3D& point : line)
            ExtendExtent(extent, point);
    return extent;
}

} // namespace ZoPointList
