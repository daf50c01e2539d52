#include "support/ModuleFixture.h"
#include "support/RenderItem.h"

#include <QGraphicsItem>

class LineStrokeBounds : public ModuleFixture
{
protected:
    IZoGraphicsMapLayer* layer = nullptr;
    void SetUp() override
    {
        ModuleFixture::SetUp();
        layer = module.CreateGraphicsLayer("lines");
    }
};

// At a pixel scale of 1/2 the polyline's rectangle is the stroke (1.5 pen
// widths at that scale) of its points divided by the scale, grown by 200
// pixels times the scale.
TEST_F(LineStrokeBounds, PolylineRectangleCoversItsPointsDividedByTheScale)
{
    auto* line = module.CreatePolylineMapObject("route", layer);
    map.ChangeViewScale(2.0);
    line->SetData({{0, 0, 0}, {10, 0, 0}}); // pixels 0 and 100
    const QRectF bounds = line->GetQtItem()->boundingRect();
    EXPECT_NEAR(bounds.left(), -100.0, 0.5);
    EXPECT_NEAR(bounds.right(), 300.0, 0.5);
    EXPECT_NEAR(bounds.top(), -100.375, 0.01);
    EXPECT_NEAR(bounds.bottom(), 100.375, 0.01);
}

// Qt asks that the hit shape stay within the bounding rectangle, for both
// line kinds, open or closed, at every scale.
TEST_F(LineStrokeBounds, HitShapeStaysWithinTheRectangle)
{
    const std::vector<CVector3D> zigzag{{0, 0, 0}, {100, -30, 0}, {3, -70, 0}};
    auto* polyline = module.CreatePolylineMapObject("polyline", layer);
    auto* lines = module.CreateMultiLineMapObject("lines", layer);
    polyline->SetData(zigzag);
    lines->SetData({zigzag, {{20, 0, 0}, {25, -5, 0}}});
    polyline->SetPenWidth(6.0f);
    lines->SetPenWidth(6.0f);
    for (const bool closed : {false, true})
    {
        polyline->SetClosed(closed);
        lines->SetClosed(closed);
        for (const double viewScale : {0.5, 1.0, 2.0})
        {
            map.ChangeViewScale(viewScale);
            for (QGraphicsItem* item : {polyline->GetQtItem(), lines->GetQtItem()})
                EXPECT_TRUE(item->boundingRect().contains(item->shape().boundingRect()))
                    << "closed " << closed << " view scale " << viewScale << " item type " << item->type();
        }
    }
}

// A closed multi-line draws its closing edge, as it hits it.
TEST_F(LineStrokeBounds, ClosedMultiLineDrawsItsClosingEdge)
{
    auto* lines = module.CreateMultiLineMapObject("lines", layer);
    lines->SetPenColor(Qt::black);
    lines->SetPenWidth(3.0f);
    lines->SetData({{{0, 0, 0}, {6, 0, 0}, {6, -6, 0}}}); // pixels (0,0) (60,0) (60,60)
    QGraphicsItem* item = lines->GetQtItem();
    const QPoint onClosingEdge(10 + 30, 10 + 30);
    EXPECT_EQ(RenderItemAt(item, 80, 80, QPointF(10, 10)).pixelColor(onClosingEdge), QColor(Qt::white));
    lines->SetClosed(true);
    ASSERT_TRUE(item->contains(QPointF(30, 30)));
    EXPECT_LT(RenderItemAt(item, 80, 80, QPointF(10, 10)).pixelColor(onClosingEdge).lightness(), 128);
}
