#include "shapes/smoothing/ZoDouglasPeucker.h"

#include <ZoGraphics/ZoGraphicsConstant.h>

#include <QThread>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <random>
#include <set>

namespace
{
using Path = std::vector<CVector3D>;

// Through a volatile on purpose: GCC 12.2 at -O2 lets its SLP vectorizer drop
// the narrowing of some lanes when several double-float-double round trips are
// inlined side by side.
double SinglePrecision(double v)
{
    const volatile float narrowed = static_cast<float>(v);
    return narrowed;
}

CVector3D Rounded(const CVector3D& p)
{
    return CVector3D(SinglePrecision(p.x), SinglePrecision(p.y), SinglePrecision(p.z));
}

// The reduction written the plain way: recursion, an ordered index set, and
// the point-to-line distance evaluated point by point in single precision.
double Distance(const CVector3D& P, const CVector3D& A, const CVector3D& B)
{
    const float ux = float(B.x) - float(A.x), uy = float(B.y) - float(A.y), uz = float(B.z) - float(A.z);
    const float vx = float(P.x) - float(A.x), vy = float(P.y) - float(A.y), vz = float(P.z) - float(A.z);
    const float lu = std::sqrt(ux * ux + uy * uy + uz * uz);
    const float lv = std::sqrt(vx * vx + vy * vy + vz * vz);
    if (lu <= 0.0f)
        return lv;
    if (!(lv > 0.0f))
        return 0.0;
    const float dot = ux * vx + uy * vy + uz * vz;
    const double k = static_cast<double>(dot) / (static_cast<double>(lu) * static_cast<double>(lv));
    return static_cast<double>(lv) * std::sqrt(1.0 - k * k);
}

// The first point farthest from the span's line, or -1 when none lies at
// the tolerance or beyond.
long Farthest(const Path& p, std::size_t a, std::size_t b, double tolerance)
{
    if (p.size() < 3 || b - a < 2)
        return -1;
    long best = -1;
    double largest = 0.0;
    for (std::size_t i = a + 1; i < b; ++i)
    {
        const double d = Distance(p[i], p[a], p[b]);
        if (!std::isnan(d) && (best < 0 || d > largest))
        {
            best = static_cast<long>(i);
            largest = d;
        }
    }
    return best < 0 || tolerance > largest ? -1 : best;
}

void Split(const Path& p, std::size_t a, std::size_t b, double tolerance, std::set<std::size_t>& kept)
{
    const long k = Farthest(p, a, b, tolerance);
    if (k < 0)
    {
        kept.insert({a, b});
        return;
    }
    Split(p, a, k, tolerance, kept);
    Split(p, k, b, tolerance, kept);
}

Path Reference(const Path& in, double tolerance)
{
    Path p;
    for (const CVector3D& point : in)
        p.push_back(Rounded(point));
    if (p.empty() || Farthest(p, 0, p.size() - 1, tolerance) < 0)
        return p.size() > 2 ? Path{p.front(), p.back()} : p;
    std::set<std::size_t> kept;
    Split(p, 0, p.size() - 1, tolerance, kept);
    Path out;
    for (const std::size_t i : kept)
        out.push_back(p[i]);
    return out;
}

Path Smoothed(const Path& in, int level = 0)
{
    Path out{CVector3D(9, 9, 9)};
    ZoGraphicsConstantNS::DPSmooth(out, in, 0, level);
    return out;
}

// Steps comparable to the tolerance, so that both splits and merges happen.
Path RandomWalk(std::mt19937& rng, std::size_t n, double step)
{
    std::uniform_real_distribution<double> delta(-step, step);
    Path path;
    CVector3D p(100.0, 30.0, 0.0);
    for (std::size_t i = 0; i < n; ++i)
    {
        path.push_back(p);
        p = p + CVector3D(delta(rng), delta(rng), 0.3 * delta(rng));
    }
    return path;
}

// Small integers: exact distances, many ties, repeated points and spans whose
// ends coincide.
Path IntegerGrid(std::mt19937& rng, std::size_t n)
{
    std::uniform_int_distribution<int> c(-2, 2);
    Path path;
    for (std::size_t i = 0; i < n; ++i)
        path.emplace_back(c(rng), c(rng), c(rng) * 0.5);
    return path;
}

// 401 points at the origin, a closed ring whose one inner point lies at
// height z: the span's ends coincide, so its distance is exactly |z|.
Path SpikeAtOrigin(float z)
{
    Path path(401, CVector3D());
    path[200].z = z;
    return path;
}
} // namespace

