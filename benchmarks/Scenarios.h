#pragma once

#include <Compare.h>

#include <moUndoStack/core/moUndoHistoryModel.h>
#include <moUndoStack/core/moUndoStack.h>
#include <moUtils/moMessage.h>

#include <QUndoStack>
#include <QUndoView>
#include <QtCore/QCoreApplication>
#include <QtCore/QString>
#include <QtWidgets/QTreeView>

#include <memory>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

// The scenarios, written once for both kinds of stack.
//
// Each side brings a class of its own that makes its commands:
//
//     struct Ours
//     {
//         Ours();                                                  // sets the scene up; its destructor takes it down.
//                                                                  // Or Ours(int steps), if the scene depends on them.
//         QUndoCommand* operator()(int step, QUndoCommand* parent) const;
//     };

namespace bench {

/// Who is told of the steps.
enum class Listener
{
    None,
    Callback, ///< a message callback that does not look at the message
    Reader,   ///< a message callback that looks six keys up, as a host does
    Slots,    ///< a slot connected to each signal
    View      ///< a view of the history, see showHistory()
};

class OurStack
{
public:
    explicit OurStack(Listener listener)
        : m_stack(moUndoStack::get(leavesATrace(listener) ? moUndoStack::SecondStack : moUndoStack::DefaultStack))
    {
        moUndoStack::beginUndo();
        if (listener == Listener::Callback) m_stack.setMessageCallback(receive);
        if (listener == Listener::Reader) m_stack.setMessageCallback(read);
        if (listener == Listener::Slots) connectSlots();
    }
    ~OurStack()
    {
        m_view.reset();
        m_stack.setMessageCallback(nullptr);
        m_stack.clear();
        moUndoStack::endUndo();
    }
    OurStack(const OurStack&) = delete;
    OurStack& operator=(const OurStack&) = delete;

    template<class Commands>
    void push(const Commands& commands, int step)
    {
        m_stack.add(commands(step, nullptr));
    }
    template<class Commands>
    void pushComposite(const Commands& commands, int firstStep, int count)
    {
        m_stack.beginMultiCommand(text(), text(), false);
        for (int i = 0; i < count; ++i)
            push(commands, firstStep + i);
        m_stack.endMultiCommand();
    }
    void undo() { m_stack.undo(); }
    void redo() { m_stack.redo(); }
    void mark() { m_stack.mark(); }
    void reset() { m_stack.reset(); }
    void clear() { m_stack.clear(); }
    void showHistory()
    {
        auto view = std::make_unique<QTreeView>();
        (new moUndoHistoryModel(m_stack, view.get()))->showIn(*view);
        m_view = std::move(view);
        m_view->show();
    }

private:
    /// A stack emits signals from the first connection on, also after the last disconnection. Such cases get a stack
    /// that the others do not use.
    static bool leavesATrace(Listener listener) { return listener == Listener::Slots || listener == Listener::View; }
    static bool receive(const char*, moMessage& message, int) { return message.entries().empty(); }
    static bool read(const char*, moMessage& message, int)
    {
        static std::size_t s_read = 0;
        for (const char* key : {"index", "added", "text", "description", "id", "node"}) {
            const boost::any* const value = message.find(key);
            if (const auto* number = boost::any_cast<int>(value)) s_read += static_cast<std::size_t>(*number);
            if (const auto* text = boost::any_cast<std::string>(value)) s_read += text->size();
        }
        return s_read != 0;
    }
    void connectSlots()
    {
        const auto heard = [this] { ++m_heard; };
        QObject::connect(&m_stack, &moUndoStack::redoPerformed, &m_receiver, heard);
        QObject::connect(&m_stack, &moUndoStack::undoPerformed, &m_receiver, heard);
        QObject::connect(&m_stack, &moUndoStack::cleared, &m_receiver, heard);
    }
    static const QString& text()
    {
        static const QString s_text = QStringLiteral("Change Nodes");
        return s_text;
    }

    moUndoStack& m_stack;
    QObject m_receiver;
    std::unique_ptr<QWidget> m_view;
    int m_heard = 0;
};

/// What a host would have without this library. It reports nothing.
class BareStack
{
public:
    explicit BareStack(Listener) {}

