// What the four gadgets share, over one table: the gesture (press, moves,
// release or Escape, a click within the drag distance), the users, and hosts
// that pull things from under them (their handles' layer cleared, the module
// torn down, the gadget given back, from outside and from inside the
// gadget's own callbacks). Then what each gadget makes of a drag: the ball's
// position, the box's sides, the axis's angle swept around its pivot, the
// key points' indicators.
#include "edit/CKeyPointSet.h"
#include "edit/CRotationAxis.h"
#include "edit/CScaleBox.h"
#include "edit/CTranslateBall.h"
#include "support/ModuleFixture.h"
#include "support/RecordingEditableUser.h"

#include <QApplication>
#include <QGraphicsItem>

#include <algorithm>
#include <cmath>
#include <limits>
#include <type_traits>

using Calls = std::vector<std::string>;

namespace
{
using Creator = IZoGraphicsEditObject* (IZoGraphicsModule::*)(IZoGraphicsMapLayer*);

// A kind: its creator, the handle a drag takes hold of, the user's four
// operations of a gesture, and the value before the press (what a click
// completes with and Escape backs out to).
struct SGadgetKind
{
    const char* name;
    Creator create;
    IZoGraphicsMapObject* (*handle)(IZoGraphicsEditObject*);
    std::string start, process, complete, backout, value;
};

template <class T, int Index = -1>
IZoGraphicsMapObject* HandleOf(IZoGraphicsEditObject* g)
{
    if constexpr (Index < 0)
        return static_cast<T*>(g)->GetDot();
    else if constexpr (std::is_same_v<T, CScaleBox>)
        return static_cast<T*>(g)->GetHandle(Index);
    else
        return static_cast<T*>(g)->GetPointHandle(Index);
}

const SGadgetKind kKinds[] = {
    {"translate", &IZoGraphicsModule::CreateTranslateEditObject, &HandleOf<CTranslateBall>, "StartTranslation",
     "ProcessTranslation", "CompleteTranslation", "BackoutTranslation", " 2.0000,3.0000"},
    {"rotation", &IZoGraphicsModule::CreateRotationEditObject, &HandleOf<CRotationAxis>, "StartRotation",
     "ProcessRotation", "CompleteRotation", "BackoutRotation", " 30.0000"},
    {"scale", &IZoGraphicsModule::CreateScaleEditObject, &HandleOf<CScaleBox, 2>, "StartScale", "ProcessScale",
     "CompleteScale", "BackoutScale", " 1.0000,2.0000,3.0000,4.0000"},
    {"key points", &IZoGraphicsModule::CreateKeyPointSetEditObject, &HandleOf<CKeyPointSet, 1>, "StartTranslation",
     "ProcessKeyPoint", "CompleteKeyPoint", "BackoutKeyPoint", " 1 2.0000,0.0000"},
};

class GadgetTest : public ModuleFixture
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
    // Made on a module (and layer), attached and placed.
    IZoGraphicsEditObject* Make(IZoGraphicsModule& graphics, const SGadgetKind& kind, IZoGraphicsMapLayer* layer = nullptr)
    {
        IZoGraphicsEditObject* gadget = (graphics.*kind.create)(layer);
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
            if (!gone)
                gadget->OnMouseMove(&view, p.x(), p.y(), id);
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
    static Calls Drag(const SGadgetKind& kind) { return {kind.start, kind.process, kind.process, kind.complete}; }
    bool Handling(IZoGraphicsEditObject* gadget) const
    {
        return std::find(map.handlers.begin(), map.handlers.end(), gadget) != map.handlers.end();
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
    // Runs body on a gadget of each kind, made and placed, with its handle's
    // id; the gadget given back leaves the map's handlers.
    template <class Body>
    void EachKind(Body body, IZoGraphicsMapLayer* layer = nullptr)
    {
        for (const SGadgetKind& kind : kKinds)
        {
            SCOPED_TRACE(kind.name);
            auto* gadget = static_cast<CZoEditObjectBase*>(Make(module, kind, layer));
            body(kind, gadget, kind.handle(gadget)->GetObjectID());
            module.DestroyGraphicsEditObject(gadget);
            EXPECT_FALSE(Handling(gadget));
            user.calls.clear();
            other.calls.clear();
        }
    }

    RecordingEditableUser user;
    RecordingEditableUser other;
    FakeEditView view;
};
} // namespace

TEST_F(GadgetTest, ADragStartsProcessesAndCompletesWithTheHandlesCursor)
{
    IZoGraphicsMapLayer* layer = module.CreateGraphicsLayer("edit");
    EachKind([&](const SGadgetKind& kind, CZoEditObjectBase* gadget, int id) {
        EXPECT_EQ(gadget->GetGraphicsModule(), &module);
        EXPECT_TRUE(Handling(gadget));
        EXPECT_EQ(kind.handle(gadget)->GetGraphicsMapLayer(), layer);
        view.area.viewport()->setCursor(Qt::CrossCursor);
        // The handle's cursor, its picture loaded from the resources.
        const auto loaded = [this] {
            return view.Shape() != Qt::BitmapCursor || !view.area.viewport()->cursor().pixmap().isNull();
        };
        EXPECT_TRUE(gadget->OnHoverEnter(&view, 0, 0, id));
        EXPECT_NE(view.Shape(), Qt::CrossCursor);
        EXPECT_TRUE(loaded());
        EXPECT_FALSE(gadget->OnMousePress(&view, 0, 0, -1) || gadget->OnMousePress(nullptr, 0, 0, id));
        EXPECT_TRUE(gadget->OnMousePress(&view, 0, 0, id) && loaded() && gadget->IsDragging());
        EXPECT_TRUE(gadget->OnMouseMove(&view, 50, -50, id) && gadget->OnMouseMove(&view, 60, -40, id));
        EXPECT_TRUE(gadget->OnMouseRelease(&view, 60, -40, id));
        EXPECT_FALSE(gadget->IsDragging());
        EXPECT_EQ(Names(user.calls), Drag(kind));
        EXPECT_EQ(view.Shape(), Qt::CrossCursor);
    }, layer);
}

TEST_F(GadgetTest, AClickChangesNothingAndEscapeBacksOutToTheStart)
{
    const int near = QApplication::startDragDistance() / 2 - 1;
    EachKind([&](const SGadgetKind& kind, CZoEditObjectBase* gadget, int id) {
        const QPointF before = kind.handle(gadget)->GetQtItem()->pos();
        gadget->OnMousePress(&view, 20, -20, id);
        EXPECT_TRUE(gadget->OnMouseMove(&view, 20 + near, -20 - near, id));
        EXPECT_TRUE(gadget->OnMouseRelease(&view, 20 + near, -20, id));
        EXPECT_EQ(user.calls, (Calls{kind.start, kind.complete + kind.value}));
        EXPECT_FALSE(gadget->OnKeyPress(&view, Qt::Key_Escape));
        gadget->OnMousePress(&view, 0, 0, id);
        gadget->OnMouseMove(&view, 50, -50, id);
        EXPECT_FALSE(gadget->OnKeyPress(&view, Qt::Key_A));
        EXPECT_TRUE(gadget->OnKeyPress(&view, Qt::Key_Escape));
        EXPECT_EQ(user.calls.back(), kind.backout + kind.value);
        EXPECT_EQ(kind.handle(gadget)->GetQtItem()->pos(), before);
        EXPECT_FALSE(gadget->IsDragging() || gadget->OnKeyPress(&view, Qt::Key_Escape));
    });
}

TEST_F(GadgetTest, DisablingOrAnotherUserEndsTheDragSilently)
{
    EachKind([&](const SGadgetKind& kind, CZoEditObjectBase* gadget, int id) {
        IZoGraphicsMapObject* handle = kind.handle(gadget);
        gadget->OnMousePress(&view, 0, 0, id);
        gadget->OnMouseMove(&view, 50, -50, id);
        gadget->SetEnabled(false);
        EXPECT_FALSE(gadget->IsDragging() || gadget->OnMouseRelease(&view, 50, -50, id) ||
                     gadget->OnKeyPress(&view, Qt::Key_Escape) || gadget->OnHoverEnter(&view, 50, -50, id));
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
        EXPECT_EQ(Names(other.calls), Drag(kind));
        // Detached: hidden and deaf; uninitialised: the handles destroyed,
        // a user ignored.
        gadget->DetachEditableUser();
        gadget->SetVisible(true);
        EXPECT_FALSE(handle->IsVisible() || gadget->OnMousePress(&view, 0, 0, id));
        gadget->Unintialise();
        gadget->AttachEditableUser(&user);
        EXPECT_TRUE(module.LookupGraphicObject(id) == nullptr && gadget->GetEditableUser() == nullptr);
        EXPECT_FALSE(gadget->Initialise(nullptr, nullptr));
    });
}

// A destroyed layer: no handle lands on another layer in its place. The
// module torn down first has destroyed the handles already. (Handles cleared
// under a drag are the registry fuzzer's.)
TEST_F(GadgetTest, AGadgetOutlivesItsHandlesAndItsLayer)
{
    IZoGraphicsMapLayer* layer = module.CreateGraphicsLayer("edit");
    const int objects = module.GetRegisteredObjectCount();
    std::vector<IZoGraphicsEditObject*> gadgets;
    for (const SGadgetKind& kind : kKinds)
        gadgets.push_back((module.*kind.create)(layer));
    module.DestroyGraphicsLayer(layer);
    for (IZoGraphicsEditObject* gadget : gadgets)
    {
        gadget->AttachEditableUser(&user);
        gadget->UpdateEditor(0);
        UseAfterLoss(gadget, -1);
        module.DestroyGraphicsEditObject(gadget);
    }
    EXPECT_EQ(module.GetRegisteredObjectCount(), objects);
    IZoGraphicsEditObject* late = Make(module, kKinds[0]);
    UnintialiseNow();
    module.DestroyGraphicsEditObject(late);
}

// Given back inside any callback of a gesture: the rest of the gesture, its
// handles and its place among the map's handlers go with it.
TEST_F(GadgetTest, TheGadgetGivenBackInsideAnyCallback)
{
    for (const SGadgetKind& kind : kKinds)
        for (const std::string& trigger : {kind.start, kind.process, kind.complete, kind.backout})
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
            EXPECT_EQ(Names(user.calls).back(), trigger);
            EXPECT_EQ(module.LookupGraphicObject(id), nullptr);
            EXPECT_FALSE(Handling(gadget));
            user.calls.clear();
        }
}

