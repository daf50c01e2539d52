#pragma once

#include <ZoGraphics/IZoGraphicsMapObject.h>

class QWidget;

// A Qt widget embedded in the map at a geographic point. The widget is not
// owned.
class ZOGRAPHICS_EXPORT IZoWidgetMapObject : public IZoGraphicsMapObject
{
public:
    IZoWidgetMapObject() = default;
    IZoWidgetMapObject(const IZoWidgetMapObject&) = default;
    IZoWidgetMapObject& operator=(const IZoWidgetMapObject&) = default;
    ~IZoWidgetMapObject() override;

    virtual void SetPosition(const CVector3D& position) = 0; // 59
    virtual CVector3D GetPosition() const = 0;               // 60
    virtual void SetSize(int width, int height) = 0;         // 61: pixels
    virtual int GetWidth() const = 0;                        // 62
    virtual int GetHeight() const = 0;                       // 63
    virtual void SetAnchor(const CVector3D& anchor) = 0;     // 64: widget pixel that stands on the position
    virtual CVector3D GetAnchor() const = 0;                 // 65
    virtual void SetWidget(QWidget* widget) = 0;             // 66: a zero size takes the widget's
    virtual QWidget* GetWidget() const = 0;                  // 67
};
