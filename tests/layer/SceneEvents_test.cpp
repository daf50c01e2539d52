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
} // namespace

class SceneEvents : public ModuleFixture
{
protected:
    void SetUp() override
    {
        ModuleFixture::SetUp();
        for (const char* name : {"lower", "upper", "inert"})
        {
            dots.push_back(module.CreateDotMapObject(name, nullptr));
            dots.back()->SetPosition(CVector3D(0.0, 0.0, 0.0));
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
    EXPECT_EQ(Ids(Events(), "Scene_MousePress"), (QList<int>{dots[1]->GetObjectID(), dots[0]->GetObjectID()}));
    // Nobody grabbed the press: the release goes to no item, the view has it.
    EXPECT_TRUE(Ids(Events(), "Scene_MouseRelease").isEmpty());
    EXPECT_EQ(view->acceptedByScene, std::vector<bool>{false});
}

