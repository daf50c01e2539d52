#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

// Linear probing without tombstones empties a slot by moving back the later
// slots of its run that would no longer be reached: the slot at i, whose
// probe starts at home, stays when home lies cyclically in (hole, i].
inline bool ZoProbeSlotStays(std::size_t hole, std::size_t home, std::size_t i)
{
    return hole <= i ? (hole < home && home <= i) : (hole < home || home <= i);
}

// Ids to pointers in one flat array: open addressing with linear probing, at
// most half full, without tombstones. A layer of a large display holds one
// entry per object, where a tree would hold a node of its own for each (four
// times the memory, and one allocation and one free more per object). Key is
// any integer type (an address, for a set of pointers). Not locked: its owner
// guards it.
template <class T, class Key = int>
class TZoIdTable
{
public:
    // False when the id is there already (the table keeps what it had).
    bool Insert(Key id, T* value)
    {
        if (!value || Find(id) != kNone)
            return false;
        if ((m_size + 1) * 2 > m_slots.size())
            Rehash(std::max<std::size_t>(16, m_slots.size() * 2));
        Place(Slot{id, value});
        ++m_size;
        return true;
    }

    bool Contains(Key id) const { return Find(id) != kNone; }

    // False when the id is not there.
    bool Erase(Key id)
    {
        const std::size_t found = Find(id);
        if (found == kNone)
            return false;
        Unlink(found);
        --m_size;
        return true;
    }

    void Clear()
    {
        m_slots.clear();
        m_size = 0;
    }

    std::size_t Size() const { return m_size; }
    bool Empty() const { return m_size == 0; }

    // The values in ascending id order.
    std::vector<T*> Sorted() const
    {
        std::vector<Slot> used;
        used.reserve(m_size);
        for (const Slot& slot : m_slots)
        {
            if (slot.value)
                used.push_back(slot);
        }
        std::sort(used.begin(), used.end(), [](const Slot& a, const Slot& b) { return a.id < b.id; });
        std::vector<T*> values;
        values.reserve(used.size());
        for (const Slot& slot : used)
            values.push_back(slot.value);
        return values;
    }

private:
    struct Slot
    {
        Key id = 0;
        T* value = nullptr; // null: an empty slot
    };

    static constexpr std::size_t kNone = ~std::size_t(0);

    std::size_t Mask() const { return m_slots.size() - 1; }
    // Fibonacci hashing spreads ids handed out one after another, and
    // addresses that differ in their high bits alone.
    std::size_t Home(Key id) const
    {
        return static_cast<std::size_t>((static_cast<std::uint64_t>(id) * 0x9E3779B97F4A7C15ull) >> 32) & Mask();
    }

    std::size_t Find(Key id) const
    {
        if (m_slots.empty())
            return kNone;
        for (std::size_t i = Home(id);; i = (i + 1) & Mask())
        {
            if (!m_slots[i].value)
                return kNone;
            if (m_slots[i].id == id)
                return i;
        }
    }

    void Place(const Slot& slot)
    {
        std::size_t i = Home(slot.id);
        while (m_slots[i].value)
            i = (i + 1) & Mask();
        m_slots[i] = slot;
    }

    void Rehash(std::size_t count)
    {
        std::vector<Slot> old(count);
        old.swap(m_slots);
        for (const Slot& slot : old)
        {
            if (slot.value)
                Place(slot);
        }
    }

    // The slots after the hole that would no longer be reached move back.
    void Unlink(std::size_t hole)
    {
        m_slots[hole] = Slot();
        for (std::size_t i = (hole + 1) & Mask(); m_slots[i].value; i = (i + 1) & Mask())
        {
            const std::size_t home = Home(m_slots[i].id);
            if (!ZoProbeSlotStays(hole, home, i))
            {
                m_slots[hole] = m_slots[i];
                m_slots[i] = Slot();
                hole = i;
            }
        }
    }

    std::vector<Slot> m_slots;
    std::size_t m_size = 0;
};
