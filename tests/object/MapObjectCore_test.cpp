#include "support/KindFixture.h"

#include <ZoGraphics/CZoMapModule.h>

#include <QGraphicsItem>
#include <QPainter>
#include <cstring>

using Messages = std::vector<std::string>;

// What every kind does alike, over all kinds; the expected texts come from
// the one table in MapObjectKinds.h.
template <class Kind>
class MapObjectCore : public KindFixture<Kind>
{
protected:
    QGraphicsItem* Item() const { return this->object->GetQtItem(); }
};

TYPED_TEST_SUITE(MapObjectCore, MapObjectKindList);

TYPED_TEST(MapObjectCore, LodRangesAreInclusiveForObjectAndLayer)
{
    auto* o = this->object;
    o->SetMinLodLevel(5);
    o->SetMaxLodLevel(10);
    // The object's range, then the layer's within it.
    for (const auto& [lod, shown] : {std::pair{4, false}, {5, true}, {10, true}, {11, false}, {6, false}, {8, true}})
    {
        if (lod == 6)
        {
            this->layer->SetMinLodLevel(7);
            this->layer->SetMaxLodLevel(8);
        }
        this->map.ChangeLod(lod);
        EXPECT_EQ(std::pair(this->Item()->isVisible(), o->IsVisible()), std::pair(shown, shown)) << lod;
    }
}

TYPED_TEST(MapObjectCore, HiddenLayerHidesItemsButIsVisibleIgnoresIt)
{
    this->layer->SetVisible(false);
    auto* late = TypeParam::Create(this->module, "late", this->layer);
    EXPECT_EQ(std::pair(late->GetQtItem()->isVisible(), late->IsVisible()), std::pair(false, true));
    EXPECT_EQ(std::pair(this->Item()->isVisible(), this->object->IsVisible()), std::pair(false, false));
}

