// Gestures of the viewer's editable user that must not lose geometry: turns,
// undo in the middle of a drag, turned rectangles, points inserted by a drag.
#include "viewer/ViewerEditingFixture.h"
#include "edit/CKeyPointSet.h"
#include "edit/CScaleBox.h"

#include <QLineF>

#include <initializer_list>

namespace
{
void ExpectSamePoints(const std::vector<CVector3D>& actual, const std::vector<CVector3D>& expected)
{
    ASSERT_EQ(actual.size(), expected.size());
    for (std::size_t i = 0; i < actual.size(); ++i)
    {
        EXPECT_NEAR(actual[i].x, expected[i].x, kTolerance) << "point " << i;
        EXPECT_NEAR(actual[i].y, expected[i].y, kTolerance) << "point " << i;
    }
}
} // namespace

// The route turns by the angle reached, about the pivot it had at the press:
// the path of the pointer does not matter, and turns add up to a full one.
TEST_F(ViewerEditingTest, TurningALineDependsOnTheAngleAloneAndAFullTurnRestoresIt)
{
    editor->Select(line);
    editor->SetTool(CViewerEditor::kRotate);
    IZoGraphicsEditObject* axis = editor->GetGadget(CViewerEditor::kRotate);
    const std::vector<CVector3D> original = line->GetData();
    const CVector3D pivot = editor->GetEditorControlPoint(axis);
    // As the axis reports a turn: the angle so far and the change since the press.
    const auto turn = [this, axis](std::initializer_list<double> angles) {
        editor->OnStartRotation(axis);
        for (double angle : angles)
            editor->OnProcessRotation(axis, angle, angle);
        editor->OnCompleteRotation(axis, *(angles.end() - 1));
    };
    turn({100.0});
    const std::vector<CVector3D> direct = line->GetData();
    ASSERT_NE(direct, original);
    editor->Undo();
    turn({20.0, 40.0, 60.0, 80.0, 100.0});
    ExpectSamePoints(line->GetData(), direct);
    turn({90.0, 180.0, 260.0});
    ExpectSamePoints(line->GetData(), original);
    const CVector3D after = editor->GetEditorControlPoint(axis);
    EXPECT_NEAR(after.x, pivot.x, kTolerance);
    EXPECT_NEAR(after.y, pivot.y, kTolerance);
}

TEST_F(ViewerEditingTest, UndoInTheMiddleOfADragBacksTheDragOutFirst)
{
    editor->Select(line);
    editor->SetTool(CViewerEditor::kVertices);
    auto* set = static_cast<CKeyPointSet*>(editor->GetGadget(CViewerEditor::kVertices));
    const std::vector<CVector3D> original = line->GetData();
    const QPoint vertex = At(set->GetPointHandle(1));
    Drag(vertex, vertex + QPoint(40, 0));
    const std::vector<CVector3D> moved = line->GetData();

    const QPoint first = At(set->GetPointHandle(0));
    Drag(first, first + QPoint(0, 50), false);
    editor->Undo();
    EXPECT_EQ(line->GetData(), original);
    // The drag is over: the pointer moves the line no more.
    Send(QEvent::MouseMove, first + QPoint(30, 60), Qt::LeftButton);
    Send(QEvent::MouseButtonRelease, first + QPoint(30, 60), Qt::NoButton);
    EXPECT_EQ(line->GetData(), original);
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(set->GetPointHandle(i)->GetPosition(), original[i]) << "handle " << i;

    Drag(first, first + QPoint(0, 50), false);
    editor->Redo();
    EXPECT_EQ(line->GetData(), moved);
    Send(QEvent::MouseButtonRelease, first + QPoint(0, 50), Qt::NoButton);
    EXPECT_EQ(line->GetData(), moved);
    EXPECT_EQ(editor->GetUndoStack()->count(), 1);
}

TEST_F(ViewerEditingTest, ATurnedRectangleIsBoxedAndSnappedToWhereItIsDrawn)
{
    rect->SetRotation(30.0);
    editor->Select(rect);
    editor->SetTool(CViewerEditor::kScale);
    auto* box = static_cast<CScaleBox*>(editor->GetGadget(CViewerEditor::kScale));
    QRect handles;
    for (int i = 0; i < 8; ++i)
        handles |= QRect(At(box->GetHandle(i)), QSize(1, 1));
    // Qt turns the item about its position: where the corners show.
    QGraphicsItem* item = rect->GetQtItem();
    const auto shown = [this, item](double lon, double lat) {
        QPointF corner;
        EXPECT_TRUE(map.GeoToScenePoint(lon, lat, &corner));
        return item->mapToScene(corner - item->scenePos());
    };
    QPolygonF corners;
    for (const QPointF& corner : {QPointF(138.0, -30.0), QPointF(142.0, -30.0), QPointF(142.0, -26.0),
                                  QPointF(138.0, -26.0)})
        corners << shown(corner.x(), corner.y());
    const QRect drawn = view->mapFromScene(corners).boundingRect();
    EXPECT_NEAR(handles.left(), drawn.left(), 2);
    EXPECT_NEAR(handles.right(), drawn.right(), 2);
    EXPECT_NEAR(handles.top(), drawn.top(), 2);
    EXPECT_NEAR(handles.bottom(), drawn.bottom(), 2);

    const QPointF turned = corners[0];
    editor->Select(line);
    editor->SetTool(CViewerEditor::kVertices);
    auto* set = static_cast<CKeyPointSet*>(editor->GetGadget(CViewerEditor::kVertices));
    Drag(At(set->GetPointHandle(2)), view->mapFromScene(turned) + QPoint(4, -3));
    QPointF snapped;
    ASSERT_TRUE(map.GeoToScenePoint(line->At(2).x, line->At(2).y, &snapped));
    EXPECT_LT(QLineF(snapped, turned).length(), 1.5);
}

TEST_F(ViewerEditingTest, AVertexDraggedFromAMidpointShowsOnTheLineAndSnaps)
{
    editor->Select(line);
    editor->SetTool(CViewerEditor::kVertices);
    auto* set = static_cast<CKeyPointSet*>(editor->GetGadget(CViewerEditor::kVertices));
    const std::vector<CVector3D> original = line->GetData();
    const CVector3D corner(138.0, -30.0, 0.0); // the rectangle's
    const QPoint near = At(corner.x, corner.y) + QPoint(3, -4);
    Drag(At(set->GetIndicatorHandle(1)), near, false);
    ASSERT_EQ(line->GetPointNumber(), 4);
    EXPECT_EQ(line->At(2), corner);
    EXPECT_TRUE(editor->GetSnapHint()->IsVisible());
    Send(QEvent::MouseButtonRelease, near, Qt::NoButton);
    ASSERT_EQ(line->GetPointNumber(), 4);
    EXPECT_EQ(line->At(2), corner);
    EXPECT_EQ(set->GetPointHandle(2)->GetPosition(), corner);
    EXPECT_EQ(editor->GetUndoStack()->count(), 1);

    // Escape takes the shown point away again.
    const QPoint middle = At(set->GetIndicatorHandle(0));
    Drag(middle, middle + QPoint(0, -40), false);
    EXPECT_EQ(line->GetPointNumber(), 5);
    QTest::keyClick(view.get(), Qt::Key_Escape);
    Send(QEvent::MouseButtonRelease, middle + QPoint(0, -40), Qt::NoButton);
    EXPECT_EQ(line->GetPointNumber(), 4);
    editor->Undo();
    EXPECT_EQ(line->GetData(), original);
}
