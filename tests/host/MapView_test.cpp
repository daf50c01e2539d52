// The reference view as a user meets it: the module's centre in the middle,
// drags and the wheel moving the map where the pointer says, pointer events
// reaching the handlers and the scene-event signal with the graphics
// library's object under the pointer, which follows the host's levels.
#include <ZoGraphics/CZoGraphicsModule.h>
#include <ZoGraphics/CZoMapModule.h>
#include <ZoGraphics/CZoMapView.h>
#include <ZoGraphics/IZoDotMapObject.h>

#include "host/MapHostRecordingHandler.h"

#include <QApplication>
#include <QGraphicsRectItem>
#include <QGraphicsScene>
#include <QMouseEvent>
#include <QSignalSpy>
#include <QTest>
#include <QWheelEvent>
#include <gtest/gtest.h>

#include <cmath>
#include <memory>

using Calls = std::vector<std::string>;

namespace
{
class MapViewTest : public testing::Test
{
public:
    void SetUp() override
    {
        module.SetZoomAround(3.0, 0.0, 0.0);
        ASSERT_TRUE(graphics.Initialise("view", &module));
        view = std::make_unique<CZoMapView>(&module);
        view->SetBasemapDataDir(QStringLiteral(ZO_SOURCE_DATA_DIR));
        ASSERT_TRUE(Show(*view, 400, 300));
        module.RegisterEventHandler(&handler, 0);
    }
    void TearDown() override
    {
        module.UnregisterEventHandler(&handler);
        graphics.Unintialise();
    }
    static bool Show(CZoMapView& view, int width, int height)
    {
        view.resize(width, height);
        view.show();
        return QTest::qWaitForWindowExposed(&view);
    }
    QPoint Centre() const { return QPoint(view->viewport()->width() / 2, view->viewport()->height() / 2); }
    // An interactive dot of the graphics library over a view point.
    IZoDotMapObject* DotAt(const QPoint& viewPoint)
    {
        const QPointF geo = GeoAt(viewPoint);
        IZoDotMapObject* dot = graphics.CreateDotMapObject("dot", nullptr);
        dot->SetPosition(CVector3D(geo.x(), geo.y(), 0.0));
        dot->SetRadius(8.0);
        dot->SetInteractive(true);
        return dot;
    }
    static void Send(QWidget* viewport, QEvent::Type type, const QPoint& at, Qt::MouseButton button = Qt::NoButton,
                     Qt::MouseButtons buttons = Qt::NoButton)
    {
        QMouseEvent event(type, at, viewport->mapToGlobal(at), button, buttons, Qt::NoModifier);
        QApplication::sendEvent(viewport, &event);
    }
    void Send(QEvent::Type type, const QPoint& at, Qt::MouseButton button = Qt::NoButton,
              Qt::MouseButtons buttons = Qt::NoButton)
    {
        Send(view->viewport(), type, at, button, buttons);
    }
    void Drag(const QPoint& from, const QPoint& to)
    {
        Send(QEvent::MouseButtonPress, from, Qt::LeftButton, Qt::LeftButton);
        Send(QEvent::MouseMove, (from + to) / 2, Qt::NoButton, Qt::LeftButton);
        Send(QEvent::MouseMove, to, Qt::NoButton, Qt::LeftButton);
        Send(QEvent::MouseButtonRelease, to, Qt::LeftButton);
    }
    void Wheel(const QPoint& at, int delta)
    {
        QWheelEvent event(QPointF(at), QPointF(view->viewport()->mapToGlobal(at)), QPoint(), QPoint(0, delta),
                          Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(view->viewport(), &event);
    }
    static QPointF GeoAt(CZoMapView& view, const QPoint& viewPoint)
    {
        double lon = 0.0, lat = 0.0;
        EXPECT_TRUE(view.ConvertViewPointToGeo(viewPoint, &lon, &lat));
        return QPointF(lon, lat);
    }
    QPointF GeoAt(const QPoint& viewPoint) const { return GeoAt(*view, viewPoint); }
    QPointF Center() const
    {
        double lon = 0.0, lat = 0.0;
        module.GetCenter(&lon, &lat);
        return QPointF(lon, lat);
    }
    // Where a geographic point shows in the view, against where it should.
    void ExpectShownAt(const QPointF& geo, const QPoint& expected) const
    {
        QPointF scene;
        EXPECT_TRUE(module.GeoToScenePoint(geo.x(), geo.y(), &scene));
        const QPointF shown = view->viewportTransform().map(scene);
        EXPECT_NEAR(shown.x(), expected.x(), 1.5);
        EXPECT_NEAR(shown.y(), expected.y(), 1.5);
    }
    static std::string Where(const QPoint& p, const IZoGraphicsMapObject* object)
    {
        return std::to_string(p.x()) + "," + std::to_string(p.y()) + " #" +
               std::to_string(object ? object->GetObjectID() : -1);
    }

    CZoMapModule module;
    CZoGraphicsModule graphics;
    std::unique_ptr<CZoMapView> view;
    MapHostRecordingHandler handler{"view"};
};
} // namespace

TEST_F(MapViewTest, CentreOfTheModuleSitsInTheMiddleAtEveryLevel)
{
    for (double zoom : {3.0, 12.25, 21.0})
    {
        SCOPED_TRACE(zoom);
        module.SetZoomAround(zoom, 13.4, 52.5);
        EXPECT_NEAR(view->transform().m11(), module.GetViewScale(), 1e-12);
        ExpectShownAt(QPointF(13.4, 52.5), Centre());
        double lon = 0.0, lat = 0.0;
        ASSERT_TRUE(view->ConvertPixelToGeo(Centre().x(), Centre().y(), &lon, &lat));
        const double twoPixels = 2.0 * 360.0 / (256.0 * std::exp2(zoom));
        EXPECT_NEAR(lon, 13.4, twoPixels);
        EXPECT_NEAR(lat, 52.5, twoPixels);
    }
    // Off the world there is no geographic position.
    module.SetZoom(0.0);
    double lon = 7.0, lat = 8.0;
    EXPECT_FALSE(view->ConvertPixelToGeo(2, 2, &lon, &lat));
    EXPECT_FALSE(view->ConvertPixelToGeo(Centre().x(), Centre().y(), nullptr, &lat));
}

TEST_F(MapViewTest, PressesAndHoverReachTheHandlersWithTheTopmostMapObject)
{
    const QPoint over = Centre() + QPoint(60, 20);
    IZoDotMapObject* lower = DotAt(over);
    IZoDotMapObject* upper = DotAt(over);
    upper->SetZValue(lower->GetZValue() + 1);
    // An untagged child (a label) belongs to its tagged parent; an untagged
    // item on top is no map object.
    (new QGraphicsRectItem(-3, -3, 6, 6, upper->GetQtItem()))->setZValue(5);
    auto* decoration = new QGraphicsRectItem(-5, -5, 10, 10);
    decoration->setPos(view->mapToScene(over));
    decoration->setZValue(10);
    module.GetScene()->addItem(decoration);
    QSignalSpy published(view.get(), &CZoMapView::sceneEvent);
    Send(QEvent::MouseButtonPress, over, Qt::LeftButton, Qt::LeftButton);
    Send(QEvent::MouseButtonRelease, over, Qt::LeftButton);
    Send(QEvent::MouseButtonPress, QPoint(5, 5), Qt::RightButton, Qt::RightButton);
    EXPECT_EQ(handler.CallsOf("OnMousePress"),
              (Calls{"OnMousePress " + Where(over, upper), "OnMousePress " + Where(QPoint(5, 5), nullptr)}));
    EXPECT_EQ(handler.CallsOf("OnMouseRelease"), Calls{"OnMouseRelease " + Where(over, upper)});
    // What the items recorded goes out once through the signal.
    QVariantList pressed;
    for (const QList<QVariant>& signal : published)
    {
        if (signal.at(0).toString() == QStringLiteral("Scene_MousePress"))
            pressed += signal.at(1).toList();
        // Nobody grabbed the press: the release reaches no item.
        EXPECT_NE(signal.at(0).toString(), QStringLiteral("Scene_MouseRelease"));
    }
    EXPECT_EQ(pressed, (QVariantList{upper->GetObjectID(), lower->GetObjectID()}));
    EXPECT_FALSE(module.GetEventObject()->property("Scene_MousePress").isValid());

    upper->SetVisible(false);
    handler.calls.clear();
    QSignalSpy pointer(view.get(), &CZoMapView::pointerGeoChanged);
    for (const QPoint& p : {Centre(), over, over + QPoint(2, 0), Centre(), over})
        Send(QEvent::MouseMove, p);
    QEvent leave(QEvent::Leave); // leaving the view leaves the object too
    QApplication::sendEvent(view->viewport(), &leave);
    EXPECT_EQ(handler.CallsOf("OnHover"),
              (Calls{"OnHoverEnter " + Where(over, lower), "OnHoverLeave " + Where(Centre(), lower),
                     "OnHoverEnter " + Where(over, lower), "OnHoverLeave " + Where(over, lower)}));
    EXPECT_EQ(handler.CallsOf("OnMouseMove").size(), 5u);
    ASSERT_EQ(pointer.count(), 6);
    EXPECT_TRUE(pointer.at(4).at(0).toBool());
    EXPECT_FALSE(pointer.at(5).at(0).toBool());
}

TEST_F(MapViewTest, DraggingTheEmptyMapPansAndTheWheelZoomsAboutThePointer)
{
    const QPoint from = Centre() + QPoint(-40, -30);
    const QPoint to = Centre() + QPoint(70, 45);
    const QPointF grabbed = GeoAt(from);
    QSignalSpy pointer(view.get(), &CZoMapView::pointerGeoChanged);
    Send(QEvent::MouseMove, from); // no button held, nothing under it: still followed
    EXPECT_EQ(pointer.count(), 1);
    QSignalSpy moved(&module, &CZoMapModule::centerChanged);
    Drag(from, to);
    EXPECT_EQ(moved.count(), 2);
    ExpectShownAt(grabbed, to); // the point under the pointer went along with it
    EXPECT_EQ(handler.CallsOf("OnViewMoved").size(), 2u);

    const QPoint at = Centre() + QPoint(90, -60);
    const QPointF under = GeoAt(at);
    Wheel(at, 240);
    EXPECT_NEAR(module.GetZoom(), 4.0, 1e-9);
    EXPECT_EQ(handler.CallsOf("OnLodLevelChanged"), Calls{"OnLodLevelChanged 4"});
    ExpectShownAt(under, at);
    Wheel(at, -120);
    EXPECT_NEAR(module.GetViewScale(), std::sqrt(2.0), 1e-9);
    ExpectShownAt(under, at);
}

TEST_F(MapViewTest, KeysZoomAndPanUnlessAHandlerOrAnEmbeddedWidgetTakesThem)
{
    QTest::keyClick(view.get(), Qt::Key_Plus);
    EXPECT_NEAR(module.GetZoom(), 4.0, 1e-9);
    QTest::keyClick(view.get(), Qt::Key_Minus);
    EXPECT_NEAR(module.GetZoom(), 3.0, 1e-9);
    const QPointF before = Center();
    QTest::keyClick(view.get(), Qt::Key_Left);
    QTest::keyClick(view.get(), Qt::Key_Up);
    EXPECT_TRUE(Center().x() < before.x() && Center().y() > before.y());
    handler.consume.insert("OnKeyPress");
    QTest::keyClick(view.get(), Qt::Key_Plus);
    QTest::keyClick(view.get(), Qt::Key_Escape);
    EXPECT_NEAR(module.GetZoom(), 3.0, 1e-9);
    EXPECT_EQ(handler.CallsOf("OnKeyPress").back(), "OnKeyPress " + std::to_string(Qt::Key_Escape));
    QObject* events = module.GetEventObject();
    const QPointF moved = Center();
    events->setProperty("Scene_MousePressGrab", true);
    Drag(Centre(), Centre() + QPoint(50, 0));
    events->setProperty("Scene_WheelPressGrab", true);
    Wheel(Centre(), 240);
    EXPECT_EQ(Center(), moved);
    EXPECT_NEAR(module.GetZoom(), 3.0, 1e-12);
    events->setProperty("Scene_KeyRelease", QVariantList{}); // empty records are dropped silently
    EXPECT_TRUE(view->PublishSceneEvents().isEmpty());
    EXPECT_FALSE(events->property("Scene_KeyRelease").isValid());
}

TEST(MapViewWithoutModule, StaysInertAndSafe)
{
    auto module = std::make_unique<CZoMapModule>();
    CZoMapView orphan(nullptr);
    CZoMapView view(module.get());
    for (CZoMapView* target : {&orphan, &view})
        ASSERT_TRUE(MapViewTest::Show(*target, 200, 100));
    module.reset();
    for (CZoMapView* target : {&orphan, &view})
    {
        double lon = 0.0, lat = 0.0;
        EXPECT_EQ(target->GetMapModule(), nullptr);
        EXPECT_FALSE(target->ConvertPixelToGeo(100, 50, &lon, &lat));
        EXPECT_TRUE(target->PublishSceneEvents().isEmpty());
        QTest::mouseClick(target->viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(100, 50));
        QTest::keyClick(target, Qt::Key_Plus);
        EXPECT_FALSE(target->grab().isNull());
    }
}

// A host whose hover handler ends the map while the user drags the map onto
// an object: the drag goes on over nothing, without a crash.
TEST(MapViewWithoutModule, SurvivesAHandlerEndingTheModuleMidDrag)
{
    auto module = std::make_unique<CZoMapModule>();
    module->SetZoomAround(3.0, 0.0, 0.0);
    CZoGraphicsModule graphics;
    ASSERT_TRUE(graphics.Initialise("ending", module.get()));
    CZoMapView view(module.get());
    ASSERT_TRUE(MapViewTest::Show(view, 300, 200));
    const QPointF geo = MapViewTest::GeoAt(view, QPoint(200, 100));
    IZoDotMapObject* dot = graphics.CreateDotMapObject("under", nullptr);
    dot->SetPosition(CVector3D(geo.x(), geo.y(), 0.0));
    dot->SetRadius(10.0);
    dot->SetInteractive(true);
    MapHostRecordingHandler handler("ending");
    handler.sideEffect = [&](const std::string& operation) {
        if (operation == "OnHoverEnter")
            graphics.Unintialise(), module.reset();
    };
    module->RegisterEventHandler(&handler, 0);
    MapViewTest::Send(view.viewport(), QEvent::MouseButtonPress, QPoint(60, 100), Qt::LeftButton, Qt::LeftButton);
    MapViewTest::Send(view.viewport(), QEvent::MouseMove, QPoint(200, 100), Qt::NoButton, Qt::LeftButton);
    EXPECT_EQ(module, nullptr);
    MapViewTest::Send(view.viewport(), QEvent::MouseMove, QPoint(220, 110), Qt::NoButton, Qt::LeftButton);
    MapViewTest::Send(view.viewport(), QEvent::MouseButtonRelease, QPoint(220, 110), Qt::LeftButton);
    EXPECT_EQ(view.GetMapModule(), nullptr);
}
