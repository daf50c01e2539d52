#include <ZoGraphics/CZoMapModule.h>
#include <ZoGraphics/CZoMapView.h>
#include <ZoGraphics/ZoGraphicsConstant.h>

#include "host/MapHostRecordingHandler.h"

#include <QApplication>
#include <QGraphicsRectItem>
#include <QGraphicsScene>
#include <QGraphicsSceneMouseEvent>
#include <QMouseEvent>
#include <QSignalSpy>
#include <QTest>
#include <QWheelEvent>
#include <gtest/gtest.h>

#include <cmath>
#include <memory>

namespace
{
// Stands in for a map object's item: tagged with data 100/101 and recording
// presses on the event object the way the library's items do.
class TaggedItem : public QGraphicsRectItem
{
public:
    TaggedItem(int id, QObject* events) : QGraphicsRectItem(-10, -10, 20, 20), m_id(id), m_events(events)
    {
        setData(100, true);
        setData(101, id);
    }

protected:
    void mousePressEvent(QGraphicsSceneMouseEvent* event) override
    {
        const char* name = ZoGraphicsConstantNS::STR_SCENE_MOUSE_PRESS.c_str();
        QVariantList ids = m_events->property(name).toList();
        ids << m_id;
        m_events->setProperty(name, ids);
        event->ignore();
    }

private:
    int m_id;
    QObject* m_events;
};

class MapViewTest : public testing::Test
{
protected:
    void SetUp() override
    {
        module.SetZoomAround(3.0, 0.0, 0.0);
        view = std::make_unique<CZoMapView>(&module);
        view->SetBasemapDataDir(QStringLiteral(ZO_SOURCE_DATA_DIR));
        view->resize(400, 300);
        view->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(view.get()));
        module.RegisterEventHandler(&handler, 0);
    }

    void TearDown() override { module.UnregisterEventHandler(&handler); }

    QPoint Centre() const { return QPoint(view->viewport()->width() / 2, view->viewport()->height() / 2); }

    // Puts a tagged item over a view point.
    TaggedItem* AddItemAt(int id, const QPoint& viewPoint)
    {
        auto* item = new TaggedItem(id, module.GetEventObject());
        item->setPos(view->mapToScene(viewPoint));
        module.GetScene()->addItem(item);
        return item;
    }

    void SendMouse(QEvent::Type type, const QPoint& at, Qt::MouseButton button, Qt::MouseButtons buttons)
    {
        QMouseEvent event(type, at, view->viewport()->mapToGlobal(at), button, buttons, Qt::NoModifier);
        QApplication::sendEvent(view->viewport(), &event);
    }

    void Drag(const QPoint& from, const QPoint& to)
    {
        SendMouse(QEvent::MouseButtonPress, from, Qt::LeftButton, Qt::LeftButton);
        SendMouse(QEvent::MouseMove, (from + to) / 2, Qt::NoButton, Qt::LeftButton);
        SendMouse(QEvent::MouseMove, to, Qt::NoButton, Qt::LeftButton);
        SendMouse(QEvent::MouseButtonRelease, to, Qt::LeftButton, Qt::NoButton);
    }

    void Wheel(const QPoint& at, int delta)
    {
        QWheelEvent event(QPointF(at), QPointF(view->viewport()->mapToGlobal(at)), QPoint(), QPoint(0, delta),
                          Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(view->viewport(), &event);
    }

    QPointF GeoAt(const QPoint& viewPoint) const
    {
        double lon = 0.0;
        double lat = 0.0;
        EXPECT_TRUE(view->ConvertViewPointToGeo(viewPoint, &lon, &lat));
        return QPointF(lon, lat);
    }

    QPointF Center() const
    {
        double lon = 0.0;
        double lat = 0.0;
        module.GetCenter(&lon, &lat);
        return QPointF(lon, lat);
    }

    // Where a geographic point shows in the view.
    QPointF ViewPointOf(const QPointF& geo) const
    {
        QPointF scene;
        EXPECT_TRUE(module.GeoToScenePoint(geo.x(), geo.y(), &scene));
        return view->viewportTransform().map(scene);
    }

    CZoMapModule module;
    std::unique_ptr<CZoMapView> view;
    MapHostRecordingHandler handler{"view"};
};
} // namespace

