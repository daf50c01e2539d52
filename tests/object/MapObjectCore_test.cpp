#include "support/MapObjectKinds.h"
#include "support/ModuleFixture.h"

#include <QGraphicsItem>

using Messages = std::vector<std::string>;

template <class Kind>
class MapObjectCore : public ModuleFixture
{
protected:
    void SetUp() override
    {
        ModuleFixture::SetUp();
        layer = module.CreateGraphicsLayer("layer");
        object = Kind::Create(module, "object", layer);
        ASSERT_NE(object, nullptr);
        log.Clear();
    }
    std::string Text(const char* method, const char* reason) const
    {
        return std::string("[") + Kind::kClassName + "::" + method + "] " + reason;
    }
    QGraphicsItem* Item() const { return object->GetQtItem(); }

    IZoGraphicsMapLayer* layer = nullptr;
    typename Kind::Interface* object = nullptr;
};

TYPED_TEST_SUITE(MapObjectCore, MapObjectKindList);

TYPED_TEST(MapObjectCore, StartsWithTheSharedDefaults)
{
    auto* o = this->object;
    EXPECT_GT(o->GetObjectID(), 0);
    EXPECT_EQ(o->GetName(), "object");
    EXPECT_EQ(o->GetMinLodLevel(), 0);
    EXPECT_EQ(o->GetMaxLodLevel(), 21);
    EXPECT_EQ(o->GetZValue(), 400);
    EXPECT_FALSE(o->IsInteractive());
    EXPECT_FALSE(o->IsAlwaysRebuild());
    EXPECT_EQ(o->IsRotatable(), HasRotatable<TypeParam>::value);
    EXPECT_EQ(o->GetRebuildThreshold(), -1.0);
    EXPECT_EQ(o->GetEditAngle(), 0.0);
    EXPECT_TRUE(o->IsInScene());
    EXPECT_EQ(o->GetMapModule(), &this->map);
    EXPECT_EQ(o->GetGraphicsMapLayer(), this->layer);
    EXPECT_EQ(o->GetMapLayer(), this->layer);
    // Name label defaults.
    EXPECT_FALSE(o->IsNameVisible());
    EXPECT_EQ(o->GetNameColor(), QColor(Qt::red));
    EXPECT_EQ(o->GetNameOutlineColor(), QColor(Qt::black));
    EXPECT_EQ(o->GetNameOutlineWidth(), 1.0);
    EXPECT_EQ(o->GetNameFont().family(), QString::fromUtf8("微软雅黑"));
    EXPECT_EQ(o->GetNameFont().pointSize(), 12);
    EXPECT_EQ(o->GetNameOffset(), 0.0f);
    // Item tags by which the host finds the object.
    ASSERT_NE(this->Item(), nullptr);
    EXPECT_EQ(this->Item()->data(100), QVariant(true));
    EXPECT_EQ(this->Item()->data(101).toInt(), o->GetObjectID());
}

TYPED_TEST(MapObjectCore, LodRangesAreInclusiveForObjectAndLayer)
{
    auto* o = this->object;
    o->SetMinLodLevel(5);
    o->SetMaxLodLevel(10);
    const std::vector<std::pair<int, bool>> cases = {{4, false}, {5, true}, {10, true}, {11, false}};
    for (const auto& [lod, shown] : cases)
    {
        this->map.ChangeLod(lod);
        EXPECT_EQ(this->Item()->isVisible(), shown) << lod;
        EXPECT_EQ(o->IsVisible(), shown) << lod;
    }
    this->layer->SetMinLodLevel(7);
    this->layer->SetMaxLodLevel(8);
    this->map.ChangeLod(6);
    EXPECT_FALSE(this->Item()->isVisible());
    EXPECT_FALSE(o->IsVisible());
    this->map.ChangeLod(8);
    EXPECT_TRUE(this->Item()->isVisible());
    EXPECT_TRUE(o->IsVisible());
}

