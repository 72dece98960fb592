#include <moUndoUtils/moUndoString.h>
#include <moUtils/moLog.h>
#include <moUtils/moMessage.h>

#include <cstdarg>
#include <cstdio>

static void print(const char* kind, const char* format, std::va_list arguments)
{
    std::fprintf(stderr, "host %s: ", kind);
    std::vfprintf(stderr, format, arguments);
    std::fputc('\n', stderr);
}

void moLog::error(const char* format, ...)
{
    std::va_list arguments;
    va_start(arguments, format);
    print("error", format, arguments);
    va_end(arguments);
}

void moLog::errorNR(const char* format, ...)
{
    std::va_list arguments;
    va_start(arguments, format);
    print("error", format, arguments);
    va_end(arguments);
}

void moLog::warningNR(const char* format, ...)
{
    std::va_list arguments;
    va_start(arguments, format);
    print("warning", format, arguments);
    va_end(arguments);
}

void moMessage::set(const std::string& key, const boost::any& value, bool overwrite)
{
    if (overwrite)
        m_values[key] = value;
    else
        m_values.emplace(key, value);
}

struct moUndoString::Texts
{
    QString text;
    QString description;
};

moUndoString::moUndoString() : moUndoString(QString(), QString(), QString()) {}

moUndoString::moUndoString(const QString& text, const QString& description, const QString& /*group*/)
    : m_texts(std::make_shared<Texts>(Texts{text, description}))
{
}

moUndoString::moUndoString(const char* literal, const QString& group)
    : moUndoString(QString::fromUtf8(literal), QString::fromUtf8(literal), group)
{
}

QString moUndoString::text() const
{
    return m_texts->text;
}

QString moUndoString::description() const
{
    return m_texts->description;
}
