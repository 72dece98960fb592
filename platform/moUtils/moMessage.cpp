#include <moUtils/moMessage.h>

#include <algorithm>
#include <utility>

namespace {

template<class List>
auto findEntry(List& entries, const std::string& key)
{
    return std::find_if(entries.begin(), entries.end(), [&key](const auto& entry) { return entry.first == key; });
}

} // namespace

void moMessage::set(const std::string& key, const boost::any& value, bool overwrite)
{
    set(std::string(key), boost::any(value), overwrite);
}

void moMessage::set(std::string&& key, boost::any&& value, bool overwrite)
{
    const auto entry = findEntry(m_entries, key);
    if (entry == m_entries.end())
        m_entries.emplace_back(std::move(key), std::move(value));
    else if (overwrite)
        entry->second = std::move(value);
}

const boost::any* moMessage::find(const std::string& key) const
{
    const auto entry = findEntry(m_entries, key);
    return entry == m_entries.end() ? nullptr : &entry->second;
}
