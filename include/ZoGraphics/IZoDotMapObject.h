#pragma once

#include <ZoGraphics/IZoSurfaceStyleGraphicsMapObject.h>

// A filled circle of a fixed on-screen radius at one geographic point.
class ZOGRAPHICS_EXPORT IZoDotMapObject : public IZoSurfaceStyleGraphicsMapObject
{
public:
    IZoDotMapObject() = default;
    IZoDotMapObject(const IZoDotMapObject&) = default;
    IZoDotMapObject& operator=(const IZoDotMapObject&) = default;
    ~IZoDotMapObject() override;

    virtual void SetPosition(const CVector3D& position) = 0; // 76
    virtual CVector3D GetPosition() const = 0;              // 77
    virtual void SetRadius(double radius) = 0;              // 78: pixels
    virtual double GetRadius() const = 0;                   // 79
    virtual void SetOffset(const CVector3D& offset) = 0;    // 80: z is the rotation in degrees
    virtual CVector3D GetOffset() const = 0;                // 81
    virtual void SetRotation(double degrees) = 0;           // 82
    virtual double GetRotation() const = 0;                 // 83
};
