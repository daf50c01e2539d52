#include <ZoGraphics/CZoMapModule.h>
#include <ZoGraphics/ZoTileModel.h>

#include "host/MapHostRecordingHandler.h"
#include "support/LogCapture.h"

#include <QGraphicsScene>
#include <QSignalSpy>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace
{
struct GeoPoint
{
    double lon;
    double lat;
};

const GeoPoint kPlaces[] = {{116.4074, 39.9042}, {-73.9857, 40.7484}, {0.0, 0.0}, {151.2093, -33.8688},
                            {-179.5, -60.0},     {179.9, 84.0}};
} // namespace

TEST(MapHostModule, ConversionsRoundTripAtSeveralZooms)
{
    for (int kind : {1, 2})
    {
        for (double zoom : {0.0, 3.5, 10.0, 15.25, 21.0})
        {
            CZoMapModule module;
            module.SetTileModelKind(kind);
            module.SetZoom(zoom);
            IZoMapModule& map = module;
            CTileModel* model = ITileModel::GetTileModel(kind, true);
            const int level = map.GetCurrentLodLevel();
            // One pixel in degrees; Mercator pixels are narrower in latitude.
            const double pixelDegrees = 360.0 / model->GetWorldPixelWidth(level);
            for (const GeoPoint& place : kPlaces)
            {
                SCOPED_TRACE(testing::Message() << "kind " << kind << " zoom " << zoom << " at " << place.lon << ","
                                                << place.lat);
                int px = 0;
                int py = 0;
                ASSERT_TRUE(map.ConvertSceneToPixel(&px, &py, place.lon, place.lat));
                int expectedX = 0;
                int expectedY = 0;
                ASSERT_TRUE(model->ConvertGeoToPixel(&expectedX, &expectedY, level, place.lon, place.lat));
                EXPECT_EQ(px, expectedX);
                EXPECT_EQ(py, expectedY);

                double lon = 1000.0;
                double lat = 1000.0;
                map.ConvertPixelToScene(&lon, &lat, px, py);
                EXPECT_NEAR(lon, place.lon, pixelDegrees);
                EXPECT_NEAR(lat, place.lat, pixelDegrees);

                QPointF scene;
                ASSERT_TRUE(module.GeoToScenePoint(place.lon, place.lat, &scene));
                EXPECT_NEAR(scene.x(), px, 0.5 + 1e-6);
                EXPECT_NEAR(scene.y(), py, 0.5 + 1e-6);
                ASSERT_TRUE(module.ScenePointToGeo(scene, &lon, &lat));
                EXPECT_NEAR(lon, place.lon, 1e-7);
                EXPECT_NEAR(lat, place.lat, 1e-7);
            }
            EXPECT_EQ(module.GetWorldSceneRect(),
                      QRectF(0, 0, model->GetWorldPixelWidth(level), model->GetWorldPixelHeight(level)));
        }
    }
}

TEST(MapHostModule, ZoomSplitsIntoLevelAndScale)
{
    CZoMapModule module;
    struct Case
    {
        double zoom;
        int level;
        double scale;
    };
    const Case cases[] = {{3.5, 3, std::sqrt(2.0)}, {4.0, 4, 1.0},    {4.75, 4, std::exp2(0.75)},
                          {3.9999999999, 4, 1.0},   {-2.0, 0, 1.0},   {0.0, 0, 1.0},
                          {20.5, 20, std::sqrt(2.0)}, {21.0, 21, 1.0}, {30.0, 21, 1.0}};
    for (const Case& c : cases)
    {
        SCOPED_TRACE(c.zoom);
        module.SetZoom(c.zoom);
        EXPECT_EQ(module.GetCurrentLodLevel(), c.level);
        EXPECT_NEAR(module.GetViewScale(), c.scale, 1e-12);
        EXPECT_GE(module.GetViewScale(), 1.0);
        EXPECT_LT(module.GetViewScale(), 2.0);
        EXPECT_NEAR(module.GetZoom(), std::clamp(c.zoom, 0.0, 21.0), 1e-9);
    }
}

TEST(MapHostModule, BadZoomIsLoggedAndIgnored)
{
    CZoMapModule module;
    module.SetZoom(6.5);
    LogCapture log;
    module.SetZoom(std::numeric_limits<double>::quiet_NaN());
    module.SetCenter(std::numeric_limits<double>::infinity(), 0.0);
    EXPECT_NEAR(module.GetZoom(), 6.5, 1e-12);
    EXPECT_EQ(log.Messages(), std::vector<std::string>(2, "[CZoMapModule::SetZoomAround] 缩放参数无效"));
}

