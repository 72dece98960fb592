#pragma once

#include <moUndoStack/core/moMultiCommand.h>

#include <QtCore/QMetaMethod>

/// A composite that also calls a method of a QObject after each redo and each undo: the same method, without arguments,
/// in both directions.
///
/// Failures are logged and change nothing else: a method that the object's class does not have, once, at construction;
/// a call that Qt refuses, each time.
class MO_UNDO_STACK_EXPORT moInvokeMultiCommand : public moMultiCommand
{
    MO_UNDO_COMMAND_ID

public:
    /// \param object  receiver, not owned; must live as long as the command. Null: nothing is ever called.
    /// \param method  signature as Qt writes it, e.g. "refresh()"; normalised before it is looked up.
    moInvokeMultiCommand(const moUndoString& text, QObject* object, const char* method);
    ~moInvokeMultiCommand() override;

private:
    void invoke() const;

    QObject* m_object;
    QMetaMethod m_method;
};
