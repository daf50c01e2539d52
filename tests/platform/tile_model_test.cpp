#include <ZoGraphics/ZoTileModel.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <tuple>

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

void ExpectPixel(CTileModel* model, int level, double lon, double lat, int expectedX, int expectedY)
{
    int px = -1;
    int py = -1;
    ASSERT_TRUE(model->ConvertGeoToPixel(&px, &py, level, lon, lat)) << lon << ", " << lat;
    EXPECT_EQ(px, expectedX) << lon << ", " << lat << " at level " << level;
    EXPECT_EQ(py, expectedY) << lon << ", " << lat << " at level " << level;
}

void ExpectExtent(const EXTENT& actual, const EXTENT& expected)
{
    EXPECT_NEAR(actual.xmin, expected.xmin, 1e-9);
    EXPECT_NEAR(actual.ymin, expected.ymin, 1e-9);
    EXPECT_NEAR(actual.xmax, expected.xmax, 1e-9);
    EXPECT_NEAR(actual.ymax, expected.ymax, 1e-9);
}
}

// The figures hosts lay their tiles out by.
TEST(TileModelDescription, BothSchemesGiveTheirWellKnownFigures)
{
    EXPECT_EQ(Mercator()->GetEPSG(), 3857);
    EXPECT_EQ(Mercator()->GetTileCountY(3), 8);
    EXPECT_NEAR(Mercator()->GetResolution(10), 152.87405657035, 1e-9);
    ExpectExtent(Mercator()->GetGeoExtent(), {-180.0, -kMercatorMaxLat, 180.0, kMercatorMaxLat});
    EXPECT_EQ(Geodetic()->GetEPSG(), 4326);
    EXPECT_EQ(Geodetic()->GetTileCountX(4), 32);
    EXPECT_EQ(Geodetic()->GetTileCountY(0), 1);
    EXPECT_DOUBLE_EQ(Geodetic()->GetResolution(0), 0.703125);
}

TEST(TileModelTiles, TileOfPointAndTileExtent)
{
    int col = -1;
    int row = -1;
    ASSERT_TRUE(Mercator()->GetTileOfGeo(&col, &row, 1, -90.0, 45.0));
    EXPECT_EQ(col, 0);
    EXPECT_EQ(row, 0);
    ASSERT_TRUE(Mercator()->GetTileOfGeo(&col, &row, 1, 180.0, -90.0)); // edges belong to the last tile
    EXPECT_EQ(col, 1);
    EXPECT_EQ(row, 1);
    ASSERT_TRUE(Geodetic()->GetTileOfGeo(&col, &row, 0, 10.0, 10.0));
    EXPECT_EQ(col, 1);
    EXPECT_EQ(row, 0);
    EXPECT_FALSE(Geodetic()->GetTileOfGeo(&col, &row, 0, 200.0, 0.0));
    EXPECT_FALSE(Geodetic()->GetTileOfGeo(&col, &row, 0, 0.0, -95.0));
    EXPECT_FALSE(Geodetic()->GetTileOfGeo(nullptr, &row, 0, 0.0, 0.0));

    ExpectExtent(Mercator()->GetTileGeoExtent(0, 0, 0), Mercator()->GetGeoExtent());
    ExpectExtent(Mercator()->GetTileGeoExtent(1, 0, 1), {0.0, 0.0, 180.0, kMercatorMaxLat});
    ExpectExtent(Geodetic()->GetTileGeoExtent(1, 0, 0), {0.0, -90.0, 180.0, 90.0});
    ExpectExtent(Geodetic()->GetTileGeoExtent(0, 1, 1), {-180.0, -90.0, -90.0, 0.0});
    EXPECT_EQ(Geodetic()->GetTileGeoExtent(2, 0, 0), EXTENT{});
    EXPECT_EQ(Geodetic()->GetTileGeoExtent(0, -1, 0), EXTENT{});
    EXPECT_EQ(Geodetic()->GetTileGeoExtent(0, 0, 22), EXTENT{});
}

