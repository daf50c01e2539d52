#include "support/ImageCompare.h"
#include "support/KindFixture.h"

#include "shapes/ellipse/CZoEllipseMapObject.h"

#include <QGraphicsItem>
#include <QPainter>

using Messages = std::vector<std::string>;

// The fake map module projects 10 pixels per degree, y downwards.
class Ellipse : public KindFixture<EllipseKind>
{
protected:
    void SetUp() override
    {
        KindFixture::SetUp();
        object->SetExtent(EXTENT{0.0, 0.0, 3.0, 2.0});
        log.Clear();
    }
    QPainterPath Shape() const { return object->GetQtItem()->shape(); }
};

TEST_F(Ellipse, InscribedInItsExtentWithoutMarginOrPen)
{
    EXPECT_EQ(Shape().boundingRect(), QRectF(-15, -10, 30, 20));
    object->SetPenWidth(4.0f);
    EXPECT_EQ(Shape().boundingRect(), QRectF(-15, -10, 30, 20));
    map.ChangeViewScale(2.0);
    EXPECT_EQ(object->GetQtItem()->boundingRect(), QRectF(-15, -10, 30, 20));
    EXPECT_EQ(object->GetWidth(), 3.0);
    EXPECT_EQ(object->GetHeight(), 2.0);
}

TEST_F(Ellipse, AZeroWidthExtentHasNoShapeButStillPaints)
{
    object->SetExtent(EXTENT{1.0, 0.0, 1.0, 2.0});
    EXPECT_TRUE(Shape().isEmpty());
    QImage image = BlankCanvas(10, 30);
    QPainter painter(&image);
    painter.translate(5, 15);
    object->GetQtItem()->paint(&painter, nullptr, nullptr);
    painter.end();
    EXPECT_EQ(image.pixelColor(5, 6), QColor(0, 0, 255)); // a vertical stroke
}

TEST_F(Ellipse, PaintsThePenAtTheViewScaleAndTheLabelBeside)
{
    object->SetName("Ellipse");
    object->SetNameFont(QFont(QStringLiteral("DejaVu Sans"), 9));
    object->SetNameVisible(true);
    object->SetLabelPosition(3);
    object->SetNameOffset(2.0f);
    object->SetPenWidth(2.0f);
    object->SetBrushColor(QColor(120, 200, 240, 180));
    QImage image = BlankCanvas(100, 40);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(20, 20);
    object->GetQtItem()->paint(&painter, nullptr, nullptr);
    painter.end();
    EXPECT_EQ(CompareWithReference(image, QStringLiteral("ellipse_label_right"), 16, 12), QString());
}
