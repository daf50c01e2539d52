#include "host/CZoBasemap.h"

#include <ZoGraphics/ZoTileModel.h>

#include "support/LogCapture.h"

#include <QFile>
#include <QImage>
#include <QPainter>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <tuple>

namespace
{
// The whole world at a level, drawn into an image of world pixels.
QImage DrawWorld(CZoBasemap& basemap, const CTileModel* model, int level)
{
    const QSize size(int(model->GetWorldPixelWidth(level)), int(model->GetWorldPixelHeight(level)));
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::black);
    QPainter painter(&image);
    basemap.Draw(&painter, QRectF(QPointF(), size), model, level);
    return image;
}

QColor ColourAt(const QImage& image, const CTileModel* model, int level, double lon, double lat)
{
    double x = 0.0, y = 0.0;
    EXPECT_TRUE(model->ConvertGeoToPixel(&x, &y, level, lon, lat));
    return image.pixelColor(int(x), int(y));
}

// Open water along the rows where an antimeridian ring (Russia, Fiji) or the
// polar ring would smear land across the map if it were drawn unwrapped.
const std::tuple<const char*, double, double, bool> kProbes[] = {
    {"Congo basin", 20.0, 0.0, true},        {"Mid Atlantic", -30.0, 0.0, false},
    {"Chukotka", 175.0, 66.0, true},         {"Chukotka west of 180", -176.0, 67.0, true},
    {"Bering Sea", -175.0, 55.0, false},     {"North Atlantic", -30.0, 55.0, false},
    {"East of Fiji", -160.0, -17.0, false},           {"South Pacific", -150.0, -16.5, false},
    {"East Antarctica", 60.0, -78.0, true},  {"Ross Sea", -170.0, -75.0, false},
    {"Marie Byrd Land", -110.0, -78.0, true},   {"Southern Ocean", 0.0, -55.0, false},
};
} // namespace

TEST(MapHostBasemap, LandAndSeaWhereTheyBelongAndDetailGrowsFromLevelFour)
{
    CZoBasemap basemap(QStringLiteral(ZO_SOURCE_DATA_DIR));
    const std::size_t coarse = basemap.GetShapes(ITileModel::GetTileModel(1, true), 3).size();
    EXPECT_EQ(coarse, 287u); // every outline, and again beyond the antimeridian where it reaches past it
    EXPECT_GT(basemap.GetShapes(ITileModel::GetTileModel(1, true), 4).size(), 2 * coarse);
    for (int kind : {1, 2})
    {
        const CTileModel* model = ITileModel::GetTileModel(kind, true);
        for (int level : {2, 4})
        {
            const QImage image = DrawWorld(basemap, model, level);
            for (const auto& [where, lon, lat, land] : kProbes)
                EXPECT_EQ(ColourAt(image, model, level, lon, lat), land ? CZoBasemap::kLandColour : CZoBasemap::kOceanColour)
                    << where << ", kind " << kind << ", level " << level;
        }
    }
}

TEST(MapHostBasemap, MissingOrMalformedDataDrawsTheSeaAndLogsOnce)
{
    LogCapture log;
    CZoBasemap basemap(QStringLiteral("/nonexistent/zo-data"));
    const CTileModel* model = ITileModel::GetTileModel(1, true);
    const QImage image = DrawWorld(basemap, model, 1);
    DrawWorld(basemap, model, 2);
    EXPECT_EQ(image.pixelColor(256, 256), CZoBasemap::kOceanColour);
    EXPECT_EQ(log.Messages(), std::vector<std::string>{
                                  "[CZoBasemap::Load] 打开文件失败: /nonexistent/zo-data/countries-110m.geojson"});
    basemap.SetDataDir(QStringLiteral(ZO_SOURCE_DATA_DIR)); // the countries come in
    EXPECT_FALSE(basemap.GetShapes(model, 2).empty());

    log.Clear();
    basemap.SetDataDir(QStringLiteral(ZO_TEST_DATA_DIR "/host-malformed"));
    EXPECT_TRUE(basemap.GetShapes(model, 1).empty());
    EXPECT_TRUE(basemap.GetShapes(nullptr, 1).empty());
    ASSERT_EQ(log.Messages().size(), 1u);
    EXPECT_EQ(log.Messages()[0].rfind("[CZoBasemap::Load] GeoJSON解析失败: ", 0), 0u);
    QImage outside(8, 8, QImage::Format_RGB32);
    QPainter painter(&outside);
    basemap.Draw(&painter, QRectF(0, 0, 8, 8), nullptr, 3);
    basemap.Draw(nullptr, QRectF(0, 0, 8, 8), nullptr, 3);
    painter.end();
    EXPECT_EQ(outside.pixelColor(4, 4), CZoBasemap::kOutsideColour);
}

// Islands the source's quantisation collapsed to a line or to two points
// draw nothing; a real ring beside them still does.
TEST(MapHostBasemap, RingsCollapsedToALineAreDropped)
{
    QTemporaryDir dir;
    QFile file(dir.filePath(QStringLiteral("countries-110m.geojson")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(R"({"type": "FeatureCollection", "features": [
        {"geometry": {"type": "Polygon", "coordinates": [[[10, 10], [20, 10], [30, 10], [10, 10]]]}},
        {"geometry": {"type": "Polygon", "coordinates": [[[40, 10], [40, 20], [40, 30], [40, 10]]]}},
        {"geometry": {"type": "Polygon", "coordinates": [[[50, 10], [60, 20]]]}},
        {"geometry": {"type": "MultiPolygon", "coordinates": [[[[0, 0], [5, 0], [5, 5], [0, 0]]]]}}]})");
    file.close();
    CZoBasemap basemap(dir.path());
    const std::vector<CZoBasemap::Shape>& shapes = basemap.GetShapes(ITileModel::GetTileModel(1, true), 1);
    ASSERT_EQ(shapes.size(), 1u);
    EXPECT_GT(shapes[0].bounds.width(), 0.0);
}