TEST(TileModelConversion, KnownMercatorPixels)
{
    ExpectPixel(Mercator(), 0, 0.0, 0.0, 128, 128);
    ExpectPixel(Mercator(), 0, 180.0, 0.0, 256, 128);
    ExpectPixel(Mercator(), 0, -180.0, kMercatorMaxLat, 0, 0);
    // Latitudes beyond the square world are clamped to its edges.
    ExpectPixel(Mercator(), 0, 0.0, 90.0, 128, 0);
    ExpectPixel(Mercator(), 0, 0.0, -89.0, 128, 256);
    // y = (1 - asinh(1) / pi) / 2 * 256 = 92.09 at 45 degrees north.
    ExpectPixel(Mercator(), 0, 0.0, 45.0, 128, 92);
    ExpectPixel(Mercator(), 21, 0.0, 0.0, 1 << 28, 1 << 28);

    double lon = 0.0;
    double lat = 0.0;
    ASSERT_TRUE(Mercator()->ConvertPixelToGeo(&lon, &lat, 0, 128, 0));
    EXPECT_NEAR(lon, 0.0, 1e-12);
    EXPECT_NEAR(lat, kMercatorMaxLat, 1e-9);
    ASSERT_TRUE(Mercator()->ConvertPixelToGeo(&lon, &lat, 0, 128.0, 92.09));
    EXPECT_NEAR(lat, 45.0, 0.01);
}

TEST(TileModelConversion, KnownGeodeticPixels)
{
    ExpectPixel(Geodetic(), 0, 0.0, 0.0, 256, 128);
    ExpectPixel(Geodetic(), 0, -180.0, 90.0, 0, 0);
    ExpectPixel(Geodetic(), 0, 180.0, -90.0, 512, 256);
    ExpectPixel(Geodetic(), 21, 180.0, -90.0, 512 << 21, 256 << 21);
    // Rounded to the nearest pixel, not truncated.
    ExpectPixel(Geodetic(), 0, 0.7, 0.0, 257, 128);

    double px = 0.0;
    double py = 0.0;
    ASSERT_TRUE(Geodetic()->ConvertGeoToPixel(&px, &py, 0, 0.7, -0.35));
    EXPECT_DOUBLE_EQ(px, 256.0 + 0.7 / 0.703125);
    EXPECT_DOUBLE_EQ(py, 128.0 + 0.35 / 0.703125);
}

class TileModelRoundTrip : public ::testing::TestWithParam<std::tuple<E_TILE_MODEL, int>>
{
};

TEST_P(TileModelRoundTrip, PointsComeBackWithinOnePixel)
{
    CTileModel* model = ITileModel::GetTileModel(std::get<0>(GetParam()));
    const int level = std::get<1>(GetParam());
    ASSERT_NE(model, nullptr);
    const double points[][2] = {{0.0, 0.0},        {116.4074, 39.9042},  {-73.9857, 40.7484}, {151.2093, -33.8688},
                                {-179.999, -84.9}, {179.999, 84.9},      {12.5, 0.0001},      {-0.0001, -60.0}};
    for (const auto& p : points)
    {
        int px = 0;
        int py = 0;
        ASSERT_TRUE(model->ConvertGeoToPixel(&px, &py, level, p[0], p[1]));
        double lon = 0.0;
        double lat = 0.0;
        ASSERT_TRUE(model->ConvertPixelToGeo(&lon, &lat, level, px, py));
        int qx = 0;
        int qy = 0;
        ASSERT_TRUE(model->ConvertGeoToPixel(&qx, &qy, level, lon, lat));
        EXPECT_LE(std::abs(qx - px), 1) << p[0] << ", " << p[1];
        EXPECT_LE(std::abs(qy - py), 1) << p[0] << ", " << p[1];

        // Unrounded, the inverse is exact to far below a pixel.
        double fx = 0.0;
        double fy = 0.0;
        ASSERT_TRUE(model->ConvertGeoToPixel(&fx, &fy, level, p[0], p[1]));
        EXPECT_LE(std::abs(fx - px), 0.5);
        EXPECT_LE(std::abs(fy - py), 0.5);
        ASSERT_TRUE(model->ConvertPixelToGeo(&lon, &lat, level, fx, fy));
        EXPECT_NEAR(lon, p[0], 1e-9);
        EXPECT_NEAR(lat, p[1], 1e-9);
    }
}

INSTANTIATE_TEST_SUITE_P(TileModelKinds, TileModelRoundTrip,
                         ::testing::Combine(::testing::Values(E_TILE_MODEL_WEB_MERCATOR, E_TILE_MODEL_GEODETIC),
                                            ::testing::Values(0, 10, 21)));

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
        EXPECT_FALSE(model->ConvertGeoToPixel(static_cast<double*>(nullptr), &dy, 3, 0.0, 0.0));
        EXPECT_FALSE(model->ConvertPixelToGeo(&dx, nullptr, 3, 1.0, 1.0));
        // Far outside the world the integer pixel no longer fits an int.
        EXPECT_FALSE(model->ConvertGeoToPixel(&ix, &iy, 21, 1.0e6, 0.0));
        EXPECT_EQ(ix, 7);
        EXPECT_EQ(iy, 7);
        EXPECT_EQ(dx, 7.0);
        EXPECT_EQ(dy, 7.0);
    }
}