TEST(MapHostModule, CenterIsClampedToTheTileModel)
{
    CZoMapModule module;
    module.SetCenter(200.0, 89.0);
    double lon = 0.0;
    double lat = 0.0;
    module.GetCenter(&lon, &lat);
    const EXTENT extent = module.GetTileModel()->GetGeoExtent();
    EXPECT_EQ(lon, extent.xmax);
    EXPECT_EQ(lat, extent.ymax);
}

TEST(MapHostModule, ZoomAroundKeepsTheAnchorAtItsViewOffset)
{
    CZoMapModule module;
    module.SetZoomAround(4.0, 10.0, 50.0);
    const QPointF offset(-120.0, 80.0);
    module.SetZoomAround(6.4, 2.35, 48.85, offset);
    QPointF anchor;
    QPointF centre;
    double lon = 0.0;
    double lat = 0.0;
    module.GetCenter(&lon, &lat);
    ASSERT_TRUE(module.GeoToScenePoint(2.35, 48.85, &anchor));
    ASSERT_TRUE(module.GeoToScenePoint(lon, lat, &centre));
    const QPointF viewOffset = (anchor - centre) * module.GetViewScale();
    EXPECT_NEAR(viewOffset.x(), offset.x(), 1e-6);
    EXPECT_NEAR(viewOffset.y(), offset.y(), 1e-6);
}

TEST(MapHostModule, CalculateDistanceIsTheWgs84Geodesic)
{
    CZoMapModule module;
    IZoMapModule& map = module;
    EXPECT_NEAR(map.CalculateDistance(0.0, 0.0, 1.0, 0.0), 111319.490793, 1e-5);
    EXPECT_NEAR(map.CalculateDistance(0.0, 0.0, 0.0, 90.0), 10001965.7293, 1e-3);
    // Beijing to Tokyo.
    EXPECT_NEAR(map.CalculateDistance(116.4074, 39.9042, 139.6917, 35.6895), 2096937.138, 1e-2);
    EXPECT_EQ(map.CalculateDistance(5.0, 5.0, 5.0, 5.0), 0.0);

    LogCapture log;
    EXPECT_EQ(map.CalculateDistance(std::nan(""), 0.0, 1.0, 1.0), 0.0);
    EXPECT_EQ(log.Messages(), std::vector<std::string>{"[CZoMapModule::CalculateDistance] 坐标无效"});
}

TEST(MapHostModule, KindWithoutTileModelFailsConversionsCleanly)
{
    CZoMapModule module;
    module.SetZoom(5.0);
    LogCapture log;
    module.SetTileModelKind(7);
    EXPECT_EQ(log.Messages(),
              std::vector<std::string>{"[CZoMapModule::SetTileModelKind] 获取TileModel为空, TileModel: 7"});
    EXPECT_EQ(module.GetTileModelKind(), 7);
    EXPECT_EQ(module.GetTileModel(), nullptr);

    int px = -5;
    int py = -6;
    EXPECT_FALSE(module.ConvertSceneToPixel(&px, &py, 10.0, 10.0));
    EXPECT_EQ(px, -5);
    EXPECT_EQ(py, -6);
    double lon = 1.5;
    double lat = 2.5;
    module.ConvertPixelToScene(&lon, &lat, 100, 100);
    EXPECT_EQ(lon, 1.5);
    EXPECT_EQ(lat, 2.5);
    QPointF scene(3.0, 4.0);
    EXPECT_FALSE(module.GeoToScenePoint(1.0, 1.0, &scene));
    EXPECT_FALSE(module.ScenePointToGeo(scene, &lon, &lat));
    EXPECT_TRUE(module.GetWorldSceneRect().isEmpty());
    module.SetZoomAround(7.0, 20.0, 30.0, QPointF(50.0, 50.0));
    EXPECT_EQ(module.GetCurrentLodLevel(), 7);

    module.SetTileModelKind(2);
    EXPECT_TRUE(module.ConvertSceneToPixel(&px, &py, 10.0, 10.0));
    EXPECT_EQ(module.GetWorldSceneRect().width(), 512.0 * 128.0);
}

