// The map view in real windows on an X server: what reaches the screen
// matches the view's own rendering, for the basemap of a bare view and for
// the labels and lines of a view that sits below a menu bar and beside a
// tool bar, away from its window's corner; decluttered names show above a
// later marker.
#include <ZoGraphics/ZoGraphics.h>
#include <ZoGraphics/ZoMapHost.h>

#include <QApplication>
#include <QMainWindow>
#include <QMenuBar>
#include <QScreen>
#include <QTest>
#include <QToolBar>
#include <QWheelEvent>
#include <gtest/gtest.h>

#include <vector>

namespace
{
// Share of pixels whose colour differs by more than a rounding step.
double DifferingShare(const QImage& a, const QImage& b)
{
    const QImage x = a.convertToFormat(QImage::Format_RGB32), y = b.convertToFormat(QImage::Format_RGB32);
    int differing = 0;
    for (int row = 0; row < x.height(); ++row)
    {
        const QRgb* p = reinterpret_cast<const QRgb*>(x.constScanLine(row));
        const QRgb* q = reinterpret_cast<const QRgb*>(y.constScanLine(row));
        for (int col = 0; col < x.width(); ++col)
            differing += std::abs(qRed(p[col]) - qRed(q[col])) > 8 || std::abs(qGreen(p[col]) - qGreen(q[col])) > 8 ||
                         std::abs(qBlue(p[col]) - qBlue(q[col])) > 8;
    }
    return static_cast<double>(differing) / (x.width() * x.height());
}

QImage Screen(QWidget* window, QWidget* viewport)
{
    const QPoint offset = viewport->mapTo(window, QPoint(0, 0));
    return window->screen()
        ->grabWindow(window->winId(), offset.x(), offset.y(), viewport->width(), viewport->height())
        .toImage()
        .convertToFormat(QImage::Format_RGB32);
}

// The viewport as the X server shows it in its window, once it shows what
// the view renders (the paint reaches the server some time later).
QImage ScreenOnceItMatches(QWidget* window, QWidget* viewport)
{
    QImage screen;
    double differing = 1.0;
    const auto matches = [&] {
        screen = Screen(window, viewport);
        const QImage rendered = viewport->grab().toImage();
        differing = screen.size() == rendered.size() ? DifferingShare(screen, rendered) : 1.0;
        return differing <= 0.002;
    };
    EXPECT_TRUE(QTest::qWaitFor(matches, 5000)) << differing;
    return screen;
}

class MapViewWindow : public testing::Test
{
protected:
    void SetUp() override
    {
        // Zoom 1: the 512-pixel world fills the 512-pixel view exactly.
        module.SetZoomAround(1.0, 0.0, 0.0);
        view.SetBasemapDataDir(QStringLiteral(ZO_SOURCE_DATA_DIR));
        view.resize(512, 512);
        view.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&view));
    }
    QPoint ViewPointOf(double lon, double lat) const
    {
        QPointF scene;
        EXPECT_TRUE(module.GeoToScenePoint(lon, lat, &scene));
        return view.mapFromScene(scene);
    }

    CZoMapModule module;
    CZoMapView view{&module};
};

class MainWindowLabels : public testing::TestWithParam<Qt::ToolBarArea>
{
protected:
    void SetUp() override
    {
        module.SetZoomAround(3.0, 10.0, 50.0);
        window.menuBar()->addMenu(QStringLiteral("File"))->addAction(QStringLiteral("Quit"));
        QToolBar* tools = new QToolBar(QStringLiteral("Tools"), &window);
        tools->addAction(QStringLiteral("Pan"));
        window.addToolBar(GetParam(), tools);
        view = new CZoMapView(&module, &window);
        window.setCentralWidget(view);
        ASSERT_TRUE(graphics.Initialise("window", &module));
        // A grid of labelled dots over the view.
        for (int i = 0; i < 16; ++i)
        {
            IZoDotMapObject* dot = graphics.CreateDotMapObject("Town " + std::to_string(i), nullptr);
            dot->SetPosition(CVector3D(-2.0 + (i % 4) * 7.0, 56.0 - (i / 4) * 4.0, 0.0));
            dot->SetRadius(4.0);
            dot->SetLabelPosition(3);
            dot->SetNameVisible(true);
        }
        // A dense zigzag over the whole view, a little wider than a pixel:
        // it is drawn through a coverage mask placed in device pixels.
        IZoPolylineMapObject* zigzag = graphics.CreatePolylineMapObject("zigzag", nullptr);
        std::vector<CVector3D> points;
        for (int i = 0; i < 8000; ++i)
            points.emplace_back(-50.0 + i * 120.0 / 8000, i % 2 ? 5.0 : 70.0, 0.0);
        zigzag->SetData(points);
        zigzag->SetPenWidth(1.5f);
        window.resize(640, 480);
        window.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    }
    void TearDown() override { graphics.Unintialise(); }