TEST_F(GadgetTest, TheBallFollowsThePointerUnlessTheUserMovesItsThing)
{
    auto* ball = static_cast<CTranslateBall*>(Make(module, kKinds[0]));
    const int id = ball->GetDot()->GetObjectID();
    ball->OnMousePress(&view, 20, -30, id);
    ball->OnMouseMove(&view, 25, -35, id);
    EXPECT_EQ(ball->GetDot()->GetPosition(), CVector3D(2.5, 3.5, 0.0));
    EXPECT_FALSE(ball->OnMouseMove(&view, 90, -90, -1)); // the pointer outran the dot
    ball->OnKeyPress(&view, Qt::Key_Escape);
    user.takeOver = {"ProcessTranslation", "CompleteTranslation"};
    Gesture(ball, id, false);
    EXPECT_EQ(ball->GetDot()->GetPosition(), user.position);
    ball->SetEditorPoint(CVector3D(5.0, 5.0, 0.0), 0);
    ball->SetEditorPoint(CVector3D(7.0, 7.0, 0.0), 1);
    ball->UpdateEditor(1);
    EXPECT_EQ(ball->GetDot()->GetPosition(), CVector3D(5.0, 5.0, 0.0));
    module.DestroyGraphicsEditObject(ball);
}

TEST_F(GadgetTest, TheBoxsHandlesSitOnCornersAndIntegerMidpointsAndEachMovesItsSides)
{
    auto* box = static_cast<CScaleBox*>(Make(module, kKinds[2]));
    const struct
    {
        double x, y;
        Qt::CursorShape cursor;
        const char* dragged; // 50 pixels up
    } rows[] = {{1, 4, Qt::SizeFDiagCursor, "0.0000,2.0000,3.0000,5.0000"},
                {3, 4, Qt::SizeBDiagCursor, "1.0000,2.0000,0.0000,5.0000"},
                {3, 2, Qt::SizeFDiagCursor, "1.0000,5.0000,0.0000,4.0000"},
                {1, 2, Qt::SizeBDiagCursor, "0.0000,5.0000,3.0000,4.0000"},
                {2, 4, Qt::SizeVerCursor, "1.0000,2.0000,3.0000,5.0000"},
                {3, 3, Qt::SizeHorCursor, "1.0000,2.0000,0.0000,4.0000"},
                {2, 2, Qt::SizeVerCursor, "1.0000,5.0000,3.0000,4.0000"},
                {1, 3, Qt::SizeHorCursor, "0.0000,2.0000,3.0000,4.0000"}};
    user.takeOver = {"CompleteScale"};
    for (int i = 0; i < CScaleBox::kHandleCount; ++i)
    {
        SCOPED_TRACE(i);
        user.calls.clear();
        box->UpdateEditor(0);
        const int id = box->GetHandle(i)->GetObjectID();
        EXPECT_EQ(box->GetHandle(i)->GetPosition(), CVector3D(rows[i].x, rows[i].y, 0.0));
        box->OnHoverEnter(&view, 0, 0, id);
        EXPECT_EQ(view.Shape(), rows[i].cursor);
        box->OnHoverLeave(&view, 0, 0, id);
        box->OnMousePress(&view, 0, 0, id);
        box->OnMouseMove(&view, 0, -50, id);
        box->OnMouseRelease(&view, 0, -50, id);
        EXPECT_EQ(user.calls[1], std::string("ProcessScale ") + rows[i].dragged);
    }
    // 10 to 21 pixels: the midpoint 15.5 drops its half pixel; a box that is
    // not finite leaves the handles where they are.
    user.box = EXTENT{1.0, 2.0, 2.1, 4.1};
    box->UpdateEditor(0);
    EXPECT_DOUBLE_EQ(box->GetHandle(4)->GetPosition().x, 1.5);
    EXPECT_DOUBLE_EQ(box->GetHandle(5)->GetPosition().y, 3.0);
    user.box = EXTENT{1.0, std::numeric_limits<double>::quiet_NaN(), 3.0, std::numeric_limits<double>::infinity()};
    box->UpdateEditor(0);
    EXPECT_DOUBLE_EQ(box->GetHandle(4)->GetPosition().x, 1.5);
    module.DestroyGraphicsEditObject(box);
}