TEST(MapHostModule, HandlersRunByPriorityUntilOneConsumes)
{
    CZoMapModule module;
    std::vector<std::string> journal;
    MapHostRecordingHandler a("a", &journal), b("b", &journal), c("c", &journal), d("d", &journal);
    module.RegisterEventHandler(&a, 0);
    module.RegisterEventHandler(&b, 5);
    module.RegisterEventHandler(&c, 0);
    module.RegisterEventHandler(&d, 5);
    module.RegisterEventHandler(nullptr, 9);

    const auto press = [&module] {
        return module.DispatchEvent(
            [](IZoMapEventHandler* handler) { return handler->OnMousePress(nullptr, 1, 2, 3); });
    };
    EXPECT_FALSE(press());
    EXPECT_EQ(journal, (std::vector<std::string>{"b:OnMousePress", "d:OnMousePress", "a:OnMousePress",
                                                 "c:OnMousePress"}));

    journal.clear();
    d.consume.insert("OnMousePress");
    EXPECT_TRUE(press());
    EXPECT_EQ(journal, (std::vector<std::string>{"b:OnMousePress", "d:OnMousePress"}));

    // Registering again moves a handler; unregistering drops it.
    journal.clear();
    module.RegisterEventHandler(&c, 10);
    module.UnregisterEventHandler(&b);
    module.UnregisterEventHandler(&b);
    EXPECT_TRUE(press());
    EXPECT_EQ(journal, (std::vector<std::string>{"c:OnMousePress", "d:OnMousePress"}));
}

TEST(MapHostModule, ZoomAndPanNotifyEveryHandler)
{
    CZoMapModule module;
    module.SetZoom(3.0);
    std::vector<std::string> journal;
    MapHostRecordingHandler a("a", &journal), b("b", &journal);
    // Notifications do not stop at a handler that returns true.
    a.consume = {"OnLodLevelChanged", "OnViewScaleChanged", "OnViewChanged", "OnViewMoved"};
    module.RegisterEventHandler(&a, 1);
    module.RegisterEventHandler(&b, 0);
    QSignalSpy zoomSpy(&module, &CZoMapModule::zoomChanged);
    QSignalSpy viewSpy(&module, &CZoMapModule::viewChanged);

    module.SetZoom(5.5);
    EXPECT_EQ(journal, (std::vector<std::string>{"a:OnLodLevelChanged", "b:OnLodLevelChanged", "a:OnViewScaleChanged",
                                                 "b:OnViewScaleChanged", "a:OnViewChanged", "b:OnViewChanged"}));
    EXPECT_EQ(b.CallsOf("OnLodLevelChanged"), std::vector<std::string>{"OnLodLevelChanged 5"});
    EXPECT_NEAR(b.lastScale, std::sqrt(2.0), 1e-12);
    ASSERT_EQ(zoomSpy.count(), 1);
    EXPECT_NEAR(zoomSpy.at(0).at(0).toDouble(), 5.5, 1e-12);

    journal.clear();
    module.SetZoom(5.75);
    EXPECT_EQ(journal, (std::vector<std::string>{"a:OnViewScaleChanged", "b:OnViewScaleChanged", "a:OnViewChanged",
                                                 "b:OnViewChanged"}));

    journal.clear();
    module.SetCenter(30.0, 10.0);
    EXPECT_EQ(journal, (std::vector<std::string>{"a:OnViewMoved", "b:OnViewMoved"}));

    // Nothing changes, nobody hears of it.
    journal.clear();
    module.SetCenter(30.0, 10.0);
    module.SetZoom(5.75);
    EXPECT_TRUE(journal.empty());
    EXPECT_EQ(viewSpy.count(), 3);

    // A new level with the same fractional scale still rescales the scene.
    module.SetZoom(6.75);
    EXPECT_EQ(journal, (std::vector<std::string>{"a:OnLodLevelChanged", "b:OnLodLevelChanged", "a:OnViewScaleChanged",
                                                 "b:OnViewScaleChanged", "a:OnViewChanged", "b:OnViewChanged"}));
}

TEST(MapHostModule, HandlersMayUnregisterDuringDispatch)
{
    CZoMapModule module;
    MapHostRecordingHandler first("first"), second("second"), third("third");
    module.RegisterEventHandler(&first, 3);
    module.RegisterEventHandler(&second, 2);
    module.RegisterEventHandler(&third, 1);
    // The first leaves and takes the third with it; the second still runs.
    first.sideEffect = [&](const std::string&) {
        module.UnregisterEventHandler(&first);
        module.UnregisterEventHandler(&third);
    };
    module.SetZoom(8.5);
    EXPECT_EQ(first.CallsOf("OnLodLevelChanged").size(), 1u);
    EXPECT_EQ(second.calls.size(), 3u);
    EXPECT_TRUE(third.calls.empty());

    module.SetCenter(1.0, 1.0);
    EXPECT_EQ(first.CallsOf("OnViewMoved").size(), 0u);
    EXPECT_EQ(second.CallsOf("OnViewMoved").size(), 1u);
}