TYPED_TEST(MapObjectCore, HiddenLayerHidesItemsButIsVisibleIgnoresIt)
{
    this->layer->SetVisible(false);
    auto* late = TypeParam::Create(this->module, "late", this->layer);
    EXPECT_FALSE(late->GetQtItem()->isVisible());
    EXPECT_TRUE(late->IsVisible());
    // Hiding a layer also switches off the objects already on it.
    EXPECT_FALSE(this->Item()->isVisible());
    EXPECT_FALSE(this->object->IsVisible());
}

TYPED_TEST(MapObjectCore, NameVisibilityFollowsLabelAndLayerNameRanges)
{
    auto* o = this->object;
    o->SetNameVisible(true);
    EXPECT_TRUE(o->IsNameVisible());
    o->SetNameMinLodLevel(11);
    EXPECT_FALSE(o->IsNameVisible()); // lod 10
    o->SetNameMinLodLevel(0);
    this->layer->SetNameMaxLodLevel(9);
    EXPECT_FALSE(o->IsNameVisible());
    this->layer->SetNameMaxLodLevel(10);
    EXPECT_TRUE(o->IsNameVisible());
    // The object's own visibility does not matter to its name.
    o->SetVisible(false);
    EXPECT_TRUE(o->IsNameVisible());
}

TYPED_TEST(MapObjectCore, InteractionSwitchesTheItemsInput)
{
    QGraphicsItem* item = this->Item();
    EXPECT_FALSE(item->isEnabled());
    this->object->SetInteractive(true);
    EXPECT_TRUE(item->isEnabled());
    EXPECT_TRUE(item->acceptHoverEvents());
    EXPECT_TRUE(item->acceptedMouseButtons().testFlag(Qt::LeftButton));
    EXPECT_TRUE(item->acceptedMouseButtons().testFlag(Qt::RightButton));
    EXPECT_TRUE(item->acceptedMouseButtons().testFlag(Qt::MiddleButton));
    this->object->SetInteractive(false);
    EXPECT_FALSE(item->isEnabled());
    EXPECT_FALSE(item->acceptHoverEvents());
    EXPECT_EQ(int(item->acceptedMouseButtons()), 0);
}

TYPED_TEST(MapObjectCore, DirtyReappliesStoredStateToTheItem)
{
    auto* o = this->object;
    TypeParam::PlaceAt(o, 2.0, 3.0);
    o->SetZValue(42);
    o->SetInteractive(true);
    QGraphicsItem* item = this->Item();
    item->setZValue(1);
    item->setEnabled(false);
    item->setPos(500, 500);
    o->Dirty();
    EXPECT_EQ(item->zValue(), 42);
    EXPECT_TRUE(item->isEnabled());
    EXPECT_EQ(item->pos(), QPointF(20.0, -30.0));
    EXPECT_TRUE(this->log.Messages().empty());
}

TYPED_TEST(MapObjectCore, RemoveAndAddToSceneKeepTheItem)
{
    auto* o = this->object;
    QGraphicsItem* item = this->Item();
    o->RemoveFromScene();
    EXPECT_FALSE(o->IsInScene());
    EXPECT_EQ(item->scene(), nullptr);
    EXPECT_FALSE(item->isVisible());
    o->AddToScene();
    EXPECT_EQ(o->GetQtItem(), item);
    EXPECT_EQ(item->scene(), this->map.Scene());
    EXPECT_TRUE(item->isVisible());
}

TYPED_TEST(MapObjectCore, PropertiesAndUserDataAreKept)
{
    auto* o = this->object;
    o->SetProperty("key", QVariant(3.5));
    o->SetUserData(0, QVariant(true));
    EXPECT_EQ(o->GetProperty("key"), QVariant(3.5));
    EXPECT_EQ(o->GetUserData(0), QVariant(true));
    EXPECT_FALSE(o->GetProperty("missing").isValid());
    EXPECT_FALSE(o->GetUserData(7).isValid());
}

