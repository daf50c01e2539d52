#pragma once

#include "edit/CZoEditObjectBase.h"

#include <vector>

class IZoDotMapObject;

// The vertex gadget: one handle per key point of the user's list, and when the
// user enables them, a small indicator on the middle of every segment (the
// closing one too on a closed path).
//
// Index rules, which a host applying every callback to its own list follows
// one to one:
// - point i dragged: OnProcessKeyPointChange(i, p) per move, then
//   OnCompleteKeyPointChange(i, p) or, on Escape, OnBackoutKeyPointChange(i, start);
// - indicator k (between points k and k + 1, the closing one between the last
//   point and point 0) dragged and released: OnCompleteKeyPointInsert(k + 1, p),
//   the new point taking index k + 1 and the later points moving up by one; the
//   drag itself reports nothing, since no point of the host's list moves;
// - point i double-clicked: OnCompleteKeyPointDelete(i, p), the later points
//   moving down by one; refused (nothing called) when only two points are
//   left, three on a closed path;
// - a click (released within the drag distance) completes at the point's own
//   position.
//
// Handles exist for the points in the host's views (and a margin around
// them): a line of a hundred thousand vertices gets the few thousand it
// shows, and more as the view moves. Indices are always those of the whole
// list; a host without views gets a handle for every point.
class CKeyPointSet final : public CZoEditObjectBase
{
public:
    CKeyPointSet() = default;
    Q_DISABLE_COPY(CKeyPointSet)

    bool IsEditObjectHandle(int objectId) const override;
    bool IsVisible() const override { return m_shown; }
    void SetVisible(bool visible) override;
    bool IsShown() const override { return m_shown; }
    void UpdateEditor(int kind) override;
    void AddKeyPoint(bool atBack, const CVector3D& point) override;
    void RemoveKeyPoint(bool atBack) override;

    bool OnMouseDoubleClick(IZoMapView* view, int x, int y, int objectId) override;
    bool OnViewChanged() override;
    bool OnViewMoved() override;

    int GetPointCount() const { return static_cast<int>(m_coords.size()); }
    int GetIndicatorCount() const { return static_cast<int>(m_indicators.size()); }
    // Null for a point or segment whose handle has not been needed yet.
    IZoDotMapObject* GetPointHandle(int index) const;
    IZoDotMapObject* GetIndicatorHandle(int index) const;
    CVector3D GetPoint(int index) const;

protected:
    void OnAttached() override;
    void OnDetached() override;
    void DestroyHandles() override;
    bool HoverCursor(int objectId, QCursor* cursor) const override;

    bool Grab(IZoMapView* view, int x, int y, int objectId) override;
    IZoGraphicsMapObject* Grabbed() const override;
    bool AskStart() override;
    void RecordStart() override;
    const char* DragCursor() const override { return ZoEditCursor::kDragPoint; }
    void Drag(IZoMapView* view, int x, int y) override;
    bool Complete(IZoMapView* view, int x, int y, bool click) override;
    bool BackOut() override;

private:
    enum class EKind
    {
        None,
        Point,
        Indicator
    };
    struct STarget
    {
        EKind kind = EKind::None;
        int index = -1;
    };
    using DotHandle = TZoEditHandle<IZoDotMapObject>;

    STarget Find(int objectId) const;
    const DotHandle* ActiveRecord() const;
    IZoDotMapObject* ActiveHandle() const;
    int ExpectedIndicators() const;
    int MinimumPoints() const { return m_closed ? 3 : 2; }
    CVector3D Midpoint(int indicator) const;
    void InsertPoint(int index, const CVector3D& point);
    void ErasePoint(int index);
    void MovePoint(int index, const CVector3D& point);
    // Brings the indicator count in line and re-places those next to a point.
    void FixIndicators(int aroundPoint);
    void PlacePoint(int index);
    void PlaceIndicator(int index);
    // Creates the handle when its place is in the views, else moves it if it exists.
    void Place(DotHandle& handle, const CVector3D& point, bool small);
    void Rebuild();
    // The views' area in geographic coordinates; false without views.
    void UpdateWindow();
    bool InWindow(const CVector3D& point) const;
    void Materialise();
    template <class F>
    void ForEachHandle(F f) const;

    bool m_closed = false;
    bool m_virtual = false;
    bool m_shown = false;
    bool m_windowed = false;
    EXTENT m_window;
    STarget m_active;
    CVector3D m_start;
    std::vector<CVector3D> m_coords;
    std::vector<DotHandle> m_points;
    std::vector<DotHandle> m_indicators;
};
