#include "object/ZoLabelLook.h"
#include "support/BenchData.h"
#include "support/BenchRatios.h"
#include "support/BenchStatistics.h"
#include "support/HeapCounter.h"

#include <ZoGraphics/ZoGraphics.h>
#include <ZoGraphics/ZoMapHost.h>

#include <QCoreApplication>
#include <QGraphicsEllipseItem>
#include <QGraphicsScene>
#include <QImage>
#include <QPainter>
#include <benchmark/benchmark.h>
#include <memory>
#include <random>
#include <unordered_map>

// Map objects against the plain Qt they are built on: every benchmark here
// has a floor measured in the same program, and the ratios print at the end.
namespace
{
constexpr std::uint64_t kSeed = 20261121;
constexpr double kZoom = 6.0; // view scale 1: scene units are pixels
constexpr double kCentreLon = 15.0;
constexpr double kCentreLat = 50.0;
const QSize kFrame(1280, 720);

// Seeded geographic points that fall inside the frame around the centre, or
// scattered over a wider box (60 x 30 degrees) when not all must be in view.
std::vector<QPointF> Points(int count, bool inView)
{
    std::mt19937_64 random(kSeed);
    std::uniform_real_distribution<double> lon(inView ? 1.5 : -15.0, inView ? 28.5 : 45.0);
    std::uniform_real_distribution<double> lat(inView ? 45.0 : 35.0, inView ? 54.5 : 65.0);
    std::vector<QPointF> points;
    points.reserve(count);
    for (int i = 0; i < count; ++i)
        points.emplace_back(lon(random), lat(random));
    return points;
}

std::string DotName(int i) { return "dot-" + std::to_string(i); }

// The frame of the view around the centre, in scene units.
QRectF FrameSource(CZoMapModule& map) { return ZoBench::FrameAround(map, kCentreLon, kCentreLat, kFrame); }
using ZoBench::RenderFrame;

// --- the plain Qt floors -------------------------------------------------------

// What a dot amounts to in plain Qt: an ellipse item of the dot's size, with
// its own pen and brush, at the dot's scene position in the host's scene.
class PlainScene
{
public:
    PlainScene(int count, bool inView)
    {
        m_map.SetZoomAround(kZoom, kCentreLon, kCentreLat);
        for (const QPointF& point : Points(count, inView))
        {
            QPointF at;
            m_map.GeoToScenePoint(point.x(), point.y(), &at);
            auto* item = new QGraphicsEllipseItem(-7.0, -7.0, 14.0, 14.0); // owned by the scene
            // A dot's outline and fill are its own, as a host's plain item's would be.
            item->setPen(QPen(QColor(0, 0, 255), 1.0));
            item->setBrush(QColor(139, 139, 139, 50));
            item->setPos(at);
            m_map.GetScene()->addItem(item);
            m_items.push_back(item);
        }
        QCoreApplication::processEvents();
    }
    ~PlainScene() { m_map.GetScene()->clear(); }
    PlainScene(const PlainScene&) = delete;
    PlainScene& operator=(const PlainScene&) = delete;

