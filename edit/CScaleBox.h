#pragma once

#include "edit/CZoEditObjectBase.h"

#include <array>

class IZoDotMapObject;
class IZoRectangleMapObject;

// The resize gadget: eight handles on the corners and edge midpoints of the
// edited thing's geographic box, and a dashed frame showing the new box while
// a handle is dragged.
class CScaleBox final : public CZoEditObjectBase
{
public:
    static constexpr int kHandleCount = 8;

    CScaleBox() = default;
    Q_DISABLE_COPY(CScaleBox)

    bool IsEditObjectHandle(int objectId) const override;
    bool IsVisible() const override { return m_enabled; }
    void SetVisible(bool visible) override;
    bool IsShown() const override { return m_visible; }
    void UpdateEditor(int kind) override;

    IZoDotMapObject* GetHandle(int index) const;
    IZoRectangleMapObject* GetFrame() const { return Live(m_frame); }
    int GetActiveHandle() const { return m_active; }

protected:
    void OnAttached() override;
    void OnDetached() override;
    void DestroyHandles() override;
    bool HoverCursor(int objectId, QCursor* cursor) const override;

    bool Grab(IZoMapView* view, int x, int y, int objectId) override;
    IZoGraphicsMapObject* Grabbed() const override;
    bool AskStart() override;
    void RecordStart() override;
    void Drag(IZoMapView* view, int x, int y) override;
    bool Complete(IZoMapView* view, int x, int y, bool click) override;
    bool BackOut() override;

private:
    int HandleAt(int objectId) const;
    // The frame's box with the sides of the active handle moved to the pointer.
    bool DraggedBox(IZoMapView* view, int x, int y, EXTENT* box) const;
    void LayOut(const EXTENT& box);
    // The frame on the box, hidden or shown.
    void Frame(const EXTENT& box, bool visible);
    void SetDotsVisible(bool visible);

    int m_active = -1;
    EXTENT m_start;
    bool m_visible = false;
    std::array<TZoEditHandle<IZoDotMapObject>, kHandleCount> m_dots;
    TZoEditHandle<IZoRectangleMapObject> m_frame;
};
