// The shapes laid out by a centre or an extent: ellipse, rectangle and tile,
// pie, arc and chord (the circle has a file of its own). The fake map module
// projects 10 pixels per degree, y downwards, and reports the Web Mercator
// tile model.
#include "content/OnCanvas.h"
#include "support/KindFixture.h"
#include "support/RenderItem.h"

#include <QGraphicsItem>
#include <QGraphicsSceneHoverEvent>
#include <QGraphicsSceneMouseEvent>
#include <QPainter>
#include <cmath>
#include <limits>
#include <map>

using Messages = std::vector<std::string>;

template <class Kind>
using ExtentShape = KindFixture<Kind>;
using ExtentKinds = ::testing::Types<EllipseKind, RectangleKind, PieKind>;
TYPED_TEST_SUITE(ExtentShape, ExtentKinds);

TYPED_TEST(ExtentShape, RotationsFoldIntoOneTurnKeepingTheirSign)
{
    auto* shape = this->object;
    TypeParam::PlaceAt(shape, 1.0, 1.0);
    for (const auto& [given, kept] : {std::pair{-360.0, 0.0}, {725.0, 5.0}, {-359.5, -359.5}, {-720.25, -0.25}})
    {
        shape->SetRotation(given);
        EXPECT_EQ(std::pair(shape->GetRotation(), shape->GetQtItem()->rotation()), std::pair(kept, kept)) << given;
    }
    // An item made later takes the rotation up.
    this->layer->SetAutoAdd(false);
    auto* late = TypeParam::Create(this->module, "late", this->layer);
    late->SetRotation(30.0);
    late->AddToScene();
    EXPECT_EQ(late->GetQtItem()->rotation(), 30.0);
}

TYPED_TEST(ExtentShape, WithoutMapModuleTheGeometrySettersComplainAndMeasureNothing)
{
    const std::map<KindRow, Messages> texts{
        {KindRow::Ellipse,
         {"[CZoEllipseMapObject::SetExtent] MapModule传入为空", "[CZoEllipseMapObject::SetCenter] MapModule传入为空"}},
        {KindRow::Rectangle,
         {"[CZoRectangleMapObject::SetExtent] MapModule模块未初始化设置",
          "[CZoRectangleMapObject::SetCenter] MapModule模块未初始化设置"}},
        {KindRow::Bow, {"[CZoBowMapObject::SetCenter] MapModule传入为空"}},
    };
    const std::unique_ptr<IZoGraphicsMapObject> loose = TypeParam::Construct();
    auto* shape = dynamic_cast<typename TypeParam::Interface*>(loose.get());
    this->log.Clear();
    shape->SetExtent(EXTENT{0.0, 0.0, 1.0, 1.0});
    shape->SetCenter(CVector3D(1.0, 1.0, 0.0));
    EXPECT_EQ(std::pair(shape->GetExtent(), shape->GetWidth()), std::pair(EXTENT(), 0.0));
    EXPECT_EQ(this->log.Messages(), texts.at(TypeParam::kRow));
}

template <class Kind>
using AnchoredShape = KindFixture<Kind>;
using AnchoredShapeKinds =
    ::testing::Types<CircleKind, EllipseKind, RectangleKind, TileKind, PieKind, ArcKind, ChordKind>;
TYPED_TEST_SUITE(AnchoredShape, AnchoredShapeKinds);

TYPED_TEST(AnchoredShape, HoverAndPressAreRecordedAndPressesLeftToTheView)
{
    TypeParam::PlaceAt(this->object, 0.0, 0.0);
    this->object->SetInteractive(true);
    QGraphicsItem* item = this->object->GetQtItem();
    for (QEvent::Type type : {QEvent::GraphicsSceneHoverEnter, QEvent::GraphicsSceneHoverLeave})
    {
        QGraphicsSceneHoverEvent event(type);
        this->map.Scene()->sendEvent(item, &event);
    }
    for (QEvent::Type type : {QEvent::GraphicsSceneMousePress, QEvent::GraphicsSceneMouseRelease,
                              QEvent::GraphicsSceneMouseDoubleClick})
    {
        QGraphicsSceneMouseEvent event(type);
        event.setButton(Qt::LeftButton);
        event.setAccepted(true);
        this->map.Scene()->sendEvent(item, &event);
        EXPECT_FALSE(event.isAccepted()) << type;
    }
    const QVariantList id{this->object->GetObjectID()};
    for (const char* name : {"Scene_HoverEnter", "Scene_HoverLeave", "Scene_MousePress", "Scene_MouseRelease",
                             "Scene_MouseDoubleClicked"})
        EXPECT_EQ(this->map.GetEventObject()->property(name).toList(), id) << name;
}

