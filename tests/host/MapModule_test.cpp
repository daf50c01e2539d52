#include <ZoGraphics/CZoMapModule.h>
#include <ZoGraphics/ZoTileModel.h>

#include "host/MapHostRecordingHandler.h"
#include "support/LogCapture.h"

#include <QSignalSpy>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <tuple>

using Journal = std::vector<std::string>;

TEST(MapHostModule, ConversionsRoundTripAtSeveralZooms)
{
    const QPointF places[] = {{116.4074, 39.9042}, {-179.5, -60.0}, {179.9, 84.0}};
    for (int kind : {1, 2})
    {
        for (double zoom : {0.0, 3.5, 15.25, 21.0})
        {
            CZoMapModule module;
            module.SetTileModelKind(kind);
            module.SetZoom(zoom);
            const CTileModel* model = ITileModel::GetTileModel(kind, true);
            const int level = module.GetCurrentLodLevel();
            const double pixelDegrees = 360.0 / model->GetWorldPixelWidth(level);
            for (const QPointF& place : places)
            {
                SCOPED_TRACE(testing::Message() << kind << " " << zoom << " " << place.x() << "," << place.y());
                int px = 0, py = 0;
                ASSERT_TRUE(module.ConvertSceneToPixel(&px, &py, place.x(), place.y()));
                double lon = 1000.0, lat = 1000.0;
                module.ConvertPixelToScene(&lon, &lat, px, py);
                EXPECT_NEAR(lon, place.x(), pixelDegrees);
                EXPECT_NEAR(lat, place.y(), pixelDegrees);
                QPointF scene;
                ASSERT_TRUE(module.GeoToScenePoint(place.x(), place.y(), &scene));
                EXPECT_NEAR(scene.x(), px, 0.5 + 1e-6);
                ASSERT_TRUE(module.ScenePointToGeo(scene, &lon, &lat));
                EXPECT_NEAR(lon, place.x(), 1e-7);
                EXPECT_NEAR(lat, place.y(), 1e-7);
            }
            EXPECT_EQ(module.GetWorldSceneRect(),
                      QRectF(0, 0, model->GetWorldPixelWidth(level), model->GetWorldPixelHeight(level)));
        }
    }
}

TEST(MapHostModule, ZoomSplitsIntoLevelAndScaleAndBadValuesAreRefused)
{
    CZoMapModule module;
    const std::tuple<double, int, double> cases[] = {{3.5, 3, std::sqrt(2.0)}, {4.75, 4, std::exp2(0.75)},
                                                     {3.9999999999, 4, 1.0},   {-2.0, 0, 1.0},
                                                     {21.0, 21, 1.0},          {30.0, 21, 1.0}};
    for (const auto& [zoom, level, scale] : cases)
    {
        SCOPED_TRACE(zoom);
        module.SetZoom(zoom);
        EXPECT_EQ(module.GetCurrentLodLevel(), level);
        EXPECT_NEAR(module.GetViewScale(), scale, 1e-12);
        EXPECT_NEAR(module.GetZoom(), std::clamp(zoom, 0.0, 21.0), 1e-9);
    }
    module.SetZoom(6.5);
    LogCapture log;
    module.SetZoom(std::nan(""));
    module.SetCenter(std::numeric_limits<double>::infinity(), 0.0);
    EXPECT_NEAR(module.GetZoom(), 6.5, 1e-12);
    EXPECT_EQ(module.CalculateDistance(std::nan(""), 0.0, 1.0, 1.0), 0.0);
    EXPECT_EQ(log.Messages(), (Journal{"[CZoMapModule::SetZoomAround] 缩放参数无效",
                                       "[CZoMapModule::SetZoomAround] 缩放参数无效",
                                       "[CZoMapModule::CalculateDistance] 坐标无效"}));
    // A centre past the tile model's extent stops at its edge.
    module.SetCenter(200.0, 89.0);
    double lon = 0.0, lat = 0.0;
    module.GetCenter(&lon, &lat);
    const EXTENT world = module.GetTileModel()->GetGeoExtent();
    EXPECT_EQ(QPointF(lon, lat), QPointF(world.xmax, world.ymax));
}

TEST(MapHostModule, CalculateDistanceIsTheWgs84Geodesic)
{
    CZoMapModule module; // Beijing to Tokyo last
    EXPECT_NEAR(module.CalculateDistance(0.0, 0.0, 1.0, 0.0), 111319.490793, 1e-5);
    EXPECT_NEAR(module.CalculateDistance(116.4074, 39.9042, 139.6917, 35.6895), 2096937.138, 1e-2);
    EXPECT_EQ(module.CalculateDistance(5.0, 5.0, 5.0, 5.0), 0.0);
}

