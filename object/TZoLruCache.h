#pragma once

#include <cstddef>
#include <list>
#include <memory>
#include <mutex>
#include <unordered_map>

// A thread-safe cache of shared values bounded by the sum of their costs; the
// least recently used go first. Values handed out stay valid while their
// holders keep them, whether or not the cache still does. Holders that use a
// value without asking the cache again mark it (Value::MarkUsed), and a marked
// value gets a second chance before it is evicted.
template <class Key, class Value, class Hash>
class TZoLruCache
{
public:
    explicit TZoLruCache(std::size_t limit) : m_limit(limit) {}
    TZoLruCache(const TZoLruCache&) = delete;
    TZoLruCache& operator=(const TZoLruCache&) = delete;

    std::shared_ptr<const Value> Find(const Key& key)
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        const auto found = m_index.find(key);
        if (found == m_index.end())
            return nullptr;
        m_order.splice(m_order.begin(), m_order, found->second);
        return found->second->value;
    }

    // Replaces what the key held, if anything.
    void Insert(const Key& key, std::shared_ptr<const Value> value, std::size_t cost)
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        EraseLocked(key);
        m_order.push_front(Node{key, std::move(value), cost});
        m_index.emplace(key, m_order.begin());
        m_cost += cost;
        TrimLocked();
    }

    // Erases the key only while it still holds this very value.
    void Erase(const Key& key, const Value* value)
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        const auto found = m_index.find(key);
        if (found != m_index.end() && found->second->value.get() == value)
            EraseLocked(key);
    }

    std::size_t Cost()
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        return m_cost;
    }
    std::size_t Limit()
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        return m_limit;
    }
    void SetLimit(std::size_t limit)
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        m_limit = limit;
        TrimLocked();
    }
    void Clear()
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        m_index.clear();
        m_order.clear();
        m_cost = 0;
    }

private:
    struct Node
    {
        Key key;
        std::shared_ptr<const Value> value;
        std::size_t cost;
    };

    void TrimLocked()
    {
        // Each marked value is spared once, so this ends after at most one
        // round through the cache.
        while (m_cost > m_limit && !m_order.empty())
        {
            if (m_order.back().value->TakeUsedMark())
                m_order.splice(m_order.begin(), m_order, std::prev(m_order.end()));
            else
                EraseLocked(m_order.back().key);
        }
    }

    void EraseLocked(const Key& key)
    {
        const auto found = m_index.find(key);
        if (found == m_index.end())
            return;
        m_cost -= found->second->cost;
        m_order.erase(found->second);
        m_index.erase(found);
    }

    std::mutex m_mutex;
    std::list<Node> m_order; // most recently used first
    std::unordered_map<Key, typename std::list<Node>::iterator, Hash> m_index;
    std::size_t m_cost = 0;
    std::size_t m_limit;
};
