#pragma once

#include "object/TZoIdTable.h"

#include <algorithm>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <type_traits>
#include <typeinfo>
#include <vector>

// Names to the registry entries that carry them, each name's entries in
// ascending id order, so that "the first created wins" holds without
// walking the registry. Not locked: its owner guards it with the registry's
// lock.
//
// The records of all names lie in one array and an open-addressing table of
// hash tags points into it: a lookup reads one slot and one record, where a
// node-based map would chase pointers into memory scattered among the
// objects themselves.
template <class T>
class TZoNameIndex
{
public:
    void Insert(const std::string& name, int id, T* value)
    {
        // The dynamic type is read now, while the object is at hand, so that
        // typed lookups later need not touch the object.
        const Entry entry{id, value, &typeid(*value)};
        const std::size_t hash = Hash(name);
        const std::size_t found = Find(name, hash);
        if (found == kNone)
        {
            Grow();
            m_records.push_back(Record{name, hash, entry, nullptr});
            Link(hash, m_records.size() - 1);
            return;
        }
        Record& record = m_records[found];
        // Ids only grow, so a new object lands at the end; a rename may bring
        // an older one in front.
        Entry moving = entry;
        if (moving.id < record.first.id)
            std::swap(moving, record.first);
        if (!record.more)
            record.more = std::make_unique<std::vector<Entry>>();
        std::vector<Entry>& more = *record.more;
        const auto at = std::lower_bound(more.begin(), more.end(), moving.id,
                                         [](const Entry& e, int key) { return e.id < key; });
        if (at != more.end() && at->id == moving.id)
            *at = moving;
        else
            more.insert(at, moving);
    }

    // Entries are found by what they point to: a re-initialised object or
    // layer may carry another id than the one it was indexed under.
    void Erase(const std::string& name, const T* value)
    {
        const std::size_t found = Find(name, Hash(name));
        if (found == kNone)
            return;
        Record& record = m_records[found];
        const bool hasMore = record.more && !record.more->empty();
        if (record.first.value == value)
        {
            if (!hasMore)
            {
                EraseRecord(found);
                return;
            }
            record.first = record.more->front();
            record.more->erase(record.more->begin());
            return;
        }
        if (!hasMore)
            return;
        std::vector<Entry>& more = *record.more;
        const auto at = std::find_if(more.begin(), more.end(), [value](const Entry& e) { return e.value == value; });
        if (at != more.end())
            more.erase(at);
    }

    // Erases every entry that points to one of values, in one pass over all
    // records: cheaper than one Erase per name once values are many.
    void EraseValues(const std::vector<T*>& values)
    {
        // The values in one flat table: a probe or two per record, where a
        // set of nodes would cost an allocation per value.
        TZoIdTable<const T, std::uintptr_t> table;
        for (const T* value : values)
            table.Insert(reinterpret_cast<std::uintptr_t>(value), value);
        const auto gone = [&table](const T* value) { return table.Contains(reinterpret_cast<std::uintptr_t>(value)); };
        std::size_t kept = 0;
        for (std::size_t index = 0; index < m_records.size(); ++index)
        {
            Record& record = m_records[index];
            if (record.more && !record.more->empty())
            {
                std::vector<Entry> left;
                if (!gone(record.first.value))
                    left.push_back(record.first);
                for (const Entry& entry : *record.more)
                {
                    if (!gone(entry.value))
                        left.push_back(entry);
                }
                if (left.empty())
                    continue;
                record.first = left.front();
                left.erase(left.begin());
                *record.more = std::move(left);
            }
            else if (gone(record.first.value))
            {
                continue;
            }
            if (kept != index)
                m_records[kept] = std::move(record);
            ++kept;
        }
        m_records.erase(m_records.begin() + static_cast<std::ptrdiff_t>(kept), m_records.end());
        if (m_records.size() * 4 < m_records.capacity())
            m_records.shrink_to_fit();
        std::size_t slotCount = 16;
        while ((m_records.size() + 1) * 2 > slotCount)
            slotCount *= 2;
        std::vector<std::uint64_t>(slotCount, 0).swap(m_slots);
        for (std::size_t index = 0; index < m_records.size(); ++index)
            Link(m_records[index].hash, index);
    }

    void Clear()
    {
        m_records.clear();
        m_slots.clear();
        m_known.clear();
    }

    // The first entry in id order whose object is a Target, as a Target.
    template <class Target>
    Target* FindFirst(const std::string& name) const
    {
        const std::size_t found = Find(name, Hash(name));
        if (found == kNone)
            return nullptr;
        const Record& record = m_records[found];
        if (Target* result = As<Target>(record.first))
            return result;
        if (record.more)
        {
            for (const Entry& entry : *record.more)
            {
                if (Target* result = As<Target>(entry))
                    return result;
            }
        }
        return nullptr;
    }

