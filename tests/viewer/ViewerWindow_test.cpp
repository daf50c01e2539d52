// The viewer's main window with its demos: what the status bar names, what
// the menus bring back, how the night shading looks close up.
#include "apps/zomapview/CViewerWindow.h"
#include "apps/zomapview/ContentDemo.h"

#include <ZoGraphics/ZoGraphics.h>
#include <ZoGraphics/ZoMapHost.h>

#include <QAction>
#include <QApplication>
#include <QDateTime>
#include <QLabel>
#include <QMouseEvent>
#include <QTemporaryDir>
#include <QTest>
#include <gtest/gtest.h>

#include <algorithm>

namespace
{
void Click(CViewerWindow& window, double lon, double lat)
{
    QPointF scene;
    EXPECT_TRUE(window.MapModule()->GeoToScenePoint(lon, lat, &scene));
    const QPoint at = window.MapView()->mapFromScene(scene);
    QWidget* viewport = window.MapView()->viewport();
    for (QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease})
    {
        QMouseEvent event(type, at, viewport->mapToGlobal(at), Qt::LeftButton,
                          type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton, Qt::NoModifier);
        QApplication::sendEvent(viewport, &event);
    }
}

// The longest run of equal pixels along the row, between the first change
// and the last.
int LongestInnerRun(const QImage& image, int row)
{
    const int width = image.width();
    int first = 0;
    while (first < width && image.pixel(first, row) == image.pixel(0, row))
        ++first;
    int last = width - 1;
    while (last > first && image.pixel(last, row) == image.pixel(width - 1, row))
        --last;
    int longest = 0;
    int run = 0;
    for (int x = first; x <= last; ++x)
    {
        run = x > first && image.pixel(x, row) == image.pixel(x - 1, row) ? run + 1 : 1;
        longest = std::max(longest, run);
    }
    return longest;
}
} // namespace

TEST(ViewerWindowTest, StatusBarNamesTheObjectUnderAHandleAndTheClosedBubbleComesBack)
{
    CViewerWindow window;
    window.MapView()->SetBasemapDataDir(QStringLiteral(ZO_SOURCE_DATA_DIR));
    window.PopulateGraphics(QStringLiteral(ZO_SOURCE_DATA_DIR));
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    window.ShowArea(125.0, -25.0, 5.0);
    // The route's second vertex, under its edit handle.
    Click(window, 121.47, -30.75);
    QStringList texts;
    for (const QLabel* label : window.findChildren<QLabel*>())
        texts << label->text();
    EXPECT_EQ(texts.filter(QStringLiteral("Route")).size(), 1) << texts.join('|').toStdString();
    EXPECT_TRUE(texts.filter(QStringLiteral("CustomEdit")).isEmpty());

    IZoBubbleMapObject* bubble = window.Graphics()->LookupBubbleMapObject("Tokyo");
    ASSERT_NE(bubble, nullptr);
    bubble->SetVisible(false); // as its close button does
    const QList<QAction*> actions = window.findChildren<QAction*>();
    const auto show = std::find_if(actions.begin(), actions.end(), [](const QAction* action) {
        return action->text().remove('&').contains(QStringLiteral("Tokyo"));
    });
    ASSERT_NE(show, actions.end());
    (*show)->trigger();
    EXPECT_TRUE(bubble->IsVisible());

    // Names of neighbouring capitals would overlap at the levels they show.
    for (const char* layer : {"Capitals", "European capitals"})
    {
        auto* declutter = dynamic_cast<IZoLabelDeclutter*>(window.Graphics()->LookupGraphicsLayer(layer));
        ASSERT_NE(declutter, nullptr) << layer;
        EXPECT_TRUE(declutter->IsLabelDeclutter()) << layer;
    }
}

// At noon UTC on the equinox the evening twilight spans 90 to 102 degrees
// east: at zoom 5 some 270 pixels, over which the shading deepens smoothly.
TEST(ViewerWindowTest, NightShadingHasNoBlocksCloseUp)
{
    QTemporaryDir noLand;
    CViewerWindow window;
    window.MapView()->SetBasemapDataDir(noLand.path());
    ASSERT_NE(AddDayNightCanvas(window.InitialiseGraphics(), QDateTime(QDate(2024, 3, 20), QTime(12, 0), Qt::UTC)),
              nullptr);
    window.ShowArea(96.0, 0.0, 5.0);
    const QImage image = window.RenderMap(QSize(400, 20));
    EXPECT_LT(LongestInnerRun(image, 10), 8);
}
