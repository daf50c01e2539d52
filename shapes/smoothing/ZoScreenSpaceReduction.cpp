#include "ZoScreenSpaceReduction.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <memory>
#include <vector>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace
{
// Indices, in increasing order, of kept points whose successor was dropped.
using Marks = std::vector<int>;

// Points tested together while nothing around them has been dropped.
constexpr int kBlock = 8;

#if defined(__SSE2__)
__m128d LoadPoint(const QPointF* q, int i) { return _mm_loadu_pd(reinterpret_cast<const double*>(q + i)); }

__m128d Magnitude(__m128d v) { return _mm_and_pd(v, _mm_castsi128_pd(_mm_set1_epi64x(0x7fffffffffffffffLL))); }

// Bit j set when point i + j would be dropped, its neighbours being the
// adjacent array entries. pairBits answers for two points from the four
// around them, q[k - 1] .. q[k + 2].
template <typename PairTest>
int BlockBits(const QPointF* q, int i, PairTest pairBits)
{
    int bits = 0;
#if defined(__GNUC__)
#pragma GCC unroll 4
#endif
    for (int j = 0; j < kBlock; j += 2)
    {
        const int k = i + j;
        bits |= pairBits(LoadPoint(q, k - 1), LoadPoint(q, k), LoadPoint(q, k + 1), LoadPoint(q, k + 2)) << j;
    }
    return bits;
}
#endif

// The tests see a point with its current neighbours. Block() answers as
// BlockBits does, with the same roundings lane by lane.
struct NearDuplicate
{
    double limit;

    bool operator()(const QPointF& prev, const QPointF& p, const QPointF& /*next*/) const
    {
        return std::abs(prev.y() - p.y()) < limit && std::abs(prev.x() - p.x()) < limit;
    }

#if defined(__SSE2__)
    int Block(const QPointF* q, int i) const
    {
        const __m128d bound = _mm_set1_pd(limit);
        return BlockBits(q, i, [bound](__m128d p0, __m128d p1, __m128d p2, __m128d) {
            const __m128d near1 = _mm_cmplt_pd(Magnitude(_mm_sub_pd(p0, p1)), bound);
            const __m128d near2 = _mm_cmplt_pd(Magnitude(_mm_sub_pd(p1, p2)), bound);
            return _mm_movemask_pd(_mm_and_pd(_mm_unpacklo_pd(near1, near2), _mm_unpackhi_pd(near1, near2)));
        });
    }
#endif
};

struct SmallTriangle
{
    double tolerance;

    bool operator()(const QPointF& prev, const QPointF& p, const QPointF& next) const
    {
        const double area =
            std::abs((next.y() - prev.y()) * p.x() + (p.y() - next.y()) * prev.x() + (prev.y() - p.y()) * next.x()) *
            0.5;
        return tolerance > area;
    }

#if defined(__SSE2__)
    int Block(const QPointF* q, int i) const
    {
        const __m128d bound = _mm_set1_pd(tolerance);
        return BlockBits(q, i, [bound](__m128d p0, __m128d p1, __m128d p2, __m128d p3) {
            const __m128d xa = _mm_unpacklo_pd(p0, p1), ya = _mm_unpackhi_pd(p0, p1);
            const __m128d xb = _mm_unpacklo_pd(p1, p2), yb = _mm_unpackhi_pd(p1, p2);
            const __m128d xc = _mm_unpacklo_pd(p2, p3), yc = _mm_unpackhi_pd(p2, p3);
            const __m128d sum = _mm_add_pd(
                _mm_add_pd(_mm_mul_pd(_mm_sub_pd(yc, ya), xb), _mm_mul_pd(_mm_sub_pd(yb, yc), xa)),
                _mm_mul_pd(_mm_sub_pd(ya, yb), xc));
            return _mm_movemask_pd(_mm_cmpgt_pd(bound, _mm_mul_pd(Magnitude(sum), _mm_set1_pd(0.5))));
        });
    }
#endif
};

// The passes never move a point: a dropped one is flagged, and links that are
// valid only next to a dropped point lead around it, so only the flags need
// setting up. The passes take this by value and hand it back, so that its
// pointers and counts stay in registers while flags and links are written.
struct DropState
{
    const QPointF* q;
    bool* dropped; // padded by kBlock so that block reads stay inside
    int* prevLinks;
    int* nextLinks;
    int lastExamined; // the first point and the last two are never examined
    int minimum;
    int live;

    int Prev(int x) const { return dropped[x - 1] ? prevLinks[x] : x - 1; }
    int Next(int x) const { return dropped[x + 1] ? nextLinks[x] : x + 1; }
    // Removal stops for good at the minimum count.
    bool CanDrop() const { return live > minimum; }

    // No point in [x, x + kBlock) is dropped.
    bool Untouched(int x) const
    {
        static_assert(kBlock == sizeof(std::uint64_t), "one load covers a block");
        std::uint64_t flags = 0;
        std::memcpy(&flags, dropped + x, sizeof flags);
        return flags == 0;
    }

    void Drop(int p, int x, int s, Marks* marks)
    {
        dropped[x] = true;
        nextLinks[p] = s;
        prevLinks[s] = p;
        --live;
        if (marks && (marks->empty() || marks->back() != p))
            marks->push_back(p);
    }
};

// One pass over every examined point, in order ("i < count - 2"; a drop
// keeps i, so the next point meets the same predecessor).
template <typename Test>
DropState FullPass(DropState state, const Test& drop, Marks* marks)
{
    int p = 0;
    int x = state.Next(0);
#if defined(__SSE2__)
    // Where drops are dense a block rarely passes whole, so after a miss the
    // points up to its end go one by one.
    int nextBlock = x;
#endif
    while (x <= state.lastExamined && state.CanDrop())
    {
#if defined(__SSE2__)
        if (x >= nextBlock && p == x - 1 && x + kBlock - 1 <= state.lastExamined && state.Untouched(x) &&
            !state.dropped[x + kBlock])
        {
            int bits = drop.Block(state.q, x);
            if (bits == 0)
            {
                x += kBlock;
                p = x - 1;
                continue;
            }
            nextBlock = x + kBlock;
            for (; !(bits & 1); bits >>= 1)
                ++x;
            p = x - 1;
        }
#endif
        const int s = state.Next(x);
        if (drop(state.q[p], state.q[x], state.q[s]))
            state.Drop(p, x, s, marks);
        else
            p = x;
        x = s;
    }
    return state;
}

// A later area pass. A point keeps its verdict unless its neighbours changed:
// its successor was dropped in the previous pass (it is marked), or its
// predecessor is dropped in this one (it is examined right after). Visiting
// only those makes the pass cost what it drops.
template <typename Test>
DropState MarkedPass(DropState state, const Marks& dirty, const Test& drop, Marks& marks)
{
    int examined = 0;
    for (const int first : dirty)
    {
        if (first <= examined)
            continue;
        for (int x = first; x <= state.lastExamined && state.CanDrop();)
        {
            examined = x;
            const int p = state.Prev(x);
            const int s = state.Next(x);
            if (!drop(state.q[p], state.q[x], state.q[s]))
                break;
            state.Drop(p, x, s, &marks);
            x = s;
        }
    }
    return state;
}

// The kept points, copied once; no copy at all when nothing was dropped.
QPolygonF KeptPoints(const QPolygonF& points, const DropState& state)
{
    const int count = points.size();
    if (state.live == count)
        return points;
    // Every point is stored and only a kept one advances the output, so the
    // spare slot at the end takes the stores of trailing drops.
    QPolygonF result;
    result.resize(state.live + 1);
    QPointF* out = result.data();
    for (int x = 0; x < count;)
    {
        if (x + kBlock <= count && state.Untouched(x))
        {
            for (const int end = x + kBlock; x < end; ++x)
                *out++ = state.q[x];
            continue;
        }
        *out = state.q[x];
        out += state.dropped[x] ? 0 : 1;
        ++x;
    }
    result.resize(state.live);
    return result;
}
} // namespace

namespace ZoGraphicsInternalNS
{
QPolygonF ReduceScreenSpaceVertices(const QPolygonF& points, double areaTolerance)
{
    const int count = points.size();
    if (count < 4)
        return points;
    const std::unique_ptr<bool[]> dropped(new bool[static_cast<std::size_t>(count) + kBlock]());
    const std::unique_ptr<int[]> links(new int[2 * static_cast<std::size_t>(count)]);
    DropState state{points.constData(), dropped.get(), links.get(), links.get() + count, count - 3,
                    points.isClosed() ? 4 : 3, count};

    state = FullPass(state, NearDuplicate{std::sqrt(areaTolerance) * 0.0625}, nullptr);
    const SmallTriangle smallTriangle{areaTolerance};
    Marks dirty;
    state = FullPass(state, smallTriangle, &dirty);
    Marks marks;
    // Another pass only while the previous one dropped something.
    while (!dirty.empty() && state.live - 2 >= 2 && state.CanDrop())
    {
        marks.clear();
        state = MarkedPass(state, dirty, smallTriangle, marks);
        dirty.swap(marks);
    }
    return KeptPoints(points, state);
}
} // namespace ZoGraphicsInternalNS
