// The viewer's gallery of object kinds, rendered headless, and the command
// line that asks for it.
#include "apps/zomapview/CViewerWindow.h"
#include "apps/zomapview/Gallery.h"
#include "apps/zomapview/ViewerOptions.h"

#include <ZoGraphics/CZoMapView.h>

#include <QDir>
#include <QFile>
#include <QImage>
#include <QTemporaryDir>
#include <gtest/gtest.h>

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
