// What the four gadgets share, over one table: the gesture (press, moves,
// release or Escape, a click within the drag distance), the users, and hosts
// that pull things from under them (their handles' layer cleared, the module
// torn down, the gadget given back, from outside and from inside the
// gadget's own callbacks).
#include "edit/CKeyPointSet.h"
#include "edit/CRotationAxis.h"
#include "edit/CScaleBox.h"
#include "edit/CTranslateBall.h"
#include "support/EditGadgetFixture.h"

#include <ZoGraphics/IZoDotMapObject.h>

#include <QApplication>
#include <QGraphicsItem>

#include <algorithm>
#include <vector>

using Calls = std::vector<std::string>;

namespace
{
using Creator = IZoGraphicsEditObject* (IZoGraphicsModule::*)(IZoGraphicsMapLayer*);

struct SGadgetKind
{
    const char* name;
    Creator create;
    // The handle a drag takes hold of.
    IZoGraphicsMapObject* (*handle)(IZoGraphicsEditObject*);
    // The user's operations of the gesture, as recorded.
    const char* start;
    const char* process;
    const char* complete;
    const char* backout;
    // What a click completes with and Escape backs out to: the value before the press.
    const char* clicked;
    const char* backedOut;
};

const SGadgetKind kKinds[] = {
    {"translate", &IZoGraphicsModule::CreateTranslateEditObject,
     [](IZoGraphicsEditObject* g) -> IZoGraphicsMapObject* { return static_cast<CTranslateBall*>(g)->GetDot(); },
     "StartTranslation", "ProcessTranslation", "CompleteTranslation", "BackoutTranslation",
     "CompleteTranslation 2.0000,3.0000", "BackoutTranslation 2.0000,3.0000"},
    {"rotation", &IZoGraphicsModule::CreateRotationEditObject,
     [](IZoGraphicsEditObject* g) -> IZoGraphicsMapObject* { return static_cast<CRotationAxis*>(g)->GetDot(); },
     "StartRotation", "ProcessRotation", "CompleteRotation", "BackoutRotation", "CompleteRotation 30.0000",
     "BackoutRotation 30.0000"},
    {"scale", &IZoGraphicsModule::CreateScaleEditObject,
     [](IZoGraphicsEditObject* g) -> IZoGraphicsMapObject* { return static_cast<CScaleBox*>(g)->GetHandle(2); },
     "StartScale", "ProcessScale", "CompleteScale", "BackoutScale", "CompleteScale 1.0000,2.0000,3.0000,4.0000",
     "BackoutScale 1.0000,2.0000,3.0000,4.0000"},
    {"key points", &IZoGraphicsModule::CreateKeyPointSetEditObject,
     [](IZoGraphicsEditObject* g) -> IZoGraphicsMapObject* {
         return static_cast<CKeyPointSet*>(g)->GetPointHandle(1);
     },
     "StartTranslation", "ProcessKeyPoint", "CompleteKeyPoint", "BackoutKeyPoint", "CompleteKeyPoint 1 2.0000,0.0000",
     "BackoutKeyPoint 1 2.0000,0.0000"},
};

class GadgetMachineTest : public ModuleFixture
{
protected:
    void SetUp() override
    {
        ModuleFixture::SetUp();
        for (RecordingEditableUser* u : {&user, &other})
        {
            u->position = CVector3D(2.0, 3.0, 0.0);
            u->rotation = 30.0;
            u->controlPoint = CVector3D(1.0, 1.0, 0.0);
            u->box = EXTENT{1.0, 2.0, 3.0, 4.0};
            u->points = {CVector3D(0.0, 0.0, 0.0), CVector3D(2.0, 0.0, 0.0), CVector3D(2.0, 2.0, 0.0)};
        }
    }
    // Made on a module, attached and placed.
    IZoGraphicsEditObject* Make(IZoGraphicsModule& graphics, const SGadgetKind& kind)
    {
        IZoGraphicsEditObject* gadget = (graphics.*kind.create)(nullptr);
        gadget->AttachEditableUser(&user);
        gadget->UpdateEditor(0);
        return gadget;
    }
    // Press on the handle, two moves well past the drag distance, then a
    // release or Escape; stops once the gadget is given back.
    void Gesture(IZoGraphicsEditObject* gadget, int id, bool escape, const bool& gone = false)
    {
        gadget->OnMousePress(&view, 0, 0, id);
        for (QPoint p : {QPoint(50, -50), QPoint(60, -40)})
        {
            if (!gone)
                gadget->OnMouseMove(&view, p.x(), p.y(), id);
        }
        if (!gone && escape)
            gadget->OnKeyPress(&view, Qt::Key_Escape);
        else if (!gone)
            gadget->OnMouseRelease(&view, 60, -40, id);
    }
    static Calls Names(const Calls& calls)
    {
        Calls names;
        for (const std::string& call : calls)
            names.push_back(call.substr(0, call.find(' ')));
        return names;
    }
    // Everything a host may still do with a gadget whose handles are gone.
    void UseAfterLoss(IZoGraphicsEditObject* gadget, int id)
    {
        gadget->OnHoverEnter(&view, 0, 0, id);
        gadget->OnMouseMove(&view, 30, -30, id);
        gadget->OnMouseRelease(&view, 30, -30, id);
        gadget->OnKeyPress(&view, Qt::Key_Escape);
        gadget->UpdateEditor(0);
        gadget->SetVisible(false);
        gadget->AttachEditableUser(&other);
        gadget->SetEditorPoint(CVector3D(1.0, 1.0, 0.0), 0);
        gadget->DetachEditableUser();
    }

