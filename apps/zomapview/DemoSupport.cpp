#include "DemoSupport.h"

#include <ZoGraphics/ZoGraphics.h>

#include <QFile>
#include <QTextStream>

void StyleSurface(IZoSurfaceStyleGraphicsMapObject* shape, const QColor& pen, const QColor& brush, float width)
{
    shape->SetPenColor(pen);
    shape->SetPenWidth(width);
    shape->SetBrushColor(brush);
}

std::string ToGB18030(const QString& text)
{
    return ConvertQStringToStdString(text, ZoGraphicsConstantNS::STR_CODE_PAGE);
}

std::vector<SCapital> ReadCapitals(const QString& dataDir)
{
    std::vector<SCapital> capitals;
    QFile file(dataDir + QStringLiteral("/capitals.csv"));
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return capitals;
    // Decoded here: a stream's own default is the locale's codec under Qt 5
    // and UTF-8 under Qt 6.
    QString text = QString::fromUtf8(file.readAll());
    QTextStream in(&text, QIODevice::ReadOnly);
    in.readLine(); // name_en,name_zh,country,lon,lat
    while (!in.atEnd())
    {
        const QStringList fields = in.readLine().split(QLatin1Char(','));
        SCapital capital;
        bool lonOk = false;
        bool latOk = false;
        capital.lon = fields.value(3).toDouble(&lonOk);
        capital.lat = fields.value(4).toDouble(&latOk);
        if (fields.size() != 5 || !lonOk || !latOk)
            continue;
        capital.nameEn = fields.at(0);
        capital.nameZh = fields.at(1);
        capitals.push_back(capital);
    }
    return capitals;
}
