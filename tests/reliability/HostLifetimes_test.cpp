// Lifetimes as hosts handle them: an object destroyed from its own event, a
// layer cleared inside a press, another module's layer, the map module gone
// first, calls from a worker thread.
#include "support/MapObjectKinds.h"
#include "support/ModuleFixture.h"
#include <ZoGraphics/CZoMapModule.h>
#include <QCoreApplication>
#include <QGraphicsProxyWidget>
#include <QGraphicsView>
#include <QPushButton>
#include <QTest>
#include <algorithm>
#include <functional>
#include <thread>

namespace
{
int CountOf(const std::vector<std::string>& messages, const std::string& text)
{
    return static_cast<int>(std::count(messages.begin(), messages.end(), text));
}

// Deletions Qt could not do while it was still delivering an event.
void RunDeferredDeletes() { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }

// Clears the layer whenever an item records a press.
class ClearOnPress : public QObject
{
public:
    explicit ClearOnPress(IZoGraphicsMapLayer* layer) : m_layer(layer) {}
    int clears = 0;

protected:
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::DynamicPropertyChange &&
            static_cast<QDynamicPropertyChangeEvent*>(event)->propertyName() == "Scene_MousePress")
            ++clears, m_layer->DestroyAllMapObjects();
        return false;
    }
    IZoGraphicsMapLayer* m_layer;
};
} // namespace

class HostLifetimes : public ModuleFixture
{
protected:
    void ShowView()
    {
        view = std::make_unique<QGraphicsView>(map.Scene());
        view->resize(400, 400);
        view->setSceneRect(-200, -200, 400, 400);
        view->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(view.get()));
    }
    QPoint ViewPointOf(QWidget* embedded)
    {
        QWidget* top = embedded->window();
        return view->mapFromScene(
            top->graphicsProxyWidget()->mapToScene(QPointF(embedded->mapTo(top, embedded->rect().center()))));
    }
    std::unique_ptr<QGraphicsView> view;
};

// "Close this panel": the button's click destroys the object whose item is
// still delivering the release to the button.
TEST_F(HostLifetimes, ButtonInAnEmbeddedWidgetDestroysItsOwnObject)
{
    ShowView();
    for (const bool bubble : {false, true})
    {
        auto button = std::make_unique<QPushButton>(QStringLiteral("close"));
        button->resize(80, 30);
        IZoGraphicsMapObject* object = nullptr;
        if (auto* b = bubble ? module.CreateBubbleMapObject("b", nullptr) : nullptr)
            b->SetWidget(button.get()), object = b;
        else if (auto* w = module.CreateWidgetMapObject("w", nullptr))
            w->SetWidget(button.get()), object = w;
        object->SetInteractive(true);
        const int id = object->GetObjectID();
        int clicks = 0;
        QObject::connect(button.get(), &QPushButton::clicked, [&] {
            ++clicks;
            module.DestroyGraphicsMapObject(module.LookupGraphicObject(id));
            EXPECT_EQ(module.LookupGraphicObject(id), nullptr);
        });
        QTest::mouseClick(view->viewport(), Qt::LeftButton, Qt::NoModifier, ViewPointOf(button.get()));
        RunDeferredDeletes();
        EXPECT_EQ(clicks, 1);
        EXPECT_EQ(module.LookupGraphicObject(id), nullptr);
        // The host's widget comes back to it once the item is gone.
        EXPECT_EQ(button->parentWidget(), nullptr);
    }
}

// A host reacting to the recorded press by clearing the map, while Qt's press
// dispatch still walks the items under the pointer.
TEST_F(HostLifetimes, EventFilterClearsTheLayerDuringThePress)
{
    for (int i = 0; i < 3; ++i)
    {
        IZoDotMapObject* dot = module.CreateDotMapObject("dot", nullptr);
        dot->SetPosition(CVector3D(0.0, 0.0, 0.0));
        dot->SetInteractive(true);
    }
    ShowView();
    ClearOnPress filter(DefaultLayer());
    map.GetEventObject()->installEventFilter(&filter);
    const QPoint centre = view->mapFromScene(QPointF(0.0, 0.0));
    QTest::mousePress(view->viewport(), Qt::LeftButton, Qt::NoModifier, centre);
    QTest::mouseRelease(view->viewport(), Qt::LeftButton, Qt::NoModifier, centre);
    RunDeferredDeletes();
    EXPECT_GE(filter.clears, 1);
    EXPECT_EQ(DefaultLayer()->GetMapObjectCount(), 0);
    EXPECT_EQ(module.LookupGraphicObject("dot"), nullptr);
    EXPECT_TRUE(map.Scene()->items().isEmpty());
}

