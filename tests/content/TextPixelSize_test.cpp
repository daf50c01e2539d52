#include <ZoGraphics/ZoGraphics.h>
#include <ZoGraphics/ZoMapHost.h>

#include <QGraphicsItem>
#include <gtest/gtest.h>

// A text is sized in pixels: between whole levels, where the view scales the
// scene, it keeps its width on screen, whichever way its switch is set.
TEST(TextPixelSize, KeepsItsScreenWidthAtFractionalZooms)
{
    for (const bool scaleWithMap : {true, false})
    {
        CZoMapModule map;
        CZoGraphicsModule graphics;
        ASSERT_TRUE(graphics.Initialise("texts", &map));
        IZoTextMapObject* text = graphics.CreateTextMapObject("label", graphics.GetDeafultGraphicsLayer());
        ASSERT_NE(text, nullptr);
        text->SetPosition(CVector3D(10.0, 50.0, 0.0));
        text->SetText("Pixel sized");
        text->SetScaleWithMap(scaleWithMap);
        std::vector<double> widths;
        for (const double zoom : {3.0, 3.25, 3.5, 4.0})
        {
            map.SetZoom(zoom);
            widths.push_back(text->GetQtItem()->sceneBoundingRect().width() * map.GetViewScale());
        }
        for (const double width : widths)
            EXPECT_NEAR(width, widths.front(), 1.0) << "scale with map " << scaleWithMap;
        graphics.Unintialise();
    }
}
