#include "support/ImageCompare.h"
#include "support/KindFixture.h"

#include "content/canvas/CZoLayerCanvasMapObject.h"

#include <ZoGraphics/ZoTileModel.h>

#include <QCoreApplication>
#include <QGraphicsItem>
#include <QPainter>

using Messages = std::vector<std::string>;

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

TEST_F(LayerCanvas, ExtentBeforeInitialiseIsRefused)
{
    CZoLayerCanvasMapObject loose;
    LogCapture capture;
    loose.SetExtent(EXTENT{1.0, 2.0, 3.0, 4.0});
    EXPECT_EQ(loose.GetExtent(), EXTENT());
    EXPECT_EQ(capture.Messages(), (Messages{"[CZoLayerCanvasMapObject::SetExtent] MapModule模块未初始化设置"}));
    // Pictures need no map.
    loose.SetImage(Quadrants());
    EXPECT_EQ(loose.GetImage(), Quadrants());
}

TEST_F(LayerCanvas, ItemSpansTheExtentFromItsTopLeftCorner)
{
    object->SetExtent(EXTENT{10.0, 20.0, 30.0, 40.0});
    EXPECT_EQ(Item()->pos(), QPointF(100.0, -400.0));
    EXPECT_EQ(Item()->boundingRect(), QRectF(0.0, 0.0, 200.0, 200.0));
    // The host zooms: the next position update follows the new pixels.
    map.pixelsPerDegree = 20.0;
    object->UpdatePosition();
    EXPECT_EQ(Item()->pos(), QPointF(200.0, -800.0));
    EXPECT_EQ(Item()->boundingRect(), QRectF(0.0, 0.0, 400.0, 400.0));
    // Bad extents are ignored.
    object->SetExtent(EXTENT{std::nan(""), 0.0, 1.0, 1.0});
    object->SetExtent(EXTENT{0.0, 0.0, HUGE_VAL, 1.0});
    EXPECT_EQ(object->GetExtent(), (EXTENT{10.0, 20.0, 30.0, 40.0}));
    EXPECT_EQ(object->GetBoundingBox().min, CVector3D(10.0, 20.0, 0.0));
    EXPECT_EQ(object->GetBoundingBox().max, CVector3D(30.0, 40.0, 0.0));
}

TEST_F(LayerCanvas, NullImageDrawsNothingButStillTakesHits)
{
    object->SetExtent(EXTENT{0.0, 0.0, 4.0, 2.0});
    object->SetImage(QImage());
    const QImage painted = Render(40, 20);
    EXPECT_EQ(painted, BlankCanvas(40, 20));
    object->SetInteractive(true);
    EXPECT_TRUE(map.Scene()->items(QPointF(20.0, -10.0)).contains(Item()));
}

TEST_F(LayerCanvas, ImageIsStretchedTheRightWayUp)
{
    object->SetExtent(EXTENT{0.0, 0.0, 8.0, 4.0});
    object->SetImage(Quadrants());
    const QImage painted = Render(80, 40);
    EXPECT_EQ(painted.pixelColor(5, 5), QColor(Qt::red));
    EXPECT_EQ(painted.pixelColor(75, 5), QColor(Qt::green));
    EXPECT_EQ(painted.pixelColor(5, 35), QColor(Qt::blue));
    EXPECT_EQ(painted.pixelColor(75, 35), QColor(Qt::yellow));
    EXPECT_EQ(CompareWithReference(painted, QStringLiteral("canvas_quadrants"), 8, 0), QString());
}

TEST_F(LayerCanvas, CanvasPaintingSpansTheCornersAtTheLevel)
{
    object->SetExtent(EXTENT{-180.0, 0.0, 0.0, 85.0511287798});
    object->SetImage(Quadrants());
    // Web Mercator level 0: the north-west quarter of the world.
    QImage target = BlankCanvas(256, 256);
    QPainter painter(&target);
    object->PaintOnCanvas(&painter, ITileModel::GetTileModel(1, true), 0, nullptr);
    painter.end();
    EXPECT_EQ(target.pixelColor(2, 2), QColor(Qt::red));
    EXPECT_EQ(target.pixelColor(125, 2), QColor(Qt::green));
    EXPECT_EQ(target.pixelColor(2, 125), QColor(Qt::blue));
    EXPECT_EQ(target.pixelColor(125, 125), QColor(Qt::yellow));
    EXPECT_EQ(target.pixelColor(130, 130), QColor(Qt::white));
}
