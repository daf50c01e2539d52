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

    IZoDotMapObject* GetDot() const { return Live(m_dot); }

protected:
    void OnAttached() override;
    void OnDetached() override;
    void DestroyHandles() override;
    bool HoverCursor(int objectId, QCursor* cursor) const override;

    bool Grab(IZoMapView* view, int x, int y, int objectId) override;
    // A press on the dot is the ball's, dragging or not.
    bool HoldsPressWhileDragging(int objectId) const override { return Follows(objectId); }
    IZoGraphicsMapObject* Grabbed() const override;
    bool AskStart() override;
    void RecordStart() override;
    const char* DragCursor() const override { return ZoEditCursor::kDragPoint; }
    void Drag(IZoMapView* view, int x, int y) override;
    bool Complete(IZoMapView* view, int x, int y, bool click) override;
    bool BackOut() override;

private:
    // Places the dot, making a new one when the old is gone.
    void Place(const CVector3D& point);
    void MoveDot(const CVector3D& point);

    CVector3D m_start;
    TZoEditHandle<IZoDotMapObject> m_dot;
};
