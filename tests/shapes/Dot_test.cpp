#include "support/ImageCompare.h"
#include "support/KindFixture.h"
#include "support/RenderItem.h"

#include "object/IZoMapObjectInternal.h"
#include "object/ZoLabelLook.h"
#include "shapes/dot/CZoDotMapObject.h"

#include <QGraphicsItem>
#include <QPainter>

class Dot : public KindFixture<DotKind>
{
protected:
    static void Style(IZoDotMapObject* dot)
    {
        StyleLikeTheReferences(dot, "Dot", QColor(250, 200, 40));
        dot->SetRadius(8.0);
    }
    QImage Render(int width = 120, int height = 60) const
    {
        return RenderItemCentred(object->GetQtItem(), width, height);
    }
};

// A dot the host has not styled: a radius of six pixels and a one-pixel pen.
TEST_F(Dot, ShapeRadiusIsRadiusPlusPenWidthTimesPixelScale)
{
    EXPECT_EQ(ShapeRect(), QRectF(-7, -7, 14, 14));
    map.ChangeViewScale(2.0);
    EXPECT_EQ(ShapeRect(), QRectF(-3.5, -3.5, 7, 7));
    object->SetPenWidth(3.0f); // the dot's outline grows its shape at once
    EXPECT_EQ(ShapeRect(), QRectF(-4.5, -4.5, 9, 9));
    object->SetRadius(1.0);
    EXPECT_EQ(object->GetQtItem()->boundingRect(), QRectF(-2, -2, 4, 4));
}

TEST_F(Dot, TheShapeCacheSkipsUnforcedRebuildsOnly)
{
    layer->EnableShapeCache();
    object->SetRebuildThreshold(5.0);
    EXPECT_TRUE(object->GetQtItem()->boundingRect().isNull());
    object->SetRadius(10.0); // unforced: cached path kept
    object->SetRebuildThreshold(-1.0);
    EXPECT_EQ(ShapeRect(), QRectF(-7, -7, 14, 14));
    object->SetRebuildThreshold(11.9);
    object->SetAlwaysRebuild(true);
    object->SetRadius(10.0);
    EXPECT_EQ(ShapeRect(), QRectF(-11, -11, 22, 22));
}

TEST_F(Dot, LabelPlacementsAndARotatedTextureMatchTheirReferences)
{
    Style(object);
    for (unsigned int position = 0; position <= 4; ++position)
    {
        object->SetLabelPosition(position);
        const QString name = QStringLiteral("dot_label_%1").arg(position);
        EXPECT_EQ(CompareWithReference(Render(), name, 16, 12), QString()) << position;
    }
    QImage texture(16, 16, QImage::Format_ARGB32);
    texture.fill(Qt::darkGreen);
    QPainter texturePainter(&texture);
    texturePainter.fillRect(0, 0, 16, 6, Qt::red);
    texturePainter.end();
    object->SetBrushTexture(Qt::TexturePattern, QPixmap::fromImage(texture));
    object->SetNameVisible(false);
    object->SetRotation(45.0);
    EXPECT_EQ(CompareWithReference(Render(60, 60), QStringLiteral("dot_texture_rotated"), 16, 6), QString());
}

// A label's finished look is held only while the label shows: hiding it, by
// its switch or by a level outside its range, gives the look back.
TEST_F(Dot, HiddenNamesGiveTheirLooksBack)
{
    Style(object);
    ZoLabelLookCache::Clear();
    const CZoMapObjectCore* core = ZoObjectCore(object);
    ASSERT_NE(core, nullptr);
    Render();
    EXPECT_TRUE(core->Label().HoldsLook() && ZoLabelLookCache::Bytes() > 0u);
    object->SetNameVisible(false);
    EXPECT_EQ(std::pair(core->Label().HoldsLook(), ZoLabelLookCache::Bytes()), std::pair(false, std::size_t(0)));
    object->SetNameVisible(true);
    Render();
    EXPECT_TRUE(core->Label().HoldsLook());
    object->SetNameMaxLodLevel(map.lod - 1);
    map.ChangeLod(map.lod);
    EXPECT_EQ(std::pair(core->Label().HoldsLook(), ZoLabelLookCache::Bytes()), std::pair(false, std::size_t(0)));
}

// A zoom between whole levels keeps a dot's shape and its placed name; a name
// that comes into its level range there is placed then, as if set anew.
TEST_F(Dot, ANameThatComesIntoItsLevelsOnAZoomIsPlaced)
{
    Style(object);
    object->SetNameMinLodLevel(map.lod + 2);
    object->SetLabelPosition(E_LABEL_LEFT); // out of its levels: not placed there yet
    map.ChangeViewScale(1.0);
    const QImage without = Render();
    map.ChangeLod(map.lod + 2);
    map.ChangeViewScale(1.0);
    const QImage zoomed = Render();
    EXPECT_NE(zoomed, without);
    object->SetNameVisible(false);
    object->SetNameVisible(true);
    EXPECT_EQ(zoomed, Render());
}
