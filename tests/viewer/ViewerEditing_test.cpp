// The viewer's editing round trip through real mouse and key events on the
// reference view: each tool changes the object where the pointer says, each
// step undoes and redoes, Escape in mid-drag loses nothing, vertices snap to
// other objects' vertices.
#include "apps/zomapview/EditingDemo.h"
#include "edit/CKeyPointSet.h"
#include "edit/CRotationAxis.h"
#include "edit/CScaleBox.h"
#include "edit/CTranslateBall.h"

#include <ZoGraphics/ZoGraphics.h>
#include <ZoGraphics/ZoMapHost.h>

#include <QApplication>
#include <QGraphicsItem>
#include <QMouseEvent>
#include <QTest>
#include <gtest/gtest.h>

#include <initializer_list>
#include <memory>

namespace
{
constexpr double kTolerance = 1e-9;

void ExpectSamePoints(const std::vector<CVector3D>& actual, const std::vector<CVector3D>& expected)
{
    ASSERT_EQ(actual.size(), expected.size());
    for (std::size_t i = 0; i < actual.size(); ++i)
    {
        EXPECT_NEAR(actual[i].x, expected[i].x, kTolerance) << "point " << i;
        EXPECT_NEAR(actual[i].y, expected[i].y, kTolerance) << "point " << i;
    }
}

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
        QMouseEvent event(type, at, view->viewport()->mapToGlobal(at),
                          type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton, held, Qt::NoModifier);
        QApplication::sendEvent(view->viewport(), &event);
    }
    // Press, move in small steps, and release (or keep the button down).
    void Drag(const QPoint& from, const QPoint& to, bool release = true)
    {
        Send(QEvent::MouseMove, from, Qt::NoButton);
        Send(QEvent::MouseButtonPress, from, Qt::LeftButton);
        for (int i = 1; i <= 12; ++i)
            Send(QEvent::MouseMove, from + (to - from) * i / 12, Qt::LeftButton);
        if (release)
            Send(QEvent::MouseButtonRelease, to, Qt::NoButton);
    }
    static void ExpectExtent(const EXTENT& a, const EXTENT& b)
    {
        ExpectSamePoints({{a.xmin, a.ymin, 0}, {a.xmax, a.ymax, 0}}, {{b.xmin, b.ymin, 0}, {b.xmax, b.ymax, 0}});
    }

    CZoMapModule map;
    CZoGraphicsModule graphics;
    std::unique_ptr<CZoMapView> view;
    std::unique_ptr<CViewerEditor> editor;
    IZoRectangleMapObject* rect = nullptr;
    IZoPolylineMapObject* line = nullptr;
    IZoDotMapObject* dot = nullptr;
};
} // namespace

TEST_F(ViewerEditingTest, AClickSelectsAndTheBallMovesTheObjectInOneUndoStep)
{
    Send(QEvent::MouseButtonPress, At(139.0, -29.0), Qt::LeftButton);
    Send(QEvent::MouseButtonRelease, At(139.0, -29.0), Qt::NoButton);
    ASSERT_EQ(editor->GetSelected(), rect);
    auto* ball = static_cast<CTranslateBall*>(editor->GetGadget(CViewerEditor::kMove));
    const QPoint from = At(ball->GetDot());
    EXPECT_EQ(from, At(140.0, -28.0));
    // Escape through the view cancels the gesture.
    Drag(from, from + QPoint(50, 0), false);
    EXPECT_GT(rect->GetExtent().xmin, 138.0);
    QTest::keyClick(view.get(), Qt::Key_Escape);
    Send(QEvent::MouseButtonRelease, from + QPoint(50, 0), Qt::NoButton);
    ExpectExtent(rect->GetExtent(), EXTENT{138.0, -30.0, 142.0, -26.0});
    EXPECT_EQ(editor->GetUndoStack()->count(), 0);

    const QPoint to = from + QPoint(90, 40);
    Drag(from, to);
    const CVector3D moved = Geo(to);
    ExpectExtent(rect->GetExtent(), EXTENT{moved.x - 2.0, moved.y - 2.0, moved.x + 2.0, moved.y + 2.0});
    EXPECT_EQ(At(ball->GetDot()), to);
    ASSERT_EQ(editor->GetUndoStack()->count(), 1);
    editor->GetUndoStack()->undo();
    ExpectExtent(rect->GetExtent(), EXTENT{138.0, -30.0, 142.0, -26.0});
    EXPECT_EQ(At(ball->GetDot()), from);
    editor->GetUndoStack()->redo();
    EXPECT_NEAR(rect->GetExtent().xmin, moved.x - 2.0, kTolerance);

    // A pointer jumping far past the handle still drags it: the view holds
    // the pointer for the gadget that took the press.
    editor->Select(dot);
    const QPoint town = At(ball->GetDot());
    Send(QEvent::MouseMove, town, Qt::NoButton);
    Send(QEvent::MouseButtonPress, town, Qt::LeftButton);
    Send(QEvent::MouseMove, town + QPoint(200, -120), Qt::LeftButton);
    Send(QEvent::MouseButtonRelease, town + QPoint(200, -120), Qt::NoButton);
    EXPECT_EQ(At(dot), town + QPoint(200, -120));
    EXPECT_EQ(editor->GetUndoStack()->count(), 2);
}

