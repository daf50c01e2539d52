// The scale box's geometry: where its eight handles sit, which sides each one
// moves, the box normalised on release, and a user adjusting the box.
#include "edit/CScaleBox.h"
#include "support/EditGadgetFixture.h"

#include <ZoGraphics/IZoDotMapObject.h>
#include <ZoGraphics/IZoRectangleMapObject.h>

#include <QGraphicsItem>

#include <limits>

using Calls = std::vector<std::string>;

namespace
{
class ScaleBoxTest : public EditGadgetFixture<CScaleBox, &IZoGraphicsModule::CreateScaleEditObject>
{
protected:
    void SetUp() override
    {
        user.box = EXTENT{1.0, 2.0, 3.0, 4.0};
        EditGadgetFixture::SetUp();
        box->AttachEditableUser(&user);
    }
    int Id(int handle) const { return box->GetHandle(handle)->GetObjectID(); }
    CVector3D At(int handle) const { return box->GetHandle(handle)->GetPosition(); }
    std::string Frame() const { return RecordingEditableUser::Box(box->GetFrame()->GetExtent()); }
    // Drags one handle through view pixels, the pointer staying on it.
    void Drag(int handle, const std::vector<QPoint>& path, bool release = true)
    {
        const int id = Id(handle);
        box->OnMousePress(&view, 0, 0, id);
        for (const QPoint& p : path)
            box->OnMouseMove(&view, p.x(), p.y(), id);
        if (release)
            box->OnMouseRelease(&view, path.back().x(), path.back().y(), id);
    }

    CScaleBox*& box = gadget;
};
} // namespace

TEST_F(ScaleBoxTest, HandlesOnCornersAndIntegerMidpointsAndEachMovesItsSides)
{
    const CVector3D expected[] = {{1.0, 4.0, 0.0}, {3.0, 4.0, 0.0}, {3.0, 2.0, 0.0}, {1.0, 2.0, 0.0},
                                  {2.0, 4.0, 0.0}, {3.0, 3.0, 0.0}, {2.0, 2.0, 0.0}, {1.0, 3.0, 0.0}};
    const Qt::CursorShape cursors[] = {Qt::SizeFDiagCursor, Qt::SizeBDiagCursor, Qt::SizeFDiagCursor,
                                       Qt::SizeBDiagCursor, Qt::SizeVerCursor,   Qt::SizeHorCursor,
                                       Qt::SizeVerCursor,   Qt::SizeHorCursor};
    const char* boxes[] = {"0.0000,2.0000,3.0000,5.0000", "1.0000,2.0000,0.0000,5.0000",
                           "1.0000,5.0000,0.0000,4.0000", "0.0000,5.0000,3.0000,4.0000",
                           "1.0000,2.0000,3.0000,5.0000", "1.0000,2.0000,0.0000,4.0000",
                           "1.0000,5.0000,3.0000,4.0000", "0.0000,2.0000,3.0000,4.0000"};
    EXPECT_FALSE(box->GetFrame()->IsVisible());
    for (int i = 0; i < CScaleBox::kHandleCount; ++i)
    {
        SCOPED_TRACE(i);
        user.calls.clear();
        box->UpdateEditor(0);
        EXPECT_EQ(At(i), expected[i]);
        EXPECT_TRUE(box->IsEditObjectHandle(Id(i)));
        box->OnHoverEnter(&view, 0, 0, Id(i));
        EXPECT_EQ(view.Shape(), cursors[i]);
        box->OnHoverLeave(&view, 0, 0, Id(i));
        user.takeOver = {"CompleteScale"};
        Drag(i, {QPoint(0, -50)});
        EXPECT_EQ(user.calls[1], std::string("ProcessScale ") + boxes[i]);
        user.takeOver.clear();
    }
    // 10 to 21 pixels: the midpoint 15.5 drops its half pixel.
    user.box = EXTENT{1.0, 2.0, 2.1, 4.1};
    box->UpdateEditor(0);
    EXPECT_DOUBLE_EQ(At(4).x, 1.5);
    EXPECT_DOUBLE_EQ(At(5).y, 3.0);
    // A box that is not finite leaves the handles where they are.
    user.box = EXTENT{1.0, std::numeric_limits<double>::quiet_NaN(), 3.0, std::numeric_limits<double>::infinity()};
    box->UpdateEditor(0);
    EXPECT_DOUBLE_EQ(At(4).x, 1.5);
}

TEST_F(ScaleBoxTest, TheFrameFollowsUnderTheHandlesAndIsNormalisedOnRelease)
{
    IZoRectangleMapObject* frame = box->GetFrame();
    // The top-left handle dragged beyond the bottom-right corner.
    Drag(0, {QPoint(20, -30), QPoint(50, -10)}, false);
    EXPECT_TRUE(frame->IsVisible());
    EXPECT_EQ(Frame(), "5.0000,2.0000,3.0000,1.0000"); // inverted while moving
    EXPECT_EQ(At(2), CVector3D(3.0, 2.0, 0.0));
    const QList<QGraphicsItem*> order = map.Scene()->items(Qt::DescendingOrder);
    for (int i = 0; i < CScaleBox::kHandleCount; ++i)
        EXPECT_LT(order.indexOf(box->GetHandle(i)->GetQtItem()), order.indexOf(frame->GetQtItem())) << i;
    box->OnMouseRelease(&view, 50, -10, Id(0));
    EXPECT_EQ(user.calls, (Calls{"StartScale", "ProcessScale 2.0000,2.0000,3.0000,3.0000",
                                 "ProcessScale 5.0000,2.0000,3.0000,1.0000",
                                 "CompleteScale 3.0000,1.0000,5.0000,2.0000"}));
    EXPECT_FALSE(frame->IsVisible());
    EXPECT_EQ(Frame(), "3.0000,1.0000,5.0000,2.0000");
    EXPECT_EQ(At(0), CVector3D(3.0, 2.0, 0.0));
    EXPECT_EQ(box->GetActiveHandle(), -1);

    // Escape puts the frame back to the user's box at the press.
    Drag(2, {QPoint(60, -10)}, false);
    box->OnKeyPress(&view, Qt::Key_Escape);
    EXPECT_FALSE(frame->IsVisible());
    EXPECT_EQ(Frame(), "1.0000,2.0000,3.0000,4.0000");
    // A user that takes the start shows its own frame.
    user.takeOver = {"StartScale"};
    Drag(0, {QPoint(0, 0)}, false);
    EXPECT_FALSE(frame->IsVisible());
}

TEST_F(ScaleBoxTest, UserAdjustmentsOfTheBoxTakeEffect)
{
    // A user keeping the box at least 1 degree wide.
    user.adjustBox = [](EXTENT& e) { e.xmax = std::max(e.xmax, e.xmin + 1.0); };
    Drag(5, {QPoint(12, -30)}, false);
    EXPECT_EQ(Frame(), "1.0000,2.0000,2.0000,4.0000");
    EXPECT_EQ(At(5), CVector3D(2.0, 3.0, 0.0));
    box->OnMouseRelease(&view, 12, -30, Id(5));
    EXPECT_EQ(Frame(), "1.0000,2.0000,2.0000,4.0000");
}
