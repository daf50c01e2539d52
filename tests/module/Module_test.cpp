// The module's registry and scene: the default layer, teardown order, names
// found after a layer's Initialise, objects outliving their module, and the
// four stacking operations (compared by the items' paint order).
#include "support/ModuleFixture.h"

#include <QGraphicsItem>

#include <memory>

using Messages = std::vector<std::string>;

using GraphicsModule = ModuleFixture;

TEST_F(GraphicsModule, DefaultLayerHearsTheMapAndDestroyedObjectsLeaveTheScene)
{
    EXPECT_GT(module.GetModuleID(), 0);
    EXPECT_EQ(module.GetUUID().size(), 36u);
    ASSERT_EQ(map.handlers.size(), 1u);
    EXPECT_EQ(map.handlers[0], dynamic_cast<IZoMapEventHandler*>(module.LookupGraphicsLayer("Zo.DefaultGraphicsLayer")));
    IZoDotMapObject* dot = module.CreateDotMapObject("d", nullptr);
    EXPECT_EQ(dot->GetQtItem()->scene(), map.Scene());
    module.DestroyGraphicsMapObject(dot);
    EXPECT_TRUE(map.Scene()->items().isEmpty());
    log.Clear();
    module.DestroyGraphicsMapObject(nullptr);
    module.DestroyGraphicsLayer(nullptr);
    module.DestroyGraphicsEditObject(nullptr);
    EXPECT_TRUE(log.Messages().empty());
    CZoGraphicsModule copy(module); // shares the map, owns nothing
    EXPECT_EQ(copy.GetMapModule(), &map);
    EXPECT_EQ(copy.GetDeafultGraphicsLayer(), nullptr);
    copy.Unintialise();
    EXPECT_NE(module.GetDeafultGraphicsLayer(), nullptr);
}

TEST_F(GraphicsModule, UnintialiseDestroysLayersFirstThenOrphansAndLeavesTheKeysBehind)
{
    IZoGraphicsMapLayer* kept = module.CreateGraphicsLayer("kept");
    IZoGraphicsMapLayer* dropped = module.CreateGraphicsLayer("dropped");
    module.CreateDotMapObject("a", kept);
    module.CreateDotMapObject("b", kept);
    IZoDotMapObject* orphan = module.CreateDotMapObject("orphan", dropped);
    module.DestroyGraphicsLayer(dropped); // its objects stay registered, without a layer
    EXPECT_EQ(orphan->GetQtItem()->scene(), map.Scene());
    const int orphanId = orphan->GetObjectID();
    EXPECT_EQ(module.GetRegisteredLayerCount(), 2);
    EXPECT_EQ(module.GetRegisteredObjectCount(), 3);
    UnintialiseNow();
    EXPECT_EQ(DefaultLayer(), nullptr);
    // The layers' keys and the orphan's stay, with nothing behind them.
    EXPECT_EQ(module.GetRegisteredLayerCount(), 2);
    EXPECT_EQ(module.GetRegisteredObjectCount(), 1);
    EXPECT_EQ(module.LookupGraphicObject(orphanId), nullptr);
    EXPECT_EQ(module.LookupGraphicsLayer("kept"), nullptr);
    EXPECT_TRUE(map.Scene()->items().isEmpty());
    EXPECT_TRUE(map.handlers.empty());
}

// Initialise is the only way a layer changes its name.
TEST_F(GraphicsModule, ALayerInitialisedAgainIsFoundUnderItsNewName)
{
    IZoGraphicsMapLayer* roads = module.CreateGraphicsLayer("roads");
    IZoGraphicsMapLayer* roads2 = module.CreateGraphicsLayer("roads");
    ASSERT_TRUE(roads->Initialise("rivers", &map, &module));
    EXPECT_EQ(module.LookupGraphicsLayer("rivers"), roads);
    EXPECT_EQ(module.LookupGraphicsLayer("roads"), roads2);
}

// The destructor leaves objects and layers alone; they must not report to it.
TEST_F(GraphicsModule, ObjectsOutlivingTheirModuleCanStillBeRenamed)
{
    auto graphics = std::make_unique<CZoGraphicsModule>();
    graphics->Initialise("short-lived", &map);
    IZoDotMapObject* dot = graphics->CreateDotMapObject("orphan", nullptr);
    IZoGraphicsMapLayer* layer = graphics->CreateGraphicsLayer("orphans");
    IZoGraphicsMapLayer* defaultLayer = graphics->GetDeafultGraphicsLayer();
    graphics.reset();
    dot->SetName("renamed");
    ASSERT_TRUE(layer->Initialise("renamed", &map, nullptr));
    EXPECT_EQ(dot->GetName(), "renamed");
    dot->Unintialise();
    delete dot;
    for (IZoGraphicsMapLayer* left : {layer, defaultLayer})
    {
        left->Unintialise();
        delete left;
    }
}

