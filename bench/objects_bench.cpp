#include "support/BenchStatistics.h"

#include <ZoGraphics/ZoGraphics.h>
#include <ZoGraphics/ZoMapHost.h>

#include <QCoreApplication>
#include <QGraphicsScene>
#include <QImage>
#include <QPainter>
#include <benchmark/benchmark.h>
#include <memory>
#include <random>

namespace
{
constexpr std::uint64_t kSeed = 20261121;

// A host map at zoom 6 over Europe and a graphics module with N named dots
// scattered over a 60 x 30 degree box, each with a visible name.
class DotScene
{
public:
    explicit DotScene(int count)
    {
        m_map.SetZoomAround(6.0, 15.0, 50.0);
        m_graphics.Initialise("bench", &m_map);
        m_layer = m_graphics.CreateGraphicsLayer("dots");
        std::mt19937_64 random(kSeed);
        std::uniform_real_distribution<double> lon(-15.0, 45.0);
        std::uniform_real_distribution<double> lat(35.0, 65.0);
        m_ids.reserve(count);
        for (int i = 0; i < count; ++i)
        {
            IZoDotMapObject* dot = m_graphics.CreateDotMapObject("dot-" + std::to_string(i), m_layer);
            dot->SetPosition(CVector3D(lon(random), lat(random), 0.0));
            dot->SetNameVisible(true);
            m_ids.push_back(dot->GetObjectID());
        }
        // Let the scene index its new items, as the event loop would.
        QCoreApplication::processEvents();
    }
    ~DotScene() { m_graphics.Unintialise(); }
    DotScene(const DotScene&) = delete;
    DotScene& operator=(const DotScene&) = delete;

    CZoMapModule& Map() { return m_map; }
    CZoGraphicsModule& Graphics() { return m_graphics; }
    const std::vector<int>& Ids() const { return m_ids; }

private:
    CZoMapModule m_map;
    CZoGraphicsModule m_graphics;
    IZoGraphicsMapLayer* m_layer = nullptr;
    std::vector<int> m_ids;
};

void BM_CreateDots(benchmark::State& state)
{
    const int count = static_cast<int>(state.range(0));
    for (auto _ : state)
    {
        auto scene = std::make_unique<DotScene>(count);
        state.PauseTiming();
        scene.reset();
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * count);
}
BENCHMARK(BM_CreateDots)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond)->Apply(ZoBench::ReportMinimum);

// A zoom across a level boundary: every dot updates its visibility, rebuilds
// its shape and name for the new scale and moves to its new scene position.
void BM_ZoomAcrossLevels(benchmark::State& state)
{
    DotScene scene(static_cast<int>(state.range(0)));
    bool in = false;
    for (auto _ : state)
    {
        scene.Map().SetZoom(in ? 6.0 : 7.5);
        in = !in;
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BM_ZoomAcrossLevels)->Arg(100000)->Unit(benchmark::kMillisecond)->Apply(ZoBench::ReportMinimum);

// A pan: every dot moves to its new scene position.
void BM_Pan(benchmark::State& state)
{
    DotScene scene(static_cast<int>(state.range(0)));
    bool east = false;
    for (auto _ : state)
    {
        scene.Map().SetCenter(east ? 15.5 : 15.0, 50.0);
        east = !east;
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BM_Pan)->Arg(100000)->Unit(benchmark::kMillisecond)->Apply(ZoBench::ReportMinimum);

void BM_LookupById(benchmark::State& state)
{
    DotScene scene(static_cast<int>(state.range(0)));
    std::mt19937 random(kSeed);
    std::uniform_int_distribution<size_t> pick(0, scene.Ids().size() - 1);
    for (auto _ : state)
        benchmark::DoNotOptimize(scene.Graphics().LookupGraphicObject(scene.Ids()[pick(random)]));
}
BENCHMARK(BM_LookupById)->Arg(100000)->Apply(ZoBench::ReportMinimum);

// Lookups by name walk the registry in id order: linear by design.
void BM_LookupByName(benchmark::State& state)
{
    DotScene scene(static_cast<int>(state.range(0)));
    const std::string last = "dot-" + std::to_string(state.range(0) - 1);
    for (auto _ : state)
        benchmark::DoNotOptimize(scene.Graphics().LookupDotMapObject(last));
}
BENCHMARK(BM_LookupByName)->Arg(100000)->Unit(benchmark::kMillisecond)->Apply(ZoBench::ReportMinimum);

// Painting a 1280 x 720 view of the scene, names included.
void BM_RenderView(benchmark::State& state)
{
    DotScene scene(static_cast<int>(state.range(0)));
    QGraphicsScene* graphicsScene = scene.Map().GetScene();
    QPointF centre;
    scene.Map().GeoToScenePoint(15.0, 50.0, &centre);
    const QRectF source(centre - QPointF(640, 360), QSizeF(1280, 720));
    QImage image(1280, 720, QImage::Format_ARGB32_Premultiplied);
    for (auto _ : state)
    {
        image.fill(Qt::white);
        QPainter painter(&image);
        graphicsScene->render(&painter, QRectF(image.rect()), source);
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BM_RenderView)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond)->Apply(ZoBench::ReportMinimum);
} // namespace
