#include "edit/CTranslateBall.h"

#include "edit/ZoEditHandles.h"

#include <ZoGraphics/IZoDotMapObject.h>

bool CTranslateBall::IsVisible() const
{
    const IZoDotMapObject* dot = GetDot();
    return dot && dot->IsVisible();
}

void CTranslateBall::SetVisible(bool visible)
{
    if (m_user)
        Show(GetDot(), visible);
}

void CTranslateBall::SetEditorPoint(const CVector3D& point, int kind)
{
    if (kind == 0)
        MoveDot(point);
}

void CTranslateBall::UpdateEditor(int kind)
{
    CBusy busy(*this);
    if (kind == 0 && m_user)
        Place(m_user->GetEditorPosition(this));
}

void CTranslateBall::OnAttached()
{
    Place(m_user->GetEditorPosition(this));
    Show(GetDot(), true);
}

void CTranslateBall::OnDetached()
{
    m_start = CVector3D();
    Show(GetDot(), false);
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

bool CTranslateBall::Grab(IZoMapView*, int, int, int objectId)
{
    return Follows(objectId);
}

IZoGraphicsMapObject* CTranslateBall::Grabbed() const
{
    return m_dot.registered && GetDot() ? m_dot.registered : nullptr;
}

bool CTranslateBall::AskStart()
{
    return m_user->OnStartTranslation(this);
}

void CTranslateBall::RecordStart()
{
    if (IZoDotMapObject* dot = GetDot())
        m_start = dot->GetPosition();
}

void CTranslateBall::Drag(IZoMapView* view, int x, int y)
{
    CVector3D point;
    if (PointerToGeo(view, x, y, &point) && !m_user->OnProcessTranslation(this, point))
        MoveDot(point);
}

bool CTranslateBall::Complete(IZoMapView* view, int x, int y, bool click)
{
    // A click leaves the dot where it is: where on the dot it was pressed
    // is no new position.
    const IZoDotMapObject* dot = GetDot();
    CVector3D point = dot ? dot->GetPosition() : m_start;
    if (!click)
        PointerToGeo(view, x, y, &point);
    if (m_user->OnCompleteTranslation(this, point))
        return true;
    MoveDot(point);
    return false;
}

bool CTranslateBall::BackOut()
{
    // A user that backs out itself keeps the start, to back out to again.
    if (m_user->OnBackoutTranslation(this, m_start))
        return true;
    MoveDot(m_start);
    m_start = CVector3D();
    return false;
}

void CTranslateBall::Place(const CVector3D& point)
{
    if (!GetDot())
        m_dot = MakeHandle(&ZoEditHandles::CreateMainDot);
    MoveDot(point);
}

void CTranslateBall::MoveDot(const CVector3D& point)
{
    if (IZoDotMapObject* dot = GetDot())
        dot->SetPosition(point);
}
