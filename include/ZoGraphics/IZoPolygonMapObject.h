#pragma once

#include <ZoGraphics/IZoSurfaceStyleGraphicsMapObject.h>

#include <cstdint>
#include <vector>

// A filled ring through an ordered list of geographic points; point editing
// follows the polyline's rules.
class ZOGRAPHICS_EXPORT IZoPolygonMapObject : public IZoSurfaceStyleGraphicsMapObject
{
public:
    IZoPolygonMapObject() = default;
    IZoPolygonMapObject(const IZoPolygonMapObject&) = default;
    IZoPolygonMapObject& operator=(const IZoPolygonMapObject&) = default;
    ~IZoPolygonMapObject() override;

    virtual void SetData(const std::vector<CVector3D>& ring) = 0;             // 76
    virtual void PushBack(const CVector3D& point) = 0;                        // 77
    virtual CVector3D PopBack() = 0;                                          // 78: (0,0,0) on an empty ring
    virtual CVector3D At(int index) const = 0;                                // 79
    virtual void Modify(int index, const CVector3D& point) = 0;               // 80
    virtual void SetPosition(const CVector3D& anchor) = 0;                    // 81
    virtual CVector3D GetPosition() const = 0;                                // 82
    virtual void Insert(int index, const CVector3D& point) = 0;               // 83
    virtual void Remove(int index) = 0;                                       // 84
    virtual void Clear() = 0;                                                 // 85
    virtual std::int64_t GetPointNumber() const = 0;                          // 86
    virtual std::vector<CVector3D> GetData() const = 0;                       // 87
    virtual const std::vector<CVector3D>& GetDataRef() const = 0;             // 88
    virtual void GetAllControlPoint(std::vector<CVector3D>& out) const = 0;   // 89
    virtual void SetExtraPoint(const CVector3D& point) = 0;                   // 90
};
