#include "support/ImageCompare.h"
#include "support/ModuleFixture.h"

#include <QGraphicsItem>
#include <QPainter>

// Two dots a few pixels apart whose names overlap: with decluttering on, only
// the label of higher priority keeps its place on the right, the other moves
// to the left of the dots, and both dots still are drawn.
class LabelDeclutter : public ModuleFixture
{
protected:
    void SetUp() override
    {
        ModuleFixture::SetUp();
        layer = module.CreateGraphicsLayer("towns");
        declutter = dynamic_cast<IZoLabelDeclutter*>(layer);
        ASSERT_NE(declutter, nullptr);
        low = MakeDot("Lowtown", 1.0, 1.0, QColor(255, 0, 0));
        high = MakeDot("Hightown", 1.3, 1.0, QColor(0, 0, 255));
    }

    IZoDotMapObject* MakeDot(const std::string& name, double x, double y, const QColor& colour)
    {
        IZoDotMapObject* dot = module.CreateDotMapObject(name, layer);
        dot->SetPosition(CVector3D(x, y, 0.0));
        dot->SetNameFont(QFont(QStringLiteral("DejaVu Sans"), 10));
        dot->SetNameColor(colour);
        dot->SetNameOutlineWidth(0.0);
        dot->SetBrushColor(QColor(0, 160, 0));
        dot->SetPenWidth(0.0f);
        dot->SetLabelPosition(3);
        dot->SetNameVisible(true);
        dot->SetInteractive(true);
        return dot;
    }

    // Pixels of each colour in a frame of the scene around the two dots, from
    // column fromX on (right of both dots from 40 on).
    int Count(const QImage& image, QRgb colour, int fromX = 0) const
    {
        int n = 0;
        for (int y = 0; y < image.height(); ++y)
            for (int x = fromX; x < image.width(); ++x)
                n += image.pixel(x, y) == colour;
        return n;
    }
    QImage Frame()
    {
        QImage image = BlankCanvas(200, 80);
        QPainter painter(&image);
        map.Scene()->render(&painter, QRectF(image.rect()), QRectF(-20, -50, 200, 80));
        painter.end();
        return image.convertToFormat(QImage::Format_ARGB32);
    }

    IZoGraphicsMapLayer* layer = nullptr;
    IZoLabelDeclutter* declutter = nullptr;
    IZoDotMapObject* low = nullptr;
    IZoDotMapObject* high = nullptr;
};

TEST_F(LabelDeclutter, TheHigherZWinsAndBothObjectsStillDrawAndHit)
{
    high->SetZValue(500);
    declutter->SetLabelDeclutter(true);
    QImage frame = Frame();
    EXPECT_GT(Count(frame, qRgb(0, 0, 255), 40), 20);
    EXPECT_EQ(Count(frame, qRgb(255, 0, 0), 40), 0);
    EXPECT_GT(Count(frame, qRgb(255, 0, 0)), 20); // moved to the left
    EXPECT_GT(Count(frame, qRgb(0, 160, 0)), 100); // both dots
    // Both items still answer hit tests at their centres.
    EXPECT_TRUE(map.Scene()->items(low->GetQtItem()->scenePos()).contains(low->GetQtItem()));
    EXPECT_TRUE(map.Scene()->items(high->GetQtItem()->scenePos()).contains(high->GetQtItem()));

    // Raising the other one turns the decision round.
    low->SetZValue(600);
    frame = Frame();
    EXPECT_GT(Count(frame, qRgb(255, 0, 0), 40), 20);
    EXPECT_EQ(Count(frame, qRgb(0, 0, 255), 40), 0);
}

TEST_F(LabelDeclutter, AmongEqualZTheLowerIdWinsAndApartBothShow)
{
    declutter->SetLabelDeclutter(true);
    QImage frame = Frame();
    EXPECT_GT(Count(frame, qRgb(255, 0, 0), 40), 20); // created first
    EXPECT_EQ(Count(frame, qRgb(0, 0, 255), 40), 0);

    high->SetPosition(CVector3D(1.0, -2.0, 0.0)); // 30 pixels lower: no overlap
    frame = Frame();
    EXPECT_GT(Count(frame, qRgb(255, 0, 0)), 20);
    EXPECT_GT(Count(frame, qRgb(0, 0, 255)), 20);

    high->SetPosition(CVector3D(1.3, 1.0, 0.0));
    low->SetNameVisible(false); // a hidden label takes no room
    frame = Frame();
    EXPECT_GT(Count(frame, qRgb(0, 0, 255)), 20);

    declutter->SetLabelDeclutter(false);
    low->SetNameVisible(true);
    frame = Frame();
    EXPECT_GT(Count(frame, qRgb(255, 0, 0)), 20);
    EXPECT_GT(Count(frame, qRgb(0, 0, 255)), 20);
}

TEST_F(LabelDeclutter, CanvasPaintingKeepsEveryLabel)
{
    high->SetZValue(500);
    declutter->SetLabelDeclutter(true);
    Frame();
    QImage canvas = BlankCanvas(256, 256);
    QPainter painter(&canvas);
    low->PaintOnCanvas(&painter, ITileModel::GetTileModel(1, true), 0, nullptr);
    painter.end();
    EXPECT_GT(Count(canvas.convertToFormat(QImage::Format_ARGB32), qRgb(255, 0, 0)), 20);
}
