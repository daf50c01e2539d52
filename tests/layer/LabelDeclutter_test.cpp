#include "support/ImageCompare.h"
#include "support/ModuleFixture.h"
#include <QCoreApplication>
#include <QGraphicsItem>
#include <QGraphicsView>
#include <QPainter>
#include <array>

// Dots whose names, on their right, overlap: with decluttering on, the label
// of higher priority keeps its place and the others move round their dot
// before any is dropped; every dot is still drawn.
class LabelDeclutter : public ModuleFixture
{
protected:
    void SetUp() override
    {
        ModuleFixture::SetUp();
        layer = module.CreateGraphicsLayer("towns");
        declutter = dynamic_cast<IZoLabelDeclutter2*>(layer);
        ASSERT_NE(declutter, nullptr);
    }
    IZoDotMapObject* MakeDot(const std::string& name, double x, double y, const QColor& colour)
    {
        IZoDotMapObject* dot = module.CreateDotMapObject(name, layer);
        dot->SetPosition(CVector3D(x, y, 0.0));
        dot->SetNameFont(QFont(QStringLiteral("DejaVu Sans"), 10));
        dot->SetNameColor(colour);
        dot->SetNameOutlineWidth(0.0);
        dot->SetBrushColor(QColor(0, 160, 0));
        dot->SetPenWidth(0.0f);
        dot->SetLabelPosition(3);
        dot->SetNameVisible(true);
        dot->SetInteractive(true);
        return dot;
    }
    QImage Frame(const QRectF& scene = QRectF(-20, -50, 200, 80))
    {
        QImage image = BlankCanvas(static_cast<int>(scene.width()), static_cast<int>(scene.height()));
        QPainter painter(&image);
        map.Scene()->render(&painter, QRectF(image.rect()), scene);
        painter.end();
        return image.convertToFormat(QImage::Format_ARGB32);
    }
    // Pixels of a colour in each quadrant about (cx, cy): above right, below
    // right, above left, below left.
    static std::array<int, 4> Quadrants(const QImage& image, QRgb colour, int cx, int cy)
    {
        std::array<int, 4> n{};
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                if (image.pixel(x, y) == colour)
                    ++n[(x < cx ? 2 : 0) + (y < cy ? 0 : 1)];
        return n;
    }
    // Pixels of a colour in the frame of a pair, and right of both dots.
    static int All(const QImage& image, QRgb colour) { return Sum(Quadrants(image, colour, 40, 0)); }
    static int Sum(const std::array<int, 4>& n) { return n[0] + n[1] + n[2] + n[3]; }
    static int Right(const QImage& image, QRgb colour) { return Quadrants(image, colour, 40, 0)[1]; }
    IZoGraphicsMapLayer* layer = nullptr;
    IZoLabelDeclutter2* declutter = nullptr;
};

TEST_F(LabelDeclutter, TheHigherZWinsAndBothObjectsStillDrawAndHit)
{
    IZoDotMapObject* low = MakeDot("Lowtown", 1.0, 1.0, QColor(255, 0, 0));
    IZoDotMapObject* high = MakeDot("Hightown", 1.3, 1.0, QColor(0, 0, 255)); // three pixels on
    high->SetZValue(500);
    declutter->SetLabelDeclutter(true);
    QImage frame = Frame();
    EXPECT_GT(Right(frame, qRgb(0, 0, 255)), 20);
    EXPECT_EQ(Right(frame, qRgb(255, 0, 0)), 0);
    EXPECT_GT(All(frame, qRgb(255, 0, 0)), 20);  // moved to the left
    EXPECT_GT(All(frame, qRgb(0, 160, 0)), 100); // both dots
    for (IZoDotMapObject* dot : {low, high})
        EXPECT_TRUE(map.Scene()->items(dot->GetQtItem()->scenePos()).contains(dot->GetQtItem()));
    // Raising the other one turns the decision round.
    low->SetZValue(600);
    frame = Frame();
    EXPECT_GT(Right(frame, qRgb(255, 0, 0)), 20);
    EXPECT_EQ(Right(frame, qRgb(0, 0, 255)), 0);
    // A hidden object, or one out of the scene, takes no room.
    low->SetVisible(false);
    EXPECT_GT(Right(Frame(), qRgb(0, 0, 255)), 20);
    low->SetVisible(true);
    low->RemoveFromScene();
    EXPECT_GT(Right(Frame(), qRgb(0, 0, 255)), 20);
    low->AddToScene();
    // Painting on a canvas keeps every label.
    QImage canvas = BlankCanvas(256, 256);
    QPainter painter(&canvas);
    high->PaintOnCanvas(&painter, ITileModel::GetTileModel(1, true), 0, nullptr);
    painter.end();
    EXPECT_GT(All(canvas.convertToFormat(QImage::Format_ARGB32), qRgb(0, 0, 255)), 20);
}

