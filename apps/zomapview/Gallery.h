#pragma once

#include <QSize>
#include <QString>
#include <QStringList>

#include <vector>

// The viewer's gallery: one picture per object kind, each kind alone on a map
// of its own, seen at a place and zoom that suit it.

// Where the picture of one kind looks.
struct SGalleryView
{
    QString kind; // the file name without ".png"
    double lon;
    double lat;
    double zoom;
};

// The size of every picture.
QSize GallerySize();

// The kinds in the gallery's order.
std::vector<SGalleryView> GalleryViews();

// Renders every kind to dir/<kind>.png, making dir if it is missing; dataDir
// holds the basemap and the demos' files. Appends each file written to
// written; on the first file that cannot be written, stops and returns false
// with a one-line reason in error.
bool WriteGallery(const QString& dir, const QString& dataDir, QStringList* written, QString* error);
