#pragma once

#include <ZoGraphics/IZoSurfaceStyleGraphicsMapObject.h>

#include <cstdint>
#include <vector>

// A set of equal dots at geographic points, drawn as one item.
class ZOGRAPHICS_EXPORT IZoMultiDotMapObject : public IZoSurfaceStyleGraphicsMapObject
{
public:
    IZoMultiDotMapObject() = default;
    IZoMultiDotMapObject(const IZoMultiDotMapObject&) = default;
    IZoMultiDotMapObject& operator=(const IZoMultiDotMapObject&) = default;
    ~IZoMultiDotMapObject() override;

    virtual void SetData(const std::vector<CVector3D>& points) = 0;   // 76
    virtual void PushBack(const CVector3D& point) = 0;                // 77
    virtual CVector3D PopBack() = 0;                                  // 78
    virtual CVector3D At(int index) const = 0;                        // 79
    virtual void Modify(int index, const CVector3D& point) = 0;       // 80
    virtual void Insert(int index, const CVector3D& point) = 0;       // 81
    virtual void Remove(int index) = 0;                               // 82
    virtual void Clear() = 0;                                         // 83
    virtual std::int64_t GetPointNumber() const = 0;                  // 84
    virtual void SetPosition(const CVector3D& first) = 0;             // 85: the first dot lands here
    virtual std::vector<CVector3D> GetData() const = 0;               // 86
    virtual void SetDotSize(double size) = 0;                         // 87: pixels
    virtual double GetDotSize() const = 0;                            // 88
    virtual void SetExtraPoint(const CVector3D& point) = 0;           // 89
    virtual CVector3D GetExtraPoint() const = 0;                      // 90
};
