#include "support/ImageCompare.h"
#include "support/RenderItem.h"
#include "support/KindFixture.h"

#include "shapes/polyline/CZoPolylineMapObject.h"

#include <QGraphicsItem>
#include <QPainter>
#include <QPicture>
#include <cmath>

using Messages = std::vector<std::string>;

class Polyline : public KindFixture<PolylineKind>
{
protected:
    void SetUp() override
    {
        KindFixture::SetUp();
        line = Impl();
    }
    QGraphicsItem* Item() const { return line->GetQtItem(); }

    CZoPolylineMapObject* line = nullptr;
};

TEST_F(Polyline, SetPositionMovesRigidlyWithoutRecomputingOffsets)
{
    line->SetData({{1, 1, 0}, {2, 3, 0}, {4, 1, 0}});
    const QPolygonF before = line->GetItem()->Offsets().lines.front();
    line->SetPosition(CVector3D(11, 21, 0));
    EXPECT_EQ(line->GetPosition(), CVector3D(11, 21, 0));
    EXPECT_EQ(line->GetData(), (std::vector<CVector3D>{{11, 21, 0}, {12, 23, 0}, {14, 21, 0}}));
    EXPECT_EQ(Item()->pos(), QPointF(110, -210));
    EXPECT_EQ(line->GetItem()->Offsets().lines.front(), before);
    EXPECT_EQ(line->GetBoundingBox().max, CVector3D(14, 23, 1));
}

TEST_F(Polyline, ControlPointsAreTheDrawnPixelsBackInDegreesWithZeroZ)
{
    std::vector<CVector3D> out{{9, 9, 9}};
    line->SetData({{1.04, 2, 5}, {3, -4, 6}});
    line->GetAllControlPoint(out);
    // 1.04 degrees lands on pixel 10, which is 1.0 degree again.
    EXPECT_EQ(out, (std::vector<CVector3D>{{9, 9, 9}, {1.0, 2, 0}, {3, -4, 0}}));

    layer->SetAutoAdd(false);
    auto* bare = module.CreatePolylineMapObject("bare", layer);
    log.Clear();
    bare->GetAllControlPoint(out);
    EXPECT_EQ(log.Messages(), Messages{"[CZoPolylineMapObject::GetAllControlPoint] Qt-Item为空"});
    CZoPolylineMapObject unattached;
    log.Clear();
    unattached.GetAllControlPoint(out);
    EXPECT_EQ(log.Messages(), Messages{"[CZoPolylineMapObject::GetAllControlPoint] MapModule传入为空"});
    EXPECT_EQ(out.size(), 3u);
}

TEST_F(Polyline, HitAreaIsTheStrokeOfTheLineAndTheClosingEdgeOnlyWhenClosed)
{
    line->SetData({{0, 0, 0}, {10, 0, 0}, {10, -10, 0}}); // pixels (0,0) (100,0) (100,100)
    line->SetPenWidth(4.0f); // hit half width 3 pixels
    EXPECT_TRUE(Item()->contains(QPointF(50, 2.5)));
    EXPECT_FALSE(Item()->contains(QPointF(50, 3.5)));
    EXPECT_TRUE(Item()->contains(QPointF(101, 60)));
    EXPECT_FALSE(Item()->contains(QPointF(50, 50))); // on the closing edge
    line->SetClosed(true);
    EXPECT_TRUE(Item()->contains(QPointF(50, 50)));
    EXPECT_TRUE(Item()->shape().contains(QPointF(50, 51)));
    // The scene finds the line under the pointer through the same test.
    EXPECT_EQ(map.Scene()->items(QPointF(50, 1)).size(), 1);
    EXPECT_TRUE(map.Scene()->items(QPointF(30, 60)).isEmpty());
}

TEST_F(Polyline, BoundsComeFromThePointsWithAMarginForArrowsAndNames)
{
    line->SetData({{0, 0, 0}, {10, -5, 0}});
    // The stroke's own half width (0.75 pixels) and caps come on top.
    EXPECT_TRUE(Item()->boundingRect().contains(QRectF(-200, -200, 500, 450)));
    EXPECT_TRUE(QRectF(-202, -202, 504, 454).contains(Item()->boundingRect()));
    // Removing every point keeps the last rectangle: nothing is drawn in it.
    line->Clear();
    EXPECT_FALSE(Item()->boundingRect().isEmpty());
}

