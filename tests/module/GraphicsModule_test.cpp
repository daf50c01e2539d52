#include "support/ModuleFixture.h"

#include <QGraphicsItem>


using Messages = std::vector<std::string>;

class GraphicsModule : public ModuleFixture
{
};

TEST_F(GraphicsModule, InitialiseCreatesTheDefaultLayerAndRegistersItWithTheMap)
{
    IZoGraphicsMapLayer* layer = DefaultLayer();
    ASSERT_NE(layer, nullptr);
    EXPECT_EQ(layer->GetLayerName(), "Zo.DefaultGraphicsLayer");
    EXPECT_EQ(STR_DEAFULT_GRAPHICS_LAYER_NAME, "Zo.DefaultGraphicsLayer");
    EXPECT_EQ(module.LookupGraphicsLayer(STR_DEAFULT_GRAPHICS_LAYER_NAME), layer);
    EXPECT_GT(module.GetModuleID(), 0);
    EXPECT_EQ(module.GetUUID().size(), 36u);
    ASSERT_EQ(map.handlers.size(), 1u);
    EXPECT_EQ(map.handlers[0], dynamic_cast<IZoMapEventHandler*>(layer));
}

TEST_F(GraphicsModule, NullLayerPutsTheObjectOnTheDefaultLayer)
{
    IZoDotMapObject* dot = module.CreateDotMapObject("d", nullptr);
    ASSERT_NE(dot, nullptr);
    EXPECT_EQ(dot->GetGraphicsMapLayer(), DefaultLayer());
    EXPECT_TRUE(DefaultLayer()->ContainsMapObject(dot));

    IZoGraphicsMapLayer* own = module.CreateGraphicsLayer("own");
    IZoDotMapObject* other = module.CreateDotMapObject("e", own);
    EXPECT_EQ(other->GetGraphicsMapLayer(), own);
    EXPECT_FALSE(DefaultLayer()->ContainsMapObject(other));
}

TEST(GraphicsModuleWithoutMap, FailedInitialiseLogsTheCreatorsTextAndLeavesTheRegistryUnchanged)
{
    LogCapture log;
    CZoGraphicsModule module;
    EXPECT_TRUE(module.Initialise("no map", nullptr));
    EXPECT_EQ(module.GetDeafultGraphicsLayer(), nullptr);
    EXPECT_EQ(module.CreateGraphicsLayer("l"), nullptr);

    EXPECT_EQ(module.CreateDotMapObject("d", nullptr), nullptr);
    EXPECT_EQ(module.GetRegisteredObjectCount(), 0);
    EXPECT_EQ(module.GetRegisteredLayerCount(), 0);
    EXPECT_EQ(log.Messages(), (Messages{"[CZoGraphicsMapLayer::Initialise] MapModule传入为空",
                                        "[CZoGraphicsModule::CreateGraphicsLayer] 初始化失败",
                                        "[CZoGraphicsMapLayer::Initialise] MapModule传入为空",
                                        "[CZoGraphicsModule::CreateGraphicsLayer] 初始化失败",
                                        // The object's own text comes first, also without a layer.
                                        "[CZoTextMapObject::Initialise] MapModule传入为空",
                                        "[CZoGraphicsModule::CreateDotMapObject] 初始化失败"}));
    module.Unintialise();
}

TEST_F(GraphicsModule, DestroyDetachesRemovesFromTheSceneAndIgnoresNull)
{
    IZoDotMapObject* dot = module.CreateDotMapObject("d", nullptr);
    QGraphicsItem* item = dot->GetQtItem();
    ASSERT_NE(item, nullptr);
    EXPECT_EQ(item->scene(), map.Scene());
    const int id = dot->GetObjectID();

    module.DestroyGraphicsMapObject(dot);
    EXPECT_EQ(module.LookupGraphicObject(id), nullptr);
    EXPECT_EQ(DefaultLayer()->GetMapObjectCount(), 0);
    EXPECT_TRUE(map.Scene()->items().isEmpty());

    log.Clear();
    module.DestroyGraphicsMapObject(nullptr);
    module.DestroyGraphicsLayer(nullptr);
    module.DestroyGraphicsEditObject(nullptr);
    EXPECT_TRUE(log.Messages().empty());
}

