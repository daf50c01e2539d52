#include "edit/CTranslateBall.h"
#include "edit/CZoCursorKeeper.h"
#include "support/EditGadgetFixture.h"

#include <ZoGraphics/IZoDotMapObject.h>
#include <ZoGraphics/IZoPolylineMapObject.h>
#include <ZoGraphics/IZoRectangleMapObject.h>
#include <ZoGraphics/IZoTextMapObject.h>

#include <algorithm>

using Calls = std::vector<std::string>;

namespace
{
class TranslateBallTest : public EditGadgetFixture<CTranslateBall, &IZoGraphicsModule::CreateTranslateEditObject>
{
protected:
    void SetUp() override
    {
        user.position = CVector3D(2.0, 3.0, 0.0);
        EditGadgetFixture::SetUp();
    }
    int DotId() const { return ball->GetDot()->GetObjectID(); }
    // Press on the dot, moves to each point over it, release at the last.
    void Drag(const std::vector<CVector3D>& path)
    {
        const int id = DotId();
        ball->OnMousePress(&view, 0, 0, id);
        for (const CVector3D& p : path)
            ball->OnMouseMove(&view, FakeEditView::PixelX(p.x), FakeEditView::PixelY(p.y), id);
    }

    CTranslateBall*& ball = gadget;
};
} // namespace

TEST_F(TranslateBallTest, CreatorsJoinTheHostChainAndPutHandlesOnTheirLayer)
{
    EXPECT_NE(std::find(map.handlers.begin(), map.handlers.end(), ball), map.handlers.end());
    IZoGraphicsMapLayer* layer = module.CreateGraphicsLayer("edit");
    IZoGraphicsEditObject* gadgets[] = {module.CreateTranslateEditObject(layer), module.CreateRotationEditObject(layer),
                                        module.CreateScaleEditObject(layer), module.CreateKeyPointSetEditObject(layer)};
    for (IZoGraphicsEditObject* gadget : gadgets)
    {
        ASSERT_NE(gadget, nullptr);
        EXPECT_EQ(gadget->GetGraphicsModule(), &module);
    }
    gadgets[0]->AttachEditableUser(&user);
    EXPECT_EQ(static_cast<CTranslateBall*>(gadgets[0])->GetDot()->GetGraphicsMapLayer(), layer);
    ball->AttachEditableUser(&user);
    EXPECT_EQ(ball->GetDot()->GetGraphicsMapLayer(), DefaultLayer());
    for (IZoGraphicsEditObject* gadget : gadgets)
    {
        module.DestroyGraphicsEditObject(gadget);
        EXPECT_EQ(std::find(map.handlers.begin(), map.handlers.end(), gadget), map.handlers.end());
    }
    module.DestroyGraphicsEditObject(nullptr);
}

TEST_F(TranslateBallTest, DefaultUserDragMovesTheDotAndRestoresTheCursor)
{
    ball->AttachEditableUser(&user);
    view.area.viewport()->setCursor(Qt::CrossCursor);
    const int id = DotId();
    EXPECT_TRUE(ball->OnHoverEnter(&view, 20, -30, id));
    EXPECT_EQ(view.Shape(), Qt::BitmapCursor);
    EXPECT_TRUE(ball->OnMousePress(&view, 20, -30, id));
    EXPECT_TRUE(ball->IsDragging());
    EXPECT_TRUE(ball->OnMouseMove(&view, 25, -35, id));
    EXPECT_EQ(ball->GetDot()->GetPosition(), CVector3D(2.5, 3.5, 0.0));
    EXPECT_TRUE(ball->OnMouseRelease(&view, 30, -40, id));
    EXPECT_EQ(ball->GetDot()->GetPosition(), CVector3D(3.0, 4.0, 0.0));
    EXPECT_EQ(view.Shape(), Qt::CrossCursor);
    EXPECT_EQ(user.calls, (Calls{"StartTranslation", "ProcessTranslation 2.5000,3.5000",
                                 "CompleteTranslation 3.0000,4.0000"}));
    // The user's thing itself never moved: the position is still the user's.
    ball->UpdateEditor(0);
    EXPECT_EQ(ball->GetDot()->GetPosition(), user.position);
}

