#pragma once

#include <ZoGraphics/IZoGraphicsMapObject.h>

#include <QBrush>
#include <QColor>
#include <QPen>
#include <QPixmap>
#include <cstdint>
#include <string>

class QPainter;

// Outline and fill of a surface shape. Knows nothing of Qt items: the items
// turn it into a pen and a brush at paint time.
struct SurfaceStyle
{
    SurfaceStyle();

    std::uint32_t labelPosition = E_LABEL_BOTTOM;
    std::uint32_t labelAlignment = E_LABEL_ALIGN_MIDDLE;
    std::uint32_t penStyle = 1;       // Qt::PenStyle
    float penWidth = 1.0f;            // 0 draws no outline
    QColor penColor;
    std::uint32_t brushStyle = 1;     // Qt::BrushStyle
    QColor brushColor;
    QPixmap brushTexture;
    std::string brushTextureFile;     // as the caller gave it, GB18030

    void ApplyToPen(QPen& pen, double scale) const;
    // The texture is used only while the PEN style is Qt::TexturePattern (24):
    // textures loaded earlier stay hidden until the pen style says so.
    void ApplyToBrush(QBrush& brush) const;
    // Both on a painter: the outline pen scaled by scale, and the fill.
    void ApplyToPainter(QPainter* painter, double scale) const;
    // Stores the path, loads the picture (null when unreadable) and the style.
    // Refusals are logged as "[className::SetBrushTextureFile] ...".
    void LoadBrushTextureFile(std::uint32_t style, const std::string& path, const char* className = "SurfaceStyle");
};

// Pen and arrow of a line shape.
struct LineStyle
{
    LineStyle();

    std::uint32_t labelPosition = E_LABEL_FIRST_SEGMENT;
    std::uint32_t penStyle = 1;
    float penWidth = 1.0f;
    QColor penColor;
    bool arrowVisible = false;
    bool arrowAtEnd = true;

    void ApplyToPen(QPen& pen, double scale) const;
};
