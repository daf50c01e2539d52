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
    static std::string Text(const EXTENT& e) { return RecordingEditableUser::Box(e); }

    CScaleBox*& box = gadget;
};
} // namespace

TEST_F(ScaleBoxTest, EightHandlesOnCornersAndIntegerMidpoints)
{
    IZoRectangleMapObject* frame = box->GetFrame();
    ASSERT_NE(frame, nullptr);
    EXPECT_EQ(frame->GetName(), "CustomEditRect");
    EXPECT_EQ(frame->GetPenColor(), QColor(Qt::red));
    EXPECT_EQ(frame->GetPenStyle(), static_cast<unsigned>(Qt::DashDotLine));
    EXPECT_EQ(frame->GetBrushColor(), QColor(Qt::transparent));
    EXPECT_FALSE(frame->IsVisible());
    EXPECT_TRUE(box->IsEditObjectHandle(frame->GetObjectID()));
    const CVector3D expected[] = {{1.0, 4.0, 0.0}, {3.0, 4.0, 0.0}, {3.0, 2.0, 0.0}, {1.0, 2.0, 0.0},
                                  {2.0, 4.0, 0.0}, {3.0, 3.0, 0.0}, {2.0, 2.0, 0.0}, {1.0, 3.0, 0.0}};
    for (int i = 0; i < CScaleBox::kHandleCount; ++i)
    {
        EXPECT_EQ(At(i), expected[i]) << i;
        EXPECT_TRUE(box->GetHandle(i)->IsVisible());
        EXPECT_TRUE(box->IsEditObjectHandle(Id(i)));
    }
    // 10 to 21 pixels: the midpoint 15.5 drops its half pixel.
    user.box = EXTENT{1.0, 2.0, 2.1, 4.1};
    box->UpdateEditor(7);
    EXPECT_DOUBLE_EQ(At(4).x, 1.5);
    EXPECT_DOUBLE_EQ(At(5).y, 3.0);
    user.box = EXTENT{0.0, 0.0, 9.0, 9.0};
    box->UpdateEditor(8);
    EXPECT_DOUBLE_EQ(At(4).x, 1.5);
}

TEST_F(ScaleBoxTest, DefaultUserResizesTheFrameAndNormalisesOnRelease)
{
    IZoRectangleMapObject* frame = box->GetFrame();
    view.area.viewport()->setCursor(Qt::CrossCursor);
    EXPECT_TRUE(box->OnHoverEnter(&view, 0, 0, Id(0)));
    EXPECT_EQ(view.Shape(), Qt::SizeFDiagCursor);
    // The top-left handle dragged beyond the bottom-right corner.
    Drag(0, {QPoint(20, -30), QPoint(50, -10)}, false);
    EXPECT_TRUE(frame->IsVisible());
    EXPECT_EQ(Text(frame->GetExtent()), "5.0000,2.0000,3.0000,1.0000"); // inverted while moving
    EXPECT_EQ(At(2), CVector3D(3.0, 2.0, 0.0));
    box->OnMouseRelease(&view, 50, -10, Id(0));
    EXPECT_EQ(user.calls, (Calls{"StartScale", "ProcessScale 2.0000,2.0000,3.0000,3.0000",
                                 "ProcessScale 5.0000,2.0000,3.0000,1.0000",
                                 "CompleteScale 3.0000,1.0000,5.0000,2.0000"}));
    EXPECT_FALSE(frame->IsVisible());
    EXPECT_EQ(Text(frame->GetExtent()), "3.0000,1.0000,5.0000,2.0000");
    EXPECT_EQ(At(0), CVector3D(3.0, 2.0, 0.0));
    EXPECT_EQ(box->GetActiveHandle(), -1);
    EXPECT_EQ(view.Shape(), Qt::CrossCursor);
}

TEST_F(ScaleBoxTest, EdgeHandlesMoveOnlyTheirSide)
{
    const Qt::CursorShape cursors[] = {Qt::SizeFDiagCursor, Qt::SizeBDiagCursor, Qt::SizeFDiagCursor,
                                       Qt::SizeBDiagCursor, Qt::SizeVerCursor,   Qt::SizeHorCursor,
                                       Qt::SizeVerCursor,   Qt::SizeHorCursor};
    const char* boxes[] = {"0.0000,2.0000,3.0000,5.0000", "1.0000,2.0000,0.0000,5.0000",
                           "1.0000,5.0000,0.0000,4.0000", "0.0000,5.0000,3.0000,4.0000",
                           "1.0000,2.0000,3.0000,5.0000", "1.0000,2.0000,0.0000,4.0000",
                           "1.0000,5.0000,3.0000,4.0000", "0.0000,2.0000,3.0000,4.0000"};
    for (int i = 0; i < CScaleBox::kHandleCount; ++i)
    {
        user.calls.clear();
        box->UpdateEditor(0);
        box->OnHoverEnter(&view, 0, 0, Id(i));
        EXPECT_EQ(view.Shape(), cursors[i]) << i;
        box->OnHoverLeave(&view, 0, 0, Id(i));
        user.takeOver = {"CompleteScale"};
        Drag(i, {QPoint(0, -50)});
        EXPECT_EQ(user.calls[1], std::string("ProcessScale ") + boxes[i]) << i;
        user.takeOver.clear();
        box->OnKeyPress(&view, Qt::Key_Escape); // not dragging: nothing
    }
}

