#include "PointListDemo.h"

#include "DemoSupport.h"

#include <ZoGraphics/ZoGraphics.h>

#include <QColor>
#include <cmath>
#include <geodesic.h>

namespace
{
// Below the capitals' layer (z 400), the countries lowest.
constexpr int kCountriesZ = 300;
constexpr int kRouteZ = 350;
// The capital dots of the viewer show from level 2; the multi-dot stands in
// for them further out.
constexpr int kCapitalDotsMaxLevel = 1;
constexpr int kRoutePoints = 48;

// Neighbouring countries should not share a colour: step the hue by the
// golden angle.
QColor CountryColour(int index)
{
    return QColor::fromHsv(static_cast<int>(index * 137.508) % 360, 150, 235, 110);
}

} // namespace

void AddCountries(IZoGraphicsModule& graphics, const QString& dataDir)
{
    IZoGraphicsMapLayer* layer = graphics.CreateGraphicsLayer("Countries");
    if (!layer)
        return;
    layer->SetZValue(kCountriesZ);
    const ZoGeoJsonNS::SZoGeoJsonLoadResult countries = ZoGeoJsonNS::LoadGeoJsonFile(
        &graphics, layer, (dataDir + QStringLiteral("/countries-50m.geojson")).toStdString());
    int index = 0;
    for (IZoGraphicsMapObject* object : countries.objects)
    {
        auto* country = dynamic_cast<IZoMultiPolygonMapObject*>(object);
        if (!country)
            continue;
        country->SetBrushColor(CountryColour(index++));
        country->SetPenColor(QColor(60, 60, 60, 160));
        country->SetPenWidth(0.6f);
        country->SetProperty("name_en", country->GetProperty("name"));
    }
}

namespace
{
// Beijing to New York along the WGS 84 geodesic. The map does not wrap
// around, so the route is cut where it crosses the antimeridian: two
// polylines, the arrow on the one that reaches New York.
std::vector<std::vector<CVector3D>> GreatCircleRoute()
{
    const double fromLon = 116.4074, fromLat = 39.9042, toLon = -74.0060, toLat = 40.7128;
    geod_geodesic wgs84;
    geod_init(&wgs84, 6378137.0, 1.0 / 298.257223563);
    geod_geodesicline line;
    geod_inverseline(&line, &wgs84, fromLat, fromLon, toLat, toLon, 0);
    std::vector<std::vector<CVector3D>> pieces(1);
    for (int i = 0; i <= kRoutePoints; ++i)
    {
        double lat = 0.0;
        double lon = 0.0;
        geod_position(&line, line.s13 * i / kRoutePoints, &lat, &lon, nullptr);
        std::vector<CVector3D>& piece = pieces.back();
        if (!piece.empty() && std::fabs(lon - piece.back().x) > 180.0)
        {
            // Where the segment meets the antimeridian, on both sides.
            const CVector3D last = piece.back();
            const double edge = last.x > 0.0 ? 180.0 : -180.0;
            const double unwrapped = lon + (edge > 0.0 ? 360.0 : -360.0);
            const double t = (edge - last.x) / (unwrapped - last.x);
            const double edgeLat = last.y + t * (lat - last.y);
            piece.emplace_back(edge, edgeLat, 0.0);
            pieces.push_back({CVector3D(-edge, edgeLat, 0.0)});
        }
        pieces.back().emplace_back(lon, lat, 0.0);
    }
    return pieces;
}

} // namespace

void AddRoute(IZoGraphicsModule& graphics)
{
    IZoGraphicsMapLayer* layer = graphics.CreateGraphicsLayer("Route");
    if (!layer)
        return;
    layer->SetZValue(kRouteZ);
    const std::vector<std::vector<CVector3D>> pieces = GreatCircleRoute();
    for (std::size_t i = 0; i < pieces.size(); ++i)
    {
        const bool last = i + 1 == pieces.size();
        const std::string name = last ? ToGB18030(QStringLiteral("北京—纽约")) : std::string();
        IZoPolylineMapObject* route = graphics.CreatePolylineMapObject(name, layer);
        if (!route)
            return;
        route->SetData(pieces[i]);
        route->SetPenColor(QColor(200, 30, 60));
        route->SetPenWidth(2.5f);
        route->SetArrowVisible(last);
        route->SetNameColor(QColor(150, 20, 40));
        route->SetNameOutlineColor(Qt::white);
        route->SetLabelPosition(E_LABEL_MIDDLE_SEGMENT);
        route->SetNameVisible(true);
        route->SetInteractive(true);
        route->SetProperty("name_en", "Beijing - New York");
    }
}

void AddCapitalsMultiDot(IZoGraphicsModule& graphics, const QString& dataDir)
{
    const std::vector<SCapital> capitals = ReadCapitals(dataDir);
    if (capitals.empty())
        return;
    IZoGraphicsMapLayer* layer = graphics.CreateGraphicsLayer("Capital dots");
    if (!layer)
        return;
    layer->SetMaxLodLevel(kCapitalDotsMaxLevel);
    std::vector<CVector3D> points;
    for (const SCapital& capital : capitals)
        points.emplace_back(capital.lon, capital.lat, 0.0);
    IZoMultiDotMapObject* dots = graphics.CreateMultiDotMapObject("Capitals", layer);
    if (!dots)
        return;
    dots->SetData(points);
    dots->SetPenColor(QColor(120, 30, 20));
    dots->SetPenWidth(1.0f);
    dots->SetBrushColor(QColor(230, 90, 40, 230));
    dots->SetDotSize(2.5);
}

void AddPointListDemo(IZoGraphicsModule& graphics, const QString& dataDir)
{
    AddCountries(graphics, dataDir);
    AddRoute(graphics);
    AddCapitalsMultiDot(graphics, dataDir);
}
