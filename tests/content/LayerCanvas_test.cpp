#include "content/OnCanvas.h"
#include "support/KindFixture.h"
#include "content/canvas/CZoLayerCanvasMapObject.h"
#include <QGraphicsItem>
#include <QPainter>

namespace
{
// A 4 x 2 picture whose quadrants tell which way up it was drawn: red top
// left, green top right, blue bottom left, yellow bottom right.
QImage Quadrants()
{
    QImage image(4, 2, QImage::Format_ARGB32);
    const Qt::GlobalColor colours[] = {Qt::red, Qt::green, Qt::blue, Qt::yellow};
    for (int x = 0; x < 4; ++x)
        for (int y = 0; y < 2; ++y)
            image.setPixelColor(x, y, colours[2 * y + x / 2]);
    return image;
}
} // namespace

class LayerCanvas : public KindFixture<LayerCanvasKind>
{
protected:
    QGraphicsItem* Item() const { return object->GetQtItem(); }
    QImage Render(int width, int height) const
    {
        QImage image = BlankCanvas(width, height);
        QPainter painter(&image);
        Item()->paint(&painter, nullptr, nullptr);
        painter.end();
        return image;
    }
};

// Hits are taken without a picture too; a picture is drawn on a canvas as well.
TEST_F(LayerCanvas, ImageIsStretchedTheRightWayUpAndNoImageDrawsNothing)
{
    object->SetExtent(EXTENT{0.0, 0.0, 8.0, 4.0});
    object->SetImage(QImage());
    EXPECT_EQ(Render(80, 40), BlankCanvas(80, 40));
    object->SetInteractive(true);
    EXPECT_TRUE(map.Scene()->items(QPointF(20.0, -10.0)).contains(Item()));
    object->SetImage(Quadrants());
    EXPECT_EQ(CompareWithReference(Render(80, 40), QStringLiteral("canvas_quadrants"), 8, 0), QString());
    object->SetExtent(EXTENT{-180.0, 0.0, 0.0, 85.0511287798});
    // Web Mercator level 0: the north-west quarter of the world.
    const QImage target = OnCanvas(object, 0, QRect(0, 0, 256, 256));
    const std::pair<QPoint, Qt::GlobalColor> pixels[] = {
        {{2, 2}, Qt::red}, {{125, 2}, Qt::green}, {{2, 125}, Qt::blue}, {{125, 125}, Qt::yellow}, {{130, 130}, Qt::white}};
    for (const auto& [at, colour] : pixels)
        EXPECT_EQ(target.pixelColor(at), QColor(colour)) << at.x() << "," << at.y();
}
