#include "support/ImageCompare.h"
#include "support/ModuleFixture.h"

#include "shapes/bow/CZoBowMapObject.h"

#include <ZoGraphics/ZoTileModel.h>

#include <QGraphicsItem>
#include <QPainter>

#include <cmath>
#include <limits>

using Messages = std::vector<std::string>;

// The fake map module projects 10 pixels per degree, y downwards.
class Bow : public ModuleFixture
{
protected:
    void SetUp() override
    {
        ModuleFixture::SetUp();
        layer = module.CreateGraphicsLayer("bows");
        pie = module.CreatePieMapObject("pie", layer);
        arc = module.CreateArcMapObject("arc", layer);
        chord = module.CreateChordMapObject("chord", layer);
        ASSERT_TRUE(pie && arc && chord);
        for (IZoBowMapObject* bow : {pie, arc, chord})
        {
            bow->SetExtent(EXTENT{0.0, 0.0, 2.0, 2.0});
            bow->SetSpanAngle(90.0);
        }
        log.Clear();
    }
    static QPainterPath Shape(IZoBowMapObject* bow) { return bow->GetQtItem()->shape(); }
    static const CZoNameLabel& Label(IZoBowMapObject* bow)
    {
        return static_cast<CZoBowMapObject*>(bow)->Core().Label();
    }

    IZoGraphicsMapLayer* layer = nullptr;
    IZoBowMapObject* pie = nullptr;
    IZoBowMapObject* arc = nullptr;
    IZoBowMapObject* chord = nullptr;
};

TEST_F(Bow, AnglesKeepMinus360)
{
    const std::vector<std::pair<double, double>> angles = {
        {-360.0, -360.0}, {360.0, 0.0}, {725.0, 5.0}, {-725.0, -5.0}, {-360.5, -0.5}, {359.5, 359.5}};
    for (const auto& [given, kept] : angles)
    {
        pie->SetStartAngle(given);
        pie->SetSpanAngle(given);
        EXPECT_EQ(pie->GetStartAngle(), kept) << given;
        EXPECT_EQ(pie->GetSpanAngle(), kept) << given;
    }
}

TEST_F(Bow, HugeAnglesNormaliseAndNonFiniteOnesAreIgnored)
{
    pie->SetStartAngle(1.0e300);
    EXPECT_GE(pie->GetStartAngle(), -360.0);
    EXPECT_LT(pie->GetStartAngle(), 360.0);
    pie->SetStartAngle(30.0);
    pie->SetStartAngle(std::numeric_limits<double>::quiet_NaN());
    pie->SetSpanAngle(std::numeric_limits<double>::infinity());
    pie->SetRotation(-std::numeric_limits<double>::infinity());
    EXPECT_EQ(pie->GetStartAngle(), 30.0);
    EXPECT_EQ(pie->GetSpanAngle(), 90.0);
    EXPECT_EQ(pie->GetRotation(), 0.0);
    EXPECT_TRUE(std::isfinite(pie->GetQtItem()->boundingRect().width()));
}

TEST_F(Bow, SetCenterMovesByWholePixelsAndKeepsThePixelSize)
{
    pie->SetExtent(EXTENT{0.0, 0.0, 2.0, 1.0});
    pie->SetCenter(CVector3D(5.04, 3.0, 0.0)); // pixel 50.4 is pixel 50
    const EXTENT moved = pie->GetExtent();
    EXPECT_DOUBLE_EQ(moved.xmin, 4.0);
    EXPECT_DOUBLE_EQ(moved.ymin, 2.5);
    EXPECT_DOUBLE_EQ(moved.xmax, 6.0);
    EXPECT_DOUBLE_EQ(moved.ymax, 3.5);
    EXPECT_DOUBLE_EQ(pie->GetCenter().x, 5.0);
    EXPECT_DOUBLE_EQ(pie->GetCenter().y, 3.0);
    EXPECT_EQ(pie->GetQtItem()->pos(), QPointF(50.0, -30.0));
    // The measured size belongs to the last SetExtent.
    pie->SetCenter(CVector3D(-5.0, 0.0, 0.0));
    EXPECT_EQ(pie->GetWidth(), 2.0);
    EXPECT_EQ(pie->GetHeight(), 1.0);
}

TEST_F(Bow, ThePieRunsFromTheCentreTheChordFromTheArcsEnd)
{
    // 20 pixels across, grown by the pen width of 1 on every side.
    const QPainterPath piePath = Shape(pie);
    EXPECT_EQ(piePath.elementAt(0), QPointF(0.0, 0.0));
    EXPECT_EQ(piePath.controlPointRect(), QRectF(0, -11, 11, 11));
    for (IZoBowMapObject* bow : {arc, chord})
    {
        const QPainterPath path = Shape(bow);
        ASSERT_FALSE(path.isEmpty());
        EXPECT_NEAR(path.elementAt(0).x, 0.0, 1e-9); // the end of a quarter from three o'clock
        EXPECT_NEAR(path.elementAt(0).y, -11.0, 1e-9);
        EXPECT_TRUE(path.contains(QPointF(7.0, -7.0)));
        EXPECT_FALSE(path.contains(QPointF(2.0, -2.0))); // beyond the chord
    }
    EXPECT_TRUE(piePath.contains(QPointF(2.0, -2.0)));
}

