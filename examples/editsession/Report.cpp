#include <editsession/Report.h>

#include <moUndoStack/core/moUndoCommandBase.h>

#include <moUtils/moMessage.h>

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QTextStream>

#include <algorithm>
#include <string>

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

Report::Entry entry(const moMessage::Entry& source)
{
    Report::Entry result{QString::fromStdString(source.first), QString(), QJsonValue()};
    for (const ValueType& type : valueTypes) {
        if (type.read(source.second, result.value)) {
            result.type = QString::fromLatin1(type.name);
            return result;
        }
    }
    result.type = QString::fromLatin1(source.second.type().name());
    return result;
}

/// How many elements of a list are shown to a reader.
constexpr int shownElements = 20;

/// The value as JSON writes it: text quoted, lists in brackets. A long list is cut off.
QString written(const QJsonValue& value)
{
    QJsonArray list = value.toArray();
    const int hidden = list.size() - shownElements;
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

QString written(const Report::Message& message)
{
    QString line = message.name;
    for (const Report::Entry& e : message.entries)
        line += ' ' + e.key + '=' + written(e.value);
    return line;
}

bool isSame(const Report::Message& a, const Report::Message& b)
{
    return a.phase == b.phase && a.name == b.name &&
           std::equal(a.entries.begin(), a.entries.end(), b.entries.begin(), b.entries.end(),
                      [](const Report::Entry& x, const Report::Entry& y) {
                          return x.key == y.key && x.type == y.type && x.value == y.value;
                      });
}

QJsonObject json(const Report::Step& step)
{
    QJsonObject object{{"text", step.text}, {"description", step.description}};
    QJsonArray children;
    for (const Report::Step& child : step.children)
        children.append(json(child));
    if (!children.isEmpty()) object.insert("children", children);
    return object;
}

QJsonObject json(const Report::Message& message)
{
    // A list, since the order of the keys is part of the message.
    QJsonArray entries;
    for (const Report::Entry& e : message.entries)
        entries.append(QJsonObject{{"key", e.key}, {"type", e.type}, {"value", e.value}});
    return {{"phase", message.phase}, {"name", message.name}, {"entries", entries}};
}

QJsonObject json(const Report::Check& check)
{
    return {{"what", check.what}, {"passed", check.passed}, {"rounded", static_cast<qint64>(check.rounded)}};
}

template<class T>
QJsonArray jsonArray(const std::vector<T>& items)
{
    QJsonArray array;
    for (const T& item : items)
        array.append(json(item));
    return array;
}

void printStep(QTextStream& stream, const Report::Step& step, const QString& lead)
{
    stream << lead << step.text;
    if (!step.description.isEmpty() && step.description != step.text) stream << "  (" << step.description << ')';
    stream << '\n';
    const QString indent(lead.size() + 2, ' ');
    int shown = 0;
    for (const Report::Step& child : step.children) {
        if (shown++ == shownElements) {
            stream << indent << QStringLiteral("… %1 more\n").arg(step.children.size() - shownElements);
            return;
        }
        printStep(stream, child, indent);
    }
}

} // namespace

Report::Step::Step(const QUndoCommand& command) : text(command.text())
{
    if (const auto* own = dynamic_cast<const moUndoCommandBase*>(&command)) description = own->getDescription();
    for (int i = 0; i < command.childCount(); ++i)
        children.emplace_back(*command.child(i));
}

void Report::addMessage(const QString& phase, const char* name, const moMessage& message)
{
    Message copy{phase, QString::fromLatin1(name), {}};
    std::transform(message.entries().begin(), message.entries().end(), std::back_inserter(copy.entries), entry);
    messages.push_back(std::move(copy));
}

bool Report::passed() const
{
    return std::all_of(checks.begin(), checks.end(), [](const Check& check) { return check.passed; });
}

void Report::print(QTextStream& stream) const
{
    stream << "Model  " << modelFile << ": " << nodeCount << " nodes, " << lightCount << " lights, " << materialCount
           << " materials\n\nHistory  " << history.size() << " steps\n";
    int number = 0;
    for (const Step& step : history)
        printStep(stream, step, QStringLiteral("%1  ").arg(++number, 4));

    stream << "\nMessages  " << messages.size() << '\n';
    QString phase;
    for (auto message = messages.begin(); message != messages.end();) {
        if (message->phase != phase) stream << "  " << (phase = message->phase) << '\n';
        const auto next = std::find_if_not(message + 1, messages.end(),
                                           [&](const Message& other) { return isSame(*message, other); });
        stream << "    " << written(*message);
        // A drag sends the same message for each move.
        if (next - message > 1) stream << "  (" << static_cast<int>(next - message) << " times)";
        stream << '\n';
        message = next;
    }

    stream << "\nChecks\n";
    for (const Check& c : checks) {
        stream << (c.passed ? "  ok      " : "  FAILED  ") << c.what;
        if (c.rounded > 0) stream << "  (" << c.rounded << " values differ by rounding)";
        stream << '\n';
    }

    stream << "\nDigests of the scene\n"
           << "  after load      " << digestAfterLoad << '\n'
           << "  after edits     " << digestAfterEdits << '\n'
           << "  after undo-all  " << digestAfterUndoAll << '\n'
           << "  after redo-all  " << digestAfterRedoAll << '\n';
    if (!interruptedIn.isNull()) stream << "\nInterrupted in: " << interruptedIn << '\n';
}

QByteArray Report::toJson() const
{
    const QJsonObject model{{"file", modelFile},
                            {"nodes", static_cast<qint64>(nodeCount)},
                            {"lights", static_cast<qint64>(lightCount)},
                            {"materials", static_cast<qint64>(materialCount)}};
    const QJsonObject digests{{"afterLoad", QString::fromLatin1(digestAfterLoad)},
                              {"afterEdits", QString::fromLatin1(digestAfterEdits)},
                              {"afterUndoAll", QString::fromLatin1(digestAfterUndoAll)},
                              {"afterRedoAll", QString::fromLatin1(digestAfterRedoAll)}};
    QJsonObject all{{"model", model},
                    {"history", jsonArray(history)},
                    {"messages", jsonArray(messages)},
                    {"checks", jsonArray(checks)},
                    {"digests", digests}};
    if (!interruptedIn.isNull()) all.insert("interruptedIn", interruptedIn);
    return QJsonDocument(all).toJson();
}
