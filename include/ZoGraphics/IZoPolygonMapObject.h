#pragma once

#include <ZoGraphics/IZoSurfaceStyleGraphicsMapObject.h>

#include <cstdint>
#include <vector>

/// A filled ring through an ordered list of geographic points; point editing
/// follows the polyline's rules.
///
/// The ring is always closed: do not repeat the first point at the end. It is
/// filled with the odd-even rule, so a self-intersecting ring leaves its doubly
/// covered parts empty, and the whole filled area answers to the mouse. The
/// name is drawn, centred, only while the label position is 4. Made by
/// IZoGraphicsModule::CreatePolygonMapObject, which owns it.
///
/// Points are `CVector3D` with x = longitude and y = latitude in degrees; z is
/// kept but not drawn. Bad indices log the operation's text quoted below
/// followed by the index and change nothing. A point with a NaN or infinite
/// coordinate is refused whole with "[CZoPolygonMapObject::SetData] 坐标无效"
/// (naming the operation). The anchor is the first point after SetData, or the
/// point pushed into an empty ring; (0,0,0) once the ring is empty.
class ZOGRAPHICS_EXPORT IZoPolygonMapObject : public IZoSurfaceStyleGraphicsMapObject
{
public:
    IZoPolygonMapObject() = default;
    /// @{ Copies of an interface share nothing: they exist only so that
    /// implementations may be copied.
    IZoPolygonMapObject(const IZoPolygonMapObject&) = default;
    IZoPolygonMapObject& operator=(const IZoPolygonMapObject&) = default;
    /// @}
    ~IZoPolygonMapObject() override;

    /// Replaces the ring; its first point becomes the anchor, or (0,0,0) for an
    /// empty ring. Passing the object's own list (from GetDataRef) does nothing.
    virtual void SetData(const std::vector<CVector3D>& ring) = 0;             // 76
    /// Appends a point; into an empty ring it also becomes the anchor.
    virtual void PushBack(const CVector3D& point) = 0;                        // 77
    /// Removes and returns the last point; on an empty ring returns (0,0,0),
    /// silently, and changes nothing.
    virtual CVector3D PopBack() = 0;                                          // 78: (0,0,0) on an empty ring
    /// The point at index (0 to count - 1); otherwise logs
    /// "[CZoPolygonMapObject::At] Index越界: " and the index, and returns (0,0,0).
    virtual CVector3D At(int index) const = 0;                                // 79
    /// Replaces the point at index (0 to count - 1); the anchor stays. A bad index
    /// logs "[CZoPolygonMapObject::Modify] Index越界: " and the index.
    virtual void Modify(int index, const CVector3D& point) = 0;               // 80
    /// Moves every point by the same geographic difference so that the anchor
    /// lands on anchor. On an empty ring only the anchor is set.
    virtual void SetPosition(const CVector3D& anchor) = 0;                    // 81
    /// The anchor (see the class description).
    virtual CVector3D GetPosition() const = 0;                                // 82
    /// Inserts a point before index (0 to count; count appends); the anchor
    /// stays. A bad index logs "[CZoPolygonMapObject::Insert] Index越界: " and the index.
    virtual void Insert(int index, const CVector3D& point) = 0;               // 83
    /// Removes the point at index (0 to count - 1); removing the last one resets
    /// the anchor to (0,0,0). A bad index logs
    /// "[CZoPolygonMapObject::Remove] Index越界: " and the index.
    virtual void Remove(int index) = 0;                                       // 84
    /// Removes every point and resets the anchor to (0,0,0).
    virtual void Clear() = 0;                                                 // 85
    /// The number of points.
    virtual std::int64_t GetPointNumber() const = 0;                          // 86
    /// A copy of the ring's points, in order.
    virtual std::vector<CVector3D> GetData() const = 0;                       // 87
    /// The ring's points themselves, without a copy; the reference lives as
    /// long as the object, but any edit may invalidate iterators into it.
    virtual const std::vector<CVector3D>& GetDataRef() const = 0;             // 88
    /// Appends the points as the item draws them to out, without clearing it.
    ///
    /// Each is the item's pixel position truncated to whole pixels and converted
    /// back to longitude and latitude, with z = 0. Without a map module logs
    /// "[CZoPolygonMapObject::GetAllControlPoint] MapModule传入为空", without a Qt
    /// item "[CZoPolygonMapObject::GetAllControlPoint] Qt-Item为空", and leaves out
    /// unchanged.
    virtual void GetAllControlPoint(std::vector<CVector3D>& out) const = 0;   // 89
    /// Stores a point for the host's own use; drawing ignores it.
    virtual void SetExtraPoint(const CVector3D& point) = 0;                   // 90
};
