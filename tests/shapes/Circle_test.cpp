#include "content/OnCanvas.h"
#include "support/KindFixture.h"
#include "support/RenderItem.h"

#include "shapes/circle/CZoCircleMapObject.h"

#include <QGraphicsItem>

// The fake map module projects 10 pixels per degree, y downwards.
class Circle : public KindFixture<CircleKind>
{
protected:
    void SetUp() override
    {
        KindFixture::SetUp();
        object->SetCenter(CVector3D(2.0, 3.0, 0.0));
        object->SetRadiusPoint(CVector3D(3.0, 3.0, 0.0));
        log.Clear();
    }
    static void Style(IZoCircleMapObject* c)
    {
        StyleLikeTheReferences(c, "Ring", QColor(250, 200, 40, 160));
        c->SetLabelPosition(1);
    }
};

TEST_F(Circle, TheRimStaysDueEastAndFollowsTheCentre)
{
    object->SetRadiusPoint(CVector3D(2.0, 5.0, 9.0)); // north, 2 degrees away
    EXPECT_EQ(std::pair(Impl()->GetRimPoint(), object->GetRadius()), std::pair(CVector3D(4.0, 3.0, 0.0), 2.0));
    object->SetCenter(CVector3D(-1.0, 1.0, 0.0));
    EXPECT_EQ(std::pair(Impl()->GetRimPoint(), object->GetRadius()), std::pair(CVector3D(1.0, 1.0, 0.0), 2.0));
    EXPECT_EQ(std::pair(object->GetQtItem()->pos(), ShapeRect()), std::pair(QPointF(-10.0, -10.0), QRectF(-21, -21, 42, 42)));
    // The centre and four rim handles.
    std::vector<CVector3D> points(3);
    Impl()->GetCharacteristicPoints(points);
    ASSERT_EQ(points.size(), 5u);
    EXPECT_EQ(std::tuple(points[0].z, points[1].x, points[2].x, points[3].y, points[4].y, points[4].z),
              std::tuple(-1.0, 1.0, -3.0, 3.0, -1.0, 1.0));
}

TEST_F(Circle, ShapeIsTheWholePixelRadiusGrownByTheFullPenWidth)
{
    EXPECT_EQ(ShapeRect(), QRectF(-11, -11, 22, 22));
    object->SetPenWidth(3.0f); // rebuilds at once
    EXPECT_EQ(ShapeRect(), QRectF(-13, -13, 26, 26));
    // 1.04 degrees is 10.4 pixels: the radius is whole pixels.
    object->SetRadiusPoint(CVector3D(3.04, 3.0, 0.0));
    EXPECT_EQ(ShapeRect(), QRectF(-13, -13, 26, 26));
    // Pixel sizes do not follow the view scale; only the label margin does.
    map.ChangeViewScale(2.0);
    EXPECT_EQ(ShapeRect(), QRectF(-13, -13, 26, 26));
    EXPECT_EQ(object->GetQtItem()->boundingRect(), QRectF(-113, -113, 226, 226));
}

TEST_F(Circle, LabelStandsOnTheMiddleOfEachSideWhateverTheAlignment)
{
    object->SetNameVisible(true);
    object->SetLabelPosition(0);
    EXPECT_EQ(Label().originY, -10.0);
    const double x = Label().originX;
    object->SetLabelAlignment(0);
    object->SetLabelPosition(0);
    EXPECT_EQ(Label().originX, x);
    object->SetLabelPosition(3);
    EXPECT_EQ(Label().originX, 10.0);
    // Label positions are item pixels: at half the scale the rim is twice as far.
    map.ChangeViewScale(2.0);
    EXPECT_EQ(Label().originX, 20.0);
    object->SetLabelPosition(4);
    EXPECT_EQ(Label().clipRect, QRectF(-20, -20, 40, 40));
}

// Appended to what the list holds; counterclockwise in degrees, clockwise in
// pixels (pixel y grows southwards).
TEST_F(Circle, OutlinePointCountsFollowTheLevel)
{
    for (const auto& [level, count] : {std::pair{-3, 1u}, {1, 1u}, {2, 4u}, {5, 32u}, {64, 0u}})
    {
        std::vector<CVector3D> points(1);
        object->GetOutlinePoints(points, level);
        EXPECT_EQ(points.size(), count + 1) << level;
    }
    std::vector<CVector3D> pixels;
    object->GetOutlinePoints(pixels, 2);
    ASSERT_EQ(pixels.size(), 4u);
    EXPECT_EQ(QString::asprintf("%.9f %.9f %.9f", pixels[0].x, pixels[1].x, pixels[1].y), "3.000000000 2.000000000 2.000000000");
    map.tileModelKind = 2;
    std::vector<CVector3D> degrees;
    object->GetOutlinePoints(degrees, 2);
    ASSERT_EQ(degrees.size(), 4u);
    EXPECT_EQ(QString::asprintf("%.9f %.9f %.9f", degrees[1].x, degrees[1].y, degrees[2].x), "2.000000000 4.000000000 1.000000000");
}

// The pen keeps its pixel width while the radius is scene pixels; painted on
// a canvas, the radius is measured on the canvas and the picture is the same.
TEST_F(Circle, PaintsTheSameOnTheSceneAndOnACanvas)
{
    Style(object);
    object->SetRadiusPoint(CVector3D(4.0, 3.0, 0.0));
    EXPECT_EQ(CompareWithReference(RenderItemAt(object->GetQtItem(), 80, 80, QPointF(40, 30)),
                                   QStringLiteral("circle_label_bottom"), 16, 12),
              QString());
    layer->SetAutoAdd(false);
    IZoCircleMapObject* loose = module.CreateCircleMapObject("Ring", layer);
    Style(loose);
    // Web Mercator level 2: 1024 world pixels, so 7.03125 degrees of
    // longitude are 20 pixels.
    loose->SetCenter(CVector3D(0.0, 0.0, 0.0));
    loose->SetRadiusPoint(CVector3D(7.03125, 0.0, 0.0));
    EXPECT_EQ(CompareWithReference(OnCanvas(loose, 2, QRect(472, 482, 80, 80)), QStringLiteral("circle_label_bottom"), 16, 12),
              QString()); // pixel (512, 512) at (40, 30)
}
