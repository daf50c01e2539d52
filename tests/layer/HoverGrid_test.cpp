// Hover reaches the host through the layers' own grids, whatever index the
// host's scene keeps: for objects that moved, after a zoom, under host items,
// and for objects the host destroys as they are entered.
#include <ZoGraphics/CZoGraphicsModule.h>
#include <ZoGraphics/CZoMapModule.h>
#include <ZoGraphics/IZoDotMapObject.h>

#include <QCoreApplication>
#include <QGraphicsEllipseItem>
#include <QGraphicsScene>
#include <QGraphicsSceneMouseEvent>
#include <QGraphicsView>

#include <gtest/gtest.h>

namespace
{
class HostHoverItem : public QGraphicsEllipseItem
{
public:
    using QGraphicsEllipseItem::QGraphicsEllipseItem;
    std::vector<QEvent::Type> seen;

protected:
    void hoverEnterEvent(QGraphicsSceneHoverEvent*) override { seen.push_back(QEvent::GraphicsSceneHoverEnter); }
    void hoverLeaveEvent(QGraphicsSceneHoverEvent*) override { seen.push_back(QEvent::GraphicsSceneHoverLeave); }
};

class HoverGrid : public ::testing::TestWithParam<QGraphicsScene::ItemIndexMethod>
{
protected:
    void SetUp() override
    {
        map.GetScene()->setItemIndexMethod(GetParam());
        map.SetZoomAround(4.0, 0.0, 0.0);
        ASSERT_TRUE(graphics.Initialise("hover", &map));
    }
    void TearDown() override { graphics.Unintialise(); }

    IZoDotMapObject* Dot(const char* name, double lon, double lat)
    {
        IZoDotMapObject* dot = graphics.CreateDotMapObject(name, nullptr);
        dot->SetRadius(6.0);
        dot->SetPosition(CVector3D(lon, lat, 0.0));
        dot->SetInteractive(true);
        return dot;
    }
    QPointF At(double lon, double lat)
    {
        QPointF point;
        EXPECT_TRUE(map.GeoToScenePoint(lon, lat, &point));
        return point;
    }
    void MoveTo(const QPointF& scenePoint)
    {
        QGraphicsSceneMouseEvent move(QEvent::GraphicsSceneMouseMove);
        move.setScenePos(scenePoint);
        move.setButtons(Qt::NoButton);
        QCoreApplication::sendEvent(map.GetScene(), &move);
    }
    // The ids recorded under the event's name since the last call.
    QVariantList Take(const char* name)
    {
        QObject* events = map.GetEventObject();
        const QVariantList ids = events->property(name).toList();
        events->setProperty(name, QVariant());
        return ids;
    }

    CZoMapModule map;
    CZoGraphicsModule graphics;
};

// Destroys an object as soon as its entry is recorded.
class DestroyOnEnter : public QObject
{
public:
    explicit DestroyOnEnter(CZoGraphicsModule& graphics) : m_graphics(graphics) {}

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::DynamicPropertyChange &&
            static_cast<QDynamicPropertyChangeEvent*>(event)->propertyName() == "Scene_HoverEnter")
        {
            for (const QVariant& id : watched->property("Scene_HoverEnter").toList())
                m_graphics.DestroyGraphicsMapObject(m_graphics.LookupGraphicObject(id.toInt()));
        }
        return false;
    }

private:
    CZoGraphicsModule& m_graphics;
};
} // namespace

