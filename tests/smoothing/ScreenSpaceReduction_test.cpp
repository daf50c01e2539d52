#include "shapes/smoothing/ZoScreenSpaceReduction.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

using ZoGraphicsInternalNS::ReduceScreenSpaceVertices;

namespace
{
// The reduction written the plain way, one QPolygonF::remove per dropped point.
QPolygonF Reference(const QPolygonF& points, double t)
{
    QPolygonF p = points;
    if (p.size() < 4)
        return p;
    const int minimum = p.isClosed() ? 4 : 3;
    const double d = std::sqrt(t) * 0.0625;
    int i = 1;
    while (i < p.size() - 2 && p.size() > minimum)
    {
        if (std::abs(p[i - 1].y() - p[i].y()) < d && std::abs(p[i - 1].x() - p[i].x()) < d)
            p.remove(i);
        else
            ++i;
    }
    bool removed = true;
    while (removed && p.size() - 2 >= 2)
    {
        removed = false;
        for (i = 1; i < p.size() - 2 && p.size() > minimum;)
        {
            const QPointF a = p[i - 1], b = p[i], c = p[i + 1];
            const double area = std::abs((c.y() - a.y()) * b.x() + (b.y() - c.y()) * a.x() + (a.y() - b.y()) * c.x()) * 0.5;
            if (t > area)
            {
                p.remove(i);
                removed = true;
            }
            else
                ++i;
        }
    }
    return p;
}

// QPolygonF's own == is fuzzy; these must be the very same doubles.
::testing::AssertionResult SamePoints(const QPolygonF& actual, const QPolygonF& expected)
{
    if (actual.size() != expected.size())
        return ::testing::AssertionFailure() << "size " << actual.size() << " != " << expected.size();
    for (int i = 0; i < actual.size(); ++i)
    {
        if (actual[i].x() != expected[i].x() || actual[i].y() != expected[i].y())
            return ::testing::AssertionFailure() << "point " << i << " differs";
    }
    return ::testing::AssertionSuccess();
}

QPolygonF RandomPolygon(std::mt19937& rng, int n, bool grid, bool closed)
{
    std::uniform_int_distribution<int> cell(0, 3);
    std::uniform_real_distribution<double> jitter(-0.02, 0.02);
    std::uniform_real_distribution<double> step(-1.0, 1.0);
    QPolygonF p;
    QPointF walk(200.0, 100.0);
    for (int i = 0; i < n; ++i)
    {
        if (grid)
            p << QPointF(cell(rng), cell(rng));
        else
        {
            walk += QPointF(step(rng), step(rng)) * (i % 7 == 0 ? 0.01 : 1.0);
            p << walk + QPointF(jitter(rng), jitter(rng));
        }
    }
    if (closed && n > 0)
        p << p.first();
    return p;
}
} // namespace

TEST(ScreenSpaceReductionReference, RandomInputsMatch)
{
    std::mt19937 rng(20261121);
    std::uniform_int_distribution<int> size(0, 80);
    for (const double t : {0.0, 0.0625, 0.25, 1.0, 4.0, 16.0})
    {
        for (int round = 0; round < 300; ++round)
        {
            SCOPED_TRACE(::testing::Message() << "t " << t << " round " << round);
            const QPolygonF input = RandomPolygon(rng, size(rng), round % 3 == 0, round % 2 == 0);
            const QPolygonF before = input;
            EXPECT_TRUE(SamePoints(ReduceScreenSpaceVertices(input, t), Reference(input, t)));
            EXPECT_TRUE(SamePoints(input, before));
        }
    }
}

