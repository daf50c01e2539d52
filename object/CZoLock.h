#pragma once

#include <mutex>

// The registries' lock: recursive, so that a propagating call may re-enter the
// layer or module that holds it on the same thread.
class CZoLock
{
public:
    CZoLock() = default;
    CZoLock(const CZoLock&) = delete;
    CZoLock& operator=(const CZoLock&) = delete;

    bool Lock()
    {
        m_mutex.lock();
        return true;
    }
    void Unlock() { m_mutex.unlock(); }

private:
    std::recursive_mutex m_mutex;
};

// Unlocks at scope end, and only if the lock call reported success.
class CZoLockGuard
{
public:
    explicit CZoLockGuard(CZoLock& lock) : m_lock(lock), m_locked(lock.Lock()) {}
    ~CZoLockGuard() { Unlock(); }
    CZoLockGuard(const CZoLockGuard&) = delete;
    CZoLockGuard& operator=(const CZoLockGuard&) = delete;

    void Unlock()
    {
        if (m_locked)
            m_lock.Unlock();
        m_locked = false;
    }

private:
    CZoLock& m_lock;
    bool m_locked;
};