// Up to 400 points, or from level 18 on, the points are copied exactly;
// longer lists below level 18 (negative levels too) are reduced.
TEST(DPSmoothThresholds, ShortListsAndCloseLevelsAreCopiedExactlyLongOnesReduced)
{
    std::mt19937 rng(7);
    const Path four00 = RandomWalk(rng, 400, 0.1);
    const Path four01 = RandomWalk(rng, 401, 0.1);
    EXPECT_EQ(Smoothed(four00, 0), four00);
    EXPECT_EQ(Smoothed(four01, 18), four01);
    EXPECT_EQ(Smoothed(Path{}, 0), Path{});
    const Path reduced = Smoothed(four01, 17);
    EXPECT_LT(reduced.size(), four01.size());
    EXPECT_EQ(reduced, Reference(four01, 0.4));
    EXPECT_EQ(Smoothed(four01, -1), reduced);
}

TEST(DPSmoothReference, RandomInputsMatch)
{
    std::mt19937 rng(20261121);
    std::uniform_int_distribution<std::size_t> size(401, 3000);
    for (int round = 0; round < 60; ++round)
    {
        SCOPED_TRACE(round);
        Path path = round % 3 == 0 ? IntegerGrid(rng, size(rng)) : RandomWalk(rng, size(rng), round % 3 == 1 ? 0.3 : 2);
        if (round % 4 == 0)
            path.back() = path.front();
        if (round % 5 == 0)
            path.insert(path.begin() + path.size() / 2, 20, path[path.size() / 2]);
        EXPECT_EQ(Smoothed(path), Reference(path, 0.4));
    }
}

TEST(DPSmoothSplits, ToleranceBoundaryLiesBetweenTwoFloats)
{
    // 0.4 is not a float: float(0.4) lies just above it, its predecessor below.
    const float above = 0.4f;
    const float below = std::nextafter(above, 0.0f);
    ASSERT_GT(double(above), 0.4);
    ASSERT_LT(double(below), 0.4);
    EXPECT_EQ(Smoothed(SpikeAtOrigin(above)), (Path{CVector3D(), CVector3D(0, 0, above), CVector3D()}));
    EXPECT_EQ(Smoothed(SpikeAtOrigin(below)), (Path{CVector3D(), CVector3D()}));
}

TEST(DPSmoothSplits, MillionPointZigZagRunsOnASmallStack)
{
    // (i, ±i) peels off one point per split, a chain as deep as it is long;
    // the rest returns to the origin in a fine zig-zag.
    constexpr std::size_t chain = 10000;
    constexpr std::size_t total = 1000000;
    Path path;
    path.reserve(total);
    for (std::size_t i = 0; i < chain; ++i)
        path.emplace_back(double(i), i % 2 ? -double(i) : double(i), 0.0);
    const CVector3D turn = path.back();
    const std::size_t tail = total - chain;
    for (std::size_t j = 1; j <= tail; ++j)
    {
        const double s = 1.0 - double(j) / tail;
        const double wiggle = j == tail ? 0.0 : (j % 2 ? 0.07 : -0.07);
        path.emplace_back(turn.x * s + wiggle, turn.y * s + wiggle, 0.0);
    }
    Path out;
    std::unique_ptr<QThread> worker(QThread::create([&] { ZoGraphicsConstantNS::DPSmooth(out, path, 0, 0); }));
    worker->setStackSize(256 * 1024);
    worker->start();
    ASSERT_TRUE(worker->wait());
    ASSERT_GT(out.size(), chain);
    EXPECT_TRUE(std::equal(path.begin(), path.begin() + chain, out.begin()));
    EXPECT_EQ(out.back(), CVector3D());
}

