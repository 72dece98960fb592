#pragma once

#include <boost/any.hpp>
#include <boost/container/small_vector.hpp>

#include <string>
#include <string_view>
#include <utility>

/// A record of keys and values. Entries keep the order in which their keys were first set.
///
/// A message has a handful of keys, so it is a flat list: setting and finding are linear, and the list itself takes no
/// memory from the heap until it has more keys than a command sets.
class moMessage
{
public:
    using Entry = std::pair<std::string, boost::any>;
    using Entries = boost::container::small_vector<Entry, 8>;

    /// Sets a key. A key that is there already keeps its place; `overwrite` decides whether it takes the new value or
    /// keeps the old one.
    void set(const std::string& key, const boost::any& value, bool overwrite = true);
    /// The same, with key and value made in place.
    template<class Value>
    void set(const char* key, Value&& value, bool overwrite = true)
    {
        setInPlace(key, std::forward<Value>(value), overwrite);
    }

    /// The value of a key; null when the key was not set. Valid until the next set().
    const boost::any* find(const std::string& key) const;

    /// All entries in the order in which their keys were set.
    const Entries& entries() const { return m_entries; }

private:
    /// With a string_view the compiler knows the length of a literal.
    template<class Value>
    void setInPlace(std::string_view key, Value&& value, bool overwrite)
    {
        boost::any* const known = findValue(key);
        if (!known)
            m_entries.emplace_back(key, std::forward<Value>(value));
        else if (overwrite)
            *known = boost::any(std::forward<Value>(value));
    }

    boost::any* findValue(std::string_view key)
    {
        for (Entry& entry : m_entries) {
            if (entry.first == key) return &entry.second;
        }
        return nullptr;
    }

    Entries m_entries;
};
