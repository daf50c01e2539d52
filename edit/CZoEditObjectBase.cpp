#include "edit/CZoEditObjectBase.h"

#include <ZoGraphics/CZoGraphicsModule.h>
#include <ZoGraphics/IZoGraphicsMapLayer.h>
#include <ZoGraphics/IZoGraphicsMapObject.h>
#include <ZoGraphics/IZoMapModule.h>
#include <ZoGraphics/IZoMapView.h>

#include <QApplication>

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
    m_layerId = layer ? layer->GetLayerID() : -1;
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
    m_layerId = -1;
}

void CZoEditObjectBase::Dispose()
{
    Unintialise();
    if (m_busy > 0)
        m_disposed = true;
    else
        delete this;
}

CZoEditObjectBase::CBusy::~CBusy()
{
    if (--m_gadget.m_busy == 0 && m_gadget.m_disposed)
        delete &m_gadget;
}

void CZoEditObjectBase::AttachEditableUser(IZoGraphicsEditableUser* user)
{
    if (!user || !m_module || user == m_user)
        return;
    CBusy busy(*this);
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

bool CZoEditObjectBase::Follows(int objectId) const
{
    const IZoGraphicsMapObject* grabbed = Grabbed();
    return grabbed && grabbed->GetObjectID() == objectId;
}

bool CZoEditObjectBase::OnMousePress(IZoMapView* view, int x, int y, int objectId)
{
    CBusy busy(*this);
    DropLostGesture(view);
    if (!Ready(view))
        return false;
    if (m_dragging)
        return HoldsPressWhileDragging(objectId);
    if (!Grab(view, x, y, objectId))
        return false;
    m_dragging = true;
    m_dragBegun = false;
    m_pressedAt = QPoint(x, y);
    // The user may end the gesture from inside its callback (detach, disable,
    // give the gadget back): then there is nothing left to start.
    if (AskStart() || !m_dragging || !Grabbed())
        return true;
    RecordStart();
    if (const char* cursor = DragCursor())
        m_cursor.Set(view, cursor);
    return true;
}

bool CZoEditObjectBase::OnMouseMove(IZoMapView* view, int x, int y, int objectId)
{
    CBusy busy(*this);
    if (DropLostGesture(view) || !Ready(view) || !m_dragging || !Follows(objectId))
        return false;
    // A hand never presses quite still: until the pointer has gone the drag
    // distance, the press may still be a click.
    if (!m_dragBegun && IsClick(x, y))
        return true;
    m_dragBegun = true;
    Drag(view, x, y);
    return true;
}

bool CZoEditObjectBase::OnMouseRelease(IZoMapView* view, int x, int y, int objectId)
{
    CBusy busy(*this);
    if (DropLostGesture(view) || !Ready(view) || !m_dragging || !Follows(objectId))
        return false;
    m_dragging = false;
    if (!Complete(view, x, y, !m_dragBegun && IsClick(x, y)))
        m_cursor.Restore(view);
    return true;
}

bool CZoEditObjectBase::OnKeyPress(IZoMapView* view, int key)
{
    CBusy busy(*this);
    if (!m_enabled || !m_user || key != Qt::Key_Escape || !m_dragging)
        return false;
    m_dragging = false;
    if (!BackOut())
        m_cursor.Restore(view);
    return true;
}

bool CZoEditObjectBase::IsClick(int x, int y) const
{
    return (QPoint(x, y) - m_pressedAt).manhattanLength() < QApplication::startDragDistance();
}

bool CZoEditObjectBase::DropLostGesture(IZoMapView* view)
{
    if (!m_dragging || Grabbed())
        return false;
    m_dragging = false;
    m_cursor.Restore(view);
    return true;
}

bool CZoEditObjectBase::HandleLayerHeld() const
{
    if (!m_module)
        return false;
    auto* graphics = dynamic_cast<CZoGraphicsModule*>(m_module);
    return !m_layer || !graphics || graphics->LookupGraphicsLayerById(m_layerId) == m_layer;
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

void CZoEditObjectBase::LeaveHost()
{
    if (m_host && (!m_hostIsObject || m_hostObject))
        m_host->UnregisterEventHandler(this);
    m_host = nullptr;
    m_hostObject.clear();
    m_hostIsObject = false;
}
