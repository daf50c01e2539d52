#pragma once

#include <algorithm>
#include <string>
#include <type_traits>
#include <typeinfo>
#include <unordered_map>
#include <vector>

// Names to the registry entries that carry them, each name's entries in
// ascending id order, so that "the first created wins" holds without
// walking the registry. Not locked: its owner guards it with the registry's
// lock.
template <class T>
class TZoNameIndex
{
public:
    void Insert(const std::string& name, int id, T* value)
    {
        // The dynamic type is read now, while the object is at hand, so that
        // typed lookups later need not touch the object.
        const std::type_info* type = &typeid(*value);
        Ids& ids = m_names[name];
        if (!ids.first.value)
        {
            ids.first = {id, value, type};
            return;
        }
        // Ids only grow, so a new object lands at the end; a rename may bring
        // an older one in front.
        Entry entry{id, value, type};
        if (id < ids.first.id)
            std::swap(entry, ids.first);
        const auto at = std::lower_bound(ids.more.begin(), ids.more.end(), entry.id,
                                         [](const Entry& e, int key) { return e.id < key; });
        if (at != ids.more.end() && at->id == entry.id)
            at->value = entry.value;
        else
            ids.more.insert(at, entry);
    }

    // Entries are found by what they point to: a re-initialised object or
    // layer may carry another id than the one it was indexed under.
    void Erase(const std::string& name, const T* value)
    {
        const auto found = m_names.find(name);
        if (found == m_names.end())
            return;
        Ids& ids = found->second;
        if (ids.first.value == value)
        {
            if (ids.more.empty())
            {
                m_names.erase(found);
                return;
            }
            ids.first = ids.more.front();
            ids.more.erase(ids.more.begin());
            return;
        }
        const auto at = std::find_if(ids.more.begin(), ids.more.end(),
                                     [value](const Entry& e) { return e.value == value; });
        if (at != ids.more.end())
            ids.more.erase(at);
    }

    void Clear() { m_names.clear(); }

    // The first entry in id order whose object is a Target, as a Target.
    template <class Target>
    Target* FindFirst(const std::string& name) const
    {
        const auto found = m_names.find(name);
        if (found == m_names.end())
            return nullptr;
        const Ids& ids = found->second;
        if (Target* result = As<Target>(ids.first))
            return result;
        for (const Entry& entry : ids.more)
        {
            if (Target* result = As<Target>(entry))
                return result;
        }
        return nullptr;
    }

    std::size_t NameCount() const { return m_names.size(); }

private:
    struct Entry
    {
        int id = 0;
        T* value = nullptr;
        const std::type_info* type = nullptr;
    };

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
            m_known.push_back({&typeid(Target), entry.type, cast ? reinterpret_cast<char*>(cast) - reinterpret_cast<char*>(entry.value)
                                              : std::ptrdiff_t(-1)});
            return cast;
        }
    }
    // Most names are unique: the first entry lives inline, without a heap
    // block of its own.
    struct Ids
    {
        Entry first;
        std::vector<Entry> more;
    };

    std::unordered_map<std::string, Ids> m_names;
    // What a cast to a lookup's target gives for each dynamic type met:
    // a handful of lines, one per kind and target.
    struct Known
    {
        const std::type_info* target;
        const std::type_info* type;
        std::ptrdiff_t offset; // -1: not a target
    };
    mutable std::vector<Known> m_known;
};
