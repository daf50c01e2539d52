#include "support/ImageCompare.h"
#include "support/KindFixture.h"
#include "support/RenderItem.h"

#include "shapes/pointlist/ZoLineGeometry.h"
#include "shapes/pointlist/ZoPointListRules.h"
#include "shapes/polyline/CZoPolylineMapObject.h"

#include <QGraphicsItem>
#include <QPainter>
#include <cmath>

using Messages = std::vector<std::string>;

class Polyline : public KindFixture<PolylineKind>
{
protected:
    QGraphicsItem* Item() const { return object->GetQtItem(); }
    QImage Render(int w = 60, int h = 60, QPointF at = QPointF()) const { return RenderItemAt(Item(), w, h, at); }
};

TEST_F(Polyline, ControlPointsAreTheDrawnPixelsBackInDegreesWithZeroZ)
{
    std::vector<CVector3D> out{{9, 9, 9}};
    object->SetData({{1.04, 2, 5}, {3, -4, 6}});
    object->GetAllControlPoint(out);
    // 1.04 degrees lands on pixel 10, which is 1.0 degree again.
    EXPECT_EQ(out, (std::vector<CVector3D>{{9, 9, 9}, {1.0, 2, 0}, {3, -4, 0}}));
    layer->SetAutoAdd(false);
    auto* bare = module.CreatePolylineMapObject("bare", layer);
    CZoPolylineMapObject unattached;
    log.Clear();
    bare->GetAllControlPoint(out);
    unattached.GetAllControlPoint(out);
    EXPECT_EQ(log.Messages(), (Messages{"[CZoPolylineMapObject::GetAllControlPoint] Qt-Item为空",
                                        "[CZoPolylineMapObject::GetAllControlPoint] MapModule传入为空"}));
    EXPECT_EQ(out.size(), 3u);
}

TEST_F(Polyline, HitAreaIsTheStrokeOfTheLineAndTheClosingEdgeOnlyWhenClosed)
{
    object->SetData({{0, 0, 0}, {10, 0, 0}, {10, -10, 0}}); // pixels (0,0) (100,0) (100,100)
    object->SetPenWidth(4.0f); // hit half width 3 pixels
    // Beside the first segment within and past the half width, beside the
    // second, on the closing edge.
    for (const auto& [at, hit] : {std::pair{QPointF(50, 2.5), true}, {QPointF(50, 3.5), false},
                                  {QPointF(101, 60), true}, {QPointF(50, 50), false}})
        EXPECT_EQ(Item()->contains(at), hit) << at.x() << "," << at.y();
    object->SetClosed(true);
    EXPECT_TRUE(Item()->contains(QPointF(50, 50)) && Item()->shape().contains(QPointF(50, 51)));
    // The scene finds the line under the pointer through the same test, at
    // the pixels of a new level too.
    EXPECT_TRUE(map.Scene()->items(QPointF(50, 1)).size() == 1 && map.Scene()->items(QPointF(30, 60)).isEmpty());
    map.pixelsPerDegree = 20.0;
    map.ChangeLod(11);
    map.ChangeViewScale(1.0);
    EXPECT_TRUE(map.Scene()->items(QPointF(150, 2)).size() == 1 && map.Scene()->items(QPointF(130, 60)).isEmpty());
}

// At a pixel scale of 1/2 the rectangle is the stroke (1.5 pen widths at that
// scale) of the points divided by the scale, grown by 200 pixels times the
// scale for arrows and names. Removing every point keeps the last rectangle.
TEST_F(Polyline, RectangleCoversThePointsDividedByTheScaleWithAMargin)
{
    map.ChangeViewScale(2.0);
    object->SetData({{0, 0, 0}, {10, 0, 0}}); // pixels 0 and 100
    const QRectF bounds = Item()->boundingRect();
    EXPECT_EQ(QString::asprintf("%.0f %.0f %.2f %.2f", bounds.left(), bounds.right(), bounds.top(), bounds.bottom()),
              "-100 300 -100.38 100.38");
    object->Clear();
    EXPECT_EQ(Item()->boundingRect(), bounds);
}

TEST_F(Polyline, NameSitsAboveTheMiddleOfItsSegmentRaisedByThePenStyle)
{
    object->SetName("Route");
    object->SetNameVisible(true);
    object->SetData({{0, 0, 0}, {10, 0, 0}, {20, 0, 0}, {30, 0, 0}});
    const CZoNameLabel& label = Impl()->Core().Label();
    const double width = QFontMetricsF(label.font).horizontalAdvance(label.text);
    for (unsigned int position : {0u, 1u, 2u})
    {
        object->SetLabelPosition(position);
        EXPECT_NEAR(label.originX, 50 + 100 * position - width / 2, 1.0) << position;
    }
    object->SetPenStyle(3);
    object->SetLabelPosition(0);
    EXPECT_FLOAT_EQ(label.originY, -3.0f);
}

