#pragma once

#include <QImage>
#include <QString>

// Compares an image with tests/data/<name>.png. Channels may differ by
// channelTolerance, and up to maxBadPixels pixels may differ by more (glyph
// edges vary slightly between font rasterisers). On failure the actual image
// and a diff image are written to the test output directory. With
// ZO_UPDATE_REFERENCES=1 in the environment the reference is rewritten.
// Returns an empty string on success, otherwise a description.
QString CompareWithReference(const QImage& actual, const QString& name, int channelTolerance = 8,
                             int maxBadPixels = 0);

// A white ARGB image of the given size for paint tests.
QImage BlankCanvas(int width, int height);
