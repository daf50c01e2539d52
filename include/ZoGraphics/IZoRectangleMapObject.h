#pragma once

#include <ZoGraphics/IZoSurfaceStyleGraphicsMapObject.h>

// An axis-aligned rectangle over a geographic extent; also the map tile.
class ZOGRAPHICS_EXPORT IZoRectangleMapObject : public IZoSurfaceStyleGraphicsMapObject
{
public:
    IZoRectangleMapObject() = default;
    IZoRectangleMapObject(const IZoRectangleMapObject&) = default;
    IZoRectangleMapObject& operator=(const IZoRectangleMapObject&) = default;
    ~IZoRectangleMapObject() override;

    virtual void SetExtent(const EXTENT& extent) = 0;      // 76
    virtual EXTENT GetExtent() const = 0;                  // 77
    virtual void SetCenter(const CVector3D& center) = 0;   // 78: keeps the size in pixels
    virtual CVector3D GetCenter() const = 0;               // 79
    virtual void SetRotation(double degrees) = 0;          // 80
    virtual double GetRotation() const = 0;                // 81
    virtual double GetWidth() const = 0;                   // 82: map distance, measured on each call
    virtual double GetHeight() const = 0;                  // 83: map distance, measured on each call
    virtual void SetAuxPoint(const CVector3D& point) = 0;  // 84
    virtual CVector3D GetAuxPoint() const = 0;             // 85
};
