#pragma once

#include <ZoGraphics/ZoCoreTypes.h>

#include <vector>

// A plain model of the point-list rules, for differential tests: lines of
// points, the anchor, and what the extent and the item's offsets must be.
struct PointListModel
{
    using Line = std::vector<CVector3D>;
    std::vector<Line> lines;
    CVector3D anchor;
    std::size_t Total() const
    {
        std::size_t n = 0;
        for (const Line& line : lines)
            n += line.size();
        return n;
    }
    void SetAll(std::vector<Line> all)
    {
        lines = std::move(all);
        anchor = CVector3D();
        for (const Line& line : lines)
            if (!line.empty())
            {
                anchor = line.front();
                break;
            }
    }
    void Append(std::size_t l, const CVector3D& p)
    {
        if (Total() == 0)
            anchor = p;
        lines[l].push_back(p);
    }
    // After removals: an object without points has its anchor at the origin.
    void Settle()
    {
        if (Total() == 0)
            anchor = CVector3D();
    }
    CAABB Extent() const
    {
        CAABB box;
        for (const Line& line : lines)
            for (const CVector3D& p : line)
            {
                box.Extend(CVector3D(p.x, p.y, -1.0));
                box.Extend(CVector3D(p.x, p.y, 1.0));
            }
        return box;
    }
};

