#pragma once

#include <QFont>
#include <QPainterPath>
#include <QString>

// Glyph outlines of a text, one line per line feed (empty lines kept), the
// first baseline at y = 0 and lines lineSpacing apart. The result matches
// QPainterPath::addText line by line, but glyph outlines are decoded once per
// font and glyph and then reused: rebuilding the outlines of every label from
// the font file made creating many named objects slow.
QPainterPath ZoTextToPath(const QString& text, const QFont& font, qreal lineSpacing);
