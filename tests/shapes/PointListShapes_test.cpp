#include "content/OnCanvas.h"
#include "support/ModuleFixture.h"
#include "support/RenderItem.h"

#include "shapes/multidot/CZoMultiDotMapObject.h"
#include "shapes/polygon/CZoPolygonMapObject.h"
#include "shapes/pointlist/ZoRingPaths.h"

#include <QGraphicsItem>
#include <cmath>

namespace
{
// A five-pointed star drawn in one stroke, radius r degrees around (cx, cy).
std::vector<CVector3D> Star(double cx, double cy, double r)
{
    std::vector<CVector3D> star;
    for (int k = 0; k < 5; ++k)
        star.emplace_back(cx + r * std::cos(M_PI / 2 + k * 4 * M_PI / 5), cy + r * std::sin(M_PI / 2 + k * 4 * M_PI / 5), 0.0);
    return star;
}

std::vector<CVector3D> Square(double x0, double y0, double side)
{
    return {{x0, y0, 0}, {x0 + side, y0, 0}, {x0 + side, y0 + side, 0}, {x0, y0 + side, 0}};
}
} // namespace

class PointListShapes : public ModuleFixture
{
protected:
    void SetUp() override
    {
        ModuleFixture::SetUp();
        layer = module.CreateGraphicsLayer("shapes");
    }
    IZoGraphicsMapLayer* layer = nullptr;
};

TEST_F(PointListShapes, PolygonFillsUnderTheOddEvenRuleAndHitsItsWholeArea)
{
    auto* polygon = module.CreatePolygonMapObject("star", layer);
    polygon->SetBrushColor(QColor(240, 180, 40));
    polygon->SetPenColor(QColor(120, 60, 0));
    polygon->SetData(Star(0, 0, 4));
    QGraphicsItem* item = polygon->GetQtItem();
    // The item sits on the first point, the top of the star: the pentagon in
    // the middle, 40 pixels below, is covered twice.
    EXPECT_FALSE(item->contains(QPointF(0, 40)));
    EXPECT_TRUE(item->contains(QPointF(0, 5)));
    EXPECT_EQ(CompareWithReference(RenderItemAt(item, 100, 100, QPointF(50, 10)), "polygon_star_oddeven", 8, 20),
              QString());
    EXPECT_EQ(item->boundingRect(), item->shape().boundingRect().adjusted(-100, -100, 100, 100));
    // One point draws nothing, two draw an outline.
    polygon->SetPenWidth(2.0f);
    polygon->SetData({{1, -1, 0}});
    EXPECT_EQ(RenderItemAt(item, 60, 60, QPointF(0, 0)), BlankCanvas(60, 60));
    polygon->PushBack(CVector3D(4, -4, 0));
    EXPECT_NE(RenderItemAt(item, 60, 60, QPointF(0, 0)), BlankCanvas(60, 60));
}

TEST_F(PointListShapes, PolygonNameShowsOnlyCentred)
{
    auto* polygon = static_cast<CZoPolygonMapObject*>(module.CreatePolygonMapObject("Area", layer));
    polygon->SetNameFont(QFont(QStringLiteral("DejaVu Sans"), 9));
    polygon->SetNameVisible(true);
    polygon->SetBrushColor(QColor(200, 230, 255));
    polygon->SetData(Square(0, 0, 6));
    polygon->SetLabelPosition(1);
    const QImage without = RenderItemAt(polygon->GetQtItem(), 80, 80, QPointF(10, 70));
    polygon->SetLabelPosition(4);
    const QImage with = RenderItemAt(polygon->GetQtItem(), 80, 80, QPointF(10, 70));
    EXPECT_NE(with, without);
    EXPECT_EQ(CompareWithReference(with, "polygon_label_centre", 8, 40), QString());
    // The name is centred on the ring's box, in pixels divided by the scale.
    EXPECT_EQ(polygon->Core().Label().clipRect, QRectF(0, -60, 60, 60));
}

TEST_F(PointListShapes, MultiPolygonRingInsideRingIsAHole)
{
    auto* rings = module.CreateMultiPolygonMapObject("rings", layer);
    rings->SetBrushColor(QColor(60, 160, 90));
    rings->SetData({Square(0, 0, 8), Square(2, 2, 4), Square(10, 0, 3)});
    QGraphicsItem* item = rings->GetQtItem();
    EXPECT_TRUE(item->contains(QPointF(10, -10)));
    EXPECT_FALSE(item->contains(QPointF(40, -40))); // in the hole
    EXPECT_TRUE(item->contains(QPointF(110, -10)));
    EXPECT_FALSE(item->contains(QPointF(90, -10))); // between the rings
    EXPECT_EQ(item->boundingRect(), QRectF(0, -80, 130, 80)); // no margin
    EXPECT_EQ(CompareWithReference(RenderItemAt(item, 150, 100, QPointF(10, 90)), "multipolygon_hole", 8, 20),
              QString());
}

