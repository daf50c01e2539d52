#pragma once

#include <QPolygonF>
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

    bool IsFilled() const { return level != kNotFilled; }
    int PointCount() const
    {
        int count = 0;
        for (const QPolygonF& line : lines)
            count += line.size();
        return count;
    }
};
