#pragma once

#include <QPolygonF>
#include <limits>
#include <vector>

// What a point-list item keeps of its owner's points: pixel offsets of every
// point relative to the item position, one polygon per line, in integer
// pixels so that moving the object only moves the item. The offsets belong
// to one map level; a new level fills them again from the geographic points.
struct CZoPointOffsets
{
    static constexpr int kNotFilled = -1;

    std::vector<QPolygonF> lines;
    int level = kNotFilled;
    // Pixels of one turn of longitude (0: the map does not repeat) and the
    // map's north and south edges, relative to the item: a ring going round
    // a pole closes along its edge.
    double worldWidth = 0.0;
    double northEdge = 0.0;
    double southEdge = 0.0;
    // The middle of the first line drawn: the other lines lie within half a
    // world of it. NaN before that.
    double partsNearX = std::numeric_limits<double>::quiet_NaN();

    bool IsFilled() const { return level != kNotFilled; }
    int PointCount() const
    {
        int count = 0;
        for (const QPolygonF& line : lines)
            count += line.size();
        return count;
    }
};
