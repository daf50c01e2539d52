#pragma once

#include "shapes/pointlist/CZoPointOffsets.h"

#include <QPainterPath>
#include <QPolygonF>
#include <vector>

namespace ZoPointList
{
// A ring of item pixels whose ends lie more than half a world apart goes
// round a pole (Antarctica): it gets two more points along the map's edge
// nearer to it, so that it closes along the pole and not across the world.
// Other rings, and every ring when the map does not repeat, come back as given.
QPolygonF CloseRoundPole(const QPolygonF& ring, const CZoPointOffsets& world);

// Rings of item pixels as one path. oddEven: a ring inside another cuts a
// hole and overlaps stay empty. Otherwise the rings read as their union: a
// ring nested in an odd number of others is a hole (a lake, and an island in
// it fills again), and parts that overlap are filled once.
QPainterPath RingsPath(const std::vector<QPolygonF>& rings, const CZoPointOffsets& world, bool oddEven);

// The path's rings in pieces whose bounding boxes do not meet, each filled
// the same alone: a painter sweeps the box of what it fills, and one path of
// islands strewn over the world makes that box the world's. Rings whose boxes
// meet stay in one piece, so holes stay with their parts and overlapping
// parts are still filled once. One piece, the path itself, when nothing lies
// apart.
std::vector<QPainterPath> ApartPieces(const QPainterPath& path);
} // namespace ZoPointList
