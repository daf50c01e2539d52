#include "AnchoredShapesDemo.h"

#include "DemoSupport.h"

#include <ZoGraphics/ZoGraphics.h>

#include <QHBoxLayout>
#include <QLabel>
#include <QLinearGradient>
#include <QPainter>
#include <QPixmap>
#include <QPushButton>

namespace
{
constexpr double kBeijingLon = 116.40;
constexpr double kBeijingLat = 39.90;

// Capitals show from this level on, their names from the next; further out
// they would only clutter the world view.
constexpr int kCapitalsMinLevel = 2;
constexpr int kCapitalNamesMinLevel = 3;

// The longitude east of (lon, lat) that lies metres away on the map module's
// ellipsoid; the circle keeps its rim due east.
double LongitudeAtDistance(IZoMapModule& map, double lon, double lat, double metres)
{
    double low = 0.0;
    double high = 90.0;
    for (int i = 0; i < 60; ++i)
    {
        const double mid = (low + high) / 2;
        (map.CalculateDistance(lon, lat, lon + mid, lat) < metres ? low : high) = mid;
    }
    return lon + (low + high) / 2;
}

// A shape over extent with a 2-pixel outline and its name at labelPosition.
template <class Shape>
void Outline(Shape* shape, const EXTENT& extent, const QColor& pen, const QColor& brush, unsigned int labelPosition)
{
    shape->SetExtent(extent);
    StyleSurface(shape, pen, brush, 2.0f);
    ShowName(shape, labelPosition);
}

QPixmap DemoPicture()
{
    QPixmap picture(128, 96);
    QPainter painter(&picture);
    QLinearGradient gradient(0, 0, 128, 96);
    gradient.setColorAt(0.0, QColor(255, 196, 60));
    gradient.setColorAt(1.0, QColor(200, 60, 40));
    painter.fillRect(picture.rect(), gradient);
    painter.setPen(QPen(Qt::white, 3));
    painter.drawEllipse(QPointF(64, 48), 30, 30);
    painter.setFont(QFont(QStringLiteral("DejaVu Sans"), 12, QFont::Bold));
    painter.drawText(picture.rect(), Qt::AlignCenter, QStringLiteral("Zo"));
    return picture;
}

} // namespace

void AddRangeRings(CZoGraphicsModule& graphics, IZoMapModule& map, IZoGraphicsMapLayer* layer)
{
    for (int km : {2000, 1000, 500})
    {
        IZoCircleMapObject* ring = graphics.CreateCircleMapObject(ToGB18030(QStringLiteral("%1 km").arg(km)), layer);
        if (!ring)
            continue;
        ring->SetCenter(CVector3D(kBeijingLon, kBeijingLat, 0.0));
        const double rimLon = LongitudeAtDistance(map, kBeijingLon, kBeijingLat, km * 1000.0);
        ring->SetRadiusPoint(CVector3D(rimLon, kBeijingLat, 0.0));
        StyleSurface(ring, QColor(190, 30, 30), QColor(220, 40, 40, 18), 1.5f);
        ring->SetPenStyle(Qt::DashLine);
        ShowName(ring, 0);
    }
}

namespace
{
// Three slices of one pie chart: 45 %, 30 % and 25 %.
void AddPieChart(CZoGraphicsModule& graphics, IZoGraphicsMapLayer* layer)
{
    const struct
    {
        double start;
        double span;
        QColor colour;
    } slices[] = {{90.0, 162.0, QColor(70, 130, 200, 210)},
                  {252.0, 108.0, QColor(240, 170, 50, 210)},
                  {0.0, 90.0, QColor(90, 180, 100, 210)}};
    for (const auto& slice : slices)
    {
        IZoBowMapObject* pie = graphics.CreatePieMapObject("Kazakhstan", layer);
        if (!pie)
            continue;
        pie->SetExtent(EXTENT{60.0, 42.0, 76.0, 52.0});
        pie->SetStartAngle(slice.start);
        pie->SetSpanAngle(slice.span);
        StyleSurface(pie, Qt::white, slice.colour, 1.5f);
    }
}

} // namespace

void AddBows(CZoGraphicsModule& graphics, IZoGraphicsMapLayer* layer)
{
    AddPieChart(graphics, layer);
    if (IZoBowMapObject* arc = graphics.CreateArcMapObject("Arc", layer))
    {
        arc->SetExtent(EXTENT{70.0, 6.0, 92.0, 28.0});
        arc->SetStartAngle(20.0);
        arc->SetSpanAngle(140.0);
        StyleSurface(arc, QColor(120, 40, 160), QColor(0, 0, 0, 0), 3.0f);
        ShowName(arc, 4);
    }
    if (IZoBowMapObject* chord = graphics.CreateChordMapObject("Chord", layer))
    {
        Outline(chord, EXTENT{38.0, 12.0, 58.0, 32.0}, QColor(20, 110, 110), QColor(40, 180, 170, 120), 4);
        chord->SetStartAngle(30.0);
        chord->SetSpanAngle(200.0);
    }
}