TEST_F(GadgetTest, TheBoxsFrameFollowsUnderTheHandlesAndIsNormalisedOnRelease)
{
    auto* box = static_cast<CScaleBox*>(Make(module, kKinds[2]));
    IZoRectangleMapObject* frame = box->GetFrame();
    const auto shown = [frame] { return RecordingEditableUser::Box(frame->GetExtent()); };
    const int id = box->GetHandle(0)->GetObjectID();
    // The top-left handle dragged beyond the bottom-right corner.
    box->OnMousePress(&view, 0, 0, id);
    box->OnMouseMove(&view, 20, -30, id);
    box->OnMouseMove(&view, 50, -10, id);
    EXPECT_TRUE(frame->IsVisible() && shown() == "5.0000,2.0000,3.0000,1.0000") << shown(); // inverted while moving
    EXPECT_EQ(box->GetHandle(2)->GetPosition(), CVector3D(3.0, 2.0, 0.0));
    const QList<QGraphicsItem*> order = map.Scene()->items(Qt::DescendingOrder);
    for (int i = 0; i < CScaleBox::kHandleCount; ++i)
        EXPECT_LT(order.indexOf(box->GetHandle(i)->GetQtItem()), order.indexOf(frame->GetQtItem())) << i;
    box->OnMouseRelease(&view, 50, -10, id);
    EXPECT_EQ(user.calls, (Calls{"StartScale", "ProcessScale 2.0000,2.0000,3.0000,3.0000",
                                 "ProcessScale 5.0000,2.0000,3.0000,1.0000",
                                 "CompleteScale 3.0000,1.0000,5.0000,2.0000"}));
    EXPECT_FALSE(frame->IsVisible());
    EXPECT_EQ(shown(), "3.0000,1.0000,5.0000,2.0000");
    EXPECT_EQ(box->GetHandle(0)->GetPosition(), CVector3D(3.0, 2.0, 0.0));
    EXPECT_EQ(box->GetActiveHandle(), -1);
    // Escape puts the frame back to the user's box at the press.
    Gesture(box, box->GetHandle(2)->GetObjectID(), true);
    EXPECT_TRUE(!frame->IsVisible() && shown() == "1.0000,2.0000,3.0000,4.0000") << shown();
    // A user that takes the start shows its own frame; one that adjusts the
    // box (here: at least 1 degree wide) sees its adjustment shown.
    user.takeOver = {"StartScale"};
    box->OnMousePress(&view, 0, 0, id);
    EXPECT_FALSE(frame->IsVisible());
    box->OnKeyPress(&view, Qt::Key_Escape);
    user.takeOver.clear();
    user.adjustBox = [](EXTENT& e) { e.xmax = std::max(e.xmax, e.xmin + 1.0); };
    const int side = box->GetHandle(5)->GetObjectID();
    box->OnMousePress(&view, 0, 0, side);
    box->OnMouseMove(&view, 12, -30, side);
    EXPECT_EQ(shown(), "1.0000,2.0000,2.0000,4.0000");
    EXPECT_EQ(box->GetHandle(5)->GetPosition(), CVector3D(2.0, 3.0, 0.0));
    box->OnMouseRelease(&view, 12, -30, side);
    EXPECT_EQ(shown(), "1.0000,2.0000,2.0000,4.0000");
    module.DestroyGraphicsEditObject(box);
}

