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

/// How many children of a step are shown to a reader.
constexpr int shownChildren = 20;

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
        if (shown++ == shownChildren) {
            stream << indent << QStringLiteral("… %1 more\n").arg(step.children.size() - shownChildren);
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
    std::transform(message.entries().begin(), message.entries().end(), std::back_inserter(copy.entries), readEntry);
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
