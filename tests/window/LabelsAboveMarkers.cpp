// Names on a decluttered layer, as the X server shows them: above a marker
// made after their dot that covers where the name stands.
#include <ZoGraphics/ZoGraphics.h>
#include <ZoGraphics/ZoMapHost.h>

#include <QScreen>
#include <QTest>
#include <gtest/gtest.h>

TEST(LabelsAboveMarkers, TheScreenShowsTheNameOverTheLaterMarker)
{
    ASSERT_NE(QGuiApplication::platformName(), QStringLiteral("offscreen"));
    CZoMapModule module;
    module.SetZoomAround(5.0, 10.0, 50.0);
    CZoGraphicsModule graphics;
    ASSERT_TRUE(graphics.Initialise("window", &module));
    IZoGraphicsMapLayer* layer = graphics.CreateGraphicsLayer("towns");
    dynamic_cast<IZoLabelDeclutter*>(layer)->SetLabelDeclutter(true);
    IZoDotMapObject* town = graphics.CreateDotMapObject("Blue Town", layer);
    town->SetPosition(CVector3D(10.0, 50.0, 0.0));
    town->SetRadius(3.0);
    town->SetLabelPosition(3);
    town->SetNameFont(QFont(QStringLiteral("DejaVu Sans"), 14, QFont::Bold));
    town->SetNameColor(QColor(0, 0, 255));
    town->SetNameOutlineWidth(0.0);
    town->SetNameVisible(true);
    IZoDotMapObject* marker = graphics.CreateDotMapObject("marker", layer);
    marker->SetPosition(CVector3D(12.0, 50.0, 0.0));
    marker->SetRadius(150.0); // covers the whole name
    marker->SetBrushColor(QColor(0, 160, 0));
    marker->SetPenWidth(0.0f);

    CZoMapView view(&module);
    view.resize(400, 300);
    view.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&view));
    QImage screen;
    int blue = 0;
    int green = 0;
    // Until the paint has reached the X server.
    for (int attempt = 0; attempt < 50 && (blue == 0 || green == 0); ++attempt)
    {
        QTest::qWait(20);
        screen = view.screen()
                     ->grabWindow(view.winId(), 0, 0, view.viewport()->width(), view.viewport()->height())
                     .toImage()
                     .convertToFormat(QImage::Format_RGB32);
        blue = 0;
        green = 0;
        for (int y = 0; y < screen.height(); ++y)
            for (int x = 0; x < screen.width(); ++x)
            {
                const QRgb p = screen.pixel(x, y);
                blue += qBlue(p) > 200 && qRed(p) < 60 && qGreen(p) < 60;
                green += qGreen(p) > 140 && qGreen(p) < 180 && qRed(p) < 30 && qBlue(p) < 30;
            }
    }
    EXPECT_GT(green, 5000); // the marker shows
    EXPECT_GT(blue, 50);    // and the name over it
    graphics.Unintialise();
}
