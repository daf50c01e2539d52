#include "support/KindFixture.h"
#include "content/widget/CZoWidgetMapObject.h"
#include <QGraphicsProxyWidget>
#include <QGraphicsSceneMouseEvent>
#include <QGraphicsSceneWheelEvent>
#include <QPushButton>
#include <QSignalSpy>

class Widget : public KindFixture<WidgetKind>
{
protected:
    QGraphicsProxyWidget* Item() const { return static_cast<QGraphicsProxyWidget*>(object->GetQtItem()); }
    QVariant Property(const char* name) { return map.GetEventObject()->property(name); }
    QSize Size() const { return QSize(object->GetWidth(), object->GetHeight()); }
};

TEST_F(Widget, SizeComesFromTheWidgetUnlessSetInFull)
{
    QWidget first, second, third;
    first.resize(200, 100);
    second.resize(300, 30);
    third.resize(120, 60);
    object->SetWidget(&first);
    EXPECT_EQ(std::pair(Size(), Item()->geometry().size()), std::pair(QSize(200, 100), QSizeF(200, 100)));
    object->SetSize(50, 50);
    object->SetWidget(&second);
    EXPECT_EQ(std::pair(Size(), Item()->widget()->findChild<QWidget*>()), std::pair(QSize(50, 50), &second));
    // Half a size is no size: the widget's fills it.
    object->SetSize(0, 40);
    object->SetWidget(&third);
    EXPECT_EQ(Size(), QSize(120, 60));
    object->SetWidget(nullptr);
    EXPECT_EQ(Item()->widget()->findChild<QWidget*>(), nullptr);
    // Widgets that were replaced are handed back as they came.
    EXPECT_EQ(std::tuple(third.parentWidget(), third.isVisible(), object->GetWidth()), std::tuple(nullptr, false, 120));
}

TEST_F(Widget, PressAndWheelAreGrabbedAndStillReachTheWidget)
{
    QPushButton button(QStringLiteral("OK"));
    button.resize(80, 30);
    object->SetWidget(&button);
    object->SetInteractive(true);
    QSignalSpy clicked(&button, &QPushButton::clicked);
    for (const QEvent::Type type : {QEvent::GraphicsSceneMousePress, QEvent::GraphicsSceneMouseRelease})
    {
        QGraphicsSceneMouseEvent event(type);
        event.setButton(Qt::LeftButton);
        event.setButtons(type == QEvent::GraphicsSceneMousePress ? Qt::LeftButton : Qt::NoButton);
        event.setPos(QPointF(40, 15));
        map.Scene()->sendEvent(Item(), &event);
    }
    QGraphicsSceneWheelEvent wheel(QEvent::GraphicsSceneWheel);
    wheel.setDelta(120);
    wheel.setPos(QPointF(40, 15));
    map.Scene()->sendEvent(Item(), &wheel);
    for (const char* recorded : {"Scene_MousePress", "Scene_MouseRelease", "Scene_WheelPress"})
        EXPECT_EQ(Property(recorded).toList(), QVariantList{object->GetObjectID()}) << recorded;
    EXPECT_EQ(std::tuple(Property("Scene_MousePressGrab"), Property("Scene_WheelPressGrab"), clicked.count()),
              std::tuple(QVariant(true), QVariant(true), 1));
}

TEST_F(Widget, TheCallersWidgetOutlivesTheObjectAndMayGoFirst)
{
    QPointer<QWidget> kept = new QWidget;
    kept->resize(20, 20);
    object->SetWidget(kept);
    module.DestroyGraphicsMapObject(object);
    ASSERT_FALSE(kept.isNull());
    EXPECT_EQ(kept->parentWidget(), nullptr);
    delete kept.data();
    IZoWidgetMapObject* other = module.CreateWidgetMapObject("other", layer);
    auto* gone = new QWidget;
    other->SetWidget(gone);
    delete gone;
    EXPECT_EQ(other->GetWidget(), nullptr);
    other->Dirty();
    EXPECT_EQ(static_cast<QGraphicsProxyWidget*>(other->GetQtItem())->widget()->findChild<QWidget*>(), nullptr);
}
