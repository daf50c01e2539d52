#pragma once

#include <QColor>
#include <QFont>
#include <QPainterPath>
#include <QRectF>
#include <QString>

class QPainter;
class IZoGraphicsMapLayer;

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

// The name label every map object holds: its text laid out as glyph outlines,
// where it sits, and how it is drawn. A value record; copies carry the path.
// Coordinates are item pixels: painters are scaled by the pixel scale before
// the label is drawn, so it keeps its on-screen size.
class CZoNameLabel
{
public:
    CZoNameLabel();

    void SetText(const QString& text);
    void SetFont(const QFont& font);
    void SetOffset(float offset);

    // Rebuilds the text path from text and font, keeping the current origin.
    void Layout();
    // Moves the text so that its origin follows the placement rule at (x, y).
    void Place(EZoLabelPlacement placement, double x, double y);

    // Text present, lod inside the label's range and, with a layer, inside the
    // layer's name range, and switched on.
    bool IsShownAt(int lod, const IZoGraphicsMapLayer* layer) const;
    void Draw(QPainter* painter) const;

    bool visible = false;
    int minLod = 0;
    int maxLod = 21;
    bool clipToRect = false;
    QRectF clipRect;
    float offset = 0.0f;
    double outlineWidth = 1.0;
    QColor textColor;
    QColor outlineColor;
    QFont font;
    double originX = 0.0;
    double originY = 0.0;
    QRectF boundingRect;
    QPainterPath textPath;
    QString text;

private:
    // Width of the widest line and height of a line, measured at layout.
    double m_textWidth = 0.0;
    double m_textHeight = 0.0;
};

// A surface shape's label anchor for a side (0 top, 1 bottom, 2 left,
// 3 right, 4 centre) and an alignment along it (0 start, 1 middle, 2 end),
// on an outline of width w and height h centred on the item origin. False
// when the pair places no label; for the centre the caller clips the label
// to the outline rectangle.
bool ZoSurfaceLabelAnchor(unsigned int position, unsigned int alignment, double w, double h, QPointF* anchor,
                          EZoLabelPlacement* placement);
