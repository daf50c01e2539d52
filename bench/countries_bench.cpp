// The world's countries drawn frame after frame, as a map viewer redraws them
// while the user looks around: the world view at level 2 and Europe at level
// 5, 1280 x 720. The floor fills the same rings, unwrapped across the
// antimeridian and reduced to one point per device pixel once, with one
// painter directly: what any engine must at least spend on the pixels.
#include "object/ZoAntimeridian.h"
#include "support/BenchData.h"
#include "support/BenchRatios.h"
#include "support/BenchStatistics.h"

#include <ZoGraphics/ZoGeoJson.h>
#include <ZoGraphics/ZoGraphics.h>
#include <ZoGraphics/ZoMapHost.h>

#include <benchmark/benchmark.h>

#include <QGraphicsScene>
#include <QImage>
#include <QPainter>
#include <cmath>

namespace
{
constexpr int kFrameWidth = 1280;
constexpr int kFrameHeight = 720;

struct SView
{
    double zoom;
    double lon;
    double lat;
};
// state.range(0) picks the view.
constexpr SView kViews[] = {{2.0, 0.0, 20.0}, {5.0, 15.0, 50.0}};

QRectF FrameAround(CZoMapModule& map, const SView& view)
{
    return ZoBench::FrameAround(map, view.lon, view.lat, QSize(kFrameWidth, kFrameHeight));
}

void BM_CountriesFrame(benchmark::State& state)
{
    const SView& view = kViews[state.range(0)];
    CZoMapModule map;
    map.SetZoomAround(view.zoom, view.lon, view.lat);
    CZoGraphicsModule graphics;
    graphics.Initialise("bench", &map);
    IZoGraphicsMapLayer* layer = graphics.CreateGraphicsLayer("countries");
    ZoGeoJsonNS::LoadGeoJsonFile(&graphics, layer, ZoBench::SourceDataFile("countries-50m.geojson").toStdString());
    const QRectF source = FrameAround(map, view);
    QImage image(kFrameWidth, kFrameHeight, QImage::Format_ARGB32_Premultiplied);
    // The first frame builds what later frames reuse.
    ZoBench::RenderFrame(map.GetScene(), source, image);
    for (auto _ : state)
        ZoBench::RenderFrame(map.GetScene(), source, image);
    graphics.Unintialise();
}
BENCHMARK(BM_CountriesFrame)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond)->Apply(ZoBench::ReportMinimum);

void BM_Floor_CountriesFrame(benchmark::State& state)
{
    const SView& view = kViews[state.range(0)];
    CZoMapModule map;
    map.SetZoomAround(view.zoom, view.lon, view.lat);
    const QRectF source = FrameAround(map, view);
    int west = 0;
    int east = 0;
    int y = 0;
    map.ConvertSceneToPixel(&west, &y, -180.0, 0.0);
    map.ConvertSceneToPixel(&east, &y, 180.0, 0.0);
    const double worldWidth = east - west;
    std::vector<QPolygonF> rings;
    for (ZoBench::Path ring : ZoBench::Countries50mRings())
    {
        ZoAntimeridian::Unwrap(
            ring.size(), [&](std::size_t i) { return ring[i].x; }, [&](std::size_t i, double lon) { ring[i].x = lon; });
        QPolygonF polygon;
        for (const CVector3D& p : ring)
        {
            const double wrapped = ZoAntimeridian::Wrap(p.x);
            int px = 0;
            int py = 0;
            map.ConvertSceneToPixel(&px, &py, wrapped, p.y);
            const QPointF pixel(px + std::round((p.x - wrapped) / 360.0) * worldWidth - source.left(),
                                py - source.top());
            if (polygon.isEmpty() || polygon.last() != pixel)
                polygon << pixel;
        }
        if (polygon.boundingRect().intersects(QRectF(0, 0, kFrameWidth, kFrameHeight)))
            rings.push_back(std::move(polygon));
    }
    QImage image(kFrameWidth, kFrameHeight, QImage::Format_ARGB32_Premultiplied);
    for (auto _ : state)
    {
        image.fill(Qt::white);
        QPainter p(&image);
        p.setRenderHint(QPainter::Antialiasing);
        p.setPen(QPen(Qt::darkGray, 1.0));
        p.setBrush(QColor(200, 120, 60, 110));
        for (const QPolygonF& polygon : rings)
            p.drawPolygon(polygon, Qt::OddEvenFill);
    }
    state.counters["rings"] = static_cast<double>(rings.size());
}
BENCHMARK(BM_Floor_CountriesFrame)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond)->Apply(ZoBench::ReportMinimum);

const bool kCountryRatios[] = {
    ZoBench::AddRatio("countries 50m, world frame at level 2 / painter fill of reduced rings", "BM_CountriesFrame/0",
                      "BM_Floor_CountriesFrame/0", 1.2),
    ZoBench::AddRatio("countries 50m, Europe frame at level 5 / painter fill of reduced rings", "BM_CountriesFrame/1",
                      "BM_Floor_CountriesFrame/1", 1.2),
};
} // namespace