    RecordingEditableUser user;
    RecordingEditableUser other;
    FakeEditView view;
};
} // namespace

TEST_F(GadgetMachineTest, ADragStartsProcessesAndCompletesWithTheHandlesCursor)
{
    IZoGraphicsMapLayer* layer = module.CreateGraphicsLayer("edit");
    for (const SGadgetKind& kind : kKinds)
    {
        SCOPED_TRACE(kind.name);
        auto* gadget = static_cast<CZoEditObjectBase*>((module.*kind.create)(layer));
        EXPECT_EQ(gadget->GetGraphicsModule(), &module);
        EXPECT_NE(std::find(map.handlers.begin(), map.handlers.end(), gadget), map.handlers.end());
        gadget->AttachEditableUser(&user);
        gadget->UpdateEditor(0);
        IZoGraphicsMapObject* handle = kind.handle(gadget);
        EXPECT_EQ(handle->GetGraphicsMapLayer(), layer);
        const int id = handle->GetObjectID();
        view.area.viewport()->setCursor(Qt::CrossCursor);
        EXPECT_TRUE(gadget->OnHoverEnter(&view, 0, 0, id));
        EXPECT_NE(view.Shape(), Qt::CrossCursor);
        EXPECT_FALSE(gadget->OnMousePress(&view, 0, 0, -1) || gadget->OnMousePress(nullptr, 0, 0, id));
        EXPECT_TRUE(gadget->OnMousePress(&view, 0, 0, id));
        EXPECT_TRUE(gadget->IsDragging());
        EXPECT_TRUE(gadget->OnMouseMove(&view, 50, -50, id) && gadget->OnMouseMove(&view, 60, -40, id));
        EXPECT_TRUE(gadget->OnMouseRelease(&view, 60, -40, id));
        EXPECT_FALSE(gadget->IsDragging());
        EXPECT_EQ(Names(user.calls), (Calls{kind.start, kind.process, kind.process, kind.complete}));
        EXPECT_EQ(view.Shape(), Qt::CrossCursor);
        module.DestroyGraphicsEditObject(gadget);
        EXPECT_EQ(std::find(map.handlers.begin(), map.handlers.end(), gadget), map.handlers.end());
        user.calls.clear();
    }
    module.DestroyGraphicsEditObject(nullptr);
}

TEST_F(GadgetMachineTest, AClickChangesNothingAndEscapeBacksOutToTheStart)
{
    const int near = QApplication::startDragDistance() / 2 - 1;
    for (const SGadgetKind& kind : kKinds)
    {
        SCOPED_TRACE(kind.name);
        auto* gadget = static_cast<CZoEditObjectBase*>(Make(module, kind));
        const int id = kind.handle(gadget)->GetObjectID();
        const QPointF before = kind.handle(gadget)->GetQtItem()->pos();
        gadget->OnMousePress(&view, 20, -20, id);
        EXPECT_TRUE(gadget->OnMouseMove(&view, 20 + near, -20 - near, id));
        EXPECT_TRUE(gadget->OnMouseRelease(&view, 20 + near, -20, id));
        EXPECT_EQ(user.calls, (Calls{kind.start, kind.clicked}));

        EXPECT_FALSE(gadget->OnKeyPress(&view, Qt::Key_Escape));
        gadget->OnMousePress(&view, 0, 0, id);
        gadget->OnMouseMove(&view, 50, -50, id);
        EXPECT_FALSE(gadget->OnKeyPress(&view, Qt::Key_A));
        EXPECT_TRUE(gadget->OnKeyPress(&view, Qt::Key_Escape));
        EXPECT_EQ(user.calls.back(), kind.backedOut);
        EXPECT_EQ(kind.handle(gadget)->GetQtItem()->pos(), before);
        EXPECT_FALSE(gadget->IsDragging());
        EXPECT_FALSE(gadget->OnKeyPress(&view, Qt::Key_Escape));
        module.DestroyGraphicsEditObject(gadget);
        user.calls.clear();
    }
}