// Nine dots of radius 20 on one spot: the first keeps its own place, the
// second goes above right, the third below right; the counts follow the
// last frame.
TEST_F(LabelDeclutter, LabelsTheOwnPlaceWouldDropMoveToTheDiagonalsFirst)
{
    std::vector<IZoDotMapObject*> dots;
    const QColor colours[] = {QColor(255, 0, 0), QColor(0, 0, 255), QColor(255, 0, 255)};
    for (int i = 0; i < 9; ++i)
    {
        dots.push_back(MakeDot("Town" + std::to_string(i), 10.0, -10.0, i < 3 ? colours[i] : QColor(90, 90, 90)));
        dots.back()->SetRadius(20.0);
    }
    EXPECT_EQ(declutter->GetPlacedLabelCount(), 0);
    declutter->SetLabelDeclutter(true);
    const QImage frame = Frame(QRectF(0, 0, 200, 200)); // the dots at its centre
    const std::array<int, 4> own = Quadrants(frame, qRgb(255, 0, 0), 100, 100);
    const std::array<int, 4> second = Quadrants(frame, qRgb(0, 0, 255), 100, 100);
    const std::array<int, 4> third = Quadrants(frame, qRgb(255, 0, 255), 100, 100);
    EXPECT_TRUE(own[0] > 10 && own[1] > 10 && own[2] + own[3] == 0);
    EXPECT_TRUE(second[0] > 20 && Sum(second) == second[0]);
    EXPECT_TRUE(third[1] > 20 && Sum(third) == third[1]);
    // Own place, four diagonals and the left; above, below and right collide.
    EXPECT_EQ(std::make_pair(declutter->GetPlacedLabelCount(), declutter->GetDroppedLabelCount()), std::make_pair(6, 3));
    dots[8]->SetPosition(CVector3D(2.0, -2.0, 0.0)); // alone in a corner
    dots[7]->SetNameVisible(false);                   // counted nowhere
    Frame(QRectF(0, 0, 200, 200));
    EXPECT_EQ(std::make_pair(declutter->GetPlacedLabelCount(), declutter->GetDroppedLabelCount()), std::make_pair(7, 1));
    declutter->SetLabelDeclutter(false);
    EXPECT_EQ(std::make_pair(declutter->GetPlacedLabelCount(), declutter->GetDroppedLabelCount()), std::make_pair(0, 0));
}

