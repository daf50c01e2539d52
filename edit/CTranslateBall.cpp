#include "edit/CTranslateBall.h"

#include "edit/ZoEditHandles.h"

#include <ZoGraphics/IZoDotMapObject.h>

bool CTranslateBall::IsVisible() const
{
    return m_dot && m_dot->IsVisible();
}

void CTranslateBall::SetVisible(bool visible)
{
    if (m_user)
        Show(m_dot.object, visible);
}

void CTranslateBall::SetEditorPoint(const CVector3D& point, int kind)
{
    if (kind == 0)
        MoveDot(point);
}

void CTranslateBall::UpdateEditor(int kind)
{
    if (kind == 0 && m_user)
        MoveDot(m_user->GetEditorPosition(this));
}

void CTranslateBall::OnAttached()
{
    if (!m_dot)
        m_dot = MakeHandle(ZoEditHandles::CreateMainDot(m_module, m_layer));
    MoveDot(m_user->GetEditorPosition(this));
    Show(m_dot.object, true);
}

void CTranslateBall::OnDetached()
{
    m_start = CVector3D();
    Show(m_dot.object, false);
}

void CTranslateBall::DestroyHandles()
{
    Destroy(m_dot);
    m_start = CVector3D();
}

bool CTranslateBall::HoverCursor(int objectId, QCursor* cursor) const
{
    if (!m_dot.Is(objectId))
        return false;
    *cursor = CZoCursorKeeper::Picture(ZoEditCursor::kMovePoint);
    return true;
}

bool CTranslateBall::OnMousePress(IZoMapView* view, int, int, int objectId)
{
    if (!OnDot(view, objectId))
        return false;
    if (m_dragging)
        return true;
    m_dragging = true;
    // A user that takes the start leaves no start value to back out to.
    m_start = CVector3D();
    if (m_user->OnStartTranslation(this))
        return true;
    m_start = m_dot->GetPosition();
    m_cursor.Set(view, ZoEditCursor::kDragPoint);
    return true;
}

bool CTranslateBall::OnMouseMove(IZoMapView* view, int x, int y, int objectId)
{
    if (!OnDot(view, objectId) || !m_dragging)
        return false;
    CVector3D point;
    if (PointerToGeo(view, x, y, &point) && !m_user->OnProcessTranslation(this, point))
        MoveDot(point);
    return true;
}

bool CTranslateBall::OnMouseRelease(IZoMapView* view, int x, int y, int objectId)
{
    if (!OnDot(view, objectId) || !m_dragging)
        return false;
    m_dragging = false;
    CVector3D point;
    if (!PointerToGeo(view, x, y, &point))
        point = m_dot->GetPosition();
    if (m_user->OnCompleteTranslation(this, point))
        return true;
    MoveDot(point);
    m_cursor.Restore(view);
    return true;
}

bool CTranslateBall::OnKeyPress(IZoMapView* view, int key)
{
    if (!TakeEscape(key))
        return false;
    if (m_user->OnBackoutTranslation(this, m_start))
        return true;
    MoveDot(m_start);
    m_start = CVector3D();
    m_cursor.Restore(view);
    return true;
}

void CTranslateBall::MoveDot(const CVector3D& point)
{
    if (m_dot)
        m_dot->SetPosition(point);
}
