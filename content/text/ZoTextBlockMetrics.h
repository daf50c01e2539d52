#pragma once

#include <ZoGraphics/ZoCoreTypes.h>

#include <QFont>
#include <QSizeF>
#include <string>

// Pixel size of a block of GB18030 text: the height is one line height per
// line (empty lines count), the width that of the line with the most
// characters. The longest line by characters stands for the block, not the
// widest in pixels: the boxes hosts cached were computed that way.
QSizeF ZoMeasureTextBlock(const std::string& text, const QFont& font);

// The geographic point that lies (dx, dy) pixels from position at level 21
// of the geodetic tile model, where the measuring functions work. False for
// bad input (a position or offset that is not finite, no tile model).
bool ZoGeoAtPixelOffset(const CVector3D& position, double dx, double dy, CVector3D* result);
