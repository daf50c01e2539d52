#pragma once

#include <ZoGraphics/IZoGraphicsMapObject.h>

/// @file
/// The text map object and the measuring of a text block in geographic terms.

/// Plain or rich text at a geographic point, with an optional frame and
/// background.
///
/// The text block hangs from its position: the position (x = longitude,
/// y = latitude, degrees) is the block's top-left corner. Text crosses the
/// interface as `std::string` in the GB18030 code page, plain or HTML,
/// depending on whether SetText() or SetHtml() was called last. The glyphs are
/// always drawn at the heaviest weight, filled in the text colour and outlined
/// in the outline colour; padding, border and background belong to the frame
/// around the whole block. Sizes and widths are pixels.
///
/// Made by IZoGraphicsModule::CreateTextMapObject, which owns it, and found
/// with IZoGraphicsModule::LookupTextMapObject. The document itself lives in
/// the Qt item: an object whose layer does not add items to the scene has no
/// document until it is first rebuilt, and setters then only store their value.
/// GUI thread only.
class ZOGRAPHICS_EXPORT IZoTextMapObject : public IZoGraphicsMapObject
{
public:
    IZoTextMapObject() = default;
    /// @{ Copies of an interface share nothing: they exist only so that
    /// implementations may be copied.
    IZoTextMapObject(const IZoTextMapObject&) = default;
    IZoTextMapObject& operator=(const IZoTextMapObject&) = default;
    /// @}
    ~IZoTextMapObject() override;

