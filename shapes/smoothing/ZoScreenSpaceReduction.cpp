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

// Points tested together.
constexpr int kBlock = 8;
// Points examined one at a time after a block that did not pass whole.
constexpr int kScalarRun = 32;

// The sweep's steps must melt into its loop, or the sweep state goes through
// memory on every block.
#if defined(__GNUC__)
#define ZO_SWEEP_STEP inline __attribute__((always_inline))
#else
#define ZO_SWEEP_STEP inline
#endif

#if defined(__SSE2__)
__m128d LoadPoint(const QPointF* q, int i) { return _mm_loadu_pd(reinterpret_cast<const double*>(q + i)); }

__m128d Magnitude(__m128d v) { return _mm_and_pd(v, _mm_castsi128_pd(_mm_set1_epi64x(0x7fffffffffffffffLL))); }
#endif

// The tests see a point with its current neighbours. Pair() answers two tests
// at once, (a0, a1, a2) in bit 0 and (b0, b1, b2) in bit 1, with the same
// roundings lane by lane.
struct NearDuplicate
{
    // Near duplicates come from slow movement, in regular runs that branch
    // prediction learns.
    static constexpr bool kVerdictsInRuns = true;
    double limit;

    bool operator()(const QPointF& prev, const QPointF& p, const QPointF& /*next*/) const
    {
        return std::abs(prev.y() - p.y()) < limit && std::abs(prev.x() - p.x()) < limit;
    }

#if defined(__SSE2__)
    int Pair(__m128d a0, __m128d a1, __m128d /*a2*/, __m128d b0, __m128d b1, __m128d /*b2*/) const
    {
        const __m128d bound = _mm_set1_pd(limit);
        const __m128d near1 = _mm_cmplt_pd(Magnitude(_mm_sub_pd(a0, a1)), bound);
        const __m128d near2 = _mm_cmplt_pd(Magnitude(_mm_sub_pd(b0, b1)), bound);
        return _mm_movemask_pd(_mm_and_pd(_mm_unpacklo_pd(near1, near2), _mm_unpackhi_pd(near1, near2)));
    }
#endif
};

struct SmallTriangle
{
    // Sub-pixel noise makes these verdicts a coin toss.
    static constexpr bool kVerdictsInRuns = false;
    double tolerance;

    bool operator()(const QPointF& prev, const QPointF& p, const QPointF& next) const
    {
        const double area =
            std::abs((next.y() - prev.y()) * p.x() + (p.y() - next.y()) * prev.x() + (prev.y() - p.y()) * next.x()) *
            0.5;
        return tolerance > area;
    }

#if defined(__SSE2__)
    int Pair(__m128d a0, __m128d a1, __m128d a2, __m128d b0, __m128d b1, __m128d b2) const
    {
        const __m128d xa = _mm_unpacklo_pd(a0, b0), ya = _mm_unpackhi_pd(a0, b0);
        const __m128d xb = _mm_unpacklo_pd(a1, b1), yb = _mm_unpackhi_pd(a1, b1);
        const __m128d xc = _mm_unpacklo_pd(a2, b2), yc = _mm_unpackhi_pd(a2, b2);
        const __m128d sum =
            _mm_add_pd(_mm_add_pd(_mm_mul_pd(_mm_sub_pd(yc, ya), xb), _mm_mul_pd(_mm_sub_pd(yb, yc), xa)),
                       _mm_mul_pd(_mm_sub_pd(ya, yb), xc));
        return _mm_movemask_pd(_mm_cmpgt_pd(_mm_set1_pd(tolerance), _mm_mul_pd(Magnitude(sum), _mm_set1_pd(0.5))));
    }
#endif
};