    std::size_t NameCount() const { return m_records.size(); }

private:
    struct Entry
    {
        int id = 0;
        T* value = nullptr;
        const std::type_info* type = nullptr;
    };
    // Most names are unique: the first entry lives in the record itself.
    struct Record
    {
        std::string name;
        std::size_t hash;
        Entry first;
        std::unique_ptr<std::vector<Entry>> more;
    };
    // What a cast to a lookup's target gives for each dynamic type met: a
    // handful of lines, one per kind and target.
    struct Known
    {
        const std::type_info* target;
        const std::type_info* type;
        std::ptrdiff_t offset; // -1: not a target
    };

    static constexpr std::size_t kNone = ~std::size_t(0);

    static std::size_t Hash(const std::string& name) { return std::hash<std::string>()(name); }
    // A slot holds the record's index + 1 in its low half and the upper half
    // of the name's hash in its high half; 0 is an empty slot.
    static std::uint64_t Tag(std::size_t hash) { return static_cast<std::uint64_t>(hash >> 32) << 32; }
    std::size_t Mask() const { return m_slots.size() - 1; }

    std::size_t Find(const std::string& name, std::size_t hash) const
    {
        if (m_slots.empty())
            return kNone;
        const std::uint64_t tag = Tag(hash);
        for (std::size_t i = hash & Mask();; i = (i + 1) & Mask())
        {
            const std::uint64_t slot = m_slots[i];
            if (slot == 0)
                return kNone;
            if ((slot & 0xffffffff00000000ull) == tag)
            {
                const std::size_t index = static_cast<std::size_t>(slot & 0xffffffffu) - 1;
                if (m_records[index].hash == hash && m_records[index].name == name)
                    return index;
            }
        }
    }

    // The slot that points at record index.
    std::size_t SlotOf(std::size_t index) const
    {
        const std::uint64_t wanted = Tag(m_records[index].hash) | (index + 1);
        for (std::size_t i = m_records[index].hash & Mask();; i = (i + 1) & Mask())
        {
            if (m_slots[i] == wanted)
                return i;
        }
    }

    void Link(std::size_t hash, std::size_t index)
    {
        std::size_t i = hash & Mask();
        while (m_slots[i] != 0)
            i = (i + 1) & Mask();
        m_slots[i] = Tag(hash) | (index + 1);
    }

    // Keeps the table at most half full.
    void Grow()
    {
        if ((m_records.size() + 1) * 2 <= m_slots.size())
            return;
        m_slots.assign(std::max<std::size_t>(16, m_slots.size() * 2), 0);
        for (std::size_t index = 0; index < m_records.size(); ++index)
            Link(m_records[index].hash, index);
    }

    void EraseRecord(std::size_t index)
    {
        Unlink(SlotOf(index));
        const std::size_t last = m_records.size() - 1;
        if (index != last)
        {
            // The last record fills the gap; its slot follows it.
            m_slots[SlotOf(last)] = Tag(m_records[last].hash) | (index + 1);
            m_records[index] = std::move(m_records[last]);
        }
        m_records.pop_back();
    }

    // Linear probing without tombstones: the slots after the hole that would
    // no longer be reached move back into it.
    void Unlink(std::size_t hole)
    {
        m_slots[hole] = 0;
        for (std::size_t i = (hole + 1) & Mask(); m_slots[i] != 0; i = (i + 1) & Mask())
        {
            const std::size_t index = static_cast<std::size_t>(m_slots[i] & 0xffffffffu) - 1;
            const std::size_t home = m_records[index].hash & Mask();
            if (!ZoProbeSlotStays(hole, home, i))
            {
                m_slots[hole] = m_slots[i];
                m_slots[i] = 0;
                hole = i;
            }
        }
    }

    // dynamic_cast<Target*>(entry.value), answered per dynamic type once:
    // among many objects the cast would read each object's memory again.
    template <class Target>
    Target* As(const Entry& entry) const
    {
        if constexpr (std::is_same_v<Target, T>)
        {
            return entry.value;
        }
        else
        {
            for (const Known& k : m_known)
            {
                if (k.type == entry.type && k.target == &typeid(Target))
                    return k.offset < 0 ? nullptr
                                        : reinterpret_cast<Target*>(reinterpret_cast<char*>(entry.value) + k.offset);
            }
            Target* cast = dynamic_cast<Target*>(entry.value);
            m_known.push_back({&typeid(Target), entry.type,
                               cast ? reinterpret_cast<char*>(cast) - reinterpret_cast<char*>(entry.value)
                                    : std::ptrdiff_t(-1)});
            return cast;
        }
    }

    std::vector<Record> m_records;
    std::vector<std::uint64_t> m_slots;
    mutable std::vector<Known> m_known;
};
