#include "support/MapObjectKinds.h"
#include "support/ModuleFixture.h"

#include <QGraphicsItem>
#include <QGraphicsSceneHoverEvent>
#include <QGraphicsSceneMouseEvent>
#include <QGraphicsSceneWheelEvent>

// What every shape anchored by a centre or extent does alike, over its seven
// creators; the rest of their shared behaviour runs with every kind in
// MapObjectCore.
template <class Kind>
class AnchoredShape : public ModuleFixture
{
protected:
    void SetUp() override
    {
        ModuleFixture::SetUp();
        object = Kind::Create(module, "shape", nullptr);
        ASSERT_NE(object, nullptr);
        Kind::PlaceAt(object, 0.0, 0.0);
        object->SetInteractive(true);
    }
    QList<int> Recorded(const char* name) const
    {
        QList<int> ids;
        for (const QVariant& id : const_cast<FakeMapModule&>(map).GetEventObject()->property(name).toList())
            ids.append(id.toInt());
        return ids;
    }
    bool Deliver(QEvent::Type type)
    {
        QGraphicsItem* item = object->GetQtItem();
        if (type == QEvent::GraphicsSceneHoverEnter || type == QEvent::GraphicsSceneHoverLeave)
        {
            QGraphicsSceneHoverEvent event(type);
            map.Scene()->sendEvent(item, &event);
            return event.isAccepted();
        }
        QGraphicsSceneMouseEvent event(type);
        event.setButton(Qt::LeftButton);
        event.setAccepted(true);
        map.Scene()->sendEvent(item, &event);
        return event.isAccepted();
    }

    typename Kind::Interface* object = nullptr;
};

using AnchoredShapeKinds =
    ::testing::Types<CircleKind, EllipseKind, RectangleKind, TileKind, PieKind, ArcKind, ChordKind>;
TYPED_TEST_SUITE(AnchoredShape, AnchoredShapeKinds);

TYPED_TEST(AnchoredShape, LandsOnTheDefaultLayerTaggedAndStacked)
{
    QGraphicsItem* item = this->object->GetQtItem();
    ASSERT_NE(item, nullptr);
    EXPECT_EQ(this->object->GetGraphicsMapLayer(), this->DefaultLayer());
    EXPECT_EQ(item->scene(), this->map.Scene());
    EXPECT_EQ(item->data(100), QVariant(true));
    EXPECT_EQ(item->data(101).toInt(), this->object->GetObjectID());
    EXPECT_EQ(item->zValue(), this->DefaultLayer()->GetZValue());
    EXPECT_EQ(this->module.LookupGraphicObject(this->object->GetObjectID()), this->object);
}

TYPED_TEST(AnchoredShape, HoverAndPressAreRecordedAndPressesLeftToTheView)
{
    const int id = this->object->GetObjectID();
    this->Deliver(QEvent::GraphicsSceneHoverEnter);
    this->Deliver(QEvent::GraphicsSceneHoverLeave);
    EXPECT_FALSE(this->Deliver(QEvent::GraphicsSceneMousePress));
    EXPECT_FALSE(this->Deliver(QEvent::GraphicsSceneMouseRelease));
    EXPECT_FALSE(this->Deliver(QEvent::GraphicsSceneMouseDoubleClick));
    for (const char* name : {"Scene_HoverEnter", "Scene_HoverLeave", "Scene_MousePress", "Scene_MouseRelease",
                             "Scene_MouseDoubleClicked"})
        EXPECT_EQ(this->Recorded(name), QList<int>{id}) << name;
}

TYPED_TEST(AnchoredShape, ACreatorWithoutLayerLogsTheObjectsTextFirst)
{
    this->module.DestroyGraphicsLayer(this->DefaultLayer());
    this->log.Clear();
    EXPECT_EQ(TypeParam::Create(this->module, "orphan", nullptr), nullptr);
    ASSERT_FALSE(this->log.Messages().empty());
    EXPECT_NE(this->log.Messages().back().find("[CZoGraphicsModule::Create"), std::string::npos);
    EXPECT_NE(this->log.Messages().back().find("] 初始化失败"), std::string::npos);
}

TYPED_TEST(AnchoredShape, FailingCreatorsLogTheObjectsTextThenTheirOwnAndRegisterNothing)
{
    CZoGraphicsModule unready; // no map module
    LogCapture capture;
    EXPECT_EQ(TypeParam::Create(unready, "x", nullptr), nullptr);
    const std::vector<std::string> messages = capture.Messages();
    ASSERT_EQ(messages.size(), 2u);
    EXPECT_EQ(messages[0], std::string("[") + TypeParam::kInitialiseClass + "::Initialise] MapModule传入为空");
    EXPECT_EQ(messages[1].rfind("[CZoGraphicsModule::Create", 0), 0u);
    EXPECT_NE(messages[1].find("MapObject] 初始化失败"), std::string::npos);
    EXPECT_EQ(unready.GetRegisteredObjectCount(), 0);
}
