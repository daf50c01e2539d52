#include "object/ZoStyleRecords.h"

#include <gtest/gtest.h>

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