TEST_F(ViewerEditingTest, TheScaleBoxResizesAndTheAxisTurnsEachInOneUndoStep)
{
    editor->Select(rect);
    editor->SetTool(CViewerEditor::kScale);
    auto* box = static_cast<CScaleBox*>(editor->GetGadget(CViewerEditor::kScale));
    const QPoint from = At(box->GetHandle(2));
    Drag(from, from + QPoint(60, 30));
    const CVector3D corner = Geo(from + QPoint(60, 30));
    ExpectExtent(rect->GetExtent(), EXTENT{138.0, corner.y, corner.x, -26.0});
    EXPECT_EQ(At(box->GetHandle(2)), from + QPoint(60, 30));
    editor->GetUndoStack()->undo();
    ExpectExtent(rect->GetExtent(), EXTENT{138.0, -30.0, 142.0, -26.0});
    EXPECT_EQ(At(box->GetHandle(2)), from);

    editor->SetTool(CViewerEditor::kRotate);
    auto* axis = static_cast<CRotationAxis*>(editor->GetGadget(CViewerEditor::kRotate));
    // The handle ends an arm straight up from the pivot, at the rectangle's centre.
    const QPoint centre = At(140.0, -28.0);
    const QPoint handle = At(axis->GetDot());
    EXPECT_EQ(handle.x(), centre.x());
    EXPECT_LT(handle.y(), centre.y() - 30);
    Send(QEvent::MouseMove, handle, Qt::NoButton);
    Send(QEvent::MouseButtonPress, handle, Qt::LeftButton);
    for (QPoint p : {QPoint(0, -60), QPoint(42, -42), QPoint(60, 0)})
        Send(QEvent::MouseMove, centre + p, Qt::LeftButton);
    EXPECT_TRUE(axis->GetLabel()->IsVisible());
    Send(QEvent::MouseButtonRelease, centre + QPoint(60, 0), Qt::NoButton);
    EXPECT_NEAR(rect->GetRotation(), 90.0, 1e-6);
    editor->GetUndoStack()->undo();
    EXPECT_DOUBLE_EQ(rect->GetRotation(), 0.0);
}

TEST_F(ViewerEditingTest, VerticesMoveInsertFromAMidpointSnapAndDeleteEachStepUndoing)
{
    editor->Select(line);
    editor->SetTool(CViewerEditor::kVertices);
    auto* set = static_cast<CKeyPointSet*>(editor->GetGadget(CViewerEditor::kVertices));
    ASSERT_EQ(set->GetPointCount(), 3);
    const std::vector<CVector3D> original = line->GetData();
    const QPoint vertex = At(set->GetPointHandle(1));
    Drag(vertex, vertex + QPoint(-30, 25));
    ExpectSamePoints({line->At(1)}, {Geo(vertex + QPoint(-30, 25))});

    // A point dragged out of a midpoint shows on the line at once and snaps
    // to the rectangle's corner within 10 pixels.
    const CVector3D corner(138.0, -30.0, 0.0);
    const QPoint near = At(corner.x, corner.y) + QPoint(3, -4);
    Drag(At(set->GetIndicatorHandle(1)), near, false);
    ASSERT_EQ(line->GetPointNumber(), 4);
    EXPECT_EQ(line->At(2), corner);
    EXPECT_TRUE(editor->GetSnapHint()->IsVisible());
    EXPECT_EQ(editor->GetSnapHint()->GetPosition(), corner);
    Send(QEvent::MouseButtonRelease, near, Qt::NoButton);
    EXPECT_EQ(line->At(2), corner);
    EXPECT_EQ(set->GetPointHandle(2)->GetPosition(), corner);
    EXPECT_FALSE(editor->GetSnapHint()->IsVisible());
    // Escape takes a shown point away again; farther than 10 pixels, no snap.
    const QPoint middle = At(set->GetIndicatorHandle(0));
    Drag(middle, middle + QPoint(0, -40), false);
    EXPECT_EQ(line->GetPointNumber(), 5);
    QTest::keyClick(view.get(), Qt::Key_Escape);
    Send(QEvent::MouseButtonRelease, middle + QPoint(0, -40), Qt::NoButton);
    EXPECT_EQ(line->GetPointNumber(), 4);
    Drag(At(set->GetPointHandle(3)), At(corner.x, corner.y) + QPoint(20, 20));
    EXPECT_NE(line->At(3), corner);

    const QPoint last = At(set->GetPointHandle(3));
    Send(QEvent::MouseMove, last, Qt::NoButton);
    QTest::mouseDClick(view->viewport(), Qt::LeftButton, Qt::NoModifier, last);
    EXPECT_EQ(line->GetPointNumber(), 3);
    EXPECT_EQ(set->GetPointCount(), 3);
    ASSERT_EQ(editor->GetUndoStack()->count(), 4);
    editor->GetUndoStack()->undo();
    EXPECT_EQ(line->GetPointNumber(), 4);
    for (int i = 0; i < 3; ++i)
        editor->GetUndoStack()->undo();
    EXPECT_EQ(line->GetData(), original);
    EXPECT_EQ(set->GetPointCount(), 3);
    EXPECT_EQ(set->GetPointHandle(1)->GetPosition(), original[1]);
}

