#include <moUtils/moMessage.h>

#include <algorithm>
#include <utility>

void moMessage::set(const std::string& key, const boost::any& value, bool overwrite)
{
    boost::any* const known = findValue(key);
    if (!known)
        m_entries.emplace_back(key, value);
    else if (overwrite)
        *known = value;
}

const boost::any* moMessage::find(const std::string& key) const
{
    return const_cast<moMessage*>(this)->findValue(key);
}

boost::any* moMessage::findValue(std::string_view key)
{
    const auto entry =
        std::find_if(m_entries.begin(), m_entries.end(), [key](const Entry& known) { return known.first == key; });
    return entry == m_entries.end() ? nullptr : &entry->second;
}
