#include "edit/CRotationAxis.h"

#include "edit/ZoEditHandles.h"

#include <ZoGraphics/IZoDotMapObject.h>
#include <ZoGraphics/IZoMapModule.h>
#include <ZoGraphics/IZoPolylineMapObject.h>
#include <ZoGraphics/IZoTextMapObject.h>
#include <ZoGraphics/ZoCoreUtility.h>

#include <cmath>

namespace
{
double Normalised(double degrees)
{
    degrees = std::fmod(degrees, 360.0);
    return degrees < 0.0 ? degrees + 360.0 : degrees;
}
} // namespace

QString CRotationAxis::LabelText(double change, double angle)
{
    return QStringLiteral("已旋转：%1°\n与Y轴夹角：%2°").arg(change, 0, 'f', 1).arg(Normalised(angle), 0, 'f', 1);
}

bool CRotationAxis::IsEditObjectHandle(int objectId) const
{
    return m_dot.Is(objectId) || m_guide.Is(objectId) || m_label.Is(objectId);
}

bool CRotationAxis::IsVisible() const
{
    return m_dot && m_dot->IsVisible();
}

void CRotationAxis::SetVisible(bool visible)
{
    if (!m_user)
        return;
    Show(m_dot.object, visible);
    if (!visible)
        ShowTurning(false);
}

void CRotationAxis::SetEditorPoint(const CVector3D& point, int kind)
{
    if (kind != 0 || !m_dot)
        return;
    m_control = point;
    m_dot->SetPosition(point);
    m_dot->SetVisible(true);
    if (m_label)
        m_label->SetPosition(point);
}

void CRotationAxis::UpdateEditor(int kind)
{
    if (kind == 0 && m_user)
        SetEditorPoint(m_user->GetEditorControlPoint(this), 0);
}

void CRotationAxis::OnAttached()
{
    // Created hidden: the host says where the control point is.
    if (!m_dot)
    {
        m_dot = MakeHandle(ZoEditHandles::CreateSmallDot(m_module, m_layer));
        Show(m_dot.object, false);
    }
    if (!m_guide)
        m_guide = MakeHandle(ZoEditHandles::CreateGuideLine(m_module, m_layer));
    if (!m_label)
        m_label = MakeHandle(ZoEditHandles::CreateLabel(m_module, m_layer));
    ShowTurning(false);
}

void CRotationAxis::OnDetached()
{
    m_start = 0.0;
    Show(m_dot.object, false);
    ShowTurning(false);
}

void CRotationAxis::DestroyHandles()
{
    Destroy(m_dot);
    Destroy(m_guide);
    Destroy(m_label);
    m_start = 0.0;
}

bool CRotationAxis::HoverCursor(int objectId, QCursor* cursor) const
{
    if (!m_dot.Is(objectId))
        return false;
    *cursor = CZoCursorKeeper::Picture(ZoEditCursor::kRotate);
    return true;
}

bool CRotationAxis::OnMousePress(IZoMapView* view, int, int, int objectId)
{
    if (!OnDot(view, objectId) || m_dragging)
        return false;
    m_dragging = true;
    m_sampled = false;
    m_change = 0.0;
    m_start = 0.0;
    if (m_user->OnStartRotation(this))
        return true;
    m_start = m_user->GetEditorRotation(this);
    m_cursor.Set(view, ZoEditCursor::kRotate);
    return true;
}

// Turning goes round the control point, so once pressed the pointer is
// followed wherever it is, not only over the dot.
bool CRotationAxis::OnMouseMove(IZoMapView* view, int x, int y, int)
{
    if (!Ready(view) || !m_dragging)
        return false;
    CVector3D pointer;
    if (!Follow(view, x, y, &pointer) || m_user->OnProcessRotation(this, m_start + m_change, m_change))
        return true;
    if (m_guide)
        m_guide->SetData({m_control, pointer});
    if (m_label)
    {
        m_label->SetText(ConvertQStringToStdString(LabelText(m_change, m_start + m_change)));
        m_label->SetPosition(pointer);
    }
    ShowTurning(true);
    return true;
}

bool CRotationAxis::OnMouseRelease(IZoMapView* view, int x, int y, int)
{
    if (!Ready(view) || !m_dragging)
        return false;
    m_dragging = false;
    CVector3D pointer;
    Follow(view, x, y, &pointer);
    if (m_user->OnCompleteRotation(this, m_start + m_change))
        return true;
    ShowTurning(false);
    m_cursor.Restore(view);
    return true;
}

bool CRotationAxis::OnKeyPress(IZoMapView* view, int key)
{
    if (!TakeEscape(key))
        return false;
    if (m_user->OnBackoutRotation(this, m_start))
        return true;
    ShowTurning(false);
    m_start = 0.0;
    m_cursor.Restore(view);
    return true;
}

bool CRotationAxis::Follow(IZoMapView* view, int x, int y, CVector3D* pointer)
{
    IZoMapModule* map = m_dot ? m_dot->GetMapModule() : nullptr;
    int cx = 0, cy = 0, px = 0, py = 0;
    if (!map || !PointerToGeo(view, x, y, pointer) || !map->ConvertSceneToPixel(&cx, &cy, m_control.x, m_control.y) ||
        !map->ConvertSceneToPixel(&px, &py, pointer->x, pointer->y))
        return false;
    if (px == cx && py == cy)
        return false; // no direction on the control point itself
    // Scene y grows downwards: up is (0, -1) and clockwise is positive.
    const double bearing = Normalised(std::atan2(px - cx, cy - py) * 180.0 / M_PI);
    if (!m_sampled)
        m_change = bearing > 180.0 ? bearing - 360.0 : bearing;
    else
    {
        double step = bearing - m_bearing;
        if (step > 180.0)
            step -= 360.0;
        else if (step <= -180.0)
            step += 360.0;
        m_change += step;
    }
    m_bearing = bearing;
    m_sampled = true;
    return true;
}

void CRotationAxis::ShowTurning(bool visible)
{
    Show(m_guide.object, visible);
    Show(m_label.object, visible);
}
