#pragma once

#include <QPolygonF>

namespace ZoGraphicsInternalNS
{
// Thins a pixel point list before stroking: drops points that nearly coincide
// with their predecessor, then, repeatedly, points whose triangle with their
// neighbours is smaller than areaTolerance. The first point and the last two
// stay, and a closed list keeps at least 4 points, an open one at least 3.
QPolygonF ReduceScreenSpaceVertices(const QPolygonF& points, double areaTolerance);
} // namespace ZoGraphicsInternalNS