TEST_F(ScaleBoxTest, UserAdjustmentsOfTheBoxTakeEffect)
{
    // A user keeping the box at least 1 degree wide.
    user.adjustBox = [](EXTENT& e) { e.xmax = std::max(e.xmax, e.xmin + 1.0); };
    Drag(5, {QPoint(12, -30)}, false);
    EXPECT_EQ(Text(box->GetFrame()->GetExtent()), "1.0000,2.0000,2.0000,4.0000");
    EXPECT_EQ(At(5), CVector3D(2.0, 3.0, 0.0));
    box->OnMouseRelease(&view, 12, -30, Id(5));
    EXPECT_EQ(Text(box->GetFrame()->GetExtent()), "1.0000,2.0000,2.0000,4.0000");
}

TEST_F(ScaleBoxTest, EscapeBacksOutToTheStartBox)
{
    Drag(2, {QPoint(60, -10)}, false);
    EXPECT_TRUE(box->OnKeyPress(&view, Qt::Key_Escape));
    EXPECT_EQ(user.calls.back(), "BackoutScale 1.0000,2.0000,3.0000,4.0000");
    EXPECT_FALSE(box->GetFrame()->IsVisible());
    EXPECT_EQ(Text(box->GetFrame()->GetExtent()), "1.0000,2.0000,3.0000,4.0000");
    EXPECT_EQ(At(2), CVector3D(3.0, 2.0, 0.0));
    EXPECT_EQ(box->GetActiveHandle(), -1);
}

TEST_F(ScaleBoxTest, MovesCountOnlyOverTheActiveHandle)
{
    EXPECT_FALSE(box->OnMousePress(&view, 0, 0, box->GetFrame()->GetObjectID()));
    EXPECT_FALSE(box->IsDragging());
    Drag(1, {QPoint(40, -50)}, false);
    EXPECT_FALSE(box->OnMouseMove(&view, 40, -50, Id(2)));
    EXPECT_FALSE(box->OnMouseRelease(&view, 40, -50, -1));
    box->SetEnabled(false);
    EXPECT_FALSE(box->IsDragging());
    EXPECT_FALSE(box->IsVisible());
    EXPECT_TRUE(box->IsShown());
    box->SetEnabled(true);
    EXPECT_FALSE(box->OnMouseMove(&view, 40, -50, Id(1)));
    EXPECT_EQ(user.calls.size(), 2u);
}

TEST_F(ScaleBoxTest, TakingTheStartStillShowsNothingAndDetachHidesAll)
{
    user.takeOver = {"StartScale"};
    Drag(0, {QPoint(0, 0)}, false);
    EXPECT_FALSE(box->GetFrame()->IsVisible());
    box->SetVisible(false);
    EXPECT_FALSE(box->IsShown());
    EXPECT_FALSE(box->GetHandle(3)->IsVisible());
    box->DetachEditableUser();
    for (int i = 0; i < CScaleBox::kHandleCount; ++i)
        EXPECT_FALSE(box->GetHandle(i)->IsVisible());
    const int frameId = box->GetFrame()->GetObjectID();
    box->Unintialise();
    EXPECT_EQ(module.LookupGraphicObject(frameId), nullptr);
    EXPECT_EQ(box->GetHandle(0), nullptr);
}

TEST_F(ScaleBoxTest, ABoxThatIsNotFiniteLeavesTheHandlesWhereTheyAre)
{
    user.box = EXTENT{1.0, std::numeric_limits<double>::quiet_NaN(), 3.0, std::numeric_limits<double>::infinity()};
    box->UpdateEditor(0);
    EXPECT_EQ(At(2), CVector3D(3.0, 2.0, 0.0));
}

TEST_F(ScaleBoxTest, PressPutsTheFrameUnderItsHandles)
{
    Drag(0, {QPoint(10, -40)}, false);
    QGraphicsItem* frame = box->GetFrame()->GetQtItem();
    for (int i = 0; i < CScaleBox::kHandleCount; ++i)
    {
        QGraphicsItem* handle = box->GetHandle(i)->GetQtItem();
        const QList<QGraphicsItem*> order = map.Scene()->items(Qt::DescendingOrder);
        EXPECT_LT(order.indexOf(handle), order.indexOf(frame)) << i;
    }
}
