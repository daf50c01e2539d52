#include "content/text/ZoTextBlockMetrics.h"

#include <ZoGraphics/ZoCoreUtility.h>
#include <ZoGraphics/ZoGraphicsConstant.h>
#include <ZoGraphics/ZoTileModel.h>

#include <QFontMetrics>
#include <QStringList>
#include <cmath>

namespace
{
constexpr int kBoxLevel = 21;
constexpr int kGeodeticTileModel = 2;
} // namespace

QSizeF ZoMeasureTextBlock(const std::string& text, const QFont& font)
{
    const QString decoded = ConvertStdStringToQString(text, ZoGraphicsConstantNS::STR_CODE_PAGE);
    const QFontMetrics metrics(font);
    const int lineHeight = metrics.height();
    double width = metrics.horizontalAdvance(decoded);
    const QStringList lines = decoded.split(QLatin1Char('\n'), Qt::KeepEmptyParts);
    if (!lines.isEmpty())
    {
        int longest = 0;
        for (int i = 1; i < lines.size(); ++i)
        {
            if (lines[i].size() > lines[longest].size())
                longest = i;
        }
        width = metrics.horizontalAdvance(lines[longest]);
    }
    return QSizeF(width, static_cast<double>(lineHeight) * lines.size());
}

bool ZoGeoAtPixelOffset(const CVector3D& position, double dx, double dy, CVector3D* result)
{
    if (!std::isfinite(position.x) || !std::isfinite(position.y) || !std::isfinite(dx) || !std::isfinite(dy))
        return false;
    const CTileModel* tiles = ITileModel::GetTileModel(kGeodeticTileModel, true);
    int px = 0;
    int py = 0;
    if (!tiles || !tiles->ConvertGeoToPixel(&px, &py, kBoxLevel, position.x, position.y))
        return false;
    CVector3D geo;
    if (!tiles->ConvertPixelToGeo(&geo.x, &geo.y, kBoxLevel, px + dx, py + dy))
        return false;
    *result = geo;
    return true;
}
