// The rotation axis's geometry: the handle at the end of an arm from the
// pivot, the angle swept around the pivot, the label that tells it.
#include "edit/CRotationAxis.h"
#include "support/EditGadgetFixture.h"

#include <ZoGraphics/IZoDotMapObject.h>
#include <ZoGraphics/IZoPolylineMapObject.h>
#include <ZoGraphics/IZoTextMapObject.h>
#include <ZoGraphics/ZoCoreUtility.h>

#include <cmath>

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
    // The handle's distance from (1, 1) in pixels and its bearing in degrees.
    double ArmLength() const
    {
        const CVector3D end = axis->GetDot()->GetPosition();
        return std::hypot(end.x - 1.0, end.y - 1.0) * 10.0;
    }
    double ArmBearing() const
    {
        const CVector3D end = axis->GetDot()->GetPosition();
        return std::atan2(end.x - 1.0, end.y - 1.0) * 180.0 / M_PI;
    }

    CRotationAxis*& axis = gadget;
};
} // namespace

TEST_F(RotationAxisTest, TheHandleEndsAnArmFromThePivotAtTheUsersAngle)
{
    EXPECT_FALSE(axis->IsVisible()); // until the host says where the pivot is
    user.controlPoint = CVector3D(1.0, 1.0, 0.0);
    user.rotation = 60.0;
    axis->UpdateEditor(1); // another kind of editor point
    axis->SetEditorPoint(CVector3D(4.0, 4.0, 0.0), 1);
    EXPECT_FALSE(axis->IsVisible());
    user.rotation = 30.0;
    axis->UpdateEditor(0);
    EXPECT_TRUE(axis->IsVisible());
    EXPECT_NEAR(ArmLength(), CRotationAxis::kArmLength, 1.0);
    EXPECT_NEAR(ArmBearing(), 30.0, 2.0);
    EXPECT_EQ(axis->GetArm()->GetData(), (std::vector<CVector3D>{user.controlPoint, axis->GetDot()->GetPosition()}));
    user.rotation = 90.0;
    axis->UpdateEditor(1);
    axis->SetEditorPoint(CVector3D(4.0, 4.0, 0.0), 1);
    EXPECT_NEAR(ArmBearing(), 30.0, 2.0);
    EXPECT_EQ(axis->GetArm()->GetData().front(), user.controlPoint);

    // Ten pixels across the end of the arm turn by about 14 degrees.
    const int x = FakeEditView::PixelX(axis->GetDot()->GetPosition().x);
    const int y = FakeEditView::PixelY(axis->GetDot()->GetPosition().y);
    axis->OnMousePress(&view, x, y, DotId());
    axis->OnMouseMove(&view, x + 9, y + 5, -1);
    ASSERT_EQ(user.calls.size(), 2u);
    EXPECT_NEAR(std::stod(user.calls.back().substr(user.calls.back().find(',') + 1)), 14.0, 2.0);
    // The arm follows; a zoom keeps its length on screen.
    map.viewScale = 2.0;
    axis->OnMouseRelease(&view, x + 9, y + 5, -1);
    axis->OnViewChanged();
    EXPECT_NEAR(ArmLength(), CRotationAxis::kArmLength / 2.0, 1.0);
}

TEST_F(RotationAxisTest, TheAngleGrowsThroughAFullTurnAndTurnsBackShort)
{
    axis->UpdateEditor(0);
    EXPECT_TRUE(axis->OnMousePress(&view, 0, 0, DotId()));
    // Clockwise from up around the pivot at the origin, once round and on to the north-east.
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

    axis->OnMousePress(&view, 0, -10, DotId());
    // Just left of up reads as a small turn back, not almost a full one.
    axis->OnMouseMove(&view, -10, -10, -1);
    axis->OnMouseMove(&view, 0, 0, -1); // on the pivot: no direction, no call
    EXPECT_EQ(user.calls.back(), "ProcessRotation -15.0000,-45.0000");
    EXPECT_EQ(Label(), QStringLiteral("已旋转：-45.0°\n与Y轴夹角：345.0°"));
    axis->OnKeyPress(&view, Qt::Key_Escape);
    EXPECT_FALSE(axis->GetLabel()->IsVisible());

    // A user placing things itself: the gadget shows nothing of its own.
    user.takeOver = {"ProcessRotation"};
    axis->OnMousePress(&view, 0, 0, DotId());
    axis->OnMouseMove(&view, 10, 0, -1);
    EXPECT_FALSE(axis->GetGuide()->IsVisible());
}
