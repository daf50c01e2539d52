#pragma once

#include <ZoGraphics/IZoGraphicsMapObject.h>

#include <QImage>

// An SVG picture centred on a geographic point at its natural pixel size,
// scalable per axis and rotatable.
class ZOGRAPHICS_EXPORT IZoSVGMapObject : public IZoGraphicsMapObject
{
public:
    IZoSVGMapObject() = default;
    IZoSVGMapObject(const IZoSVGMapObject&) = default;
    IZoSVGMapObject& operator=(const IZoSVGMapObject&) = default;
    ~IZoSVGMapObject() override;

    virtual bool LoadSVGFile(const std::string& path, const CVector3D& center) = 0; // 59: GB18030 path
    virtual std::string GetSVGFile() const = 0;                                     // 60
    virtual CVector3D GetCenter() const = 0;                                        // 61: middle of the extent
    virtual QImage ConvertToImage() const = 0;                                      // 62
    // 63-66 place the picture; the stored rotation is kept.
    virtual void SetGeoExtent(const EXTENT& extent) = 0;                            // 63: stretched to cover it
    virtual EXTENT GetGeoExtent() const = 0;                                        // 64: the stored extent
    virtual void SetCenter(const CVector3D& center) = 0;                            // 65
    virtual void MoveBy(double dx, double dy) = 0;                                  // 66: degrees of lon/lat
    virtual EXTENT CalculateGeoExtent() const = 0;                                  // 67: from the item as drawn
    virtual double GetWidth() const = 0;                                            // 68: map distance
    virtual double GetHeight() const = 0;                                           // 69
    virtual void SetXYScale(double sx, double sy) = 0;                              // 70: accumulates
    virtual void SetXScale(double sx) = 0;                                          // 71
    virtual void SetYScale(double sy) = 0;                                          // 72
    virtual double GetXScale() const = 0;                                           // 73
    virtual double GetYScale() const = 0;                                           // 74
    virtual void Rotate(double degrees) = 0;                                        // 75: absolute angle
    virtual double GetRotation() const = 0;                                         // 76
};

// Rasterises an SVG file (GB18030 path) without a map object.
ZOGRAPHICS_EXPORT QImage ConvertSVGToImage(const std::string& path);