using Ellipse = KindFixture<EllipseKind>;

TEST_F(Ellipse, InscribedInItsExtentWithoutMarginOrPenAndPaintedWithItsLabel)
{
    object->SetExtent(EXTENT{0.0, 0.0, 3.0, 2.0});
    object->SetPenWidth(4.0f);
    EXPECT_EQ(object->GetQtItem()->shape().boundingRect(), QRectF(-15, -10, 30, 20));
    map.ChangeViewScale(2.0);
    EXPECT_EQ(object->GetQtItem()->boundingRect(), QRectF(-15, -10, 30, 20));
    map.ChangeViewScale(1.0);
    object->SetName("Ellipse");
    object->SetNameFont(QFont(QStringLiteral("DejaVu Sans"), 9));
    object->SetNameVisible(true);
    object->SetLabelPosition(3);
    object->SetNameOffset(2.0f);
    object->SetPenWidth(2.0f);
    object->SetBrushColor(QColor(120, 200, 240, 180));
    EXPECT_EQ(CompareWithReference(RenderItemAt(object->GetQtItem(), 100, 40, QPointF(20, 20)),
                                   QStringLiteral("ellipse_label_right"), 16, 12),
              QString());
}

class Rectangle : public KindFixture<RectangleKind>
{
protected:
    void SetUp() override
    {
        KindFixture::SetUp();
        tile = module.CreateTileMapObject("tile", layer);
        object->SetExtent(EXTENT{1.0, 1.0, 4.0, 3.0});
        log.Clear();
    }
    static QRectF ShapeRect(IZoRectangleMapObject* r) { return r->GetQtItem()->shape().boundingRect(); }
    static QPointF Level21(double x, double y)
    {
        QPointF p;
        ITileModel::GetTileModel(E_TILE_MODEL_WEB_MERCATOR, true)->ConvertGeoToPixel(&p.rx(), &p.ry(), 21, x, y);
        return p;
    }
    QImage Render() const
    {
        QImage image = BlankCanvas(40, 30);
        QPainter painter(&image);
        painter.translate(20, 15);
        object->GetQtItem()->paint(&painter, nullptr, nullptr);
        painter.end();
        return image;
    }
    QPixmap Texture() const
    {
        QImage picture(8, 8, QImage::Format_ARGB32);
        picture.fill(QColor(30, 60, 200));
        QPainter painter(&picture);
        painter.fillRect(0, 0, 4, 4, QColor(250, 220, 30));
        painter.fillRect(4, 4, 4, 4, QColor(250, 220, 30));
        painter.end();
        return QPixmap::fromImage(picture);
    }
    IZoRectangleMapObject* tile = nullptr;
};

TEST_F(Rectangle, OutlineRunsBetweenTheCornerPixelsAroundTheCentre)
{
    EXPECT_EQ(std::pair(object->GetQtItem()->pos(), ShapeRect(object)), std::pair(QPointF(25.0, -20.0), QRectF(-15, -10, 30, 20)));
    map.ChangeViewScale(2.0); // the margin for the label is 50 pixels
    EXPECT_EQ(object->GetQtItem()->boundingRect(), QRectF(-40, -35, 80, 70));
    EXPECT_EQ(QSizeF(object->GetWidth(), object->GetHeight()), QSizeF(3.0, 2.0));
}

TEST_F(Rectangle, ATileSitsInFractionalLevel21PixelsOfTheTileModel)
{
    tile->SetExtent(EXTENT{116.3, 39.9, 116.30001, 39.90001});
    const QPointF centre = Level21(116.300005, 39.900005);
    EXPECT_LT(QLineF(tile->GetQtItem()->pos(), centre).length(), 1e-6);
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
    EXPECT_EQ(std::pair(tile->GetQtItem()->pos(), tile->GetQtItem()->shape().isEmpty()), std::pair(QPointF(0.0, 0.0), true));
    EXPECT_EQ(log.Messages(), Messages{"[CZoRectangleMapObject::ConvertGeoToPixel] 获取TileModel为空, TileModel: 0"});
    // A rectangle does not need the tile model.
    object->SetExtent(EXTENT{1.0, 1.0, 2.0, 2.0});
    EXPECT_EQ(object->GetQtItem()->pos(), QPointF(15.0, -15.0));
}