TEST(MapHostModule, KindWithoutTileModelFailsConversionsCleanly)
{
    CZoMapModule module;
    module.SetZoom(5.0);
    LogCapture log;
    module.SetTileModelKind(7);
    EXPECT_EQ(log.Messages(), Journal{"[CZoMapModule::SetTileModelKind] 获取TileModel为空, TileModel: 7"});
    int px = -5, py = -6;
    double lon = 1.5, lat = 2.5;
    QPointF scene(3.0, 4.0);
    EXPECT_FALSE(module.ConvertSceneToPixel(&px, &py, 10.0, 10.0) || module.GeoToScenePoint(1.0, 1.0, &scene) ||
                 module.ScenePointToGeo(scene, &lon, &lat));
    module.ConvertPixelToScene(&lon, &lat, 100, 100);
    EXPECT_EQ(std::make_tuple(px, py, lon, lat), std::make_tuple(-5, -6, 1.5, 2.5));
    EXPECT_TRUE(module.GetWorldSceneRect().isEmpty());
    module.SetZoomAround(7.0, 20.0, 30.0, QPointF(50.0, 50.0));
    EXPECT_EQ(module.GetCurrentLodLevel(), 7);
    module.SetTileModelKind(2);
    EXPECT_EQ(module.GetWorldSceneRect().width(), 512.0 * 128.0);
}

TEST(MapHostModule, HandlersRunByPriorityUntilOneConsumesAndMayLeaveMeanwhile)
{
    CZoMapModule module;
    Journal journal;
    MapHostRecordingHandler a("a", &journal), b("b", &journal), c("c", &journal), d("d", &journal);
    module.RegisterEventHandler(&a, 0);
    module.RegisterEventHandler(&b, 5);
    module.RegisterEventHandler(&c, 0);
    module.RegisterEventHandler(&d, 5);
    module.RegisterEventHandler(nullptr, 9);
    const auto press = [&module] {
        return module.DispatchEvent([](IZoMapEventHandler* h) { return h->OnMousePress(nullptr, 1, 2, 3); });
    };
    EXPECT_FALSE(press());
    EXPECT_EQ(journal, (Journal{"b:OnMousePress", "d:OnMousePress", "a:OnMousePress", "c:OnMousePress"}));
    journal.clear();
    d.consume.insert("OnMousePress");
    EXPECT_TRUE(press());
    EXPECT_EQ(journal, (Journal{"b:OnMousePress", "d:OnMousePress"}));
    // Registering again moves a handler; unregistering drops it.
    journal.clear();
    module.RegisterEventHandler(&c, 10);
    module.UnregisterEventHandler(&b);
    module.UnregisterEventHandler(&b);
    EXPECT_TRUE(press());
    EXPECT_EQ(journal, (Journal{"c:OnMousePress", "d:OnMousePress"}));
    // c leaves and takes a with it; d still runs.
    journal.clear();
    d.consume.clear();
    c.sideEffect = [&](const std::string&) {
        module.UnregisterEventHandler(&c);
        module.UnregisterEventHandler(&a);
    };
    EXPECT_FALSE(press());
    EXPECT_EQ(journal, (Journal{"c:OnMousePress", "d:OnMousePress"}));
}

TEST(MapHostModule, ZoomAndPanNotifyEveryHandlerOnlyWhenSomethingChanges)
{
    CZoMapModule module;
    module.SetZoom(3.0);
    Journal journal;
    MapHostRecordingHandler a("a", &journal), b("b", &journal);
    // Notifications do not stop at a handler that returns true.
    a.consume = {"OnLodLevelChanged", "OnViewScaleChanged", "OnViewChanged", "OnViewMoved"};
    module.RegisterEventHandler(&a, 1);
    module.RegisterEventHandler(&b, 0);
    QSignalSpy zoomSpy(&module, &CZoMapModule::zoomChanged);
    const Journal newLevel{"a:OnLodLevelChanged", "b:OnLodLevelChanged", "a:OnViewScaleChanged",
                           "b:OnViewScaleChanged", "a:OnViewChanged",    "b:OnViewChanged"};
    module.SetZoom(5.5);
    EXPECT_EQ(journal, newLevel);
    EXPECT_EQ(b.CallsOf("OnLod"), Journal{"OnLodLevelChanged 5"});
    EXPECT_EQ(b.CallsOf("OnViewScale"), Journal{"OnViewScaleChanged 1.414214"});
    ASSERT_EQ(zoomSpy.count(), 1);
    EXPECT_NEAR(zoomSpy.at(0).at(0).toDouble(), 5.5, 1e-12);
    journal.clear();
    module.SetZoom(5.75);
    EXPECT_EQ(journal, Journal(newLevel.begin() + 2, newLevel.end()));
    journal.clear();
    module.SetCenter(30.0, 10.0);
    EXPECT_EQ(journal, (Journal{"a:OnViewMoved", "b:OnViewMoved"}));
    journal.clear();
    module.SetCenter(30.0, 10.0);
    module.SetZoom(5.75);
    EXPECT_TRUE(journal.empty());
    // A new level with the same fractional scale still rescales the scene.
    module.SetZoom(6.75);
    EXPECT_EQ(journal, newLevel);
}
