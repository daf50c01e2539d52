#pragma once

#include <ZoGraphics/IZoGraphicsMapObject.h>

#include <QPixmap>

// Shapes with an outline and a fill: 17 operations behind the base ones
// (slots 59 to 75).
class ZOGRAPHICS_EXPORT IZoSurfaceStyleGraphicsMapObject : public IZoGraphicsMapObject
{
public:
    IZoSurfaceStyleGraphicsMapObject() = default;
    IZoSurfaceStyleGraphicsMapObject(const IZoSurfaceStyleGraphicsMapObject&) = default;
    IZoSurfaceStyleGraphicsMapObject& operator=(const IZoSurfaceStyleGraphicsMapObject&) = default;
    ~IZoSurfaceStyleGraphicsMapObject() override;

    virtual void SetLabelPosition(unsigned int position) = 0;                 // 59: 0 top 1 bottom 2 left 3 right 4 centre
    virtual unsigned int GetLabelPosition() const = 0;                        // 60
    virtual void SetLabelAlignment(unsigned int alignment) = 0;               // 61: 0 start 1 middle 2 end
    virtual unsigned int GetLabelAlignment() const = 0;                       // 62
    virtual void SetPenColor(const QColor& color) = 0;                        // 63
    virtual QColor GetPenColor() const = 0;                                   // 64
    virtual void SetPenWidth(float width) = 0;                                // 65
    virtual float GetPenWidth() const = 0;                                    // 66
    virtual void SetPenStyle(unsigned int style) = 0;                         // 67: Qt::PenStyle
    virtual unsigned int GetPenStyle() const = 0;                             // 68
    virtual void SetBrushColor(const QColor& color) = 0;                      // 69
    virtual QColor GetBrushColor() const = 0;                                 // 70
    virtual void SetBrushTextureFile(unsigned int brushStyle, const std::string& path) = 0; // 71
    virtual void SetBrushTexture(unsigned int brushStyle, const QPixmap& texture) = 0;      // 72
    virtual unsigned int GetBrushStyle() const = 0;                           // 73: Qt::BrushStyle
    virtual QPixmap GetBrushTexture() const = 0;                              // 74
    virtual std::string GetBrushTextureFile() const = 0;                      // 75
};
