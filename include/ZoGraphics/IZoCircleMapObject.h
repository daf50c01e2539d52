#pragma once

#include <ZoGraphics/IZoSurfaceStyleGraphicsMapObject.h>

#include <vector>

// A circle given by its geographic centre and one point on its rim.
class ZOGRAPHICS_EXPORT IZoCircleMapObject : public IZoSurfaceStyleGraphicsMapObject
{
public:
    IZoCircleMapObject() = default;
    IZoCircleMapObject(const IZoCircleMapObject&) = default;
    IZoCircleMapObject& operator=(const IZoCircleMapObject&) = default;
    ~IZoCircleMapObject() override;

    virtual void SetCenter(const CVector3D& center) = 0;                               // 76: the rim point moves along
    virtual CVector3D GetCenter() const = 0;                                           // 77
    virtual void SetRadiusPoint(const CVector3D& point) = 0;                           // 78
    virtual void GetOutlinePoints(std::vector<CVector3D>& out, int level) const = 0;   // 79: appends
    virtual double GetRadius() const = 0;                                              // 80: map module's distance unit
    virtual void SetAuxPoint(const CVector3D& point) = 0;                              // 81
    virtual CVector3D GetAuxPoint() const = 0;                                         // 82
};