class PolylinePaint : public Polyline
{
protected:
    void SetUp() override
    {
        Polyline::SetUp();
        object->SetPenColor(QColor(20, 60, 200));
        object->SetPenWidth(2.0f);
    }
};

TEST_F(PolylinePaint, ArrowsAtEitherEndButNotOnCoincidentEnds)
{
    object->SetData({{0, 0, 0}, {8, -3, 0}, {16, 0, 0}}); // (0,0) (80,30) (160,0)
    object->SetArrowVisible(true);
    EXPECT_EQ(CompareWithReference(Render(180, 60, QPointF(10, 10)), "polyline_arrow_end", 8, 12), QString());
    object->SetArrowAtEnd(false);
    EXPECT_EQ(CompareWithReference(Render(180, 60, QPointF(10, 10)), "polyline_arrow_start", 8, 12), QString());
    object->SetArrowAtEnd(true);
    object->SetPenWidth(1.0f);
    object->SetData({{1, -1, 0}, {4, -4, 0}, {4, -4, 0}});
    const QImage with = Render();
    object->SetArrowVisible(false);
    EXPECT_EQ(Render(), with);
}

TEST_F(PolylinePaint, NameAlongARisingSegmentReadsLeftToRight)
{
    object->SetName("Beijing");
    object->SetNameFont(QFont(QStringLiteral("DejaVu Sans"), 9));
    object->SetNameVisible(true);
    object->SetData({{16, 0, 0}, {0, 6, 0}}); // right to left, rising
    EXPECT_EQ(CompareWithReference(Render(180, 80, QPointF(170, 70)), "polyline_label", 8, 40), QString());
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
    const struct
    {
        const char* what;
        const QPolygonF& line;
        double width;
        int alpha;
        QTransform transform;
        QRect clip;
    } cases[] = {
        {"dense, translucent", zigzag, 1.5, 120, {}, {}},
        {"dense, 2 px", zigzag, 2.0, 255, {}, {}},
        {"dense, scaled painter", zigzag, 1.0, 255, QTransform::fromScale(0.9, 1.6), {}},
        {"dense, clipped", zigzag, 1.5, 255, {}, QRect(40, 0, 90, 80)},
        {"sparse, 1.5 px", wave, 1.5, 255, {}, {}},
        {"sparse, 2.5 px", wave, 2.5, 255, {}, {}},
    };
    for (const auto& c : cases)
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

// A wide line is drawn through a widened coverage mask while its box holds
// at most 40 pixels a segment (where the mask is the cheaper), by two shifted
// hairlines beyond. The mask's core takes the pen's exact colour; the two
// hairlines blend theirs.
TEST_F(PolylinePaint, TheMaskServesLinesUpTo40PixelsASegmentInThePensExactColour)
{
    auto exactPixels = [](double length) {
        QPolygonF line;
        for (int i = 0; i < 60; ++i)
            line << QPointF(10 + length * i / 59, 10.5);
        QImage image = BlankCanvas(500, 20);
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        ZoPointList::DrawPolyline(&painter, line, QPen(QColor(200, 30, 30), 2.0));
        painter.end();
        int exact = 0;
        for (int x = 0; x < image.width(); ++x)
            exact += image.pixel(x, 10) == qRgb(200, 30, 30);
        return exact;
    };
    EXPECT_GT(exactPixels(468), 400); // 472 by 5 pixels over 59 segments
    EXPECT_EQ(exactPixels(469), 0);
}

TEST_F(PolylinePaint, TheLayersFitCheckLeavesOutNamesLongerThanTheirSegment)
{
    object->SetNameFont(QFont(QStringLiteral("DejaVu Sans"), 9));
    object->SetName("a name far longer than the segment");
    object->SetData({{0, 0, 0}, {3, 0, 0}});
    const QImage bare = Render(200, 60, QPointF(80, 30));
    object->SetNameVisible(true);
    EXPECT_NE(Render(200, 60, QPointF(80, 30)), bare);
    layer->SetSecondShapeCache(true);
    EXPECT_EQ(Render(200, 60, QPointF(80, 30)), bare);
    object->SetName("ok");
    EXPECT_NE(Render(200, 60, QPointF(80, 30)), bare);
}

TEST(PointListRules, CoordinatesAreTheSameWithinATrillionth)
{
    using ZoPointList::SameCoordinate;
    EXPECT_EQ(std::tuple(SameCoordinate(0.0, 1e-12), SameCoordinate(0.0, 1.5e-12), SameCoordinate(1e12, 1e12 + 1.0),
                         SameCoordinate(1e12, 1e12 + 2.0)),
              std::tuple(true, false, true, false));
    EXPECT_TRUE(ZoPointList::SamePoint(QPointF(1.0, 0.0), QPointF(1.0 + 1e-13, -1e-13)));
}