TEST_F(GadgetMachineTest, DisablingOrAnotherUserEndsTheDragSilently)
{
    for (const SGadgetKind& kind : kKinds)
    {
        SCOPED_TRACE(kind.name);
        auto* gadget = static_cast<CZoEditObjectBase*>(Make(module, kind));
        IZoGraphicsMapObject* handle = kind.handle(gadget);
        const int id = handle->GetObjectID();
        gadget->OnMousePress(&view, 0, 0, id);
        gadget->OnMouseMove(&view, 50, -50, id);
        gadget->SetEnabled(false);
        EXPECT_FALSE(gadget->IsDragging());
        EXPECT_FALSE(gadget->OnMouseRelease(&view, 50, -50, id));
        EXPECT_FALSE(gadget->OnKeyPress(&view, Qt::Key_Escape));
        EXPECT_FALSE(gadget->OnHoverEnter(&view, 50, -50, id));
        gadget->SetEnabled(true);
        EXPECT_FALSE(gadget->OnMouseRelease(&view, 50, -50, id));
        EXPECT_EQ(user.calls.size(), 2u);

        // A new user mid-drag: the drag ends, the handles stay, and only the
        // new user hears of the next one.
        gadget->OnMousePress(&view, 0, 0, id);
        gadget->AttachEditableUser(&other);
        EXPECT_FALSE(gadget->IsDragging());
        EXPECT_EQ(kind.handle(gadget), handle);
        Gesture(gadget, id, false);
        EXPECT_EQ(user.calls.size(), 3u);
        EXPECT_EQ(Names(other.calls), (Calls{kind.start, kind.process, kind.process, kind.complete}));

        // Detached: hidden and deaf; uninitialised: the handles destroyed.
        gadget->DetachEditableUser();
        gadget->SetVisible(true);
        EXPECT_FALSE(handle->IsVisible());
        EXPECT_FALSE(gadget->OnMousePress(&view, 0, 0, id));
        gadget->Unintialise();
        EXPECT_EQ(module.LookupGraphicObject(id), nullptr);
        gadget->AttachEditableUser(&user); // without a module: ignored
        EXPECT_EQ(gadget->GetEditableUser(), nullptr);
        module.DestroyGraphicsEditObject(gadget);
        user.calls.clear();
        other.calls.clear();
    }
}

TEST_F(GadgetMachineTest, ClearingTheHandlesLayerMidDragEndsTheDragAndNewHandlesFollow)
{
    for (const SGadgetKind& kind : kKinds)
    {
        SCOPED_TRACE(kind.name);
        IZoGraphicsEditObject* gadget = Make(module, kind);
        const int id = kind.handle(gadget)->GetObjectID();
        gadget->OnMousePress(&view, 0, 0, id);
        DefaultLayer()->DestroyAllMapObjects();
        EXPECT_EQ(kind.handle(gadget), nullptr);
        EXPECT_FALSE(gadget->OnMouseMove(&view, 50, -50, id));
        EXPECT_EQ(user.calls, Calls{kind.start}); // nothing processed or completed
        UseAfterLoss(gadget, id);
        // The next update makes the handles anew.
        gadget->AttachEditableUser(&user);
        gadget->UpdateEditor(0);
        ASSERT_NE(kind.handle(gadget), nullptr);
        EXPECT_NE(kind.handle(gadget)->GetObjectID(), id);
        module.DestroyGraphicsEditObject(gadget);
        user.calls.clear();
    }
}

TEST_F(GadgetMachineTest, AGadgetOutlivesItsLayerAndStaysInert)
{
    IZoGraphicsMapLayer* layer = module.CreateGraphicsLayer("edit");
    const int objects = module.GetRegisteredObjectCount();
    std::vector<IZoGraphicsEditObject*> gadgets;
    for (const SGadgetKind& kind : kKinds)
        gadgets.push_back((module.*kind.create)(layer));
    module.DestroyGraphicsLayer(layer);
    // No handle lands on another layer in the freed one's place.
    for (IZoGraphicsEditObject* gadget : gadgets)
    {
        gadget->AttachEditableUser(&user);
        gadget->UpdateEditor(0);
        UseAfterLoss(gadget, -1);
        module.DestroyGraphicsEditObject(gadget);
    }
    EXPECT_EQ(module.GetRegisteredObjectCount(), objects);
    // The module torn down first has destroyed the handles already.
    IZoGraphicsEditObject* late = Make(module, kKinds[0]);
    UnintialiseNow();
    module.DestroyGraphicsEditObject(late);
}

