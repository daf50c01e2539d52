#pragma once

#include <ZoGraphics/IZoSurfaceStyleGraphicsMapObject.h>

/// An axis-aligned rectangle over a geographic extent; also the map tile.
///
/// IZoGraphicsModule::CreateRectangleMapObject makes a rectangle placed in the
/// whole pixels of the current view; CreateTileMapObject makes a tile, placed
/// in the fractional world pixels of level 21 of the map module's tile model.
/// With brush style 24 (`Qt::TexturePattern`) and a texture the rectangle
/// draws the picture stretched over itself, without outline or fill: this is
/// how a tile shows its image. The name label follows both its position and
/// its alignment. An extent whose corners are not finite, or whose minimum
/// lies above its maximum, draws nothing. GetBoundingBox() answers the
/// degenerate box at the centre.
///
/// Warnings name `CZoRectangleMapObject`. SetExtent() and SetCenter() without
/// a map module log `[CZoRectangleMapObject::SetExtent] MapModule模块未初始化设置`
/// and `[CZoRectangleMapObject::SetCenter] MapModule模块未初始化设置`. A centre
/// that cannot be converted logs
/// `[CZoRectangleMapObject::ConvertGeoToPixel] ConvertSceneToPixel失败`, and a
/// tile whose map module has no tile model for its coordinate mode logs
/// `[CZoRectangleMapObject::ConvertGeoToPixel] 获取TileModel为空, TileModel: `
/// followed by the mode number; either puts the item at pixel (0, 0).
class ZOGRAPHICS_EXPORT IZoRectangleMapObject : public IZoSurfaceStyleGraphicsMapObject
{
public:
    IZoRectangleMapObject() = default;
    /// @{ Copies of an interface share nothing: they exist only so that
    /// implementations may be copied.
    IZoRectangleMapObject(const IZoRectangleMapObject&) = default;
    IZoRectangleMapObject& operator=(const IZoRectangleMapObject&) = default;
    /// @}
    ~IZoRectangleMapObject() override;

    /// Sets the geographic extent (longitude and latitude in degrees) and the
    /// centre to its midpoint (z 0), then moves, rebuilds and repaints the
    /// item. Without a map module logs
    /// `[CZoRectangleMapObject::SetExtent] MapModule模块未初始化设置` and
    /// changes nothing.
    virtual void SetExtent(const EXTENT& extent) = 0;      // 76
    /// The geographic extent.
    virtual EXTENT GetExtent() const = 0;                  // 77
    /// Moves the rectangle to a geographic point, keeping its size in pixels:
    /// the extent is shifted by whole pixels and converted back, so its
    /// geographic size may change where the projection is not uniform.
    /// Without a map module logs
    /// `[CZoRectangleMapObject::SetCenter] MapModule模块未初始化设置`; with an
    /// extent that draws nothing, or points that cannot be converted, nothing
    /// changes.
    virtual void SetCenter(const CVector3D& center) = 0;   // 78: keeps the size in pixels
    /// The midpoint of the extent, z 0.
    virtual CVector3D GetCenter() const = 0;               // 79
    /// Turns the rectangle about its centre by `degrees`, clockwise on the
    /// screen as Qt's item rotation is; whole turns bring the value into
    /// (-360, 360). A value that is not finite is ignored.
    virtual void SetRotation(double degrees) = 0;          // 80
    /// The rotation in degrees (default 0), within (-360, 360).
    virtual double GetRotation() const = 0;                // 81
    /// The width in the map module's distance unit, along the extent's bottom
    /// edge, measured on every call; 0 without a map module.
    virtual double GetWidth() const = 0;                   // 82: map distance, measured on each call
    /// The height in the map module's distance unit, along the extent's left
    /// edge, measured on every call; 0 without a map module.
    virtual double GetHeight() const = 0;                  // 83: map distance, measured on each call
    /// Stores a point for the host; the rectangle does not use it.
    virtual void SetAuxPoint(const CVector3D& point) = 0;  // 84
    /// The point given to SetAuxPoint(); (0, 0, 0) until then.
    virtual CVector3D GetAuxPoint() const = 0;             // 85
};