TEST_F(GadgetTest, TheAxisHandleEndsAnArmFromThePivotAtTheUsersAngle)
{
    auto* axis = static_cast<CRotationAxis*>((module.*kKinds[1].create)(nullptr));
    axis->AttachEditableUser(&user);
    // The handle's distance from the pivot (1, 1) in pixels and its bearing in degrees.
    const auto arm = [axis] {
        const CVector3D end = axis->GetDot()->GetPosition();
        return QPointF(std::hypot(end.x - 1.0, end.y - 1.0) * 10.0, std::atan2(end.x - 1.0, end.y - 1.0) * 180.0 / M_PI);
    };
    EXPECT_FALSE(axis->IsVisible()); // until the host says where the pivot is
    user.rotation = 60.0;
    axis->UpdateEditor(1); // another kind of editor point
    axis->SetEditorPoint(CVector3D(4.0, 4.0, 0.0), 1);
    EXPECT_FALSE(axis->IsVisible());
    user.rotation = 30.0;
    axis->UpdateEditor(0);
    EXPECT_TRUE(axis->IsVisible());
    EXPECT_NEAR(arm().x(), CRotationAxis::kArmLength, 1.0);
    EXPECT_NEAR(arm().y(), 30.0, 2.0);
    EXPECT_EQ(axis->GetArm()->GetData(), (std::vector<CVector3D>{user.controlPoint, axis->GetDot()->GetPosition()}));
    user.rotation = 90.0;
    axis->UpdateEditor(1);
    axis->SetEditorPoint(CVector3D(4.0, 4.0, 0.0), 1);
    EXPECT_NEAR(arm().y(), 30.0, 2.0);
    EXPECT_EQ(axis->GetArm()->GetData().front(), user.controlPoint);
    // A zoom keeps the arm's length on screen.
    map.viewScale = 2.0;
    axis->OnViewChanged();
    EXPECT_NEAR(arm().x(), CRotationAxis::kArmLength / 2.0, 1.0);
    map.viewScale = 0.0; // a host that has not laid its view out yet
    axis->OnViewChanged();
    EXPECT_NEAR(arm().x(), CRotationAxis::kArmLength, 1.0);
    module.DestroyGraphicsEditObject(axis);
}