TEST_F(TranslateBallTest, EscapeBacksOutToWhereTheDragBegan)
{
    ball->AttachEditableUser(&user);
    Drag({CVector3D(5.0, 5.0, 0.0)});
    EXPECT_TRUE(ball->OnKeyPress(&view, Qt::Key_Escape));
    EXPECT_EQ(ball->GetDot()->GetPosition(), user.position);
    EXPECT_FALSE(ball->IsDragging());
    EXPECT_EQ(user.calls.back(), "BackoutTranslation 2.0000,3.0000");
    // Not dragging any more, and other keys never count.
    EXPECT_FALSE(ball->OnKeyPress(&view, Qt::Key_Escape));
    Drag({});
    EXPECT_FALSE(ball->OnKeyPress(&view, Qt::Key_A));
}

TEST_F(TranslateBallTest, TrueAnswersMeanTheUserTookTheStep)
{
    ball->AttachEditableUser(&user);
    user.takeOver = {"ProcessTranslation", "CompleteTranslation"};
    view.area.viewport()->setCursor(Qt::CrossCursor);
    Drag({CVector3D(5.0, 5.0, 0.0)});
    EXPECT_EQ(ball->GetDot()->GetPosition(), user.position);
    ball->OnMouseRelease(&view, 50, -50, DotId());
    EXPECT_EQ(ball->GetDot()->GetPosition(), user.position);
    // A user that completes the drag itself keeps the dragging cursor.
    EXPECT_EQ(view.Shape(), Qt::BitmapCursor);
    ball->SetEditorPoint(CVector3D(5.0, 5.0, 0.0), 0);
    EXPECT_EQ(ball->GetDot()->GetPosition(), CVector3D(5.0, 5.0, 0.0));
    ball->SetEditorPoint(CVector3D(7.0, 7.0, 0.0), 1);
    ball->UpdateEditor(1);
    EXPECT_EQ(ball->GetDot()->GetPosition(), CVector3D(5.0, 5.0, 0.0));

    // Taking the start records none: Escape backs out to the last one.
    user.takeOver = {"StartTranslation", "BackoutTranslation"};
    Drag({CVector3D(6.0, 6.0, 0.0)});
    ball->OnKeyPress(&view, Qt::Key_Escape);
    EXPECT_EQ(user.calls.back(), "BackoutTranslation 2.0000,3.0000");
}

TEST_F(TranslateBallTest, PointerEventsOffTheDotAreNotConsumed)
{
    ball->AttachEditableUser(&user);
    IZoDotMapObject* other = module.CreateDotMapObject("other", nullptr);
    EXPECT_FALSE(ball->OnMousePress(&view, 0, 0, other->GetObjectID()));
    EXPECT_FALSE(ball->OnMousePress(&view, 0, 0, -1));
    EXPECT_FALSE(ball->OnMousePress(nullptr, 0, 0, DotId()));
    Drag({});
    // The pointer outran the dot: no process until it is over the dot again.
    EXPECT_FALSE(ball->OnMouseMove(&view, 90, -90, -1));
    EXPECT_FALSE(ball->OnMouseRelease(&view, 90, -90, -1));
    EXPECT_TRUE(ball->IsDragging());
    EXPECT_EQ(user.calls, (Calls{"StartTranslation"}));
}

TEST_F(TranslateBallTest, DisablingMidDragEndsItSilently)
{
    ball->AttachEditableUser(&user);
    Drag({CVector3D(4.0, 4.0, 0.0)});
    ball->SetEnabled(false);
    EXPECT_FALSE(ball->IsDragging());
    EXPECT_FALSE(ball->OnMouseRelease(&view, 40, -40, DotId()));
    EXPECT_FALSE(ball->OnKeyPress(&view, Qt::Key_Escape));
    EXPECT_FALSE(ball->OnHoverEnter(&view, 40, -40, DotId()));
    ball->SetEnabled(true);
    EXPECT_FALSE(ball->OnMouseRelease(&view, 40, -40, DotId()));
    EXPECT_EQ(user.calls.size(), 2u);
}

