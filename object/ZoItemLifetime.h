#pragma once

#include <memory>

class IZoGraphicsItemImpl;

// Qt goes on using an item, and the items it was about to visit next, after
// the item's event handler returns. A host that destroys objects from inside
// such a handler (a button in an embedded widget, a filter on the recorded
// scene events) must not have their items deleted under Qt's feet. Every item
// of the library marks its event deliveries with this scope.
class CZoItemEventScope
{
public:
    CZoItemEventScope();
    ~CZoItemEventScope();
    CZoItemEventScope(const CZoItemEventScope&) = delete;
    CZoItemEventScope& operator=(const CZoItemEventScope&) = delete;
};

// Deletes an item whose object lets go of it, telling it to forget its owner
// first (after taking it out of its scene, while it still can answer). While an item event is being
// delivered the item is only taken out of the scene and switched off, and is
// deleted when control returns to the event loop.
void ZoDisposeItem(std::unique_ptr<IZoGraphicsItemImpl> item);

// Items, scenes and the registries' owners belong to the GUI thread. Cheap
// enough for every setter: true on the GUI thread (and before there is an
// application).
bool ZoOnGuiThread();

// For an operation that only the GUI thread may run: true there. Elsewhere it
// asserts in debug builds; in release builds it logs
// "[className::method] 只能在GUI线程调用" the first time this operation is
// refused, and gives false so that the caller refuses the call.
bool ZoAcceptsCallingThread(const char* className, const char* method);
