#include "support/ModuleFixture.h"
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

using SceneEvents = ModuleFixture;
} // namespace

TEST_F(SceneEvents, OverlappingInteractiveDotsAreRecordedInDeliveryOrder)
{
    std::vector<IZoDotMapObject*> dots;
    for (const char* name : {"lower", "upper", "inert"})
    {
        dots.push_back(module.CreateDotMapObject(name, nullptr));
        dots.back()->SetPosition(CVector3D(0.0, 0.0, 0.0));
    }
    dots[0]->SetInteractive(true);
    dots[1]->SetInteractive(true);
    dots[1]->SetZValue(500);
    dots[2]->SetZValue(600); // on top, but not interactive
    RecordingView view(map.Scene());
    view.resize(200, 200);
    view.setSceneRect(-100, -100, 200, 200);
    view.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&view));
    const QPoint centre = view.mapFromScene(QPointF(0.0, 0.0));
    QTest::mousePress(view.viewport(), Qt::LeftButton, Qt::NoModifier, centre);
    QTest::mouseRelease(view.viewport(), Qt::LeftButton, Qt::NoModifier, centre);
    const QObject* events = map.GetEventObject();
    EXPECT_EQ(Ids(events, "Scene_MousePress"), (QList<int>{dots[1]->GetObjectID(), dots[0]->GetObjectID()}));
    // Nobody grabbed the press: the release goes to no item, the view has it.
    EXPECT_TRUE(Ids(events, "Scene_MouseRelease").isEmpty());
    EXPECT_EQ(view.acceptedByScene, std::vector<bool>{false});
}
