#pragma once

#include <ZoGraphics/IZoSurfaceStyleGraphicsMapObject.h>

#include <cstdint>
#include <vector>

// Several filled rings in one object with one surface style. Bad polygon or
// point indices are logged and change nothing.
class ZOGRAPHICS_EXPORT IZoMultiPolygonMapObject : public IZoSurfaceStyleGraphicsMapObject
{
public:
    IZoMultiPolygonMapObject() = default;
    IZoMultiPolygonMapObject(const IZoMultiPolygonMapObject&) = default;
    IZoMultiPolygonMapObject& operator=(const IZoMultiPolygonMapObject&) = default;
    ~IZoMultiPolygonMapObject() override;

    virtual void SetData(const std::vector<std::vector<CVector3D>>& polygons) = 0;              // 76
    virtual std::int64_t GetPolygonNumber() const = 0;                                          // 77
    virtual void SetPolygonData(int polygonIndex, const std::vector<CVector3D>& ring) = 0;      // 78
    virtual int AppendPolygon(const std::vector<CVector3D>& ring) = 0;                          // 79: -1 for an empty ring
    virtual void InsertPolygon(int polygonIndex, const std::vector<CVector3D>& ring) = 0;       // 80
    virtual void RemovePolygon(int polygonIndex) = 0;                                           // 81
    virtual void PopPolygon() = 0;                                                              // 82
    virtual std::vector<CVector3D> GetPolygonData(int polygonIndex) const = 0;                  // 83
    virtual void Cleanup(int polygonIndex) = 0;                                                 // 84: empties one ring
    virtual void Clear() = 0;                                                                   // 85
    virtual std::int64_t GetPointNumber(int polygonIndex) const = 0;                            // 86
    virtual void ModifyData(int polygonIndex, int pointIndex, const CVector3D& point) = 0;      // 87
    virtual CVector3D At(int polygonIndex, int pointIndex) const = 0;                           // 88
    virtual void AppendPoint(int polygonIndex, const CVector3D& point) = 0;                     // 89
    virtual void InsertPoint(int polygonIndex, int pointIndex, const CVector3D& point) = 0;     // 90
    virtual void RemovePoint(int polygonIndex, int pointIndex) = 0;                             // 91
    virtual CVector3D PopPoint(int polygonIndex) = 0;                                           // 92
    virtual void SetPosition(const CVector3D& anchor) = 0;                                      // 93
    virtual void SetExtraPoint(const CVector3D& point) = 0;                                     // 94
    virtual CVector3D GetExtraPoint() const = 0;                                                // 95
};
