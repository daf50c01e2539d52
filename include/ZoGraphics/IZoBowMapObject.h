#pragma once

#include <ZoGraphics/IZoSurfaceStyleGraphicsMapObject.h>

#include <vector>

/// Arc, pie or chord of the ellipse inscribed in a geographic extent; the kind
/// is fixed by the creator.
///
/// IZoGraphicsModule::CreatePieMapObject, CreateArcMapObject and
/// CreateChordMapObject make the three kinds. Angles are degrees in Qt's
/// convention: 0 at three o'clock, positive counter-clockwise on the screen.
/// An arc is drawn with the pen only, yet its hit area is the closed chord.
/// The name label follows both its position and its alignment. IsRotatable()
/// answers true. GetBoundingBox() answers the degenerate box at the centre.
///
/// Warnings name `CZoBowMapObject`. SetCenter() without a map module logs
/// `[CZoBowMapObject::SetCenter] MapModule传入为空` (SetExtent() without one
/// does nothing, silently); a centre the map module cannot convert logs
/// `[CZoBowMapObject::ConvertCenterToPixel] ConvertSceneToPixel失败` and puts
/// the bow at pixel (0, 0).
class ZOGRAPHICS_EXPORT IZoBowMapObject : public IZoSurfaceStyleGraphicsMapObject
{
public:
    IZoBowMapObject() = default;
    /// @{ Copies of an interface share nothing: they exist only so that
    /// implementations may be copied.
    IZoBowMapObject(const IZoBowMapObject&) = default;
    IZoBowMapObject& operator=(const IZoBowMapObject&) = default;
    /// @}
    ~IZoBowMapObject() override;

    /// Sets where the part starts, in degrees, and rebuilds the shape. Whole
    /// turns bring the value into [-360, 360): -360 stays, 360 becomes 0. A
    /// value that is not finite is ignored.
    virtual void SetStartAngle(double degrees) = 0;                         // 76
    /// The start angle in degrees (default 0), within [-360, 360).
    virtual double GetStartAngle() const = 0;                               // 77
    /// Sets how far the part reaches from its start, in degrees, positive
    /// counter-clockwise, and rebuilds the shape. Brought into [-360, 360) as
    /// the start angle is; a value that is not finite is ignored.
    virtual void SetSpanAngle(double degrees) = 0;                          // 78
    /// The span angle in degrees (default 0), within [-360, 360).
    virtual double GetSpanAngle() const = 0;                                // 79
    /// Sets the geographic extent of the whole ellipse (longitude and latitude
    /// in degrees), the centre to its midpoint (z 0), and the width and height
    /// to the map module's distances across it; then moves, rebuilds and
    /// repaints the item. Without a map module nothing changes and nothing is
    /// logged. An extent whose corners are not finite, or whose minimum lies
    /// above its maximum, draws nothing.
    virtual void SetExtent(const EXTENT& extent) = 0;                       // 80
    /// The geographic extent of the whole ellipse.
    virtual EXTENT GetExtent() const = 0;                                   // 81
    /// Moves the bow to a geographic point, keeping its size in pixels at the
    /// current view: the extent is shifted by whole pixels and converted back,
    /// so its geographic size may change where the projection is not uniform.
    /// Width and height are not measured again. Without a map module logs
    /// `[CZoBowMapObject::SetCenter] MapModule传入为空`; with an extent that
    /// draws nothing, or points that cannot be converted, nothing changes.
    virtual void SetCenter(const CVector3D& center) = 0;                    // 82
    /// The midpoint of the extent, z 0.
    virtual CVector3D GetCenter() const = 0;                                // 83
    /// Turns the bow about its centre by `degrees`, clockwise on the screen as
    /// Qt's item rotation is, without rebuilding it. Whole turns bring the
    /// value into (-360, 360): unlike the start angle, -360 becomes 0. A value
    /// that is not finite is ignored.
    virtual void SetRotation(double degrees) = 0;                           // 84
    /// The rotation in degrees (default 0), within (-360, 360).
    virtual double GetRotation() const = 0;                                 // 85
    /// The width in the map module's distance unit, along the extent's bottom
    /// edge, as measured by the last SetExtent() (0 before it).
    virtual double GetWidth() const = 0;                                    // 86
    /// The height in the map module's distance unit, along the extent's left
    /// edge, as measured by the last SetExtent() (0 before it).
    virtual double GetHeight() const = 0;                                   // 87
    /// Appends geographic points along the arc, every 0.1 degree from the
    /// start angle to start plus span, for key-point editing; `out` is not
    /// cleared. A pie appends its centre first. Where start plus span passes
    /// 360 the walk goes on from 0; a negative span appends no arc points.
    /// The points lie on a circle of the ellipse's horizontal radius in whole
    /// pixels of the current view, not on the ellipse itself. Without a map
    /// module, or when the centre cannot be converted, nothing is appended.
    virtual void GetOutlinePoints(std::vector<CVector3D>& out) const = 0;   // 88: appends
    /// Stores a point for the host; the bow does not use it.
    virtual void SetAuxPoint(const CVector3D& point) = 0;                   // 89
    /// The point given to SetAuxPoint(); (0, 0, 0) until then.
    virtual CVector3D GetAuxPoint() const = 0;                              // 90
};
