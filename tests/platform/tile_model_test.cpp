#include <ZoGraphics/ZoTileModel.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <utility>

namespace
{
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInf = std::numeric_limits<double>::infinity();
constexpr double kMercatorMaxLat = 85.05112877980659;

CTileModel* Mercator()
{
    return ITileModel::GetTileModel(E_TILE_MODEL_WEB_MERCATOR);
}

CTileModel* Geodetic()
{
    return ITileModel::GetTileModel(E_TILE_MODEL_GEODETIC);
}

void ExpectExtent(const EXTENT& actual, const EXTENT& expected)
{
    EXPECT_NEAR(actual.xmin, expected.xmin, 1e-9);
    EXPECT_NEAR(actual.ymin, expected.ymin, 1e-9);
    EXPECT_NEAR(actual.xmax, expected.xmax, 1e-9);
    EXPECT_NEAR(actual.ymax, expected.ymax, 1e-9);
}
}

// The figures hosts lay their tiles out by, and the tiles of points.
TEST(TileModelTiles, WellKnownFiguresTilesOfPointsAndTileExtents)
{
    EXPECT_EQ(Mercator()->GetKind(), E_TILE_MODEL_WEB_MERCATOR);
    EXPECT_EQ(Mercator()->GetEPSG(), 3857);
    EXPECT_EQ(Mercator()->GetTileSize(), 256);
    EXPECT_EQ(Mercator()->GetMinLevel(), 0);
    EXPECT_EQ(Mercator()->GetTileCountY(3), 8);
    EXPECT_NEAR(Mercator()->GetResolution(10), 152.87405657035, 1e-9);
    EXPECT_EQ(Geodetic()->GetEPSG(), 4326);
    EXPECT_EQ(Geodetic()->GetTileCountX(4), 32);
    EXPECT_EQ(Geodetic()->GetTileCountY(0), 1);
    EXPECT_DOUBLE_EQ(Geodetic()->GetResolution(0), 0.703125);

    int col = -1;
    int row = -1;
    ASSERT_TRUE(Mercator()->GetTileOfGeo(&col, &row, 1, 180.0, -90.0)); // edges belong to the last tile
    EXPECT_EQ(std::make_pair(col, row), std::make_pair(1, 1));
    ASSERT_TRUE(Geodetic()->GetTileOfGeo(&col, &row, 0, 10.0, 10.0));
    EXPECT_EQ(std::make_pair(col, row), std::make_pair(1, 0));
    EXPECT_FALSE(Geodetic()->GetTileOfGeo(&col, &row, 0, 0.0, -95.0));
    EXPECT_FALSE(Geodetic()->GetTileOfGeo(nullptr, &row, 0, 0.0, 0.0));

    ExpectExtent(Mercator()->GetTileGeoExtent(0, 0, 0), {-180.0, -kMercatorMaxLat, 180.0, kMercatorMaxLat});
    ExpectExtent(Mercator()->GetTileGeoExtent(1, 0, 1), {0.0, 0.0, 180.0, kMercatorMaxLat});
    ExpectExtent(Geodetic()->GetTileGeoExtent(0, 1, 1), {-180.0, -90.0, -90.0, 0.0});
    EXPECT_EQ(Geodetic()->GetTileGeoExtent(2, 0, 0), EXTENT{});
    EXPECT_EQ(Geodetic()->GetTileGeoExtent(0, 0, 22), EXTENT{});
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
        int px = -1;
        int py = -1;
        ASSERT_TRUE(c.model->ConvertGeoToPixel(&px, &py, c.level, c.lon, c.lat)) << c.lon << ", " << c.lat;
        EXPECT_EQ(px, c.x) << c.lon << ", " << c.lat << " at level " << c.level;
        EXPECT_EQ(py, c.y) << c.lon << ", " << c.lat << " at level " << c.level;
    }
    double lon = 0.0;
    double lat = 0.0;
    ASSERT_TRUE(Mercator()->ConvertPixelToGeo(&lon, &lat, 0, 128.0, 92.09));
    EXPECT_NEAR(lat, 45.0, 0.01);
    ASSERT_TRUE(Geodetic()->ConvertGeoToPixel(&lon, &lat, 0, 0.7, -0.35));
    EXPECT_DOUBLE_EQ(lon, 256.0 + 0.7 / 0.703125);
    EXPECT_DOUBLE_EQ(lat, 128.0 + 0.35 / 0.703125);
}

TEST(TileModelConversion, PointsComeBackWithinOnePixelAndExactlyUnrounded)
{
    const double points[][2] = {{116.4074, 39.9042}, {-73.9857, 40.7484}, {151.2093, -33.8688},
                                {-179.999, -84.9},   {179.999, 84.9},     {-0.0001, -60.0}};
    for (CTileModel* model : {Mercator(), Geodetic()})
        for (const int level : {0, 10, 21})
            for (const auto& p : points)
            {
                int px = 0;
                int py = 0;
                double lon = 0.0;
                double lat = 0.0;
                ASSERT_TRUE(model->ConvertGeoToPixel(&px, &py, level, p[0], p[1]));
                ASSERT_TRUE(model->ConvertPixelToGeo(&lon, &lat, level, px, py));
                int qx = 0;
                int qy = 0;
                ASSERT_TRUE(model->ConvertGeoToPixel(&qx, &qy, level, lon, lat));
                EXPECT_LE(std::abs(qx - px), 1) << p[0] << ", " << p[1] << " at level " << level;
                EXPECT_LE(std::abs(qy - py), 1) << p[0] << ", " << p[1] << " at level " << level;
                double fx = 0.0;
                double fy = 0.0;
                ASSERT_TRUE(model->ConvertGeoToPixel(&fx, &fy, level, p[0], p[1]));
                EXPECT_LE(std::abs(fx - px), 0.5);
                ASSERT_TRUE(model->ConvertPixelToGeo(&lon, &lat, level, fx, fy));
                EXPECT_NEAR(lon, p[0], 1e-9);
                EXPECT_NEAR(lat, p[1], 1e-9);
            }
}

TEST(TileModelConversion, BadArgumentsFailAndLeaveOutputsAlone)
{
    for (CTileModel* model : {Mercator(), Geodetic()})
    {
        int ix = 7;
        int iy = 7;
        double dx = 7.0;
        double dy = 7.0;
        for (int level : {-1, 22})
        {
            EXPECT_FALSE(model->ConvertGeoToPixel(&ix, &iy, level, 0.0, 0.0));
            EXPECT_FALSE(model->ConvertPixelToGeo(&dx, &dy, level, 1, 1));
        }
        for (double bad : {kNaN, kInf, -kInf})
        {
            EXPECT_FALSE(model->ConvertGeoToPixel(&ix, &iy, 3, bad, 0.0));
            EXPECT_FALSE(model->ConvertGeoToPixel(&dx, &dy, 3, 0.0, bad));
            EXPECT_FALSE(model->ConvertPixelToGeo(&dx, &dy, 3, 0.0, bad));
        }
        EXPECT_FALSE(model->ConvertGeoToPixel(static_cast<int*>(nullptr), &iy, 3, 0.0, 0.0));
        EXPECT_FALSE(model->ConvertPixelToGeo(&dx, nullptr, 3, 1.0, 1.0));
        // Far outside the world the integer pixel no longer fits an int.
        EXPECT_FALSE(model->ConvertGeoToPixel(&ix, &iy, 21, 1.0e6, 0.0));
        EXPECT_EQ(std::make_pair(ix, iy), std::make_pair(7, 7));
        EXPECT_EQ(std::make_pair(dx, dy), std::make_pair(7.0, 7.0));
    }
}
