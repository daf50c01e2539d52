#include "CViewerWindow.h"
#include "Gallery.h"
#include "ViewerOptions.h"

#include <ZoGraphics/CZoMapView.h>

#include <QApplication>
#include <QCoreApplication>
#include <QFileInfo>
#include <QImage>

#include <cstdio>

namespace
{
// The sources' data folder serves a viewer run from the build tree.
QString ChooseDataDir(const ViewerOptions& options, const CZoMapView& view)
{
    if (!options.dataDir.isEmpty())
        return options.dataDir;
    const QString probe = QStringLiteral("/countries-110m.geojson");
    if (!QFileInfo::exists(view.GetBasemapDataDir() + probe) &&
        QFileInfo::exists(QStringLiteral(ZO_VIEWER_SOURCE_DATA_DIR) + probe))
        return QStringLiteral(ZO_VIEWER_SOURCE_DATA_DIR);
    return QString();
}
} // namespace

int main(int argc, char** argv)
{
    ViewerOptions options;
    {
        // The GUI application needs a display: the command line is read
        // before it exists, so that the help and a bad argument need none.
        QCoreApplication reader(argc, argv);
        QCoreApplication::setApplicationName(QStringLiteral("zomapview"));
        QString error;
        QString help;
        if (!ParseViewerOptions(QCoreApplication::arguments(), &options, &error, &help))
        {
            std::fprintf(stderr, "zomapview: %s\n\n%s", qPrintable(error), qPrintable(help));
            return 2;
        }
        if (options.helpRequested)
        {
            std::printf("%s", qPrintable(help));
            return 0;
        }
    }
    if (!options.renderPath.isEmpty() || !options.galleryDir.isEmpty())
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("zomapview"));

    CViewerWindow window;
    const QString dataDir = ChooseDataDir(options, *window.MapView());
    if (!dataDir.isEmpty())
        window.MapView()->SetBasemapDataDir(dataDir);
    if (!options.galleryDir.isEmpty())
    {
        QStringList written;
        QString error;
        const bool ok = WriteGallery(options.galleryDir, window.MapView()->GetBasemapDataDir(), &written, &error);
        for (const QString& path : written)
            std::printf("%s\n", qPrintable(path));
        if (!ok)
            std::fprintf(stderr, "zomapview: %s\n", qPrintable(error));
        return ok ? 0 : 1;
    }
    window.PopulateGraphics(window.MapView()->GetBasemapDataDir());
    window.ShowArea(options.centerLon, options.centerLat, options.zoom);

    if (!options.renderPath.isEmpty())
    {
        const QImage image = window.RenderMap(options.size);
        if (image.isNull() || !image.save(options.renderPath, "PNG"))
        {
            std::fprintf(stderr, "zomapview: cannot write '%s'\n", qPrintable(options.renderPath));
            return 1;
        }
        std::printf("%s\n", qPrintable(options.renderPath));
        return 0;
    }
    window.show();
    return QApplication::exec();
}
