#pragma once

#include <ZoGraphics/IZoGraphicsMapObject.h>

#include <QPixmap>

// A pin: an icon anchored at a geographic point, with the name as its label.
class ZOGRAPHICS_EXPORT IZoMarkPointMapObject : public IZoGraphicsMapObject
{
public:
    IZoMarkPointMapObject() = default;
    IZoMarkPointMapObject(const IZoMarkPointMapObject&) = default;
    IZoMarkPointMapObject& operator=(const IZoMarkPointMapObject&) = default;
    ~IZoMarkPointMapObject() override;

    virtual void SetPosition(const CVector3D& position) = 0;     // 59
    virtual CVector3D GetPosition() const = 0;                   // 60
    virtual void SetRotateAngle(double degrees) = 0;             // 61
    virtual double GetRotateAngle() const = 0;                   // 62
    virtual void SetIconSize(double width, double height) = 0;   // 63: pixels
    virtual double GetIconWidth() const = 0;                     // 64
    virtual double GetIconHeight() const = 0;                    // 65
    virtual void SetIconAnchor(const CVector3D& anchor) = 0;     // 66
    virtual CVector3D GetIconAnchor() const = 0;                 // 67
    virtual void SetIconFile(const std::string& path) = 0;       // 68: GB18030
    virtual void SetIcon(const QPixmap& icon) = 0;               // 69: a size of 0 takes the picture's
    virtual QPixmap GetIcon() const = 0;                         // 70
    virtual std::string GetIconFile() const = 0;                 // 71
    virtual void SetIconVisible(bool visible) = 0;               // 72
    virtual bool IsIconVisible() const = 0;                      // 73
    virtual void SetLabelPosition(unsigned int position) = 0;    // 74
    virtual unsigned int GetLabelPosition() const = 0;           // 75
    virtual void SetLabelAlignment(unsigned int alignment) = 0;  // 76
    virtual unsigned int GetLabelAlignment() const = 0;          // 77
};

// Geographic box of a typical pin (icon plus label) at the given map scale.
ZOGRAPHICS_EXPORT CAABB CalculateTypicalMarkPointBoudingBox(const std::string& text, const QFont& font,
                                                            const CVector3D& position, int iconWidth,
                                                            int iconHeight, double scale);
