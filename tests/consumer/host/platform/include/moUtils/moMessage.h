#pragma once

#include <boost/any.hpp>

#include <map>
#include <string>

/// The host's messages: sorted by key.
class moMessage
{
public:
    void set(const std::string& key, const boost::any& value, bool overwrite);
    const std::map<std::string, boost::any>& sorted() const { return m_values; }

private:
    std::map<std::string, boost::any> m_values;
};