TEST_F(Bow, ZeroWidthArcsAndChordsHaveNoShapeAndInvertedExtentsDrawBetweenTheirCorners)
{
    arc->SetExtent(EXTENT{1.0, 0.0, 1.0, 2.0});
    chord->SetExtent(EXTENT{1.0, 0.0, 1.0, 2.0});
    EXPECT_TRUE(Shape(arc).isEmpty());
    EXPECT_TRUE(Shape(chord).isEmpty());

    pie->SetExtent(EXTENT{0.0, 0.0, 2.0, 2.0});
    const QPainterPath upright = Shape(pie);
    EXPECT_FALSE(upright.isEmpty());
    pie->SetExtent(EXTENT{2.0, 2.0, 0.0, 0.0}); // min > max
    EXPECT_EQ(Shape(pie), upright);
    EXPECT_EQ(pie->GetExtent().xmin, 2.0);
    EXPECT_TRUE(log.Messages().empty());

    pie->SetExtent(EXTENT{std::numeric_limits<double>::quiet_NaN(), 0.0, 1.0, 1.0});
    EXPECT_EQ(log.Messages(), Messages{"[CZoBowMapObject::SetExtent] 坐标无效"});
    EXPECT_EQ(pie->GetExtent().xmin, 2.0);
}

TEST_F(Bow, PenWidthWaitsForTheNextRebuildButAlignmentMovesTheLabelAtOnce)
{
    chord->SetPenWidth(5.0f);
    EXPECT_EQ(Shape(chord).controlPointRect().top(), -11.0);
    chord->SetStartAngle(0.0); // any rebuild picks the new width up
    EXPECT_EQ(Shape(chord).controlPointRect().top(), -15.0);

    chord->SetNameVisible(true);
    chord->SetLabelPosition(0);
    EXPECT_LT(Label(chord).originX, -10.0); // centred over the top side
    chord->SetLabelAlignment(0);
    EXPECT_EQ(Label(chord).originX, -10.0); // starting at its left end
}

TEST_F(Bow, OutlinePointsWrapPast360)
{
    pie->SetStartAngle(350.0);
    pie->SetSpanAngle(20.0);
    std::vector<CVector3D> points;
    pie->GetOutlinePoints(points);
    ASSERT_EQ(points.size(), 1u + 101u + 101u);
    EXPECT_EQ(points.front().x, 1.0); // the centre first
    EXPECT_EQ(points.front().y, 1.0);
    // 350 degrees lies below three o'clock, 10 degrees above it.
    EXPECT_EQ(points[1].x, 1.9);
    EXPECT_LT(points[1].y, 1.0);
    EXPECT_GT(points.back().y, 1.0);

    std::vector<CVector3D> arcPoints;
    arc->GetOutlinePoints(arcPoints);
    EXPECT_EQ(arcPoints.size(), 901u); // no centre; 0 to 90 inclusive
}

// --- painting ------------------------------------------------------------------

TEST_F(Bow, ArcIsUnfilledChordFilledPieFromTheCentre)
{
    QImage image = BlankCanvas(150, 50);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    int x = 25;
    for (IZoBowMapObject* bow : {pie, arc, chord})
    {
        bow->SetExtent(EXTENT{0.0, 0.0, 4.0, 3.0});
        bow->SetStartAngle(30.0);
        bow->SetSpanAngle(240.0);
        bow->SetPenWidth(2.0f);
        bow->SetPenColor(QColor(20, 40, 160));
        bow->SetBrushColor(QColor(250, 200, 40));
        painter.save();
        painter.translate(x, 25);
        bow->GetQtItem()->paint(&painter, nullptr, nullptr);
        painter.restore();
        x += 50;
    }
    painter.end();
    EXPECT_EQ(CompareWithReference(image, QStringLiteral("bow_pie_arc_chord"), 16, 6), QString());
}

TEST_F(Bow, CanvasPaintingProjectsTheExtentThroughATemporaryItem)
{
    layer->SetAutoAdd(false);
    IZoBowMapObject* loose = module.CreateChordMapObject("loose", layer);
    ASSERT_EQ(loose->GetQtItem(), nullptr);
    // Web Mercator level 0: 256 pixels for 360 degrees; 45 degrees are 32.
    loose->SetExtent(EXTENT{0.0, -45.0, 90.0, 45.0});
    loose->SetStartAngle(90.0);
    loose->SetSpanAngle(180.0); // the western half
    loose->SetPenWidth(0.0f);
    loose->SetBrushColor(QColor(200, 0, 0));
    QImage canvas = BlankCanvas(256, 256);
    QPainter painter(&canvas);
    loose->PaintOnCanvas(&painter, ITileModel::GetTileModel(1, true), 0, nullptr);
    painter.end();
    EXPECT_EQ(loose->GetQtItem(), nullptr);
    EXPECT_EQ(canvas.pixelColor(140, 128), QColor(200, 0, 0));  // west of the centre at 160
    EXPECT_EQ(canvas.pixelColor(180, 128), QColor(Qt::white));  // east of it
    EXPECT_EQ(canvas.pixelColor(124, 128), QColor(Qt::white));  // beyond the extent
}
