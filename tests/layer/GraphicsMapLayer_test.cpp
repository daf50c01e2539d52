#include "support/ModuleFixture.h"
#include <QGraphicsItem>

class GraphicsMapLayer : public ModuleFixture
{
protected:
    void SetUp() override { ModuleFixture::SetUp(), layer = module.CreateGraphicsLayer("layer"); }
    IZoGraphicsMapLayer* layer = nullptr;
};

TEST_F(GraphicsMapLayer, PropagatingSettersReachEveryObject)
{
    IZoDotMapObject* a = module.CreateDotMapObject("a", layer);
    IZoDotMapObject* b = module.CreateDotMapObject("b", layer);
    b->SetZValue(999);
    layer->SetZValue(10);
    EXPECT_EQ(a->GetZValue(), 10);
    EXPECT_EQ(b->GetQtItem()->zValue(), 10);
    layer->SetNameVisible(true);
    EXPECT_TRUE(a->IsNameVisible());
    layer->SetVisible(false);
    EXPECT_FALSE(a->GetQtItem()->isVisible());
    layer->SetVisible(true);
    EXPECT_TRUE(b->GetQtItem()->isVisible());
}

TEST_F(GraphicsMapLayer, DetachingTakesItemsOutOfTheSceneAndDestroyingAllGoesThroughTheModule)
{
    IZoDotMapObject* a = module.CreateDotMapObject("a", layer);
    IZoDotMapObject* b = module.CreateDotMapObject("b", layer);
    EXPECT_TRUE(layer->DetachMapObject(a));
    EXPECT_TRUE(layer->DetachMapObject(a)); // not found: still true
    EXPECT_TRUE(a->GetQtItem()->scene() == nullptr && !a->IsInScene());
    EXPECT_TRUE(layer->DetachAllMapObjects());
    EXPECT_EQ(layer->GetMapObjectCount(), 0);
    EXPECT_EQ(b->GetQtItem()->scene(), nullptr);
    EXPECT_TRUE(layer->DetachAllMapObjects());
    EXPECT_NE(module.LookupGraphicObject("a"), nullptr);
    layer->AttachMapObject(a);
    EXPECT_TRUE(layer->DestroyAllMapObjects());
    EXPECT_EQ(module.LookupGraphicObject("a"), nullptr);
    EXPECT_NE(module.LookupGraphicObject("b"), nullptr);
    EXPECT_TRUE(layer->DestroyAllMapObjects());
}
