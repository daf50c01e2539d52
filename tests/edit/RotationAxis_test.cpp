#include "edit/CRotationAxis.h"
#include "support/EditGadgetFixture.h"

#include <ZoGraphics/IZoDotMapObject.h>
#include <ZoGraphics/IZoPolylineMapObject.h>
#include <ZoGraphics/IZoTextMapObject.h>
#include <ZoGraphics/ZoCoreUtility.h>

using Calls = std::vector<std::string>;

namespace
{
class RotationAxisTest : public EditGadgetFixture<CRotationAxis, &IZoGraphicsModule::CreateRotationEditObject>
{
protected:
    void SetUp() override
    {
        user.rotation = 30.0;
        EditGadgetFixture::SetUp();
        axis->AttachEditableUser(&user);
    }
    int DotId() const { return axis->GetDot()->GetObjectID(); }
    QString Label() const { return ConvertStdStringToQString(axis->GetLabel()->GetText()); }

    CRotationAxis*& axis = gadget;
};
} // namespace

TEST_F(RotationAxisTest, HandlesWaitHiddenForTheControlPoint)
{
    IZoDotMapObject* dot = axis->GetDot();
    ASSERT_NE(dot, nullptr);
    EXPECT_DOUBLE_EQ(dot->GetRadius(), 4.5);
    EXPECT_EQ(dot->GetBrushColor(), QColor(Qt::red));
    EXPECT_FALSE(axis->IsVisible());
    IZoPolylineMapObject* guide = axis->GetGuide();
    ASSERT_NE(guide, nullptr);
    EXPECT_EQ(guide->GetName(), "CustomEditLine");
    EXPECT_EQ(guide->GetPenStyle(), static_cast<unsigned>(Qt::DashDotLine));
    EXPECT_FALSE(guide->IsVisible());
    IZoTextMapObject* label = axis->GetLabel();
    ASSERT_NE(label, nullptr);
    EXPECT_EQ(label->GetBackgroundColor(), QColor(Qt::white));
    EXPECT_EQ(label->GetBorderColor(), QColor(Qt::black));
    EXPECT_DOUBLE_EQ(label->GetBorderWidth(), 1.0);
    EXPECT_FALSE(label->GetUserData(0).toBool()); // the label is not marked
    EXPECT_FALSE(label->IsVisible());

    user.controlPoint = CVector3D(4.0, 5.0, 0.0);
    axis->UpdateEditor(1);
    EXPECT_FALSE(axis->IsVisible());
    axis->UpdateEditor(0);
    EXPECT_TRUE(axis->IsVisible());
    EXPECT_EQ(axis->GetArm()->GetData().front(), user.controlPoint);
    axis->SetEditorPoint(CVector3D(1.0, 1.0, 0.0), 0);
    EXPECT_EQ(axis->GetArm()->GetData().front(), CVector3D(1.0, 1.0, 0.0));
    EXPECT_EQ(label->GetPosition(), CVector3D(1.0, 1.0, 0.0));
}

TEST_F(RotationAxisTest, AngleGrowsSmoothlyThroughAFullTurn)
{
    axis->UpdateEditor(0);
    view.area.viewport()->setCursor(Qt::CrossCursor);
    EXPECT_TRUE(axis->OnHoverEnter(&view, 0, 0, DotId()));
    EXPECT_EQ(view.Shape(), Qt::BitmapCursor);
    EXPECT_TRUE(axis->OnMousePress(&view, 0, 0, DotId()));
    // Clockwise from up, once round and on to the north-east.
    for (QPoint p : {QPoint(0, -10), QPoint(10, 0), QPoint(0, 10), QPoint(-10, 0), QPoint(0, -10)})
        EXPECT_TRUE(axis->OnMouseMove(&view, p.x(), p.y(), -1));
    EXPECT_TRUE(axis->GetGuide()->IsVisible());
    EXPECT_EQ(axis->GetGuide()->GetData(), (std::vector<CVector3D>{CVector3D(), CVector3D(0.0, 1.0, 0.0)}));
    EXPECT_EQ(Label(), QStringLiteral("已旋转：360.0°\n与Y轴夹角：30.0°"));
    EXPECT_TRUE(axis->OnMouseRelease(&view, 10, -10, -1));
    EXPECT_EQ(user.calls, (Calls{"StartRotation", "ProcessRotation 30.0000,0.0000", "ProcessRotation 120.0000,90.0000",
                                 "ProcessRotation 210.0000,180.0000", "ProcessRotation 300.0000,270.0000",
                                 "ProcessRotation 390.0000,360.0000", "CompleteRotation 435.0000"}));
    EXPECT_FALSE(axis->GetGuide()->IsVisible());
    EXPECT_FALSE(axis->GetLabel()->IsVisible());
    EXPECT_EQ(view.Shape(), Qt::CrossCursor);
}

TEST_F(RotationAxisTest, TurningBackAndEscape)
{
    axis->UpdateEditor(0);
    axis->OnMousePress(&view, 0, -10, DotId());
    // Just left of up reads as a small turn back, not almost a full one.
    axis->OnMouseMove(&view, -10, -10, -1);
    axis->OnMouseMove(&view, 0, 0, -1); // on the control point: no direction, no call
    EXPECT_EQ(user.calls.back(), "ProcessRotation -15.0000,-45.0000");
    EXPECT_EQ(Label(), QStringLiteral("已旋转：-45.0°\n与Y轴夹角：345.0°"));
    EXPECT_TRUE(axis->OnKeyPress(&view, Qt::Key_Escape));
    EXPECT_EQ(user.calls.back(), "BackoutRotation 30.0000");
    EXPECT_FALSE(axis->GetLabel()->IsVisible());
    EXPECT_FALSE(axis->OnMouseMove(&view, 10, 0, -1));

    // A user placing things itself: the gadget shows nothing of its own.
    user.takeOver = {"ProcessRotation"};
    axis->OnMousePress(&view, 0, 0, DotId());
    axis->OnMouseMove(&view, 10, 0, -1);
    EXPECT_FALSE(axis->GetGuide()->IsVisible());
    EXPECT_FALSE(axis->OnMousePress(&view, 0, 0, -1));
}
