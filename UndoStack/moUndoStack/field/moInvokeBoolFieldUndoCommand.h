#pragma once

#include <moUndoStack/field/moBoolFieldUndoCommand.h>

#include <QtCore/QMetaMethod>
#include <QtCore/QObject>
#include <QtCore/QPointer>

/// A moBoolFieldUndoCommand that calls a method of a QObject after each redo: a check box can follow a field.
///
/// A method with one bool parameter gets the value that this redo writes; one without parameters is called without. A
/// bool parameter is one that Qt knows as a bool when the command is made: bool, const bool&, bool& (what the method
/// writes there is ignored), or a name registered for bool with qRegisterMetaType().
///
/// The method is called also if the container was destroyed or never had the field, and if the notify function throws.
/// If the method throws, the step stands (see moStep). A method that the object's class does not have is logged once,
/// at construction, and never called. One that cannot be called, because it has two or more parameters or one that is
/// not a bool, is logged at every redo. Neither keeps the field from being set.
///
/// Intended: undo changes neither the field nor the receiver. It is part of the interface. A redo after it writes, and
/// passes to the method, the value from before the first redo. See docs/oddities.md#undo-that-does-nothing.
///
/// Never merges; a composite with such a child does not merge either. Message: "id", "container", "fieldId".
class MO_UNDO_STACK_EXPORT moInvokeBoolFieldUndoCommand : public moBoolFieldUndoCommand
{
    MO_UNDO_COMMAND_ID
public:
    /// \param fieldName  as moUndoUtil::findField() takes it.
    /// \param value      what the first redo writes.
    /// \param object     the receiver, not owned. If it is null or was destroyed, only the field is set.
    /// \param method     a signature such as "setChecked(bool)"; need not be normalised.
    /// \param parent     null means the composite being composed, if any.
    moInvokeBoolFieldUndoCommand(const moUndoString& text, osg::FieldContainerPtr container,
                                 const std::string& fieldName, bool value, QObject* object, const char* method,
                                 QUndoCommand* parent = nullptr);
    /// The same without a text.
    moInvokeBoolFieldUndoCommand(osg::FieldContainerPtr container, const std::string& fieldName, bool value,
                                 QObject* object, const char* method, QUndoCommand* parent = nullptr);
    /// The same by the field's id.
    /// \param fieldId  counts from 1.
    moInvokeBoolFieldUndoCommand(const moUndoString& text, osg::FieldContainerPtr container, int fieldId, bool value,
                                 QObject* object, const char* method, QUndoCommand* parent = nullptr);
    /// The same by the field's id and without a text.
    moInvokeBoolFieldUndoCommand(osg::FieldContainerPtr container, int fieldId, bool value, QObject* object,
                                 const char* method, QUndoCommand* parent = nullptr);

    /// Does nothing.
    void undo() override;
    /// Exchanges the values and calls the method.
    void redo() override;
    /// Always false, because canMergeWith() is.
    bool mergeWith(const QUndoCommand* other) override;

private:
    enum class Argument
    {
        None,      ///< the method has no parameter
        Written,   ///< it gets the value written
        Impossible ///< it cannot be called
    };

    void resolve(const char* method);
    void invoke(bool written) const;

    QPointer<QObject> m_object;
    QMetaMethod m_method;
    Argument m_argument = Argument::None;
};
