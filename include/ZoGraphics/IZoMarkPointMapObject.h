#pragma once

#include <ZoGraphics/IZoGraphicsMapObject.h>

#include <QPixmap>

/// @file
/// The mark point (a map pin) and the estimate of a typical pin's geographic box.

/// A pin: an icon anchored at a geographic point, with the name as its label.
///
/// One pixel of the icon, the icon anchor, stands on the position; the
/// object's name (see IZoGraphicsMapObject::SetName) is drawn on one side of
/// the icon. Icon sizes and anchors are pixels and keep their size on screen at
/// every zoom. When neither an icon nor a label is drawn, a dot of radius 3
/// pixels in the name's colours marks the place, so that a pin never vanishes
/// while its icon is visible. Icon and label turn together about the position.
///
/// Made by IZoGraphicsModule::CreateMarkPointMapObject, which owns it, and
/// found with IZoGraphicsModule::LookupLabelMapObject. Its bounding box
/// (GetBoundingBox()) is the position alone, a box of no extent. GUI thread
/// only.
class ZOGRAPHICS_EXPORT IZoMarkPointMapObject : public IZoGraphicsMapObject
{
public:
    IZoMarkPointMapObject() = default;
    /// @{ Copies of an interface share nothing: they exist only so that
    /// implementations may be copied.
    IZoMarkPointMapObject(const IZoMarkPointMapObject&) = default;
    IZoMarkPointMapObject& operator=(const IZoMarkPointMapObject&) = default;
    /// @}
    ~IZoMarkPointMapObject() override;

    /// Moves the pin to position (longitude, latitude in degrees; z is kept, not
    /// drawn). When the map cannot convert the point, logs
    /// "[CZoMarkPointMapObject::UpdatePixelCenterPos] ConvertSceneToPixel失败" and
    /// the pin is drawn at scene pixel (0, 0).
    virtual void SetPosition(const CVector3D& position) = 0;     // 59
    /// The position as last set; (0, 0, 0) by default.
    virtual CVector3D GetPosition() const = 0;                   // 60
    /// Turns icon and label about the position, clockwise on screen, in degrees.
    /// Whole turns are dropped and the sign kept (725 becomes 5, -725 becomes -5,
    /// 360 becomes 0); a NaN or infinite angle is ignored.
    virtual void SetRotateAngle(double degrees) = 0;             // 61
    /// The angle in degrees, strictly between -360 and 360; 0 by default.
    virtual double GetRotateAngle() const = 0;                   // 62
    /// Sets the size the icon is drawn at, in pixels.
    ///
    /// A width or height of 0 or less is filled in with the picture's own by the
    /// next SetIcon(); until then the icon is drawn 3 pixels square. A value that
    /// is NaN or beyond plus or minus 1,000,000 leaves both unchanged.
    virtual void SetIconSize(double width, double height) = 0;   // 63: pixels
    /// The icon width in pixels; 0 until a size or a picture is set.
    virtual double GetIconWidth() const = 0;                     // 64
    /// The icon height in pixels; 0 until a size or a picture is set.
    virtual double GetIconHeight() const = 0;                    // 65
    /// Sets the pixel of the icon, counted from its top-left corner, that stands
    /// on the position; z is ignored. The default (0, 0) hangs the icon right of
    /// and below the point; (width / 2, height) stands it on the point. An x or y
    /// that is NaN or beyond plus or minus 1,000,000 leaves the anchor unchanged.
    virtual void SetIconAnchor(const CVector3D& anchor) = 0;     // 66
    /// The icon anchor in icon pixels.
    virtual CVector3D GetIconAnchor() const = 0;                 // 67
    /// Loads the icon from a file (GB18030 path) and passes it to SetIcon().
    ///
    /// The kind of file is judged by its name and content: an image is read even
    /// when its suffix misleads; a video shows the system's 64 x 64 icon for that
    /// file; anything else, or a file that is missing or unreadable, gives a null
    /// picture, which clears the icon. Nothing is logged, except for the
    /// refusals that SetBrushTextureFile() logs, here as
    /// "[CZoMarkPointMapObject::SetIconFile] ...": what is not a regular file
    /// is never opened, a raster picture larger than 8,192 pixels on a side is
    /// not decoded, an SVG that large is scaled down. The path is kept whatever
    /// the outcome (see GetIconFile()).
    virtual void SetIconFile(const std::string& path) = 0;       // 68: GB18030
    /// Sets the icon picture; a null picture removes it.
    ///
    /// An icon width or height of 0 or less (the default) takes the picture's own.
    /// A size set earlier with SetIconSize() is kept, so the picture is stretched to it.
    virtual void SetIcon(const QPixmap& icon) = 0;               // 69: a size of 0 takes the picture's
    /// The icon picture; null when none is set.
    virtual QPixmap GetIcon() const = 0;                         // 70
    /// The path last given to SetIconFile(), whether or not it loaded; empty at
    /// first. SetIcon() does not change it.
    virtual std::string GetIconFile() const = 0;                 // 71
    /// Shows or hides the icon (and with it the fallback dot); the label is not
    /// affected. Visible by default.
    virtual void SetIconVisible(bool visible) = 0;               // 72
    /// Whether the icon is drawn.
    virtual bool IsIconVisible() const = 0;                      // 73
    /// Puts the name label on a side of the icon: 0 above (the default), 1 below,
    /// 2 left, 3 right, 4 centred on the icon. Any other value shows no label.
    virtual void SetLabelPosition(unsigned int position) = 0;    // 74
    /// The side of the icon that carries the label; see SetLabelPosition().
    virtual unsigned int GetLabelPosition() const = 0;           // 75
    /// Aligns the label along its side: 0 at the start (the left end above or
    /// below the icon, the top end beside it), 1 centred (the default), 2 at the
    /// end. Any other value shows no label.
    virtual void SetLabelAlignment(unsigned int alignment) = 0;  // 76
    /// The label's alignment along its side; see SetLabelAlignment().
    virtual unsigned int GetLabelAlignment() const = 0;          // 77
};

/// The geographic box of a typical pin whose point is at position: an icon of
/// iconWidth x iconHeight pixels standing on the point, with text below it.
///
/// The text is measured as CalculateTextBoundingBox() does (GB18030, the line
/// with the most characters, line height times lines). The box is as wide as the
/// icon when the icon is wider than half the text, else as wide as the text,
/// centred on the point; it reaches iconHeight above the point and the text's
/// height below it. scale converts pixels into pixels of the geodetic tiling at
/// level 21 (1.0 for level 21, 2^(21 − L) for level L). Returns an empty box
/// when position or a scaled size is not finite or a corner cannot be converted.
ZOGRAPHICS_EXPORT CAABB CalculateTypicalMarkPointBoudingBox(const std::string& text, const QFont& font,
                                                            const CVector3D& position, int iconWidth,
                                                            int iconHeight, double scale);
