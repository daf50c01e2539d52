#pragma once

#include <ZoGraphics/IZoGraphicsMapObject.h>

class QWidget;

// Where the bubble's tail leaves the bubble. The tip of the tail stands on the
// position, so the bubble lies on the opposite side of it: with
// E_BUBBLE_TAIL_BOTTOM the bubble floats above the point.
enum EZoBubbleTailDirection
{
    E_BUBBLE_TAIL_LEFT_TOP = 0,     // left edge, near the top corner
    E_BUBBLE_TAIL_LEFT_BOTTOM = 1,  // left edge, near the bottom corner
    E_BUBBLE_TAIL_RIGHT_TOP = 2,    // right edge, near the top corner
    E_BUBBLE_TAIL_RIGHT_BOTTOM = 3, // right edge, near the bottom corner
    E_BUBBLE_TAIL_TOP = 4,          // middle of the top edge
    E_BUBBLE_TAIL_BOTTOM = 5,       // middle of the bottom edge
};

// A callout that shows a host widget in a frame with a tail pointing at a
// geographic point. The widget is not owned.
class ZOGRAPHICS_EXPORT IZoBubbleMapObject : public IZoGraphicsMapObject
{
public:
    IZoBubbleMapObject() = default;
    IZoBubbleMapObject(const IZoBubbleMapObject&) = default;
    IZoBubbleMapObject& operator=(const IZoBubbleMapObject&) = default;
    ~IZoBubbleMapObject() override;

    virtual void SetPosition(const CVector3D& position) = 0;               // 59: where the tail points
    virtual CVector3D GetPosition() const = 0;                             // 60
    virtual void SetWidget(QWidget* widget) = 0;                           // 61: a zero size takes the widget's
    virtual QWidget* GetWidget() const = 0;                                // 62
    virtual void SetSize(int width, int height) = 0;                       // 63: pixels, tail excluded
    virtual int GetWidth() const = 0;                                      // 64
    virtual int GetHeight() const = 0;                                     // 65
    virtual void SetTailDirection(EZoBubbleTailDirection direction) = 0;   // 66
    virtual EZoBubbleTailDirection GetTailDirection() const = 0;           // 67
};
