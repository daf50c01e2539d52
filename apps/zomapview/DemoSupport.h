#pragma once

#include <QColor>
#include <QFont>
#include <QString>

#include <string>
#include <vector>

class IZoSurfaceStyleGraphicsMapObject;

// What the viewer's demos share: the library's text encoding, the capitals
// file and the look of outlines and names.

// Names and paths go to the library in GB18030.
std::string ToGB18030(const QString& text);

// One row of capitals.csv (name_en,name_zh,country,lon,lat).
struct SCapital
{
    QString nameEn;
    QString nameZh;
    double lon = 0.0;
    double lat = 0.0;
};

// The capitals of dataDir/capitals.csv with a readable position, in file
// order; none when the file cannot be read.
std::vector<SCapital> ReadCapitals(const QString& dataDir);

// Outline and fill of a shape.
void StyleSurface(IZoSurfaceStyleGraphicsMapObject* shape, const QColor& pen, const QColor& brush, float width);

// Shows the object's name in dark bold letters with a white halo, at a label
// position of its kind (surface and line kinds number them differently).
template <class Object>
void ShowName(Object* object, unsigned int labelPosition)
{
    object->SetNameFont(QFont(QStringLiteral("DejaVu Sans"), 9, QFont::Bold));
    object->SetNameColor(QColor(30, 30, 30));
    object->SetNameOutlineColor(Qt::white);
    object->SetNameOffset(3.0f);
    object->SetNameVisible(true);
    object->SetLabelPosition(labelPosition);
}