TEST_F(MapViewTest, CentreOfTheModuleSitsInTheMiddleAtEveryLevel)
{
    EXPECT_EQ(view->GetScrollArea(), view.get());
    EXPECT_EQ(view->transform(), QTransform::fromScale(1.0, 1.0));
    for (double zoom : {3.0, 7.5, 12.25, 21.0})
    {
        SCOPED_TRACE(zoom);
        module.SetZoomAround(zoom, 13.4, 52.5);
        EXPECT_NEAR(view->transform().m11(), module.GetViewScale(), 1e-12);
        const QPointF shown = ViewPointOf(QPointF(13.4, 52.5));
        EXPECT_NEAR(shown.x(), Centre().x(), 1.0);
        EXPECT_NEAR(shown.y(), Centre().y(), 1.0);
        double lon = 0.0;
        double lat = 0.0;
        ASSERT_TRUE(view->ConvertPixelToGeo(Centre().x(), Centre().y(), &lon, &lat));
        // Within two view pixels at this zoom.
        const double tolerance = 2.0 * 360.0 / (256.0 * std::exp2(zoom));
        EXPECT_NEAR(lon, 13.4, tolerance);
        EXPECT_NEAR(lat, 52.5, tolerance);
    }
}

TEST_F(MapViewTest, PixelOffTheWorldHasNoGeographicPosition)
{
    module.SetZoom(0.0);
    double lon = 7.0;
    double lat = 8.0;
    EXPECT_FALSE(view->ConvertPixelToGeo(2, 2, &lon, &lat));
    EXPECT_FALSE(view->ConvertPixelToGeo(Centre().x(), Centre().y(), nullptr, &lat));
    EXPECT_TRUE(view->ConvertPixelToGeo(Centre().x(), Centre().y(), &lon, &lat));
}

TEST_F(MapViewTest, PointerHandlersGetTheTopmostMapObjectId)
{
    const QPoint over = Centre() + QPoint(60, 20);
    TaggedItem* lower = AddItemAt(41, over);
    TaggedItem* upper = AddItemAt(42, over);
    upper->setZValue(lower->zValue() + 1);
    // An untagged child (a label) belongs to its tagged parent.
    auto* label = new QGraphicsRectItem(-3, -3, 6, 6, upper);
    label->setZValue(5);
    // An untagged item on top is not a map object.
    auto* decoration = new QGraphicsRectItem(-5, -5, 10, 10);
    decoration->setPos(view->mapToScene(over));
    decoration->setZValue(10);
    module.GetScene()->addItem(decoration);

    EXPECT_EQ(view->MapObjectIdAt(over), 42);
    SendMouse(QEvent::MouseButtonPress, over, Qt::LeftButton, Qt::LeftButton);
    SendMouse(QEvent::MouseButtonRelease, over, Qt::LeftButton, Qt::NoButton);
    SendMouse(QEvent::MouseButtonPress, QPoint(5, 5), Qt::RightButton, Qt::RightButton);
    const std::string at = " " + std::to_string(over.x()) + "," + std::to_string(over.y());
    EXPECT_EQ(handler.CallsOf("OnMousePress"),
              (std::vector<std::string>{"OnMousePress" + at + " #42", "OnMousePress 5,5 #-1"}));
    EXPECT_EQ(handler.CallsOf("OnMouseRelease"), std::vector<std::string>{"OnMouseRelease" + at + " #42"});

    upper->setVisible(false);
    EXPECT_EQ(view->MapObjectIdAt(over), 41);
}

