#pragma once

#include <ZoGraphics/ZoGraphicsExport.h>

// Plain value types of the core library. Map objects use x = longitude and
// y = latitude in degrees; z is carried and interpreted per class.

class ZOGRAPHICS_EXPORT CVector3D
{
public:
    CVector3D() = default;
    CVector3D(double x_, double y_, double z_) : x(x_), y(y_), z(z_) {}

    bool operator==(const CVector3D& o) const { return x == o.x && y == o.y && z == o.z; }
    bool operator!=(const CVector3D& o) const { return !(*this == o); }
    CVector3D operator+(const CVector3D& o) const { return {x + o.x, y + o.y, z + o.z}; }
    CVector3D operator-(const CVector3D& o) const { return {x - o.x, y - o.y, z - o.z}; }

    double x = 0.0;
    double y = 0.0;
    double z = 0.0;
};

// Axis-aligned box. A default box is empty (min above max) so that the first
// extension makes it exactly the point given.
class ZOGRAPHICS_EXPORT CAABB
{
public:
    CAABB();

    bool IsEmpty() const;
    void Reset();
    void Extend(const CVector3D& point);
    void Extend(const CAABB& box);
    CVector3D Center() const;

    CVector3D min;
    CVector3D max;
};

// Rectangular geographic extent: minimum x, minimum y, maximum x, maximum y.
struct EXTENT
{
    double xmin = 0.0;
    double ymin = 0.0;
    double xmax = 0.0;
    double ymax = 0.0;
};

inline bool operator==(const EXTENT& a, const EXTENT& b)
{
    return a.xmin == b.xmin && a.ymin == b.ymin && a.xmax == b.xmax && a.ymax == b.ymax;
}
inline bool operator!=(const EXTENT& a, const EXTENT& b) { return !(a == b); }
