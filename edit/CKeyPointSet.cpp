#include "edit/CKeyPointSet.h"

#include "edit/ZoEditHandles.h"
#include "object/ZoPixelValues.h"

#include <ZoGraphics/IZoDotMapObject.h>
#include <ZoGraphics/IZoMapModule.h>

#include <QGraphicsScene>
#include <QGraphicsView>

#include <algorithm>

namespace
{
// Handles are made this far beyond the views, in view sizes, so that a
// small pan finds them ready.
constexpr double kWindowMargin = 0.5;
} // namespace

bool CKeyPointSet::IsEditObjectHandle(int objectId) const
{
    return Find(objectId).kind != EKind::None;
}

void CKeyPointSet::SetVisible(bool visible)
{
    if (!m_user)
        return;
    m_shown = visible;
    ForEachHandle([visible](IZoDotMapObject* handle) { handle->SetVisible(visible); });
}

void CKeyPointSet::UpdateEditor(int)
{
    CBusy busy(*this);
    if (m_user)
        Rebuild();
}

void CKeyPointSet::AddKeyPoint(bool atBack, const CVector3D& point)
{
    if (m_user)
        InsertPoint(atBack ? GetPointCount() : 0, point);
}

void CKeyPointSet::RemoveKeyPoint(bool atBack)
{
    if (m_user && !m_coords.empty())
        ErasePoint(atBack ? GetPointCount() - 1 : 0);
}

IZoDotMapObject* CKeyPointSet::GetPointHandle(int index) const
{
    return index >= 0 && index < GetPointCount() ? Live(m_points[index]) : nullptr;
}

IZoDotMapObject* CKeyPointSet::GetIndicatorHandle(int index) const
{
    return index >= 0 && index < GetIndicatorCount() ? Live(m_indicators[index]) : nullptr;
}

CVector3D CKeyPointSet::GetPoint(int index) const
{
    return index >= 0 && index < GetPointCount() ? m_coords[index] : CVector3D();
}

void CKeyPointSet::OnAttached()
{
    Rebuild();
}

void CKeyPointSet::OnDetached()
{
    m_start = CVector3D();
    m_active = STarget();
    // Hidden with the user gone, so that the next user's points show again.
    m_shown = false;
    ForEachHandle([](IZoDotMapObject* handle) { handle->SetVisible(false); });
}

void CKeyPointSet::DestroyHandles()
{
    for (DotHandle& handle : m_points)
        Destroy(handle);
    for (DotHandle& handle : m_indicators)
        Destroy(handle);
    m_points.clear();
    m_indicators.clear();
    m_coords.clear();
    m_active = STarget();
    m_start = CVector3D();
    m_shown = false;
}

bool CKeyPointSet::HoverCursor(int objectId, QCursor* cursor) const
{
    const STarget target = Find(objectId);
    if (target.kind == EKind::None)
        return false;
    // Points move; the indicators between them make new points.
    *cursor = CZoCursorKeeper::Picture(target.kind == EKind::Point ? ZoEditCursor::kMovePoint
                                                                   : ZoEditCursor::kInsertPoint);
    return true;
}

bool CKeyPointSet::Grab(IZoMapView*, int, int, int objectId)
{
    m_active = Find(objectId);
    return ActiveHandle() != nullptr;
}

IZoGraphicsMapObject* CKeyPointSet::Grabbed() const
{
    const DotHandle* record = ActiveRecord();
    return record && Live(*record) ? record->registered : nullptr;
}

bool CKeyPointSet::AskStart()
{
    return m_user->OnStartTranslation(this);
}

void CKeyPointSet::RecordStart()
{
    m_start = m_active.kind == EKind::Point ? m_coords[m_active.index] : Midpoint(m_active.index);
}

void CKeyPointSet::Drag(IZoMapView* view, int x, int y)
{
    CVector3D point;
    if (!PointerToGeo(view, x, y, &point))
        return;
    if (m_active.kind == EKind::Indicator)
    {
        if (IZoDotMapObject* indicator = ActiveHandle())
            indicator->SetPosition(point);
    }
    else
    {
        const int index = m_active.index;
        if (!m_user->OnProcessKeyPointChange(this, index, point) && index < GetPointCount())
            MovePoint(index, point);
    }
}

bool CKeyPointSet::Complete(IZoMapView* view, int x, int y, bool click)
{
    const STarget target = m_active;
    // A click leaves the point where it was.
    CVector3D point = target.kind == EKind::Point ? m_coords[target.index] : Midpoint(target.index);
    CVector3D pointer;
    if (!click && PointerToGeo(view, x, y, &pointer))
        point = pointer;
    if (target.kind == EKind::Point)
    {
        if (m_user->OnCompleteKeyPointChange(this, target.index, point))
            return true;
        if (target.index < GetPointCount())
            MovePoint(target.index, point);
    }
    else
    {
        if (m_user->OnCompleteKeyPointInsert(this, target.index + 1, point))
            return true;
        if (target.index < GetPointCount())
            InsertPoint(target.index + 1, point);
    }
    m_active = STarget();
    return false;
}

