#pragma once

#include <QSize>
#include <QString>
#include <QStringList>

// Command line of zomapview.
struct ViewerOptions
{
    double centerLon = 10.0;
    double centerLat = 25.0;
    double zoom = 2.0;
    QSize size{1024, 640};
    QString renderPath; // non-empty: render to this PNG and exit
    QString galleryDir; // non-empty: render one picture per object kind here and exit
    QString dataDir;    // empty: the view's default
    bool helpRequested = false;
};

// Parses the arguments (the first is the program). On failure returns false
// and sets error to a one-line reason; helpText receives the usage either way.
bool ParseViewerOptions(const QStringList& arguments, ViewerOptions* options, QString* error, QString* helpText);