    template<class Commands>
    void push(const Commands& commands, int step)
    {
        m_stack.push(commands(step, nullptr));
    }
    template<class Commands>
    void pushComposite(const Commands& commands, int firstStep, int count)
    {
        static const QString s_text = QStringLiteral("Change Nodes");
        auto* composite = new QUndoCommand(s_text);
        for (int i = 0; i < count; ++i)
            commands(firstStep + i, composite);
        m_stack.push(composite);
    }
    void undo() { m_stack.undo(); }
    void redo() { m_stack.redo(); }
    void mark() { m_mark = m_stack.index(); }
    void reset() { m_stack.setIndex(m_mark); }
    void clear() { m_stack.clear(); }
    void showHistory()
    {
        m_view = std::make_unique<QUndoView>(&m_stack);
        m_view->show();
    }

private:
    QUndoStack m_stack;
    std::unique_ptr<QWidget> m_view;
    int m_mark = 0;
};

/// A stack and the maker of its commands, which is destroyed after the stack.
template<class Stack, class Commands>
class Scenario : public Work
{
public:
    Scenario(int steps, Listener listener) : m_steps(steps), m_commands(commandsFor(steps)), m_stack(listener) {}

protected:
    void pushAll()
    {
        for (int i = 0; i < m_steps; ++i)
            m_stack.push(m_commands, i);
    }

private:
    static Commands commandsFor(int steps)
    {
        if constexpr (std::is_constructible_v<Commands, int>)
            return Commands(steps);
        else
            return Commands();
    }

protected:
    int m_steps;
    Commands m_commands;
    Stack m_stack;
};

/// Adds commands one by one. Also the scenario for merging: commands that merge become one step.
template<class Stack, class Commands>
class Add : public Scenario<Stack, Commands>
{
public:
    using Scenario<Stack, Commands>::Scenario;
    void run() override { this->pushAll(); }
};

template<class Stack, class Commands>
class Undo : public Scenario<Stack, Commands>
{
public:
    Undo(int steps, Listener listener) : Scenario<Stack, Commands>(steps, listener) { this->pushAll(); }
    void run() override
    {
        for (int i = 0; i < this->m_steps; ++i)
            this->m_stack.undo();
    }
};

template<class Stack, class Commands>
class Redo : public Scenario<Stack, Commands>
{
public:
    Redo(int steps, Listener listener) : Scenario<Stack, Commands>(steps, listener)
    {
        this->m_stack.mark();
        this->pushAll();
        this->m_stack.reset();
    }
    void run() override
    {
        for (int i = 0; i < this->m_steps; ++i)
            this->m_stack.redo();
    }
};

/// Jumps back over all steps, with one report.
template<class Stack, class Commands>
class Jump : public Scenario<Stack, Commands>
{
public:
    Jump(int steps, Listener listener) : Scenario<Stack, Commands>(steps, listener)
    {
        this->m_stack.mark();
        this->pushAll();
    }
    void run() override { this->m_stack.reset(); }
};

template<class Stack, class Commands>
class Clear : public Scenario<Stack, Commands>
{
public:
    Clear(int steps, Listener listener) : Scenario<Stack, Commands>(steps, listener) { this->pushAll(); }
    void run() override { this->m_stack.clear(); }
};

/// Composites of as many children; one operation is one child. CompositesOf<100>::Add makes and pushes them,
/// CompositesOf<100>::Undo takes them back.
template<int children>
struct CompositesOf
{
    template<class Stack, class Commands>
    class Add : public Scenario<Stack, Commands>
    {
    public:
        using Scenario<Stack, Commands>::Scenario;
        void run() override
        {
            for (int i = 0; i < this->m_steps; i += children)
                this->m_stack.pushComposite(this->m_commands, i, children);
        }
    };

    template<class Stack, class Commands>
    class Undo : public Add<Stack, Commands>
    {
    public:
        Undo(int steps, Listener listener) : Add<Stack, Commands>(steps, listener) { Add<Stack, Commands>::run(); }
        void run() override
        {
            for (int i = 0; i < this->m_steps; i += children)
                this->m_stack.undo();
        }
    };
};

/// A history of so many steps in a window; one operation is one more step.
template<int length>
struct ShownHistoryOf
{
    template<class Stack, class Commands>
    class Push : public Scenario<Stack, Commands>
    {
    public:
        Push(int steps, Listener listener) : Scenario<Stack, Commands>(steps, listener)
        {
            for (int i = 0; i < length; ++i)
                this->m_stack.push(this->m_commands, i);
            this->m_stack.showHistory();
            QCoreApplication::processEvents();
        }
        void run() override { this->pushAll(); }
    };

    /// The program returns to its event loop after each step, and the window shows it.
    template<class Stack, class Commands>
    class PushAndPaint : public Push<Stack, Commands>
    {
    public:
        using Push<Stack, Commands>::Push;
        void run() override
        {
            for (int i = 0; i < this->m_steps; ++i) {
                this->m_stack.push(this->m_commands, i);
                QCoreApplication::processEvents();
            }
        }
    };
};

/// Goals of the bytes that a step holds, and of a case that must not allocate.
inline Target bytes(double hard, double wished)
{
    return {hard, wished, Target::Ours};
}
inline Target none()
{
    return {0.0, 0.0, Target::Ours};
}

/// Compares both sides in one scenario, e.g. compare<Undo, Ours, Bare>("undo", {1000}).
template<template<class, class> class In, class Ours, class Bare>
Comparison& compare(const std::string& name, std::vector<int> steps, Listener listener = Listener::None,
                    const Target& target = {})
{
    const MakeWork ours = [listener](int n) { return std::make_unique<In<OurStack, Ours>>(n, listener); };
    const MakeWork bare = [listener](int n) { return std::make_unique<In<BareStack, Bare>>(n, listener); };
    return comparisons().emplace_back(Comparison{name, std::move(steps), ours, bare, target});
}

/// The usual three scenarios of a command class: "name/add", "name/undo", "name/redo" without a listener. Its commands
/// must not merge.
///
/// \param held  the bytes that a step may hold.
template<class Ours, class Bare>
void compareCommands(const std::string& name, const Target& add = {}, const Target& step = {}, const Target& held = {})
{
    const int steps = 1000;
    compare<Add, Ours, Bare>(name + "/add", {steps}, Listener::None, add).bytes = held;
    compare<Undo, Ours, Bare>(name + "/undo", {steps}, Listener::None, step);
    compare<Redo, Ours, Bare>(name + "/redo", {steps}, Listener::None, step);
}

} // namespace bench
