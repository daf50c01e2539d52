// Edit gadgets driven by real mouse and key events through the reference
// view, with the viewer's editable user applying them and undoing them.
#include "viewer/ViewerEditingFixture.h"
#include "edit/CKeyPointSet.h"
#include "edit/CRotationAxis.h"
#include "edit/CScaleBox.h"
#include "edit/CTranslateBall.h"

#include <QTest>

#include <cmath>
#include <limits>

TEST_F(ViewerEditingTest, ClickSelectsAndTheBallMovesTheObjectOneUndoStep)
{
    Send(QEvent::MouseButtonPress, At(139.0, -29.0), Qt::LeftButton);
    Send(QEvent::MouseButtonRelease, At(139.0, -29.0), Qt::NoButton);
    ASSERT_EQ(editor->GetSelected(), rect);
    auto* ball = static_cast<CTranslateBall*>(editor->GetGadget(CViewerEditor::kMove));
    const EXTENT before = rect->GetExtent();
    const QPoint from = At(ball->GetDot());
    EXPECT_EQ(from, At(140.0, -28.0));
    const QPoint to = from + QPoint(90, 40);
    Drag(from, to);
    const CVector3D moved = Geo(to);
    ExpectExtent(rect->GetExtent(), EXTENT{moved.x - 2.0, moved.y - 2.0, moved.x + 2.0, moved.y + 2.0});
    EXPECT_EQ(At(ball->GetDot()), to);
    ASSERT_EQ(editor->GetUndoStack()->count(), 1);
    editor->GetUndoStack()->undo();
    ExpectExtent(rect->GetExtent(), before);
    EXPECT_EQ(At(ball->GetDot()), from);
    editor->GetUndoStack()->redo();
    EXPECT_NEAR(rect->GetExtent().xmin, moved.x - 2.0, kTolerance);
}

// The view holds the pointer for the gadget that took the press: a jump far
// past the handle still reaches it, and so does the release.
TEST_F(ViewerEditingTest, APointerOutrunningTheHandleStillDrags)
{
    editor->Select(dot);
    auto* ball = static_cast<CTranslateBall*>(editor->GetGadget(CViewerEditor::kMove));
    const QPoint from = At(ball->GetDot());
    Send(QEvent::MouseMove, from, Qt::NoButton);
    Send(QEvent::MouseButtonPress, from, Qt::LeftButton);
    Send(QEvent::MouseMove, from + QPoint(200, -120), Qt::LeftButton);
    Send(QEvent::MouseButtonRelease, from + QPoint(200, -120), Qt::NoButton);
    EXPECT_FALSE(ball->IsDragging());
    EXPECT_EQ(At(dot), from + QPoint(200, -120));
    EXPECT_EQ(editor->GetUndoStack()->count(), 1);
}

TEST_F(ViewerEditingTest, EscapeThroughTheViewCancelsTheGesture)
{
    editor->Select(rect);
    auto* ball = static_cast<CTranslateBall*>(editor->GetGadget(CViewerEditor::kMove));
    const EXTENT before = rect->GetExtent();
    const QPoint from = At(ball->GetDot());
    Drag(from, from + QPoint(50, 0), false);
    EXPECT_GT(rect->GetExtent().xmin, before.xmin);
    QTest::keyClick(view.get(), Qt::Key_Escape);
    Send(QEvent::MouseButtonRelease, from + QPoint(50, 0), Qt::NoButton);
    ExpectExtent(rect->GetExtent(), before);
    EXPECT_EQ(At(ball->GetDot()), from);
    EXPECT_EQ(editor->GetUndoStack()->count(), 0);
}

TEST_F(ViewerEditingTest, ScaleBoxResizesAndUndoes)
{
    editor->Select(rect);
    editor->SetTool(CViewerEditor::kScale);
    auto* box = static_cast<CScaleBox*>(editor->GetGadget(CViewerEditor::kScale));
    const QPoint from = At(box->GetHandle(2));
    const QPoint to = from + QPoint(60, 30);
    Drag(from, to);
    const CVector3D corner = Geo(to);
    ExpectExtent(rect->GetExtent(), EXTENT{138.0, corner.y, corner.x, -26.0});
    EXPECT_EQ(At(box->GetHandle(2)), to);
    editor->GetUndoStack()->undo();
    ExpectExtent(rect->GetExtent(), EXTENT{138.0, -30.0, 142.0, -26.0});
    EXPECT_EQ(At(box->GetHandle(2)), from);
}

TEST_F(ViewerEditingTest, RotationAxisTurnsAndUndoes)
{
    editor->Select(rect);
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
    EXPECT_FALSE(axis->GetLabel()->IsVisible());
    editor->GetUndoStack()->undo();
    EXPECT_DOUBLE_EQ(rect->GetRotation(), 0.0);
}

