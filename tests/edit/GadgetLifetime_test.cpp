// The four gadgets under hosts that pull things from under them (their
// handles' layer cleared, the module torn down, the gadget given back, from
// outside and from inside the gadget's own callbacks), and the gesture they
// share: a click is no drag, a backed-out start is kept.
#include "edit/CKeyPointSet.h"
#include "edit/CRotationAxis.h"
#include "edit/CScaleBox.h"
#include "edit/CTranslateBall.h"
#include "support/EditGadgetFixture.h"

#include <ZoGraphics/IZoDotMapObject.h>
#include <ZoGraphics/IZoPolylineMapObject.h>

#include <QApplication>

#include <algorithm>
#include <cmath>
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
    // What a click completes with: the value before the press.
    const char* clicked;
};

const SGadgetKind kKinds[] = {
    {"translate", &IZoGraphicsModule::CreateTranslateEditObject,
     [](IZoGraphicsEditObject* g) -> IZoGraphicsMapObject* { return static_cast<CTranslateBall*>(g)->GetDot(); },
     "StartTranslation", "ProcessTranslation", "CompleteTranslation", "BackoutTranslation",
     "CompleteTranslation 2.0000,3.0000"},
    {"rotation", &IZoGraphicsModule::CreateRotationEditObject,
     [](IZoGraphicsEditObject* g) -> IZoGraphicsMapObject* { return static_cast<CRotationAxis*>(g)->GetDot(); },
     "StartRotation", "ProcessRotation", "CompleteRotation", "BackoutRotation", "CompleteRotation 30.0000"},
    {"scale", &IZoGraphicsModule::CreateScaleEditObject,
     [](IZoGraphicsEditObject* g) -> IZoGraphicsMapObject* { return static_cast<CScaleBox*>(g)->GetHandle(2); },
     "StartScale", "ProcessScale", "CompleteScale", "BackoutScale", "CompleteScale 1.0000,2.0000,3.0000,4.0000"},
    {"key points", &IZoGraphicsModule::CreateKeyPointSetEditObject,
     [](IZoGraphicsEditObject* g) -> IZoGraphicsMapObject* {
         return static_cast<CKeyPointSet*>(g)->GetPointHandle(1);
     },
     "StartTranslation", "ProcessKeyPoint", "CompleteKeyPoint", "BackoutKeyPoint", "CompleteKeyPoint 1 2.0000,0.0000"},
};

class GadgetLifetimeTest : public ModuleFixture
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
    void Gesture(IZoGraphicsEditObject* gadget, int id, bool escape, const bool& gone)
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

TEST_F(GadgetLifetimeTest, ClearingTheHandlesLayerMidDragEndsTheDragAndNewHandlesFollow)
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
        EXPECT_EQ(std::count(user.calls.begin(), user.calls.end(), kind.start), 1);
        EXPECT_EQ(user.calls.back(), kind.start); // nothing processed or completed
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

TEST_F(GadgetLifetimeTest, AGadgetOutlivesItsLayerAndStaysInert)
{
    IZoGraphicsMapLayer* layer = module.CreateGraphicsLayer("edit");
    for (const SGadgetKind& kind : kKinds)
    {
        SCOPED_TRACE(kind.name);
        IZoGraphicsEditObject* gadget = (module.*kind.create)(layer);
        gadget->AttachEditableUser(&user);
        gadget->UpdateEditor(0);
        const int id = kind.handle(gadget)->GetObjectID();
        module.DestroyGraphicsMapObject(kind.handle(gadget));
        UseAfterLoss(gadget, id);
        gadget->AttachEditableUser(&user);
        EXPECT_NE(kind.handle(gadget), nullptr);
        module.DestroyGraphicsEditObject(gadget);
    }
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
        module.DestroyGraphicsEditObject(gadget);
    }
    EXPECT_EQ(module.GetRegisteredObjectCount(), objects);
}

TEST_F(GadgetLifetimeTest, TheModuleTornDownInsideAnyCallback)
{
    for (const SGadgetKind& kind : kKinds)
    {
        for (const char* trigger : {kind.start, kind.process, kind.complete, kind.backout})
        {
            SCOPED_TRACE(std::string(kind.name) + " in " + trigger);
            CZoGraphicsModule graphics;
            ASSERT_TRUE(graphics.Initialise("torn", &map));
            IZoGraphicsEditObject* gadget = Make(graphics, kind);
            const int id = kind.handle(gadget)->GetObjectID();
            user.onCall = [&](const std::string& operation) {
                if (operation == trigger)
                    graphics.Unintialise();
            };
            const bool gone = false;
            Gesture(gadget, id, trigger == kind.backout, gone);
            user.onCall = nullptr;
            EXPECT_TRUE(std::any_of(user.calls.begin(), user.calls.end(),
                                    [&](const std::string& call) { return call.rfind(trigger, 0) == 0; }));
            UseAfterLoss(gadget, id);
            EXPECT_EQ(kind.handle(gadget), nullptr);
            graphics.DestroyGraphicsEditObject(gadget);
            user.calls.clear();
        }
    }
}