TEST_F(GadgetTest, TheAxisAngleGrowsThroughAFullTurnAndTurnsBackShort)
{
    user.controlPoint = CVector3D();
    auto* axis = static_cast<CRotationAxis*>(Make(module, kKinds[1]));
    const int id = axis->GetDot()->GetObjectID();
    const auto label = [axis] { return ConvertStdStringToQString(axis->GetLabel()->GetText()); };
    EXPECT_TRUE(axis->OnMousePress(&view, 0, 0, id));
    // Clockwise from up around the pivot, once round and on to the north-east.
    for (QPoint p : {QPoint(0, -10), QPoint(10, 0), QPoint(0, 10), QPoint(-10, 0), QPoint(0, -10)})
        EXPECT_TRUE(axis->OnMouseMove(&view, p.x(), p.y(), -1));
    EXPECT_TRUE(axis->GetGuide()->IsVisible());
    EXPECT_EQ(axis->GetGuide()->GetData(), (std::vector<CVector3D>{CVector3D(), CVector3D(0.0, 1.0, 0.0)}));
    EXPECT_EQ(label(), QStringLiteral("已旋转：360.0°\n与Y轴夹角：30.0°"));
    EXPECT_TRUE(axis->OnMouseRelease(&view, 10, -10, -1));
    EXPECT_EQ(user.calls, (Calls{"StartRotation", "ProcessRotation 30.0000,0.0000", "ProcessRotation 120.0000,90.0000",
                                 "ProcessRotation 210.0000,180.0000", "ProcessRotation 300.0000,270.0000",
                                 "ProcessRotation 390.0000,360.0000", "CompleteRotation 435.0000"}));
    EXPECT_FALSE(axis->GetGuide()->IsVisible());
    EXPECT_FALSE(axis->GetLabel()->IsVisible());

    axis->OnMousePress(&view, 0, -10, id);
    // Just left of up reads as a small turn back, not almost a full one.
    axis->OnMouseMove(&view, -10, -10, -1);
    axis->OnMouseMove(&view, 0, 0, -1); // on the pivot: no direction, no call
    map.failConversions = true;           // nor where the host cannot say where it is
    axis->OnMouseMove(&view, 10, 10, -1);
    map.failConversions = false;
    EXPECT_EQ(user.calls.back(), "ProcessRotation -15.0000,-45.0000");
    EXPECT_EQ(label(), QStringLiteral("已旋转：-45.0°\n与Y轴夹角：345.0°"));
    axis->OnKeyPress(&view, Qt::Key_Escape);
    EXPECT_FALSE(axis->GetLabel()->IsVisible());
    // A user placing things itself: the gadget shows nothing of its own.
    user.takeOver = {"ProcessRotation"};
    axis->OnMousePress(&view, 0, 0, id);
    axis->OnMouseMove(&view, 10, 0, -1);
    EXPECT_FALSE(axis->GetGuide()->IsVisible());
    module.DestroyGraphicsEditObject(axis);
}

