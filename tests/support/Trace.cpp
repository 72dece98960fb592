#include <support/Trace.h>

#include <support/Describe.h>

#include <moUndoStack/core/moUndoCommandBase.h>
#include <moUtils/moMessage.h>

#include <gtest/gtest.h>

namespace {

// The message callback is a plain function: it finds its trace here. There is one per stack.
Trace* s_traces[2] = {nullptr, nullptr};

template<int stack>
bool receive(const char* name, moMessage& message, int number)
{
    s_traces[stack]->add(std::string("message ") + name + ' ' + describe(message));
    EXPECT_EQ(number, 0);
    return false;
}

int typeOf(const moUndoStack& stack)
{
    return &stack == &moUndoStack::get(moUndoStack::SecondStack) ? 1 : 0;
}

std::string quoted(const QUndoCommand* command)
{
    return command ? '"' + command->text().toStdString() + '"' : "null";
}

} // namespace

Trace::Trace(moUndoStack& stack) : m_stack(stack)
{
    const int type = typeOf(stack);
    EXPECT_EQ(s_traces[type], nullptr) << "this stack is traced already";
    s_traces[type] = this;
    stack.setMessageCallback(type == 0 ? receive<0> : receive<1>);

    QObject::connect(&stack, &moUndoStack::redoPerformed, &m_context, [this](const QUndoCommand* command, bool added) {
        add("signal redo " + quoted(command) + (added ? " added" : ""));
    });
    QObject::connect(&stack, &moUndoStack::undoPerformed, &m_context,
                     [this](const QUndoCommand* command) { add("signal undo " + quoted(command)); });
    QObject::connect(&stack, &moUndoStack::cleared, &m_context, [this] { add("signal cleared"); });
}

Trace::~Trace()
{
    m_stack.setMessageCallback(nullptr);
    s_traces[typeOf(m_stack)] = nullptr;
}

void Trace::setChanged(moUndoCommandBase& command, const std::string& name)
{
    command.setChangedCB([this, name](bool done) { add("changed \"" + name + (done ? "\" true" : "\" false")); });
}

std::vector<std::string> Trace::takeMessages()
{
    const std::string prefix = "message ";
    std::vector<std::string> messages;
    for (const std::string& line : take()) {
        if (line.compare(0, prefix.size(), prefix) == 0) messages.push_back(line.substr(prefix.size()));
    }
    return messages;
}