TEST_F(GadgetLifetimeTest, AGadgetGivenBackInsideItsOwnCallback)
{
    for (const SGadgetKind& kind : kKinds)
    {
        for (const char* trigger : {kind.start, kind.process, kind.complete, kind.backout})
        {
            SCOPED_TRACE(std::string(kind.name) + " in " + trigger);
            IZoGraphicsEditObject* gadget = Make(module, kind);
            const int id = kind.handle(gadget)->GetObjectID();
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
        }
    }
}

TEST_F(GadgetLifetimeTest, AClickWithinTheDragDistanceChangesNothing)
{
    const int near = QApplication::startDragDistance() / 2 - 1;
    for (const SGadgetKind& kind : kKinds)
    {
        SCOPED_TRACE(kind.name);
        IZoGraphicsEditObject* gadget = Make(module, kind);
        const int id = kind.handle(gadget)->GetObjectID();
        user.calls.clear();
        gadget->OnMousePress(&view, 20, -20, id);
        EXPECT_TRUE(gadget->OnMouseMove(&view, 20 + near, -20 - near, id));
        EXPECT_TRUE(gadget->OnMouseRelease(&view, 20 + near, -20, id));
        EXPECT_EQ(user.calls, (Calls{kind.start, kind.clicked}));
        module.DestroyGraphicsEditObject(gadget);
    }
}

TEST_F(GadgetLifetimeTest, ABackoutTheUserTakesKeepsTheStartForTheNextOne)
{
    // Translate ball and scale box: the start stays after a backout the user
    // handled, and a press the user starts itself records none.
    const std::pair<const SGadgetKind*, const char*> cases[] = {
        {&kKinds[0], "BackoutTranslation 2.0000,3.0000"},
        {&kKinds[2], "BackoutScale 1.0000,2.0000,3.0000,4.0000"}};
    for (const auto& [kind, backout] : cases)
    {
        SCOPED_TRACE(kind->name);
        IZoGraphicsEditObject* gadget = Make(module, *kind);
        const int id = kind->handle(gadget)->GetObjectID();
        const bool gone = false;
        user.takeOver = {kind->backout};
        Gesture(gadget, id, true, gone);
        user.takeOver = {kind->start, kind->backout};
        Gesture(gadget, id, true, gone);
        EXPECT_EQ(user.calls.back(), backout);
        // Backed out by the gadget itself: the ball forgets its start, the
        // box keeps it.
        user.takeOver = {};
        Gesture(gadget, id, true, gone);
        user.takeOver = {kind->start};
        Gesture(gadget, id, true, gone);
        EXPECT_EQ(user.calls.back(), kind == &kKinds[0] ? "BackoutTranslation 0.0000,0.0000" : backout);
        module.DestroyGraphicsEditObject(gadget);
        user.calls.clear();
    }
}

TEST_F(GadgetLifetimeTest, TheRotationHandleSitsOnAnArmAndTurnsBySweptAngle)
{
    auto* axis = static_cast<CRotationAxis*>(Make(module, kKinds[1]));
    // Pivot at pixel (10, -10); the arm points the user's 30 degrees.
    const CVector3D end = axis->GetDot()->GetPosition();
    EXPECT_NEAR(std::hypot(end.x - 1.0, end.y - 1.0) * 10.0, CRotationAxis::kArmLength, 1.0);
    EXPECT_NEAR(std::atan2(end.x - 1.0, end.y - 1.0) * 180.0 / M_PI, 30.0, 2.0);
    EXPECT_EQ(axis->GetArm()->GetData(), (std::vector<CVector3D>{user.controlPoint, end}));
    // Ten pixels across the end of the arm turn by about 14 degrees.
    const int x = FakeEditView::PixelX(end.x);
    const int y = FakeEditView::PixelY(end.y);
    axis->OnMousePress(&view, x, y, axis->GetDot()->GetObjectID());
    axis->OnMouseMove(&view, x + 9, y + 5, -1);
    ASSERT_EQ(user.calls.size(), 2u);
    const double change = std::stod(user.calls.back().substr(user.calls.back().find(',') + 1));
    EXPECT_NEAR(change, 14.0, 2.0);
    // The arm follows; a zoom keeps its length on screen.
    map.viewScale = 2.0;
    axis->OnMouseRelease(&view, x + 9, y + 5, -1);
    axis->OnViewChanged();
    const CVector3D zoomed = axis->GetDot()->GetPosition();
    EXPECT_NEAR(std::hypot(zoomed.x - 1.0, zoomed.y - 1.0) * 10.0, CRotationAxis::kArmLength / 2.0, 1.0);
    module.DestroyGraphicsEditObject(axis);
}
