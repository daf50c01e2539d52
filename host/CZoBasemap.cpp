#include "CZoBasemap.h"

#include "object/ZoAntimeridian.h"

#include <ZoGraphics/ZoLogSystem.h>
#include <ZoGraphics/ZoTileModel.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace
{
constexpr std::size_t kCachedProjections = 4;
// Rings that merely touch the antimeridian after unwrapping get no copy.
constexpr double kSeamTolerance = 1e-9;
const char* const kCoarseFile = "countries-110m.geojson";
const char* const kDetailedFile = "countries-50m.geojson";

std::pair<double, double> Range(const std::vector<QPointF>& ring, qreal (QPointF::*coordinate)() const)
{
    double low = std::numeric_limits<double>::infinity();
    double high = -low;
    for (const QPointF& point : ring)
    {
        low = std::min(low, (point.*coordinate)());
        high = std::max(high, (point.*coordinate)());
    }
    return {low, high};
}

// Longitudes of a ring made continuous, so that a ring crossing the
// antimeridian stays in one piece (it may reach past +-180). A ring around a
// pole (Antarctica) gains a net 360 degrees and is closed along the pole.
std::vector<QPointF> PrepareRing(const QJsonArray& coordinates)
{
    std::vector<QPointF> ring;
    ring.reserve(std::size_t(coordinates.size()) + 2);
    double latSum = 0.0;
    for (const QJsonValue& value : coordinates)
    {
        const QJsonArray pair = value.toArray();
        if (pair.size() < 2)
            continue;
        double lon = pair.at(0).toDouble(qQNaN());
        const double lat = pair.at(1).toDouble(qQNaN());
        if (!std::isfinite(lon) || !std::isfinite(lat))
            continue;
        if (!ring.empty())
            lon = ZoAntimeridian::Continue(ring.back().x(), lon);
        ring.emplace_back(lon, lat);
        latSum += lat;
    }
    // Islands that the source's quantisation collapsed to a point or a line.
    const auto [south, north] = Range(ring, &QPointF::y);
    const auto [west, east] = Range(ring, &QPointF::x);
    if (ring.size() < 3 || south == north || west == east)
        return {};
    const double first = ring.front().x();
    const double last = ring.back().x();
    if (ZoAntimeridian::GoesRoundPole(first, last))
    {
        const double pole = latSum < 0.0 ? -90.0 : 90.0;
        ring.emplace_back(last, pole);
        ring.emplace_back(first, pole);
    }
    return ring;
}

QPointF ProjectPoint(const CTileModel* model, int level, const EXTENT& extent, double worldWidth, const QPointF& geo)
{
    // Both tile models are periodic in longitude: a point past the
    // antimeridian lies one world width beside its wrapped twin.
    const double lon = ZoAntimeridian::Wrap(geo.x());
    const double turns = std::round((geo.x() - lon) / 360.0);
    const double lat = std::clamp(geo.y(), extent.ymin, extent.ymax);
    double x = 0.0;
    double y = 0.0;
    model->ConvertGeoToPixel(&x, &y, level, std::clamp(lon, extent.xmin, extent.xmax), lat);
    return QPointF(x + turns * worldWidth, y);
}
} // namespace

const QColor CZoBasemap::kOutsideColour(214, 216, 218);
const QColor CZoBasemap::kOceanColour(170, 211, 223);
const QColor CZoBasemap::kLandColour(242, 239, 233);
const QColor CZoBasemap::kBorderColour(140, 128, 118);

CZoBasemap::CZoBasemap(const QString& dataDir) : m_dataDir(dataDir) {}

QString CZoBasemap::DefaultDataDir()
{
    QStringList candidates;
    const QString fromEnvironment = qEnvironmentVariable("ZOGRAPHICS_DATA_DIR");
    if (!fromEnvironment.isEmpty())
        candidates << fromEnvironment;
    if (QCoreApplication::instance())
        candidates << QCoreApplication::applicationDirPath() + QStringLiteral("/../share/ZoGraphics/data");
#ifdef ZO_HOST_INSTALL_DATA_DIR
    candidates << QStringLiteral(ZO_HOST_INSTALL_DATA_DIR);
#endif
    for (const QString& dir : candidates)
    {
        if (QFileInfo::exists(dir + QLatin1Char('/') + QLatin1String(kCoarseFile)))
            return QDir::cleanPath(dir);
    }
    return candidates.isEmpty() ? QString() : QDir::cleanPath(candidates.last());
}

QString CZoBasemap::FileNameForLevel(int level)
{
    return QLatin1String(level >= kDetailedFromLevel ? kDetailedFile : kCoarseFile);
}

void CZoBasemap::SetDataDir(const QString& dir)
{
    if (dir == m_dataDir)
        return;
    m_dataDir = dir;
    m_polygons.clear();
    m_projections.clear();
}

QString CZoBasemap::GetDataDir() const
{
    return m_dataDir;
}