bool CKeyPointSet::OnMouseDoubleClick(IZoMapView* view, int, int, int objectId)
{
    CBusy busy(*this);
    const STarget target = Find(objectId);
    if (!Ready(view) || m_dragging || target.kind != EKind::Point || !GetPointHandle(target.index))
        return false;
    if (GetPointCount() <= MinimumPoints())
        return true;
    if (!m_user->OnCompleteKeyPointDelete(this, target.index, m_coords[target.index]) &&
        target.index < GetPointCount())
    {
        ErasePoint(target.index);
        // The handle under the pointer is gone; so is the reason for its cursor.
        m_cursor.Restore(view);
    }
    return true;
}

bool CKeyPointSet::BackOut()
{
    const STarget target = m_active;
    if (target.kind == EKind::Point)
    {
        if (m_user->OnBackoutKeyPointChange(this, target.index, m_start))
            return true;
        if (target.index < GetPointCount())
            MovePoint(target.index, m_start);
    }
    else if (target.kind == EKind::Indicator)
        PlaceIndicator(target.index);
    m_active = STarget();
    m_start = CVector3D();
    return false;
}

bool CKeyPointSet::OnViewChanged()
{
    if (m_user)
    {
        UpdateWindow();
        Materialise();
    }
    return false;
}

bool CKeyPointSet::OnViewMoved()
{
    return OnViewChanged();
}

CKeyPointSet::STarget CKeyPointSet::Find(int objectId) const
{
    // Ids are compared in place: a scan of a hundred thousand slots costs a
    // few microseconds per event, and the indices shift with every insert and
    // delete, so a map from id to index would need rebuilding.
    const auto matches = [objectId](const DotHandle& handle) { return handle.Is(objectId); };
    auto point = std::find_if(m_points.begin(), m_points.end(), matches);
    if (point != m_points.end())
        return {EKind::Point, static_cast<int>(point - m_points.begin())};
    auto indicator = std::find_if(m_indicators.begin(), m_indicators.end(), matches);
    if (indicator != m_indicators.end())
        return {EKind::Indicator, static_cast<int>(indicator - m_indicators.begin())};
    return {};
}

const CKeyPointSet::DotHandle* CKeyPointSet::ActiveRecord() const
{
    if (m_active.kind == EKind::Point && m_active.index < GetPointCount())
        return &m_points[m_active.index];
    if (m_active.kind == EKind::Indicator && m_active.index < GetIndicatorCount())
        return &m_indicators[m_active.index];
    return nullptr;
}

IZoDotMapObject* CKeyPointSet::ActiveHandle() const
{
    const DotHandle* record = ActiveRecord();
    return record ? Live(*record) : nullptr;
}

int CKeyPointSet::ExpectedIndicators() const
{
    const int count = GetPointCount();
    if (!m_virtual || count < 2)
        return 0;
    return m_closed && count >= 3 ? count : count - 1;
}

CVector3D CKeyPointSet::Midpoint(int indicator) const
{
    const CVector3D& a = m_coords[indicator];
    const CVector3D& b = m_coords[(indicator + 1) % GetPointCount()];
    return CVector3D((a.x + b.x) * 0.5, (a.y + b.y) * 0.5, 0.0);
}

void CKeyPointSet::InsertPoint(int index, const CVector3D& point)
{
    index = std::clamp(index, 0, GetPointCount());
    m_coords.insert(m_coords.begin() + index, point);
    m_points.insert(m_points.begin() + index, DotHandle());
    PlacePoint(index);
    // The segment that held the new point splits in two: the new indicator
    // goes beside the split one, so that the others keep their places.
    if (ExpectedIndicators() > GetIndicatorCount() && index <= GetIndicatorCount())
        m_indicators.insert(m_indicators.begin() + index, DotHandle());
    FixIndicators(index);
}

void CKeyPointSet::ErasePoint(int index)
{
    Destroy(m_points[index]);
    m_points.erase(m_points.begin() + index);
    m_coords.erase(m_coords.begin() + index);
    if (ExpectedIndicators() < GetIndicatorCount())
    {
        const int merged = std::min(index, GetIndicatorCount() - 1);
        Destroy(m_indicators[merged]);
        m_indicators.erase(m_indicators.begin() + merged);
    }
    FixIndicators(index);
}

void CKeyPointSet::MovePoint(int index, const CVector3D& point)
{
    m_coords[index] = point;
    PlacePoint(index);
    FixIndicators(index);
}

