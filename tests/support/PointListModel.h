#pragma once

#include "support/FakeMapModule.h"
#include "support/PlainPointListModel.h"

#include <ZoGraphics/ZoCoreTypes.h>

#include <QGraphicsItem>
#include <QPolygonF>
#include <gtest/gtest.h>
#include <vector>

inline QPointF ModelPixel(FakeMapModule& map, const CVector3D& p)
{
    int x = 0;
    int y = 0;
    map.ConvertSceneToPixel(&x, &y, p.x, p.y);
    return QPointF(x, y);
}

inline void ExpectSameBox(const CAABB& actual, const CAABB& expected, const std::string& where)
{
    EXPECT_EQ(actual.IsEmpty(), expected.IsEmpty()) << where;
    if (actual.IsEmpty() || expected.IsEmpty())
        return;
    EXPECT_TRUE(actual.min == expected.min && actual.max == expected.max) << where;
}

// Item position at the anchor's pixel and every offset relative to it.
inline void ExpectOffsetsFollowModel(FakeMapModule& map, const PointListModel& model, QGraphicsItem* item,
                                     const std::vector<QPolygonF>& offsets, const std::string& where)
{
    const QPointF origin = ModelPixel(map, model.anchor);
    EXPECT_EQ(item->pos(), origin) << where;
    ASSERT_EQ(offsets.size(), model.lines.size()) << where;
    for (std::size_t l = 0; l < offsets.size(); ++l)
    {
        ASSERT_EQ(static_cast<std::size_t>(offsets[l].size()), model.lines[l].size()) << where << " line " << l;
        for (std::size_t i = 0; i < model.lines[l].size(); ++i)
            EXPECT_EQ(offsets[l][static_cast<int>(i)], ModelPixel(map, model.lines[l][i]) - origin)
                << where << " line " << l << " point " << i;
    }
}