// A layer belongs to the module that made it: another module refuses it, so
// that its objects never outlive the layer they sit on.
TEST_F(HostLifetimes, CreatorsRefuseAnotherModulesLayer)
{
    CZoGraphicsModule other;
    ASSERT_TRUE(other.Initialise("other", &map));
    IZoGraphicsMapLayer* foreign = other.CreateGraphicsLayer("theirs");
    const int before = module.GetRegisteredObjectCount();
    for (const MapObjectMaker& make : EveryKindMaker())
        EXPECT_EQ(make(module, "x", foreign), nullptr);
    EXPECT_EQ(module.CreateTranslateEditObject(foreign), nullptr);
    EXPECT_EQ(module.GetRegisteredObjectCount(), before);
    EXPECT_EQ(foreign->GetMapObjectCount(), 0);
    EXPECT_EQ(CountOf(log.Messages(), "[CZoGraphicsModule::CreateDotMapObject] 图层不属于本模块"), 1);
    EXPECT_EQ(CountOf(log.Messages(), "[CZoGraphicsModule::CreateTranslateEditObject] 图层不属于本模块"), 1);
    // Nor does it destroy what is not its own.
    IZoDotMapObject* theirs = other.CreateDotMapObject("theirs", foreign);
    module.DestroyGraphicsMapObject(theirs);
    module.DestroyGraphicsLayer(foreign);
    EXPECT_EQ(other.LookupGraphicObject("theirs"), theirs);
    EXPECT_EQ(other.LookupGraphicsLayer("theirs"), foreign);
    other.Unintialise();
}

// The host tears its map module down first: the graphics module must let go
// of the scene and the map module and still be torn down cleanly after.
TEST(HostMapModuleGoneFirst, GraphicsModuleSurvivesTheTeardown)
{
    const std::vector<std::function<IZoMapModule*()>> hosts{[] { return new FakeMapModule; },
                                                             [] { return new CZoMapModule; }};
    for (const auto& makeHost : hosts)
    {
        std::unique_ptr<IZoMapModule> host(makeHost());
        LogCapture log;
        CZoGraphicsModule module;
        ASSERT_TRUE(module.Initialise("graphics", host.get()));
        IZoGraphicsMapLayer* layer = module.CreateGraphicsLayer("more");
        auto widget = std::make_unique<QPushButton>(QStringLiteral("host widget"));
        for (const MapObjectMaker& make : EveryKindMaker())
        {
            IZoGraphicsMapObject* object = make(module, "o", layer);
            ASSERT_NE(object, nullptr);
            if (auto* w = dynamic_cast<IZoWidgetMapObject*>(object))
                w->SetWidget(widget.get());
        }
        module.DestroyGraphicsEditObject(module.CreateScaleEditObject(nullptr));
        IZoGraphicsMapObject* first = module.LookupGraphicObject("o");
        host.reset();
        EXPECT_FALSE(first->IsInScene()); // its scene went, and its item with it
        EXPECT_EQ(module.CreateDotMapObject("late", nullptr), nullptr);
        module.Unintialise();
        EXPECT_EQ(widget->parentWidget(), nullptr);
        EXPECT_EQ(CountOf(log.Messages(), "[CZoGraphicsModule::CreateDotMapObject] 初始化失败"), 1);
    }
}

// Everything but lookups belongs to the GUI thread. A worker's call is
// refused and reported, once for each operation, instead of corrupting the
// scene.
TEST_F(HostLifetimes, WorkerThreadCallsAreRefused)
{
#ifndef QT_NO_DEBUG
    GTEST_SKIP() << "debug builds assert the thread instead";
#endif
    IZoDotMapObject* dot = module.CreateDotMapObject("gui", nullptr);
    const int before = module.GetRegisteredObjectCount();
    IZoGraphicsMapObject* made = nullptr;
    std::thread worker([&] {
        for (int i = 0; i < 2; ++i)
        {
            made = module.CreateDotMapObject("worker", nullptr);
            dot->SetName("renamed");
            dot->SetZValue(7);
            module.DestroyGraphicsMapObject(dot);
        }
    });
    worker.join();
    EXPECT_EQ(made, nullptr);
    EXPECT_EQ(module.GetRegisteredObjectCount(), before);
    EXPECT_EQ(module.LookupGraphicObject("gui"), dot);
    EXPECT_EQ(dot->GetZValue(), 400);
    for (const char* text : {"[CZoGraphicsModule::CreateDotMapObject] 只能在GUI线程调用",
                             "[CZoDotMapObject::SetName] 只能在GUI线程调用",
                             "[CZoDotMapObject::SetZValue] 只能在GUI线程调用",
                             "[CZoGraphicsModule::DestroyGraphicsMapObject] 只能在GUI线程调用"})
        EXPECT_EQ(CountOf(log.Messages(), text), 1) << text;
}