// The picture mode stretches the texture without an outline whatever the
// pen; the texture style without a picture draws pen and brush.
TEST_F(Rectangle, PaintsTheTextureStretchedOrPenAndBrush)
{
    object->SetPenWidth(3.0f);
    object->SetPenColor(QColor(200, 30, 30));
    object->SetBrushColor(QColor(40, 160, 90, 200));
    object->SetBrushTexture(Qt::TexturePattern, Texture());
    object->SetPenStyle(Qt::DashLine);
    EXPECT_EQ(CompareWithReference(Render(), QStringLiteral("rectangle_picture")), QString());
    object->SetPenStyle(Qt::SolidLine);
    object->SetBrushTexture(Qt::TexturePattern, QPixmap());
    EXPECT_EQ(CompareWithReference(Render(), QStringLiteral("rectangle_plain")), QString());
    // A texture file is kept by its path even when it cannot be read, quietly.
    object->SetBrushTextureFile(Qt::Dense4Pattern, "/nonexistent/texture.png");
    EXPECT_EQ(std::tuple(object->GetBrushTextureFile(), object->GetBrushTexture().isNull(), object->GetBrushStyle()),
              std::tuple(std::string("/nonexistent/texture.png"), true, unsigned(Qt::Dense4Pattern)));
    EXPECT_TRUE(log.Messages().empty());
}

TEST_F(Rectangle, CanvasPaintingProjectsTheCorners)
{
    layer->SetAutoAdd(false);
    IZoRectangleMapObject* loose = module.CreateRectangleMapObject("loose", layer);
    loose->SetBrushTexture(Qt::TexturePattern, Texture());
    // Web Mercator level 0: 256 pixels for 360 degrees.
    loose->SetExtent(EXTENT{0.0, -30.0, 45.0, 30.0});
    const QImage canvas = OnCanvas(loose, 0, QRect(0, 0, 256, 256));
    EXPECT_EQ(canvas.pixelColor(130, 126), QColor(250, 220, 30)); // inside, near the top-left
    EXPECT_EQ(canvas.pixelColor(126, 128), QColor(Qt::white));    // west of the extent
    EXPECT_EQ(canvas.pixelColor(162, 128), QColor(Qt::white));    // east of it
}

class Bow : public KindFixture<PieKind>
{
protected:
    void SetUp() override
    {
        KindFixture::SetUp();
        pie = object;
        arc = module.CreateArcMapObject("arc", layer);
        chord = module.CreateChordMapObject("chord", layer);
        for (IZoBowMapObject* bow : {pie, arc, chord})
        {
            bow->SetExtent(EXTENT{0.0, 0.0, 2.0, 2.0});
            bow->SetSpanAngle(90.0);
        }
        log.Clear();
    }
    static QPainterPath Shape(IZoBowMapObject* bow) { return bow->GetQtItem()->shape(); }
    IZoBowMapObject* pie = nullptr;
    IZoBowMapObject* arc = nullptr;
    IZoBowMapObject* chord = nullptr;
};

TEST_F(Bow, AnglesFoldKeepingMinus360AndNonFiniteOnesAreIgnored)
{
    for (const auto& [given, kept] : {std::pair{-360.0, -360.0}, {360.0, 0.0}, {-360.5, -0.5}, {359.5, 359.5}})
    {
        pie->SetStartAngle(given);
        pie->SetSpanAngle(given);
        EXPECT_EQ(std::pair(pie->GetStartAngle(), pie->GetSpanAngle()), std::pair(kept, kept)) << given;
    }
    pie->SetStartAngle(30.0);
    pie->SetSpanAngle(90.0);
    pie->SetStartAngle(std::numeric_limits<double>::quiet_NaN());
    pie->SetSpanAngle(std::numeric_limits<double>::infinity());
    pie->SetRotation(-std::numeric_limits<double>::infinity());
    EXPECT_EQ(std::tuple(pie->GetStartAngle(), pie->GetSpanAngle(), pie->GetRotation()), std::tuple(30.0, 90.0, 0.0));
}

