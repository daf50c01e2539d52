#pragma once

#include "object/ZoRegularFile.h"

#include <QImage>

class QSvgRenderer;

// Largest side of any picture the library decodes or renders: icons,
// textures, the SVG object, the images of an SVG and of a text's HTML. A small
// file may declare any size; past this a picture would cost gigabytes.
constexpr int kZoMaxPictureSide = 8192;

// Renders into a transparent ARGB image of the given size. Beyond
// kZoMaxPictureSide the image is scaled down, keeping its proportions, and
// the reduction is logged at the site.
QImage ZoRasteriseSvg(QSvgRenderer& renderer, const QSizeF& size, const SZoLogSite& site);

// Reads an SVG file (plain or gzip-compressed) into its XML, ready for
// QSvgRenderer::load. Qt decodes an SVG's <image> elements itself, unchecked,
// so the document is refused, logged at the site, when one of them names
// something other than a regular file, another SVG or a picture larger than
// the cap.
bool ZoReadSvgDocument(const QString& path, const SZoLogSite& site, QByteArray* xml);

// Decodes the picture of a regular file, once. An SVG is rendered at its
// declared size scaled down to the cap; a raster picture larger than the cap
// is refused, as decoding it would cost the gigabytes the cap is there to
// avoid. A null image, logged at the site, otherwise.
QImage ZoReadPicture(const QString& path, const SZoLogSite& site);

// The same for a picture held in memory.
QImage ZoDecodePicture(const QByteArray& data, const SZoLogSite& site);
