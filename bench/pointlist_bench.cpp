// The point-list shapes at scale: a million-point polyline rebuilt on a zoom
// change and hit by the pointer, a hundred-thousand-point polyline painted
// with a wide pen, and the Natural Earth countries loaded from GeoJSON and
// drawn. Each has its floor in this file.
#include "shapes/polyline/CZoPolylineMapObject.h"
#include "support/BenchData.h"
#include "support/BenchRatios.h"
#include "support/BenchStatistics.h"

#include <ZoGraphics/ZoGraphics.h>
#include <ZoGraphics/ZoMapHost.h>

#include <benchmark/benchmark.h>

#include <QFile>
#include <QGraphicsScene>
#include <QImage>
#include <QJsonDocument>
#include <QPainter>
#include <QPainterPath>
#include <memory>

namespace
{
constexpr std::uint64_t kSeed = 20261124;
constexpr double kStepDegrees = 0.001;
constexpr double kZoom = 8.0;
constexpr int kFrameWidth = 1024;
constexpr int kFrameHeight = 640;

// A map module with one polyline of count points of a random walk.
class LineScene
{
public:
    explicit LineScene(std::size_t count)
    {
        m_map.SetZoomAround(kZoom, 100.0, 30.0);
        m_graphics.Initialise("bench", &m_map);
        m_layer = m_graphics.CreateGraphicsLayer("lines");
        m_line = static_cast<CZoPolylineMapObject*>(m_graphics.CreatePolylineMapObject("line", m_layer));
        m_points = ZoBench::RandomWalk(count, kSeed, kStepDegrees);
        m_line->SetData(m_points);
    }
    ~LineScene() { m_graphics.Unintialise(); }

