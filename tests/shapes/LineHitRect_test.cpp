// The segment grid answers Qt's "which items lie under this pixel" without
// stroking the line: a rectangle hits when the stroke of half-width w meets it.
#include "shapes/pointlist/ZoLineGeometry.h"

#include <gtest/gtest.h>

TEST(LineHitRect, RectanglesMeetTheStrokeWithinHalfTheWidth)
{
    // A long horizontal segment and a zigzag of many short ones.
    std::vector<QPolygonF> lines{QPolygonF(QVector<QPointF>{QPointF(0, 0), QPointF(1000, 0)})};
    QPolygonF zigzag;
    for (int i = 0; i <= 400; ++i)
        zigzag << QPointF(i, 100 + (i % 2) * 10);
    lines.push_back(zigzag);
    ZoPointList::CZoSegmentIndex index;
    index.Build(lines);
    const double w = 2.0;
    const struct
    {
        QRectF rect;
        bool hits;
    } cases[] = {
        {QRectF(500, -0.5, 1, 1), true},   // straddles the long segment, far from its ends
        {QRectF(499, 1.9, 1, 1), true},    // beside it within w
        {QRectF(499, 2.1, 1, 1), false},   // just beyond w
        {QRectF(-2.9, -0.5, 1, 1), true},  // before its start, within w
        {QRectF(1001.3, 1.3, 1, 1), true}, // off its end diagonally: corner at 1.3 * sqrt 2 < w
        {QRectF(1001.5, 1.5, 1, 1), false}, // 1.5 * sqrt 2 > w
        {QRectF(400, -50, 100, 100), true}, // crossed, with ends and corners far away
        {QRectF(200.2, 104.8, 0.5, 0.5), true}, // a zigzag segment crosses it, no end inside
        {QRectF(50, 50, 0, 0), false},
        {QRectF(50, 0.5, 0, 0), true}, // a bare point on the stroke
        {QRectF(5, 5, -4, -4), true},  // unnormalised, reaching down to y = 1
    };
    for (const auto& c : cases)
        EXPECT_EQ(index.HitsRect(c.rect, w), c.hits) << c.rect.x() << "," << c.rect.y();
}
