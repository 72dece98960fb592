#pragma once

#include <moUndoStack/core/moMultiCommand.h>

#include <QtCore/QMetaMethod>
#include <QtCore/QObject>
#include <QtCore/QPointer>

/// A composite that also calls a method of a QObject after each redo and each undo: the same method, without arguments,
/// in both directions. It is called when the children's steps are done: if it throws, the step stands (see moStep).
///
/// Failures are logged and change nothing else: a method that the object's class does not have, once, at construction;
/// a call that Qt refuses, each time.
class MO_UNDO_STACK_EXPORT moInvokeMultiCommand : public moMultiCommand
{
    MO_UNDO_COMMAND_ID

public:
    /// Parent: the composite being composed, if any.
    /// \param object  receiver, not owned. Null, or once it was destroyed: nothing is called.
    /// \param method  signature as Qt writes it, e.g. "refresh()"; normalised before it is looked up.
    moInvokeMultiCommand(const moUndoString& text, QObject* object, const char* method);
    ~moInvokeMultiCommand() override;

private:
    void invoke() const;

    QPointer<QObject> m_object;
    QMetaMethod m_method;
};