    CZoMapModule& Map() { return m_map; }
    CZoPolylineMapObject* Line() { return m_line; }
    const ZoBench::Path& Points() const { return m_points; }

private:
    CZoMapModule m_map;
    CZoGraphicsModule m_graphics;
    IZoGraphicsMapLayer* m_layer = nullptr;
    CZoPolylineMapObject* m_line = nullptr;
    ZoBench::Path m_points;
};

// A zoom across a level: every point is converted again and the line's
// geometry rebuilt.
void BM_PolylineZoomRebuild(benchmark::State& state)
{
    LineScene scene(static_cast<std::size_t>(state.range(0)));
    bool in = false;
    for (auto _ : state)
    {
        scene.Map().SetZoom(in ? kZoom : kZoom + 1.0);
        in = !in;
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BM_PolylineZoomRebuild)->Arg(1000000)->Unit(benchmark::kMillisecond)->Apply(ZoBench::ReportMinimum);

// Floor: the same points through the tile model into one QPainterPath.
void BM_Floor_ConvertAndPath(benchmark::State& state)
{
    const ZoBench::Path points = ZoBench::RandomWalk(static_cast<std::size_t>(state.range(0)), kSeed, kStepDegrees);
    CTileModel* model = ITileModel::GetTileModel(E_TILE_MODEL_WEB_MERCATOR, true);
    int level = static_cast<int>(kZoom);
    for (auto _ : state)
    {
        QPainterPath path;
        path.reserve(static_cast<int>(points.size()));
        for (std::size_t i = 0; i < points.size(); ++i)
        {
            int px = 0;
            int py = 0;
            model->ConvertGeoToPixel(&px, &py, level, points[i].x, points[i].y);
            if (i == 0)
                path.moveTo(px, py);
            else
                path.lineTo(px, py);
        }
        benchmark::DoNotOptimize(path.elementCount());
        level = level == static_cast<int>(kZoom) ? level + 1 : static_cast<int>(kZoom);
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BM_Floor_ConvertAndPath)->Arg(1000000)->Unit(benchmark::kMillisecond)->Apply(ZoBench::ReportMinimum);

// The scene's hover lookup at the pointer: on the line, then beside it.
void BM_PolylineHoverHit(benchmark::State& state)
{
    LineScene scene(static_cast<std::size_t>(state.range(0)));
    QGraphicsItem* item = scene.Line()->GetQtItem();
    QGraphicsScene* graphicsScene = scene.Map().GetScene();
    const QPolygonF& offsets = scene.Line()->GetItem()->Offsets().lines.front();
    std::vector<QPointF> probes;
    for (int i = 0; i < 64; ++i)
    {
        const QPointF on = offsets[(i * 15331) % offsets.size()] + item->pos();
        probes.push_back(i % 2 ? on : on + QPointF(0.5, 40.5));
    }
    graphicsScene->items(probes.front()); // the first query builds the index
    std::size_t next = 0;
    int hits = 0;
    for (auto _ : state)
        hits += graphicsScene->items(probes[next++ & 63]).size();
    state.counters["hit_share"] = static_cast<double>(hits) / static_cast<double>(state.iterations());
}
BENCHMARK(BM_PolylineHoverHit)->Arg(1000000)->Unit(benchmark::kMicrosecond)->Apply(ZoBench::ReportMinimum);

// The reference view's lookup of the object under the pointer: Qt asks each
// item with a pixel-sized rectangle, which the line answers from its segment
// grid (built by the first query) rather than by stroking all of it.
void BM_ViewHoverLongLine(benchmark::State& state)
{
    LineScene scene(static_cast<std::size_t>(state.range(0)));
    CZoMapView view(&scene.Map());
    view.resize(kFrameWidth, kFrameHeight);
    const QGraphicsItem* item = scene.Line()->GetQtItem();
    const QPolygonF& offsets = scene.Line()->GetItem()->Offsets().lines.front();
    std::vector<QPoint> probes;
    for (int i = 0; i < 64; ++i)
    {
        const QPoint on = view.mapFromScene(offsets[(i * 15331) % offsets.size()] + item->pos());
        probes.push_back(i % 2 ? on : on + QPoint(0, 40));
    }
    view.MapObjectIdAt(probes.front());
    std::size_t next = 0;
    int hits = 0;
    for (auto _ : state)
        hits += view.MapObjectIdAt(probes[next++ & 63]) >= 0;
    state.counters["hit_share"] = static_cast<double>(hits) / static_cast<double>(state.iterations());
}
BENCHMARK(BM_ViewHoverLongLine)->Arg(1000000)->Arg(10000000)->Unit(benchmark::kMicrosecond)->Apply(ZoBench::ReportMinimum);

// 100,000 points of a walk fitted into the frame.
QPolygonF FramedWalk(int count)
{
    const ZoBench::Path walk = ZoBench::RandomWalk(static_cast<std::size_t>(count), kSeed, 0.05);
    QPolygonF points;
    double x0 = 1e300, y0 = 1e300, x1 = -1e300, y1 = -1e300;
    for (const CVector3D& p : walk)
    {
        x0 = std::min(x0, p.x);
        x1 = std::max(x1, p.x);
        y0 = std::min(y0, p.y);
        y1 = std::max(y1, p.y);
    }
    for (const CVector3D& p : walk)
        points << QPointF((p.x - x0) / (x1 - x0) * (kFrameWidth - 20) + 10, (p.y - y0) / (y1 - y0) * (kFrameHeight - 20) + 10);
    return points;
}

void PaintLine(benchmark::State& state, const QPen& pen, bool ours)
{
    const QPolygonF points = FramedWalk(static_cast<int>(state.range(0)));
    QImage image(kFrameWidth, kFrameHeight, QImage::Format_ARGB32_Premultiplied);
    for (auto _ : state)
    {
        image.fill(Qt::white);
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        if (ours)
            ZoPointList::DrawPolyline(&painter, points, pen);
        else
        {
            painter.setPen(pen);
            painter.drawPolyline(points);
        }
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

// The polyline's own drawing with its 1.5 pixel pen.
void BM_PolylinePaintWidePen(benchmark::State& state) { PaintLine(state, QPen(QColor(200, 30, 60), 1.5), true); }
// Floor: Qt's one-pixel cosmetic pen over the same points.
void BM_Floor_PaintCosmeticPen(benchmark::State& state)
{
    QPen pen(QColor(200, 30, 60), 1.0);
    pen.setCosmetic(true);
    PaintLine(state, pen, false);
}
// For the record: Qt stroking the whole line with the wide pen.
void BM_QtPaintWidePen(benchmark::State& state) { PaintLine(state, QPen(QColor(200, 30, 60), 1.5), false); }
BENCHMARK(BM_PolylinePaintWidePen)->Arg(100000)->Unit(benchmark::kMillisecond)->Apply(ZoBench::ReportMinimum);
BENCHMARK(BM_Floor_PaintCosmeticPen)->Arg(100000)->Unit(benchmark::kMillisecond)->Apply(ZoBench::ReportMinimum);
BENCHMARK(BM_QtPaintWidePen)->Arg(100000)->Iterations(1)->Unit(benchmark::kMillisecond);

const QByteArray& CountriesJson()
{
    static const QByteArray json = [] {
        QFile file(ZoBench::SourceDataFile("countries-50m.geojson"));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }();
    return json;
}

// All countries loaded from GeoJSON as multi-polygons onto a layer of a
// world map at zoom 2, then, with frame set, the first frame of the world.
void LoadCountries(benchmark::State& state, bool frame)
{
    CZoMapModule map;
    map.SetZoomAround(2.0, 0.0, 0.0);
    CZoGraphicsModule graphics;
    graphics.Initialise("bench", &map);
    IZoGraphicsMapLayer* layer = graphics.CreateGraphicsLayer("countries");
    QImage image(kFrameWidth, kFrameWidth, QImage::Format_ARGB32_Premultiplied);
    const QRectF world(0, 0, 1024, 1024);
    std::size_t loaded = 0;
    for (auto _ : state)
    {
        loaded = ZoGeoJsonNS::LoadGeoJson(&graphics, layer, CountriesJson()).objects.size();
        if (frame)
            ZoBench::RenderFrame(map.GetScene(), world, image);
        state.PauseTiming();
        layer->DestroyAllMapObjects();
        state.ResumeTiming();
    }
    state.counters["countries"] = static_cast<double>(loaded);
    graphics.Unintialise();
}

void BM_CountriesGeoJsonFirstFrame(benchmark::State& state) { LoadCountries(state, true); }
BENCHMARK(BM_CountriesGeoJsonFirstFrame)->Unit(benchmark::kMillisecond)->Apply(ZoBench::ReportMinimum);
// The load alone, without the frame.
void BM_CountriesGeoJsonLoadOnly(benchmark::State& state) { LoadCountries(state, false); }
BENCHMARK(BM_CountriesGeoJsonLoadOnly)->Unit(benchmark::kMillisecond)->Apply(ZoBench::ReportMinimum);

// The share of the load that is Qt's JSON parser alone.
void BM_CountriesJsonParseOnly(benchmark::State& state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(QJsonDocument::fromJson(CountriesJson()).isObject());
}
BENCHMARK(BM_CountriesJsonParseOnly)->Unit(benchmark::kMillisecond)->Apply(ZoBench::ReportMinimum);

// Floor: the same rings, already read, through the tile model and filled
// with one painter.
void BM_Floor_PainterFillCountries(benchmark::State& state)
{
    const std::vector<ZoBench::Path>& rings = ZoBench::Countries50mRings();
    CTileModel* model = ITileModel::GetTileModel(E_TILE_MODEL_WEB_MERCATOR, true);
    QImage image(kFrameWidth, kFrameWidth, QImage::Format_ARGB32_Premultiplied);
    for (auto _ : state)
    {
        image.fill(Qt::white);
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(Qt::darkGray, 1.0));
        painter.setBrush(QColor(200, 120, 60, 110));
        for (const ZoBench::Path& ring : rings)
        {
            QPolygonF polygon;
            polygon.reserve(static_cast<int>(ring.size()));
            for (const CVector3D& p : ring)
            {
                int px = 0;
                int py = 0;
                model->ConvertGeoToPixel(&px, &py, 2, p.x, p.y);
                polygon << QPointF(px, py);
            }
            painter.drawPolygon(polygon, Qt::OddEvenFill);
        }
    }
}
BENCHMARK(BM_Floor_PainterFillCountries)->Unit(benchmark::kMillisecond)->Apply(ZoBench::ReportMinimum);

const bool kRatios[] = {
    ZoBench::AddRatio("rebuild of a 1,000,000-point polyline on a zoom / convert and path",
                      "BM_PolylineZoomRebuild/1000000", "BM_Floor_ConvertAndPath/1000000", 2.0),
    ZoBench::AddRatio("100,000-point polyline, 1.5 px pen / 1 px cosmetic pen", "BM_PolylinePaintWidePen/100000",
                      "BM_Floor_PaintCosmeticPen/100000", 2.0),
    ZoBench::AddRatio("241 countries: GeoJSON load and first frame / painter fill", "BM_CountriesGeoJsonFirstFrame",
                      "BM_Floor_PainterFillCountries", 2.0),
};
} // namespace
