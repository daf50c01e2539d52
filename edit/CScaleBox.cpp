#include "edit/CScaleBox.h"

#include "edit/ZoEditHandles.h"
#include "object/ZoPixelValues.h"

#include <ZoGraphics/IZoDotMapObject.h>
#include <ZoGraphics/IZoMapModule.h>
#include <ZoGraphics/IZoRectangleMapObject.h>

#include <cmath>
#include <utility>

namespace
{
// Which sides of the box a handle moves and the cursor it shows; indices go
// round the corners from the top left, then round the edge midpoints.
struct SHandleRole
{
    bool xmin, ymin, xmax, ymax;
    Qt::CursorShape cursor;
};
constexpr SHandleRole kRoles[CScaleBox::kHandleCount] = {
    {true, false, false, true, Qt::SizeFDiagCursor},  {false, false, true, true, Qt::SizeBDiagCursor},
    {false, true, true, false, Qt::SizeFDiagCursor},  {true, true, false, false, Qt::SizeBDiagCursor},
    {false, false, false, true, Qt::SizeVerCursor},   {false, false, true, false, Qt::SizeHorCursor},
    {false, true, false, false, Qt::SizeVerCursor},   {true, false, false, false, Qt::SizeHorCursor},
};
} // namespace

bool CScaleBox::IsEditObjectHandle(int objectId) const
{
    return m_frame.Is(objectId) || HandleAt(objectId) != -1;
}

void CScaleBox::SetVisible(bool visible)
{
    if (!m_user)
        return;
    m_visible = visible;
    SetDotsVisible(visible);
}

void CScaleBox::UpdateEditor(int kind)
{
    if (kind >= 0 && kind < kHandleCount && m_user)
        OnAttached();
}

IZoDotMapObject* CScaleBox::GetHandle(int index) const
{
    return index >= 0 && index < static_cast<int>(m_dots.size()) ? m_dots[index].object : nullptr;
}

void CScaleBox::OnAttached()
{
    m_visible = true;
    const EXTENT box = m_user->GetEditorBoundingBox(this);
    if (!m_frame)
        m_frame = MakeHandle(ZoEditHandles::CreateFrame(m_module, m_layer));
    if (m_frame)
    {
        m_frame->SetExtent(box);
        m_frame->SetVisible(false);
    }
    while (m_dots.size() < kHandleCount)
    {
        auto dot = MakeHandle(ZoEditHandles::CreateMainDot(m_module, m_layer));
        if (!dot)
            break;
        m_dots.push_back(dot);
    }
    SetDotsVisible(true);
    LayOut(box);
}

void CScaleBox::OnDetached()
{
    SetDotsVisible(false);
    Show(m_frame.object, false);
}

void CScaleBox::DestroyHandles()
{
    Destroy(m_frame);
    for (auto& dot : m_dots)
        Destroy(dot);
    m_dots.clear();
    m_start = EXTENT();
    m_active = -1;
    m_visible = false;
}

bool CScaleBox::HoverCursor(int objectId, QCursor* cursor) const
{
    const int handle = HandleAt(objectId);
    if (handle == -1)
        return false;
    *cursor = QCursor(kRoles[handle].cursor);
    return true;
}

bool CScaleBox::OnMousePress(IZoMapView* view, int, int, int objectId)
{
    if (!Ready(view) || m_dragging)
        return false;
    m_active = HandleAt(objectId);
    if (m_active == -1)
        return false;
    m_dragging = true;
    m_start = EXTENT();
    if (m_user->OnStartScaleBoundingBox(this))
        return true;
    m_start = m_user->GetEditorBoundingBox(this);
    if (m_frame)
    {
        m_frame->SetVisible(true);
        // Under its own handles, so that they stay grabbable where they overlap it.
        std::vector<int> handles;
        for (const auto& dot : m_dots)
            handles.push_back(dot.id);
        m_module->StackedBottom(m_frame.object, handles);
    }
    return true;
}

