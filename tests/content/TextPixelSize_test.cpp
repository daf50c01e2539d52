#include <ZoGraphics/ZoGraphics.h>
#include <ZoGraphics/ZoMapHost.h>
#include <QGraphicsItem>
#include <gtest/gtest.h>
#include <cmath>

// A text that keeps its pixel size (the default) keeps its width on screen
// between whole levels too, where the view rather than a rebuild scales the
// scene; with the switch off it is drawn at scale 1 and grows with the view.
TEST(TextPixelSize, KeepsItsScreenWidthAtFractionalZoomsUnlessToldToScale)
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
        if (scaleWithMap)
        {
            for (const double width : widths)
                EXPECT_NEAR(width, widths.front(), 1.0);
        }
        else
        {
            EXPECT_NEAR(widths[2], widths[0] * std::sqrt(2.0), 1.0);
            EXPECT_NEAR(widths[3], widths[0], 1.0);
        }
        graphics.Unintialise();
    }
}
