#pragma once

#include <QFont>
#include <QPainterPath>
#include <QPointF>
#include <QRectF>
#include <QRawFont>
#include <QString>
#include <vector>

// One glyph of a laid-out text: the font it comes from (after fallback), its
// index there, and its baseline origin relative to the text's origin.
struct SZoPlacedGlyph
{
    QRawFont font;
    quint32 glyph = 0;
    QPointF position;
};

// The glyphs of a text, one line per line feed (empty lines kept), the first
// baseline at y = 0 and lines lineSpacing apart.
std::vector<SZoPlacedGlyph> ZoLayOutText(const QString& text, const QFont& font, qreal lineSpacing);

// The outline of one glyph at its own origin. Outlines are decoded once per
// font and glyph and then shared by every text that uses them: decoding them
// from the font file for every label made labels slow.
QPainterPath ZoGlyphOutline(const QRawFont& font, quint32 glyph);

// The outlines of the glyphs whose origin lies within a rectangle (every
// glyph for a null rectangle), each at its place.
QPainterPath ZoGlyphsToPath(const std::vector<SZoPlacedGlyph>& glyphs, const QRectF& within);

// The outlines of a whole text, laid out as ZoLayOutText does; matches
// QPainterPath::addText line by line.
QPainterPath ZoTextToPath(const QString& text, const QFont& font, qreal lineSpacing);