bool CScaleBox::OnMouseMove(IZoMapView* view, int x, int y, int objectId)
{
    if (!Ready(view) || !m_dragging || m_active == -1 || HandleAt(objectId) != m_active)
        return false;
    EXTENT box;
    if (DraggedBox(view, x, y, &box) && !m_user->OnProcessScaleBoundingBox(this, box))
    {
        m_frame->SetExtent(box);
        LayOut(box);
    }
    return true;
}

bool CScaleBox::OnMouseRelease(IZoMapView* view, int x, int y, int objectId)
{
    if (!Ready(view) || !m_dragging || m_active == -1 || HandleAt(objectId) != m_active)
        return false;
    m_dragging = false;
    EXTENT box;
    if (!DraggedBox(view, x, y, &box))
        box = m_frame ? m_frame->GetExtent() : m_start;
    if (box.xmin > box.xmax)
        std::swap(box.xmin, box.xmax);
    if (box.ymin > box.ymax)
        std::swap(box.ymin, box.ymax);
    if (m_user->OnCompleteScaleBoundingBox(this, box))
        return true;
    if (m_frame)
    {
        m_frame->SetExtent(box);
        m_frame->SetVisible(false);
    }
    LayOut(box);
    m_active = -1;
    m_start = EXTENT();
    m_cursor.Restore(view);
    return true;
}

bool CScaleBox::OnKeyPress(IZoMapView* view, int key)
{
    if (!TakeEscape(key))
        return false;
    if (m_user->OnBackoutScaleBoundingBox(this, m_start))
        return true;
    m_active = -1;
    if (m_frame)
    {
        m_frame->SetExtent(m_start);
        m_frame->SetVisible(false);
    }
    LayOut(m_start);
    m_cursor.Restore(view);
    return true;
}

int CScaleBox::HandleAt(int objectId) const
{
    for (int i = 0; i < static_cast<int>(m_dots.size()); ++i)
    {
        if (m_dots[i].Is(objectId))
            return i;
    }
    return -1;
}

bool CScaleBox::DraggedBox(IZoMapView* view, int x, int y, EXTENT* box) const
{
    CVector3D point;
    if (!m_frame || !PointerToGeo(view, x, y, &point))
        return false;
    *box = m_frame->GetExtent();
    const SHandleRole& role = kRoles[m_active];
    if (role.xmin)
        box->xmin = point.x;
    if (role.xmax)
        box->xmax = point.x;
    if (role.ymin)
        box->ymin = point.y;
    if (role.ymax)
        box->ymax = point.y;
    return true;
}

void CScaleBox::LayOut(const EXTENT& box)
{
    if (m_dots.size() != kHandleCount || !m_frame ||
        !std::isfinite(box.xmin + box.ymin + box.xmax + box.ymax))
        return;
    IZoMapModule* map = m_frame->GetMapModule();
    int ax = 0, ay = 0, bx = 0, by = 0;
    if (!map || !map->ConvertSceneToPixel(&ax, &ay, box.xmin, box.ymax) ||
        !map->ConvertSceneToPixel(&bx, &by, box.xmax, box.ymin))
        return;
    // Integer midpoints: the half pixel is dropped.
    const int mx = ZoPixelInt((ax + bx) * 0.5);
    const int my = ZoPixelInt((ay + by) * 0.5);
    const int pixels[kHandleCount][2] = {{ax, ay}, {bx, ay}, {bx, by}, {ax, by},
                                         {mx, ay}, {bx, my}, {mx, by}, {ax, my}};
    for (int i = 0; i < kHandleCount; ++i)
    {
        CVector3D point;
        map->ConvertPixelToScene(&point.x, &point.y, pixels[i][0], pixels[i][1]);
        m_dots[i]->SetPosition(point);
    }
}

void CScaleBox::SetDotsVisible(bool visible)
{
    for (const auto& dot : m_dots)
        dot->SetVisible(visible);
}
