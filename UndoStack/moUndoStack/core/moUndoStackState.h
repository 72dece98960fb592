#pragma once

#include <moUndoStack/core/moUndoStackExport.h>

#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtCore/QString>

class QAction;
class moUndoStack;

/// The state of a stack as signals and actions, for the menus and the title of a window.
///
///     moUndoStackState state(moUndoStack::get());
///     menu.addAction(state.createUndoAction(&menu));
///     connect(&state, &moUndoStackState::cleanChanged, &window, [&](bool clean) { window.setWindowModified(!clean); });
///
/// The signals are those of QUndoStack. They are emitted after each call of the stack, when its step was reported to
/// the listeners of the stack, and only if the value is another one than at the last call; a value is what the query
/// of the stack answers at that moment. A slot that throws does not undo a step: the caller of the outermost call gets
/// the exception (see moStep).
class MO_UNDO_STACK_EXPORT moUndoStackState : public QObject
{
    Q_OBJECT

public:
    /// Follows a stack. Several objects may follow one stack; they may be destroyed at any time, also by a slot.
    explicit moUndoStackState(moUndoStack& stack, QObject* parent = nullptr);
    ~moUndoStackState() override;

    /// An action that undoes: enabled while the stack can undo, with the text of the step and the platform's standard
    /// shortcuts. As long as this object exists the action follows the stack; it is disabled then.
    ///
    /// \param parent  owns the action; null: the caller does.
    /// \param prefix  put before the text of the step, e.g. tr("Revert:"); a "&" in it marks the mnemonic. Empty: tr("Undo %1"),
    ///                or tr("Undo") while there is no step. In the text of the step "&" is shown as it is, line breaks
    ///                become blanks, and blanks at its ends are left out.
    QAction* createUndoAction(QObject* parent, const QString& prefix = {}) const;

    /// An action that redoes, likewise, with tr("Redo %1") and tr("Redo").
    QAction* createRedoAction(QObject* parent, const QString& prefix = {}) const;

Q_SIGNALS:
    /// moUndoStack::canUndo() changed.
    void canUndoChanged(bool canUndo);
    /// moUndoStack::canRedo() changed.
    void canRedoChanged(bool canRedo);
    /// moUndoStack::undoText() changed.
    void undoTextChanged(const QString& text);
    /// moUndoStack::redoText() changed.
    void redoTextChanged(const QString& text);
    /// moUndoStack::isClean() changed.
    void cleanChanged(bool clean);
    /// moUndoStack::index() changed.
    void indexChanged(int index);

private:
    struct Values
    {
        int index = 0;
        bool canUndo = false;
        bool canRedo = false;
        bool clean = true;
        QString undoText;
        QString redoText;
    };

    Values read() const;
    void update();
    void follow(QAction& action, bool can, void (moUndoStackState::*canChanged)(bool),
                void (moUndoStack::*call)()) const;

    QPointer<moUndoStack> m_stack;
    Values m_values;
};
