#pragma once

#include <ZoGraphics/IZoGraphicsMapObject.h>

// Plain or rich text at a geographic point, with an optional frame and
// background.
class ZOGRAPHICS_EXPORT IZoTextMapObject : public IZoGraphicsMapObject
{
public:
    IZoTextMapObject() = default;
    IZoTextMapObject(const IZoTextMapObject&) = default;
    IZoTextMapObject& operator=(const IZoTextMapObject&) = default;
    ~IZoTextMapObject() override;

    virtual void SetPosition(const CVector3D& position) = 0;     // 59
    virtual CVector3D GetPosition() const = 0;                   // 60
    virtual void SetRotateAngle(double degrees) = 0;             // 61
    virtual double GetRotateAngle() const = 0;                   // 62
    virtual void SetRotationVector(const CVector3D& vector) = 0; // 63: z is the angle
    virtual CVector3D GetRotationVector() const = 0;             // 64
    virtual void SetText(const std::string& text) = 0;           // 65: plain text, GB18030
    virtual std::string GetText() const = 0;                     // 66
    virtual void SetHtml(const std::string& html) = 0;           // 67
    virtual std::string GetHtml() const = 0;                     // 68
    virtual void SetFont(const QFont& font) = 0;                 // 69
    virtual QFont GetFont() const = 0;                           // 70
    virtual void SetTextColor(const QColor& color) = 0;          // 71
    virtual QColor GetTextColor() const = 0;                     // 72
    virtual void SetOutlineColor(const QColor& color) = 0;       // 73
    virtual QColor GetOutlineColor() const = 0;                  // 74
    virtual void SetOutlineWidth(double width) = 0;              // 75
    virtual double GetOutlineWidth() const = 0;                  // 76
    virtual void SetPadding(double padding) = 0;                 // 77
    virtual double GetPadding() const = 0;                       // 78
    virtual void SetBackgroundColor(const QColor& color) = 0;    // 79
    virtual QColor GetBackgroundColor() const = 0;               // 80
    virtual void SetBorderWidth(double width) = 0;               // 81
    virtual double GetBorderWidth() const = 0;                   // 82
    virtual void SetBorderColor(const QColor& color) = 0;        // 83
    virtual QColor GetBorderColor() const = 0;                   // 84
    virtual void SetScaleWithMap(bool scaleWithMap) = 0;         // 85
    virtual bool IsScaleWithMap() const = 0;                     // 86
    virtual void EnableTextInteraction(bool enabled) = 0;        // 87
    virtual bool IsTextInteractionEnabled() const = 0;           // 88
};

// Geographic box that the text covers at the given map scale.
ZOGRAPHICS_EXPORT CAABB CalculateTextBoundingBox(const std::string& text, const QFont& font,
                                                 const CVector3D& position, double scale);
