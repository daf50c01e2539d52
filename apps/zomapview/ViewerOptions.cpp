#include "ViewerOptions.h"

#include <QCommandLineParser>
#include <QFileInfo>

#include <cmath>

namespace
{
bool ParseNumberPair(const QString& text, QChar separator, double* first, double* second)
{
    const QStringList parts = text.split(separator);
    if (parts.size() != 2)
        return false;
    bool okFirst = false;
    bool okSecond = false;
    *first = parts[0].trimmed().toDouble(&okFirst);
    *second = parts[1].trimmed().toDouble(&okSecond);
    return okFirst && okSecond && std::isfinite(*first) && std::isfinite(*second);
}
} // namespace

bool ParseViewerOptions(const QStringList& arguments, ViewerOptions* options, QString* error, QString* helpText)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Shows the world map of the ZoGraphics reference host."));
    const QCommandLineOption helpOption(QStringList{QStringLiteral("h"), QStringLiteral("help")},
                                        QStringLiteral("Shows this help."));
    const QCommandLineOption renderOption(QStringLiteral("render"),
                                          QStringLiteral("Renders the map to a PNG file and exits."),
                                          QStringLiteral("out.png"));
    const QCommandLineOption galleryOption(
        QStringLiteral("gallery"),
        QStringLiteral("Renders one 320x200 picture per object kind into DIR (<kind>.png) and exits."),
        QStringLiteral("DIR"));
    const QCommandLineOption centerOption(QStringLiteral("center"),
                                          QStringLiteral("Centre of the view in degrees."), QStringLiteral("LON,LAT"));
    const QCommandLineOption zoomOption(QStringLiteral("zoom"), QStringLiteral("Zoom, 0 to 21, fractions allowed."),
                                        QStringLiteral("Z"));
    const QCommandLineOption sizeOption(QStringLiteral("size"), QStringLiteral("Size of the rendered picture."),
                                        QStringLiteral("WxH"));
    const QCommandLineOption dataOption(QStringLiteral("data"),
                                        QStringLiteral("Folder with the Natural Earth country files."),
                                        QStringLiteral("DIR"));
    parser.addOptions({helpOption, renderOption, galleryOption, centerOption, zoomOption, sizeOption, dataOption});
    *helpText = parser.helpText();

    if (!parser.parse(arguments))
    {
        *error = parser.errorText();
        return false;
    }
    if (!parser.positionalArguments().isEmpty())
    {
        *error = QStringLiteral("Unexpected argument: %1").arg(parser.positionalArguments().first());
        return false;
    }
    options->helpRequested = parser.isSet(helpOption);
    if (parser.isSet(centerOption))
    {
        double lon = 0.0;
        double lat = 0.0;
        if (!ParseNumberPair(parser.value(centerOption), QLatin1Char(','), &lon, &lat) || std::abs(lon) > 180.0 ||
            std::abs(lat) > 90.0)
        {
            *error = QStringLiteral("--center wants LON,LAT in degrees, got '%1'").arg(parser.value(centerOption));
            return false;
        }
        options->centerLon = lon;
        options->centerLat = lat;
    }
    if (parser.isSet(zoomOption))
    {
        bool ok = false;
        const double zoom = parser.value(zoomOption).toDouble(&ok);
        if (!ok || !(zoom >= 0.0 && zoom <= 21.0))
        {
            *error = QStringLiteral("--zoom wants a number from 0 to 21, got '%1'").arg(parser.value(zoomOption));
            return false;
        }
        options->zoom = zoom;
    }
    if (parser.isSet(sizeOption))
    {
        double width = 0.0;
        double height = 0.0;
        const QString text = parser.value(sizeOption).toLower();
        if (!ParseNumberPair(text, QLatin1Char('x'), &width, &height) || width < 1 || height < 1 ||
            width > 16384 || height > 16384 || width != std::floor(width) || height != std::floor(height))
        {
            *error = QStringLiteral("--size wants WxH in pixels (1 to 16384), got '%1'").arg(parser.value(sizeOption));
            return false;
        }
        options->size = QSize(int(width), int(height));
    }
    if (parser.isSet(renderOption))
    {
        options->renderPath = parser.value(renderOption);
        if (options->renderPath.isEmpty())
        {
            *error = QStringLiteral("--render wants an output file name");
            return false;
        }
    }
    if (parser.isSet(galleryOption))
    {
        options->galleryDir = parser.value(galleryOption);
        if (options->galleryDir.isEmpty())
        {
            *error = QStringLiteral("--gallery wants a folder name");
            return false;
        }
        if (!options->renderPath.isEmpty())
        {
            *error = QStringLiteral("--gallery and --render exclude each other");
            return false;
        }
    }
    if (parser.isSet(dataOption))
    {
        // Without its files the map would show no land at all.
        options->dataDir = parser.value(dataOption);
        if (!QFileInfo(options->dataDir + QStringLiteral("/countries-110m.geojson")).isFile())
        {
            *error = QStringLiteral("--data wants a folder holding countries-110m.geojson, got '%1'")
                         .arg(options->dataDir);
            return false;
        }
    }
    return true;
}
