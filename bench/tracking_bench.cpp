#include "support/BenchData.h"
#include "support/BenchRatios.h"
#include "support/BenchStatistics.h"
#include "support/HeapCounter.h"

#include <ZoGraphics/ZoGraphics.h>
#include <ZoGraphics/ZoMapHost.h>

#include <QCoreApplication>
#include <QGraphicsEllipseItem>
#include <QGraphicsScene>
#include <QGraphicsSceneMouseEvent>
#include <QImage>
#include <QPainter>
#include <benchmark/benchmark.h>
#include <memory>
#include <random>

// A tracking display: 100,000 labelled dots spread over the world, moved as a
// feed reports them, zoomed into and destroyed. The floor is what a host
// would write by hand: ellipse items in a scene without an index, plus the
// names in view drawn with drawText.
namespace
{
constexpr std::uint64_t kTrackSeed = 20261125;
constexpr int kTracks = 100000;
constexpr int kManyTracks = 1000000;
constexpr double kWorldZoom = 2.0;
constexpr double kTrackZoom = 6.0;
constexpr double kTrackLon = 15.0;
constexpr double kTrackLat = 50.0;
const QSize kTrackFrame(1280, 720);

// Two seeded fixes per track, a fraction of a degree apart: a feed's update
// moves every track from one to the other and back.
std::vector<QPointF> Fixes(int count, int which)
{
    std::mt19937_64 random(kTrackSeed);
    std::uniform_real_distribution<double> lon(-180.0, 180.0);
    std::uniform_real_distribution<double> lat(-80.0, 80.0);
    std::vector<QPointF> fixes;
    fixes.reserve(count);
    for (int i = 0; i < count; ++i)
    {
        const QPointF fix(lon(random), lat(random));
        fixes.push_back(fix + QPointF(0.05, 0.03) * which);
    }
    return fixes;
}

QString TrackName(int i) { return QStringLiteral("TRK%1").arg(i); }

QRectF TrackSource(CZoMapModule& map) { return ZoBench::FrameAround(map, kTrackLon, kTrackLat, kTrackFrame); }

// --- the floor -----------------------------------------------------------------

class PlainTracks
{
public:
    explicit PlainTracks(double zoom, int count = kTracks, bool hover = false, bool itemData = false)
        : m_count(count)
    {
        m_map.SetZoomAround(zoom, kTrackLon, kTrackLat);
        m_map.GetScene()->setItemIndexMethod(QGraphicsScene::NoIndex);
        int i = 0;
        for (const QPointF& fix : Fixes(count, 0))
        {
            auto* item = new QGraphicsEllipseItem(-4.0, -4.0, 8.0, 8.0); // owned by the scene
            item->setPen(QPen(QColor(0, 0, 255), 1.0));
            item->setBrush(QColor(139, 139, 139, 50));
            item->setAcceptHoverEvents(hover);
            if (itemData)
            {
                item->setData(100, true);
                item->setData(101, i);
            }
            m_map.GetScene()->addItem(item);
            m_items.push_back(item);
            m_names.push_back(TrackName(i++));
        }
        MoveTo(0);
        QCoreApplication::processEvents();
    }
    ~PlainTracks() { m_map.GetScene()->clear(); }
    PlainTracks(const PlainTracks&) = delete;
    PlainTracks& operator=(const PlainTracks&) = delete;

    // Every item to its fix's scene position at the map's zoom.
    void MoveTo(int which)
    {
        const std::vector<QPointF> fixes = Fixes(m_count, which);
        for (size_t i = 0; i < m_items.size(); ++i)
            Place(i, fixes[i]);
    }
    void Frame(QImage& image)
    {
        const QRectF source = TrackSource(m_map);
        ZoBench::RenderFrame(m_map.GetScene(), source, image);
        QPainter painter(&image);
        painter.setFont(QFont(QStringLiteral("DejaVu Sans"), 9));
        painter.setPen(Qt::black);
        for (size_t i = 0; i < m_items.size(); ++i)
        {
            const QPointF at = m_items[i]->pos();
            if (source.contains(at))
                painter.drawText(at - source.topLeft() + QPointF(6.0, 4.0), m_names[i]);
        }
    }
    void Destroy()
    {
        for (QGraphicsEllipseItem* item : m_items)
            delete item;
        m_items.clear();
    }
    CZoMapModule& Map() { return m_map; }

private:
    void Place(size_t i, const QPointF& fix)
    {
        QPointF at;
        m_map.GeoToScenePoint(fix.x(), fix.y(), &at);
        m_items[i]->setPos(at);
    }

