#include "support/ModuleFixture.h"

#include "layer/ZoSceneEvents.h"

#include <QGraphicsView>
#include <QMouseEvent>
#include <QTest>

namespace
{
// A view that remembers whether the scene left presses to it.
class RecordingView : public QGraphicsView
{
public:
    using QGraphicsView::QGraphicsView;
    std::vector<bool> acceptedByScene;

protected:
    void mousePressEvent(QMouseEvent* event) override
    {
        QGraphicsView::mousePressEvent(event);
        acceptedByScene.push_back(event->isAccepted());
    }
};

QList<int> Ids(const QObject* events, const char* name)
{
    QList<int> ids;
    for (const QVariant& id : events->property(name).toList())
        ids.append(id.toInt());
    return ids;
}
} // namespace

class SceneEvents : public ModuleFixture
{
protected:
    void SetUp() override
    {
        ModuleFixture::SetUp();
        for (const char* name : {"lower", "upper", "inert"})
        {
            IZoDotMapObject* dot = module.CreateDotMapObject(name, nullptr);
            dot->SetPosition(CVector3D(0.0, 0.0, 0.0));
            dots.push_back(dot);
        }
        dots[0]->SetInteractive(true);
        dots[1]->SetInteractive(true);
        dots[1]->SetZValue(500);
        dots[2]->SetZValue(600); // on top, but not interactive

        view = std::make_unique<RecordingView>(map.Scene());
        view->resize(200, 200);
        view->setSceneRect(-100, -100, 200, 200);
        view->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(view.get()));
    }
    QPoint Centre() const { return view->mapFromScene(QPointF(0.0, 0.0)); }
    QObject* Events() { return map.GetEventObject(); }

    std::vector<IZoDotMapObject*> dots;
    std::unique_ptr<RecordingView> view;
};

TEST_F(SceneEvents, OverlappingInteractiveDotsAreRecordedInDeliveryOrder)
{
    QTest::mousePress(view->viewport(), Qt::LeftButton, Qt::NoModifier, Centre());
    QTest::mouseRelease(view->viewport(), Qt::LeftButton, Qt::NoModifier, Centre());
    const QList<int> expected{dots[1]->GetObjectID(), dots[0]->GetObjectID()};
    EXPECT_EQ(Ids(Events(), "Scene_MousePress"), expected);
    // The release goes to no item: nobody grabbed the press.
    EXPECT_TRUE(Ids(Events(), "Scene_MouseRelease").isEmpty());
    // The items ignored the press, so the view still has it.
    ASSERT_EQ(view->acceptedByScene.size(), 1u);
    EXPECT_FALSE(view->acceptedByScene[0]);
}

TEST_F(SceneEvents, NonInteractiveDotsAreNeverRecorded)
{
    QTest::mouseMove(view->viewport(), Centre());
    QTest::mouseDClick(view->viewport(), Qt::LeftButton, Qt::NoModifier, Centre());
    const int inert = dots[2]->GetObjectID();
    for (const char* name : {"Scene_HoverEnter", "Scene_HoverMove", "Scene_MousePress", "Scene_MouseDoubleClicked"})
        EXPECT_FALSE(Ids(Events(), name).contains(inert)) << name;
    EXPECT_TRUE(Ids(Events(), "Scene_HoverEnter").contains(dots[1]->GetObjectID()));
    EXPECT_TRUE(Ids(Events(), "Scene_MouseDoubleClicked").contains(dots[0]->GetObjectID()));
}

TEST_F(SceneEvents, RecordingAppendsKeepsDuplicatesAndGrabsOnce)
{
    Events()->setProperty("Scene_MousePress", QVariant());
    RecordSceneEvent("Scene_MousePress", dots[0]);
    RecordSceneEvent("Scene_MousePress", dots[0]);
    RecordSceneEvent("Scene_MousePress", nullptr);
    const int id = dots[0]->GetObjectID();
    EXPECT_EQ(Ids(Events(), "Scene_MousePress"), (QList<int>{id, id}));

    RecordSceneGrab("Scene_MousePressGrab", dots[0]);
    RecordSceneGrab("Scene_MousePressGrab", nullptr);
    EXPECT_EQ(Events()->property("Scene_MousePressGrab"), QVariant(true));
}
