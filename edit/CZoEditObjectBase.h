#pragma once

#include "edit/CZoCursorKeeper.h"

#include <ZoGraphics/IZoGraphicsEditObject.h>
#include <ZoGraphics/IZoGraphicsEditableUser.h>
#include <ZoGraphics/IZoGraphicsModule.h>

#include <QPoint>
#include <QPointer>

class IZoMapModule;

// A handle map object, known by the id it had when created. The module owns
// the object and the host may destroy it at any time (clearing its layer,
// tearing the module down, even from inside a gadget's callback), so the
// pointer is only used after the module has confirmed that the id is still
// registered: ids are never reused. Read it through CZoEditObjectBase::Live.
template <class T>
struct TZoEditHandle
{
    T* object = nullptr;
    IZoGraphicsMapObject* registered = nullptr;
    int id = -1;

    TZoEditHandle() = default;
    explicit TZoEditHandle(T* created) : object(created), registered(created), id(created ? created->GetObjectID() : -1)
    {
    }
    bool Is(int objectId) const { return id != -1 && id == objectId; }
};

// What every edit gadget shares: initialisation against the module, the
// registration with the host's event chain, the attached user, the enabled
// and dragging flags, the cursor keeper, the life of the handles and the
// gesture itself (press, move, release and Escape). A gadget adds its handles
// and what each step of the gesture means to it.
//
// A press released within the platform's drag distance of where it began is
// a click: no move reaches the gadget and it completes at the value it
// started from. A gesture whose grabbed handle disappears ends silently.
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
    bool OnMousePress(IZoMapView* view, int x, int y, int objectId) final;
    bool OnMouseMove(IZoMapView* view, int x, int y, int objectId) final;
    bool OnMouseRelease(IZoMapView* view, int x, int y, int objectId) final;
    bool OnKeyPress(IZoMapView* view, int key) final;

    // Gives the gadget back: uninitialised at once, deleted at once or, when
    // called from inside one of its own callbacks, as soon as that returns.
    void Dispose();

    IZoGraphicsEditableUser* GetEditableUser() const { return m_user; }
    bool IsDragging() const { return m_dragging; }
    bool IsEnabled() const { return m_enabled; }

protected:
    // Held for the length of any operation that calls the user: a gadget
    // disposed of meanwhile is deleted when the outermost one ends.
    class CBusy
    {
    public:
        explicit CBusy(CZoEditObjectBase& gadget) : m_gadget(gadget) { ++m_gadget.m_busy; }
        ~CBusy();
        Q_DISABLE_COPY(CBusy)

    private:
        CZoEditObjectBase& m_gadget;
    };

    // After a new user is stored (dragging stopped, enabled).
    virtual void OnAttached() = 0;
    // After the user is dropped: reset the start value, hide the handles.
    virtual void OnDetached() = 0;
    // Destroys every handle and clears the gadget's own state.
    virtual void DestroyHandles() = 0;
    // Whether the object is a handle with a hover cursor, and that cursor.
    virtual bool HoverCursor(int objectId, QCursor* cursor) const = 0;

    // The gesture, step by step. Grab: the press is on a handle that can be
    // dragged; remember it. The handle the gesture holds, null once it is
    // gone. Whether a move or release with that object under the pointer
    // belongs to the gesture (by default: the grabbed handle's own).
    virtual bool Grab(IZoMapView* view, int x, int y, int objectId) = 0;
    virtual IZoGraphicsMapObject* Grabbed() const = 0;
    virtual bool Follows(int objectId) const;
    // Whether a press during the gesture is still the gadget's to consume.
    virtual bool HoldsPressWhileDragging(int) const { return false; }
    // The user's OnStart...; true when the user took the gesture.
    virtual bool AskStart() = 0;
    // Without such a user: the start value, the gadget's own dragging look.
    virtual void RecordStart() = 0;
    virtual const char* DragCursor() const { return nullptr; }
    // A move past the drag distance: OnProcess..., handles moved unless taken.
    virtual void Drag(IZoMapView* view, int x, int y) = 0;
    // OnComplete... (at the start value for a click) and, unless the user
    // took it, the handles placed; returns the user's answer.
    virtual bool Complete(IZoMapView* view, int x, int y, bool click) = 0;
    // OnBackout... and, unless the user took it, the handles put back;
    // returns the user's answer.
    virtual bool BackOut() = 0;

    // A pointer event may concern the gadget at all.
    bool Ready(IZoMapView* view) const { return m_enabled && m_user && view; }
    // The pointer in geographic coordinates (height 0); false off the map.
    static bool PointerToGeo(IZoMapView* view, int x, int y, CVector3D* point);

    // The handle's object while the module still holds it, else null.
    template <class T>
    T* Live(const TZoEditHandle<T>& handle) const
    {
        return handle.id != -1 && handle.registered && m_module &&
                       m_module->LookupGraphicObject(handle.id) == handle.registered
                   ? handle.object
                   : nullptr;
    }
    // A new handle from a factory of ZoEditHandles; none while the gadget's
    // layer is gone (a handle would land on whatever layer the module picks).
    template <class T>
    TZoEditHandle<T> MakeHandle(T* (*factory)(IZoGraphicsModule*, IZoGraphicsMapLayer*)) const
    {
        return HandleLayerHeld() ? TZoEditHandle<T>(factory(m_module, m_layer)) : TZoEditHandle<T>();
    }
    template <class T>
    void Destroy(TZoEditHandle<T>& handle)
    {
        if (Live(handle))
            m_module->DestroyGraphicsMapObject(handle.registered);
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
    bool HandleLayerHeld() const;
    bool IsClick(int x, int y) const;
    // Ends a gesture whose handle has gone; true when one was under way.
    bool DropLostGesture(IZoMapView* view);
    void LeaveHost();

    int m_layerId = -1;
    QPoint m_pressedAt;
    bool m_dragBegun = false;
    int m_busy = 0;
    bool m_disposed = false;
    IZoMapModule* m_host = nullptr;
    // Set when the host is a QObject: a host deleted before the gadget is
    // then not called back on the way out.
    QPointer<QObject> m_hostObject;
    bool m_hostIsObject = false;
};
