#include "edit/CScaleBox.h"

#include "edit/ZoEditHandles.h"
#include "object/ZoPixelValues.h"

#include <ZoGraphics/IZoDotMapObject.h>
#include <ZoGraphics/IZoMapModule.h>
#include <ZoGraphics/IZoRectangleMapObject.h>

#include <cmath>
#include <utility>
#include <vector>

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
    // The frame shows only while a drag lasts; hidden, the box shows nothing.
    if (!visible)
        Show(GetFrame(), false);
}

void CScaleBox::UpdateEditor(int kind)
{
    CBusy busy(*this);
    if (kind >= 0 && kind < kHandleCount && m_user)
        OnAttached();
}

IZoDotMapObject* CScaleBox::GetHandle(int index) const
{
    return index >= 0 && index < kHandleCount ? Live(m_dots[index]) : nullptr;
}

void CScaleBox::OnAttached()
{
    m_visible = true;
    const EXTENT box = m_user->GetEditorBoundingBox(this);
    // Handles the host destroyed meanwhile are made again in their places.
    if (!GetFrame())
        m_frame = MakeHandle(&ZoEditHandles::CreateFrame);
    Frame(box, false);
    for (auto& dot : m_dots)
    {
        if (!Live(dot))
            dot = MakeHandle(&ZoEditHandles::CreateMainDot);
    }
    SetDotsVisible(true);
    LayOut(box);
}

void CScaleBox::OnDetached()
{
    SetDotsVisible(false);
    Show(GetFrame(), false);
}

void CScaleBox::DestroyHandles()
{
    Destroy(m_frame);
    for (auto& dot : m_dots)
        Destroy(dot);
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

bool CScaleBox::Grab(IZoMapView*, int, int, int objectId)
{
    m_active = HandleAt(objectId);
    return Grabbed() != nullptr;
}

IZoGraphicsMapObject* CScaleBox::Grabbed() const
{
    return GetHandle(m_active) ? m_dots[m_active].registered : nullptr;
}

bool CScaleBox::AskStart()
{
    return m_user->OnStartScaleBoundingBox(this);
}

void CScaleBox::RecordStart()
{
    m_start = m_user->GetEditorBoundingBox(this);
    if (IZoRectangleMapObject* frame = GetFrame())
    {
        frame->SetVisible(true);
        // Under its own handles, so that they stay grabbable where they overlap it.
        std::vector<int> handles;
        for (const auto& dot : m_dots)
            handles.push_back(dot.id);
        m_module->StackedBottom(frame, handles);
    }
}

void CScaleBox::Drag(IZoMapView* view, int x, int y)
{
    EXTENT box;
    if (DraggedBox(view, x, y, &box) && !m_user->OnProcessScaleBoundingBox(this, box))
    {
        if (IZoRectangleMapObject* frame = GetFrame())
            frame->SetExtent(box);
        LayOut(box);
    }
}

bool CScaleBox::Complete(IZoMapView* view, int x, int y, bool click)
{
    // A click completes on the box as it stands.
    EXTENT box;
    if (click || !DraggedBox(view, x, y, &box))
    {
        const IZoRectangleMapObject* frame = GetFrame();
        box = frame ? frame->GetExtent() : m_start;
    }
    if (box.xmin > box.xmax)
        std::swap(box.xmin, box.xmax);
    if (box.ymin > box.ymax)
        std::swap(box.ymin, box.ymax);
    if (m_user->OnCompleteScaleBoundingBox(this, box))
        return true;
    Frame(box, false);
    LayOut(box);
    m_active = -1;
    m_start = EXTENT();
    return false;
}

bool CScaleBox::BackOut()
{
    if (m_user->OnBackoutScaleBoundingBox(this, m_start))
        return true;
    // The start box stays: a later gesture that the user starts itself
    // backs out to it again.
    m_active = -1;
    Frame(m_start, false);
    LayOut(m_start);
    return false;
}

int CScaleBox::HandleAt(int objectId) const
{
    for (int i = 0; i < kHandleCount; ++i)
    {
        if (m_dots[i].Is(objectId))
            return i;
    }
    return -1;
}

bool CScaleBox::DraggedBox(IZoMapView* view, int x, int y, EXTENT* box) const
{
    CVector3D point;
    const IZoRectangleMapObject* frame = GetFrame();
    if (!frame || m_active < 0 || m_active >= kHandleCount || !PointerToGeo(view, x, y, &point))
        return false;
    *box = frame->GetExtent();
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
    const IZoRectangleMapObject* frame = GetFrame();
    std::array<IZoDotMapObject*, kHandleCount> dots{};
    for (int i = 0; i < kHandleCount; ++i)
    {
        dots[i] = GetHandle(i);
        if (!dots[i])
            return;
    }
    if (!frame || !std::isfinite(box.xmin + box.ymin + box.xmax + box.ymax))
        return;
    IZoMapModule* map = frame->GetMapModule();
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
        dots[i]->SetPosition(point);
    }
}

void CScaleBox::Frame(const EXTENT& box, bool visible)
{
    if (IZoRectangleMapObject* frame = GetFrame())
    {
        frame->SetExtent(box);
        frame->SetVisible(visible);
    }
}

void CScaleBox::SetDotsVisible(bool visible)
{
    for (int i = 0; i < kHandleCount; ++i)
        Show(GetHandle(i), visible);
}
