#include "edit/CKeyPointSet.h"
#include "support/EditGadgetFixture.h"

#include <ZoGraphics/IZoDotMapObject.h>
#include <ZoGraphics/IZoPolylineMapObject.h>


using Calls = std::vector<std::string>;

namespace
{
CVector3D P(double x, double y)
{
    return CVector3D(x, y, 0.0);
}

// A host that applies every callback to its own polyline and answers false,
// so that the gadget places its handles too: both must stay in step.
class PolylineHost : public RecordingEditableUser
{
public:
    using Base = RecordingEditableUser;
    using E = IZoGraphicsEditObject*;
    std::vector<CVector3D> GetEditorKeyPointSet(E) override { return line->GetData(); }
    bool OnProcessKeyPointChange(E e, int i, const CVector3D& p) override
    {
        return line->Modify(i, p), Base::OnProcessKeyPointChange(e, i, p);
    }
    bool OnBackoutKeyPointChange(E e, int i, const CVector3D& p) override
    {
        return line->Modify(i, p), Base::OnBackoutKeyPointChange(e, i, p);
    }
    bool OnCompleteKeyPointChange(E e, int i, const CVector3D& p) override
    {
        return line->Modify(i, p), Base::OnCompleteKeyPointChange(e, i, p);
    }
    bool OnCompleteKeyPointInsert(E e, int i, const CVector3D& p) override
    {
        return line->Insert(i, p), Base::OnCompleteKeyPointInsert(e, i, p);
    }
    bool OnCompleteKeyPointDelete(E e, int i, const CVector3D& p) override
    {
        return line->Remove(i), Base::OnCompleteKeyPointDelete(e, i, p);
    }

    IZoPolylineMapObject* line = nullptr;
};

class KeyPointSetTest : public EditGadgetFixture<CKeyPointSet, &IZoGraphicsModule::CreateKeyPointSetEditObject>
{
protected:
    void SetUp() override
    {
        EditGadgetFixture::SetUp();
        host.line = module.CreatePolylineMapObject("edited", nullptr);
        ASSERT_NE(host.line, nullptr);
        host.line->SetData({P(0, 0), P(2, 0), P(2, 2), P(0, 2)});
        host.indicators = true;
    }
    int PointId(int i) const { return set->GetPointHandle(i)->GetObjectID(); }
    int IndicatorId(int i) const { return set->GetIndicatorHandle(i)->GetObjectID(); }
    // Presses the handle, moves over the given pixels, then releases or escapes.
    void Drag(int id, const std::vector<QPoint>& path, bool escape = false)
    {
        set->OnMousePress(&view, 0, 0, id);
        for (const QPoint& p : path)
            set->OnMouseMove(&view, p.x(), p.y(), id);
        if (escape)
            set->OnKeyPress(&view, Qt::Key_Escape);
        else
            set->OnMouseRelease(&view, path.empty() ? 0 : path.back().x(), path.empty() ? 0 : path.back().y(), id);
    }
    // The gadget's handles against the host's line: points and midpoints.
    void ExpectInStep(const std::string& when)
    {
        const std::vector<CVector3D> points = host.line->GetData();
        ASSERT_EQ(set->GetPointCount(), static_cast<int>(points.size())) << when;
        for (int i = 0; i < set->GetPointCount(); ++i)
            ASSERT_EQ(set->GetPointHandle(i)->GetPosition(), points[i]) << when << " point " << i;
        const int n = static_cast<int>(points.size());
        const int segments = !host.indicators || n < 2 ? 0 : host.closed && n >= 3 ? n : n - 1;
        ASSERT_EQ(set->GetIndicatorCount(), segments) << when;
        for (int k = 0; k < segments; ++k)
        {
            const CVector3D a = points[k];
            const CVector3D b = points[(k + 1) % n];
            ASSERT_EQ(set->GetIndicatorHandle(k)->GetPosition(), P((a.x + b.x) * 0.5, (a.y + b.y) * 0.5))
                << when << " indicator " << k;
        }
    }

    PolylineHost host;
    CKeyPointSet*& set = gadget;
};
} // namespace

