#include "edit/CZoEditObjectBase.h"

#include <ZoGraphics/CZoGraphicsModule.h>
#include <ZoGraphics/IZoGraphicsMapObject.h>
#include <ZoGraphics/IZoMapModule.h>
#include <ZoGraphics/IZoMapView.h>

#include <cmath>

CZoEditObjectBase::~CZoEditObjectBase()
{
    // Deleted without Unintialise the handles stay with the module, which
    // owns them; the host must not call a deleted handler though.
    LeaveHost();
}

bool CZoEditObjectBase::Initialise(IZoGraphicsModule* module, IZoGraphicsMapLayer* layer)
{
    if (!module)
        return false;
    LeaveHost();
    m_module = module;
    m_layer = layer;
    // The host delivers view events to its handler chain; joining it here
    // leaves the host nothing to do but attach users.
    if (auto* graphics = dynamic_cast<CZoGraphicsModule*>(module))
        m_host = graphics->GetMapModule();
    if (m_host)
    {
        m_hostObject = dynamic_cast<QObject*>(m_host);
        m_hostIsObject = !m_hostObject.isNull();
        m_host->RegisterEventHandler(this, kEventHandlerPriority);
    }
    return true;
}

void CZoEditObjectBase::Unintialise()
{
    if (!m_module)
        return;
    LeaveHost();
    m_user = nullptr;
    m_enabled = false;
    m_dragging = false;
    DestroyHandles();
    m_module = nullptr;
    m_layer = nullptr;
}

void CZoEditObjectBase::AttachEditableUser(IZoGraphicsEditableUser* user)
{
    if (!user || !m_module || user == m_user)
        return;
    m_user = user;
    m_dragging = false;
    m_enabled = true;
    OnAttached();
}

void CZoEditObjectBase::DetachEditableUser()
{
    m_user = nullptr;
    m_dragging = false;
    OnDetached();
}

void CZoEditObjectBase::SetEnabled(bool enabled)
{
    if (!m_user)
        return;
    m_enabled = enabled;
    if (!enabled)
        m_dragging = false;
}

void CZoEditObjectBase::SetEditorPoint(const CVector3D&, int) {}
void CZoEditObjectBase::AddKeyPoint(bool, const CVector3D&) {}
void CZoEditObjectBase::RemoveKeyPoint(bool) {}

bool CZoEditObjectBase::OnHoverEnter(IZoMapView* view, int, int, int objectId)
{
    QCursor cursor;
    if (!Ready(view) || !HoverCursor(objectId, &cursor))
        return false;
    if (!m_dragging)
    {
        m_cursor.Save(view);
        m_cursor.Set(view, cursor);
    }
    return true;
}

bool CZoEditObjectBase::OnHoverLeave(IZoMapView* view, int, int, int objectId)
{
    QCursor cursor;
    if (!Ready(view) || !HoverCursor(objectId, &cursor))
        return false;
    if (!m_dragging)
        m_cursor.Restore(view);
    return true;
}

bool CZoEditObjectBase::TakeEscape(int key)
{
    if (!m_enabled || !m_user || key != Qt::Key_Escape || !m_dragging)
        return false;
    m_dragging = false;
    return true;
}

bool CZoEditObjectBase::PointerToGeo(IZoMapView* view, int x, int y, CVector3D* point)
{
    double lon = 0.0;
    double lat = 0.0;
    if (!view || !view->ConvertPixelToGeo(x, y, &lon, &lat) || !std::isfinite(lon) || !std::isfinite(lat))
        return false;
    *point = CVector3D(lon, lat, 0.0);
    return true;
}

void CZoEditObjectBase::Show(IZoGraphicsMapObject* handle, bool visible)
{
    if (handle)
        handle->SetVisible(visible);
}

void CZoEditObjectBase::DestroyObject(IZoGraphicsMapObject* object, int id)
{
    if (object && m_module && m_module->LookupGraphicObject(id) == object)
        m_module->DestroyGraphicsMapObject(object);
}

void CZoEditObjectBase::LeaveHost()
{
    if (m_host && (!m_hostIsObject || m_hostObject))
        m_host->UnregisterEventHandler(this);
    m_host = nullptr;
    m_hostObject.clear();
    m_hostIsObject = false;
}
