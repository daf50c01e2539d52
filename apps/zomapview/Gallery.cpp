#include "Gallery.h"

#include "AnchoredShapesDemo.h"
#include "CViewerWindow.h"
#include "ContentDemo.h"
#include "DemoSupport.h"
#include "PointListDemo.h"

#include <ZoGraphics/ZoGraphics.h>
#include <ZoGraphics/ZoMapHost.h>

#include <QDateTime>
#include <QDir>
#include <QImage>

namespace
{
// What a kind's set-up may use. The layer is made for the kind; set-ups that
// make layers of their own leave it empty and unseen.
struct SScene
{
    CZoGraphicsModule& graphics;
    CViewerWindow& window;
    IZoGraphicsMapLayer* layer;
    QString dataDir;
};

std::vector<CVector3D> Points(std::initializer_list<std::pair<double, double>> lonLat)
{
    std::vector<CVector3D> points;
    for (const auto& p : lonLat)
        points.emplace_back(p.first, p.second, 0.0);
    return points;
}

// The demo's Caspian ellipse and a second one over the Black Sea.
void AddSeaEllipses(const SScene& scene)
{
    AddEllipse(scene.graphics, scene.layer);
    if (IZoEllipseMapObject* blackSea = scene.graphics.CreateEllipseMapObject("Black Sea", scene.layer))
    {
        blackSea->SetExtent(EXTENT{27.5, 41.0, 41.8, 46.8});
        StyleSurface(blackSea, QColor(20, 110, 110), QColor(40, 180, 170, 90), 2.0f);
        blackSea->SetPenStyle(Qt::DashLine);
        ShowName(blackSea, 4);
    }
}

// The Bermuda Triangle over the Sargasso Sea.
void AddAtlanticPolygons(const SScene& scene)
{
    if (IZoPolygonMapObject* sea = scene.graphics.CreatePolygonMapObject("Sargasso Sea", scene.layer))
    {
        sea->SetData(Points({{-70, 25}, {-66, 31}, {-58, 35}, {-48, 36}, {-40, 33}, {-38, 27}, {-44, 22},
                             {-55, 21}, {-64, 22}}));
        StyleSurface(sea, QColor(110, 120, 20), QColor(190, 200, 60, 90), 1.5f);
        sea->SetPenStyle(Qt::DashLine);
        ShowName(sea, 4);
    }
    if (IZoPolygonMapObject* triangle = scene.graphics.CreatePolygonMapObject("Bermuda Triangle", scene.layer))
    {
        triangle->SetData(Points({{-80.19, 25.76}, {-64.75, 32.30}, {-66.10, 18.47}}));
        StyleSurface(triangle, QColor(180, 30, 40), QColor(230, 60, 60, 110), 2.0f);
        ShowName(triangle, 4);
    }
}

// The demo's great circle from Beijing to New York (its half east of the
// antimeridian) and the Alaska Highway, dashed.
void AddRoutes(const SScene& scene)
{
    AddRoute(scene.graphics);
    IZoPolylineMapObject* highway = scene.graphics.CreatePolylineMapObject("Alaska Highway", scene.layer);
    if (!highway)
        return;
    highway->SetData(Points({{-120.24, 55.76}, {-122.70, 58.80}, {-128.80, 60.07}, {-135.05, 60.72},
                             {-140.90, 62.20}, {-145.73, 64.04}}));
    highway->SetPenColor(QColor(140, 80, 20));
    highway->SetPenWidth(2.5f);
    highway->SetPenStyle(Qt::DashLine);
    ShowName(highway, 1);
}

// Three rivers of Europe as one multi-line, from source to mouth.
void AddRivers(const SScene& scene)
{
    IZoMultiLineMapObject* rivers = scene.graphics.CreateMultiLineMapObject("Danube, Rhine, Elbe", scene.layer);
    if (!rivers)
        return;
    rivers->SetData({
        Points({{8.50, 47.95}, {9.99, 48.40}, {12.10, 49.02}, {13.46, 48.57}, {14.29, 48.31}, {16.37, 48.21},
                {17.10, 48.14}, {18.74, 47.80}, {19.13, 47.78}, {19.04, 47.50}, {18.68, 45.99}, {19.84, 45.25},
                {20.46, 44.82}, {22.50, 44.60}, {22.88, 43.99}, {25.95, 43.85}, {27.26, 44.12}, {27.96, 45.27},
                {28.80, 45.17}, {29.65, 45.16}}),
        Points({{9.17, 47.66}, {7.59, 47.56}, {7.75, 48.58}, {8.47, 49.49}, {8.27, 50.00}, {7.60, 50.36},
                {6.96, 50.94}, {6.76, 51.43}, {5.86, 51.84}, {4.48, 51.92}}),
        Points({{15.83, 50.21}, {14.47, 50.35}, {14.04, 50.66}, {13.74, 51.05}, {11.63, 52.13}, {9.99, 53.55},
                {8.70, 53.87}}),
    });
    rivers->SetPenColor(QColor(30, 100, 200));
    rivers->SetPenWidth(2.5f);
    ShowName(rivers, 0); // along the Danube's first stretch
}

// An ocean's name and a current's name drawn with outlines, the current's
// turned along it, and an island named in a box.
void AddTexts(const SScene& scene)
{
    const struct
    {
        const char* text;
        double lon;
        double lat;
        double angle;
        int size;
        QColor colour;
        QColor outline;
        bool boxed;
    } texts[] = {
        {"Atlantic Ocean", -65.7, 40.2, 0.0, 14, QColor(235, 244, 255), QColor(20, 60, 140), false},
        {"Gulf Stream", -77.9, 24.3, -40.0, 11, QColor(255, 190, 90), QColor(130, 50, 0), false},
        {"Bermuda", -64.78, 32.30, 0.0, 10, QColor(20, 60, 140), QColor(), true},
    };
    for (const auto& label : texts)
    {
        IZoTextMapObject* text = scene.graphics.CreateTextMapObject(label.text, scene.layer);
        if (!text)
            continue;
        text->SetPosition(CVector3D(label.lon, label.lat, 0.0));
        text->SetRotateAngle(label.angle);
        text->SetFont(QFont(QStringLiteral("DejaVu Sans"), label.size, QFont::Bold));
        text->SetTextColor(label.colour);
        text->SetOutlineColor(label.outline);
        text->SetOutlineWidth(label.boxed ? 0.0 : 1.0);
        if (label.boxed)
        {
            text->SetBackgroundColor(QColor(255, 255, 240, 230));
            text->SetBorderColor(label.colour);
            text->SetBorderWidth(1.0);
            text->SetPadding(3.0);
        }
        text->SetScaleWithMap(false);
        text->SetText(label.text);
    }
}

// One kind: where its picture looks and what goes on its map.
struct SKind
{
    const char* kind;
    double lon;
    double lat;
    double zoom;
    void (*populate)(const SScene& scene);
};

const SKind kKinds[] = {
    {"dot", 15.5, 49.0, 4.3, [](const SScene& s) { AddCapitalDots(s.graphics, s.dataDir); }},
    {"circle", 116.4, 40.5, 2.35,
     [](const SScene& s) { AddRangeRings(s.graphics, *s.window.MapModule(), s.layer); }},
    {"ellipse", 40.0, 43.0, 3.3, AddSeaEllipses},
    {"bow", 65.0, 33.5, 2.3, [](const SScene& s) { AddBows(s.graphics, s.layer); }},
    {"rectangle", 114.0, 25.0, 2.65, [](const SScene& s) { AddRectangles(s.graphics, s.layer); }},
    {"bubble", 138.5, 33.5, 4.6, [](const SScene& s) { AddBubble(s.graphics, s.layer, &s.window); }},
    {"polyline", -110.0, 55.0, 1.8, AddRoutes},
    {"polygon", -60.0, 27.0, 3.0, AddAtlanticPolygons},
    {"multidot", 10.0, 25.0, 0.4, [](const SScene& s) { AddCapitalsMultiDot(s.graphics, s.dataDir); }},
    {"multiline", 17.0, 49.0, 3.8, AddRivers},
    {"multipolygon", 15.0, 50.0, 3.5, [](const SScene& s) { AddCountries(s.graphics, s.dataDir); }},
    {"text", -60.0, 32.0, 3.3, AddTexts},
    {"markpoint", 10.5, 50.7, 4.1, [](const SScene& s) { AddCapitalPins(s.graphics, s.dataDir); }},
    {"svg", -24.0, 51.5, 3.6, [](const SScene& s) { AddCompassRose(s.graphics, s.dataDir); }},
    {"widget", -27.0, 27.0, 3.0, [](const SScene& s) { AddForm(s.graphics, &s.window); }},
    // A fixed moment, so that the picture stays the same from run to run: the
    // December solstice, mid-afternoon in Greenwich.
    {"canvas", 10.0, 25.0, 0.4,
     [](const SScene& s) { AddDayNightCanvas(s.graphics, QDateTime(QDate(2024, 12, 21), QTime(15, 0), Qt::UTC)); }},
};

QImage RenderKind(const SKind& kind, const QString& dataDir)
{
    CViewerWindow window;
    window.MapView()->SetBasemapDataDir(dataDir);
    CZoGraphicsModule& graphics = window.InitialiseGraphics();
    kind.populate({graphics, window, graphics.CreateGraphicsLayer(kind.kind), dataDir});
    window.ShowArea(kind.lon, kind.lat, kind.zoom);
    return window.RenderMap(GallerySize());
}
} // namespace

QSize GallerySize()
{
    return QSize(320, 200);
}

std::vector<SGalleryView> GalleryViews()
{
    std::vector<SGalleryView> views;
    for (const SKind& kind : kKinds)
        views.push_back({QString::fromLatin1(kind.kind), kind.lon, kind.lat, kind.zoom});
    return views;
}

bool WriteGallery(const QString& dir, const QString& dataDir, QStringList* written, QString* error)
{
    if (!QDir().mkpath(dir))
    {
        *error = QStringLiteral("cannot make the folder '%1'").arg(dir);
        return false;
    }
    for (const SKind& kind : kKinds)
    {
        const QString path = QDir(dir).filePath(QString::fromLatin1(kind.kind) + QStringLiteral(".png"));
        const QImage image = RenderKind(kind, dataDir);
        if (image.isNull() || !image.save(path, "PNG"))
        {
            *error = QStringLiteral("cannot write '%1'").arg(path);
            return false;
        }
        written->append(path);
    }
    return true;
}
