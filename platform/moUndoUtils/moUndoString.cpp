#include <moUndoUtils/moUndoString.h>

moUndoString::moUndoString(const QString& text, const QString& description, const QString& group)
    : m_text(text), m_description(description), m_group(group)
{
}

moUndoString::moUndoString(const char* literal, const QString& group)
    : m_text(QString::fromUtf8(literal)), m_description(m_text), m_group(group)
{
}
