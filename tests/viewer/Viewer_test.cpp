// The viewer's main window with its demos (what the status bar names, what
// the menus bring back) and its gallery of object kinds, rendered headless.
#include "apps/zomapview/CViewerWindow.h"
#include "apps/zomapview/Gallery.h"

#include <ZoGraphics/ZoGraphics.h>
#include <ZoGraphics/ZoMapHost.h>

#include <QAction>
#include <QDir>
#include <QImage>
#include <QLabel>
#include <QTemporaryDir>
#include <QTest>
#include <gtest/gtest.h>

TEST(ViewerWindowTest, StatusBarNamesTheObjectUnderAHandleAndTheClosedBubbleComesBack)
{
    CViewerWindow window;
    window.MapView()->SetBasemapDataDir(QStringLiteral(ZO_SOURCE_DATA_DIR));
    window.PopulateGraphics(QStringLiteral(ZO_SOURCE_DATA_DIR));
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    window.ShowArea(125.0, -25.0, 5.0);
    // The route's second vertex, under its edit handle.
    QPointF vertex;
    ASSERT_TRUE(window.MapModule()->GeoToScenePoint(121.47, -30.75, &vertex));
    QTest::mouseClick(window.MapView()->viewport(), Qt::LeftButton, Qt::NoModifier, window.MapView()->mapFromScene(vertex));
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
}

namespace
{
// The file names the README's table points at, in its order.
const QStringList kKinds = {"dot",       "circle",  "ellipse",  "bow",       "rectangle",    "bubble",
                            "polyline",  "polygon", "multidot", "multiline", "multipolygon", "text",
                            "markpoint", "svg",     "widget",   "canvas"};

// The basemap alone where the gallery looks at a kind.
QImage BareMap(const SGalleryView& view)
{
    CViewerWindow window;
    window.MapView()->SetBasemapDataDir(QStringLiteral(ZO_SOURCE_DATA_DIR));
    window.ShowArea(view.lon, view.lat, view.zoom);
    return window.RenderMap(GallerySize());
}

double ChangedFraction(const QImage& a, const QImage& b)
{
    const QImage x = a.convertToFormat(QImage::Format_RGB32), y = b.convertToFormat(QImage::Format_RGB32);
    int changed = 0;
    for (int row = 0; row < x.height(); ++row)
        for (int column = 0; column < x.width(); ++column)
            changed += x.pixel(column, row) != y.pixel(column, row);
    return double(changed) / (x.width() * x.height());
}

TEST(ViewerGalleryTest, WritesOnePictureOfEachKindShowingItOverTheMap)
{
    QTemporaryDir scratch;
    const QString dir = scratch.filePath(QStringLiteral("docs/kinds")); // made on the way
    QStringList written;
    QString error;
    ASSERT_TRUE(WriteGallery(dir, QStringLiteral(ZO_SOURCE_DATA_DIR), &written, &error)) << error.toStdString();

    QStringList expected;
    for (const QString& kind : kKinds)
        expected << QDir(dir).filePath(kind + QStringLiteral(".png"));
    EXPECT_EQ(written, expected);
    const std::vector<SGalleryView> views = GalleryViews();
    ASSERT_EQ(views.size(), std::size_t(kKinds.size()));

    for (const SGalleryView& view : views)
    {
        SCOPED_TRACE(view.kind.toStdString());
        const QImage picture(QDir(dir).filePath(view.kind + QStringLiteral(".png")));
        ASSERT_EQ(picture.size(), QSize(320, 200));
        // The kind must be seen: a picture that is just the basemap (objects
        // off screen, a file the set-up could not find) changes nothing.
        const QImage bare = BareMap(view);
        ASSERT_EQ(bare.size(), picture.size());
        EXPECT_GT(ChangedFraction(picture, bare), 0.01);
    }
}
} // namespace
