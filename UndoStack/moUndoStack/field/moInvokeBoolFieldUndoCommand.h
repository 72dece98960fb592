#pragma once

#include <moUndoStack/field/moBoolFieldUndoCommand.h>

#include <QtCore/QMetaMethod>
#include <QtCore/QObject>
#include <QtCore/QPointer>

/// A moBoolFieldUndoCommand that calls a method of a QObject after each redo: a check box can follow a field.
///
/// \param object  the receiver; not owned. Null, or once it was destroyed: only the field is set.
/// \param method  a signature such as "setChecked(bool)"; need not be normalised. A method with one bool parameter gets
///                the value that this redo writes, one without parameters is called as it is. The call is made even
///                when the container or the field was destroyed, and also when the notify function throws.
///
/// A bool parameter is one that Qt knows as a bool when the command is made: bool, const bool&, bool& (what the method
/// writes there is dropped), or a name that was registered for bool with qRegisterMetaType().
///
/// An unknown method is logged once, at construction, and from then on only the field is set. A method that cannot be
/// called (two or more parameters, a parameter that is not a bool) is logged at every redo; the field is set. Undo does
/// nothing, neither to the field nor to the receiver; this is intended. A redo after it therefore writes and reports
/// the value that the first redo replaced. A method that throws does not undo the step (see moStep). Never merges, nor
/// does a composite that has one. Message: "id", "container", "fieldId".
class MO_UNDO_STACK_EXPORT moInvokeBoolFieldUndoCommand : public moBoolFieldUndoCommand
{
    MO_UNDO_COMMAND_ID
public:
    moInvokeBoolFieldUndoCommand(const moUndoString& text, osg::FieldContainerPtr container,
                                 const std::string& fieldName, bool value, QObject* object, const char* method,
                                 QUndoCommand* parent = nullptr);
    moInvokeBoolFieldUndoCommand(osg::FieldContainerPtr container, const std::string& fieldName, bool value,
                                 QObject* object, const char* method, QUndoCommand* parent = nullptr);
    moInvokeBoolFieldUndoCommand(const moUndoString& text, osg::FieldContainerPtr container, int fieldId, bool value,
                                 QObject* object, const char* method, QUndoCommand* parent = nullptr);
    moInvokeBoolFieldUndoCommand(osg::FieldContainerPtr container, int fieldId, bool value, QObject* object,
                                 const char* method, QUndoCommand* parent = nullptr);

    void undo() override;
    void redo() override;
    bool mergeWith(const QUndoCommand* other) override;

private:
    enum class Argument
    {
        None,
        Written,
        Impossible
    };

    void resolve(const char* method);
    void invoke(bool written) const;

    QPointer<QObject> m_object;
    QMetaMethod m_method;
    Argument m_argument = Argument::None;
};