TEST_F(MapViewTest, HoverFollowsTheTopmostMapObject)
{
    const QPoint over = Centre() + QPoint(-50, 0);
    AddItemAt(7, over);
    SendMouse(QEvent::MouseMove, Centre(), Qt::NoButton, Qt::NoButton);
    SendMouse(QEvent::MouseMove, over, Qt::NoButton, Qt::NoButton);
    SendMouse(QEvent::MouseMove, over + QPoint(2, 0), Qt::NoButton, Qt::NoButton);
    SendMouse(QEvent::MouseMove, Centre(), Qt::NoButton, Qt::NoButton);
    // Leaving the view leaves the object too, at the last pointer position.
    QSignalSpy pointer(view.get(), &CZoMapView::pointerGeoChanged);
    SendMouse(QEvent::MouseMove, over, Qt::NoButton, Qt::NoButton);
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(view->viewport(), &leave);
    ASSERT_EQ(pointer.count(), 2);
    EXPECT_TRUE(pointer.at(0).at(0).toBool());
    EXPECT_FALSE(pointer.at(1).at(0).toBool());
    EXPECT_EQ(handler.CallsOf("OnHoverLeave").back(),
              "OnHoverLeave " + std::to_string(over.x()) + "," + std::to_string(over.y()) + " #7");

    std::vector<std::string> hover;
    for (const std::string& call : handler.calls)
    {
        if (call.rfind("OnHover", 0) == 0)
            hover.push_back(call.substr(0, call.find(' ')) + call.substr(call.find('#')));
    }
    EXPECT_EQ(hover, (std::vector<std::string>{"OnHoverEnter#7", "OnHoverLeave#7", "OnHoverEnter#7",
                                               "OnHoverLeave#7"}));
    EXPECT_EQ(handler.CallsOf("OnMouseMove").size(), 5u);
}

TEST_F(MapViewTest, DraggingTheEmptyMapPans)
{
    const QPoint from = Centre() + QPoint(-40, -30);
    const QPoint to = Centre() + QPoint(70, 45);
    const QPointF grabbed = GeoAt(from);
    QSignalSpy moved(&module, &CZoMapModule::centerChanged);
    Drag(from, to);
    EXPECT_EQ(moved.count(), 2);
    // The point under the pointer went along with it.
    const QPointF shown = ViewPointOf(grabbed);
    EXPECT_NEAR(shown.x(), to.x(), 1.5);
    EXPECT_NEAR(shown.y(), to.y(), 1.5);
    EXPECT_EQ(handler.CallsOf("OnViewMoved").size(), 2u);
}

TEST_F(MapViewTest, ConsumedPressDoesNotPan)
{
    handler.consume.insert("OnMousePress");
    const QPointF before = Center();
    Drag(Centre(), Centre() + QPoint(80, 80));
    EXPECT_EQ(Center(), before);
    EXPECT_EQ(handler.CallsOf("OnMouseMove").size(), 2u);
    EXPECT_EQ(handler.CallsOf("OnMouseRelease").size(), 1u);
}

// A handler that took the press holds the pointer: moves and the release
// carry the pressed object's id wherever the pointer goes, and hover waits.
TEST_F(MapViewTest, ConsumedPressHoldsThePointerUntilTheRelease)
{
    AddItemAt(5, Centre());
    handler.consume.insert("OnMousePress");
    SendMouse(QEvent::MouseMove, Centre(), Qt::NoButton, Qt::NoButton);
    Drag(Centre(), Centre() + QPoint(120, 90));
    for (const std::string& call : handler.CallsOf("OnMouseMove"))
        EXPECT_NE(call.find("#5"), std::string::npos) << call;
    ASSERT_EQ(handler.CallsOf("OnMouseRelease").size(), 1u);
    EXPECT_NE(handler.CallsOf("OnMouseRelease")[0].find("#5"), std::string::npos);
    // The release tells that the pointer left the object meanwhile.
    EXPECT_EQ(handler.CallsOf("OnHoverLeave").size(), 1u);
    handler.calls.clear();
    handler.consume.clear();
    SendMouse(QEvent::MouseMove, Centre() + QPoint(100, 100), Qt::NoButton, Qt::NoButton);
    EXPECT_NE(handler.CallsOf("OnMouseMove")[0].find("#-1"), std::string::npos);
}

