// Shapes across the antimeridian and round a pole, on the reference host:
// each is drawn where it lies, the short way, never across the whole world.
#include <ZoGraphics/CZoMapModule.h>
#include <ZoGraphics/ZoGraphics.h>

#include "support/ImageCompare.h"
#include "support/LogCapture.h"

#include <QGraphicsItem>
#include <QGraphicsScene>
#include <QPainter>
#include <algorithm>
#include <gtest/gtest.h>

namespace
{
class AntimeridianTest : public testing::Test
{
protected:
    void SetUp() override
    {
        map.SetZoomAround(2.0, 0.0, 0.0);
        ASSERT_TRUE(graphics.Initialise("antimeridian", &map));
    }
    void TearDown() override { graphics.Unintialise(); }
    std::vector<IZoGraphicsMapObject*> Load(const char* path)
    {
        ZoGeoJsonNS::SZoGeoJsonLoadResult loaded = ZoGeoJsonNS::LoadGeoJsonFile(&graphics, nullptr, path);
        for (IZoGraphicsMapObject* object : loaded.objects)
        {
            auto* surface = dynamic_cast<IZoSurfaceStyleGraphicsMapObject*>(object);
            if (!surface)
                continue;
            surface->SetPenStyle(Qt::NoPen);
            surface->SetBrushColor(Qt::black);
        }
        return loaded.objects;
    }
    double WorldWidth() { return Pixel(180.0, 0.0).x() - Pixel(-180.0, 0.0).x(); }
    QPoint Pixel(double lon, double lat)
    {
        int x = 0, y = 0;
        map.ConvertSceneToPixel(&x, &y, lon, lat);
        return QPoint(x, y);
    }
    // The scene from one world width west of the world to one east of it.
    QImage Render()
    {
        const double w = WorldWidth();
        QImage image = BlankCanvas(static_cast<int>(3 * w), static_cast<int>(w));
        QPainter painter(&image);
        map.GetScene()->render(&painter, QRectF(image.rect()), QRectF(-w, 0.0, 3 * w, w));
        return image;
    }
    // Whether the pixel of (lon, lat) is filled, or that of the same place
    // one world further east.
    bool Filled(const QImage& image, double lon, double lat, int worlds = 1)
    {
        return image.pixel(Pixel(lon, lat) + QPoint(worlds * static_cast<int>(WorldWidth()), 0)) != qRgb(255, 255, 255);
    }
    double FilledShareOfRow(const QImage& image, double lat)
    {
        const int y = Pixel(0.0, lat).y();
        const int w = static_cast<int>(WorldWidth());
        int filled = 0;
        for (int x = 0; x < w; ++x)
            filled += image.pixel(x + w, y) != qRgb(255, 255, 255);
        return double(filled) / w;
    }
    CZoMapModule map;
    CZoGraphicsModule graphics;
};
} // namespace

// Russia, Fiji, Antarctica and the Aleutians used to span the world as a band
// at 65-71N and lines at 71N and 16.5S.
TEST_F(AntimeridianTest, WorldCountriesLeaveTheOceansEmpty)
{
    ASSERT_FALSE(Load(ZO_SOURCE_DATA_DIR "/countries-50m.geojson").empty());
    const QImage image = Render();
    for (double lat : {68.0, 70.0, 71.0, -16.5})
        EXPECT_LT(FilledShareOfRow(image, lat), 0.8) << "latitude " << lat;
    // Chukotka east of the antimeridian and Wrangel Island lie beside the rest
    // of Russia, and Antarctica still covers the south of the map.
    EXPECT_EQ(std::tuple(Filled(image, -177.0, 66.5, 2), Filled(image, -179.0, 71.2, 2), Filled(image, 0.0, -84.0)),
              std::tuple(true, true, true));
}

TEST_F(AntimeridianTest, RingsAcrossOrRoundAPoleAndPartsAsTheirUnion)
{
    ASSERT_EQ(Load(ZO_TEST_DATA_DIR "/antimeridian_rings.geojson").size(), 3u);
    const QImage image = Render();
    // The ring from 170 to -170 is 20 degrees wide, east of 170; the ring
    // round the south pole closes along it; overlapping parts fill their
    // overlap, and a hole stays a hole.
    const struct
    {
        double lon, lat;
        int worlds;
        bool filled;
    } cases[] = {{175, 0, 1, true},   {-175, 0, 2, true},  {0, 0, 1, false},  {0, -80, 1, true}, {-120, -80, 1, true},
                 {0, -60, 1, false}, {15, 35, 1, true},   {25, 45, 1, true}, {6, 30, 1, false}};
    for (const auto& c : cases)
        EXPECT_EQ(Filled(image, c.lon, c.lat, c.worlds), c.filled) << c.lon << "," << c.lat;
}

TEST_F(AntimeridianTest, ExtentsAndPointsOutOfRangeAreDrawnOrRefusedWithAText)
{
    LogCapture log;
    IZoRectangleMapObject* box = graphics.CreateRectangleMapObject("box", nullptr);
    ASSERT_NE(box, nullptr);
    const double degree = WorldWidth() / 360.0;
    // Corners the other way round: across the antimeridian the short way, or
    // between the corners.
    box->SetExtent(EXTENT{170.0, -10.0, -170.0, 10.0});
    EXPECT_NEAR(box->GetQtItem()->shape().boundingRect().width(), 20 * degree, 2.0);
    box->SetExtent(EXTENT{10.0, 10.0, 0.0, -10.0});
    EXPECT_NEAR(box->GetQtItem()->shape().boundingRect().width(), 10 * degree, 2.0);
    box->SetExtent(EXTENT{0.0, qQNaN(), 5.0, 10.0});
    EXPECT_EQ(box->GetExtent().xmin, 10.0);
    IZoPolylineMapObject* line = graphics.CreatePolylineMapObject("line", nullptr);
    ASSERT_NE(line, nullptr);
    line->SetData({CVector3D(190.0, 0.0, 0.0), CVector3D(0.0, 95.0, 0.0)});
    EXPECT_EQ(std::tuple(line->GetPointNumber(), line->GetQtItem()->pos()), std::tuple(2, QPointF(Pixel(-170.0, 0.0))));
    const std::vector<std::string> expected = {
        "[CZoRectangleMapObject::SetExtent] 坐标无效",
        "[CZoPolylineMapObject::SetData] 经度超出±180, 按同一经线绘制",
        "[CZoPolylineMapObject::SetData] 纬度超出±90, 在地图边缘绘制",
    };
    const std::vector<std::string> messages = log.Messages();
    for (const std::string& text : expected)
        EXPECT_NE(std::find(messages.begin(), messages.end(), text), messages.end()) << text;
}
