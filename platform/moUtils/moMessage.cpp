#include <moUtils/moMessage.h>

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
