#include "support/ModuleFixture.h"

#include <QGraphicsItem>

using Messages = std::vector<std::string>;

// Three dots on one layer; stacking compares their items' paint order.
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
    // Whether a is painted above b.
    bool Above(int a, int b) const
    {
        const QList<QGraphicsItem*> order = map.Scene()->items(Qt::DescendingOrder);
        return order.indexOf(Item(a)) < order.indexOf(Item(b));
    }

    IZoGraphicsMapLayer* layer = nullptr;
    std::vector<IZoDotMapObject*> dots;
};

TEST_F(Stacking, TopPutsTheObjectAboveEveryListedObject)
{
    dots[2]->SetZValue(900);
    module.StackedTop(dots[0], {Id(1), Id(2), Id(3)});
    for (int other : {1, 2, 3})
    {
        EXPECT_TRUE(Above(0, other)) << other;
        EXPECT_EQ(Item(other)->zValue(), 400);
    }
    // Stored z values are untouched; Dirty puts them back on the items.
    EXPECT_EQ(dots[2]->GetZValue(), 900);
    dots[2]->Dirty();
    EXPECT_EQ(Item(2)->zValue(), 900);
}

TEST_F(Stacking, UpperActsOnTheFirstOtherObjectOnly)
{
    for (int i : {1, 2, 3})
        Item(i)->setZValue(500);
    module.StackedUpper(dots[0], {Id(0), Id(1), Id(2)});
    EXPECT_EQ(Item(0)->zValue(), 400);
    EXPECT_EQ(Item(1)->zValue(), 400);
    EXPECT_EQ(Item(2)->zValue(), 500);
    EXPECT_TRUE(Above(0, 1));
}

TEST_F(Stacking, LowerStopsAtTheFirstObjectNotAboveTheLayer)
{
    dots[1]->SetZValue(450); // stored above the layer's 400: skipped
    module.StackedLower(dots[0], {Id(1), Id(2), Id(3)});
    EXPECT_EQ(Item(1)->zValue(), 450);
    EXPECT_TRUE(Above(2, 0));
    EXPECT_EQ(Item(2)->zValue(), 400);
}

TEST_F(Stacking, BottomPutsTheObjectBelowEveryObjectAtOrAboveTheLayer)
{
    dots[3]->SetZValue(100); // below the layer: left alone
    module.StackedBottom(dots[0], {Id(1), Id(2), Id(3)});
    EXPECT_TRUE(Above(1, 0));
    EXPECT_TRUE(Above(2, 0));
    EXPECT_EQ(Item(3)->zValue(), 100);
}

TEST_F(Stacking, OwnIdOnlyOrUnknownIdsOnlyMoveTheObjectToTheLayerZ)
{
    Item(0)->setZValue(7);
    module.StackedTop(dots[0], {Id(0), 123456});
    EXPECT_EQ(Item(0)->zValue(), 400);
    EXPECT_TRUE(log.Messages().empty());
}

TEST_F(Stacking, BadArgumentsLogWithTheOperationsOwnName)
{
    Item(0)->setZValue(7);
    module.StackedTop(dots[0], {});
    module.StackedUpper(nullptr, {Id(1)});
    EXPECT_EQ(Item(0)->zValue(), 7);

    dots[1]->RemoveFromScene();
    IZoDotMapObject* itemless = nullptr;
    {
        IZoGraphicsMapLayer* manual = module.CreateGraphicsLayer("manual");
        manual->SetAutoAdd(false);
        itemless = module.CreateDotMapObject("n", manual);
    }
    module.StackedLower(itemless, {Id(1)});
    EXPECT_EQ(log.Messages(), (Messages{"[CZoGraphicsModule::StackedTop] 传入参数为空",
                                        "[CZoGraphicsModule::StackedUpper] 传入参数为空",
                                        "[CZoGraphicsModule::StackedLower] 图元Qt-Item为空"}));
}

// Objects taken out of the scene take the layer's z value but are not
// ordered: Qt can only order siblings in one scene.
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
