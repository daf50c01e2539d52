#pragma once

#include <ZoGraphics/IZoSurfaceStyleGraphicsMapObject.h>

#include <vector>

// Arc, pie or chord of the ellipse inscribed in a geographic extent; the kind
// is fixed by the creator.
class ZOGRAPHICS_EXPORT IZoBowMapObject : public IZoSurfaceStyleGraphicsMapObject
{
public:
    IZoBowMapObject() = default;
    IZoBowMapObject(const IZoBowMapObject&) = default;
    IZoBowMapObject& operator=(const IZoBowMapObject&) = default;
    ~IZoBowMapObject() override;

    virtual void SetStartAngle(double degrees) = 0;                         // 76
    virtual double GetStartAngle() const = 0;                               // 77
    virtual void SetSpanAngle(double degrees) = 0;                          // 78
    virtual double GetSpanAngle() const = 0;                                // 79
    virtual void SetExtent(const EXTENT& extent) = 0;                       // 80
    virtual EXTENT GetExtent() const = 0;                                   // 81
    virtual void SetCenter(const CVector3D& center) = 0;                    // 82
    virtual CVector3D GetCenter() const = 0;                                // 83
    virtual void SetRotation(double degrees) = 0;                           // 84
    virtual double GetRotation() const = 0;                                 // 85
    virtual double GetWidth() const = 0;                                    // 86
    virtual double GetHeight() const = 0;                                   // 87
    virtual void GetOutlinePoints(std::vector<CVector3D>& out) const = 0;   // 88: appends
    virtual void SetAuxPoint(const CVector3D& point) = 0;                   // 89
    virtual CVector3D GetAuxPoint() const = 0;                              // 90
};