TEST_F(GadgetMachineTest, TheModuleTornDownOrTheGadgetGivenBackInsideAnyCallback)
{
    for (const SGadgetKind& kind : kKinds)
    {
        for (const char* trigger : {kind.start, kind.process, kind.complete, kind.backout})
        {
            SCOPED_TRACE(std::string(kind.name) + " in " + trigger);
            CZoGraphicsModule graphics;
            ASSERT_TRUE(graphics.Initialise("torn", &map));
            IZoGraphicsEditObject* gadget = Make(graphics, kind);
            int id = kind.handle(gadget)->GetObjectID();
            user.onCall = [&](const std::string& operation) {
                if (operation == trigger)
                    graphics.Unintialise();
            };
            Gesture(gadget, id, trigger == kind.backout);
            EXPECT_EQ(Names(user.calls).back(), trigger);
            user.onCall = nullptr;
            UseAfterLoss(gadget, id);
            EXPECT_EQ(kind.handle(gadget), nullptr);
            graphics.DestroyGraphicsEditObject(gadget);

            gadget = Make(module, kind);
            id = kind.handle(gadget)->GetObjectID();
            bool gone = false;
            user.onCall = [&](const std::string& operation) {
                if (operation == trigger && !gone)
                {
                    module.DestroyGraphicsEditObject(gadget);
                    gone = true;
                }
            };
            Gesture(gadget, id, trigger == kind.backout, gone);
            user.onCall = nullptr;
            ASSERT_TRUE(gone);
            EXPECT_EQ(module.LookupGraphicObject(id), nullptr);
            EXPECT_EQ(std::find(map.handlers.begin(), map.handlers.end(), gadget), map.handlers.end());
            user.calls.clear();
        }
    }
}

TEST_F(GadgetMachineTest, ABackoutTheUserTakesKeepsTheStartForTheNextOne)
{
    // Translate ball and scale box: the start stays after a backout the user
    // handled, and a press the user starts itself records none.
    for (const SGadgetKind* kind : {&kKinds[0], &kKinds[2]})
    {
        SCOPED_TRACE(kind->name);
        IZoGraphicsEditObject* gadget = Make(module, *kind);
        const int id = kind->handle(gadget)->GetObjectID();
        user.takeOver = {kind->backout};
        Gesture(gadget, id, true);
        user.takeOver = {kind->start, kind->backout};
        Gesture(gadget, id, true);
        EXPECT_EQ(user.calls.back(), kind->backedOut);
        // Backed out by the gadget itself: the ball forgets its start, the
        // box keeps it.
        user.takeOver = {};
        Gesture(gadget, id, true);
        user.takeOver = {kind->start};
        Gesture(gadget, id, true);
        EXPECT_EQ(user.calls.back(), kind == &kKinds[0] ? "BackoutTranslation 0.0000,0.0000" : kind->backedOut);
        module.DestroyGraphicsEditObject(gadget);
        user.calls.clear();
    }
}

TEST_F(GadgetMachineTest, TheBallFollowsThePointerUnlessTheUserMovesItsThing)
{
    auto* ball = static_cast<CTranslateBall*>(Make(module, kKinds[0]));
    const int id = ball->GetDot()->GetObjectID();
    ball->OnMousePress(&view, 20, -30, id);
    ball->OnMouseMove(&view, 25, -35, id);
    EXPECT_EQ(ball->GetDot()->GetPosition(), CVector3D(2.5, 3.5, 0.0));
    EXPECT_FALSE(ball->OnMouseMove(&view, 90, -90, -1)); // the pointer outran the dot
    ball->OnMouseRelease(&view, 30, -40, id);
    EXPECT_EQ(ball->GetDot()->GetPosition(), CVector3D(3.0, 4.0, 0.0));
    EXPECT_EQ(user.calls, (Calls{"StartTranslation", "ProcessTranslation 2.5000,3.5000",
                                 "CompleteTranslation 3.0000,4.0000"}));
    user.takeOver = {"ProcessTranslation", "CompleteTranslation"};
    ball->UpdateEditor(0); // the user's thing itself never moved
    Gesture(ball, id, false);
    EXPECT_EQ(ball->GetDot()->GetPosition(), user.position);
    ball->SetEditorPoint(CVector3D(5.0, 5.0, 0.0), 0);
    ball->SetEditorPoint(CVector3D(7.0, 7.0, 0.0), 1);
    ball->UpdateEditor(1);
    EXPECT_EQ(ball->GetDot()->GetPosition(), CVector3D(5.0, 5.0, 0.0));
    module.DestroyGraphicsEditObject(ball);
}
