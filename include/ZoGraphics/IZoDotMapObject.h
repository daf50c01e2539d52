#pragma once

#include <ZoGraphics/IZoSurfaceStyleGraphicsMapObject.h>

/// A filled circle of a fixed on-screen radius at one geographic point.
///
/// Made by IZoGraphicsModule::CreateDotMapObject. The name label stands at
/// the middle of the side its position names; the alignment is not used.
/// GetBoundingBox() answers the degenerate box at the position.
///
/// Warnings name `CZoDotMapObject`, except two kept as hosts match them:
/// `Initialise` without a map module logs
/// `[CZoTextMapObject::Initialise] MapModule传入为空`, and both
/// `SetMinLodLevel` and `SetMaxLodLevel` without one log
/// `[CZoDotMapObject::SetMinLodLevel] MapModule模块未初始化设置`. A position the
/// map module cannot convert logs
/// `[CZoDotMapObject::ConvertSceneToPixel] ConvertSceneToPixel失败` and puts the
/// dot at pixel (0, 0).
class ZOGRAPHICS_EXPORT IZoDotMapObject : public IZoSurfaceStyleGraphicsMapObject
{
public:
    IZoDotMapObject() = default;
    /// @{ Copies of an interface share nothing: they exist only so that
    /// implementations may be copied.
    IZoDotMapObject(const IZoDotMapObject&) = default;
    IZoDotMapObject& operator=(const IZoDotMapObject&) = default;
    /// @}
    ~IZoDotMapObject() override;

    /// Moves the dot to a geographic point, x longitude and y latitude in
    /// degrees (z is not used), and its item with it.
    virtual void SetPosition(const CVector3D& position) = 0; // 76
    /// The dot's geographic position.
    virtual CVector3D GetPosition() const = 0;              // 77
    /// Sets the radius in pixels (default 6) and rebuilds the shape, whose hit
    /// area is the radius plus the pen width. A radius of 0 lays out nothing,
    /// the name label included. A radius beyond 1e6 either way, or one that is
    /// not a number, is ignored.
    virtual void SetRadius(double radius) = 0;              // 78: pixels
    /// The radius in pixels.
    virtual double GetRadius() const = 0;                   // 79
    /// Stores a vector for the host whose z is the rotation in degrees (see
    /// SetRotation()); the dot does not use x and y. Repaints. A vector whose
    /// x or y lies beyond 1e6 either way, or whose z is not finite, is ignored.
    virtual void SetOffset(const CVector3D& offset) = 0;    // 80: z is the rotation in degrees
    /// The offset vector; its z is the rotation in degrees.
    virtual CVector3D GetOffset() const = 0;                // 81
    /// Turns the dot's drawing by `degrees` about its position, as
    /// `QPainter::rotate` does, and repaints; only a texture picture shows the
    /// turn. Stored as the z of the offset vector. A value that is not finite
    /// is ignored.
    virtual void SetRotation(double degrees) = 0;           // 82
    /// The rotation in degrees (default 0): the z of the offset vector.
    virtual double GetRotation() const = 0;                 // 83
};