// The route turns by the angle reached, about the pivot it had at the press:
// the path of the pointer does not matter, and turns add up to a full one.
TEST_F(ViewerEditingTest, TurningALineDependsOnTheAngleAloneAndAFullTurnRestoresIt)
{
    editor->Select(line);
    editor->SetTool(CViewerEditor::kRotate);
    IZoGraphicsEditObject* axis = editor->GetGadget(CViewerEditor::kRotate);
    const std::vector<CVector3D> original = line->GetData();
    const CVector3D pivot = editor->GetEditorControlPoint(axis);
    const auto turn = [this, axis](std::initializer_list<double> angles) {
        editor->OnStartRotation(axis);
        for (double angle : angles)
            editor->OnProcessRotation(axis, angle, angle);
        editor->OnCompleteRotation(axis, *(angles.end() - 1));
    };
    turn({100.0});
    const std::vector<CVector3D> direct = line->GetData();
    editor->Undo();
    turn({20.0, 40.0, 60.0, 80.0, 100.0});
    ExpectSamePoints(line->GetData(), direct);
    turn({90.0, 180.0, 260.0});
    ExpectSamePoints(line->GetData(), original);
    ExpectSamePoints({editor->GetEditorControlPoint(axis)}, {pivot});
}

// A long line gets handles only around the view, more as the view moves, and
// its indices stay those of the whole line.
TEST_F(ViewerEditingTest, ALongLineGetsHandlesWhereTheViewIs)
{
    std::vector<CVector3D> points;
    for (int i = 0; i <= 800; ++i)
        points.push_back(CVector3D(100.0 + i * 0.1, -25.0 + (i % 2) * 0.01, 0.0));
    line->SetData(points);
    map.SetZoomAround(8.0, 140.0, -25.0);
    editor->Select(line);
    editor->SetTool(CViewerEditor::kVertices);
    auto* set = static_cast<CKeyPointSet*>(editor->GetGadget(CViewerEditor::kVertices));
    ASSERT_EQ(set->GetPointCount(), 801);
    int made = 0;
    for (int i = 0; i < set->GetPointCount(); ++i)
        made += set->GetPointHandle(i) != nullptr;
    EXPECT_GT(made, 50);
    EXPECT_LT(made, 400);
    EXPECT_EQ(set->GetPointHandle(0), nullptr);
    const int middle = 400; // at 140 degrees, the view's centre
    ASSERT_NE(set->GetPointHandle(middle), nullptr);
    const QPoint from = At(set->GetPointHandle(middle));
    Drag(from, from + QPoint(0, 30));
    EXPECT_NEAR(line->At(middle).y, Geo(from + QPoint(0, 30)).y, kTolerance);
    EXPECT_EQ(line->At(middle - 1), points[middle - 1]);
    map.SetCenter(100.5, -25.0);
    ASSERT_NE(set->GetPointHandle(0), nullptr);
    EXPECT_EQ(set->GetPointHandle(0)->GetPosition(), points[0]);
}