#if defined(__SSE2__)
// Bit j set when q[i + j] would be dropped after q[i + j - 1].
template <typename Test>
int AdjacentBits(const Test& drop, const QPointF* q, int i)
{
    int bits = 0;
    for (int j = 0; j < kBlock; j += 2)
    {
        const __m128d p1 = LoadPoint(q, i + j), p2 = LoadPoint(q, i + j + 1);
        bits |= drop.Pair(LoadPoint(q, i + j - 1), p1, p2, p1, p2, LoadPoint(q, i + j + 2)) << j;
    }
    return bits;
}

// Bit j set when q[i + j] would be dropped after prev.
template <typename Test>
int BitsAfter(const Test& drop, const QPointF* q, int i, const QPointF& prev)
{
    const __m128d p0 = _mm_loadu_pd(reinterpret_cast<const double*>(&prev));
    int bits = 0;
    for (int j = 0; j < kBlock; j += 2)
    {
        const __m128d p2 = LoadPoint(q, i + j + 1);
        bits |= drop.Pair(p0, LoadPoint(q, i + j), p2, p0, p2, LoadPoint(q, i + j + 2)) << j;
    }
    return bits;
}

int LowestBit(int bits) { return __builtin_ctz(static_cast<unsigned>(bits)); }
#endif

// Moves n points from in[from] to out[to], to <= from; out may be in, and
// in[from + kBlock - 1] must exist.
void MoveDown(QPointF* out, int to, const QPointF* in, int from, int n)
{
    if (out + to == in + from)
        return;
    if ((out != in || from - to >= kBlock) && n <= kBlock)
    {
        // Whole blocks are cheaper than an exact count; the extra points land
        // where nothing is read any more.
        std::memcpy(static_cast<void*>(out + to), in + from, kBlock * sizeof(QPointF));
        return;
    }
    for (int k = 0; k < n; ++k)
        out[to + k] = in[from + k];
}

// A pass in progress: out[w] is the last kept point, in[r] the one examined.
// out is in or a buffer of its own.
// The steps take it by value and hand it back, so that it stays in registers.
struct Sweep
{
    int w;
    int r;
    int removed;
    bool afterKept; // out[w] is in[r - 1]
    int* marks;     // one slot per point; null in the near-duplicate pass
    int markCount;

    void Mark()
    {
        if (marks)
            marks[markCount++] = w;
    }
};

// Examines in[r, stop) one at a time, branching on each verdict.
template <typename Test>
ZO_SWEEP_STEP Sweep BranchingRun(const QPointF* in, QPointF* out, int stop, int dropLimit, const Test& drop, Sweep s)
{
    for (; s.r < stop && s.removed < dropLimit; ++s.r)
    {
        if (drop(out[s.w], in[s.r], in[s.r + 1]))
        {
            if (s.afterKept)
                s.Mark();
            ++s.removed;
            s.afterKept = false;
        }
        else
        {
            out[++s.w] = in[s.r];
            s.afterKept = true;
        }
    }
    return s;
}

#if defined(__SSE2__)
// Blocks follow runs of keeps with adjacent tests and runs of drops with
// tests against the one predecessor they share. whole is cleared when the
// block did not pass whole.
template <typename Test>
ZO_SWEEP_STEP Sweep BlockStep(const QPointF* in, QPointF* out, int dropLimit, const Test& drop, Sweep s, bool& whole)
{
    whole = false;
    if (s.afterKept)
    {
        const int bits = AdjacentBits(drop, in, s.r);
        const int kept = bits ? LowestBit(bits) : kBlock;
        MoveDown(out, s.w + 1, in, s.r, kept);
        s.w += kept;
        s.r += kept;
        if (!bits)
        {
            whole = true;
            return s;
        }
        s.Mark();
        ++s.removed;
        ++s.r;
        s.afterKept = false;
        return s;
    }
    const int keeps = ~BitsAfter(drop, in, s.r, out[s.w]) & ((1 << kBlock) - 1);
    const int dropped = std::min(keeps ? LowestBit(keeps) : kBlock, dropLimit - s.removed);
    s.removed += dropped;
    s.r += dropped;
    whole = dropped == kBlock;
    if (whole)
        return s;
    if (s.removed < dropLimit)
    {
        out[++s.w] = in[s.r++];
        s.afterKept = true;
    }
    return s;
}

