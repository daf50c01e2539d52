#pragma once

#include <ZoGraphics/IZoSurfaceStyleGraphicsMapObject.h>

#include <vector>

/// A circle given by its geographic centre and one point on its rim.
///
/// Made by IZoGraphicsModule::CreateCircleMapObject. The circle keeps its rim
/// point due east of the centre, so the radius is held in degrees of longitude
/// and the on-screen radius is the whole number of pixels between the two at
/// the current view. The hit area grows by the full pen width. The name label
/// stands at the middle of the side its position names; the alignment is not
/// used. GetBoundingBox() answers the degenerate box at the centre.
///
/// Warnings name `CZoCircleMapObject`. A centre the map module cannot convert
/// logs `[CZoCircleMapObject::ConvertCenterToPixel] ConvertSceneToPixel失败` and
/// puts the circle at pixel (0, 0).
class ZOGRAPHICS_EXPORT IZoCircleMapObject : public IZoSurfaceStyleGraphicsMapObject
{
public:
    IZoCircleMapObject() = default;
    /// @{ Copies of an interface share nothing: they exist only so that
    /// implementations may be copied.
    IZoCircleMapObject(const IZoCircleMapObject&) = default;
    IZoCircleMapObject& operator=(const IZoCircleMapObject&) = default;
    /// @}
    ~IZoCircleMapObject() override;

    /// Moves the centre to a geographic point (x longitude, y latitude, in
    /// degrees) and the item with it, without a repaint. The rim point moves
    /// by the same offset, z included, so the radius is kept.
    virtual void SetCenter(const CVector3D& center) = 0;                               // 76: the rim point moves along
    /// The geographic centre.
    virtual CVector3D GetCenter() const = 0;                                           // 77
    /// Sets the radius from a geographic point on the rim: its planar distance
    /// from the centre in x and y, in degrees (z is ignored). The rim point is
    /// stored due east of the centre at that distance, with z 0. Rebuilds the
    /// shape and repaints.
    virtual void SetRadiusPoint(const CVector3D& point) = 0;                           // 78
    /// Appends geographic points on the outline, evenly spaced from due east,
    /// for key-point editing; `out` is not cleared.
    /// @param out receives the points.
    /// @param level how many: 1 or less the rim point alone, 2 four points,
    /// n from 3 to 21 two to the power n points, above 21 none.
    ///
    /// In the map module's geographic coordinate mode (2) the points lie on a
    /// circle in degrees, counter-clockwise; in any other mode on a circle in
    /// whole pixels of the current view, converted back, which runs clockwise
    /// on the screen. Without a map module, or when the centre or the rim
    /// cannot be converted, nothing is appended.
    virtual void GetOutlinePoints(std::vector<CVector3D>& out, int level) const = 0;   // 79: appends
    /// The radius in the map module's distance unit: its distance between the
    /// centre and the rim point, measured on every call; 0 without a map
    /// module.
    virtual double GetRadius() const = 0;                                              // 80: map module's distance unit
    /// Stores a point for the host; the circle does not use it.
    virtual void SetAuxPoint(const CVector3D& point) = 0;                              // 81
    /// The point given to SetAuxPoint(); (0, 0, 0) until then.
    virtual CVector3D GetAuxPoint() const = 0;                                         // 82
};