TYPED_TEST(MapObjectCore, NameVisibilityFollowsLabelAndLayerNameRanges)
{
    auto* o = this->object;
    // Names show in red on a black halo unless the host says otherwise.
    EXPECT_EQ(std::tuple(o->GetNameColor(), o->GetNameOutlineColor(), o->GetNameFont().family()),
              std::tuple(QColor(Qt::red), QColor(Qt::black), QString::fromUtf8("微软雅黑")));
    EXPECT_FALSE(o->IsNameVisible());
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

// The host finds an object from its item by the tags 100 and 101.
TYPED_TEST(MapObjectCore, InteractionAndDirtyReapplyStoredStateToTheTaggedItem)
{
    auto* o = this->object;
    QGraphicsItem* item = this->Item();
    EXPECT_FALSE(item->isEnabled());
    o->SetInteractive(true);
    // Hover comes through the layer's grid, not from Qt's scan of the scene.
    EXPECT_TRUE(item->isEnabled());
    for (Qt::MouseButton button : {Qt::LeftButton, Qt::RightButton, Qt::MiddleButton, Qt::ExtraButton1})
        EXPECT_TRUE(item->acceptedMouseButtons().testFlag(button)) << button;
    o->SetInteractive(false);
    EXPECT_EQ(std::tuple(item->isEnabled(), item->acceptHoverEvents(), int(item->acceptedMouseButtons())), std::tuple(false, false, 0));
    EXPECT_EQ(o->IsRotatable(), TypeParam::Texts().rotatable);
    TypeParam::PlaceAt(o, 2.0, 3.0);
    o->SetZValue(42);
    o->SetInteractive(true);
    EXPECT_EQ(std::pair(item->data(100), item->data(101).toInt()), std::pair(QVariant(true), o->GetObjectID()));
    item->setZValue(1);
    item->setEnabled(false);
    item->setPos(500, 500);
    o->Dirty();
    EXPECT_EQ(std::tuple(item->zValue(), item->isEnabled(), item->pos()), std::tuple(42.0, true, QPointF(20, -30)));
    EXPECT_TRUE(this->log.Messages().empty());
}

TYPED_TEST(MapObjectCore, RemoveAndAddKeepTheItemUnintialiseDeletesItKeepingIdAndName)
{
    auto* o = this->object;
    QGraphicsItem* item = this->Item();
    o->RemoveFromScene();
    EXPECT_EQ(std::tuple(o->IsInScene(), item->scene(), item->isVisible()), std::tuple(false, static_cast<QGraphicsScene*>(nullptr), false));
    o->AddToScene();
    EXPECT_EQ(o->GetQtItem(), item);
    EXPECT_EQ(std::pair(item->scene(), item->isVisible()), std::pair(this->map.Scene(), true));
    const int id = o->GetObjectID();
    o->Unintialise();
    EXPECT_TRUE(o->GetQtItem() == nullptr && o->GetMapModule() == nullptr);
    EXPECT_EQ(std::pair(o->GetObjectID(), o->GetName()), std::pair(id, std::string("object")));
    EXPECT_TRUE(this->map.Scene()->items().isEmpty());
}

TYPED_TEST(MapObjectCore, FailedConversionLogsAndPlacesAtTheOrigin)
{
    TypeParam::PlaceAt(this->object, 2.0, 3.0);
    this->map.failConversions = true;
    TypeParam::PlaceAt(this->object, 2.0, 3.0);
    this->object->UpdatePosition();
    const KindTexts& texts = TypeParam::Texts();
    EXPECT_EQ(this->Item()->pos(), texts.keepsPlaceOnFailure ? QPointF(20.0, -30.0) : QPointF(0.0, 0.0));
    ASSERT_FALSE(this->log.Messages().empty());
    EXPECT_EQ(this->log.Messages().back(), texts.anchorFailure);
}

TYPED_TEST(MapObjectCore, UninitialisedObjectsLogAndDoNothing)
{
    const std::unique_ptr<IZoGraphicsMapObject> o = TypeParam::Construct();
    LogCapture capture;
    EXPECT_TRUE(!o->IsVisible() && !o->IsNameVisible()); // && keeps the log's order
    o->SetMinLodLevel(3);
    o->SetMaxLodLevel(9);
    o->Dirty();
    o->PaintOnCanvas(nullptr, nullptr, 0, nullptr);
    EXPECT_FALSE(o->Initialise("x", nullptr, this->layer));
    o->SetVisible(false);
    o->UpdatePosition();
    o->Update();
    EXPECT_EQ(std::pair(o->GetMinLodLevel(), o->GetMaxLodLevel()), std::pair(3, 9));
    const KindTexts& texts = TypeParam::Texts();
    Messages expected{texts.isVisible, texts.isNameVisible, texts.setMinLod, texts.setMaxLod};
    if (texts.dirty)
        expected.push_back(texts.dirty);
    expected.push_back(texts.paintOnCanvas);
    expected.push_back(texts.initialise);
    if (texts.setVisible)
        expected.push_back(texts.setVisible);
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
    if (const char* dirty = TypeParam::Texts().dirty)
    {
        o->Dirty();
        EXPECT_EQ(this->log.Messages().back(), dirty);
    }
    o->Rebuild(2.0);
    ASSERT_NE(o->GetQtItem(), nullptr);
    EXPECT_EQ(o->GetQtItem()->scene(), nullptr);
    o->AddToScene();
    EXPECT_EQ(std::pair(o->GetQtItem()->scene(), o->GetQtItem()->isEnabled()), std::pair(this->map.Scene(), true));
}

// Qt's scene index files an item under the bounds it reports when it
// announces a change, and takes it out under the bounds it reports at the
// next announcement. Bounds that change before they are announced leave
// entries behind that outlive the item: the next frame after the object is
// destroyed then walks freed memory. Zooms change every kind's pixel scale,
// and with it bounds that hold margins in pixels.
namespace
{
void Frame(QGraphicsScene* scene)
{
    QImage image(160, 120, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    QPainter painter(&image);
    scene->render(&painter, QRectF(image.rect()), QRectF(-800, -600, 1600, 1200));
}

// Hands freed blocks out again with other contents, so that an entry left
// behind points at garbage rather than at the intact old item.
void ReuseFreedMemory()
{
    std::vector<std::unique_ptr<char[]>> blocks;
    for (std::size_t size : {48u, 96u, 128u, 256u, 424u, 512u})
        for (int n = 0; n < 64; ++n)
        {
            blocks.emplace_back(new char[size]);
            std::memset(blocks.back().get(), 0xA5, size);
        }
}

template <class Kind>
using SceneIndex = ::testing::Test;
} // namespace

TYPED_TEST_SUITE(SceneIndex, MapObjectKindList);

TYPED_TEST(SceneIndex, ZoomsAndSwitchesLeaveNoEntryBehindADestroyedObject)
{
    CZoMapModule map;
    map.SetZoomAround(3.0, 0.0, 0.0);
    CZoGraphicsModule module;
    ASSERT_TRUE(module.Initialise("index", &map));
    IZoGraphicsMapLayer* layer = module.CreateGraphicsLayer("layer");
    std::vector<IZoGraphicsMapObject*> objects;
    for (int n = 0; n < 4; ++n)
    {
        auto* object = TypeParam::Create(module, "object" + std::to_string(n), layer);
        ASSERT_NE(object, nullptr);
        objects.push_back(object);
        TypeParam::PlaceAt(object, -20.0 + 12.0 * n, 5.0 * n);
        object->SetNameVisible(n % 2 == 0);
        object->SetRebuildThreshold(n == 3 ? 5.0 : -1.0);
    }
    Frame(map.GetScene());
    map.SetZoomAround(0.0, -179.9, -1.8);
    Frame(map.GetScene());
    map.SetZoomAround(2.65, -33.2, 30.3);
    layer->EnableShapeCache();
    Frame(map.GetScene());
    map.SetZoomAround(5.4, 10.0, 10.0);
    for (IZoGraphicsMapObject* object : objects)
        object->SetAlwaysRebuild(true);
    layer->DestroyAllMapObjects();
    ReuseFreedMemory();
    Frame(map.GetScene());
    EXPECT_TRUE(map.GetScene()->items().isEmpty());
    module.Unintialise();
}