TEST_P(HoverGrid, AMovedDotIsHoveredWhereItIsNowBeforeAndAfterAZoom)
{
    QGraphicsView view(map.GetScene());
    IZoDotMapObject* dot = Dot("moving", 0.0, 0.0);
    const QVariantList id{dot->GetObjectID()};
    // Views report the pointer's moves without a button once something can
    // be hovered.
    EXPECT_TRUE(view.viewport()->hasMouseTracking());
    MoveTo(At(0.0, 0.0));
    EXPECT_EQ(Take("Scene_HoverEnter"), id);
    EXPECT_EQ(Take("Scene_HoverMove"), id);
    dot->SetPosition(CVector3D(20.0, 10.0, 0.0));
    MoveTo(At(0.0, 0.0) + QPointF(1.0, 0.0));
    EXPECT_EQ(Take("Scene_HoverLeave"), id);
    EXPECT_EQ(Take("Scene_HoverMove"), QVariantList());
    MoveTo(At(20.0, 10.0));
    EXPECT_EQ(Take("Scene_HoverEnter"), id);
    map.SetZoomAround(7.0, 20.0, 10.0);
    MoveTo(At(20.0, 10.0) + QPointF(40.0, 0.0));
    EXPECT_EQ(Take("Scene_HoverLeave"), id);
    MoveTo(At(20.0, 10.0) + QPointF(4.0, 0.0));
    EXPECT_EQ(Take("Scene_HoverEnter"), id);
    EXPECT_EQ(Take("Scene_HoverLeave"), QVariantList());
    // Along a row of cells, then along a column.
    for (const QPointF& to : {QPointF(23.0, 10.0), QPointF(23.0, 13.0)})
    {
        MoveTo(At(0.0, 0.0));
        EXPECT_EQ(Take("Scene_HoverLeave"), id);
        dot->SetPosition(CVector3D(to.x(), to.y(), 0.0));
        MoveTo(At(to.x(), to.y()));
        EXPECT_EQ(Take("Scene_HoverEnter"), id) << to.y();
    }
}

TEST_P(HoverGrid, TheTopmostDotIsHoveredAndHostItemsAboveKeepTheirHover)
{
    IZoDotMapObject* lower = Dot("lower", 5.0, 5.0);
    IZoDotMapObject* upper = Dot("upper", 5.0, 5.0);
    lower->SetZValue(500);
    // A higher z value wins; among equal ones the dot added last.
    MoveTo(At(5.0, 5.0));
    EXPECT_EQ(Take("Scene_HoverEnter"), QVariantList{lower->GetObjectID()});
    upper->SetZValue(500);
    MoveTo(At(5.0, 5.0) + QPointF(1.0, 1.0));
    EXPECT_EQ(Take("Scene_HoverLeave"), QVariantList{lower->GetObjectID()});
    EXPECT_EQ(Take("Scene_HoverEnter"), QVariantList{upper->GetObjectID()});

    auto* host = new HostHoverItem(-10.0, -10.0, 20.0, 20.0); // the scene owns it
    host->setAcceptHoverEvents(true);
    host->setZValue(1000.0);
    host->setPos(At(5.0, 5.0));
    map.GetScene()->addItem(host);
    MoveTo(At(5.0, 5.0));
    MoveTo(At(5.0, 5.0) + QPointF(60.0, 0.0));
    EXPECT_EQ(host->seen, (std::vector<QEvent::Type>{QEvent::GraphicsSceneHoverEnter, QEvent::GraphicsSceneHoverLeave}));
    EXPECT_EQ(Take("Scene_HoverLeave"), QVariantList{upper->GetObjectID()});
}

TEST_P(HoverGrid, ADotDestroyedAsItIsEnteredIsNotToldMore)
{
    IZoDotMapObject* doomed = Dot("doomed", -30.0, 20.0);
    const QVariantList id{doomed->GetObjectID()};
    DestroyOnEnter destroyer(graphics);
    map.GetEventObject()->installEventFilter(&destroyer);
    MoveTo(At(-30.0, 20.0));
    map.GetEventObject()->removeEventFilter(&destroyer);
    EXPECT_EQ(graphics.LookupGraphicObject(id.front().toInt()), nullptr);
    EXPECT_EQ(Take("Scene_HoverEnter"), id);
    MoveTo(At(-30.0, 20.0) + QPointF(50.0, 0.0));
    EXPECT_EQ(Take("Scene_HoverMove"), QVariantList());
    EXPECT_EQ(Take("Scene_HoverLeave"), QVariantList());
}

INSTANTIATE_TEST_SUITE_P(SceneIndex, HoverGrid,
                         ::testing::Values(QGraphicsScene::NoIndex, QGraphicsScene::BspTreeIndex),
                         [](const ::testing::TestParamInfo<QGraphicsScene::ItemIndexMethod>& info) {
                             return info.param == QGraphicsScene::NoIndex ? std::string("NoIndex")
                                                                          : std::string("QtIndex");
                         });
