// The map view in real windows on an X server: what reaches the screen
// matches the view's own rendering, for the basemap of a bare view and for
// the labels and lines of a view that sits below a menu bar and beside a
// tool bar, away from its window's corner.
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
    const QImage x = a.convertToFormat(QImage::Format_RGB32);
    const QImage y = b.convertToFormat(QImage::Format_RGB32);
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

// The viewport as the X server shows it in its window, once it shows what
// the view renders (the paint reaches the server some time later).
QImage ScreenOnceItMatches(QWidget* window, QWidget* viewport)
{
    const QPoint offset = viewport->mapTo(window, QPoint(0, 0));
    QImage screen;
    double differing = 1.0;
    const auto matches = [&] {
        screen = window->screen()
                     ->grabWindow(window->winId(), offset.x(), offset.y(), viewport->width(), viewport->height())
                     .toImage();
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
        for (const char* name : {"Pan", "Zoom in", "Zoom out"})
            tools->addAction(QString::fromLatin1(name));
        window.addToolBar(GetParam(), tools);
        view = new CZoMapView(&module, &window);
        window.setCentralWidget(view);
        ASSERT_TRUE(graphics.Initialise("window", &module));
        // A grid of labelled dots over the view.
        for (int i = 0; i < 16; ++i)
        {
            IZoDotMapObject* dot =
                graphics.CreateDotMapObject("Town " + std::to_string(i), graphics.GetDeafultGraphicsLayer());
            ASSERT_NE(dot, nullptr);
            dot->SetPosition(CVector3D(-2.0 + (i % 4) * 7.0, 56.0 - (i / 4) * 4.0, 0.0));
            dot->SetRadius(4.0);
            dot->SetLabelPosition(3);
            dot->SetNameVisible(true);
        }
        // A dense zigzag over the whole view, a little wider than a pixel:
        // it is drawn through a coverage mask placed in device pixels.
        IZoPolylineMapObject* zigzag = graphics.CreatePolylineMapObject("zigzag", graphics.GetDeafultGraphicsLayer());
        ASSERT_NE(zigzag, nullptr);
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
