#include <moUndoStack/core/moUndoStackState.h>

#include <moUndoStack/core/moStackCalls_p.h>
#include <moUndoStack/core/moStep.h>
#include <moUndoStack/core/moUndoStack.h>

#include <QAction>
#include <QtGui/QKeySequence>

#include <utility>

namespace {

/// The text of a step as an action shows it on one line.
QString onOneLine(const QString& text)
{
    return text.simplified().replace(QLatin1Char('&'), QLatin1String("&&"));
}

QString actionText(const QString& step, const QString& prefix, const QString& withStep, const QString& withoutStep)
{
    const QString shown = onOneLine(step);
    if (!prefix.isEmpty()) return shown.isEmpty() ? prefix : prefix + QLatin1Char(' ') + shown;
    return shown.isEmpty() ? withoutStep : withStep.arg(shown);
}

} // namespace

moUndoStackState::moUndoStackState(moUndoStack& stack, QObject* parent)
    : QObject(parent), m_stack(&stack), m_values(read())
{
    connect(&stack.m_calls->moves(), &moStackMoves::moved, this, &moUndoStackState::update);
}

moUndoStackState::~moUndoStackState() = default;

moUndoStackState::Values moUndoStackState::read() const
{
    if (!m_stack) return {};
    return {m_stack->index(),   m_stack->canUndo(),  m_stack->canRedo(),
            m_stack->isClean(), m_stack->undoText(), m_stack->redoText()};
}

void moUndoStackState::update()
{
    const QPointer<moUndoStackState> self(this); // a slot may destroy it
    const auto tell = [&self](auto value, auto query, auto signal) {
        if (!self) return;
        const auto now = (*self->m_stack.*query)();
        if (std::exchange(self->m_values.*value, now) != now) moStep::afterwards([&] { Q_EMIT(self->*signal)(now); });
    };
    using Stack = moUndoStack;
    using State = moUndoStackState;
    tell(&Values::index, &Stack::index, &State::indexChanged);
    tell(&Values::canUndo, &Stack::canUndo, &State::canUndoChanged);
    tell(&Values::undoText, &Stack::undoText, &State::undoTextChanged);
    tell(&Values::canRedo, &Stack::canRedo, &State::canRedoChanged);
    tell(&Values::redoText, &Stack::redoText, &State::redoTextChanged);
    tell(&Values::clean, &Stack::isClean, &State::cleanChanged);
}

QAction* moUndoStackState::createUndoAction(QObject* parent, const QString& prefix) const
{
    const auto show = [prefix](QAction& action, const QString& step) {
        action.setText(actionText(step, prefix, tr("Undo %1"), tr("Undo")));
    };
    auto* action = new QAction(parent);
    follow(*action, m_values.canUndo, &moUndoStackState::canUndoChanged, &moUndoStack::undo);
    action->setShortcuts(QKeySequence::Undo);
    show(*action, m_values.undoText);
    connect(this, &moUndoStackState::undoTextChanged, action, [=](const QString& step) { show(*action, step); });
    return action;
}

QAction* moUndoStackState::createRedoAction(QObject* parent, const QString& prefix) const
{
    const auto show = [prefix](QAction& action, const QString& step) {
        action.setText(actionText(step, prefix, tr("Redo %1"), tr("Redo")));
    };
    auto* action = new QAction(parent);
    follow(*action, m_values.canRedo, &moUndoStackState::canRedoChanged, &moUndoStack::redo);
    action->setShortcuts(QKeySequence::Redo);
    show(*action, m_values.redoText);
    connect(this, &moUndoStackState::redoTextChanged, action, [=](const QString& step) { show(*action, step); });
    return action;
}

/// Keeps the action enabled while the stack can do what it triggers.
void moUndoStackState::follow(QAction& action, bool can, void (moUndoStackState::*canChanged)(bool),
                              void (moUndoStack::*call)()) const
{
    action.setEnabled(can);
    connect(this, canChanged, &action, &QAction::setEnabled);
    connect(this, &QObject::destroyed, &action, [&action] { action.setEnabled(false); });
    connect(&action, &QAction::triggered, &action, [stack = m_stack, call] {
        if (stack) (*stack.*call)();
    });
}
