#pragma once

#include <ZoGraphics/IZoLineStyleGraphicsMapObject.h>

#include <cstdint>
#include <vector>

// An open or closed line through an ordered list of geographic points. Bad
// indices are logged and change nothing.
class ZOGRAPHICS_EXPORT IZoPolylineMapObject : public IZoLineStyleGraphicsMapObject
{
public:
    IZoPolylineMapObject() = default;
    IZoPolylineMapObject(const IZoPolylineMapObject&) = default;
    IZoPolylineMapObject& operator=(const IZoPolylineMapObject&) = default;
    ~IZoPolylineMapObject() override;

    virtual void SetClosed(bool closed) = 0;                                  // 71
    virtual bool IsClosed() const = 0;                                        // 72
    virtual void SetData(const std::vector<CVector3D>& points) = 0;           // 73
    virtual void PushBack(const CVector3D& point) = 0;                        // 74
    virtual CVector3D PopBack() = 0;                                          // 75
    virtual CVector3D At(int index) const = 0;                                // 76: (0,0,0) when out of range
    virtual void Modify(int index, const CVector3D& point) = 0;               // 77
    virtual void SetPosition(const CVector3D& anchor) = 0;                    // 78: moves the whole line
    virtual CVector3D GetPosition() const = 0;                                // 79
    virtual void Insert(int index, const CVector3D& point) = 0;               // 80: index == count appends
    virtual void Remove(int index) = 0;                                       // 81
    virtual void Clear() = 0;                                                 // 82
    virtual std::int64_t GetPointNumber() const = 0;                          // 83
    virtual std::vector<CVector3D> GetData() const = 0;                       // 84
    virtual const std::vector<CVector3D>& GetDataRef() const = 0;             // 85
    virtual void GetAllControlPoint(std::vector<CVector3D>& out) const = 0;   // 86: appends, as drawn
};
