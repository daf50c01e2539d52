// The graphics library running on the reference host: objects follow the
// host's levels, and their items' events reach the view's handlers and signal.
#include <ZoGraphics/CZoGraphicsModule.h>
#include <ZoGraphics/CZoMapModule.h>
#include <ZoGraphics/CZoMapView.h>
#include <ZoGraphics/IZoDotMapObject.h>

#include "host/MapHostRecordingHandler.h"

#include <QApplication>
#include <QGraphicsItem>
#include <QMouseEvent>
#include <QSignalSpy>
#include <QTest>
#include <gtest/gtest.h>

TEST(MapHostGraphics, ADotFollowsTheLevelAndAPressOnItReachesHandlersAndTheSignal)
{
    CZoMapModule map;
    map.SetZoomAround(5.0, 13.4, 52.52);
    CZoGraphicsModule graphics;
    ASSERT_TRUE(graphics.Initialise("host-graphics", &map));
    IZoDotMapObject* dot = graphics.CreateDotMapObject("Berlin", nullptr);
    dot->SetPosition(CVector3D(13.4, 52.52, 0.0));
    dot->SetRadius(8.0);
    dot->SetInteractive(true);
    QGraphicsItem* item = dot->GetQtItem();
    EXPECT_EQ(item->scene(), map.GetScene());
    for (double zoom : {2.0, 7.5, 12.25, 4.0})
    {
        map.SetZoom(zoom);
        int px = 0, py = 0;
        EXPECT_TRUE(map.ConvertSceneToPixel(&px, &py, 13.4, 52.52));
        EXPECT_EQ(item->pos(), QPointF(px, py)) << "zoom " << zoom;
    }

    CZoMapView view(&map);
    view.resize(300, 200);
    view.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&view));
    MapHostRecordingHandler handler("view");
    map.RegisterEventHandler(&handler, 0);
    QSignalSpy published(&view, &CZoMapView::sceneEvent);
    const QPoint at = view.mapFromScene(item->pos());
    QMouseEvent press(QEvent::MouseButtonPress, at, view.viewport()->mapToGlobal(at), Qt::LeftButton, Qt::LeftButton,
                      Qt::NoModifier);
    QApplication::sendEvent(view.viewport(), &press);
    const std::vector<std::string> presses = handler.CallsOf("OnMousePress");
    ASSERT_EQ(presses.size(), 1u);
    EXPECT_EQ(presses[0].substr(presses[0].find('#')), "#" + std::to_string(dot->GetObjectID()));
    // The press also brings hover records along; the press record holds the dot.
    QVariantList pressed;
    for (const QList<QVariant>& signal : published)
    {
        if (signal.at(0).toString() == QStringLiteral("Scene_MousePress"))
            pressed = signal.at(1).toList();
    }
    EXPECT_EQ(pressed, QVariantList{dot->GetObjectID()});
    map.UnregisterEventHandler(&handler);
    graphics.Unintialise();
}
