#include <scene/MessageEntry.h>

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>

#include <string>
#include <vector>

namespace {

QJsonValue json(bool value)
{
    return value;
}
QJsonValue json(int value)
{
    return value;
}
QJsonValue json(unsigned int value)
{
    return static_cast<qint64>(value);
}
QJsonValue json(double value)
{
    return value;
}
QJsonValue json(const std::string& value)
{
    return QString::fromStdString(value);
}
template<class T>
QJsonValue json(const std::vector<T>& values)
{
    QJsonArray array;
    for (const T& value : values)
        array.append(json(value));
    return array;
}

/// The types that values of messages have.
struct ValueType
{
    const char* name;
    bool (*read)(const boost::any& value, QJsonValue& result);
};

template<class T>
constexpr ValueType valueType(const char* name)
{
    return {name, [](const boost::any& value, QJsonValue& result) {
                const T* typed = boost::any_cast<T>(&value);
                if (typed) result = json(*typed);
                return typed != nullptr;
            }};
}

constexpr ValueType valueTypes[] = {
    valueType<int>("int"),
    valueType<bool>("bool"),
    valueType<unsigned int>("unsigned int"),
    valueType<float>("float"),
    valueType<double>("double"),
    valueType<std::string>("std::string"),
    valueType<std::vector<unsigned int>>("std::vector<unsigned int>"),
    valueType<std::vector<std::string>>("std::vector<std::string>"),
};

/// How many elements of a list are shown to a reader.
constexpr int shownElements = 20;

} // namespace

MessageEntry readEntry(const moMessage::Entry& source)
{
    MessageEntry result{QString::fromStdString(source.first), QString(), QJsonValue()};
    for (const ValueType& type : valueTypes) {
        if (type.read(source.second, result.value)) {
            result.type = QString::fromLatin1(type.name);
            return result;
        }
    }
    result.type = QString::fromLatin1(source.second.type().name());
    return result;
}

QString written(const QJsonValue& value)
{
    QJsonArray list = value.toArray();
    const auto hidden = list.size() - shownElements;
    if (hidden > 0) {
        QJsonArray begin;
        for (int i = 0; i < shownElements; ++i)
            begin.append(list[i]);
        const QString shown = written(begin);
        return QStringLiteral("%1,… %2 more]").arg(shown.left(shown.size() - 1)).arg(hidden);
    }
    const QByteArray text = QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact);
    return QString::fromUtf8(text.mid(1, text.size() - 2));
}