// Where keeps and drops alternate a block waits for the last one's answer
// and a branch on each verdict is a coin toss. Here every point is stored and
// only a kept one advances; the next verdict is worked out both ways at once
// (after the current predecessor, after the current point), so the chain of
// verdicts waits for one test per point, not for two in a row.
template <typename Test>
ZO_SWEEP_STEP Sweep OneByOne(const QPointF* in, QPointF* out, int stop, int dropLimit, const Test& drop, Sweep s)
{
    __m128d prev = LoadPoint(out, s.w);
    const __m128d first = LoadPoint(in, s.r), second = LoadPoint(in, s.r + 1);
    int verdict = drop.Pair(prev, first, second, prev, first, second) & 1;
    int markSink = 0;
    int* const marks = s.marks ? s.marks : &markSink;
    for (; s.r < stop && s.removed < dropLimit; ++s.r)
    {
        const __m128d p = LoadPoint(in, s.r), next = LoadPoint(in, s.r + 1), after = LoadPoint(in, s.r + 2);
        const int both = drop.Pair(prev, next, after, p, next, after);
        _mm_storeu_pd(reinterpret_cast<double*>(out + s.w + 1), p);
        const __m128d kept = _mm_castsi128_pd(_mm_set1_epi64x(verdict - 1));
        prev = _mm_or_pd(_mm_and_pd(kept, p), _mm_andnot_pd(kept, prev));
        marks[s.marks ? s.markCount : 0] = s.w;
        s.markCount += verdict & static_cast<int>(s.afterKept);
        s.w += 1 - verdict;
        s.removed += verdict;
        s.afterKept = verdict == 0;
        verdict = (both >> (1 - verdict)) & 1;
    }
    return s;
}
#endif

// One pass over every examined point, in order ("i < count - 2"; a drop keeps
// i, so the next point meets the same predecessor), from in[0, count) into
// out, which may be in. Returns the count.
template <typename Test>
int SweepPass(const QPointF* in, QPointF* out, int count, int minimum, const Test& drop, Marks* marks)
{
    const int end = count - 2; // the last two stay
    const int dropLimit = count - minimum;
    const std::unique_ptr<int[]> markSlots(marks ? new int[static_cast<std::size_t>(count) + 1] : nullptr);
    out[0] = in[0];
    Sweep s{0, 1, 0, true, markSlots.get(), 0};
    while (s.r < end && s.removed < dropLimit)
    {
#if defined(__SSE2__)
        bool whole = false;
        if (s.r + kBlock <= end)
            s = BlockStep(in, out, dropLimit, drop, s, whole);
        if (whole)
            continue;
        const int stop = std::min(end, s.r + kScalarRun);
        s = Test::kVerdictsInRuns ? BranchingRun(in, out, stop, dropLimit, drop, s)
                                  : OneByOne(in, out, stop, dropLimit, drop, s);
#else
        s = BranchingRun(in, out, end, dropLimit, drop, s);
#endif
    }
    if (marks)
        marks->assign(markSlots.get(), markSlots.get() + s.markCount);
    std::memmove(static_cast<void*>(out + s.w + 1), in + s.r, (count - s.r) * sizeof(QPointF));
    return s.w + 1 + count - s.r;
}

// Later passes drop few points, so they flag them instead of moving the rest;
// links that are valid only next to a dropped point lead around it. The
// passes take this by value and hand it back, so that its pointers and counts
// stay in registers while flags and links are written.
struct DropState
{
    const QPointF* q;
    bool* dropped; // padded by kBlock for whole-block reads
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

