#include "support/ImageCompare.h"
#include "support/ModuleFixture.h"
#include <QGraphicsItem>
#include <QGraphicsScene>
#include <QPainter>

// A named dot and a large marker made after it that covers where its name
// stands. Map readers expect the names of a decluttered layer above all of its
// objects; a layer that does not declutter keeps each name with its object.
class LabelsAbove : public ModuleFixture
{
protected:
    void SetUp() override
    {
        ModuleFixture::SetUp();
        layer = module.CreateGraphicsLayer("towns");
        named = module.CreateDotMapObject("Lowtown", layer);
        named->SetPosition(CVector3D(1.0, 1.0, 0.0));
        named->SetNameFont(QFont(QStringLiteral("DejaVu Sans"), 10));
        named->SetNameColor(QColor(0, 0, 255));
        named->SetNameOutlineWidth(0.0);
        named->SetLabelPosition(3);
        named->SetNameVisible(true);
        marker = module.CreateDotMapObject("marker", layer);
        marker->SetPosition(CVector3D(4.0, 1.0, 0.0));
        marker->SetRadius(60.0);
        marker->SetBrushColor(QColor(0, 160, 0));
        marker->SetPenWidth(0.0f);
        marker->SetInteractive(true);
    }
    int BluePixels()
    {
        QImage image = BlankCanvas(200, 80);
        QPainter painter(&image);
        map.Scene()->render(&painter, QRectF(image.rect()), QRectF(-20, -50, 200, 80));
        painter.end();
        image = image.convertToFormat(QImage::Format_ARGB32);
        int n = 0;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                n += image.pixel(x, y) == qRgb(0, 0, 255);
        return n;
    }
    IZoGraphicsMapLayer* layer = nullptr;
    IZoDotMapObject* named = nullptr;
    IZoDotMapObject* marker = nullptr;
};

TEST_F(LabelsAbove, ADeclutteredLayerDrawsNamesAboveLaterMarkersAndHitTestsFindOnlyObjects)
{
    ASSERT_EQ(BluePixels(), 0); // the marker covers the name of its own dot
    dynamic_cast<IZoLabelDeclutter*>(layer)->SetLabelDeclutter(true);
    EXPECT_GT(BluePixels(), 20);
    // Over the name, the scene answers with the marker alone.
    EXPECT_EQ(map.Scene()->items(QPointF(30.0, -12.0)), QList<QGraphicsItem*>{marker->GetQtItem()});
    // A later colour reaches the name drawn by the layer; switching off
    // gives the name back to its dot.
    named->SetNameColor(QColor(255, 0, 0));
    EXPECT_EQ(BluePixels(), 0);
    named->SetNameColor(QColor(0, 0, 255));
    dynamic_cast<IZoLabelDeclutter*>(layer)->SetLabelDeclutter(false);
    EXPECT_EQ(BluePixels(), 0);
}
