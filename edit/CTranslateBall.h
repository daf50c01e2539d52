#pragma once

#include "edit/CZoEditObjectBase.h"

class IZoDotMapObject;

// The move gadget: one round handle at the edited thing's position, dragged
// to a new geographic position.
class CTranslateBall final : public CZoEditObjectBase
{
public:
    CTranslateBall() = default;
    Q_DISABLE_COPY(CTranslateBall)

    bool IsEditObjectHandle(int objectId) const override { return m_dot.Is(objectId); }
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

protected:
    void OnAttached() override;
    void OnDetached() override;
    void DestroyHandles() override;
    bool HoverCursor(int objectId, QCursor* cursor) const override;

private:
    bool OnDot(IZoMapView* view, int objectId) const { return Ready(view) && m_dot.Is(objectId); }
    void MoveDot(const CVector3D& point);

    CVector3D m_start;
    TZoEditHandle<IZoDotMapObject> m_dot;
};