void AddEllipse(CZoGraphicsModule& graphics, IZoGraphicsMapLayer* layer)
{
    if (IZoEllipseMapObject* ellipse = graphics.CreateEllipseMapObject("Caspian", layer))
    {
        Outline(ellipse, EXTENT{46.0, 36.0, 55.0, 47.5}, QColor(30, 80, 170), QColor(80, 140, 230, 90), 2);
    }
}

void AddRectangles(CZoGraphicsModule& graphics, IZoGraphicsMapLayer* layer)
{
    if (IZoRectangleMapObject* korea = graphics.CreateRectangleMapObject("Korea", layer))
    {
        korea->SetLabelAlignment(E_LABEL_ALIGN_START); // the right side's top end
        Outline(korea, EXTENT{124.0, 33.0, 131.0, 43.0}, QColor(40, 120, 40), QColor(90, 200, 90, 60), 3);
    }
    const QPixmap picture = DemoPicture();
    if (IZoRectangleMapObject* framed = graphics.CreateRectangleMapObject("Picture", layer))
    {
        framed->SetExtent(EXTENT{96.0, 10.0, 108.0, 21.0});
        framed->SetBrushTexture(Qt::TexturePattern, picture);
        ShowName(framed, 1);
    }
    // Tiles lie in level-21 pixels: this one shows in the Forbidden City at
    // the deepest zoom.
    if (IZoRectangleMapObject* tile = graphics.CreateTileMapObject("Tile", layer))
    {
        tile->SetExtent(EXTENT{116.39700, 39.91650, 116.39717, 39.91663}); // about 256 pixels across
        tile->SetBrushTexture(Qt::TexturePattern, picture);
    }
}

void AddBubble(CZoGraphicsModule& graphics, IZoGraphicsMapLayer* layer, QWidget* widgetOwner)
{
    IZoBubbleMapObject* bubble = graphics.CreateBubbleMapObject("Tokyo", layer);
    if (!bubble)
        return;
    auto* content = new QWidget(widgetOwner);
    content->hide();
    auto* row = new QHBoxLayout(content);
    row->setContentsMargins(0, 0, 0, 0);
    auto* label = new QLabel(QStringLiteral("东京 Tokyo\n37 million people"), content);
    auto* button = new QPushButton(QStringLiteral("More"), content);
    QObject::connect(button, &QPushButton::clicked, label,
                     [label]() { label->setText(QStringLiteral("东京 Tokyo\ncapital of Japan since 1869")); });
    row->addWidget(label);
    row->addWidget(button);
    bubble->SetWidget(content);
    bubble->SetPosition(CVector3D(139.69, 35.69, 0.0));
    bubble->SetTailDirection(E_BUBBLE_TAIL_TOP);
    bubble->SetInteractive(true);
    bubble->SetZValue(1000); // above the capitals
}

void AddAnchoredShapesDemo(CZoGraphicsModule& graphics, IZoMapModule& map, QWidget* widgetOwner)
{
    IZoGraphicsMapLayer* layer = graphics.CreateGraphicsLayer("AnchoredShapes");
    if (!layer)
        return;
    AddRangeRings(graphics, map, layer);
    AddBows(graphics, layer);
    AddEllipse(graphics, layer);
    AddRectangles(graphics, layer);
    AddBubble(graphics, layer, widgetOwner);
}

int AddCapitalDots(IZoGraphicsModule& graphics, const QString& dataDir)
{
    const std::vector<SCapital> capitals = ReadCapitals(dataDir);
    if (capitals.empty())
        return 0;
    IZoGraphicsMapLayer* layer = graphics.CreateGraphicsLayer("Capitals");
    if (!layer)
        return 0;
    layer->SetMinLodLevel(kCapitalsMinLevel);
    layer->SetNameMinLodLevel(kCapitalNamesMinLevel);
    // Neighbouring capitals (Vienna and Bratislava, say) would print their
    // names over each other: only the first of them is drawn.
    if (auto* declutter = dynamic_cast<IZoLabelDeclutter*>(layer))
        declutter->SetLabelDeclutter(true);

    int count = 0;
    for (const SCapital& capital : capitals)
    {
        IZoDotMapObject* dot = graphics.CreateDotMapObject(ToGB18030(capital.nameZh), layer);
        if (!dot)
            continue;
        dot->SetProperty("name_en", capital.nameEn);
        dot->SetPosition(CVector3D(capital.lon, capital.lat, 0.0));
        dot->SetRadius(5.0);
        dot->SetPenWidth(1.5f);
        dot->SetPenColor(QColor(120, 30, 20));
        dot->SetBrushColor(QColor(230, 90, 40, 220));
        dot->SetLabelPosition(E_LABEL_RIGHT);
        dot->SetNameOffset(3.0f);
        dot->SetNameColor(QColor(90, 20, 10));
        dot->SetNameOutlineColor(Qt::white);
        dot->SetNameVisible(true);
        dot->SetInteractive(true);
        ++count;
    }
    return count;
}
