#pragma once

#include "edit/CZoEditObjectBase.h"

#include <QString>

class IZoDotMapObject;
class IZoPolylineMapObject;
class IZoTextMapObject;

// The angle gadget: a small dot at the end of an arm from the control point
// (the pivot) that the user takes and turns about the pivot, a dashed guide
// from the pivot to the pointer and a label with the angle, both shown only
// while turning. The arm keeps its length on screen and points the way of the
// user's angle, so that a small move of the pointer turns by a small angle.
//
// Angles are bearings: degrees clockwise from the map's up direction (the Y
// axis), as a compass reads. The change is the angle the pointer has swept
// about the pivot since the press, followed continuously, so that a full
// turn reads 360 rather than jumping back to 0; OnProcessRotation gets
// (start + change, change).
class CRotationAxis final : public CZoEditObjectBase
{
public:
    // The arm's length in view pixels.
    static constexpr double kArmLength = 40.0;

    CRotationAxis() = default;
    Q_DISABLE_COPY(CRotationAxis)

    bool IsEditObjectHandle(int objectId) const override;
    bool IsVisible() const override;
    void SetVisible(bool visible) override;
    bool IsShown() const override { return IsVisible(); }
    void SetEditorPoint(const CVector3D& point, int kind) override;
    void UpdateEditor(int kind) override;
    // The arm keeps its length on screen.
    bool OnViewChanged() override;

    IZoDotMapObject* GetDot() const { return Live(m_dot); }
    IZoPolylineMapObject* GetArm() const { return Live(m_arm); }
    IZoPolylineMapObject* GetGuide() const { return Live(m_guide); }
    IZoTextMapObject* GetLabel() const { return Live(m_label); }
    // The label's text for a change and the angle reached.
    static QString LabelText(double change, double angle);

protected:
    void OnAttached() override;
    void OnDetached() override;
    void DestroyHandles() override;
    bool HoverCursor(int objectId, QCursor* cursor) const override;

    bool Grab(IZoMapView* view, int x, int y, int objectId) override;
    IZoGraphicsMapObject* Grabbed() const override;
    // Turning goes round the pivot, so once pressed the pointer is followed
    // wherever it is, not only over the dot.
    bool Follows(int) const override { return true; }
    bool AskStart() override;
    void RecordStart() override;
    const char* DragCursor() const override { return ZoEditCursor::kRotate; }
    void Drag(IZoMapView* view, int x, int y) override;
    bool Complete(IZoMapView* view, int x, int y, bool click) override;
    bool BackOut() override;

private:
    // Makes the handles the host destroyed (or that were never made).
    void MakeHandles();
    // The pointer's bearing about the pivot; false on the pivot itself.
    bool Bearing(IZoMapView* view, int x, int y, double* bearing, CVector3D* pointer) const;
    // Follows the pointer's bearing; false when it cannot be measured.
    bool Follow(IZoMapView* view, int x, int y, CVector3D* pointer);
    // The dot and the arm, pointing along a bearing.
    void PlaceArm(double bearing);
    void ShowTurning(bool visible);

    double m_start = 0.0;
    CVector3D m_control;
    double m_armBearing = 0.0;
    double m_change = 0.0;
    double m_bearing = 0.0;
    bool m_sampled = false;
    TZoEditHandle<IZoDotMapObject> m_dot;
    TZoEditHandle<IZoPolylineMapObject> m_arm;
    TZoEditHandle<IZoPolylineMapObject> m_guide;
    TZoEditHandle<IZoTextMapObject> m_label;
};
