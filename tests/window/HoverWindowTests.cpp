// The pointer over a real window: an interactive dot made after the view is
// shown is entered and left, and the view publishes both.
#include <ZoGraphics/ZoGraphics.h>
#include <ZoGraphics/ZoMapHost.h>

#include <QSignalSpy>
#include <QTest>
#include <gtest/gtest.h>

TEST(HoverWindow, TheViewPublishesEnteringAndLeavingADot)
{
    CZoMapModule module;
    module.SetZoomAround(3.0, 10.0, 50.0);
    CZoMapView view(&module);
    view.resize(400, 300);
    view.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&view));
    CZoGraphicsModule graphics;
    ASSERT_TRUE(graphics.Initialise("hover", &module));
    IZoDotMapObject* dot = graphics.CreateDotMapObject("dot", nullptr);
    dot->SetPosition(CVector3D(10.0, 50.0, 0.0));
    dot->SetRadius(8.0);
    dot->SetInteractive(true);
    QPointF scene;
    ASSERT_TRUE(module.GeoToScenePoint(10.0, 50.0, &scene));
    const QPoint over = view.mapFromScene(scene);

    QSignalSpy published(&view, &CZoMapView::sceneEvent);
    const auto publishedName = [&](const QString& name) {
        for (const QList<QVariant>& signal : published)
        {
            if (signal.at(0).toString() == name)
            {
                EXPECT_EQ(signal.at(1).toList(), QVariantList{dot->GetObjectID()});
                return true;
            }
        }
        return false;
    };
    QTest::mouseMove(view.viewport(), over + QPoint(60, 0));
    QTest::mouseMove(view.viewport(), over);
    EXPECT_TRUE(QTest::qWaitFor([&] { return publishedName(QStringLiteral("Scene_HoverEnter")); }, 5000));
    QTest::mouseMove(view.viewport(), over + QPoint(60, 0));
    EXPECT_TRUE(QTest::qWaitFor([&] { return publishedName(QStringLiteral("Scene_HoverLeave")); }, 5000));
    graphics.Unintialise();
}
