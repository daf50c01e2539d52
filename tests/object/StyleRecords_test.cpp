#include "object/ZoStyleRecords.h"

#include <gtest/gtest.h>

TEST(StyleRecords, ZeroWidthMeansNoPenAndKeepsTheRest)
{
    SurfaceStyle style;
    style.penColor = Qt::green;
    style.penStyle = Qt::DashLine;
    style.penWidth = 0.0f;
    QPen pen(Qt::red);
    pen.setWidthF(3.0);
    style.ApplyToPen(pen, 2.0);
    EXPECT_EQ(pen.style(), Qt::NoPen);
    EXPECT_EQ(pen.color(), QColor(Qt::red));
    EXPECT_EQ(pen.widthF(), 3.0);

    style.penWidth = 1.5f;
    style.ApplyToPen(pen, 2.0);
    EXPECT_EQ(pen.style(), Qt::DashLine);
    EXPECT_EQ(pen.color(), QColor(Qt::green));
    EXPECT_DOUBLE_EQ(pen.widthF(), 3.0);

    LineStyle line;
    line.penWidth = 0.0f;
    QPen linePen;
    line.ApplyToPen(linePen, 1.0);
    EXPECT_EQ(linePen.style(), Qt::NoPen);
}

TEST(StyleRecords, TheTextureShowsOnlyUnderTheTexturePenStyle)
{
    SurfaceStyle style;
    QPixmap texture(4, 4);
    texture.fill(Qt::magenta);
    style.brushTexture = texture;
    style.brushStyle = Qt::TexturePattern;
    style.brushColor = Qt::yellow;

    // Qt refuses a texture style without a texture, so the brush keeps its
    // old style and takes the colour.
    QBrush brush;
    style.ApplyToBrush(brush);
    EXPECT_EQ(brush.color(), QColor(Qt::yellow));
    EXPECT_TRUE(brush.texture().isNull());

    style.penStyle = Qt::TexturePattern;
    style.ApplyToBrush(brush);
    EXPECT_EQ(brush.texture().size(), QSize(4, 4));
}

TEST(StyleRecords, TextureFilesKeepTheirPathAndLoadNullWhenMissing)
{
    SurfaceStyle style;
    style.LoadBrushTextureFile(Qt::TexturePattern, "/nonexistent/texture.png");
    EXPECT_TRUE(style.brushTexture.isNull());
    EXPECT_EQ(style.brushTextureFile, "/nonexistent/texture.png");
    EXPECT_EQ(style.brushStyle, unsigned(Qt::TexturePattern));
    // Loading from the stored string itself must not lose it.
    style.LoadBrushTextureFile(Qt::SolidPattern, style.brushTextureFile);
    EXPECT_EQ(style.brushTextureFile, "/nonexistent/texture.png");
}
