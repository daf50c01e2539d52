#include "support/HeapCounter.h"

#include <atomic>
#include <cstdlib>
#include <malloc.h>
#include <new>

namespace
{
std::atomic<std::size_t> g_live{0};
std::atomic<std::size_t> g_peak{0};

void* Allocate(std::size_t size)
{
    void* p = std::malloc(size ? size : 1);
    if (!p)
        throw std::bad_alloc();
    const std::size_t live = g_live.fetch_add(malloc_usable_size(p)) + malloc_usable_size(p);
    std::size_t peak = g_peak.load();
    while (live > peak && !g_peak.compare_exchange_weak(peak, live))
    {
    }
    return p;
}

void Release(void* p) noexcept
{
    if (!p)
        return;
    g_live.fetch_sub(malloc_usable_size(p));
    std::free(p);
}
} // namespace

HeapPeak::HeapPeak() : m_base(g_live.load()) { g_peak.store(m_base); }

std::size_t HeapPeak::Bytes() const { return g_peak.load() - m_base; }

std::size_t MallocLiveBytes()
{
    malloc_trim(0);
    return mallinfo2().uordblks;
}

void* operator new(std::size_t size) { return Allocate(size); }
void* operator new[](std::size_t size) { return Allocate(size); }
void* operator new(std::size_t size, const std::nothrow_t&) noexcept
{
    try
    {
        return Allocate(size);
    }
    catch (...)
    {
        return nullptr;
    }
}
void* operator new[](std::size_t size, const std::nothrow_t& tag) noexcept { return operator new(size, tag); }
void operator delete(void* p) noexcept { Release(p); }
void operator delete[](void* p) noexcept { Release(p); }
void operator delete(void* p, std::size_t) noexcept { Release(p); }
void operator delete[](void* p, std::size_t) noexcept { Release(p); }
void operator delete(void* p, const std::nothrow_t&) noexcept { Release(p); }
void operator delete[](void* p, const std::nothrow_t&) noexcept { Release(p); }
