#pragma once

#include <ZoGraphics/IZoGraphicsMapObject.h>

/// Shapes that are only lines: 12 operations behind the base ones (slots 59
/// to 70). The polyline and the multi-line derive from it.
///
/// Each setter stores its value and then refreshes the item, if there is one;
/// without an item it only stores. Nothing here logs, and style numbers out of
/// Qt's range are stored and handed to Qt as given.
class ZOGRAPHICS_EXPORT IZoLineStyleGraphicsMapObject : public IZoGraphicsMapObject
{
public:
    IZoLineStyleGraphicsMapObject() = default;
    /// @{ Copies of an interface share nothing: they exist only so that
    /// implementations may be copied.
    IZoLineStyleGraphicsMapObject(const IZoLineStyleGraphicsMapObject&) = default;
    IZoLineStyleGraphicsMapObject& operator=(const IZoLineStyleGraphicsMapObject&) = default;
    /// @}
    ~IZoLineStyleGraphicsMapObject() override;

    /// Sets the segment along whose middle the name label stands, and lays the
    /// label out again: 0 the first segment (the default), 1 the middle one
    /// (points k - 1 and k, k being half the point count rounded down), 2 the
    /// last. Any other value, a line of fewer than two points, or a segment
    /// whose two points are equal draws no label. A multi-line labels its
    /// first line of at least two points.
    virtual void SetLabelPosition(unsigned int position) = 0; // 59: 0 first, 1 middle, 2 last segment
    /// The segment that carries the name label: 0 first, 1 middle, 2 last.
    virtual unsigned int GetLabelPosition() const = 0;        // 60
    /// Sets the line colour (default opaque blue) and repaints.
    virtual void SetPenColor(const QColor& color) = 0;        // 61
    /// The line colour.
    virtual QColor GetPenColor() const = 0;                   // 62
    /// Sets the line width in pixels (default 1.0) and rebuilds the line; 0
    /// draws no line and keeps colour and style for a later width. A negative
    /// width, one above 1e6 or one that is not a number is ignored.
    virtual void SetPenWidth(float width) = 0;                // 63
    /// The line width in pixels.
    virtual float GetPenWidth() const = 0;                    // 64
    /// Sets the line's `Qt::PenStyle` value (default 1, a solid line) and
    /// repaints.
    virtual void SetPenStyle(unsigned int style) = 0;         // 65
    /// The line's `Qt::PenStyle` value.
    virtual unsigned int GetPenStyle() const = 0;             // 66
    /// Draws an arrow head on the line, or not (the default), and repaints. A
    /// multi-line draws one on each of its lines.
    virtual void SetArrowVisible(bool visible) = 0;           // 67
    /// Whether an arrow head is drawn.
    virtual bool IsArrowVisible() const = 0;                  // 68
    /// Sets where the arrow head stands and repaints: true (the default) at the
    /// last point, along the last segment; false at the first point, along
    /// the first segment.
    virtual void SetArrowAtEnd(bool atEnd) = 0;               // 69
    /// Whether the arrow head stands at the last point rather than the first.
    virtual bool IsArrowAtEnd() const = 0;                    // 70
};
