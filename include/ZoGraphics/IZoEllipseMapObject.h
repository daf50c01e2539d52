#pragma once

#include <ZoGraphics/IZoSurfaceStyleGraphicsMapObject.h>

/// An ellipse inscribed in a geographic extent, optionally rotated.
///
/// Made by IZoGraphicsModule::CreateEllipseMapObject. Its hit area is the
/// ellipse itself, not grown by the pen, and its bounds have no margin, so
/// the name label may lie outside them. The label stands at the middle of the
/// side its position names; the alignment is not used. An extent whose
/// corners are not finite, or whose minimum lies above its maximum, draws
/// nothing. GetBoundingBox() answers the degenerate box at the centre.
///
/// Warnings name `CZoEllipseMapObject`. SetExtent() and SetCenter() without a
/// map module log `[CZoEllipseMapObject::SetExtent] MapModule传入为空` and
/// `[CZoEllipseMapObject::SetCenter] MapModule传入为空`; a centre the map
/// module cannot convert logs
/// `[CZoEllipseMapObject::ConvertCenterToPixel] ConvertSceneToPixel失败` and
/// puts the ellipse at pixel (0, 0).
class ZOGRAPHICS_EXPORT IZoEllipseMapObject : public IZoSurfaceStyleGraphicsMapObject
{
public:
    IZoEllipseMapObject() = default;
    /// @{ Copies of an interface share nothing: they exist only so that
    /// implementations may be copied.
    IZoEllipseMapObject(const IZoEllipseMapObject&) = default;
    IZoEllipseMapObject& operator=(const IZoEllipseMapObject&) = default;
    /// @}
    ~IZoEllipseMapObject() override;

    /// Sets the geographic extent (longitude and latitude in degrees), the
    /// centre to its midpoint (z 0), and the width and height to the map
    /// module's distances across it; then moves, rebuilds and repaints the
    /// item. Without a map module logs
    /// `[CZoEllipseMapObject::SetExtent] MapModule传入为空` and changes nothing.
    virtual void SetExtent(const EXTENT& extent) = 0;      // 76
    /// The geographic extent.
    virtual EXTENT GetExtent() const = 0;                  // 77
    /// Moves the ellipse to a geographic point, keeping its size in pixels at
    /// the current view: the extent is shifted by whole pixels and converted
    /// back, so its geographic size may change where the projection is not
    /// uniform. Width and height are not measured again. Without a map module
    /// logs `[CZoEllipseMapObject::SetCenter] MapModule传入为空`; with an extent
    /// that draws nothing, or points that cannot be converted, nothing changes.
    virtual void SetCenter(const CVector3D& center) = 0;   // 78: keeps the size in pixels
    /// The midpoint of the extent, z 0.
    virtual CVector3D GetCenter() const = 0;               // 79
    /// Turns the ellipse about its centre by `degrees`, clockwise on the
    /// screen as Qt's item rotation is; whole turns bring the value into
    /// (-360, 360). A value that is not finite is ignored.
    virtual void SetRotation(double degrees) = 0;          // 80
    /// The rotation in degrees (default 0), within (-360, 360).
    virtual double GetRotation() const = 0;                // 81
    /// The width in the map module's distance unit, along the extent's bottom
    /// edge, as measured by the last SetExtent() (0 before it).
    virtual double GetWidth() const = 0;                   // 82: as of the last SetExtent
    /// The height in the map module's distance unit, along the extent's left
    /// edge, as measured by the last SetExtent() (0 before it).
    virtual double GetHeight() const = 0;                  // 83
    /// Stores a point for the host; the ellipse does not use it.
    virtual void SetAuxPoint(const CVector3D& point) = 0;  // 84
    /// The point given to SetAuxPoint(); (0, 0, 0) until then.
    virtual CVector3D GetAuxPoint() const = 0;             // 85
};