    /// Moves the block's top-left corner to position (longitude, latitude in
    /// degrees; z is kept, not drawn). When the map cannot convert the point, logs
    /// "[CZoTextMapObject::UpdatePixelPosition] ConvertSceneToPixel失败" and the
    /// drawn text stays where it was.
    virtual void SetPosition(const CVector3D& position) = 0;     // 59
    /// The top-left corner as last set; (0, 0, 0) by default.
    virtual CVector3D GetPosition() const = 0;                   // 60
    /// Turns the block about its top-left corner, clockwise on screen, in degrees.
    /// The angle is kept in [0, 360) (725 becomes 5, -90 becomes 270); a NaN or
    /// infinite angle is ignored.
    virtual void SetRotateAngle(double degrees) = 0;             // 61
    /// The angle in degrees, [0, 360); 0 by default.
    virtual double GetRotateAngle() const = 0;                   // 62
    /// Stores vector as given and turns the text by its z component, degrees, as
    /// SetRotateAngle() does (a non-finite z is stored but does not turn it).
    virtual void SetRotationVector(const CVector3D& vector) = 0; // 63: z is the angle
    /// The vector exactly as last given to SetRotationVector(); (0, 0, 0) by default.
    virtual CVector3D GetRotationVector() const = 0;             // 64
    /// Replaces the content with plain text (GB18030) and switches to plain mode;
    /// line breaks start new lines.
    virtual void SetText(const std::string& text) = 0;           // 65: plain text, GB18030
    /// The content as plain text (GB18030), including what the user typed while
    /// text interaction was on. Without a Qt item, the stored text in plain mode
    /// and an empty string in HTML mode.
    virtual std::string GetText() const = 0;                     // 66
    /// Replaces the content with rich text given as HTML (GB18030) and switches
    /// to HTML mode. The text colour, outline and font set here still apply to
    /// every character.
    virtual void SetHtml(const std::string& html) = 0;           // 67
    /// The content as an HTML document (GB18030), as Qt writes it out, which is
    /// not the string given to SetHtml(). Without a Qt item, the stored HTML in
    /// HTML mode and an empty string in plain mode.
    virtual std::string GetHtml() const = 0;                     // 68
    /// Sets the font of every character. The weight asked for is overridden: text
    /// is always drawn at the heaviest weight.
    virtual void SetFont(const QFont& font) = 0;                 // 69
    /// The font as last set; the library's default font ("微软雅黑", 12 pt) at first.
    virtual QFont GetFont() const = 0;                           // 70
    /// Sets the fill colour of the glyphs; red by default.
    virtual void SetTextColor(const QColor& color) = 0;          // 71
    /// The fill colour of the glyphs.
    virtual QColor GetTextColor() const = 0;                     // 72
    /// Sets the colour of the line drawn round each glyph; black by default.
    virtual void SetOutlineColor(const QColor& color) = 0;       // 73
    /// The colour of the glyph outline.
    virtual QColor GetOutlineColor() const = 0;                  // 74
    /// Sets the width of the glyph outline in pixels; 0 draws no outline, the
    /// default is 1. A negative or NaN width, or one above 1,000,000, is ignored.
    virtual void SetOutlineWidth(double width) = 0;              // 75
    /// The width of the glyph outline in pixels.
    virtual double GetOutlineWidth() const = 0;                  // 76
    /// Sets the room between the frame's border and the text, in pixels; 0 by
    /// default. A NaN value, or one beyond plus or minus 1,000,000, is ignored.
    virtual void SetPadding(double padding) = 0;                 // 77
    /// The padding inside the frame, in pixels.
    virtual double GetPadding() const = 0;                       // 78
    /// Sets the colour that fills the frame behind the text; transparent by default.
    virtual void SetBackgroundColor(const QColor& color) = 0;    // 79
    /// The background colour of the frame.
    virtual QColor GetBackgroundColor() const = 0;               // 80
    /// Sets the width of the frame's solid border in pixels; 0 (no border) by
    /// default. A negative or NaN width, or one above 1,000,000, is ignored.
    virtual void SetBorderWidth(double width) = 0;               // 81
    /// The width of the frame's border in pixels.
    virtual double GetBorderWidth() const = 0;                   // 82
    /// Sets the colour of the frame's border; transparent by default.
    virtual void SetBorderColor(const QColor& color) = 0;        // 83
    /// The colour of the frame's border.
    virtual QColor GetBorderColor() const = 0;                   // 84
    /// Chooses how the text follows the view's zoom within a map level.
    ///
    /// True (the default) keeps the text at its pixel size on screen: the item is
    /// scaled by 1 / view scale. False leaves the item at scale 1, so the text
    /// grows and shrinks with the view. A rebuild at a new scale (Rebuild()) sets
    /// the item's scale whatever this switch says.
    virtual void SetScaleWithMap(bool scaleWithMap) = 0;         // 85
    /// Whether the text keeps its pixel size as the view zooms; see SetScaleWithMap().
    virtual bool IsScaleWithMap() const = 0;                     // 86
    /// Lets the user edit the text in place (true) or ends editing (false).
    ///
    /// When on, the text takes the keyboard focus and accepts typing; what the
    /// user types becomes the object's text at once (see GetText()), and clicks on
    /// the text still reach the view. Turning it off drops the focus and any
    /// selection. Without a Qt item it logs
    /// "[CZoTextMapObject::EnableTextInteraction] Qt-Item不存在"; when the text is
    /// not in the scene or not shown at the current level it logs
    /// "[CZoTextMapObject::EnableTextInteraction] 未呈现或不可见"; either way
    /// nothing changes.
    virtual void EnableTextInteraction(bool enabled) = 0;        // 87
    /// Whether the text can be edited in place; false without a Qt item.
    virtual bool IsTextInteractionEnabled() const = 0;           // 88
};

/// The geographic box that a text block covers when its top-left corner stands
/// at position.
///
/// The block is as wide as its line with the most characters (by count, not by
/// drawn width) and as high as the font's line height times the number of lines.
/// scale converts the text's pixels into pixels of the geodetic tiling at level
/// 21: 1.0 measures the text as drawn at level 21, 2^(21 − L) as drawn at level
/// L. The box spans position and the point that many pixels right of and below
/// it. text is GB18030. Returns an empty box when position or the scaled size is
/// not finite or the point cannot be converted.
ZOGRAPHICS_EXPORT CAABB CalculateTextBoundingBox(const std::string& text, const QFont& font,
                                                 const CVector3D& position, double scale);