    int m_count;
    CZoMapModule m_map;
    std::vector<QGraphicsEllipseItem*> m_items;
    std::vector<QString> m_names;
};

// The plain items with the two data entries every item of the library
// carries for hosts (100 and 101).
struct PlainTracksWithItemData : PlainTracks
{
    explicit PlainTracksWithItemData(double zoom) : PlainTracks(zoom, kTracks, false, true) {}
};

void BM_Floor_TrackMoveFrame(benchmark::State& state)
{
    PlainTracks tracks(kTrackZoom);
    QImage image(kTrackFrame, QImage::Format_ARGB32_Premultiplied);
    int which = 0;
    for (auto _ : state)
    {
        which = 1 - which;
        tracks.MoveTo(which);
        tracks.Frame(image);
    }
}
BENCHMARK(BM_Floor_TrackMoveFrame)->Unit(benchmark::kMillisecond)->Apply(ZoBench::ReportMinimum);

void BM_Floor_TrackZoomFrame(benchmark::State& state)
{
    PlainTracks tracks(kWorldZoom);
    QImage image(kTrackFrame, QImage::Format_ARGB32_Premultiplied);
    for (auto _ : state)
    {
        state.PauseTiming();
        tracks.Map().SetZoomAround(kWorldZoom, kTrackLon, kTrackLat);
        tracks.MoveTo(0); // every item to its place at the new zoom, as a host does
        tracks.Frame(image);
        state.ResumeTiming();
        tracks.Map().SetZoomAround(kTrackZoom, kTrackLon, kTrackLat);
        tracks.MoveTo(0); // every item to its place at the new zoom, as a host does
        tracks.Frame(image);
    }
}
BENCHMARK(BM_Floor_TrackZoomFrame)->Unit(benchmark::kMillisecond)->Apply(ZoBench::ReportMinimum);

// Destroying is timed alone: making the tracks and freeing what is left are not.
template <class Tracks>
void TrackDestroy(benchmark::State& state)
{
    for (auto _ : state)
    {
        state.PauseTiming();
        auto tracks = std::make_unique<Tracks>(kTrackZoom);
        state.ResumeTiming();
        tracks->Destroy();
        state.PauseTiming();
        tracks.reset();
        state.ResumeTiming();
    }
}
BENCHMARK_TEMPLATE(TrackDestroy, PlainTracks)
    ->Name("BM_Floor_TrackDestroy")->Unit(benchmark::kMillisecond)->Apply(ZoBench::ReportMinimum);
// The same items carrying the item data: Qt keeps it in a hash table of its
// own, which shrinks as items go and so makes the C library merge the blocks
// freed before (malloc_consolidate) within the loop, where the plain floor
// leaves that work to a later allocation.
BENCHMARK_TEMPLATE(TrackDestroy, PlainTracksWithItemData)
    ->Name("BM_Floor_TrackDestroyWithItemData")->Unit(benchmark::kMillisecond)->Apply(ZoBench::ReportMinimum);

// --- ours ----------------------------------------------------------------------

// The reference host's scene has no index; qtIndex gives it Qt's default one
// back, as hosts of their own may keep.
class DotTracks
{
public:
    explicit DotTracks(double zoom, int count = kTracks, bool interactive = false, bool qtIndex = false)
        : m_count(count)
    {
        if (qtIndex)
            m_map.GetScene()->setItemIndexMethod(QGraphicsScene::BspTreeIndex);
        m_map.SetZoomAround(zoom, kTrackLon, kTrackLat);
        m_graphics.Initialise("tracks", &m_map);
        m_layer = m_graphics.CreateGraphicsLayer("tracks");
        if (auto* declutter = dynamic_cast<IZoLabelDeclutter*>(m_layer))
            declutter->SetLabelDeclutter(true);
        int i = 0;
        for (const QPointF& fix : Fixes(count, 0))
        {
            IZoDotMapObject* dot = m_graphics.CreateDotMapObject(TrackName(i++).toStdString(), m_layer);
            dot->SetRadius(4.0);
            dot->SetPosition(CVector3D(fix.x(), fix.y(), 0.0));
            dot->SetNameVisible(true);
            dot->SetInteractive(interactive);
            m_dots.push_back(dot);
        }
        QCoreApplication::processEvents();
    }
    ~DotTracks() { m_graphics.Unintialise(); }
    DotTracks(const DotTracks&) = delete;
    DotTracks& operator=(const DotTracks&) = delete;

