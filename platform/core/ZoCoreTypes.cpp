#include <ZoGraphics/ZoCoreTypes.h>

#include <algorithm>
#include <limits>

namespace
{
constexpr double kInf = std::numeric_limits<double>::infinity();

CVector3D ComponentMin(const CVector3D& a, const CVector3D& b)
{
    return {std::min(a.x, b.x), std::min(a.y, b.y), std::min(a.z, b.z)};
}

CVector3D ComponentMax(const CVector3D& a, const CVector3D& b)
{
    return {std::max(a.x, b.x), std::max(a.y, b.y), std::max(a.z, b.z)};
}
}

// min = +inf and max = -inf: any first point replaces both exactly.
CAABB::CAABB() : min(kInf, kInf, kInf), max(-kInf, -kInf, -kInf) {}

bool CAABB::IsEmpty() const
{
    return min.x > max.x || min.y > max.y || min.z > max.z;
}

void CAABB::Reset()
{
    *this = CAABB();
}

void CAABB::Extend(const CVector3D& point)
{
    min = ComponentMin(min, point);
    max = ComponentMax(max, point);
}

void CAABB::Extend(const CAABB& box)
{
    if (box.IsEmpty())
        return;
    min = ComponentMin(min, box.min);
    max = ComponentMax(max, box.max);
}

CVector3D CAABB::Center() const
{
    if (IsEmpty())
        return {};
    return {(min.x + max.x) * 0.5, (min.y + max.y) * 0.5, (min.z + max.z) * 0.5};
}