// Hidden in the middle of a drag, a gadget shows nothing, the axis's turning
// guide included.
TEST_F(GadgetTest, HiddenMidDragShowsNothing)
{
    EachKind([&](const SGadgetKind&, CZoEditObjectBase* gadget, int id) {
        gadget->OnMousePress(&view, 0, 0, id);
        gadget->OnMouseMove(&view, 50, -50, id);
        gadget->SetVisible(false);
        for (QGraphicsItem* item : map.Scene()->items())
            EXPECT_FALSE(item->isVisible());
    });
}

// Indicators sit on the segments' middles (the closing one too); a click on
// one inserts its midpoint, Escape on its drag nothing; a double click
// deletes a point, down to two on an open path.
TEST_F(GadgetTest, KeyPointIndicatorsInsertTheirMidpointsAndDeletesStopAtTwoPoints)
{
    user.indicators = true;
    auto* set = static_cast<CKeyPointSet*>(Make(module, kKinds[3]));
    const auto handles = [set] {
        std::string s;
        for (int i = 0; i < set->GetPointCount(); ++i)
            s += RecordingEditableUser::Point(set->GetPointHandle(i)->GetPosition()) + " ";
        for (int k = 0; k < set->GetIndicatorCount(); ++k)
            s += "| " + RecordingEditableUser::Point(set->GetIndicatorHandle(k)->GetPosition());
        return s;
    };
    const auto indicator = [set](int k) { return set->GetIndicatorHandle(k)->GetObjectID(); };
    EXPECT_EQ(handles(), "0.0000,0.0000 2.0000,0.0000 2.0000,2.0000 | 1.0000,0.0000| 2.0000,1.0000");
    set->OnHoverEnter(&view, 0, 0, set->GetPointHandle(1)->GetObjectID());
    const qint64 pointCursor = view.area.viewport()->cursor().pixmap().cacheKey();
    set->OnHoverEnter(&view, 0, 0, indicator(1));
    EXPECT_NE(view.area.viewport()->cursor().pixmap().cacheKey(), pointCursor);
    Gesture(set, indicator(1), true);
    set->OnMousePress(&view, 0, 0, indicator(0));
    set->OnMouseRelease(&view, 0, 0, indicator(0));
    EXPECT_EQ(handles(), "0.0000,0.0000 1.0000,0.0000 2.0000,0.0000 2.0000,2.0000 | 0.5000,0.0000| 1.5000,0.0000| "
                         "2.0000,1.0000");
    // Qt's order: press, release, double click, release.
    const int first = set->GetPointHandle(0)->GetObjectID();
    set->OnMousePress(&view, 0, 0, first);
    set->OnMouseRelease(&view, 0, 0, first);
    EXPECT_TRUE(set->OnMouseDoubleClick(&view, 0, 0, first));
    EXPECT_FALSE(set->OnMouseRelease(&view, 0, 0, -1));
    for (int i = 0; i < 2; ++i)
        EXPECT_TRUE(set->OnMouseDoubleClick(&view, 0, 0, set->GetPointHandle(0)->GetObjectID()));
    EXPECT_FALSE(set->OnMouseDoubleClick(&view, 0, 0, indicator(0)));
    EXPECT_EQ(user.calls, (Calls{"StartTranslation", "StartTranslation", "InsertKeyPoint 1 1.0000,0.0000",
                                 "StartTranslation", "CompleteKeyPoint 0 0.0000,0.0000", "DeleteKeyPoint 0 0.0000,0.0000",
                                 "DeleteKeyPoint 0 1.0000,0.0000"}));
    EXPECT_EQ(handles(), "2.0000,0.0000 2.0000,2.0000 | 2.0000,1.0000");
    user.closed = true;
    set->UpdateEditor(0);
    EXPECT_EQ(handles(), "0.0000,0.0000 2.0000,0.0000 2.0000,2.0000 | 1.0000,0.0000| 2.0000,1.0000| 1.0000,1.0000");
    user.indicators = false;
    set->UpdateEditor(0);
    EXPECT_EQ(handles(), "0.0000,0.0000 2.0000,0.0000 2.0000,2.0000 ");
    module.DestroyGraphicsEditObject(set);
}
