// Labels and lines of a map view that sits below a menu bar and beside a tool
// bar: what the X server shows of the viewport is what the view renders of it.
#include <ZoGraphics/ZoGraphics.h>
#include <ZoGraphics/ZoMapHost.h>

#include <QMainWindow>
#include <QMenuBar>
#include <QScreen>
#include <QTest>
#include <QToolBar>
#include <gtest/gtest.h>

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
            const std::string name = "Town " + std::to_string(i);
            IZoDotMapObject* dot = graphics.CreateDotMapObject(name, graphics.GetDeafultGraphicsLayer());
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

TEST_P(MainWindowLabels, ScreenShowsLabelsAndLinesWhereTheViewRendersThem)
{
    ASSERT_NE(QGuiApplication::platformName(), QStringLiteral("offscreen"));
    QWidget* viewport = view->viewport();
    const QPoint offset = viewport->mapTo(&window, QPoint(0, 0));
    ASSERT_FALSE(offset.isNull()); // the bars move the view away from the window's corner
    // The paint reaches the X server some time after the view rendered it.
    double differing = 1.0;
    const auto matches = [&] {
        const QImage screen = window.screen()
                                  ->grabWindow(window.winId(), offset.x(), offset.y(), viewport->width(),
                                               viewport->height())
                                  .toImage();
        const QImage rendered = viewport->grab().toImage();
        differing = screen.size() == rendered.size() ? DifferingShare(screen, rendered) : 1.0;
        return differing <= 0.002;
    };
    EXPECT_TRUE(QTest::qWaitFor(matches, 5000)) << differing;
}

INSTANTIATE_TEST_SUITE_P(ToolBarAreas, MainWindowLabels, testing::Values(Qt::TopToolBarArea, Qt::LeftToolBarArea));