    CZoMapModule module;
    CZoGraphicsModule graphics;
    QMainWindow window;
    CZoMapView* view = nullptr;
};
} // namespace

TEST_F(MapViewWindow, ScreenShowsTheRenderedBasemap)
{
    ASSERT_NE(QGuiApplication::platformName(), QStringLiteral("offscreen"));
    const QImage screen = ScreenOnceItMatches(&view, view.viewport());
    const QPoint congo = ViewPointOf(20.0, 0.0);
    EXPECT_EQ(screen.pixelColor(congo), screen.pixelColor(ViewPointOf(100.0, 62.0)));
    EXPECT_NE(screen.pixelColor(congo), screen.pixelColor(ViewPointOf(-30.0, 0.0)));
}

TEST_F(MapViewWindow, WheelZoomRepaintsAtTheNewLevel)
{
    const QPoint at = ViewPointOf(20.0, 0.0);
    QTest::mouseMove(view.viewport(), at);
    QWheelEvent wheel(QPointF(at), QPointF(view.viewport()->mapToGlobal(at)), QPoint(), QPoint(0, 240), Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(view.viewport(), &wheel);
    EXPECT_EQ(module.GetCurrentLodLevel(), 2);
    const QImage screen = ScreenOnceItMatches(&view, view.viewport());
    EXPECT_NE(screen.pixelColor(ViewPointOf(20.0, 0.0)), screen.pixelColor(ViewPointOf(-20.0, -10.0)));
}

TEST_P(MainWindowLabels, ScreenShowsLabelsAndLinesWhereTheViewRendersThem)
{
    ASSERT_NE(QGuiApplication::platformName(), QStringLiteral("offscreen"));
    // The bars move the view away from the window's corner.
    ASSERT_FALSE(view->viewport()->mapTo(&window, QPoint(0, 0)).isNull());
    ScreenOnceItMatches(&window, view->viewport());
}

INSTANTIATE_TEST_SUITE_P(ToolBarAreas, MainWindowLabels, testing::Values(Qt::TopToolBarArea, Qt::LeftToolBarArea));

// Names on a decluttered layer stay above a marker made after their dot that
// covers where the name stands.
TEST(LabelsAboveMarkers, TheScreenShowsTheNameOverTheLaterMarker)
{
    CZoMapModule module;
    module.SetZoomAround(5.0, 10.0, 50.0);
    CZoGraphicsModule graphics;
    ASSERT_TRUE(graphics.Initialise("window", &module));
    IZoGraphicsMapLayer* layer = graphics.CreateGraphicsLayer("towns");
    dynamic_cast<IZoLabelDeclutter*>(layer)->SetLabelDeclutter(true);
    IZoDotMapObject* town = graphics.CreateDotMapObject("Blue Town", layer);
    town->SetPosition(CVector3D(10.0, 50.0, 0.0));
    town->SetRadius(3.0);
    town->SetLabelPosition(3);
    town->SetNameFont(QFont(QStringLiteral("DejaVu Sans"), 14, QFont::Bold));
    town->SetNameColor(QColor(0, 0, 255));
    town->SetNameOutlineWidth(0.0);
    town->SetNameVisible(true);
    IZoDotMapObject* marker = graphics.CreateDotMapObject("marker", layer);
    marker->SetPosition(CVector3D(12.0, 50.0, 0.0));
    marker->SetRadius(150.0); // covers the whole name
    marker->SetBrushColor(QColor(0, 160, 0));
    marker->SetPenWidth(0.0f);
    CZoMapView view(&module);
    view.resize(400, 300);
    view.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&view));
    int blue = 0, green = 0;
    static_cast<void>(QTest::qWaitFor([&] {
        const QImage screen = Screen(&view, view.viewport());
        blue = green = 0;
        for (int y = 0; y < screen.height(); ++y)
            for (int x = 0; x < screen.width(); ++x)
            {
                const QRgb p = screen.pixel(x, y);
                blue += qBlue(p) > 200 && qRed(p) < 60 && qGreen(p) < 60;
                green += qGreen(p) > 140 && qGreen(p) < 180 && qRed(p) < 30 && qBlue(p) < 30;
            }
        return green > 5000 && blue > 50;
    }, 2000));
    EXPECT_GT(green, 5000); // the marker shows
    EXPECT_GT(blue, 50);    // and the name over it
    graphics.Unintialise();
}