const std::vector<CZoBasemap::Shape>& CZoBasemap::GetShapes(const CTileModel* model, int level)
{
    const auto cached = std::find_if(m_projections.begin(), m_projections.end(), [&](const Projection& projection) {
        return projection.model == model && projection.level == level;
    });
    if (cached != m_projections.end())
    {
        m_projections.splice(m_projections.begin(), m_projections, cached);
        return m_projections.front().shapes;
    }
    std::vector<Shape> shapes;
    if (model)
        shapes = Project(Polygons(FileNameForLevel(level)), model, level);
    m_projections.push_front(Projection{model, level, std::move(shapes)});
    if (m_projections.size() > kCachedProjections)
        m_projections.pop_back();
    return m_projections.front().shapes;
}

void CZoBasemap::Draw(QPainter* painter, const QRectF& exposed, const CTileModel* model, int level)
{
    if (!painter)
        return;
    painter->fillRect(exposed, kOutsideColour);
    if (!model)
        return;
    const QRectF world(0.0, 0.0, model->GetWorldPixelWidth(level), model->GetWorldPixelHeight(level));
    const QRectF visible = world.intersected(exposed);
    if (visible.isEmpty())
        return;

    painter->save();
    painter->setClipRect(visible);
    painter->fillRect(visible, kOceanColour);
    QPen border(kBorderColour, 0.7);
    border.setCosmetic(true);
    border.setJoinStyle(Qt::RoundJoin);
    painter->setPen(border);
    painter->setBrush(kLandColour);
    painter->setRenderHint(QPainter::Antialiasing, true);
    for (const Shape& shape : GetShapes(model, level))
    {
        if (shape.bounds.intersects(visible))
            painter->drawPath(shape.path);
    }
    painter->restore();
}

const std::vector<CZoBasemap::GeoPolygon>& CZoBasemap::Polygons(const QString& fileName)
{
    auto found = m_polygons.find(fileName);
    if (found == m_polygons.end())
        found = m_polygons.emplace(fileName, Load(m_dataDir + QLatin1Char('/') + fileName)).first;
    return found->second;
}

std::vector<CZoBasemap::GeoPolygon> CZoBasemap::Load(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
    {
        ZoLogWarn() << "[CZoBasemap::Load] 打开文件失败: " << path;
        return {};
    }
    QJsonParseError error{};
    const QJsonDocument document = QJsonDocument::fromJson(file.readAll(), &error);
    if (error.error != QJsonParseError::NoError || !document.isObject())
    {
        ZoLogWarn() << "[CZoBasemap::Load] GeoJSON解析失败: " << path;
        return {};
    }

    std::vector<GeoPolygon> polygons;
    const auto addPolygon = [&polygons](const QJsonArray& rings) {
        GeoPolygon polygon;
        for (const QJsonValue& ringValue : rings)
        {
            std::vector<QPointF> ring = PrepareRing(ringValue.toArray());
            if (ring.empty())
                continue;
            const auto [west, east] = Range(ring, &QPointF::x);
            polygon.minLon = polygon.rings.empty() ? west : std::min(polygon.minLon, west);
            polygon.maxLon = polygon.rings.empty() ? east : std::max(polygon.maxLon, east);
            polygon.rings.push_back(std::move(ring));
        }
        if (!polygon.rings.empty())
            polygons.push_back(std::move(polygon));
    };

    for (const QJsonValue& featureValue : document.object().value(QStringLiteral("features")).toArray())
    {
        const QJsonObject geometry = featureValue.toObject().value(QStringLiteral("geometry")).toObject();
        const QString type = geometry.value(QStringLiteral("type")).toString();
        const QJsonArray coordinates = geometry.value(QStringLiteral("coordinates")).toArray();
        if (type == QLatin1String("Polygon"))
            addPolygon(coordinates);
        else if (type == QLatin1String("MultiPolygon"))
        {
            for (const QJsonValue& polygonValue : coordinates)
                addPolygon(polygonValue.toArray());
        }
    }
    return polygons;
}

std::vector<CZoBasemap::Shape> CZoBasemap::Project(const std::vector<GeoPolygon>& polygons, const CTileModel* model,
                                                   int level)
{
    const EXTENT extent = model->GetGeoExtent();
    const double worldWidth = model->GetWorldPixelWidth(level);
    std::vector<Shape> shapes;
    shapes.reserve(polygons.size());
    for (const GeoPolygon& polygon : polygons)
    {
        QPainterPath path;
        path.setFillRule(Qt::OddEvenFill);
        for (const Ring& ring : polygon.rings)
        {
            path.moveTo(ProjectPoint(model, level, extent, worldWidth, ring.front()));
            for (std::size_t i = 1; i < ring.size(); ++i)
                path.lineTo(ProjectPoint(model, level, extent, worldWidth, ring[i]));
            path.closeSubpath();
        }
        // A polygon reaching past the antimeridian shows again on the far side.
        for (int turn = -1; turn <= 1; ++turn)
        {
            const double west = polygon.minLon + 360.0 * turn;
            const double east = polygon.maxLon + 360.0 * turn;
            if (east <= -180.0 + kSeamTolerance || west >= 180.0 - kSeamTolerance)
                continue;
            QPainterPath copy = turn == 0 ? path : path.translated(turn * worldWidth, 0.0);
            const QRectF bounds = copy.boundingRect();
            shapes.push_back(Shape{bounds, std::move(copy)});
        }
    }
    return shapes;
}
