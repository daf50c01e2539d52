#pragma once

#include <ZoGraphics/IZoSurfaceStyleGraphicsMapObject.h>

#include <cstdint>
#include <vector>

/// Several filled rings in one object with one surface style. Bad polygon or
/// point indices are logged and change nothing.
///
/// Each ring (called a polygon here) is an ordered list of `CVector3D` with
/// x = longitude and y = latitude in degrees, implicitly closed; z is kept but
/// not drawn. All rings are filled together with the odd-even rule: a ring
/// inside another cuts a hole in it, and where rings overlap the common area
/// stays empty. The name is drawn, centred, only while the label position is 4.
/// Made by IZoGraphicsModule::CreateMultiPolygonMapObject, which owns it.
///
/// A bad index logs the operation's text quoted below, followed by the failing
/// index as a decimal number, and a getter returns an empty or zero value. The
/// texts name "CZoPolygonMapObject" (all but SetPolygonData's) on purpose:
/// hosts match on them. A point with a NaN or infinite coordinate is refused
/// whole with "[CZoMultiPolygonMapObject::SetData] 坐标无效" (naming the
/// operation).
///
/// The anchor, which SetPosition moves, is the first point of the first
/// non-empty ring after SetData, or the first point added to an object without
/// points; (0,0,0) once the object holds no point.
class ZOGRAPHICS_EXPORT IZoMultiPolygonMapObject : public IZoSurfaceStyleGraphicsMapObject
{
public:
    IZoMultiPolygonMapObject() = default;
    /// @{ Copies of an interface share nothing: they exist only so that
    /// implementations may be copied.
    IZoMultiPolygonMapObject(const IZoMultiPolygonMapObject&) = default;
    IZoMultiPolygonMapObject& operator=(const IZoMultiPolygonMapObject&) = default;
    /// @}
    ~IZoMultiPolygonMapObject() override;

    /// Replaces all rings; the first point of the first non-empty ring becomes the anchor.
    virtual void SetData(const std::vector<std::vector<CVector3D>>& polygons) = 0;              // 76
    /// The number of rings, empty ones included.
    virtual std::int64_t GetPolygonNumber() const = 0;                                          // 77
    /// Replaces the ring at polygonIndex (0 to GetPolygonNumber() - 1). A bad
    /// index logs "[CZoMultiPolygonMapObject::SetPolygonData] Index越界: ".
    virtual void SetPolygonData(int polygonIndex, const std::vector<CVector3D>& ring) = 0;      // 78
    /// Appends a ring and returns its index. An empty ring is refused, silently,
    /// with -1; so is a ring with a non-finite point (logged).
    virtual int AppendPolygon(const std::vector<CVector3D>& ring) = 0;                          // 79: -1 for an empty ring
    /// Inserts a ring before polygonIndex (0 to GetPolygonNumber(), which
    /// appends); an empty ring is accepted. A bad index logs
    /// "[CZoPolygonMapObject::InsertPolygon] Index越界: ".
    virtual void InsertPolygon(int polygonIndex, const std::vector<CVector3D>& ring) = 0;       // 80
    /// Removes the ring at polygonIndex (0 to GetPolygonNumber() - 1). A bad index
    /// logs "[CZoPolygonMapObject::RemovePolygon] Index越界: ".
    virtual void RemovePolygon(int polygonIndex) = 0;                                           // 81
    /// Removes the last ring; does nothing, silently, when there is none.
    virtual void PopPolygon() = 0;                                                              // 82
    /// A copy of the ring at polygonIndex; on a bad index an empty list, logged as
    /// "[CZoPolygonMapObject::GetPolygonData] Index越界: ".
    virtual std::vector<CVector3D> GetPolygonData(int polygonIndex) const = 0;                  // 83
    /// Removes every point of the ring at polygonIndex but keeps the ring. A bad
    /// index logs "[CZoPolygonMapObject::Cleanup] nPolygonIndex越界: ".
    virtual void Cleanup(int polygonIndex) = 0;                                                 // 84: empties one ring
    /// Removes every ring.
    virtual void Clear() = 0;                                                                   // 85
    /// The number of points of the ring at polygonIndex; on a bad index 0, logged
    /// as "[CZoPolygonMapObject::GetPointNumber] Index越界: ".
    virtual std::int64_t GetPointNumber(int polygonIndex) const = 0;                            // 86
    /// Replaces point pointIndex of ring polygonIndex; the anchor stays. A bad
    /// ring or point index alike logs "[CZoPolygonMapObject::ModifyData] nPolygonIndex越界: ".
    virtual void ModifyData(int polygonIndex, int pointIndex, const CVector3D& point) = 0;      // 87
    /// Point pointIndex of ring polygonIndex; on a bad index (0,0,0), logged as
    /// "[CZoPolygonMapObject::At] nPolygonIndex越界: " or
    /// "[CZoPolygonMapObject::At] nPointIndex越界: ".
    virtual CVector3D At(int polygonIndex, int pointIndex) const = 0;                           // 88
    /// Appends a point to the ring at polygonIndex. A bad index logs
    /// "[CZoPolygonMapObject::AppendPoint] nPolygonIndex越界: ".
    virtual void AppendPoint(int polygonIndex, const CVector3D& point) = 0;                     // 89
    /// Inserts a point before pointIndex (0 to the ring's point count, which
    /// appends) in the ring at polygonIndex. A bad index logs
    /// "[CZoPolygonMapObject::InsertPoint] nPolygonIndex越界: " or
    /// "[CZoPolygonMapObject::InsertPoint] nPointIndex越界: ".
    virtual void InsertPoint(int polygonIndex, int pointIndex, const CVector3D& point) = 0;     // 90
    /// Removes point pointIndex of ring polygonIndex. A bad index logs
    /// "[CZoPolygonMapObject::RemovePoint] nPolygonIndex越界: " or
    /// "[CZoPolygonMapObject::RemovePoint] nPointIndex越界: ".
    virtual void RemovePoint(int polygonIndex, int pointIndex) = 0;                             // 91
    /// Removes and returns the last point of the ring at polygonIndex; (0,0,0)
    /// when the index is bad ("[CZoPolygonMapObject::PopPoint] nPolygonIndex越界: ")
    /// or the ring is empty ("[CZoPolygonMapObject::PopPoint] nPolygonIndex对应点集为空",
    /// without an index).
    virtual CVector3D PopPoint(int polygonIndex) = 0;                                           // 92
    /// Moves every point of every ring by the same geographic difference so that
    /// the anchor lands on anchor. Without points only the anchor is set.
    virtual void SetPosition(const CVector3D& anchor) = 0;                                      // 93
    /// Stores a point for the host's own use; drawing ignores it.
    virtual void SetExtraPoint(const CVector3D& point) = 0;                                     // 94
    /// The point last given to SetExtraPoint; (0,0,0) until then.
    virtual CVector3D GetExtraPoint() const = 0;                                                // 95
};
