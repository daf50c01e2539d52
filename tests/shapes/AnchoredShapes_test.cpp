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