TEST_F(KeyPointSetTest, DotsOnPointsAndIndicatorsBetweenThemThatInsertWhenDragged)
{
    set->AttachEditableUser(&host);
    ExpectInStep("open");
    // Points move, indicators insert: each has its own cursor.
    set->OnHoverEnter(&view, 0, 0, PointId(1));
    const qint64 point = view.area.viewport()->cursor().pixmap().cacheKey();
    set->OnHoverEnter(&view, 0, 0, IndicatorId(1));
    EXPECT_NE(view.area.viewport()->cursor().pixmap().cacheKey(), point);

    Drag(PointId(1), {QPoint(30, -10)});
    Drag(IndicatorId(1), {QPoint(30, -10), QPoint(30, -5)});
    EXPECT_EQ(host.calls, (Calls{"StartTranslation", "ProcessKeyPoint 1 3.0000,1.0000", "CompleteKeyPoint 1 3.0000,1.0000",
                                 "StartTranslation", "InsertKeyPoint 2 3.0000,0.5000"}));
    ExpectInStep("inserted");
    // Escape on an indicator drag: nothing inserted, nothing to back out; a
    // click inserts at the midpoint itself.
    Drag(IndicatorId(0), {QPoint(5, 5)}, true);
    EXPECT_EQ(host.calls.back(), "StartTranslation");
    Drag(IndicatorId(0), {});
    EXPECT_EQ(host.calls.back(), "InsertKeyPoint 1 1.5000,0.5000");
    host.closed = true;
    set->UpdateEditor(0);
    ExpectInStep("closed");
    host.indicators = false;
    set->UpdateEditor(0);
    ExpectInStep("no indicators");
}

TEST_F(KeyPointSetTest, TrueAnswersLeaveTheHandlesToTheHost)
{
    set->AttachEditableUser(&host);
    host.takeOver = {"ProcessKeyPoint", "InsertKeyPoint", "DeleteKeyPoint"};
    set->OnMousePress(&view, 0, 0, PointId(1));
    set->OnMouseMove(&view, 30, -10, PointId(1));
    // The host moved its point; the handle waits for UpdateEditor, and the
    // drag goes on through it.
    EXPECT_EQ(set->GetPointHandle(1)->GetPosition(), P(2, 0));
    set->UpdateEditor(0);
    EXPECT_TRUE(set->OnMouseRelease(&view, 30, -10, PointId(1)));
    ExpectInStep("released");
    Drag(IndicatorId(0), {QPoint(10, 10)});
    EXPECT_EQ(set->GetPointCount(), 4);
    set->UpdateEditor(0);
    ExpectInStep("after the host's insert");
    set->OnMouseDoubleClick(&view, 0, 0, PointId(0));
    EXPECT_EQ(set->GetPointCount(), 5);
    set->UpdateEditor(0);
    ExpectInStep("after the host's delete");
}

TEST_F(KeyPointSetTest, DoubleClickDeletesDownToTwoPoints)
{
    set->AttachEditableUser(&host);
    // Qt's order: press, release, double click, release.
    const int id = PointId(1);
    set->OnMousePress(&view, 20, 0, id);
    set->OnMouseRelease(&view, 20, 0, id);
    EXPECT_TRUE(set->OnMouseDoubleClick(&view, 20, 0, id));
    EXPECT_FALSE(set->OnMouseRelease(&view, 20, 0, -1));
    EXPECT_EQ(host.calls, (Calls{"StartTranslation", "CompleteKeyPoint 1 2.0000,0.0000", "DeleteKeyPoint 1 2.0000,0.0000"}));
    ExpectInStep("deleted");
    set->OnMouseDoubleClick(&view, 0, 0, PointId(0));
    ExpectInStep("two left");
    host.calls.clear();
    EXPECT_TRUE(set->OnMouseDoubleClick(&view, 0, 0, PointId(0)));
    EXPECT_TRUE(host.calls.empty());
    EXPECT_FALSE(set->OnMouseDoubleClick(&view, 0, 0, IndicatorId(0)));
}
