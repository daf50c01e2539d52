#include "support/ModuleFixture.h"

#include <QGraphicsItem>

class GraphicsModule : public ModuleFixture
{
};

// A module has an id and a UUID; its default layer hears the map's events; a
// destroyed object leaves the scene; destroying nothing is no fault.
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
    EXPECT_EQ(orphan->GetQtItem()->scene(), map.Scene());
    const int orphanId = orphan->GetObjectID();
    EXPECT_EQ(module.GetRegisteredLayerCount(), 2); // default + kept
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

TEST_F(GraphicsModule, CopiesShareTheMapButOwnNothing)
{
    module.CreateDotMapObject("d", nullptr);
    CZoGraphicsModule copy(module);
    EXPECT_EQ(copy.GetMapModule(), &map);
    EXPECT_EQ(copy.GetDeafultGraphicsLayer(), nullptr);
    EXPECT_EQ(copy.LookupGraphicObject("d"), nullptr);
    copy.Unintialise();
    EXPECT_NE(module.LookupGraphicObject("d"), nullptr);
}
