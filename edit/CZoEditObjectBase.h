#pragma once

#include "edit/CZoCursorKeeper.h"

#include <ZoGraphics/IZoGraphicsEditObject.h>
#include <ZoGraphics/IZoGraphicsEditableUser.h>
#include <ZoGraphics/IZoGraphicsModule.h>

#include <QPointer>

class IZoMapModule;

// A handle map object with the id it had when created. The id lets a gadget
// check that the module still owns the object before destroying it, since a
// module torn down first has destroyed every handle already.
template <class T>
struct TZoEditHandle
{
    T* object = nullptr;
    int id = -1;

    TZoEditHandle() = default;
    explicit TZoEditHandle(T* created) : object(created), id(created ? created->GetObjectID() : -1) {}
    explicit operator bool() const { return object != nullptr; }
    T* operator->() const { return object; }
    bool Is(int objectId) const { return object && id == objectId; }
};

// What every edit gadget shares: initialisation against the module, the
// registration with the host's event chain, the attached user, the enabled
// and dragging flags, the cursor keeper and the life of the handles. A gadget
// adds its handles and its gesture.
class CZoEditObjectBase : public IZoGraphicsEditObject
{
public:
    // Gadgets are asked before the layers, which never consume pointer events.
    static constexpr int kEventHandlerPriority = 100;

    CZoEditObjectBase() = default;
    ~CZoEditObjectBase() override;
    Q_DISABLE_COPY(CZoEditObjectBase)

    bool Initialise(IZoGraphicsModule* module, IZoGraphicsMapLayer* layer) override;
    void Unintialise() override;
    IZoGraphicsModule* GetGraphicsModule() const override { return m_module; }
    void AttachEditableUser(IZoGraphicsEditableUser* user) override;
    void DetachEditableUser() override;
    void SetEnabled(bool enabled) override;
    // Only the key-point set has key points and only some gadgets an editor point.
    void SetEditorPoint(const CVector3D& point, int kind) override;
    void AddKeyPoint(bool atBack, const CVector3D& point) override;
    void RemoveKeyPoint(bool atBack) override;

    // Over a handle that has a hover cursor: save the view's cursor and show
    // the handle's; leaving it puts the view's back. Nothing changes while
    // dragging, but the pointer over a handle is still the gadget's.
    bool OnHoverEnter(IZoMapView* view, int x, int y, int objectId) override;
    bool OnHoverLeave(IZoMapView* view, int x, int y, int objectId) override;

    IZoGraphicsEditableUser* GetEditableUser() const { return m_user; }
    bool IsDragging() const { return m_dragging; }
    bool IsEnabled() const { return m_enabled; }

protected:
    // After a new user is stored (dragging stopped, enabled).
    virtual void OnAttached() = 0;
    // After the user is dropped: reset the start value, hide the handles.
    virtual void OnDetached() = 0;
    // Destroys every handle and clears the gadget's own state.
    virtual void DestroyHandles() = 0;
    // Whether the object is a handle with a hover cursor, and that cursor.
    virtual bool HoverCursor(int objectId, QCursor* cursor) const = 0;

    // A pointer event may concern the gadget at all.
    bool Ready(IZoMapView* view) const { return m_enabled && m_user && view; }
    // Escape during a drag ends it; true when the gadget takes the key.
    bool TakeEscape(int key);
    // The pointer in geographic coordinates (height 0); false off the map.
    static bool PointerToGeo(IZoMapView* view, int x, int y, CVector3D* point);

    template <class T>
    TZoEditHandle<T> MakeHandle(T* created) const
    {
        return TZoEditHandle<T>(created);
    }
    template <class T>
    void Destroy(TZoEditHandle<T>& handle)
    {
        DestroyObject(handle.object, handle.id);
        handle = TZoEditHandle<T>();
    }
    static void Show(IZoGraphicsMapObject* handle, bool visible);
    // The host's map module when the gadget joined its event chain.
    IZoMapModule* GetHostMap() const { return m_host; }

    IZoGraphicsModule* m_module = nullptr;
    IZoGraphicsMapLayer* m_layer = nullptr;
    IZoGraphicsEditableUser* m_user = nullptr;
    bool m_dragging = false;
    CZoCursorKeeper m_cursor;
    bool m_enabled = false;

private:
    void DestroyObject(IZoGraphicsMapObject* object, int id);
    void LeaveHost();

    IZoMapModule* m_host = nullptr;
    // Set when the host is a QObject: a host deleted before the gadget is
    // then not called back on the way out.
    QPointer<QObject> m_hostObject;
    bool m_hostIsObject = false;
};
