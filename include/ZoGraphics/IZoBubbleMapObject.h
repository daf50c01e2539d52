#pragma once

/// @file
/// The bubble: a callout showing a host widget, with a tail pointing at a
/// geographic point.

#include <ZoGraphics/IZoGraphicsMapObject.h>

class QWidget;

/// Where the bubble's tail leaves the bubble. The tip of the tail stands on the
/// position, so the bubble lies on the opposite side of it: with
/// E_BUBBLE_TAIL_BOTTOM the bubble floats above the point.
enum EZoBubbleTailDirection
{
    E_BUBBLE_TAIL_LEFT_TOP = 0,     ///< Left edge, near the top corner.
    E_BUBBLE_TAIL_LEFT_BOTTOM = 1,  ///< Left edge, near the bottom corner.
    E_BUBBLE_TAIL_RIGHT_TOP = 2,    ///< Right edge, near the top corner.
    E_BUBBLE_TAIL_RIGHT_BOTTOM = 3, ///< Right edge, near the bottom corner.
    E_BUBBLE_TAIL_TOP = 4,          ///< Middle of the top edge.
    E_BUBBLE_TAIL_BOTTOM = 5,       ///< Middle of the bottom edge.
};

/// A callout that shows a host widget in a frame with a tail pointing at a
/// geographic point. The widget is not owned.
///
/// Made by IZoGraphicsModule::CreateBubbleMapObject. The frame keeps its size
/// in pixels at every zoom and stands beside its position, never over it. A
/// close button in its top corner hides the bubble, as SetVisible() with false
/// does. The name label is not drawn. Presses and wheel turns on the bubble
/// stay with it instead of reaching the map, and are reported to the host as
/// grabbed. A position the map module cannot convert logs
/// `[CZoBubbleMapObject::ConvertSceneToPixel] ConvertSceneToPixel失败` and puts
/// the tail's tip at pixel (0, 0).
class ZOGRAPHICS_EXPORT IZoBubbleMapObject : public IZoGraphicsMapObject
{
public:
    IZoBubbleMapObject() = default;
    /// @{ Copies of an interface share nothing: they exist only so that
    /// implementations may be copied.
    IZoBubbleMapObject(const IZoBubbleMapObject&) = default;
    IZoBubbleMapObject& operator=(const IZoBubbleMapObject&) = default;
    /// @}
    ~IZoBubbleMapObject() override;

    /// Moves the tip of the tail to a geographic point, x longitude and y
    /// latitude in degrees, and the item with it.
    virtual void SetPosition(const CVector3D& position) = 0;               // 59: where the tail points
    /// The geographic point the tail points at.
    virtual CVector3D GetPosition() const = 0;                             // 60
    /// Shows a host widget in the frame, below the close button; null shows
    /// none. The widget stays the host's: while shown it is reparented into
    /// the bubble, and when it is replaced or the bubble's item goes away it
    /// is hidden and handed back to its former parent. A widget the host
    /// deletes simply leaves the bubble. With no size set, the frame takes the
    /// size the widget asks for.
    virtual void SetWidget(QWidget* widget) = 0;                           // 61: a zero size takes the widget's
    /// The widget shown, or null (also once the host has deleted it).
    virtual QWidget* GetWidget() const = 0;                                // 62
    /// Sets the frame's size in pixels, tail excluded, and rebuilds it. Zero
    /// or less on an axis takes the size the widget and the close button ask
    /// for on that axis; the frame is never smaller than 48 by 36 pixels.
    virtual void SetSize(int width, int height) = 0;                       // 63: pixels, tail excluded
    /// The frame's width in pixels, tail excluded: as drawn once the item
    /// exists, otherwise as given to SetSize() (0 following the widget).
    virtual int GetWidth() const = 0;                                      // 64
    /// The frame's height in pixels, tail excluded: as drawn once the item
    /// exists, otherwise as given to SetSize() (0 following the widget).
    virtual int GetHeight() const = 0;                                     // 65
    /// Sets where the tail leaves the frame and rebuilds it; a value outside
    /// the six directions is ignored.
    virtual void SetTailDirection(EZoBubbleTailDirection direction) = 0;   // 66
    /// Where the tail leaves the frame; E_BUBBLE_TAIL_BOTTOM by default, the
    /// bubble floating above its point.
    virtual EZoBubbleTailDirection GetTailDirection() const = 0;           // 67
};