TEST_F(PointListShapes, MultiLineDrawsAnArrowOnEachLineAndHitsOnlyItsStrokes)
{
    auto* lines = module.CreateMultiLineMapObject("lines", layer);
    lines->SetPenColor(QColor(150, 20, 120));
    lines->SetPenWidth(2.0f);
    lines->SetArrowVisible(true);
    lines->SetData({{{0, 0, 0}, {12, 0, 0}}, {{0, -4, 0}, {6, -6, 0}, {12, -4, 0}}});
    QGraphicsItem* item = lines->GetQtItem();
    EXPECT_TRUE(item->contains(QPointF(60, 1)));
    EXPECT_FALSE(item->contains(QPointF(60, 20)));
    EXPECT_FALSE(item->contains(QPointF(60, 40))); // the closing edge of the second line
    lines->SetClosed(true);
    EXPECT_TRUE(item->contains(QPointF(60, 40)));
    lines->SetClosed(false);
    EXPECT_EQ(CompareWithReference(RenderItemAt(item, 140, 80, QPointF(10, 10)), "multiline_arrows", 8, 20),
              QString());
}

TEST_F(PointListShapes, MultiDotLaysOutItsDotsOnTheNextRebuild)
{
    auto* dots = static_cast<CZoMultiDotMapObject*>(module.CreateMultiDotMapObject("Capitals", layer));
    QGraphicsItem* item = dots->GetQtItem();
    dots->SetData({{0, 0, 0}, {5, 0, 0}, {0, 0, 0}});
    EXPECT_TRUE(item->shape().isEmpty()); // edits alone hand the offsets over
    dots->SetDotSize(3.0);
    // Radius dot size plus pen width; the repeated first point draws once.
    EXPECT_EQ(std::pair(item->shape().boundingRect(), item->shape().elementCount()), std::pair(QRectF(-4, -4, 58, 8), 2 * 13));
    dots->SetDotSize(0.0);
    EXPECT_TRUE(item->shape().isEmpty());
    dots->SetBrushColor(QColor(220, 40, 40));
    dots->SetPenColor(Qt::white);
    dots->SetPenWidth(1.5f);
    dots->SetData({{0, 0, 0}, {4, -2, 0}, {9, 1, 0}});
    dots->SetDotSize(4.0);
    EXPECT_EQ(CompareWithReference(RenderItemAt(item, 120, 50, QPointF(10, 20)), "multidot_dots", 8, 20), QString());
}

TEST_F(PointListShapes, MultiDotMovesItsFirstDotOntoThePointOnlyWithAnItem)
{
    layer->SetAutoAdd(false);
    auto* bare = module.CreateMultiDotMapObject("bare", layer);
    bare->SetData({{1, 1, 0}, {2, 2, 0}});
    bare->SetPosition(CVector3D(5, 5, 0));
    EXPECT_EQ(bare->At(0), CVector3D(1, 1, 0));
    layer->SetAutoAdd(true);
    auto* dots = module.CreateMultiDotMapObject("dots", layer);
    dots->SetData({{1, 1, 0}, {2, 2, 0}});
    dots->SetPosition(CVector3D(5, 5, 0));
    EXPECT_EQ(std::tuple(dots->GetData(), dots->GetQtItem()->pos(), dots->GetBoundingBox().max),
              std::tuple(std::vector<CVector3D>{{5, 5, 0}, {6, 6, 0}}, QPointF(50, -50), CVector3D(6, 6, 1)));
}

TEST_F(PointListShapes, CanvasPaintingProjectsEveryPointThroughTheCanvas)
{
    auto* rings = module.CreateMultiPolygonMapObject("rings", layer);
    rings->SetBrushColor(QColor(60, 160, 90));
    rings->SetData({Square(0, 0, 40)});
    // Level 2: 1024 pixels around the world; the square covers 40 degrees,
    // about 114 pixels, whatever the map module's own scale.
    const QImage image = OnCanvas(rings, 2, QRect(0, 0, 1024, 1024));
    const QColor fill(60, 160, 90);
    EXPECT_EQ(image.pixelColor(512 + 100, 512 - 50), fill);
    EXPECT_TRUE(image.pixelColor(512 + 130, 512 - 50) != fill && image.pixelColor(512 - 10, 512 + 10) != fill);
}


// A painter sweeps the box of what it fills: islands strewn over the world
// are filled piece by piece, while a hole stays with its part and parts that
// overlap stay together, to be filled once.
TEST(ApartPieces, RingsWhoseBoxesMeetStayTogether)
{
    const auto ring = [](double x, double y, double side) { return QPolygonF(QRectF(x, y, side, side)); };
    QPainterPath path;
    path.setFillRule(Qt::WindingFill);
    for (const QPolygonF& r : {ring(0, 0, 10), ring(500, 0, 10), ring(2, 2, 4), ring(8, 8, 10), ring(0, 300, 5)})
        path.addPolygon(r);
    const std::vector<QPainterPath> pieces = ZoPointList::ApartPieces(path);
    ASSERT_EQ(pieces.size(), 3u);
    EXPECT_EQ(pieces[0].toSubpathPolygons().size(), 3); // the part, its hole, the part overlapping it
    EXPECT_EQ(pieces[0].fillRule(), Qt::WindingFill);
    EXPECT_EQ(pieces[1].boundingRect(), QRectF(500, 0, 10, 10));
    EXPECT_EQ(pieces[2].boundingRect(), QRectF(0, 300, 5, 5));
    QPainterPath one;
    one.addPolygon(ring(0, 0, 10));
    EXPECT_EQ(ZoPointList::ApartPieces(one), std::vector<QPainterPath>{one});
}
