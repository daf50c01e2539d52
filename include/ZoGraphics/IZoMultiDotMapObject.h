#pragma once

#include <ZoGraphics/IZoSurfaceStyleGraphicsMapObject.h>

#include <cstdint>
#include <vector>

/// A set of equal dots at geographic points, drawn as one item.
///
/// Points are `CVector3D` with x = longitude and y = latitude in degrees; z is
/// kept but not drawn. Each dot is a circle filled and outlined with the
/// surface style; when the last point repeats the first, one dot is drawn for
/// both. Made by IZoGraphicsModule::CreateMultiDotMapObject, which owns it.
///
/// Point edits hand the new points to the item but do not redraw it: the dots
/// are laid out again by the next rebuild (SetDotSize, SetPosition, a style
/// change, or Rebuild). Bad indices log the operation's text quoted below
/// followed by the index and change nothing. A point with a NaN or infinite
/// coordinate is refused whole with "[CZoMultiDotMapObject::SetData] 坐标无效"
/// (naming the operation).
class ZOGRAPHICS_EXPORT IZoMultiDotMapObject : public IZoSurfaceStyleGraphicsMapObject
{
public:
    IZoMultiDotMapObject() = default;
    /// @{ Copies of an interface share nothing: they exist only so that
    /// implementations may be copied.
    IZoMultiDotMapObject(const IZoMultiDotMapObject&) = default;
    IZoMultiDotMapObject& operator=(const IZoMultiDotMapObject&) = default;
    /// @}
    ~IZoMultiDotMapObject() override;

    /// Replaces all points; the item is placed at the first one.
    virtual void SetData(const std::vector<CVector3D>& points) = 0;   // 76
    /// Appends a dot.
    virtual void PushBack(const CVector3D& point) = 0;                // 77
    /// Removes and returns the last point; on an empty set logs
    /// "[CZoMultiDotMapObject::PopBack] 点集已为空" and returns (0,0,0).
    virtual CVector3D PopBack() = 0;                                  // 78
    /// The point at index (0 to count - 1); otherwise logs
    /// "[CZoMultiDotMapObject::At] Index越界: " and the index, and returns (0,0,0).
    virtual CVector3D At(int index) const = 0;                        // 79
    /// Replaces the point at index (0 to count - 1). A bad index logs
    /// "[CZoMultiDotMapObject::Modify] Index越界: " and the index.
    virtual void Modify(int index, const CVector3D& point) = 0;       // 80
    /// Inserts a point before index (0 to count; count appends). A bad index logs
    /// "[CZoMultiDotMapObject::Insert] Index越界: " and the index.
    virtual void Insert(int index, const CVector3D& point) = 0;       // 81
    /// Removes the point at index (0 to count - 1). A bad index logs
    /// "[CZoMultiDotMapObject::Remove] Index越界: " and the index.
    virtual void Remove(int index) = 0;                               // 82
    /// Removes every point.
    virtual void Clear() = 0;                                         // 83
    /// The number of points.
    virtual std::int64_t GetPointNumber() const = 0;                  // 84
    /// Moves every dot by the same geographic difference so that the first dot
    /// lands on first, and redraws. Does nothing, silently, while the set is
    /// empty or the object has no Qt item yet.
    virtual void SetPosition(const CVector3D& first) = 0;             // 85: the first dot lands here
    /// A copy of the points, in order.
    virtual std::vector<CVector3D> GetData() const = 0;               // 86
    /// Sets the dot radius in pixels (default 4) and redraws; the outline width
    /// is added to it. 0 draws no dots. A size that is not a number or beyond a
    /// million pixels either way is ignored, silently.
    virtual void SetDotSize(double size) = 0;                         // 87: pixels
    /// The dot radius in pixels.
    virtual double GetDotSize() const = 0;                            // 88
    /// Stores a point for the host's own use; drawing ignores it.
    virtual void SetExtraPoint(const CVector3D& point) = 0;           // 89
    /// The point last given to SetExtraPoint; (0,0,0) until then.
    virtual CVector3D GetExtraPoint() const = 0;                      // 90
};
