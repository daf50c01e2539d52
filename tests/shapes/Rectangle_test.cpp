#include "support/ImageCompare.h"
#include "support/ModuleFixture.h"

#include "shapes/rectangle/CZoRectangleMapObject.h"

#include <ZoGraphics/ZoTileModel.h>

#include <QGraphicsItem>
#include <QPainter>

using Messages = std::vector<std::string>;

// The fake map module projects 10 pixels per degree, y downwards, and
// reports the Web Mercator tile model.
class Rectangle : public ModuleFixture
{
protected:
    void SetUp() override
    {
        ModuleFixture::SetUp();
        layer = module.CreateGraphicsLayer("rectangles");
        rectangle = module.CreateRectangleMapObject("rectangle", layer);
        tile = module.CreateTileMapObject("tile", layer);
        ASSERT_TRUE(rectangle && tile);
        rectangle->SetExtent(EXTENT{1.0, 1.0, 4.0, 3.0});
        log.Clear();
    }
    static QRectF ShapeRect(IZoRectangleMapObject* r) { return r->GetQtItem()->shape().boundingRect(); }
    static QPointF Level21(double x, double y)
    {
        double px = 0.0;
        double py = 0.0;
        ITileModel::GetTileModel(E_TILE_MODEL_WEB_MERCATOR, true)->ConvertGeoToPixel(&px, &py, 21, x, y);
        return QPointF(px, py);
    }

    IZoGraphicsMapLayer* layer = nullptr;
    IZoRectangleMapObject* rectangle = nullptr;
    IZoRectangleMapObject* tile = nullptr;
};

TEST_F(Rectangle, OutlineRunsBetweenTheCornerPixelsAroundTheCentre)
{
    EXPECT_EQ(rectangle->GetQtItem()->pos(), QPointF(25.0, -20.0));
    EXPECT_EQ(ShapeRect(rectangle), QRectF(-15, -10, 30, 20));
    map.ChangeViewScale(2.0); // the margin for the label is 50 pixels
    EXPECT_EQ(rectangle->GetQtItem()->boundingRect(), QRectF(-40, -35, 80, 70));
    EXPECT_EQ(rectangle->GetWidth(), 3.0);
    EXPECT_EQ(rectangle->GetHeight(), 2.0);
}

TEST_F(Rectangle, ATileSitsInFractionalLevel21PixelsOfTheTileModel)
{
    tile->SetExtent(EXTENT{116.3, 39.9, 116.30001, 39.90001});
    const QPointF centre = Level21(116.300005, 39.900005);
    EXPECT_NEAR(tile->GetQtItem()->pos().x(), centre.x(), 1e-6);
    EXPECT_NEAR(tile->GetQtItem()->pos().y(), centre.y(), 1e-6);
    EXPECT_NE(tile->GetQtItem()->pos().x(), std::round(centre.x()));
    const QPointF low = Level21(116.3, 39.9);
    const QPointF high = Level21(116.30001, 39.90001);
    EXPECT_NEAR(ShapeRect(tile).width(), high.x() - low.x(), 1e-6);
    EXPECT_NEAR(ShapeRect(tile).height(), low.y() - high.y(), 1e-6);

    // Moving keeps the pixel size at level 21.
    const double width = ShapeRect(tile).width();
    tile->SetCenter(CVector3D(116.4, 40.0, 0.0));
    EXPECT_NEAR(tile->GetCenter().x, 116.4, 1e-5);
    EXPECT_NEAR(ShapeRect(tile).width(), width, 1e-6);
    EXPECT_TRUE(log.Messages().empty());
}

TEST_F(Rectangle, ATileWithoutTileModelStandsAtTheOriginAndNamesTheMode)
{
    map.tileModelKind = 0;
    tile->SetExtent(EXTENT{1.0, 1.0, 2.0, 2.0});
    EXPECT_EQ(tile->GetQtItem()->pos(), QPointF(0.0, 0.0));
    EXPECT_TRUE(tile->GetQtItem()->shape().isEmpty());
    EXPECT_EQ(log.Messages(),
              Messages{"[CZoRectangleMapObject::ConvertGeoToPixel] 获取TileModel为空, TileModel: 0"});
    // A rectangle does not need the tile model.
    rectangle->SetExtent(EXTENT{1.0, 1.0, 2.0, 2.0});
    EXPECT_EQ(rectangle->GetQtItem()->pos(), QPointF(15.0, -15.0));
}

// --- painting ------------------------------------------------------------------

class RectanglePaint : public Rectangle
{
protected:
    void SetUp() override
    {
        Rectangle::SetUp();
        rectangle->SetPenWidth(3.0f);
        rectangle->SetPenColor(QColor(200, 30, 30));
        rectangle->SetBrushColor(QColor(40, 160, 90, 200));
        QImage picture(8, 8, QImage::Format_ARGB32);
        picture.fill(QColor(30, 60, 200));
        QPainter painter(&picture);
        painter.fillRect(0, 0, 4, 4, QColor(250, 220, 30));
        painter.fillRect(4, 4, 4, 4, QColor(250, 220, 30));
        painter.end();
        texture = QPixmap::fromImage(picture);
    }
    QImage Render() const
    {
        QImage image = BlankCanvas(40, 30);
        QPainter painter(&image);
        painter.translate(20, 15);
        rectangle->GetQtItem()->paint(&painter, nullptr, nullptr);
        painter.end();
        return image;
    }

    QPixmap texture;
};

TEST_F(RectanglePaint, PictureModeStretchesTheTextureWithoutOutlineWhateverThePen)
{
    rectangle->SetBrushTexture(Qt::TexturePattern, texture);
    rectangle->SetPenStyle(Qt::DashLine);
    EXPECT_EQ(CompareWithReference(Render(), QStringLiteral("rectangle_picture")), QString());
}

TEST_F(RectanglePaint, TextureStyleWithoutPictureDrawsPenAndBrush)
{
    rectangle->SetBrushTexture(Qt::TexturePattern, QPixmap());
    const QImage image = Render();
    EXPECT_EQ(CompareWithReference(image, QStringLiteral("rectangle_plain")), QString());
    EXPECT_EQ(image.pixelColor(5, 6), QColor(200, 30, 30)); // the outline
}

TEST_F(RectanglePaint, CanvasPaintingProjectsTheCorners)
{
    layer->SetAutoAdd(false);
    IZoRectangleMapObject* loose = module.CreateRectangleMapObject("loose", layer);
    loose->SetBrushTexture(Qt::TexturePattern, texture);
    // Web Mercator level 0: 256 pixels for 360 degrees.
    loose->SetExtent(EXTENT{0.0, -30.0, 45.0, 30.0});
    QImage canvas = BlankCanvas(256, 256);
    QPainter painter(&canvas);
    loose->PaintOnCanvas(&painter, ITileModel::GetTileModel(1, true), 0, nullptr);
    painter.end();
    EXPECT_EQ(loose->GetQtItem(), nullptr);
    EXPECT_EQ(canvas.pixelColor(130, 126), QColor(250, 220, 30)); // inside, near the top-left
    EXPECT_EQ(canvas.pixelColor(126, 128), QColor(Qt::white));    // west of the extent
    EXPECT_EQ(canvas.pixelColor(162, 128), QColor(Qt::white));    // east of it
}
