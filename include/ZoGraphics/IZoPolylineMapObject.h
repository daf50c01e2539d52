#pragma once

#include <ZoGraphics/IZoLineStyleGraphicsMapObject.h>

#include <cstdint>
#include <vector>

/// An open or closed line through an ordered list of geographic points.
///
/// Points are `CVector3D` with x = longitude and y = latitude in degrees; z is
/// kept and returned but neither drawn nor part of the bounding box. Made by
/// IZoGraphicsModule::CreatePolylineMapObject, which owns it.
///
/// Bad indices are logged and change nothing: the warning is the operation's
/// text quoted below followed by the index as a decimal number, and a getter
/// returns (0,0,0). A point with a NaN or infinite coordinate is refused whole
/// with the warning "[CZoPolylineMapObject::SetData] 坐标无效" (naming the
/// operation that refused it) and changes nothing.
///
/// The anchor is where the drawn item sits: the first point after SetData, or
/// the point pushed into a line without points; (0,0,0) once the line is
/// empty. Before the object is initialised, edits change only the points; the
/// drawing follows on the first rebuild.
class ZOGRAPHICS_EXPORT IZoPolylineMapObject : public IZoLineStyleGraphicsMapObject
{
public:
    IZoPolylineMapObject() = default;
    /// @{ Copies of an interface share nothing: they exist only so that
    /// implementations may be copied.
    IZoPolylineMapObject(const IZoPolylineMapObject&) = default;
    IZoPolylineMapObject& operator=(const IZoPolylineMapObject&) = default;
    /// @}
    ~IZoPolylineMapObject() override;

    /// Closes the line back to its first point when true (default false) and redraws.
    virtual void SetClosed(bool closed) = 0;                                  // 71
    /// Whether the line is drawn back to its first point.
    virtual bool IsClosed() const = 0;                                        // 72
    /// Replaces all points; the first becomes the anchor, or (0,0,0) for an empty list.
    /// Passing the object's own list (from GetDataRef) does nothing.
    virtual void SetData(const std::vector<CVector3D>& points) = 0;           // 73
    /// Appends a point; into an empty line it also becomes the anchor.
    virtual void PushBack(const CVector3D& point) = 0;                        // 74
    /// Removes and returns the last point; on an empty line returns (0,0,0),
    /// silently, and changes nothing.
    virtual CVector3D PopBack() = 0;                                          // 75
    /// The point at index (0 to count - 1); otherwise logs
    /// "[CZoPolylineMapObject::At] Index越界: " and the index, and returns (0,0,0).
    virtual CVector3D At(int index) const = 0;                                // 76: (0,0,0) when out of range
    /// Replaces the point at index (0 to count - 1); the anchor stays, even for
    /// index 0. A bad index logs "[CZoPolylineMapObject::Modify] Index越界: " and the index.
    virtual void Modify(int index, const CVector3D& point) = 0;               // 77
    /// Moves every point by the same geographic difference so that the anchor
    /// lands on anchor; the drawn line moves rigidly. On an empty line only the
    /// anchor is set.
    virtual void SetPosition(const CVector3D& anchor) = 0;                    // 78: moves the whole line
    /// The anchor (see the class description).
    virtual CVector3D GetPosition() const = 0;                                // 79
    /// Inserts a point before index (0 to count; count appends); the anchor stays.
    /// A bad index logs "[CZoPolylineMapObject::Insert] Index越界: " and the index.
    virtual void Insert(int index, const CVector3D& point) = 0;               // 80: index == count appends
    /// Removes the point at index (0 to count - 1); removing the last one resets
    /// the anchor to (0,0,0). A bad index logs
    /// "[CZoPolylineMapObject::Remove] Index越界: " and the index.
    virtual void Remove(int index) = 0;                                       // 81
    /// Removes every point and resets the anchor to (0,0,0); the closed flag stays.
    virtual void Clear() = 0;                                                 // 82
    /// The number of points.
    virtual std::int64_t GetPointNumber() const = 0;                          // 83
    /// A copy of the points, in drawing order.
    virtual std::vector<CVector3D> GetData() const = 0;                       // 84
    /// The points themselves, without a copy; the reference lives as long as
    /// the object, but any edit may invalidate iterators into it.
    virtual const std::vector<CVector3D>& GetDataRef() const = 0;             // 85
    /// Appends the points as the item draws them to out, without clearing it.
    ///
    /// Each is the item's pixel position truncated to whole pixels and converted
    /// back to longitude and latitude, with z = 0, so it may differ slightly from
    /// the stored point. Without a map module logs
    /// "[CZoPolylineMapObject::GetAllControlPoint] MapModule传入为空", without a Qt
    /// item "[CZoPolylineMapObject::GetAllControlPoint] Qt-Item为空", and leaves
    /// out unchanged.
    virtual void GetAllControlPoint(std::vector<CVector3D>& out) const = 0;   // 86: appends, as drawn
};