TEST_F(Polyline, TheShapeCacheSuppressesGeometryAndPainting)
{
    line->SetData({{0, 0, 0}, {10, 0, 0}});
    layer->EnableShapeCache();
    line->SetRebuildThreshold(5.0);
    EXPECT_TRUE(Item()->boundingRect().isNull());
    EXPECT_TRUE(Item()->shape().isEmpty());
    EXPECT_FALSE(Item()->contains(QPointF(50, 0)));
    line->SetAlwaysRebuild(true);
    EXPECT_TRUE(Item()->contains(QPointF(50, 0)));
}

TEST_F(Polyline, NameSitsAboveTheMiddleOfItsSegmentRaisedByThePenStyle)
{
    line->SetName("Route");
    line->SetNameVisible(true);
    line->SetData({{0, 0, 0}, {10, 0, 0}, {20, 0, 0}, {30, 0, 0}});
    const CZoNameLabel& label = line->Core().Label();
    const double width = QFontMetricsF(label.font).horizontalAdvance(label.text);
    const auto originX = [&](unsigned int position) {
        line->SetLabelPosition(position);
        return label.originX;
    };
    EXPECT_NEAR(originX(0), 50 - width / 2, 1.0);
    EXPECT_NEAR(originX(1), 150 - width / 2, 1.0);
    EXPECT_NEAR(originX(2), 250 - width / 2, 1.0);
    line->SetPenStyle(3);
    line->SetLabelPosition(0);
    EXPECT_FLOAT_EQ(label.originY, -3.0f);
}

// --- painting ------------------------------------------------------------------

class PolylinePaint : public Polyline
{
protected:
    void SetUp() override
    {
        Polyline::SetUp();
        line->SetPenColor(QColor(20, 60, 200));
        line->SetPenWidth(2.0f);
    }
};

TEST_F(PolylinePaint, ArrowsAtEitherEnd)
{
    line->SetData({{0, 0, 0}, {8, -3, 0}, {16, 0, 0}}); // (0,0) (80,30) (160,0)
    line->SetArrowVisible(true);
    EXPECT_TRUE(CompareWithReference(RenderItemAt(Item(), 180, 60, QPointF(10, 10)), "polyline_arrow_end", 8, 12).isEmpty());
    line->SetArrowAtEnd(false);
    EXPECT_TRUE(CompareWithReference(RenderItemAt(Item(), 180, 60, QPointF(10, 10)), "polyline_arrow_start", 8, 12).isEmpty());
}

TEST_F(PolylinePaint, NameAlongARisingSegmentReadsLeftToRight)
{
    line->SetName("Beijing");
    line->SetNameFont(QFont(QStringLiteral("DejaVu Sans"), 9));
    line->SetNameVisible(true);
    line->SetData({{16, 0, 0}, {0, 6, 0}}); // right to left, rising
    EXPECT_TRUE(CompareWithReference(RenderItemAt(Item(), 180, 80, QPointF(170, 70)), "polyline_label", 8, 40).isEmpty());
}

TEST_F(PolylinePaint, NothingWithoutASegmentOrWithoutAPen)
{
    const QImage blank = BlankCanvas(60, 60);
    line->SetArrowVisible(true);
    line->SetData({{1, -1, 0}});
    EXPECT_EQ(RenderItemAt(Item(), 60, 60, QPointF(0, 0)), blank);
    line->SetData({{1, -1, 0}, {4, -4, 0}});
    line->SetPenWidth(0.0f);
    EXPECT_EQ(RenderItemAt(Item(), 60, 60, QPointF(0, 0)), blank);
}

TEST_F(PolylinePaint, CoincidentEndPointsDrawNoArrow)
{
    line->SetPenWidth(1.0f);
    line->SetData({{1, -1, 0}, {4, -4, 0}, {4, -4, 0}});
    const QImage without = RenderItemAt(Item(), 60, 60, QPointF(0, 0));
    line->SetArrowVisible(true);
    EXPECT_EQ(RenderItemAt(Item(), 60, 60, QPointF(0, 0)), without);
}