    void MoveTo(int which)
    {
        const std::vector<QPointF> fixes = Fixes(m_count, which);
        for (size_t i = 0; i < m_dots.size(); ++i)
            m_dots[i]->SetPosition(CVector3D(fixes[i].x(), fixes[i].y(), 0.0));
    }
    void Frame(QImage& image) { ZoBench::RenderFrame(m_map.GetScene(), TrackSource(m_map), image); }
    void Destroy()
    {
        m_layer->DestroyAllMapObjects();
        m_dots.clear();
    }
    CZoMapModule& Map() { return m_map; }
    IZoGraphicsMapLayer* Layer() { return m_layer; }

private:
    int m_count;
    CZoMapModule m_map;
    CZoGraphicsModule m_graphics;
    IZoGraphicsMapLayer* m_layer = nullptr;
    std::vector<IZoDotMapObject*> m_dots;
};

struct DotTracksQtIndex : DotTracks
{
    explicit DotTracksQtIndex(double zoom, int count = kTracks, bool interactive = false)
        : DotTracks(zoom, count, interactive, true)
    {
    }
};

void CountLabels(benchmark::State& state, IZoGraphicsMapLayer* layer)
{
    if (auto* counts = dynamic_cast<IZoLabelDeclutter2*>(layer))
    {
        state.counters["labels_placed"] = counts->GetPlacedLabelCount();
        state.counters["labels_dropped"] = counts->GetDroppedLabelCount();
    }
}

template <class Tracks>
void TrackMoveFrame(benchmark::State& state)
{
    Tracks tracks(kTrackZoom);
    QImage image(kTrackFrame, QImage::Format_ARGB32_Premultiplied);
    tracks.Frame(image);
    int which = 0;
    for (auto _ : state)
    {
        which = 1 - which;
        tracks.MoveTo(which);
        tracks.Frame(image);
    }
    CountLabels(state, tracks.Layer());
}
BENCHMARK_TEMPLATE(TrackMoveFrame, DotTracks)
    ->Name("BM_TrackMoveFrame")->Unit(benchmark::kMillisecond)->Apply(ZoBench::ReportMinimum);
BENCHMARK_TEMPLATE(TrackMoveFrame, DotTracksQtIndex)
    ->Name("BM_TrackMoveFrame_QtIndex")->Unit(benchmark::kMillisecond)->Apply(ZoBench::ReportMinimum);

template <class Tracks>
void TrackZoomFrame(benchmark::State& state)
{
    Tracks tracks(kWorldZoom);
    QImage image(kTrackFrame, QImage::Format_ARGB32_Premultiplied);
    for (auto _ : state)
    {
        state.PauseTiming();
        tracks.Map().SetZoomAround(kWorldZoom, kTrackLon, kTrackLat);
        tracks.Frame(image);
        QCoreApplication::processEvents();
        state.ResumeTiming();
        tracks.Map().SetZoomAround(kTrackZoom, kTrackLon, kTrackLat);
        tracks.Frame(image);
    }
    CountLabels(state, tracks.Layer());
}
BENCHMARK_TEMPLATE(TrackZoomFrame, DotTracks)
    ->Name("BM_TrackZoomFrame")->Unit(benchmark::kMillisecond)->Apply(ZoBench::ReportMinimum);
BENCHMARK_TEMPLATE(TrackZoomFrame, DotTracksQtIndex)
    ->Name("BM_TrackZoomFrame_QtIndex")->Unit(benchmark::kMillisecond)->Apply(ZoBench::ReportMinimum);

BENCHMARK_TEMPLATE(TrackDestroy, DotTracks)
    ->Name("BM_TrackDestroy")->Unit(benchmark::kMillisecond)->Apply(ZoBench::ReportMinimum);
BENCHMARK_TEMPLATE(TrackDestroy, DotTracksQtIndex)
    ->Name("BM_TrackDestroy_QtIndex")->Unit(benchmark::kMillisecond)->Apply(ZoBench::ReportMinimum);

// --- a million dots, heap, hover ------------------------------------------------

// Zoom from level 5 to 6 and the first frame, a million dots: the floor moves
// its items to their places at the new zoom, as a host does.
void BM_Floor_MillionZoomFrame(benchmark::State& state)
{
    PlainTracks tracks(5.0, kManyTracks);
    QImage image(kTrackFrame, QImage::Format_ARGB32_Premultiplied);
    for (auto _ : state)
    {
        state.PauseTiming();
        tracks.Map().SetZoomAround(5.0, kTrackLon, kTrackLat);
        tracks.MoveTo(0);
        tracks.Frame(image);
        state.ResumeTiming();
        tracks.Map().SetZoomAround(kTrackZoom, kTrackLon, kTrackLat);
        tracks.MoveTo(0);
        tracks.Frame(image);
    }
}
BENCHMARK(BM_Floor_MillionZoomFrame)->Unit(benchmark::kMillisecond)->Iterations(2)->Apply(ZoBench::ReportMinimum);

void BM_MillionZoomFrame(benchmark::State& state)
{
    DotTracks tracks(5.0, kManyTracks);
    QImage image(kTrackFrame, QImage::Format_ARGB32_Premultiplied);
    for (auto _ : state)
    {
        state.PauseTiming();
        tracks.Map().SetZoomAround(5.0, kTrackLon, kTrackLat);
        tracks.Frame(image);
        QCoreApplication::processEvents();
        state.ResumeTiming();
        tracks.Map().SetZoomAround(kTrackZoom, kTrackLon, kTrackLat);
        tracks.Frame(image);
    }
}
BENCHMARK(BM_MillionZoomFrame)->Unit(benchmark::kMillisecond)->Iterations(2)->Apply(ZoBench::ReportMinimum);

// C heap live per labelled dot once the dots are made and a frame is drawn.
template <class Tracks>
void HeapPerDot(benchmark::State& state)
{
    QImage image(kTrackFrame, QImage::Format_ARGB32_Premultiplied);
    for (auto _ : state)
    {
        const std::size_t before = MallocLiveBytes();
        auto tracks = std::make_unique<Tracks>(kTrackZoom);
        tracks->Frame(image);
        state.counters["heap_B_per_dot"] = double(MallocLiveBytes() - before) / kTracks;
        state.PauseTiming();
        tracks.reset();
        state.ResumeTiming();
    }
}
BENCHMARK_TEMPLATE(HeapPerDot, PlainTracks)->Name("BM_Floor_TrackHeap")->Unit(benchmark::kMillisecond)->Iterations(1);
BENCHMARK_TEMPLATE(HeapPerDot, PlainTracksWithItemData)
    ->Name("BM_Floor_TrackHeapWithItemData")->Unit(benchmark::kMillisecond)->Iterations(1);
BENCHMARK_TEMPLATE(HeapPerDot, DotTracks)->Name("BM_TrackHeap")->Unit(benchmark::kMillisecond)->Iterations(1);

// Scene points of dots in the frame, where they are after MoveTo(0).
std::vector<QPointF> HoverTargets(CZoMapModule& map)
{
    std::vector<QPointF> targets;
    const QRectF source = TrackSource(map);
    for (const QPointF& fix : Fixes(kTracks, 0))
    {
        QPointF at;
        map.GeoToScenePoint(fix.x(), fix.y(), &at);
        if (source.contains(at) && targets.size() < 64)
            targets.push_back(at);
    }
    return targets;
}

void HoverAt(QGraphicsScene* scene, const QPointF& at)
{
    QGraphicsSceneMouseEvent move(QEvent::GraphicsSceneMouseMove);
    move.setScenePos(at);
    move.setButtons(Qt::NoButton);
    QCoreApplication::sendEvent(scene, &move);
}

// One mouse move without buttons over a dot of the frame, right after every
// dot moved: what the scene does to find the item under the cursor. The
// pointer has been over the map before, as on a display in use: the first
// hover after a zoom is measured on its own below.
template <class Tracks>
void HoverAmongMoving(benchmark::State& state)
{
    Tracks tracks(kTrackZoom, kTracks, true);
    QGraphicsScene* scene = tracks.Map().GetScene();
    const std::vector<QPointF> targets = HoverTargets(tracks.Map());
    HoverAt(scene, targets.back());
    size_t n = 0;
    int which = 0;
    for (auto _ : state)
    {
        state.PauseTiming();
        which = 1 - which;
        tracks.MoveTo(which);
        tracks.MoveTo(0);
        state.ResumeTiming();
        HoverAt(scene, targets[n++ % targets.size()]);
    }
}

// The first mouse move after a zoom from level 5 to 6: the library's layers
// build their hover grids again, Qt's index catches up with the moves.
template <class Tracks>
void HoverAfterZoom(benchmark::State& state)
{
    Tracks tracks(kTrackZoom, kTracks, true);
    QGraphicsScene* scene = tracks.Map().GetScene();
    const std::vector<QPointF> targets = HoverTargets(tracks.Map());
    size_t n = 0;
    for (auto _ : state)
    {
        state.PauseTiming();
        tracks.Map().SetZoomAround(kTrackZoom - 1.0, kTrackLon, kTrackLat);
        HoverAt(scene, targets[n % targets.size()]);
        tracks.Map().SetZoomAround(kTrackZoom, kTrackLon, kTrackLat);
        tracks.MoveTo(0);
        state.ResumeTiming();
        HoverAt(scene, targets[n++ % targets.size()]);
    }
}
BENCHMARK_TEMPLATE(HoverAmongMoving, PlainTracks)
    ->Name("BM_Floor_TrackHover")->Unit(benchmark::kMicrosecond)->Iterations(10)->Apply(ZoBench::ReportMinimum);
BENCHMARK_TEMPLATE(HoverAmongMoving, DotTracks)
    ->Name("BM_TrackHover")->Unit(benchmark::kMicrosecond)->Iterations(10)->Apply(ZoBench::ReportMinimum);
BENCHMARK_TEMPLATE(HoverAmongMoving, DotTracksQtIndex)
    ->Name("BM_TrackHover_QtIndex")->Unit(benchmark::kMicrosecond)->Iterations(10)->Apply(ZoBench::ReportMinimum);
BENCHMARK_TEMPLATE(HoverAfterZoom, DotTracks)
    ->Name("BM_TrackHoverAfterZoom")->Unit(benchmark::kMicrosecond)->Iterations(5)->Apply(ZoBench::ReportMinimum);
BENCHMARK_TEMPLATE(HoverAfterZoom, DotTracksQtIndex)
    ->Name("BM_TrackHoverAfterZoom_QtIndex")->Unit(benchmark::kMicrosecond)->Iterations(5)->Apply(ZoBench::ReportMinimum);

const bool kTrackRatios[] = {
    ZoBench::AddRatio("move 100,000 labelled dots, frame at level 6 / plain items, no index",
                      "BM_TrackMoveFrame", "BM_Floor_TrackMoveFrame", 1.5),
    ZoBench::AddRatio("zoom world to level 6, first frame, 100,000 labelled dots / plain items, no index",
                      "BM_TrackZoomFrame", "BM_Floor_TrackZoomFrame", 1.5),
    ZoBench::AddRatio("destroy 100,000 labelled dots through the layer / plain items", "BM_TrackDestroy",
                      "BM_Floor_TrackDestroy", 2.0),
    ZoBench::AddRatio("a million dots, zoom level 5 to 6, first frame / plain items, no index",
                      "BM_MillionZoomFrame", "BM_Floor_MillionZoomFrame", 1.5),
};
} // namespace
