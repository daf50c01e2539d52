#pragma once

#include <QColor>
#include <QFont>
#include <QRectF>
#include <QString>
#include <memory>
#include <vector>

class QPainter;
class QTransform;
class IZoGraphicsMapLayer;
struct SZoLabelLook;
struct SZoPlacedGlyph;

// Where a label's text stands relative to its anchor point.
enum class EZoLabelPlacement
{
    Centred,
    AboveStart,
    AboveCentred,
    AboveEnd,
    BelowStart,
    BelowCentred,
    BelowEnd,
    RightCentre,
    RightBelow,
    RightBaseline,
    LeftCentre,
    LeftBelow,
    LeftBaseline,
};

// The name label every map object holds: its text, where it sits and how it
// is drawn. A value record. Nothing is measured or drawn until the label is
// placed and painted: a hidden label costs its fields only. Coordinates are
// item pixels: painters are scaled by the pixel scale before the label is
// drawn, so it keeps its on-screen size.
class CZoNameLabel
{
public:
    CZoNameLabel();

    // Each of these forgets the measurement and the finished look.
    void SetText(const QString& text);
    void SetFont(const QFont& font);
    void SetOffset(float offset);

    // Moves the text so that its origin follows the placement rule at (x, y).
    void Place(EZoLabelPlacement placement, double x, double y);

    // Text present, lod inside the label's range and, with a layer, inside the
    // layer's name range, and switched on.
    bool IsShownAt(int lod, const IZoGraphicsMapLayer* layer) const;
    // Draws the halo and the text from the shared cache of finished looks,
    // directly where the painter is rotated or sheared.
    void Draw(QPainter* painter) const;

    // The text block in item pixels: from the origin's baseline up by the
    // ascent, as wide as the widest line, as tall as its lines.
    QRectF TextRect() const;
    // Whether a finished look of the label at this device scale stays small.
    bool FitsALook(const QTransform& device) const;
    // Gives the measurement and the look back; the next Place measures anew.
    void Release();
    // Whether the label still refers to a finished look of its own.
    bool HoldsLook() const { return !m_look.expired(); }

    // Wide fields first, switches last: every object holds a label, and
    // padding between mixed fields adds up over a large display.
    QRectF clipRect;
    double outlineWidth = 1.0;
    double originX = 0.0;
    double originY = 0.0;
    QColor textColor;
    QColor outlineColor;
    QFont font;
    QString text;
    int minLod = 0;
    int maxLod = 21;
    float offset = 0.0f;
    bool visible = false;
    bool clipToRect = false;

private:
    void Measure() const;
    void Forget();
    // The text's glyphs, laid out once.
    const std::vector<SZoPlacedGlyph>& Glyphs() const;
    // Draws the halo and the text outline by outline, the glyphs that can
    // show within visible (painter coordinates) only.
    void DrawOutlines(QPainter* painter, const QRectF& visible) const;

    mutable std::weak_ptr<const SZoLabelLook> m_look;
    // The text's glyphs, laid out on first use while the label shows: a look
    // that leaves the cache is put together again without shaping the text.
    mutable std::shared_ptr<const std::vector<SZoPlacedGlyph>> m_glyphs;
    // Widest line, line height, ascent and line count, measured on demand.
    mutable float m_textWidth = 0.0f;
    mutable float m_textHeight = 0.0f;
    mutable float m_ascent = 0.0f;
    mutable float m_blockHeight = 0.0f;
    mutable bool m_measured = false;
};

// A surface shape's label anchor for a side (0 top, 1 bottom, 2 left,
// 3 right, 4 centre) and an alignment along it (0 start, 1 middle, 2 end),
// on an outline of width w and height h centred on the item origin. False
// when the pair places no label; for the centre the caller clips the label
// to the outline rectangle.
bool ZoSurfaceLabelAnchor(unsigned int position, unsigned int alignment, double w, double h, QPointF* anchor,
                          EZoLabelPlacement* placement);