void CKeyPointSet::FixIndicators(int aroundPoint)
{
    const int expected = ExpectedIndicators();
    while (GetIndicatorCount() > expected)
    {
        Destroy(m_indicators.back());
        m_indicators.pop_back();
    }
    m_indicators.resize(expected);
    const int count = GetIndicatorCount();
    if (count == 0)
        return;
    // A few segments may all have changed shape (a path closing or opening);
    // else only the two beside the point and the closing one.
    if (count <= 4)
    {
        for (int i = 0; i < count; ++i)
            PlaceIndicator(i);
        return;
    }
    for (int i : {aroundPoint - 1, aroundPoint, count - 1})
    {
        if (m_closed)
            i = (i + count) % count;
        if (i >= 0 && i < count)
            PlaceIndicator(i);
    }
}

void CKeyPointSet::PlacePoint(int index)
{
    Place(m_points[index], m_coords[index], false);
}

void CKeyPointSet::PlaceIndicator(int index)
{
    if (index >= 0 && index < GetIndicatorCount() && GetPointCount() >= 2)
        Place(m_indicators[index], Midpoint(index), true);
}

void CKeyPointSet::Place(DotHandle& handle, const CVector3D& point, bool small)
{
    IZoDotMapObject* dot = Live(handle);
    if (!dot)
    {
        // Never made, or destroyed by the host since: made (again) when seen.
        if (!InWindow(point))
            return;
        handle = MakeHandle(small ? &ZoEditHandles::CreateSmallDot : &ZoEditHandles::CreateMainDot);
        dot = Live(handle);
        if (!dot)
            return;
        dot->SetVisible(m_shown);
    }
    dot->SetPosition(point);
}

void CKeyPointSet::Rebuild()
{
    m_closed = m_user->IsKeyPointClosePath();
    m_virtual = m_user->IsEnableVirtualIndicate();
    // A user may re-read its points in the middle of a drag (to show a
    // snapped point, say); the drag goes on when its handle is still there.
    if (!m_dragging)
        m_active = STarget();
    m_coords = m_user->GetEditorKeyPointSet(this);
    // Handles are kept and re-placed; only the difference is created or destroyed.
    while (m_points.size() > m_coords.size())
    {
        Destroy(m_points.back());
        m_points.pop_back();
    }
    m_points.resize(m_coords.size());
    UpdateWindow();
    FixIndicators(0);
    if (!ActiveHandle())
        m_active = STarget();
    if (!m_shown)
        SetVisible(true);
    m_shown = true;
    for (int i = 0; i < GetPointCount(); ++i)
        PlacePoint(i);
    for (int i = 0; i < GetIndicatorCount(); ++i)
        PlaceIndicator(i);
}

void CKeyPointSet::UpdateWindow()
{
    m_windowed = false;
    IZoMapModule* map = GetHostMap();
    QGraphicsScene* scene = map ? map->GetScene() : nullptr;
    if (!scene || scene->views().isEmpty())
        return;
    QRectF area;
    for (QGraphicsView* view : scene->views())
    {
        // A view not shown has no settled size yet (one that renders off
        // screen is sized just before it paints): it may show anything.
        if (!view->isVisible())
            return;
        area |= view->mapToScene(view->viewport()->rect()).boundingRect();
    }
    area.adjust(-area.width() * kWindowMargin, -area.height() * kWindowMargin, area.width() * kWindowMargin,
                area.height() * kWindowMargin);
    double left = 0.0, top = 0.0, right = 0.0, bottom = 0.0;
    map->ConvertPixelToScene(&left, &top, ZoPixelInt(area.left()), ZoPixelInt(area.top()));
    map->ConvertPixelToScene(&right, &bottom, ZoPixelInt(area.right()), ZoPixelInt(area.bottom()));
    m_window = EXTENT{std::min(left, right), std::min(top, bottom), std::max(left, right), std::max(top, bottom)};
    m_windowed = true;
}

bool CKeyPointSet::InWindow(const CVector3D& point) const
{
    return !m_windowed || (point.x >= m_window.xmin && point.x <= m_window.xmax && point.y >= m_window.ymin &&
                           point.y <= m_window.ymax);
}

void CKeyPointSet::Materialise()
{
    for (int i = 0; i < GetPointCount(); ++i)
    {
        if (InWindow(m_coords[i]) && !Live(m_points[i]))
            PlacePoint(i);
    }
    for (int i = 0; i < GetIndicatorCount(); ++i)
    {
        if (!Live(m_indicators[i]))
            PlaceIndicator(i);
    }
}

template <class F>
void CKeyPointSet::ForEachHandle(F f) const
{
    for (const std::vector<DotHandle>* handles : {&m_points, &m_indicators})
    {
        for (const DotHandle& handle : *handles)
        {
            if (IZoDotMapObject* dot = Live(handle))
                f(dot);
        }
    }
}