TEST_F(MapViewTest, SceneEventsArePublishedAndCleared)
{
    QObject* events = module.GetEventObject();
    QSignalSpy published(view.get(), &CZoMapView::sceneEvent);
    const QPoint over = Centre() + QPoint(30, -30);
    AddItemAt(77, over);
    SendMouse(QEvent::MouseButtonPress, over, Qt::LeftButton, Qt::LeftButton);
    ASSERT_EQ(published.count(), 1);
    EXPECT_EQ(published.at(0).at(0).toString(), QStringLiteral("Scene_MousePress"));
    EXPECT_EQ(published.at(0).at(1).toList(), QVariantList{77});
    EXPECT_FALSE(events->property("Scene_MousePress").isValid());
    SendMouse(QEvent::MouseButtonRelease, over, Qt::LeftButton, Qt::NoButton);

    // Grab flags travel as they are; empty records are dropped silently.
    published.clear();
    events->setProperty("Scene_WheelPressGrab", true);
    events->setProperty("Scene_HoverLeave", QVariantList{3, 3});
    events->setProperty("Scene_KeyRelease", QVariantList{});
    EXPECT_EQ(view->PublishSceneEvents(), (QStringList{"Scene_HoverLeave", "Scene_WheelPressGrab"}));
    ASSERT_EQ(published.count(), 2);
    EXPECT_EQ(published.at(0).at(1).toList(), (QVariantList{3, 3}));
    EXPECT_EQ(published.at(1).at(1), QVariant(true));
    for (const char* name : {"Scene_WheelPressGrab", "Scene_HoverLeave", "Scene_KeyRelease"})
        EXPECT_FALSE(events->property(name).isValid()) << name;
}

TEST_F(MapViewTest, WheelZoomsAboutThePointer)
{
    const QPoint at = Centre() + QPoint(90, -60);
    const QPointF under = GeoAt(at);
    Wheel(at, 240);
    EXPECT_EQ(module.GetCurrentLodLevel(), 4);
    EXPECT_NEAR(module.GetZoom(), 4.0, 1e-9);
    EXPECT_EQ(handler.CallsOf("OnLodLevelChanged"), std::vector<std::string>{"OnLodLevelChanged 4"});
    QPointF shown = ViewPointOf(under);
    EXPECT_NEAR(shown.x(), at.x(), 1.5);
    EXPECT_NEAR(shown.y(), at.y(), 1.5);

    Wheel(at, -120);
    EXPECT_EQ(module.GetCurrentLodLevel(), 3);
    EXPECT_NEAR(module.GetViewScale(), std::sqrt(2.0), 1e-9);
    shown = ViewPointOf(under);
    EXPECT_NEAR(shown.x(), at.x(), 1.5);
    EXPECT_NEAR(shown.y(), at.y(), 1.5);
}

TEST_F(MapViewTest, EventsTakenByAnEmbeddedWidgetLeaveTheMapAlone)
{
    const QPointF before = Center();
    module.GetEventObject()->setProperty("Scene_MousePressGrab", true);
    Drag(Centre(), Centre() + QPoint(50, 0));
    module.GetEventObject()->setProperty("Scene_WheelPressGrab", true);
    Wheel(Centre(), 240);
    EXPECT_EQ(Center(), before);
    EXPECT_NEAR(module.GetZoom(), 3.0, 1e-12);
}

TEST_F(MapViewTest, KeysZoomAndPanUnlessAHandlerTakesThem)
{
    QTest::keyClick(view.get(), Qt::Key_Plus);
    EXPECT_NEAR(module.GetZoom(), 4.0, 1e-9);
    QTest::keyClick(view.get(), Qt::Key_Minus);
    EXPECT_NEAR(module.GetZoom(), 3.0, 1e-9);

    const QPointF before = Center();
    QTest::keyClick(view.get(), Qt::Key_Left);
    EXPECT_LT(Center().x(), before.x());
    QTest::keyClick(view.get(), Qt::Key_Up);
    EXPECT_GT(Center().y(), before.y());

    handler.consume.insert("OnKeyPress");
    QTest::keyClick(view.get(), Qt::Key_Plus);
    QTest::keyClick(view.get(), Qt::Key_Escape);
    EXPECT_NEAR(module.GetZoom(), 3.0, 1e-9);
    const auto keys = handler.CallsOf("OnKeyPress");
    ASSERT_FALSE(keys.empty());
    EXPECT_EQ(keys.back(), "OnKeyPress " + std::to_string(Qt::Key_Escape));
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
        double lon = 0.0;
        double lat = 0.0;
        EXPECT_EQ(target->GetMapModule(), nullptr);
        EXPECT_FALSE(target->ConvertPixelToGeo(100, 50, &lon, &lat));
        EXPECT_TRUE(target->PublishSceneEvents().isEmpty());
        QTest::mouseClick(target->viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(100, 50));
        QTest::keyClick(target, Qt::Key_Plus);
        EXPECT_FALSE(target->grab().isNull());
    }
}
