#pragma once

#include <ZoGraphics/IZoGraphicsMapObject.h>

// Shapes that are only lines: 12 operations behind the base ones (slots 59 to 70).
class ZOGRAPHICS_EXPORT IZoLineStyleGraphicsMapObject : public IZoGraphicsMapObject
{
public:
    IZoLineStyleGraphicsMapObject() = default;
    IZoLineStyleGraphicsMapObject(const IZoLineStyleGraphicsMapObject&) = default;
    IZoLineStyleGraphicsMapObject& operator=(const IZoLineStyleGraphicsMapObject&) = default;
    ~IZoLineStyleGraphicsMapObject() override;

    virtual void SetLabelPosition(unsigned int position) = 0; // 59: 0 first, 1 middle, 2 last segment
    virtual unsigned int GetLabelPosition() const = 0;        // 60
    virtual void SetPenColor(const QColor& color) = 0;        // 61
    virtual QColor GetPenColor() const = 0;                   // 62
    virtual void SetPenWidth(float width) = 0;                // 63
    virtual float GetPenWidth() const = 0;                    // 64
    virtual void SetPenStyle(unsigned int style) = 0;         // 65
    virtual unsigned int GetPenStyle() const = 0;             // 66
    virtual void SetArrowVisible(bool visible) = 0;           // 67
    virtual bool IsArrowVisible() const = 0;                  // 68
    virtual void SetArrowAtEnd(bool atEnd) = 0;               // 69
    virtual bool IsArrowAtEnd() const = 0;                    // 70
};