// Each of the ways a wide pen is drawn (a widened hairline mask for dense
// lines, two shifted hairlines for sparse ones, short stroked runs for wider
// pens) against Qt's own stroke of the same line: what is drawn must look the
// same, whatever the painter's transform, clip or the pen's alpha.
TEST_F(PolylinePaint, AWidePenLooksLikeQtsOwnStrokeWhicheverWayItIsDrawn)
{
    QPolygonF zigzag; // dense: 400 points in a few thousand pixels
    for (int i = 0; i < 400; ++i)
        zigzag << QPointF(5 + i * 0.5, 20 + (i % 2 ? 10 : -10) + i * 0.05);
    QPolygonF wave; // sparse: long segments over a wide area
    for (int i = 0; i < 60; ++i)
        wave << QPointF(5 + i * 3.5, 40 + 30 * std::sin(i * 0.3));
    struct Case
    {
        const char* what;
        const QPolygonF& line;
        double width;
        int alpha;
        QTransform transform;
        QRect clip;
    };
    const Case cases[] = {
        {"dense, 1.5 px", zigzag, 1.5, 255, {}, {}},
        {"dense, translucent", zigzag, 1.5, 120, {}, {}},
        {"dense, 2 px", zigzag, 2.0, 255, {}, {}},
        {"dense, scaled painter", zigzag, 1.0, 255, QTransform::fromScale(0.9, 1.6), {}},
        {"dense, clipped", zigzag, 1.5, 255, {}, QRect(40, 0, 90, 80)},
        {"sparse, 1.5 px", wave, 1.5, 255, {}, {}},
        {"sparse, 2.5 px", wave, 2.5, 255, {}, {}},
        {"sparse, 4 px", wave, 4.0, 255, {}, {}},
    };
    for (const Case& c : cases)
    {
        SCOPED_TRACE(c.what);
        QPen pen(QColor(200, 30, 30, c.alpha), c.width);
        QImage ours = BlankCanvas(220, 80);
        QImage qt = BlankCanvas(220, 80);
        auto paint = [&](QImage* image, bool byUs) {
            QPainter painter(image);
            painter.setRenderHint(QPainter::Antialiasing);
            painter.setTransform(c.transform);
            if (!c.clip.isNull())
                painter.setClipRect(c.transform.inverted().mapRect(QRectF(c.clip)));
            if (byUs)
                return ZoPointList::DrawPolyline(&painter, c.line, pen);
            QPen round = pen;
            round.setCapStyle(Qt::RoundCap);
            painter.setPen(round);
            painter.drawPolyline(c.line);
        };
        paint(&ours, true);
        paint(&qt, false);
        int differing = 0;
        long total = 0;
        for (int y = 0; y < 80; ++y)
            for (int x = 0; x < 220; ++x)
            {
                const int d = std::abs(qRed(ours.pixel(x, y)) - qRed(qt.pixel(x, y))) +
                              std::abs(qGreen(ours.pixel(x, y)) - qGreen(qt.pixel(x, y))) +
                              std::abs(qBlue(ours.pixel(x, y)) - qBlue(qt.pixel(x, y)));
                differing += d > 3 * 64;
                total += d;
                if (!c.clip.isNull() && !c.clip.adjusted(-1, -1, 1, 1).contains(x, y))
                    ASSERT_EQ(ours.pixel(x, y), qRgb(255, 255, 255)) << x << "," << y << " outside the clip";
            }
        EXPECT_LT(differing, 220 * 80 / 200);
        EXPECT_LT(static_cast<double>(total) / (220 * 80 * 3), 6.0);
    }
}

TEST_F(PolylinePaint, TheLayersFitCheckLeavesOutNamesLongerThanTheirSegment)
{
    line->SetNameFont(QFont(QStringLiteral("DejaVu Sans"), 9));
    line->SetName("a name far longer than the segment");
    line->SetData({{0, 0, 0}, {3, 0, 0}});
    const QImage bare = RenderItemAt(Item(), 200, 60, QPointF(80, 30));
    line->SetNameVisible(true);
    EXPECT_NE(RenderItemAt(Item(), 200, 60, QPointF(80, 30)), bare);
    layer->SetSecondShapeCache(true);
    EXPECT_EQ(RenderItemAt(Item(), 200, 60, QPointF(80, 30)), bare);
    line->SetName("ok");
    EXPECT_NE(RenderItemAt(Item(), 200, 60, QPointF(80, 30)), bare);
}
