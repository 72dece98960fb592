#include <support/Describe.h>

#include <moUndoStack/core/moUndoStack.h>
#include <moUtils/moMessage.h>

#include <QUndoCommand>

#include <sstream>

namespace {

template<class T>
bool print(std::ostream& out, const boost::any& value, const char* type)
{
    const T* held = boost::any_cast<T>(&value);
    if (held) out << type << ':' << std::boolalpha << *held;
    return held != nullptr;
}

void printValue(std::ostream& out, const boost::any& value)
{
    if (print<bool>(out, value, "bool") || print<int>(out, value, "int") || print<unsigned int>(out, value, "uint"))
        return;
    if (const auto* text = boost::any_cast<std::string>(&value)) {
        out << "string:\"" << *text << '"';
        return;
    }
    if (const auto* ids = boost::any_cast<std::vector<unsigned int>>(&value)) {
        out << "uints:[";
        for (std::size_t i = 0; i < ids->size(); ++i)
            out << (i > 0 ? " " : "") << (*ids)[i];
        out << ']';
        return;
    }
    out << "unexpected:" << value.type().name();
}

} // namespace

std::string describe(const moMessage& message)
{
    std::ostringstream out;
    for (const moMessage::Entry& entry : message.entries()) {
        if (out.tellp() > 0) out << ' ';
        out << entry.first << '=';
        printValue(out, entry.second);
    }
    return out.str();
}

std::string describe(const moUndoStack& stack)
{
    std::ostringstream out;
    const QUndoCommand* current = stack.currentCommand();
    out << stack.size() << (stack.size() == 1 ? " step, at " : " steps, at ");
    if (current)
        out << '"' << current->text().toStdString() << '"';
    else
        out << "start";
    out << (stack.canUndo() ? ", undo" : ", no undo") << (stack.canRedo() ? ", redo" : ", no redo");
    if (stack.isEmpty() != (stack.size() == 0)) out << ", isEmpty() contradicts size()";
    return out.str();
}