// Four dots on one layer (z 400).
class Stacking : public ModuleFixture
{
protected:
    void SetUp() override
    {
        ModuleFixture::SetUp();
        layer = module.CreateGraphicsLayer("stack");
        for (int i = 0; i < 4; ++i)
            dots.push_back(module.CreateDotMapObject("d" + std::to_string(i), layer));
        log.Clear();
    }
    int Id(int i) const { return dots[i]->GetObjectID(); }
    QGraphicsItem* Item(int i) const { return dots[i]->GetQtItem(); }
    bool Above(int a, int b) const
    {
        const QList<QGraphicsItem*> order = map.Scene()->items(Qt::DescendingOrder);
        return order.indexOf(Item(a)) < order.indexOf(Item(b));
    }

    IZoGraphicsMapLayer* layer = nullptr;
    std::vector<IZoDotMapObject*> dots;
};

TEST_F(Stacking, TopAndUpperPutTheObjectAboveAllOrTheFirstOther)
{
    dots[2]->SetZValue(900);
    module.StackedTop(dots[0], {Id(1), Id(2), Id(3)});
    for (int other : {1, 2, 3})
        EXPECT_TRUE(Above(0, other) && Item(other)->zValue() == 400) << other;
    // Stored z values are untouched; Dirty puts them back on the items.
    EXPECT_EQ(dots[2]->GetZValue(), 900);
    dots[2]->Dirty();
    EXPECT_EQ(Item(2)->zValue(), 900);
    for (int i : {1, 2, 3})
        Item(i)->setZValue(500);
    module.StackedUpper(dots[0], {Id(0), Id(1), Id(2)});
    EXPECT_EQ(Item(1)->zValue(), 400);
    EXPECT_EQ(Item(2)->zValue(), 500);
    EXPECT_TRUE(Above(0, 1));
    Item(0)->setZValue(7); // own id or unknown ids only: the layer's z
    module.StackedTop(dots[0], {Id(0), 123456});
    EXPECT_EQ(Item(0)->zValue(), 400);
    EXPECT_TRUE(log.Messages().empty());
}

TEST_F(Stacking, LowerStopsAtTheFirstObjectNotAboveTheLayerAndBottomGoesBelowAll)
{
    dots[1]->SetZValue(450); // stored above the layer's 400: skipped
    module.StackedLower(dots[0], {Id(1), Id(2), Id(3)});
    EXPECT_EQ(Item(1)->zValue(), 450);
    EXPECT_TRUE(Above(2, 0));
    EXPECT_EQ(Item(2)->zValue(), 400);
    dots[3]->SetZValue(100); // below the layer: left alone
    module.StackedBottom(dots[0], {Id(1), Id(2), Id(3)});
    EXPECT_TRUE(Above(1, 0) && Above(2, 0));
    EXPECT_EQ(Item(3)->zValue(), 100);
}

TEST_F(Stacking, BadArgumentsLogWithTheOperationsOwnName)
{
    Item(0)->setZValue(7);
    module.StackedTop(dots[0], {});
    module.StackedUpper(nullptr, {Id(1)});
    EXPECT_EQ(Item(0)->zValue(), 7);
    dots[1]->RemoveFromScene();
    IZoGraphicsMapLayer* manual = module.CreateGraphicsLayer("manual");
    manual->SetAutoAdd(false);
    module.StackedLower(module.CreateDotMapObject("n", manual), {Id(1)});
    EXPECT_EQ(log.Messages(), (Messages{"[CZoGraphicsModule::StackedTop] 传入参数为空",
                                        "[CZoGraphicsModule::StackedUpper] 传入参数为空",
                                        "[CZoGraphicsModule::StackedLower] 图元Qt-Item为空"}));
}

// Qt can only order siblings in one scene: out of it, only the layer's z.
TEST_F(Stacking, ObjectsOutOfTheSceneOnlyTakeTheLayersZ)
{
    dots[1]->RemoveFromScene();
    for (auto stack : {&IZoGraphicsModule::StackedTop, &IZoGraphicsModule::StackedUpper,
                       &IZoGraphicsModule::StackedLower, &IZoGraphicsModule::StackedBottom})
    {
        (module.*stack)(dots[0], {Id(1), Id(2)});
        (module.*stack)(dots[1], {Id(0), Id(3)});
    }
    EXPECT_EQ(Item(1)->zValue(), 400);
    dots[1]->AddToScene();
    module.StackedTop(dots[1], {Id(0), Id(2), Id(3)});
    for (int other : {0, 2, 3})
        EXPECT_TRUE(Above(1, other)) << other;
}
