#include "object/ZoItemLifetime.h"

#include "object/IZoGraphicsItemImpl.h"
#include "object/ZoLogText.h"

#include <QCoreApplication>
#include <QGraphicsItem>
#include <QGraphicsScene>
#include <QMutex>
#include <QThread>

#include <set>
#include <string>

namespace
{
// Nesting depth of item event deliveries; touched on the GUI thread only.
int g_deliveryDepth = 0;

// Owns an item until the event loop comes back to it.
class CZoDeferredItem final : public QObject
{
public:
    explicit CZoDeferredItem(std::unique_ptr<IZoGraphicsItemImpl> item) : m_item(std::move(item)) {}

private:
    std::unique_ptr<IZoGraphicsItemImpl> m_item;
};

bool FirstRefusal(const char* className, const char* method)
{
    static QMutex mutex;
    static std::set<std::string> refused;
    QMutexLocker lock(&mutex);
    return refused.insert(std::string(className) + "::" + method).second;
}
} // namespace

CZoItemEventScope::CZoItemEventScope()
{
    ++g_deliveryDepth;
}

CZoItemEventScope::~CZoItemEventScope()
{
    --g_deliveryDepth;
}

void ZoDisposeItem(std::unique_ptr<IZoGraphicsItemImpl> item)
{
    if (!item)
        return;
    if (g_deliveryDepth == 0 || !QCoreApplication::instance())
    {
        // Deleted in its scene, the item leaves it without asking itself
        // anything (no virtual calls from a destructor).
        item->ForgetOwner();
        item.reset();
        return;
    }
    // Removing asks the item for its bounds: it still reaches its object.
    QGraphicsItem* graphicsItem = item->GraphicsItem();
    if (QGraphicsScene* scene = graphicsItem->scene())
        scene->removeItem(graphicsItem);
    item->ForgetOwner();
    graphicsItem->setVisible(false);
    graphicsItem->setEnabled(false);
    graphicsItem->setAcceptHoverEvents(false);
    graphicsItem->setAcceptedMouseButtons(Qt::NoButton);
    // deleteLater makes the event loop the holder's owner.
    std::make_unique<CZoDeferredItem>(std::move(item)).release()->deleteLater();
}

bool ZoOnGuiThread()
{
    const QCoreApplication* app = QCoreApplication::instance();
    if (!app)
        return true;
    // A thread's QThread stays the same for the thread's life; asking Qt for
    // it looks up the thread's data, and a zoom asks once per object.
    thread_local QThread* const current = QThread::currentThread();
    return current == app->thread();
}

bool ZoAcceptsCallingThread(const char* className, const char* method)
{
    if (ZoOnGuiThread())
        return true;
    Q_ASSERT_X(false, method, "called off the GUI thread");
    if (FirstRefusal(className, method))
        ZoLogWarnAt(className, method) << ZoLogReason::kNotGuiThread;
    return false;
}
