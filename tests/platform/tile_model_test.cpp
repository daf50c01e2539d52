#include <ZoGraphics/ZoTileModel.h>
#include <gtest/gtest.h>
#include <cmath>
#include <tuple>
#include <utility>
#include <QString>

namespace
{
constexpr double kMercatorMaxLat = 85.05112877980659;

CTileModel* Mercator() { return ITileModel::GetTileModel(E_TILE_MODEL_WEB_MERCATOR); }
CTileModel* Geodetic() { return ITileModel::GetTileModel(E_TILE_MODEL_GEODETIC); }
std::string Rounded(const EXTENT& e)
{
    return QString::asprintf("%.9f %.9f %.9f %.9f", e.xmin, e.ymin, e.xmax, e.ymax).toStdString();
}
}

// The figures hosts lay their tiles out by, and the tiles of points.
TEST(TileModelTiles, WellKnownFiguresTilesOfPointsAndTileExtents)
{
    EXPECT_EQ(std::tuple(Mercator()->GetKind(), Mercator()->GetEPSG(), Mercator()->GetTileSize(), Mercator()->GetMinLevel(),
                         Mercator()->GetTileCountY(3), Geodetic()->GetEPSG(), Geodetic()->GetTileCountX(4),
                         Geodetic()->GetTileCountY(0), Geodetic()->GetResolution(0)),
              std::tuple(E_TILE_MODEL_WEB_MERCATOR, 3857, 256, 0, 8, 4326, 32, 1, 0.703125));
    EXPECT_NEAR(Mercator()->GetResolution(10), 152.87405657035, 1e-9);
    int col = -1, row = -1;
    ASSERT_TRUE(Mercator()->GetTileOfGeo(&col, &row, 1, 180.0, -90.0)); // edges belong to the last tile
    EXPECT_EQ(std::make_pair(col, row), std::make_pair(1, 1));
    ASSERT_TRUE(Geodetic()->GetTileOfGeo(&col, &row, 0, 10.0, 10.0));
    EXPECT_EQ(std::make_pair(col, row), std::make_pair(1, 0));
    EXPECT_FALSE(Geodetic()->GetTileOfGeo(&col, &row, 0, 0.0, -95.0));
    EXPECT_FALSE(Geodetic()->GetTileOfGeo(nullptr, &row, 0, 0.0, 0.0));
    EXPECT_EQ(Rounded(Mercator()->GetTileGeoExtent(0, 0, 0)), Rounded({-180.0, -kMercatorMaxLat, 180.0, kMercatorMaxLat}));
    EXPECT_EQ(Rounded(Mercator()->GetTileGeoExtent(1, 0, 1)), Rounded({0.0, 0.0, 180.0, kMercatorMaxLat}));
    EXPECT_EQ(Rounded(Geodetic()->GetTileGeoExtent(0, 1, 1)), "-180.000000000 -90.000000000 -90.000000000 0.000000000");
    EXPECT_EQ(std::pair(Geodetic()->GetTileGeoExtent(2, 0, 0), Geodetic()->GetTileGeoExtent(0, 0, 22)), std::pair(EXTENT{}, EXTENT{}));
}

TEST(TileModelConversion, KnownPixelsOfBothSchemes)
{
    struct Case
    {
        CTileModel* model;
        int level;
        double lon, lat;
        int x, y;
    };
    const Case cases[] = {
        {Mercator(), 0, 180.0, 0.0, 256, 128}, {Mercator(), 0, -180.0, kMercatorMaxLat, 0, 0},
        // Latitudes beyond the square world are clamped to its edges.
        {Mercator(), 0, 0.0, 90.0, 128, 0}, {Mercator(), 0, 0.0, -89.0, 128, 256},
        // y = (1 - asinh(1) / pi) / 2 * 256 = 92.09 at 45 degrees north.
        {Mercator(), 0, 0.0, 45.0, 128, 92}, {Mercator(), 21, 0.0, 0.0, 1 << 28, 1 << 28},
        {Geodetic(), 0, -180.0, 90.0, 0, 0}, {Geodetic(), 21, 180.0, -90.0, 512 << 21, 256 << 21},
        {Geodetic(), 0, 0.7, 0.0, 257, 128}, // rounded to the nearest pixel, not truncated
    };
    for (const Case& c : cases)
    {
        int px = -1, py = -1;
        ASSERT_TRUE(c.model->ConvertGeoToPixel(&px, &py, c.level, c.lon, c.lat)) << c.lon << ", " << c.lat;
        EXPECT_EQ(std::make_pair(px, py), std::make_pair(c.x, c.y)) << c.lon << ", " << c.lat << " at " << c.level;
    }
    int px = -1, py = -1; // levels outside 0 to 21
    EXPECT_FALSE(Mercator()->ConvertGeoToPixel(&px, &py, 22, 0.0, 0.0) || Geodetic()->ConvertGeoToPixel(&px, &py, -1, 0.0, 0.0));
    double lon = 0.0, lat = 0.0;
    ASSERT_TRUE(Mercator()->ConvertPixelToGeo(&lon, &lat, 0, 128.0, 92.09));
    EXPECT_NEAR(lat, 45.0, 0.01);
    ASSERT_TRUE(Geodetic()->ConvertGeoToPixel(&lon, &lat, 0, 0.7, -0.35));
    EXPECT_DOUBLE_EQ(lon, 256.0 + 0.7 / 0.703125);
    EXPECT_DOUBLE_EQ(lat, 128.0 + 0.35 / 0.703125);
}
