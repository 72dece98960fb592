#pragma once

#include <QUndoStack>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

using Lines = std::vector<std::string>;

/// A command of Qt's that writes what is done with it to a log, and does what a test tells it.
class LoggingCommand : public QUndoCommand
{
public:
    LoggingCommand(Lines& log, std::string name, QUndoCommand* parent = nullptr)
        : QUndoCommand(QString::fromStdString(name), parent), m_log(log), m_name(std::move(name))
    {
    }
    ~LoggingCommand() override
    {
        m_log.push_back("delete " + m_name);
        if (onDestroyed) onDestroyed();
    }
    LoggingCommand(const LoggingCommand&) = delete;
    LoggingCommand& operator=(const LoggingCommand&) = delete;

    void undo() override
    {
        m_log.push_back("undo " + m_name);
        if (onUndo) onUndo();
    }
    void redo() override
    {
        m_log.push_back("redo " + m_name);
        if (onRedo) onRedo();
    }
    int id() const override { return number; }
    bool mergeWith(const QUndoCommand* other) override
    {
        m_log.push_back("merge " + other->text().toStdString() + " into " + m_name);
        return onMerge && onMerge();
    }

    int number = -1;
    std::function<void()> onUndo;
    std::function<void()> onRedo;
    std::function<bool()> onMerge;
    std::function<void()> onDestroyed;

private:
    Lines& m_log;
    std::string m_name;
};

/// A bare stack whose index changes go to the same log as what its commands do: `index 2 of 3`.
class QtUndoStack : public testing::Test
{
protected:
    QtUndoStack()
    {
        QObject::connect(&stack, &QUndoStack::indexChanged, &stack, [this](int index) {
            log.push_back("index " + std::to_string(index) + " of " + std::to_string(stack.count()));
        });
    }

    LoggingCommand* command(const std::string& name, int number = -1)
    {
        auto* const made = new LoggingCommand(log, name);
        made->number = number;
        return made;
    }

    void push(const std::string& name) { stack.push(command(name)); }

    /// The log so far; starts anew.
    Lines take() { return std::exchange(log, {}); }

    Lines log;
    QUndoStack stack;
};
