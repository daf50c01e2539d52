#include "shapes/smoothing/ZoScreenSpaceReduction.h"
#include "support/BenchData.h"
#include "support/BenchStatistics.h"
#include "support/GeosLines.h"
#include "support/HeapCounter.h"

#include <ZoGraphics/ZoGraphicsConstant.h>

#include <benchmark/benchmark.h>

#include <map>
#include <string>
#include <utility>

namespace
{
using ZoBench::Path;

constexpr double kSmoothTolerance = 0.4; // the one DPSmooth applies
constexpr int kReducingLevel = 10;       // any level below 18 reduces
constexpr std::uint64_t kWalkSeed = 20261121;
constexpr double kWalkStepDegrees = 0.05;
constexpr double kAreaTolerance = 0.0625; // display scale 1
constexpr int kPixelPoints = 100000;

// Rings of at least state.range(0) points; 401 keeps those DPSmooth thins.
const std::vector<Path>& CountryRings(const benchmark::State& state)
{
    static std::map<std::int64_t, std::vector<Path>> selections;
    std::vector<Path>& rings = selections[state.range(0)];
    if (rings.empty())
    {
        for (const Path& ring : ZoBench::Countries50mRings())
        {
            if (static_cast<std::int64_t>(ring.size()) >= state.range(0))
                rings.push_back(ring);
        }
    }
    return rings;
}

const std::vector<Path>& Walk(const benchmark::State& state)
{
    static std::map<std::int64_t, std::vector<Path>> walks;
    std::vector<Path>& walk = walks[state.range(0)];
    if (walk.empty())
        walk.push_back(ZoBench::RandomWalk(static_cast<std::size_t>(state.range(0)), kWalkSeed, kWalkStepDegrees));
    return walk;
}

std::size_t SmoothAll(const std::vector<Path>& paths, Path& out)
{
    std::size_t kept = 0;
    for (const Path& path : paths)
    {
        ZoGraphicsConstantNS::DPSmooth(out, path, 0, kReducingLevel);
        kept += out.size();
    }
    return kept;
}

// Peak heap of one more run, output included, per input point.
void Report(benchmark::State& state, const std::vector<Path>& paths, std::size_t kept, std::size_t peakBytes)
{
    const std::size_t points = ZoBench::PointCount(paths);
    state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations() * points));
    state.counters["kept"] = static_cast<double>(kept);
    state.counters["heap_B_per_pt"] = static_cast<double>(peakBytes) / static_cast<double>(points);
}

void RunDPSmooth(benchmark::State& state, const std::vector<Path>& paths)
{
    Path out;
    std::size_t kept = 0;
    for (auto _ : state)
    {
        kept = SmoothAll(paths, out);
        benchmark::DoNotOptimize(out.data());
    }
    Path fresh;
    const HeapPeak peak;
    SmoothAll(paths, fresh);
    Report(state, paths, kept, peak.Bytes());
}

void RunGeos(benchmark::State& state, const std::vector<Path>& paths)
{
    const ZoBench::GeosLines lines(paths);
    std::size_t kept = 0;
    for (auto _ : state)
        kept = lines.Simplify(kSmoothTolerance);
    const HeapPeak peak;
    lines.Simplify(kSmoothTolerance);
    Report(state, paths, kept, peak.Bytes());
}

void BM_DPSmooth_Countries50m(benchmark::State& state) { RunDPSmooth(state, CountryRings(state)); }
void BM_GEOSSimplify_Countries50m(benchmark::State& state) { RunGeos(state, CountryRings(state)); }
void BM_DPSmooth_RandomWalk(benchmark::State& state) { RunDPSmooth(state, Walk(state)); }
void BM_GEOSSimplify_RandomWalk(benchmark::State& state) { RunGeos(state, Walk(state)); }

void BM_ScreenSpaceReduction(benchmark::State& state, const QPolygonF& polygon)
{
    int kept = 0;
    for (auto _ : state)
    {
        const QPolygonF reduced = ZoGraphicsInternalNS::ReduceScreenSpaceVertices(polygon, kAreaTolerance);
        kept = reduced.size();
        benchmark::DoNotOptimize(reduced.constData());
    }
    state.SetItemsProcessed(state.iterations() * polygon.size());
    state.counters["kept"] = kept;
}

// The yardsticks for the reduction: a deep copy of the same points, and a
// copy built point by point.
void BM_QPolygonFCopy(benchmark::State& state, const QPolygonF& polygon)
{
    for (auto _ : state)
    {
        QPolygonF copy(polygon);
        copy.detach();
        benchmark::DoNotOptimize(copy.constData());
    }
    state.SetItemsProcessed(state.iterations() * polygon.size());
}

void BM_QPolygonFAppend(benchmark::State& state, const QPolygonF& polygon)
{
    for (auto _ : state)
    {
        QPolygonF copy;
        copy.reserve(polygon.size());
        for (const QPointF& p : polygon)
            copy << p;
        benchmark::DoNotOptimize(copy.constData());
    }
    state.SetItemsProcessed(state.iterations() * polygon.size());
}

void CountryRingSelections(benchmark::internal::Benchmark* benchmark)
{
    benchmark->Arg(0)->Arg(401)->Unit(benchmark::kMillisecond);
    ZoBench::ReportMinimum(benchmark);
}

void WalkLengths(benchmark::internal::Benchmark* benchmark)
{
    benchmark->Arg(250000)->Arg(1000000)->Arg(4000000)->Unit(benchmark::kMillisecond);
    ZoBench::ReportMinimum(benchmark);
}

void PixelBenchmark(const std::string& name, void (*run)(benchmark::State&, const QPolygonF&), const QPolygonF& polygon)
{
    ZoBench::ReportMinimum(benchmark::RegisterBenchmark(name.c_str(), run, polygon)->Unit(benchmark::kMicrosecond));
}

// Arg: smallest ring taken, 0 for all of them.
BENCHMARK(BM_DPSmooth_Countries50m)->Apply(CountryRingSelections);
BENCHMARK(BM_GEOSSimplify_Countries50m)->Apply(CountryRingSelections);
// Arg: points in the walk.
BENCHMARK(BM_DPSmooth_RandomWalk)->Apply(WalkLengths);
BENCHMARK(BM_GEOSSimplify_RandomWalk)->Apply(WalkLengths);

// 100,000 pixel points: the country outlines at a whole-world view and
// zoomed in, then three synthetic rings: an arc sampled far below a pixel,
// near duplicates, and sub-pixel noise that the area pass half keeps. The
// copies of the same points are the yardsticks.
const bool kPixelBenchmarksRegistered = [] {
    const std::pair<const char*, QPolygonF> cases[] = {
        {"world_view", ZoBench::CountryOutlinePixels(kPixelPoints, 4.0)},
        {"zoomed_in", ZoBench::CountryOutlinePixels(kPixelPoints, 256.0)},
        {"fine_arc", ZoBench::DenseCircle(kPixelPoints, 2000.0)},
        {"near_duplicates", ZoBench::DenseCircle(kPixelPoints, 100.0)},
        {"jitter", ZoBench::JitteryRing(kPixelPoints, 2000.0, kWalkSeed)},
    };
    for (const auto& c : cases)
        PixelBenchmark(std::string("BM_ScreenSpaceReduction/") + c.first, BM_ScreenSpaceReduction, c.second);
    PixelBenchmark("BM_QPolygonFCopy/deep_copy", BM_QPolygonFCopy, cases[2].second);
    PixelBenchmark("BM_QPolygonFAppend/append_copy", BM_QPolygonFAppend, cases[2].second);
    return true;
}();
} // namespace
