#include "content/markpoint/CZoMarkPointMapObject.h"

#include "content/text/ZoTextBlockMetrics.h"
#include "object/ZoPictureReader.h"
#include "object/ZoPixelValues.h"

#include <ZoGraphics/ZoCoreUtility.h>
#include <ZoGraphics/ZoGraphicsConstant.h>

#include <QFileIconProvider>
#include <QFileInfo>
#include <QMimeDatabase>
#include <cmath>

namespace
{
constexpr int kVideoIconSize = 64;

// The picture a file stands for: image files are read (by content when the
// name misleads), video files show the system's icon for them, anything else
// gives no picture.
QPixmap PictureOfFile(const QString& path)
{
    const SZoLogSite site{"CZoMarkPointMapObject", "SetIconFile"};
    QPixmap picture;
    if (!ZoCheckRegularFile(path, site))
        return picture;
    const QFileInfo info(path);
    const QString type = QMimeDatabase().mimeTypeForFile(info).name();
    if (type.startsWith(QLatin1String("image/")))
        return QPixmap::fromImage(ZoReadPicture(path, site));
    if (type.startsWith(QLatin1String("video/")))
        return QFileIconProvider().icon(info).pixmap(kVideoIconSize, kVideoIconSize, QIcon::Normal, QIcon::Off);
    return picture;
}
} // namespace

void CZoMarkPointMapObject::SetPosition(const CVector3D& position)
{
    m_position = position;
    if (!GetItem())
        return;
    Core().UpdatePosition();
    GetItem()->RebuildName(false);
    Core().Update();
}

QPointF CZoMarkPointMapObject::ConvertAnchorToPixel()
{
    return Core().ConvertGeoToScenePixel(m_position, kLogNames.anchorConvertMethod);
}

void CZoMarkPointMapObject::SetRotateAngle(double degrees)
{
    if (!std::isfinite(degrees))
        return;
    // Kept strictly inside (-360, 360), sign preserved.
    m_angle = std::fmod(degrees, 360.0);
    Core().PrepareGeometryChange();
    Core().Update();
}

void CZoMarkPointMapObject::SetIconSize(double width, double height)
{
    if (!ZoPlausiblePixels(width) || !ZoPlausiblePixels(height))
        return;
    m_iconWidth = width;
    m_iconHeight = height;
    RelayoutIcon();
}

void CZoMarkPointMapObject::SetIconAnchor(const CVector3D& anchor)
{
    if (!ZoPlausiblePixels(anchor.x) || !ZoPlausiblePixels(anchor.y))
        return;
    m_iconAnchor = anchor;
    RelayoutIcon();
}

void CZoMarkPointMapObject::SetIconFile(const std::string& path)
{
    m_iconFile = path;
    SetIcon(PictureOfFile(ConvertStdStringToQString(path, ZoGraphicsConstantNS::STR_CODE_PAGE)));
}

void CZoMarkPointMapObject::SetIcon(const QPixmap& icon)
{
    m_icon = icon;
    m_iconImage = icon.toImage();
    if (m_iconHeight <= 0.0)
        m_iconHeight = icon.height();
    if (m_iconWidth <= 0.0)
        m_iconWidth = icon.width();
    RelayoutIcon();
}

void CZoMarkPointMapObject::SetIconVisible(bool visible)
{
    m_iconVisible = visible;
    Core().RebuildAndRepaint(false);
}

void CZoMarkPointMapObject::SetLabelPosition(unsigned int position)
{
    m_labelPosition = position;
    Core().RelayoutNameAndRepaint(false);
}

void CZoMarkPointMapObject::SetLabelAlignment(unsigned int alignment)
{
    m_labelAlignment = alignment;
    Core().RelayoutNameAndRepaint(false);
}

void CZoMarkPointMapObject::RelayoutIcon()
{
    Core().PrepareGeometryChange();
    Core().RebuildAndRepaint(false);
}

CAABB CalculateTypicalMarkPointBoudingBox(const std::string& text, const QFont& font, const CVector3D& position,
                                          int iconWidth, int iconHeight, double scale)
{
    const QSizeF block = ZoMeasureTextBlock(text, font);
    // The icon's width stands for the pin as soon as it passes half the text's.
    const double width = iconWidth > block.width() * 0.5 ? iconWidth : block.width();
    CAABB box;
    CVector3D a;
    CVector3D b;
    if (!ZoGeoAtPixelOffset(position, -width * 0.5 * scale, -iconHeight * scale, &a) ||
        !ZoGeoAtPixelOffset(position, width * 0.5 * scale, block.height() * scale, &b))
        return box;
    box.Extend(a);
    box.Extend(b);
    return box;
}
