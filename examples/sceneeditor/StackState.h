#pragma once

#include <moUndoStack/core/moUndoStack.h>

#include <QtWidgets/QAction>

/// Stands in for the library's class of that name until it is there.
class moUndoStackState : public QObject
{
    Q_OBJECT

public:
    explicit moUndoStackState(moUndoStack& stack, QObject* parent = nullptr) : QObject(parent), m_stack(stack)
    {
        connect(&stack, &moUndoStack::redoPerformed, this, &moUndoStackState::update);
        connect(&stack, &moUndoStack::undoPerformed, this, &moUndoStackState::update);
        connect(&stack, &moUndoStack::cleared, this, &moUndoStackState::update);
    }
    QAction* createUndoAction(QObject* parent, const QString& prefix = {}) const
    {
        return action(parent, prefix, "Undo", &moUndoStack::undo, QKeySequence::Undo, &moUndoStack::canUndo,
                      &moUndoStack::undoText);
    }
    QAction* createRedoAction(QObject* parent, const QString& prefix = {}) const
    {
        return action(parent, prefix, "Redo", &moUndoStack::redo, QKeySequence::Redo, &moUndoStack::canRedo,
                      &moUndoStack::redoText);
    }

Q_SIGNALS:
    void cleanChanged(bool clean);
    void indexChanged(int index);

private:
    void update()
    {
        Q_EMIT indexChanged(m_stack.index());
        Q_EMIT cleanChanged(m_stack.isClean());
    }
    QAction* action(QObject* parent, const QString& prefix, const char* word, void (moUndoStack::*call)(),
                    QKeySequence::StandardKey key, bool (moUndoStack::*can)() const,
                    QString (moUndoStack::*text)() const) const
    {
        auto* const result = new QAction(parent);
        result->setShortcuts(key);
        connect(result, &QAction::triggered, &m_stack, call);
        const auto show = [=] {
            result->setEnabled((m_stack.*can)());
            result->setText((prefix.isEmpty() ? QString(word) : prefix) + ' ' + (m_stack.*text)());
        };
        connect(this, &moUndoStackState::indexChanged, result, show);
        show();
        return result;
    }
    moUndoStack& m_stack;
};