    CZoMapModule& Map() { return m_map; }
    const std::vector<QGraphicsEllipseItem*>& Items() const { return m_items; }

private:
    CZoMapModule m_map;
    std::vector<QGraphicsEllipseItem*> m_items;
};

void BM_Floor_CreateItems(benchmark::State& state)
{
    const int count = static_cast<int>(state.range(0));
    for (auto _ : state)
    {
        auto scene = std::make_unique<PlainScene>(count, false);
        state.PauseTiming();
        scene.reset();
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * count);
}
BENCHMARK(BM_Floor_CreateItems)->Arg(10000)->Unit(benchmark::kMillisecond)->Apply(ZoBench::ReportMinimum);

void BM_Floor_ItemMemory(benchmark::State& state)
{
    const int count = static_cast<int>(state.range(0));
    for (auto _ : state)
    {
        CZoMapModule* warm = new CZoMapModule; // the host's own cost stays out of the figure
        const std::size_t before = MallocLiveBytes();
        {
            auto scene = std::make_unique<PlainScene>(count, false);
            state.counters["bytes_per_object"] = double(MallocLiveBytes() - before) / count;
        }
        delete warm;
    }
}
BENCHMARK(BM_Floor_ItemMemory)->Arg(10000)->Iterations(1)->Unit(benchmark::kMillisecond);

// Between two zooms a host's event loop lets the scene index its items
// again; without that, every zoom after the first would find them unindexed
// and cheap to move, and the figures would depend on the iteration count.
void ReindexScene(benchmark::State& state, QGraphicsScene* scene)
{
    state.PauseTiming();
    scene->items(QRectF(0.0, 0.0, 1.0, 1.0));
    state.ResumeTiming();
}

// A zoom across a level in plain Qt: every item moves to its new position.
void BM_Floor_SetPos(benchmark::State& state)
{
    PlainScene scene(static_cast<int>(state.range(0)), false);
    bool in = false;
    for (auto _ : state)
    {
        const double factor = in ? 0.5 : 2.0;
        for (QGraphicsEllipseItem* item : scene.Items())
            item->setPos(item->pos() * factor);
        in = !in;
        ReindexScene(state, scene.Map().GetScene());
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BM_Floor_SetPos)->Arg(100000)->Unit(benchmark::kMillisecond)->Apply(ZoBench::ReportMinimum);

void BM_Floor_FrameItems(benchmark::State& state)
{
    PlainScene scene(static_cast<int>(state.range(0)), true);
    const QRectF source = FrameSource(scene.Map());
    QImage image(kFrame, QImage::Format_ARGB32_Premultiplied);
    for (auto _ : state)
        RenderFrame(scene.Map().GetScene(), source, image);
}
BENCHMARK(BM_Floor_FrameItems)->Arg(10000)->Unit(benchmark::kMillisecond)->Apply(ZoBench::ReportMinimum);

// Dots and their names drawn with one painter: an ellipse and a text each.
void BM_Floor_PainterDotsAndNames(benchmark::State& state)
{
    const int count = static_cast<int>(state.range(0));
    CZoMapModule map;
    map.SetZoomAround(kZoom, kCentreLon, kCentreLat);
    const QRectF source = FrameSource(map);
    std::vector<std::pair<QPointF, QString>> dots;
    const std::vector<QPointF> points = Points(count, true);
    for (int i = 0; i < count; ++i)
    {
        QPointF at;
        map.GeoToScenePoint(points[i].x(), points[i].y(), &at);
        dots.emplace_back(at - source.topLeft(), QString::fromStdString(DotName(i)));
    }
    QImage image(kFrame, QImage::Format_ARGB32_Premultiplied);
    const QFont font(QStringLiteral("微软雅黑"), 12);
    for (auto _ : state)
    {
        image.fill(Qt::white);
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setFont(font);
        for (const auto& dot : dots)
        {
            painter.setPen(QPen(Qt::blue, 1.0));
            painter.setBrush(QColor(139, 139, 139, 50));
            painter.drawEllipse(dot.first, 6.0, 6.0);
            painter.setPen(Qt::red);
            painter.drawText(dot.first + QPointF(-25.0, 25.0), dot.second);
        }
    }
    state.SetItemsProcessed(state.iterations() * count);
}
BENCHMARK(BM_Floor_PainterDotsAndNames)->Arg(2000)->Unit(benchmark::kMillisecond)->Apply(ZoBench::ReportMinimum);

// 4,096 seeded names among the first count dots', for lookups.
constexpr size_t kProbes = 4096;
std::vector<std::string> NameProbes(int count)
{
    std::mt19937 random(kSeed);
    std::uniform_int_distribution<int> pick(0, count - 1);
    std::vector<std::string> probes;
    for (size_t i = 0; i < kProbes; ++i)
        probes.push_back(DotName(pick(random)));
    return probes;
}

void BM_Floor_HashFind(benchmark::State& state)
{
    const int count = static_cast<int>(state.range(0));
    std::unordered_multimap<std::string, int> names;
    for (int i = 0; i < count; ++i)
        names.emplace(DotName(i), i);
    const std::vector<std::string> probes = NameProbes(count);
    size_t next = 0;
    for (auto _ : state)
        benchmark::DoNotOptimize(names.find(probes[next++ % kProbes]));
}
BENCHMARK(BM_Floor_HashFind)->Arg(100000)->Apply(ZoBench::ReportMinimum);

// --- dots --------------------------------------------------------------------

// A host map at zoom 6 over Europe and a graphics module with N named dots,
// their names shown or not.
class DotScene
{
public:
    DotScene(int count, bool namesShown, bool inView)
    {
        m_map.SetZoomAround(kZoom, kCentreLon, kCentreLat);
        m_graphics.Initialise("bench", &m_map);
        m_layer = m_graphics.CreateGraphicsLayer("dots");
        m_ids.reserve(count);
        int i = 0;
        for (const QPointF& point : Points(count, inView))
        {
            IZoDotMapObject* dot = m_graphics.CreateDotMapObject(DotName(i++), m_layer);
            dot->SetPosition(CVector3D(point.x(), point.y(), 0.0));
            if (namesShown)
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

// Creating and positioning named dots; args: count, names shown.
void BM_CreateDots(benchmark::State& state)
{
    const int count = static_cast<int>(state.range(0));
    for (auto _ : state)
    {
        auto scene = std::make_unique<DotScene>(count, state.range(1) != 0, false);
        state.PauseTiming();
        scene.reset();
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * count);
}
BENCHMARK(BM_CreateDots)->Args({10000, 0})->Args({10000, 1})->Unit(benchmark::kMillisecond)->Apply(ZoBench::ReportMinimum);

// Bytes per dot: args: count, names shown (and a frame drawn, so that every
// shown label in view has been laid out and drawn once). The shared cache of
// finished label looks is bounded and reported apart.
void BM_DotMemory(benchmark::State& state)
{
    const int count = static_cast<int>(state.range(0));
    const bool shown = state.range(1) != 0;
    for (auto _ : state)
    {
        ZoLabelLookCache::Clear();
        CZoMapModule* warm = new CZoMapModule;
        const std::size_t before = MallocLiveBytes();
        {
            DotScene scene(count, shown, false);
            if (shown)
            {
                QImage image(kFrame, QImage::Format_ARGB32_Premultiplied);
                RenderFrame(scene.Map().GetScene(), FrameSource(scene.Map()), image);
            }
            const double cache = double(ZoLabelLookCache::Bytes() + ZoLabelLookCache::GlyphBytes());
            state.counters["bytes_per_object"] = (double(MallocLiveBytes() - before) - cache) / count;
            state.counters["look_cache_MiB"] = cache / double(1 << 20);
        }
        delete warm;
    }
}
BENCHMARK(BM_DotMemory)->Args({10000, 0})->Args({10000, 1})->Iterations(1)->Unit(benchmark::kMillisecond);

// A zoom across a level boundary: every dot updates its visibility, rebuilds
// its shape (and its name, when shown) for the new scale and moves. Args:
// count, names shown, the zoom it goes to in eighths above zoom 6 (8: the
// next whole level, where the view scale is 1 again; 12: zoom 7.5, where
// every dot also changes its size in scene units).
void BM_ZoomAcrossLevels(benchmark::State& state)
{
    DotScene scene(static_cast<int>(state.range(0)), state.range(1) != 0, false);
    const double target = kZoom + state.range(2) / 8.0;
    bool in = false;
    for (auto _ : state)
    {
        scene.Map().SetZoom(in ? kZoom : target);
        in = !in;
        ReindexScene(state, scene.Map().GetScene());
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BM_ZoomAcrossLevels)
    ->Args({100000, 0, 8})
    ->Args({100000, 0, 12})
    ->Args({100000, 1, 8})
    ->Unit(benchmark::kMillisecond)
    ->Apply(ZoBench::ReportMinimum);

// A pan: every dot moves to its new scene position.
void BM_Pan(benchmark::State& state)
{
    DotScene scene(static_cast<int>(state.range(0)), false, false);
    bool east = false;
    for (auto _ : state)
    {
        scene.Map().SetCenter(east ? kCentreLon + 0.5 : kCentreLon, kCentreLat);
        east = !east;
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BM_Pan)->Arg(100000)->Unit(benchmark::kMillisecond)->Apply(ZoBench::ReportMinimum);

void BM_LookupById(benchmark::State& state)
{
    DotScene scene(static_cast<int>(state.range(0)), false, false);
    std::mt19937 random(kSeed);
    std::uniform_int_distribution<size_t> pick(0, scene.Ids().size() - 1);
    std::vector<int> probes;
    for (int i = 0; i < 4096; ++i)
        probes.push_back(scene.Ids()[pick(random)]);
    size_t next = 0;
    for (auto _ : state)
        benchmark::DoNotOptimize(scene.Graphics().LookupGraphicObject(probes[next++ & 4095]));
}
BENCHMARK(BM_LookupById)->Arg(100000)->Apply(ZoBench::ReportMinimum);

// A typed lookup by name among 100,000 objects.
void BM_LookupByName(benchmark::State& state)
{
    const int count = static_cast<int>(state.range(0));
    DotScene scene(count, false, false);
    const std::vector<std::string> probes = NameProbes(count);
    size_t next = 0;
    for (auto _ : state)
        benchmark::DoNotOptimize(scene.Graphics().LookupDotMapObject(probes[next++ % kProbes]));
}
BENCHMARK(BM_LookupByName)->Arg(100000)->Apply(ZoBench::ReportMinimum);

// One 1280 x 720 frame of N dots in view; args: count, names shown (halos on).
void BM_FrameDots(benchmark::State& state)
{
    DotScene scene(static_cast<int>(state.range(0)), state.range(1) != 0, true);
    const QRectF source = FrameSource(scene.Map());
    QImage image(kFrame, QImage::Format_ARGB32_Premultiplied);
    RenderFrame(scene.Map().GetScene(), source, image); // the first frame draws the looks
    for (auto _ : state)
        RenderFrame(scene.Map().GetScene(), source, image);
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BM_FrameDots)->Args({10000, 0})->Args({2000, 1})->Args({30000, 1})->Unit(benchmark::kMillisecond)->Apply(ZoBench::ReportMinimum);

// The first frame after the names appear: every look is drawn anew.
void BM_FirstFrameDots(benchmark::State& state)
{
    DotScene scene(static_cast<int>(state.range(0)), true, true);
    const QRectF source = FrameSource(scene.Map());
    QImage image(kFrame, QImage::Format_ARGB32_Premultiplied);
    for (auto _ : state)
    {
        state.PauseTiming();
        ZoLabelLookCache::Clear();
        state.ResumeTiming();
        RenderFrame(scene.Map().GetScene(), source, image);
    }
}
BENCHMARK(BM_FirstFrameDots)->Arg(2000)->Unit(benchmark::kMillisecond)->Apply(ZoBench::ReportMinimum);

const bool kRatios[] = {
    ZoBench::AddRatio("bytes per dot, name hidden / plain item", "BM_DotMemory/10000/0", "BM_Floor_ItemMemory/10000",
                      2.0, "bytes_per_object"),
    ZoBench::AddRatio("bytes per dot, name shown / plain item", "BM_DotMemory/10000/1", "BM_Floor_ItemMemory/10000",
                      4.0, "bytes_per_object"),
    ZoBench::AddRatio("create 10,000 named dots / plain items", "BM_CreateDots/10000/0", "BM_Floor_CreateItems/10000",
                      3.0),
    ZoBench::AddRatio("create 10,000 dots, names shown / plain items", "BM_CreateDots/10000/1",
                      "BM_Floor_CreateItems/10000", 3.0),
    ZoBench::AddRatio("frame of 2,000 labelled dots / one painter", "BM_FrameDots/2000/1",
                      "BM_Floor_PainterDotsAndNames/2000", 3.0),
    ZoBench::AddRatio("lookup by name among 100,000 / hash find", "BM_LookupByName/100000", "BM_Floor_HashFind/100000",
                      3.0),
    ZoBench::AddRatio("zoom to the next level, 100,000 dots / setPos", "BM_ZoomAcrossLevels/100000/0/8",
                      "BM_Floor_SetPos/100000", 1.5),
    ZoBench::AddRatio("zoom 6 to 7.5, 100,000 dots / setPos", "BM_ZoomAcrossLevels/100000/0/12",
                      "BM_Floor_SetPos/100000", 1.5),
    ZoBench::AddRatio("frame of 10,000 dots, no names / plain items", "BM_FrameDots/10000/0",
                      "BM_Floor_FrameItems/10000", 1.15),
};
} // namespace