TEST_F(TranslateBallTest, AttachDetachAndReplaceUsers)
{
    ball->AttachEditableUser(nullptr);
    EXPECT_EQ(ball->GetDot(), nullptr);
    ball->SetEnabled(true); // not attached: ignored
    EXPECT_FALSE(ball->IsEnabled());
    ball->AttachEditableUser(&user);
    IZoDotMapObject* dot = ball->GetDot();
    user.position = CVector3D(9.0, 9.0, 0.0);
    ball->AttachEditableUser(&user); // the same user again: nothing re-read
    EXPECT_EQ(dot->GetPosition(), CVector3D(2.0, 3.0, 0.0));

    RecordingEditableUser second;
    second.position = CVector3D(-1.0, -1.0, 0.0);
    Drag({CVector3D(4.0, 4.0, 0.0)});
    ball->AttachEditableUser(&second);
    EXPECT_FALSE(ball->IsDragging());
    EXPECT_EQ(ball->GetDot(), dot); // handles are kept
    EXPECT_EQ(dot->GetPosition(), second.position);
    Drag({CVector3D(1.0, 1.0, 0.0)});
    ball->OnMouseRelease(&view, 10, -10, DotId());
    EXPECT_EQ(user.calls.size(), 2u); // none reached the first user
    EXPECT_EQ(second.calls.size(), 3u);

    ball->DetachEditableUser();
    EXPECT_FALSE(ball->IsVisible());
    EXPECT_FALSE(ball->OnMousePress(&view, 0, 0, DotId()));
    ball->SetVisible(true); // only while attached
    EXPECT_FALSE(ball->IsVisible());
    ball->AttachEditableUser(&user);
    EXPECT_TRUE(ball->IsShown());
    ball->SetVisible(false);
    EXPECT_FALSE(ball->IsShown());
}

TEST_F(TranslateBallTest, UnintialiseDestroysHandlesEvenAfterTheModule)
{
    ball->AttachEditableUser(&user);
    const int id = DotId();
    ball->Unintialise();
    EXPECT_EQ(module.LookupGraphicObject(id), nullptr);
    EXPECT_EQ(ball->GetGraphicsModule(), nullptr);
    EXPECT_EQ(ball->GetEditableUser(), nullptr);
    ball->AttachEditableUser(&user); // without a module: ignored
    EXPECT_EQ(ball->GetDot(), nullptr);
    EXPECT_FALSE(ball->Initialise(nullptr, nullptr));

    // The module torn down first has destroyed the handles already.
    CTranslateBall* late = static_cast<CTranslateBall*>(module.CreateTranslateEditObject(nullptr));
    late->AttachEditableUser(&user);
    UnintialiseNow();
    module.DestroyGraphicsEditObject(late);
}

TEST(CursorKeeper, RestoresWhatWasSavedOrADefaultCursor)
{
    FakeEditView view;
    CZoCursorKeeper keeper;
    view.area.viewport()->setCursor(Qt::CrossCursor);
    keeper.Restore(&view);
    EXPECT_EQ(view.Shape(), Qt::ArrowCursor);
    view.area.viewport()->setCursor(Qt::CrossCursor);
    keeper.Save(&view);
    keeper.Set(&view, ZoEditCursor::kRotate);
    const QCursor set = view.area.viewport()->cursor();
    EXPECT_EQ(set.shape(), Qt::BitmapCursor);
    EXPECT_EQ(set.hotSpot(), QPoint(16, 16));
    keeper.Save(&view); // already saved: the first cursor is kept
    keeper.Restore(&view);
    EXPECT_EQ(view.Shape(), Qt::CrossCursor);
    EXPECT_FALSE(keeper.IsSaved());
    keeper.Save(nullptr);
    EXPECT_FALSE(keeper.IsSaved());
    for (const char* path : {ZoEditCursor::kMovePoint, ZoEditCursor::kDragPoint, ZoEditCursor::kRotate,
                             ZoEditCursor::kInsertPoint})
        EXPECT_FALSE(QPixmap(path).isNull()) << path;
}
