#pragma once

#include <QObject>
#include <atomic>
#include <functional>

// Asks for a canvas's repaint on the GUI thread when a worker thread has
// replaced its picture. It lives on the GUI thread and is reached through a
// queued call by name, so that no functor made on the worker runs on the GUI
// thread; and requests that pile up while one is pending count once.
class CZoCanvasRefresher final : public QObject
{
    Q_OBJECT

public:
    explicit CZoCanvasRefresher(std::function<void()> refresh) : m_refresh(std::move(refresh)) {}

    // From any thread.
    void Request()
    {
        if (!m_pending.exchange(true))
            QMetaObject::invokeMethod(this, "Refresh", Qt::QueuedConnection);
    }

    Q_INVOKABLE void Refresh()
    {
        m_pending.store(false);
        m_refresh();
    }

private:
    std::function<void()> m_refresh;
    std::atomic<bool> m_pending{false};
};
