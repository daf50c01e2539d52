#pragma once

#include "edit/CZoEditObjectBase.h"

#include <QString>

class IZoDotMapObject;
class IZoPolylineMapObject;
class IZoTextMapObject;

// The angle gadget: a small dot on the control point that the user presses
// and then turns about, a dashed guide from the control point to the pointer
// and a label with the angle, both shown only while turning.
//
// Angles are bearings: degrees clockwise from the map's up direction (the Y
// axis), as a compass reads. The change since the press is the pointer's
// bearing about the control point, starting between -180 and 180 and then
// followed continuously, so that a full turn reads 360 rather than jumping
// back to 0; OnProcessRotation gets (start + change, change).
class CRotationAxis final : public CZoEditObjectBase
{
public:
    CRotationAxis() = default;
    Q_DISABLE_COPY(CRotationAxis)

    bool IsEditObjectHandle(int objectId) const override;
    bool IsVisible() const override;
    void SetVisible(bool visible) override;
    bool IsShown() const override { return IsVisible(); }
    void SetEditorPoint(const CVector3D& point, int kind) override;
    void UpdateEditor(int kind) override;

    bool OnMousePress(IZoMapView* view, int x, int y, int objectId) override;
    bool OnMouseMove(IZoMapView* view, int x, int y, int objectId) override;
    bool OnMouseRelease(IZoMapView* view, int x, int y, int objectId) override;
    bool OnKeyPress(IZoMapView* view, int key) override;

    IZoDotMapObject* GetDot() const { return m_dot.object; }
    IZoPolylineMapObject* GetGuide() const { return m_guide.object; }
    IZoTextMapObject* GetLabel() const { return m_label.object; }
    // The label's text for a change and the angle reached.
    static QString LabelText(double change, double angle);

protected:
    void OnAttached() override;
    void OnDetached() override;
    void DestroyHandles() override;
    bool HoverCursor(int objectId, QCursor* cursor) const override;

private:
    bool OnDot(IZoMapView* view, int objectId) const { return Ready(view) && m_dot.Is(objectId); }
    // Follows the pointer's bearing; false when it cannot be measured.
    bool Follow(IZoMapView* view, int x, int y, CVector3D* pointer);
    void ShowTurning(bool visible);

    double m_start = 0.0;
    CVector3D m_control;
    double m_change = 0.0;
    double m_bearing = 0.0;
    bool m_sampled = false;
    TZoEditHandle<IZoDotMapObject> m_dot;
    TZoEditHandle<IZoPolylineMapObject> m_guide;
    TZoEditHandle<IZoTextMapObject> m_label;
};
