#include "support/ModuleFixture.h"

#include <QGraphicsItem>
#include <QGraphicsScene>

class LayerDestroyAll : public ModuleFixture
{
};

// Destroying a whole layer takes its objects out of the name index together:
// names shared with objects of another layer still find those, in creation
// order, and names of the layer alone find nothing.
TEST_F(LayerDestroyAll, NamesSharedWithOtherLayersSurvive)
{
    IZoGraphicsMapLayer* doomed = module.CreateGraphicsLayer("doomed");
    IZoGraphicsMapLayer* kept = module.CreateGraphicsLayer("kept");
    // Shared names: one doomed object before, one after the kept one, and a
    // kept text between two doomed dots, so that a typed lookup must skip.
    IZoGraphicsMapObject* early = module.CreateDotMapObject("shared", doomed);
    IZoDotMapObject* survivor = module.CreateDotMapObject("shared", kept);
    module.CreateDotMapObject("shared", doomed);
    module.CreateDotMapObject("mixed", doomed);
    IZoTextMapObject* text = module.CreateTextMapObject("mixed", kept);
    module.CreateDotMapObject("mixed", doomed);
    for (int i = 0; i < 20; ++i)
        module.CreateDotMapObject("alone" + std::to_string(i), doomed);
    ASSERT_NE(early, nullptr);
    const int before = module.GetRegisteredObjectCount();

    EXPECT_TRUE(doomed->DestroyAllMapObjects());

    EXPECT_EQ(doomed->GetMapObjectCount(), 0);
    EXPECT_EQ(module.GetRegisteredObjectCount(), before - 24);
    EXPECT_EQ(module.LookupGraphicObject("shared"), survivor);
    EXPECT_EQ(module.LookupDotMapObject("shared"), survivor);
    EXPECT_EQ(module.LookupGraphicObject("mixed"), text);
    EXPECT_EQ(module.LookupDotMapObject("mixed"), nullptr);
    EXPECT_EQ(module.LookupGraphicObject("alone7"), nullptr);
    // The index takes new names again after the pass.
    IZoDotMapObject* later = module.CreateDotMapObject("alone7", kept);
    EXPECT_EQ(module.LookupGraphicObject("alone7"), later);
}

// The items leave the scene with their objects; the other layer's stay.
TEST_F(LayerDestroyAll, ItemsLeaveTheScene)
{
    IZoGraphicsMapLayer* doomed = module.CreateGraphicsLayer("doomed");
    IZoGraphicsMapLayer* kept = module.CreateGraphicsLayer("kept");
    for (int i = 0; i < 10; ++i)
        module.CreateDotMapObject("d" + std::to_string(i), doomed);
    IZoDotMapObject* stays = module.CreateDotMapObject("k", kept);
    QGraphicsScene* scene = map.GetScene();
    const int before = scene->items().size();

    doomed->DestroyAllMapObjects();

    EXPECT_EQ(scene->items().size(), before - 10);
    EXPECT_EQ(stays->GetQtItem()->scene(), scene);
}
