#include "support/BenchData.h"

#include <ZoGraphics/CZoMapModule.h>

#include <QFile>
#include <QGraphicsScene>
#include <QImage>
#include <QPainter>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <cmath>
#include <random>

namespace ZoBench
{
namespace
{
void AppendRing(const QJsonArray& ring, std::vector<Path>& rings)
{
    Path path;
    path.reserve(ring.size());
    for (const QJsonValue& position : ring)
    {
        const QJsonArray xy = position.toArray();
        path.emplace_back(xy.at(0).toDouble(), xy.at(1).toDouble(), 0.0);
    }
    rings.push_back(std::move(path));
}

void AppendPolygon(const QJsonArray& polygon, std::vector<Path>& rings)
{
    for (const QJsonValue& ring : polygon)
        AppendRing(ring.toArray(), rings);
}
} // namespace

QRectF FrameAround(CZoMapModule& map, double lon, double lat, const QSize& size)
{
    QPointF centre;
    map.GeoToScenePoint(lon, lat, &centre);
    return QRectF(centre - QPointF(size.width() / 2.0, size.height() / 2.0), QSizeF(size));
}

void RenderFrame(QGraphicsScene* scene, const QRectF& source, QImage& image)
{
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    scene->render(&painter, QRectF(image.rect()), source);
}

QString SourceDataFile(const char* name) { return QStringLiteral(ZO_SOURCE_DATA_DIR "/") + QString::fromUtf8(name); }

std::vector<Path> LoadGeoJsonRings(const QString& path)
{
    std::vector<Path> rings;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return rings;
    const QJsonArray features = QJsonDocument::fromJson(file.readAll()).object().value("features").toArray();
    for (const QJsonValue& feature : features)
    {
        const QJsonObject geometry = feature.toObject().value("geometry").toObject();
        const QString type = geometry.value("type").toString();
        const QJsonArray coordinates = geometry.value("coordinates").toArray();
        if (type == QLatin1String("Polygon"))
            AppendPolygon(coordinates, rings);
        else if (type == QLatin1String("MultiPolygon"))
        {
            for (const QJsonValue& polygon : coordinates)
                AppendPolygon(polygon.toArray(), rings);
        }
    }
    return rings;
}

const std::vector<Path>& Countries50mRings()
{
    static const std::vector<Path> rings = LoadGeoJsonRings(SourceDataFile("countries-50m.geojson"));
    return rings;
}

Path RandomWalk(std::size_t count, std::uint64_t seed, double stepSigma)
{
    std::mt19937_64 rng(seed);
    std::normal_distribution<double> step(0.0, stepSigma);
    Path path;
    path.reserve(count);
    CVector3D p(100.0, 30.0, 0.0);
    for (std::size_t i = 0; i < count; ++i)
    {
        path.push_back(p);
        p.x += step(rng);
        p.y += step(rng);
    }
    return path;
}

QPolygonF CountryOutlinePixels(int count, double pixelsPerDegree)
{
    QPolygonF polygon;
    const std::vector<Path>& rings = Countries50mRings();
    if (PointCount(rings) == 0 || count < 2)
        return polygon;
    polygon.reserve(count);
    while (polygon.size() + 1 < count)
    {
        for (const Path& ring : rings)
        {
            for (const CVector3D& p : ring)
            {
                if (polygon.size() + 1 < count)
                    polygon << QPointF(p.x * pixelsPerDegree, -p.y * pixelsPerDegree);
            }
        }
    }
    polygon << polygon.first();
    return polygon;
}

QPolygonF DenseCircle(int count, double radius)
{
    QPolygonF polygon;
    polygon.reserve(count);
    for (int i = 0; i + 1 < count; ++i)
    {
        const double a = 2.0 * M_PI * i / (count - 1);
        polygon << QPointF(radius * std::cos(a), radius * std::sin(a));
    }
    polygon << polygon.first();
    return polygon;
}

QPolygonF JitteryRing(int count, double radius, std::uint64_t seed)
{
    std::mt19937_64 rng(seed);
    std::uniform_real_distribution<double> jitter(-0.5, 0.5);
    QPolygonF polygon = DenseCircle(count, radius);
    for (int i = 1; i + 1 < polygon.size(); ++i)
        polygon[i] += QPointF(jitter(rng), jitter(rng));
    return polygon;
}

std::size_t PointCount(const std::vector<Path>& paths)
{
    std::size_t count = 0;
    for (const Path& path : paths)
        count += path.size();
    return count;
}
} // namespace ZoBench
