#pragma once

// The viewer's editable user on a shown reference view, with a rectangle, a
// line and a dot to edit, driven by real mouse events.
#include "apps/zomapview/EditingDemo.h"

#include <ZoGraphics/ZoGraphics.h>
#include <ZoGraphics/ZoMapHost.h>

#include <QApplication>
#include <QGraphicsItem>
#include <QMouseEvent>
#include <QTest>
#include <gtest/gtest.h>

#include <memory>

inline constexpr double kTolerance = 1e-9;

class ViewerEditingTest : public testing::Test
{
protected:
    void SetUp() override
    {
        map.SetZoomAround(5.0, 140.0, -28.0);
        ASSERT_TRUE(graphics.Initialise("editing", &map));
        view = std::make_unique<CZoMapView>(&map);
        view->SetBasemapDataDir(QStringLiteral(ZO_SOURCE_DATA_DIR));
        view->resize(640, 480);
        view->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(view.get()));
        editor = std::make_unique<CViewerEditor>(graphics, *view);
        rect = graphics.CreateRectangleMapObject("area", nullptr);
        rect->SetExtent(EXTENT{138.0, -30.0, 142.0, -26.0});
        rect->SetInteractive(true);
        line = graphics.CreatePolylineMapObject("route", nullptr);
        line->SetData({CVector3D(130.0, -20.0, 0), CVector3D(134.0, -22.0, 0), CVector3D(136.0, -32.0, 0)});
        line->SetInteractive(true);
        dot = graphics.CreateDotMapObject("town", nullptr);
        dot->SetPosition(CVector3D(128.0, -30.0, 0));
        dot->SetInteractive(true);
        for (IZoGraphicsMapObject* object : std::initializer_list<IZoGraphicsMapObject*>{rect, line, dot})
            editor->AddEditable(object);
    }
    void TearDown() override
    {
        editor.reset();
        view.reset();
        graphics.Unintialise();
    }

    QPoint At(double lon, double lat) const
    {
        QPointF scene;
        EXPECT_TRUE(map.GeoToScenePoint(lon, lat, &scene));
        return view->mapFromScene(scene);
    }
    QPoint At(IZoGraphicsMapObject* handle) const { return view->mapFromScene(handle->GetQtItem()->pos()); }
    CVector3D Geo(const QPoint& p) const
    {
        CVector3D geo;
        EXPECT_TRUE(view->ConvertPixelToGeo(p.x(), p.y(), &geo.x, &geo.y));
        return geo;
    }
    void Send(QEvent::Type type, const QPoint& at, Qt::MouseButtons held)
    {
        const Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
        QMouseEvent event(type, at, view->viewport()->mapToGlobal(at), button, held, Qt::NoModifier);
        QApplication::sendEvent(view->viewport(), &event);
    }
    // Press, move in small steps, and release (or keep the button down).
    void Drag(const QPoint& from, const QPoint& to, bool release = true)
    {
        Send(QEvent::MouseMove, from, Qt::NoButton);
        Send(QEvent::MouseButtonPress, from, Qt::LeftButton);
        constexpr int kSteps = 12;
        for (int i = 1; i <= kSteps; ++i)
            Send(QEvent::MouseMove, from + (to - from) * i / kSteps, Qt::LeftButton);
        if (release)
            Send(QEvent::MouseButtonRelease, to, Qt::NoButton);
    }
    static void ExpectExtent(const EXTENT& a, const EXTENT& b)
    {
        EXPECT_NEAR(a.xmin, b.xmin, kTolerance);
        EXPECT_NEAR(a.ymin, b.ymin, kTolerance);
        EXPECT_NEAR(a.xmax, b.xmax, kTolerance);
        EXPECT_NEAR(a.ymax, b.ymax, kTolerance);
    }

    CZoMapModule map;
    CZoGraphicsModule graphics;
    std::unique_ptr<CZoMapView> view;
    std::unique_ptr<CViewerEditor> editor;
    IZoRectangleMapObject* rect = nullptr;
    IZoPolylineMapObject* line = nullptr;
    IZoDotMapObject* dot = nullptr;
};