// A large marker made after a named dot covers where its name stands. Map
// readers expect the names of a decluttered layer above all of its objects; a
// layer that does not declutter keeps each name with its object.
TEST_F(LabelDeclutter, ADeclutteredLayerDrawsNamesAboveLaterMarkersAndHitTestsFindOnlyObjects)
{
    IZoDotMapObject* named = MakeDot("Lowtown", 1.0, 1.0, QColor(0, 0, 255));
    IZoDotMapObject* marker = MakeDot("marker", 4.0, 1.0, QColor(0, 0, 255));
    marker->SetRadius(60.0);
    marker->SetNameVisible(false);
    ASSERT_EQ(All(Frame(), qRgb(0, 0, 255)), 0);
    declutter->SetLabelDeclutter(true);
    EXPECT_GT(All(Frame(), qRgb(0, 0, 255)), 20);
    // Over the name, the scene answers with the marker alone.
    EXPECT_EQ(map.Scene()->items(QPointF(30.0, -12.0)), QList<QGraphicsItem*>{marker->GetQtItem()});
    // A later colour reaches the name drawn by the layer; switching off
    // gives the name back to its dot.
    named->SetNameColor(QColor(255, 0, 0));
    EXPECT_EQ(All(Frame(), qRgb(0, 0, 255)), 0);
    named->SetNameColor(QColor(0, 0, 255));
    declutter->SetLabelDeclutter(false);
    EXPECT_EQ(All(Frame(), qRgb(0, 0, 255)), 0);
}

// A decision covers the frame that asked for it and a quarter of that frame
// again on every side; names farther off wait for a frame that shows them,
// and the counts are of the names anchored in that frame.
TEST_F(LabelDeclutter, ADecisionCoversItsFrameWithAMarginAndAFrameBeyondDecidesAgain)
{
    MakeDot("Lowtown", 1.0, 1.0, QColor(255, 0, 0));
    MakeDot("Hightown", 1.3, 1.0, QColor(255, 0, 0));
    MakeDot("Fartown", 60.0, 1.0, QColor(0, 0, 255));
    declutter->SetLabelDeclutter(true);
    Frame(); // x from -20 to 180: the margin reaches 230
    const auto counts = [this] {
        return std::make_pair(declutter->GetPlacedLabelCount(), declutter->GetDroppedLabelCount());
    };
    EXPECT_EQ(counts(), std::make_pair(2, 0));
    // Both dots now lie left of the frame, inside the margin: the decision
    // stands, names and counts as they were.
    EXPECT_GT(All(Frame(QRectF(15, -50, 200, 80)), qRgb(255, 0, 0)), 20);
    EXPECT_EQ(counts(), std::make_pair(2, 0));
    EXPECT_GT(All(Frame(QRectF(500, -50, 200, 80)), qRgb(0, 0, 255)), 20);
    EXPECT_EQ(counts(), std::make_pair(1, 0));
}

namespace
{
class CountingView : public QGraphicsView
{
public:
    using QGraphicsView::QGraphicsView;
    int paints = 0;

protected:
    void paintEvent(QPaintEvent* event) override
    {
        ++paints;
        QGraphicsView::paintEvent(event);
    }
};
} // namespace

// A main view and an overview on far parts of one scene: each frame's labels
// are decided for both views, so that neither view's decision sends the other
// to repaint and decide again, round after round.
TEST_F(LabelDeclutter, TwoViewsOfTheSceneSettle)
{
    MakeDot("Lowtown", 1.0, 1.0, QColor(255, 0, 0));
    MakeDot("Fartown", 60.0, 1.0, QColor(0, 0, 255));
    declutter->SetLabelDeclutter(true);
    std::array<CountingView, 2> views{CountingView(map.Scene()), CountingView(map.Scene())};
    for (CountingView& view : views)
    {
        view.resize(200, 100);
        view.setSceneRect(QRectF(-1000, -1000, 2000, 2000));
        view.show();
    }
    views[0].centerOn(10, -10);
    views[1].centerOn(600, -10);
    const auto paints = [&views] { return views[0].paints + views[1].paints; };
    for (int i = 0; i < 10; ++i)
        QCoreApplication::processEvents();
    const int settled = paints();
    EXPECT_GT(settled, 1);
    for (int i = 0; i < 10; ++i)
        QCoreApplication::processEvents();
    EXPECT_EQ(paints(), settled);
    EXPECT_EQ(std::make_pair(declutter->GetPlacedLabelCount(), declutter->GetDroppedLabelCount()), std::make_pair(2, 0));
}
