#pragma once

#include <moUndoStack/core/moMultiCommand.h>

#include <QtCore/QMetaMethod>
#include <QtCore/QObject>
#include <QtCore/QPointer>

/// A composite that also calls a method of a QObject after each redo and each undo: the same method, without arguments,
/// in both directions. It is called after the children: if it throws, the step stands (see moStep).
///
/// Two errors are logged and change nothing else: the object's class has no such method (once, at construction), and Qt
/// refuses the call (each time).
class MO_UNDO_STACK_EXPORT moInvokeMultiCommand : public moMultiCommand
{
    MO_UNDO_COMMAND_ID

public:
    /// The parent is the composite being composed, if any.
    /// \param object  the receiver, not owned. If it is null or was destroyed, nothing is called.
    /// \param method  signature as Qt writes it, e.g. "refresh()"; normalised before it is looked up.
    moInvokeMultiCommand(const moUndoString& text, QObject* object, const char* method);
    ~moInvokeMultiCommand() override;

private:
    void invoke() const;

    QPointer<QObject> m_object;
    QMetaMethod m_method;
};
