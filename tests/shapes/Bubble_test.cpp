#include "support/ImageCompare.h"
#include "support/KindFixture.h"

#include "shapes/bubble/CZoBubbleMapObject.h"

#include <ZoGraphics/ZoTileModel.h>

#include <QGraphicsProxyWidget>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <limits>
#include <memory>

class Bubble : public KindFixture<BubbleKind>
{
protected:
    void SetUp() override
    {
        KindFixture::SetUp();
        label = std::make_unique<QLabel>(QStringLiteral("Beijing"));
        label->setFont(QFont(QStringLiteral("DejaVu Sans"), 9));
        label->setFixedSize(90, 24);
        object->SetWidget(label.get());
        object->SetPosition(CVector3D(2.0, 3.0, 0.0));
        object->SetInteractive(true);
        log.Clear();
    }
    CBubbleItemQtImpl* Item() const { return Impl()->GetItem(); }
    QGraphicsProxyWidget* Proxy() const { return static_cast<QGraphicsProxyWidget*>(Item()->childItems().value(0)); }
    std::unique_ptr<QLabel> label; // the host's: outlives the module's objects
};

TEST_F(Bubble, SizeFollowsTheWidgetUnlessGivenAndIgnoresTheZoom)
{
    const int width = object->GetWidth();
    EXPECT_TRUE(width >= 90 + 16 && object->GetHeight() >= 24 + 18);
    map.ChangeViewScale(4.0);
    EXPECT_EQ(std::pair(object->GetWidth(), Item()->flags().testFlag(QGraphicsItem::ItemIgnoresTransformations)), std::pair(width, true));
    object->SetSize(200, 90);
    EXPECT_EQ(QSizeF(object->GetWidth(), object->GetHeight()), QSizeF(200, 90));
    EXPECT_EQ(Proxy()->size(), QSizeF(200, 90));
    object->SetSize(-5, 0); // nothing sensible asked: the widget decides again
    EXPECT_EQ(object->GetWidth(), width);
}

// A widget the host deletes leaves an empty bubble.
TEST_F(Bubble, TheWidgetStaysTheHosts)
{
    QWidget parent;
    QLabel second(QStringLiteral("second"), &parent);
    object->SetWidget(&second);
    EXPECT_TRUE(label->parentWidget() == nullptr && !label->isVisible());
    object->SetWidget(label.get());
    EXPECT_EQ(second.parentWidget(), &parent);
    label.reset();
    EXPECT_EQ(object->GetWidget(), nullptr);
    object->SetSize(0, 0);
    EXPECT_GE(object->GetWidth(), 48);
    object->SetWidget(&second);
    module.DestroyGraphicsMapObject(object);
    EXPECT_EQ(second.parentWidget(), &parent);
}

TEST_F(Bubble, TheCloseButtonHidesTheBubbleInTheSharedButtonStyle)
{
    QPushButton* close = Item()->CloseButton();
    EXPECT_TRUE(close->styleSheet().contains(QString::fromStdString(ZoGraphicsConstantNS::STR_FLAT_BUTTON_STYLE)));
    EXPECT_TRUE(close->styleSheet().contains(QString::fromStdString(ZoGraphicsConstantNS::STR_BUTTON_STYLE)));
    close->click();
    EXPECT_FALSE(Item()->isVisible());
    object->SetVisible(true);
    EXPECT_TRUE(Item()->isVisible());
    // A position that cannot be converted puts the bubble at the origin.
    object->SetPosition(CVector3D(std::numeric_limits<double>::infinity(), 0.0, 0.0));
    EXPECT_EQ(Item()->pos(), QPointF(0.0, 0.0));
    EXPECT_EQ(log.Messages(),
              std::vector<std::string>{"[CZoBubbleMapObject::ConvertSceneToPixel] ConvertSceneToPixel失败"});
}

// The tip (marked red) stands on the position, the box never covers it.
TEST_F(Bubble, TailsInAllSixDirectionsMatchTheirReference)
{
    EXPECT_EQ(Item()->pos(), QPointF(20.0, -30.0));
    object->SetTailDirection(static_cast<EZoBubbleTailDirection>(6)); // no such direction
    EXPECT_EQ(object->GetTailDirection(), E_BUBBLE_TAIL_BOTTOM);
    object->SetPosition(CVector3D(0.0, 0.0, 0.0));
    QImage image = BlankCanvas(720, 300);
    for (int d = E_BUBBLE_TAIL_LEFT_TOP; d <= E_BUBBLE_TAIL_BOTTOM; ++d)
    {
        object->SetTailDirection(static_cast<EZoBubbleTailDirection>(d));
        QPainter painter(&image);
        // Each direction in its own 240 by 150 cell, tip in the cell's middle.
        painter.translate(120 + 240 * (d % 3), 75 + 150 * (d / 3));
        map.Scene()->render(&painter, QRectF(-120, -75, 240, 150), QRectF(-120, -75, 240, 150));
        painter.setPen(Qt::red);
        painter.drawEllipse(QPointF(0, 0), 2, 2);
        painter.end();
    }
    EXPECT_EQ(CompareWithReference(image, QStringLiteral("bubble_tails"), 16, 40), QString());
}

TEST_F(Bubble, CanvasPaintingDrawsTheBoxAboveThePoint)
{
    object->SetPosition(CVector3D(0.0, 0.0, 0.0));
    const QRectF box = Item()->Box();
    QImage canvas(256, 256, QImage::Format_ARGB32);
    canvas.fill(QColor(128, 128, 128));
    QPainter painter(&canvas);
    // Web Mercator level 0: (0, 0) is pixel (128, 128).
    object->PaintOnCanvas(&painter, ITileModel::GetTileModel(1, true), 0, nullptr);
    painter.end();
    const QPoint inside = (QPointF(128, 128) + box.topLeft() + QPointF(4, box.height() / 2)).toPoint();
    EXPECT_GT(canvas.pixelColor(inside).red(), 240);
    EXPECT_EQ(canvas.pixelColor(128, 140), QColor(128, 128, 128)); // below the tip
}
