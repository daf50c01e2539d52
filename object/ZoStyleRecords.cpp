#include "object/ZoStyleRecords.h"

#include "object/ZoPictureReader.h"

#include <ZoGraphics/ZoCoreUtility.h>
#include <ZoGraphics/ZoGraphicsConstant.h>

#include <QPainter>

namespace
{
void ApplyPen(QPen& pen, float width, const QColor& color, std::uint32_t style, double scale)
{
    if (IsEqual(width, 0.0f))
    {
        pen.setStyle(Qt::NoPen);
        return;
    }
    pen.setColor(color);
    pen.setStyle(static_cast<Qt::PenStyle>(style));
    pen.setWidthF(static_cast<double>(width) * scale);
}
} // namespace

SurfaceStyle::SurfaceStyle()
    : penColor(ZoGraphicsConstantNS::CLR_DEFAULT_OUTLINE), brushColor(ZoGraphicsConstantNS::CLR_DEFAULT_FILL)
{
}

void SurfaceStyle::ApplyToPen(QPen& pen, double scale) const
{
    ApplyPen(pen, penWidth, penColor, penStyle, scale);
}

void SurfaceStyle::ApplyToBrush(QBrush& brush) const
{
    brush.setStyle(static_cast<Qt::BrushStyle>(brushStyle));
    if (penStyle == Qt::TexturePattern)
        brush.setTexture(brushTexture);
    else
        brush.setColor(brushColor);
}

void SurfaceStyle::ApplyToPainter(QPainter* painter, double scale) const
{
    QPen pen;
    ApplyToPen(pen, scale);
    QBrush brush;
    ApplyToBrush(brush);
    painter->setPen(pen);
    painter->setBrush(brush);
}

void SurfaceStyle::LoadBrushTextureFile(std::uint32_t style, const std::string& path, const char* className)
{
    if (&path != &brushTextureFile)
        brushTextureFile = path;
    brushTexture = QPixmap::fromImage(ZoReadPicture(
        ConvertStdStringToQString(brushTextureFile, ZoGraphicsConstantNS::STR_CODE_PAGE),
        SZoLogSite{className, "SetBrushTextureFile"}));
    brushStyle = style;
}

LineStyle::LineStyle() : penColor(ZoGraphicsConstantNS::CLR_DEFAULT_OUTLINE) {}

void LineStyle::ApplyToPen(QPen& pen, double scale) const
{
    ApplyPen(pen, penWidth, penColor, penStyle, scale);
}
