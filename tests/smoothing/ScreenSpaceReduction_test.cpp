#include "shapes/smoothing/ZoScreenSpaceReduction.h"

#include <gtest/gtest.h>

#include <cmath>
#include <initializer_list>
#include <random>

using ZoGraphicsInternalNS::ReduceScreenSpaceVertices;

namespace
{
QPolygonF Poly(std::initializer_list<QPointF> points) { return QVector<QPointF>(points); }

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

TEST(ScreenSpaceReductionMinimum, FirstAndLastTwoSurviveAtTheMinimum)
{
    // Distinct but nearly coincident points: every inner one is a candidate.
    QPolygonF open;
    for (int i = 0; i < 10; ++i)
        open << QPointF(i * 1e-6, 0.0);
    EXPECT_TRUE(SamePoints(ReduceScreenSpaceVertices(open, 1.0), Poly({open[0], open[8], open[9]})));

    QPolygonF closed = open;
    closed.last() = closed.first();
    EXPECT_TRUE(SamePoints(ReduceScreenSpaceVertices(closed, 1.0), Poly({closed[0], closed[7], closed[8], closed[9]})));
}

TEST(ScreenSpaceReductionPasses, NearDuplicateAfterTheFirstPointIsDropped)
{
    // Big triangles everywhere, so only the near-duplicate pass can act.
    QPolygonF zigzag;
    for (int i = 0; i < 12; ++i)
        zigzag << QPointF(i * 10.0, i % 2 ? 10.0 : 0.0);
    QPolygonF input = zigzag;
    input[2] = input[1] + QPointF(0.01, -0.01);
    QPolygonF expected = input;
    expected.remove(2);
    // d = sqrt(1) * 0.0625 > 0.01
    EXPECT_TRUE(SamePoints(ReduceScreenSpaceVertices(input, 1.0), expected));
    EXPECT_TRUE(SamePoints(ReduceScreenSpaceVertices(zigzag, 1.0), zigzag));
}

TEST(ScreenSpaceReductionPasses, PointsOnAStraightRunAreDroppedOnlyForPositiveTolerance)
{
    const QPolygonF run = Poly({QPointF(0, 0), QPointF(1, 1), QPointF(2, 2), QPointF(3, 3), QPointF(4, 0), QPointF(5, 5)});
    EXPECT_TRUE(
        SamePoints(ReduceScreenSpaceVertices(run, 1e-9), Poly({run[0], run[3], run[4], run[5]})));
    EXPECT_TRUE(SamePoints(ReduceScreenSpaceVertices(run, 0.0), run));
}
