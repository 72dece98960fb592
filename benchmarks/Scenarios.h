#pragma once

#include <Compare.h>

#include <moUndoStack/core/moUndoStack.h>
#include <moUtils/moMessage.h>

#include <QtCore/QString>
#include <QtWidgets/QUndoStack>

#include <memory>
#include <string>
#include <utility>
#include <vector>

// The scenarios, written once for both kinds of stack.
//
// Each side brings a class of its own that makes its commands:
//
//     struct Ours
//     {
//         Ours();                                                  // sets the scene up; its destructor takes it down
//         QUndoCommand* operator()(int step, QUndoCommand* parent) const;
//     };

namespace bench {

/// Which listener gets reports of the steps. No slot is connected in any case.
enum class Listener
{
    None,
    Callback
};

class OurStack
{
public:
    explicit OurStack(Listener listener)
    {
        moUndoStack::beginUndo();
        m_stack.setMessageCallback(listener == Listener::Callback ? receive : nullptr);
    }
    ~OurStack()
    {
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

private:
    static bool receive(const char*, moMessage& message, int) { return message.entries().empty(); }
    static const QString& text()
    {
        static const QString s_text = QStringLiteral("Change Nodes");
        return s_text;
    }

    moUndoStack& m_stack = moUndoStack::get();
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

private:
    QUndoStack m_stack;
    int m_mark = 0;
};

/// A stack and the maker of its commands, which is destroyed after the stack.
template<class Stack, class Commands>
class Scenario : public Work
{
public:
    Scenario(int steps, Listener listener) : m_steps(steps), m_stack(listener) {}

protected:
    void pushAll()
    {
        for (int i = 0; i < m_steps; ++i)
            m_stack.push(m_commands, i);
    }

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

/// Composites of a hundred children; one operation is one child.
template<class Stack, class Commands>
class Composite : public Scenario<Stack, Commands>
{
public:
    using Scenario<Stack, Commands>::Scenario;
    void run() override
    {
        constexpr int children = 100;
        for (int i = 0; i < this->m_steps; i += children)
            this->m_stack.pushComposite(this->m_commands, i, children);
    }
};

/// Compares both sides in one scenario, e.g. compare<Undo, Ours, Bare>("undo", {1000}).
template<template<class, class> class In, class Ours, class Bare>
Comparison& compare(const std::string& name, std::vector<int> steps, Listener listener = Listener::None,
                    const Target& target = {})
{
    const MakeWork ours = [listener](int n) { return std::make_unique<In<OurStack, Ours>>(n, listener); };
    const MakeWork bare = [listener](int n) { return std::make_unique<In<BareStack, Bare>>(n, listener); };
    return comparisons().emplace_back(Comparison{name, std::move(steps), ours, bare, target, false});
}

/// The usual three scenarios of a command class: "name/add", "name/undo", "name/redo" with a thousand steps and no
/// listener. Its commands must not merge.
template<class Ours, class Bare>
void compareCommands(const std::string& name, const Target& add = {}, const Target& step = {})
{
    constexpr int steps = 1000;
    compare<Add, Ours, Bare>(name + "/add", {steps}, Listener::None, add);
    compare<Undo, Ours, Bare>(name + "/undo", {steps}, Listener::None, step);
    compare<Redo, Ours, Bare>(name + "/redo", {steps}, Listener::None, step);
}

} // namespace bench