TEST_F(Bow, SetCenterMovesByWholePixelsAndKeepsThePixelSize)
{
    pie->SetExtent(EXTENT{0.0, 0.0, 2.0, 1.0});
    pie->SetCenter(CVector3D(5.04, 3.0, 0.0)); // pixel 50.4 is pixel 50
    EXPECT_EQ(std::tuple(pie->GetExtent(), pie->GetCenter(), pie->GetQtItem()->pos()),
              std::tuple(EXTENT{4.0, 2.5, 6.0, 3.5}, CVector3D(5.0, 3.0, 0.0), QPointF(50.0, -30.0)));
    // The measured size belongs to the last SetExtent.
    pie->SetCenter(CVector3D(-5.0, 0.0, 0.0));
    EXPECT_EQ(QSizeF(pie->GetWidth(), pie->GetHeight()), QSizeF(2.0, 1.0));
}

TEST_F(Bow, ThePieRunsFromTheCentreTheChordFromTheArcsEnd)
{
    // 20 pixels across, grown by the pen width of 1 on every side.
    const QPainterPath piePath = Shape(pie);
    EXPECT_EQ(std::pair(QPointF(piePath.elementAt(0)), piePath.controlPointRect()), std::pair(QPointF(0.0, 0.0), QRectF(0, -11, 11, 11)));
    EXPECT_TRUE(piePath.contains(QPointF(2.0, -2.0)));
    for (IZoBowMapObject* bow : {arc, chord})
    {
        const QPainterPath path = Shape(bow);
        ASSERT_FALSE(path.isEmpty()); // starting at the end of a quarter from three o'clock
        EXPECT_LT(QLineF(path.elementAt(0), QPointF(0.0, -11.0)).length(), 1e-9);
        EXPECT_TRUE(path.contains(QPointF(7.0, -7.0)));
        EXPECT_FALSE(path.contains(QPointF(2.0, -2.0))); // beyond the chord
    }
}

TEST_F(Bow, ZeroWidthArcsAndChordsHaveNoShapeAndInvertedExtentsDrawBetweenTheirCorners)
{
    arc->SetExtent(EXTENT{1.0, 0.0, 1.0, 2.0});
    chord->SetExtent(EXTENT{1.0, 0.0, 1.0, 2.0});
    EXPECT_TRUE(Shape(arc).isEmpty() && Shape(chord).isEmpty());
    const QPainterPath upright = Shape(pie);
    EXPECT_FALSE(upright.isEmpty());
    pie->SetExtent(EXTENT{2.0, 2.0, 0.0, 0.0}); // min > max
    EXPECT_EQ(std::tuple(Shape(pie), pie->GetExtent().xmin, log.Messages()), std::tuple(upright, 2.0, Messages{}));
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
    const CZoNameLabel& label = static_cast<CZoBowMapObject*>(chord)->Core().Label();
    chord->SetNameVisible(true);
    chord->SetLabelPosition(0);
    EXPECT_LT(label.originX, -10.0); // centred over the top side
    chord->SetLabelAlignment(0);
    EXPECT_EQ(label.originX, -10.0); // starting at its left end
}

TEST_F(Bow, OutlinePointsWrapPast360)
{
    pie->SetStartAngle(350.0);
    pie->SetSpanAngle(20.0);
    std::vector<CVector3D> points;
    pie->GetOutlinePoints(points);
    ASSERT_EQ(points.size(), 1u + 101u + 101u);
    EXPECT_EQ(points.front(), CVector3D(1.0, 1.0, 0.0)); // the centre first
    // 350 degrees lies below three o'clock, 10 degrees above it.
    EXPECT_EQ(points[1].x, 1.9);
    EXPECT_LT(points[1].y, 1.0);
    EXPECT_GT(points.back().y, 1.0);
    std::vector<CVector3D> arcPoints;
    arc->GetOutlinePoints(arcPoints);
    EXPECT_EQ(arcPoints.size(), 901u); // no centre; 0 to 90 inclusive
}

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
