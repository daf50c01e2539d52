#include "edit/CRotationAxis.h"

#include "edit/ZoEditHandles.h"
#include "object/ZoPixelValues.h"

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
    return m_dot.Is(objectId) || m_arm.Is(objectId) || m_guide.Is(objectId) || m_label.Is(objectId);
}

bool CRotationAxis::IsVisible() const
{
    const IZoDotMapObject* dot = GetDot();
    return dot && dot->IsVisible();
}

void CRotationAxis::SetVisible(bool visible)
{
    if (!m_user)
        return;
    Show(GetDot(), visible);
    Show(GetArm(), visible);
    if (!visible)
        ShowTurning(false);
}

void CRotationAxis::SetEditorPoint(const CVector3D& point, int kind)
{
    if (kind != 0)
        return;
    if (m_user)
        MakeHandles();
    if (!GetDot())
        return;
    m_control = point;
    PlaceArm(m_armBearing);
    Show(GetDot(), true);
    Show(GetArm(), true);
    if (IZoTextMapObject* label = GetLabel())
        label->SetPosition(point);
}

void CRotationAxis::UpdateEditor(int kind)
{
    CBusy busy(*this);
    if (kind != 0 || !m_user)
        return;
    m_armBearing = m_user->GetEditorRotation(this);
    if (m_user)
        SetEditorPoint(m_user->GetEditorControlPoint(this), 0);
}

bool CRotationAxis::OnViewChanged()
{
    if (m_user && !m_dragging)
        PlaceArm(m_armBearing);
    return false;
}

void CRotationAxis::OnAttached()
{
    // Shown once the host says where the pivot is.
    MakeHandles();
    ShowTurning(false);
}

void CRotationAxis::MakeHandles()
{
    if (!GetDot())
    {
        m_dot = MakeHandle(&ZoEditHandles::CreateSmallDot);
        Show(GetDot(), false);
    }
    if (!GetArm())
    {
        m_arm = MakeHandle(&ZoEditHandles::CreateGuideLine);
        if (IZoPolylineMapObject* arm = GetArm())
        {
            // Only drawn: the dot at its end is what turns.
            arm->SetPenStyle(Qt::SolidLine);
            arm->SetInteractive(false);
            arm->SetVisible(IsVisible());
        }
    }
    // Under the dot, which is what the pointer must find at the arm's end.
    IZoDotMapObject* dot = GetDot();
    IZoPolylineMapObject* arm = GetArm();
    if (dot && arm)
        arm->SetZValue(dot->GetZValue() - 1);
    if (!GetGuide())
        m_guide = MakeHandle(&ZoEditHandles::CreateGuideLine);
    if (!GetLabel())
        m_label = MakeHandle(&ZoEditHandles::CreateLabel);
}

void CRotationAxis::OnDetached()
{
    m_start = 0.0;
    Show(GetDot(), false);
    Show(GetArm(), false);
    ShowTurning(false);
}

void CRotationAxis::DestroyHandles()
{
    Destroy(m_dot);
    Destroy(m_arm);
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

bool CRotationAxis::Grab(IZoMapView* view, int x, int y, int objectId)
{
    if (!Grabbed() || !m_dot.Is(objectId))
        return false;
    // The angle is swept from where the press was; on the pivot itself the
    // first move gives the direction to sweep from.
    CVector3D pointer;
    m_change = 0.0;
    m_sampled = Bearing(view, x, y, &m_bearing, &pointer);
    return true;
}

IZoGraphicsMapObject* CRotationAxis::Grabbed() const
{
    return GetDot() ? m_dot.registered : nullptr;
}

bool CRotationAxis::AskStart()
{
    return m_user->OnStartRotation(this);
}

void CRotationAxis::RecordStart()
{
    m_start = m_user->GetEditorRotation(this);
}

void CRotationAxis::Drag(IZoMapView* view, int x, int y)
{
    CVector3D pointer;
    if (!Follow(view, x, y, &pointer) || m_user->OnProcessRotation(this, m_start + m_change, m_change))
        return;
    if (IZoPolylineMapObject* guide = GetGuide())
        guide->SetData({m_control, pointer});
    if (IZoTextMapObject* label = GetLabel())
    {
        label->SetText(ConvertQStringToStdString(LabelText(m_change, m_start + m_change)));
        label->SetPosition(pointer);
    }
    ShowTurning(true);
    PlaceArm(m_start + m_change);
}

bool CRotationAxis::Complete(IZoMapView* view, int x, int y, bool click)
{
    CVector3D pointer;
    if (!click)
        Follow(view, x, y, &pointer);
    const double angle = m_start + m_change;
    if (m_user->OnCompleteRotation(this, angle))
        return true;
    ShowTurning(false);
    PlaceArm(angle);
    return false;
}

bool CRotationAxis::BackOut()
{
    if (m_user->OnBackoutRotation(this, m_start))
        return true;
    ShowTurning(false);
    PlaceArm(m_start);
    m_start = 0.0;
    return false;
}

bool CRotationAxis::Bearing(IZoMapView* view, int x, int y, double* bearing, CVector3D* pointer) const
{
    const IZoDotMapObject* dot = GetDot();
    IZoMapModule* map = dot ? dot->GetMapModule() : GetHostMap();
    int cx = 0, cy = 0, px = 0, py = 0;
    if (!map || !PointerToGeo(view, x, y, pointer) || !map->ConvertSceneToPixel(&cx, &cy, m_control.x, m_control.y) ||
        !map->ConvertSceneToPixel(&px, &py, pointer->x, pointer->y))
        return false;
    if (px == cx && py == cy)
        return false; // no direction on the pivot itself
    // Scene y grows downwards: up is (0, -1) and clockwise is positive.
    *bearing = Normalised(std::atan2(px - cx, cy - py) * 180.0 / M_PI);
    return true;
}

bool CRotationAxis::Follow(IZoMapView* view, int x, int y, CVector3D* pointer)
{
    double bearing = 0.0;
    if (!Bearing(view, x, y, &bearing, pointer))
        return false;
    if (m_sampled)
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

void CRotationAxis::PlaceArm(double bearing)
{
    m_armBearing = bearing;
    IZoDotMapObject* dot = GetDot();
    IZoMapModule* map = dot ? dot->GetMapModule() : nullptr;
    int cx = 0, cy = 0;
    if (!map || !map->ConvertSceneToPixel(&cx, &cy, m_control.x, m_control.y))
        return;
    // Pixels of the map at the view's scale: the arm is as long on screen
    // at every zoom.
    const double scale = map->GetViewScale();
    const double length = kArmLength / (std::isfinite(scale) && scale > 0.0 ? scale : 1.0);
    const double radians = bearing * M_PI / 180.0;
    CVector3D end;
    map->ConvertPixelToScene(&end.x, &end.y, ZoPixelInt(std::round(cx + length * std::sin(radians))),
                             ZoPixelInt(std::round(cy - length * std::cos(radians))));
    if (!std::isfinite(end.x) || !std::isfinite(end.y))
        return;
    dot->SetPosition(end);
    if (IZoPolylineMapObject* arm = GetArm())
        arm->SetData({m_control, end});
}

void CRotationAxis::ShowTurning(bool visible)
{
    Show(GetGuide(), visible);
    Show(GetLabel(), visible);
}
