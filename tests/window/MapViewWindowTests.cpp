// The map view in a real window: what reaches the screen through the window
// system matches the view's own rendering, and the basemap shows land and sea.
#include <ZoGraphics/ZoMapHost.h>

#include <QApplication>
#include <QGuiApplication>
#include <QScreen>
#include <QTest>
#include <QWheelEvent>
#include <gtest/gtest.h>
#include <vector>

namespace
{
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

    // The viewport as the X server shows it, once it shows what the view
    // renders at the given points (the paint reaches the server later).
    QImage ScreenOnceItMatches(const std::vector<QPoint>& points)
    {
        QImage screen;
        const auto matches = [&] {
            screen = view.screen()->grabWindow(view.viewport()->winId()).toImage();
            const QImage rendered = view.viewport()->grab().toImage();
            if (screen.size() != rendered.size())
                return false;
            for (const QPoint& at : points)
                if (screen.pixelColor(at) != rendered.pixelColor(at))
                    return false;
            return true;
        };
        EXPECT_TRUE(QTest::qWaitFor(matches, 5000));
        return screen;
    }

    CZoMapModule module;
    CZoMapView view{&module};
};
} // namespace

TEST_F(MapViewWindow, ScreenShowsTheRenderedBasemap)
{
    ASSERT_NE(QGuiApplication::platformName(), QStringLiteral("offscreen"));
    const QPoint congo = ViewPointOf(20.0, 0.0);
    const QPoint atlantic = ViewPointOf(-30.0, 0.0);
    const QPoint siberia = ViewPointOf(100.0, 62.0);
    const QImage screen = ScreenOnceItMatches({congo, atlantic, siberia});
    EXPECT_EQ(screen.pixelColor(congo), screen.pixelColor(siberia));
    EXPECT_NE(screen.pixelColor(congo), screen.pixelColor(atlantic));
}

TEST_F(MapViewWindow, WheelZoomRepaintsAtTheNewLevel)
{
    QTest::mouseMove(view.viewport(), ViewPointOf(20.0, 0.0));
    QWheelEvent wheel(QPointF(ViewPointOf(20.0, 0.0)), QPointF(view.viewport()->mapToGlobal(ViewPointOf(20.0, 0.0))),
                      QPoint(), QPoint(0, 240), Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(view.viewport(), &wheel);
    EXPECT_EQ(module.GetCurrentLodLevel(), 2);
    const QPoint congo = ViewPointOf(20.0, 0.0);
    const QImage screen = ScreenOnceItMatches({congo, ViewPointOf(-20.0, -10.0)});
    EXPECT_NE(screen.pixelColor(congo), screen.pixelColor(ViewPointOf(-20.0, -10.0)));
}
