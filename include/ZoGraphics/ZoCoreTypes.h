#pragma once

#include <ZoGraphics/ZoGraphicsExport.h>

/// @file
/// Plain value types of the core library. Map objects use x = longitude and
/// y = latitude in degrees; z is carried and interpreted per class.

/// A point or vector of three doubles, (0, 0, 0) by default.
class ZOGRAPHICS_EXPORT CVector3D
{
public:
    /// The origin (0, 0, 0).
    CVector3D() = default;
    /// The point (x_, y_, z_).
    CVector3D(double x_, double y_, double z_) : x(x_), y(y_), z(z_) {}

    /// Exact equality of all three components (no tolerance; NaN is unequal).
    bool operator==(const CVector3D& o) const { return x == o.x && y == o.y && z == o.z; }
    /// Negation of operator==().
    bool operator!=(const CVector3D& o) const { return !(*this == o); }
    /// Component-wise sum.
    CVector3D operator+(const CVector3D& o) const { return {x + o.x, y + o.y, z + o.z}; }
    /// Component-wise difference.
    CVector3D operator-(const CVector3D& o) const { return {x - o.x, y - o.y, z - o.z}; }

    double x = 0.0; ///< Longitude in degrees for map objects.
    double y = 0.0; ///< Latitude in degrees for map objects.
    double z = 0.0; ///< Carried along; each class gives it its own meaning.
};

/// Axis-aligned box. A default box is empty (min above max) so that the first
/// extension makes it exactly the point given.
class ZOGRAPHICS_EXPORT CAABB
{
public:
    /// An empty box: min is +infinity and max is -infinity in every component.
    CAABB();

    /// Whether min exceeds max in any component, as in a default box.
    bool IsEmpty() const;
    /// Makes the box empty again.
    void Reset();
    /// Widens min and max component by component so that the box holds the
    /// point.
    void Extend(const CVector3D& point);
    /// Widens the box so that it holds another box; an empty box adds nothing.
    void Extend(const CAABB& box);
    /// The middle of the box; (0, 0, 0) for an empty box.
    CVector3D Center() const;

    CVector3D min; ///< Lowest corner.
    CVector3D max; ///< Highest corner.
};

/// Rectangular geographic extent in degrees: minimum x, minimum y, maximum x,
/// maximum y. All zero by default.
struct EXTENT
{
    double xmin = 0.0; ///< Western edge (smallest longitude).
    double ymin = 0.0; ///< Southern edge (smallest latitude).
    double xmax = 0.0; ///< Eastern edge (largest longitude).
    double ymax = 0.0; ///< Northern edge (largest latitude).
};

/// Exact equality of the four edges (no tolerance).
inline bool operator==(const EXTENT& a, const EXTENT& b)
{
    return a.xmin == b.xmin && a.ymin == b.ymin && a.xmax == b.xmax && a.ymax == b.ymax;
}
/// Negation of operator==(const EXTENT&, const EXTENT&).
inline bool operator!=(const EXTENT& a, const EXTENT& b) { return !(a == b); }
