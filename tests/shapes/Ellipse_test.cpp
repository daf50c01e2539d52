#include "support/ImageCompare.h"
#include "support/ModuleFixture.h"

#include "shapes/ellipse/CZoEllipseMapObject.h"

#include <QGraphicsItem>
#include <QPainter>

using Messages = std::vector<std::string>;

// The fake map module projects 10 pixels per degree, y downwards.
class Ellipse : public ModuleFixture
{
protected:
    void SetUp() override
    {
        ModuleFixture::SetUp();
        layer = module.CreateGraphicsLayer("ellipses");
        ellipse = module.CreateEllipseMapObject("ellipse", layer);
        ASSERT_NE(ellipse, nullptr);
        ellipse->SetExtent(EXTENT{0.0, 0.0, 3.0, 2.0});
        log.Clear();
    }
    QPainterPath Shape() const { return ellipse->GetQtItem()->shape(); }
    const CZoNameLabel& Label() const { return static_cast<CZoEllipseMapObject*>(ellipse)->Core().Label(); }

    IZoGraphicsMapLayer* layer = nullptr;
    IZoEllipseMapObject* ellipse = nullptr;
};

TEST_F(Ellipse, InscribedInItsExtentWithoutMarginOrPen)
{
    EXPECT_EQ(module.LookupEllipseMapObject("ellipse"), ellipse);
    EXPECT_EQ(Shape().boundingRect(), QRectF(-15, -10, 30, 20));
    ellipse->SetPenWidth(4.0f);
    EXPECT_EQ(Shape().boundingRect(), QRectF(-15, -10, 30, 20));
    map.ChangeViewScale(2.0);
    EXPECT_EQ(ellipse->GetQtItem()->boundingRect(), QRectF(-15, -10, 30, 20));
    EXPECT_EQ(ellipse->GetWidth(), 3.0);
    EXPECT_EQ(ellipse->GetHeight(), 2.0);
}

TEST_F(Ellipse, AZeroWidthExtentHasNoShapeButStillPaints)
{
    ellipse->SetExtent(EXTENT{1.0, 0.0, 1.0, 2.0});
    EXPECT_TRUE(Shape().isEmpty());
    QImage image = BlankCanvas(10, 30);
    QPainter painter(&image);
    painter.translate(5, 15);
    ellipse->GetQtItem()->paint(&painter, nullptr, nullptr);
    painter.end();
    EXPECT_EQ(image.pixelColor(5, 6), QColor(0, 0, 255)); // a vertical stroke
}

TEST_F(Ellipse, PaintsThePenAtTheViewScaleAndTheLabelBeside)
{
    ellipse->SetName("Ellipse");
    ellipse->SetNameFont(QFont(QStringLiteral("DejaVu Sans"), 9));
    ellipse->SetNameVisible(true);
    ellipse->SetLabelPosition(3);
    ellipse->SetNameOffset(2.0f);
    ellipse->SetPenWidth(2.0f);
    ellipse->SetBrushColor(QColor(120, 200, 240, 180));
    QImage image = BlankCanvas(100, 40);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(20, 20);
    ellipse->GetQtItem()->paint(&painter, nullptr, nullptr);
    painter.end();
    EXPECT_EQ(CompareWithReference(image, QStringLiteral("ellipse_label_right"), 16, 12), QString());
}
