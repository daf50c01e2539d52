// The viewer's main window with its demos (what the status bar names, what
// the menus bring back, how the night shading looks close up) and its
// gallery of object kinds, rendered headless, with the command line that
// asks for it.
#include "apps/zomapview/CViewerWindow.h"
#include "apps/zomapview/ContentDemo.h"
#include "apps/zomapview/Gallery.h"
#include "apps/zomapview/ViewerOptions.h"

#include <ZoGraphics/ZoGraphics.h>
#include <ZoGraphics/ZoMapHost.h>

#include <QAction>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QLabel>
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
    QTest::mouseClick(window.MapView()->viewport(), Qt::LeftButton, Qt::NoModifier, at);
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
    const QImage x = a.convertToFormat(QImage::Format_RGB32);
    const QImage y = b.convertToFormat(QImage::Format_RGB32);
    int changed = 0;
    for (int row = 0; row < x.height(); ++row)
    {
        for (int column = 0; column < x.width(); ++column)
            changed += x.pixel(column, row) != y.pixel(column, row);
    }
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
        ASSERT_FALSE(picture.isNull());
        EXPECT_EQ(picture.size(), QSize(320, 200));
        // The kind must be seen: a picture that is just the basemap (objects
        // off screen, a file the set-up could not find) changes nothing.
        const QImage bare = BareMap(view);
        ASSERT_EQ(bare.size(), picture.size());
        EXPECT_GT(ChangedFraction(picture, bare), 0.01);
    }
}

TEST(ViewerGalleryTest, StopsAtAFolderItCannotMakeAndIsAskedForByTheCommandLine)
{
    QTemporaryDir scratch;
    QFile blocker(scratch.filePath(QStringLiteral("file")));
    ASSERT_TRUE(blocker.open(QIODevice::WriteOnly));
    blocker.close();
    const QString dir = scratch.filePath(QStringLiteral("file/kinds"));
    QStringList written;
    QString error;
    EXPECT_FALSE(WriteGallery(dir, QStringLiteral(ZO_SOURCE_DATA_DIR), &written, &error));
    EXPECT_TRUE(written.isEmpty());
    EXPECT_TRUE(error.contains(dir)) << error.toStdString();

    const auto parse = [&error](const QStringList& arguments, ViewerOptions* options) {
        QString help;
        return ParseViewerOptions(QStringList{QStringLiteral("zomapview")} + arguments, options, &error, &help);
    };
    ViewerOptions options, both, empty;
    ASSERT_TRUE(parse({QStringLiteral("--gallery"), QStringLiteral("out/kinds")}, &options));
    EXPECT_EQ(options.galleryDir, QStringLiteral("out/kinds"));
    EXPECT_TRUE(options.renderPath.isEmpty());
    EXPECT_FALSE(parse({QStringLiteral("--gallery=k"), QStringLiteral("--render=a.png")}, &both));
    EXPECT_TRUE(error.contains(QStringLiteral("--gallery"))) << error.toStdString();
    EXPECT_FALSE(parse({QStringLiteral("--gallery=")}, &empty));
}
} // namespace
