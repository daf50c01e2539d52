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
protected:
    void SetUp() override
    {
        module.SetZoomAround(3.0, 0.0, 0.0);
        ASSERT_TRUE(graphics.Initialise("view", &module));
        view = std::make_unique<CZoMapView>(&module);
        view->SetBasemapDataDir(QStringLiteral(ZO_SOURCE_DATA_DIR));
        view->resize(400, 300);
        view->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(view.get()));
        module.RegisterEventHandler(&handler, 0);
    }
    void TearDown() override
    {
        module.UnregisterEventHandler(&handler);
        graphics.Unintialise();
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
    void Send(QEvent::Type type, const QPoint& at, Qt::MouseButton button = Qt::NoButton,
              Qt::MouseButtons buttons = Qt::NoButton)
    {
        QMouseEvent event(type, at, view->viewport()->mapToGlobal(at), button, buttons, Qt::NoModifier);
        QApplication::sendEvent(view->viewport(), &event);
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
    QPointF GeoAt(const QPoint& viewPoint) const
    {
        double lon = 0.0, lat = 0.0;
        EXPECT_TRUE(view->ConvertViewPointToGeo(viewPoint, &lon, &lat));
        return QPointF(lon, lat);
    }
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
    for (double zoom : {3.0, 7.5, 12.25, 21.0})
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

    // The dot follows the host's levels and centre.
    for (double zoom : {2.0, 7.5, 12.25})
    {
        module.SetZoom(zoom);
        module.SetCenter(zoom, -zoom);
        int px = 0, py = 0;
        const CVector3D at = lower->GetPosition();
        EXPECT_TRUE(module.ConvertSceneToPixel(&px, &py, at.x, at.y));
        EXPECT_EQ(lower->GetQtItem()->pos(), QPointF(px, py)) << "zoom " << zoom;
    }
}

TEST_F(MapViewTest, DraggingTheEmptyMapPansAndTheWheelZoomsAboutThePointer)
{
    const QPoint from = Centre() + QPoint(-40, -30);
    const QPoint to = Centre() + QPoint(70, 45);
    const QPointF grabbed = GeoAt(from);
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

// A handler that took the press holds the pointer: the map does not pan,
// moves and the release carry the pressed object's id wherever the pointer
// goes, and hover waits.
TEST_F(MapViewTest, AConsumedPressHoldsThePointerUntilTheRelease)
{
    const std::string held = "#" + std::to_string(DotAt(Centre())->GetObjectID());
    handler.consume.insert("OnMousePress");
    const QPointF before = Center();
    Send(QEvent::MouseMove, Centre());
    Drag(Centre(), Centre() + QPoint(120, 90));
    EXPECT_EQ(Center(), before);
    for (const std::string& call : handler.CallsOf("OnMouseMove"))
        EXPECT_NE(call.find(held), std::string::npos) << call;
    ASSERT_EQ(handler.CallsOf("OnMouseRelease").size(), 1u);
    EXPECT_NE(handler.CallsOf("OnMouseRelease")[0].find(held), std::string::npos);
    EXPECT_EQ(handler.CallsOf("OnHoverLeave").size(), 1u); // told at the release
    handler.calls.clear();
    handler.consume.clear();
    Send(QEvent::MouseMove, Centre() + QPoint(100, 100));
    EXPECT_NE(handler.CallsOf("OnMouseMove")[0].find("#-1"), std::string::npos);
}

TEST_F(MapViewTest, EventsTakenByAnEmbeddedWidgetLeaveTheMapAlone)
{
    QObject* events = module.GetEventObject();
    const QPointF before = Center();
    events->setProperty("Scene_MousePressGrab", true);
    Drag(Centre(), Centre() + QPoint(50, 0));
    events->setProperty("Scene_WheelPressGrab", true);
    Wheel(Centre(), 240);
    EXPECT_EQ(Center(), before);
    EXPECT_NEAR(module.GetZoom(), 3.0, 1e-12);
    // Empty records are dropped silently.
    events->setProperty("Scene_KeyRelease", QVariantList{});
    EXPECT_TRUE(view->PublishSceneEvents().isEmpty());
    EXPECT_FALSE(events->property("Scene_KeyRelease").isValid());
}

TEST_F(MapViewTest, KeysZoomAndPanUnlessAHandlerTakesThem)
{
    QTest::keyClick(view.get(), Qt::Key_Plus);
    EXPECT_NEAR(module.GetZoom(), 4.0, 1e-9);
    QTest::keyClick(view.get(), Qt::Key_Minus);
    EXPECT_NEAR(module.GetZoom(), 3.0, 1e-9);
    const QPointF before = Center();
    QTest::keyClick(view.get(), Qt::Key_Left);
    QTest::keyClick(view.get(), Qt::Key_Up);
    EXPECT_LT(Center().x(), before.x());
    EXPECT_GT(Center().y(), before.y());
    handler.consume.insert("OnKeyPress");
    QTest::keyClick(view.get(), Qt::Key_Plus);
    QTest::keyClick(view.get(), Qt::Key_Escape);
    EXPECT_NEAR(module.GetZoom(), 3.0, 1e-9);
    EXPECT_EQ(handler.CallsOf("OnKeyPress").back(), "OnKeyPress " + std::to_string(Qt::Key_Escape));
}

TEST(MapViewWithoutModule, StaysInertAndSafe)
{
    auto module = std::make_unique<CZoMapModule>();
    CZoMapView orphan(nullptr);
    CZoMapView view(module.get());
    for (CZoMapView* target : {&orphan, &view})
    {
        target->resize(200, 100);
        target->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(target));
    }
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
    struct SEnding : MapHostRecordingHandler
    {
        using MapHostRecordingHandler::MapHostRecordingHandler;
        bool OnHoverEnter(IZoMapView*, int, int, int) override
        {
            graphics->Unintialise();
            module->reset();
            return false;
        }
        std::unique_ptr<CZoMapModule>* module = nullptr;
        CZoGraphicsModule* graphics = nullptr;
    };
    auto module = std::make_unique<CZoMapModule>();
    module->SetZoomAround(3.0, 0.0, 0.0);
    CZoGraphicsModule graphics;
    ASSERT_TRUE(graphics.Initialise("ending", module.get()));
    CZoMapView view(module.get());
    view.resize(300, 200);
    view.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&view));
    double lon = 0.0, lat = 0.0;
    ASSERT_TRUE(view.ConvertViewPointToGeo(QPoint(200, 100), &lon, &lat));
    IZoDotMapObject* dot = graphics.CreateDotMapObject("under", nullptr);
    dot->SetPosition(CVector3D(lon, lat, 0.0));
    dot->SetRadius(10.0);
    dot->SetInteractive(true);
    SEnding handler("ending");
    handler.module = &module;
    handler.graphics = &graphics;
    module->RegisterEventHandler(&handler, 0);
    auto send = [&](QEvent::Type type, const QPoint& at, Qt::MouseButton button, Qt::MouseButtons buttons) {
        QMouseEvent event(type, at, view.viewport()->mapToGlobal(at), button, buttons, Qt::NoModifier);
        QApplication::sendEvent(view.viewport(), &event);
    };
    send(QEvent::MouseButtonPress, QPoint(60, 100), Qt::LeftButton, Qt::LeftButton);
    send(QEvent::MouseMove, QPoint(200, 100), Qt::NoButton, Qt::LeftButton);
    EXPECT_EQ(module, nullptr);
    send(QEvent::MouseMove, QPoint(220, 110), Qt::NoButton, Qt::LeftButton);
    send(QEvent::MouseButtonRelease, QPoint(220, 110), Qt::LeftButton, Qt::NoButton);
    EXPECT_EQ(view.GetMapModule(), nullptr);
}
