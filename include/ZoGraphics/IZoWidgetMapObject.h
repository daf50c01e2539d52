#pragma once

#include <ZoGraphics/IZoGraphicsMapObject.h>

class QWidget;

/// A Qt widget embedded in the map at a geographic point. The widget is not
/// owned.
///
/// The widget keeps its pixel size at every zoom and stays upright; one of its
/// pixels, the anchor, stands on the position. While embedded, the widget is
/// reparented into the object's graphics item and shown; when it is replaced or
/// the object is destroyed it is hidden and handed back without a parent, still
/// the caller's to delete. A widget that its owner deletes meanwhile simply
/// reads as null. Mouse events reach the widget and are also reported to the
/// host like those of other objects.
///
/// Made by IZoGraphicsModule::CreateWidgetMapObject, which owns the object (not
/// the widget), and found with IZoGraphicsModule::LookupWidgetMapObject. GUI
/// thread only; the widget must belong to the GUI thread as well.
class ZOGRAPHICS_EXPORT IZoWidgetMapObject : public IZoGraphicsMapObject
{
public:
    IZoWidgetMapObject() = default;
    /// @{ Copies of an interface share nothing: they exist only so that
    /// implementations may be copied.
    IZoWidgetMapObject(const IZoWidgetMapObject&) = default;
    IZoWidgetMapObject& operator=(const IZoWidgetMapObject&) = default;
    /// @}
    ~IZoWidgetMapObject() override;

    /// Moves the widget to position (longitude, latitude in degrees; z is kept,
    /// not used). When the map cannot convert the point, logs
    /// "[CZoWidgetMapObject::ConvertSceneToPixel] ConvertSceneToPixel失败" and the
    /// widget's anchor is placed at scene pixel (0, 0).
    virtual void SetPosition(const CVector3D& position) = 0; // 59
    /// The position as last set; (0, 0, 0) by default.
    virtual CVector3D GetPosition() const = 0;               // 60
    /// Sets the size the widget is shown at, in pixels; the embedded widget is
    /// laid out to fill it. 0 x 0 by default (see SetWidget()).
    virtual void SetSize(int width, int height) = 0;         // 61: pixels
    /// The width the widget is shown at, in pixels.
    virtual int GetWidth() const = 0;                        // 62
    /// The height the widget is shown at, in pixels.
    virtual int GetHeight() const = 0;                       // 63
    /// Sets the pixel of the widget, counted from its top-left corner, that stands
    /// on the position; z is ignored. The default (0, 0) puts the widget's top-left
    /// corner there. An x or y that is NaN or beyond plus or minus 1,000,000
    /// leaves the anchor unchanged.
    virtual void SetAnchor(const CVector3D& anchor) = 0;     // 64: widget pixel that stands on the position
    /// The anchor in widget pixels (not a geographic point).
    virtual CVector3D GetAnchor() const = 0;                 // 65
    /// Embeds widget (not owned), replacing any earlier one; null removes it.
    ///
    /// When the stored width or height is 0, the size becomes the widget's own, as
    /// SetSize() would; a size set earlier in full is kept.
    virtual void SetWidget(QWidget* widget) = 0;             // 66: a zero size takes the widget's
    /// The embedded widget; null when none is set or its owner has deleted it.
    virtual QWidget* GetWidget() const = 0;                  // 67
};