TEST_F(GraphicsModule, UnintialiseDestroysLayersFirstThenOrphansAndLeavesTheKeysBehind)
{
    IZoGraphicsMapLayer* kept = module.CreateGraphicsLayer("kept");
    IZoGraphicsMapLayer* dropped = module.CreateGraphicsLayer("dropped");
    module.CreateDotMapObject("a", kept);
    module.CreateDotMapObject("b", kept);
    IZoDotMapObject* orphan = module.CreateDotMapObject("orphan", dropped);
    // Destroying a layer leaves its objects registered, without a layer.
    module.DestroyGraphicsLayer(dropped);
    EXPECT_EQ(orphan->GetGraphicsMapLayer(), nullptr);
    EXPECT_EQ(orphan->GetQtItem()->scene(), map.Scene());
    const int orphanId = orphan->GetObjectID();

    EXPECT_EQ(module.GetRegisteredLayerCount(), 2);  // default + kept
    EXPECT_EQ(module.GetRegisteredObjectCount(), 3);

    UnintialiseNow();
    EXPECT_EQ(DefaultLayer(), nullptr);
    // Objects destroyed through their layers left the registry; the layers'
    // keys and the orphan's key stay, with nothing behind them.
    EXPECT_EQ(module.GetRegisteredLayerCount(), 2);
    EXPECT_EQ(module.GetRegisteredObjectCount(), 1);
    EXPECT_EQ(module.LookupGraphicObject(orphanId), nullptr);
    EXPECT_EQ(module.LookupGraphicsLayer("kept"), nullptr);
    EXPECT_TRUE(map.Scene()->items().isEmpty());
    // Deleted layers do not stay behind as event handlers.
    EXPECT_TRUE(map.handlers.empty());
}

TEST(GraphicsModuleRegistry, GlobalPointerIsStoredAndSlaveModulesAreNeverFound)
{
    EXPECT_EQ(GetGlobalZoGraphicsModule(), nullptr);
    CZoGraphicsModule module;
    SetGlobalZoGraphicsModule(&module);
    EXPECT_EQ(GetGlobalZoGraphicsModule(), &module);
    EXPECT_EQ(GetSlaveZoGraphicsModule("any"), nullptr);
    EXPECT_EQ(GetSlaveZoGraphicsModule(""), nullptr);
    SetGlobalZoGraphicsModule(nullptr);
    EXPECT_EQ(GetGlobalZoGraphicsModule(), nullptr);
}

TEST_F(GraphicsModule, ObjectsLeftOnADestroyedLayerCanStillBeDestroyed)
{
    IZoGraphicsMapLayer* layer = module.CreateGraphicsLayer("gone");
    IZoDotMapObject* dot = module.CreateDotMapObject("d", layer);
    module.DestroyGraphicsLayer(layer);
    const int id = dot->GetObjectID();
    module.DestroyGraphicsMapObject(dot);
    EXPECT_EQ(module.LookupGraphicObject(id), nullptr);
    EXPECT_TRUE(map.Scene()->items().isEmpty());
}

TEST_F(GraphicsModule, CopiesShareTheMapButOwnNothing)
{
    module.CreateDotMapObject("d", nullptr);
    CZoGraphicsModule copy(module);
    EXPECT_EQ(copy.GetMapModule(), &map);
    EXPECT_EQ(copy.GetName(), module.GetName());
    EXPECT_EQ(copy.GetDeafultGraphicsLayer(), nullptr);
    EXPECT_EQ(copy.LookupGraphicObject("d"), nullptr);
    copy.Unintialise();
    EXPECT_NE(module.LookupGraphicObject("d"), nullptr);
}