TEST_F(ViewerEditingTest, VerticesReshapeTheLineAndEachStepUndoes)
{
    editor->Select(line);
    editor->SetTool(CViewerEditor::kVertices);
    auto* set = static_cast<CKeyPointSet*>(editor->GetGadget(CViewerEditor::kVertices));
    ASSERT_EQ(set->GetPointCount(), 3);
    const std::vector<CVector3D> original = line->GetData();

    const QPoint vertex = At(set->GetPointHandle(1));
    Drag(vertex, vertex + QPoint(-30, 25));
    const CVector3D moved = Geo(vertex + QPoint(-30, 25));
    EXPECT_NEAR(line->At(1).x, moved.x, kTolerance);
    EXPECT_NEAR(line->At(1).y, moved.y, kTolerance);

    const QPoint middle = At(set->GetIndicatorHandle(0));
    Drag(middle, middle + QPoint(0, -40));
    ASSERT_EQ(line->GetPointNumber(), 4);
    EXPECT_EQ(set->GetPointCount(), 4);

    const QPoint last = At(set->GetPointHandle(3));
    Send(QEvent::MouseMove, last, Qt::NoButton);
    QTest::mouseDClick(view->viewport(), Qt::LeftButton, Qt::NoModifier, last);
    EXPECT_EQ(line->GetPointNumber(), 3);
    EXPECT_EQ(set->GetPointCount(), 3);

    ASSERT_EQ(editor->GetUndoStack()->count(), 3);
    editor->GetUndoStack()->undo();
    EXPECT_EQ(line->GetPointNumber(), 4);
    editor->GetUndoStack()->undo();
    editor->GetUndoStack()->undo();
    EXPECT_EQ(line->GetData(), original);
    EXPECT_EQ(set->GetPointCount(), 3);
    EXPECT_EQ(set->GetPointHandle(1)->GetPosition(), original[1]);
}

// A long line gets handles only around the view, more as the view moves, and
// its indices stay those of the whole line.
TEST_F(ViewerEditingTest, LongLineGetsHandlesWhereTheViewIs)
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

TEST_F(ViewerEditingTest, DraggedVertexSnapsToAnotherObjectsVertex)
{
    editor->Select(line);
    editor->SetTool(CViewerEditor::kVertices);
    auto* set = static_cast<CKeyPointSet*>(editor->GetGadget(CViewerEditor::kVertices));
    const QPoint from = At(set->GetPointHandle(2));
    // Within 10 pixels of the rectangle's bottom-left corner.
    const QPoint near = At(138.0, -30.0) + QPoint(4, -5);
    Drag(from, near, false);
    EXPECT_TRUE(editor->GetSnapHint()->IsVisible());
    EXPECT_EQ(editor->GetSnapHint()->GetPosition(), CVector3D(138.0, -30.0, 0.0));
    Send(QEvent::MouseButtonRelease, near, Qt::NoButton);
    EXPECT_EQ(line->At(2), CVector3D(138.0, -30.0, 0.0));
    EXPECT_EQ(set->GetPointHandle(2)->GetPosition(), CVector3D(138.0, -30.0, 0.0));
    EXPECT_FALSE(editor->GetSnapHint()->IsVisible());
    // Farther than 10 pixels: no snap.
    Drag(At(138.0, -30.0), At(138.0, -30.0) + QPoint(20, 20));
    EXPECT_NE(line->At(2), CVector3D(138.0, -30.0, 0.0));
}

TEST(VertexSnapIndex, FindsTheNearestVertexOfAnotherOwnerWithinTheRadius)
{
    CZoMapModule map;
    map.SetZoomAround(6.0, 10.0, 50.0);
    CZoVertexSnapIndex index;
    index.Add(1, CVector3D(10.0, 50.0, 0));
    index.Add(2, CVector3D(10.1, 50.0, 0));
    index.Add(3, CVector3D(std::numeric_limits<double>::quiet_NaN(), 50.0, 0));
    EXPECT_EQ(index.GetCount(), 2);
    QPointF scene;
    ASSERT_TRUE(map.GeoToScenePoint(10.0, 50.0, &scene));
    double lon = 0.0, lat = 0.0;
    ASSERT_TRUE(map.ScenePointToGeo(scene - QPointF(3.0, 0.0), &lon, &lat));
    CVector3D found;
    ASSERT_TRUE(index.FindNearest(&map, CVector3D(lon, lat, 0), 10.0, -1, &found));
    EXPECT_EQ(found, CVector3D(10.0, 50.0, 0));
    ASSERT_TRUE(index.FindNearest(&map, CVector3D(lon, lat, 0), 10.0, 1, &found));
    EXPECT_EQ(found, CVector3D(10.1, 50.0, 0));
    EXPECT_FALSE(index.FindNearest(&map, CVector3D(lon, lat, 0), 2.0, -1, &found));
    EXPECT_FALSE(index.FindNearest(nullptr, CVector3D(lon, lat, 0), 10.0, -1, &found));
    EXPECT_FALSE(index.FindNearest(&map, CVector3D(std::numeric_limits<double>::quiet_NaN(), lat, 0), 10.0, -1, &found));
    // The same distance in view pixels covers fewer scene pixels when magnified.
    EXPECT_TRUE(index.FindNearest(&map, CVector3D(lon, lat, 0), 8.0, 1, &found));
    map.SetZoomAround(6.9, 10.0, 50.0);
    EXPECT_FALSE(index.FindNearest(&map, CVector3D(lon, lat, 0), 8.0, 1, &found));
    index.Clear();
    EXPECT_FALSE(index.FindNearest(&map, CVector3D(lon, lat, 0), 10.0, -1, &found));
}