TYPED_TEST(MapObjectCore, UnintialiseDeletesTheItemAndKeepsIdAndName)
{
    auto* o = this->object;
    const int id = o->GetObjectID();
    o->Unintialise();
    EXPECT_EQ(o->GetQtItem(), nullptr);
    EXPECT_EQ(o->GetMapModule(), nullptr);
    EXPECT_EQ(o->GetObjectID(), id);
    EXPECT_EQ(o->GetName(), "object");
    EXPECT_TRUE(this->map.Scene()->items().isEmpty());
}

TYPED_TEST(MapObjectCore, FailedConversionLogsAndPlacesAtTheOrigin)
{
    TypeParam::PlaceAt(this->object, 2.0, 3.0);
    this->map.failConversions = true;
    TypeParam::PlaceAt(this->object, 2.0, 3.0);
    this->object->UpdatePosition();
    const bool keeps = HasKeepsPlaceOnFailure<TypeParam>::value;
    EXPECT_EQ(this->Item()->pos(), keeps ? QPointF(20.0, -30.0) : QPointF(0.0, 0.0));
    ASSERT_FALSE(this->log.Messages().empty());
    EXPECT_EQ(this->log.Messages().back(), this->Text(TypeParam::kAnchorMethod, "ConvertSceneToPixel失败"));
}

TYPED_TEST(MapObjectCore, UninitialisedObjectsLogAndDoNothing)
{
    const std::unique_ptr<IZoGraphicsMapObject> o = TypeParam::Construct();
    LogCapture capture;
    EXPECT_FALSE(o->IsVisible());
    EXPECT_FALSE(o->IsNameVisible());
    o->SetMinLodLevel(3);
    o->SetMaxLodLevel(9);
    o->Dirty();
    o->PaintOnCanvas(nullptr, nullptr, 0, nullptr);
    EXPECT_FALSE(o->Initialise("x", nullptr, this->layer));
    o->SetVisible(false);
    o->UpdatePosition();
    o->Update();
    EXPECT_EQ(o->GetMinLodLevel(), 3);
    EXPECT_EQ(o->GetMaxLodLevel(), 9);
    const std::string initialise =
        std::string("[") + TypeParam::kInitialiseClass + "::Initialise] MapModule传入为空";
    Messages expected{this->Text("IsVisible", "模块未初始化设置"),
                      this->Text("IsNameVisible", "MapModule模块未初始化设置"),
                      this->Text("SetMinLodLevel", "MapModule模块未初始化设置"),
                      this->Text(TypeParam::kSetMaxLodMethod, "MapModule模块未初始化设置")};
    if (!HasDirtyCreatesItem<TypeParam>::value)
        expected.push_back(this->Text("Dirty", "Qt-Item不存在"));
    expected.push_back(this->Text("PaintOnCanvas", "传入参数为空"));
    expected.push_back(initialise);
    if (HasSetVisibleNeedsModule<TypeParam>::value)
        expected.push_back(this->Text("SetVisible", "MapModule模块未初始化设置"));
    EXPECT_EQ(capture.Messages(), expected);
}

TYPED_TEST(MapObjectCore, ObjectsWithoutAutoAddHaveNoItemUntilShown)
{
    this->layer->SetAutoAdd(false);
    auto* o = TypeParam::Create(this->module, "late", this->layer);
    ASSERT_NE(o, nullptr);
    EXPECT_EQ(o->GetQtItem(), nullptr);
    o->SetName("renamed");
    o->SetNameVisible(true);
    o->SetInteractive(true);
    o->SetZValue(3);
    EXPECT_EQ(o->GetName(), "renamed");
    if (!HasDirtyCreatesItem<TypeParam>::value)
    {
        o->Dirty();
        EXPECT_EQ(this->log.Messages().back(), this->Text("Dirty", "Qt-Item不存在"));
    }
    o->Rebuild(2.0);
    ASSERT_NE(o->GetQtItem(), nullptr);
    EXPECT_EQ(o->GetQtItem()->scene(), nullptr);
    o->AddToScene();
    EXPECT_EQ(o->GetQtItem()->scene(), this->map.Scene());
    EXPECT_TRUE(o->GetQtItem()->isEnabled());
}