    void Drop(int p, int x, int s, Marks& marks)
    {
        dropped[x] = true;
        nextLinks[p] = s;
        prevLinks[s] = p;
        --live;
        if (marks.empty() || marks.back() != p)
            marks.push_back(p);
    }
};

// A later area pass. A point keeps its verdict unless its neighbours changed:
// its successor was dropped in the previous pass (it is marked), or its
// predecessor is dropped in this one (it is examined right after). Visiting
// only those makes the pass cost what it drops.
template <typename Test>
DropState MarkedPass(DropState state, const Marks& dirty, const Test& drop, Marks& candidates, Marks& marks)
{
    // Most marked points stay, in no predictable order. A mark's verdict does
    // not hang on the ones before it, except where its predecessor drops in
    // this pass, and then it is examined again right after; so the verdicts
    // are worked out first without branching, and only the drops walked.
    candidates.resize(dirty.size());
    int found = 0;
    for (const int x : dirty)
    {
        if (x == 0) // the first point is marked too, but never examined
            continue;
        candidates[found] = x;
        found += drop(state.q[state.Prev(x)], state.q[x], state.q[state.Next(x)]) ? 1 : 0;
    }
    int examined = 0;
    for (int k = 0; k < found; ++k)
    {
        const int first = candidates[k];
        if (first <= examined)
            continue;
        for (int x = first; x <= state.lastExamined && state.CanDrop();)
        {
            examined = x;
            const int p = state.Prev(x);
            const int s = state.Next(x);
            if (!drop(state.q[p], state.q[x], state.q[s]))
                break;
            state.Drop(p, x, s, marks);
            x = s;
        }
    }
    return state;
}

// Repeats the area pass on q[0, count) while the previous one dropped
// anything; dirty holds the marks of the first. Returns the count.
int LaterAreaPasses(QPointF* q, int count, int minimum, const SmallTriangle& smallTriangle, Marks& dirty)
{
    const std::unique_ptr<bool[]> dropped(new bool[static_cast<std::size_t>(count) + kBlock]());
    const std::unique_ptr<int[]> links(new int[2 * static_cast<std::size_t>(count)]);
    DropState state{q, dropped.get(), links.get(), links.get() + count, count - 3, minimum, count};
    Marks marks;
    Marks candidates;
    while (!dirty.empty() && state.live - 2 >= 2 && state.CanDrop())
    {
        marks.clear();
        state = MarkedPass(state, dirty, smallTriangle, candidates, marks);
        dirty.swap(marks);
    }
    // Every point is stored and only a kept one advances the output.
    int w = 0;
    for (int x = 0; x < count;)
    {
        if (x + kBlock <= count && state.Untouched(x))
        {
            MoveDown(q, w, q, x, kBlock);
            w += kBlock;
            x += kBlock;
            continue;
        }
        q[w] = q[x];
        w += state.dropped[x] ? 0 : 1;
        ++x;
    }
    return w;
}
} // namespace

namespace ZoGraphicsInternalNS
{
QPolygonF ReduceScreenSpaceVertices(const QPolygonF& points, double areaTolerance)
{
    const int count = points.size();
    if (count < 4)
        return points;
    const int minimum = points.isClosed() ? 4 : 3;
    QPolygonF result(count);
    QPointF* q = result.data();

    int live = SweepPass(points.constData(), q, count, minimum, NearDuplicate{std::sqrt(areaTolerance) * 0.0625},
                         nullptr);
    const SmallTriangle smallTriangle{areaTolerance};
    if (live - 2 >= 2)
    {
        Marks dirty;
        live = SweepPass(q, q, live, minimum, smallTriangle, &dirty);
        // Another pass only while the previous one dropped something.
        if (!dirty.empty() && live - 2 >= 2 && live > minimum)
            live = LaterAreaPasses(q, live, minimum, smallTriangle, dirty);
    }
    if (live == count)
        return points;
    result.resize(live);
    return result;
}
} // namespace ZoGraphicsInternalNS
