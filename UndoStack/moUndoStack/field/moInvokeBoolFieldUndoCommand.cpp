#include <moUndoStack/field/moInvokeBoolFieldUndoCommand.h>

#include <moUtils/moLog.h>

#include <QtCore/QMetaType>
#include <QtCore/QObject>

MO_UNDO_COMMAND_ID_IMPL(moInvokeBoolFieldUndoCommand)

moInvokeBoolFieldUndoCommand::moInvokeBoolFieldUndoCommand(const moUndoString& text, osg::FieldContainerPtr container,
                                                           const std::string& fieldName, bool value, QObject* object,
                                                           const char* method, QUndoCommand* parent)
    : moBoolFieldUndoCommand(text, container, fieldName, value, parent), m_object(object)
{
    resolve(method);
}

moInvokeBoolFieldUndoCommand::moInvokeBoolFieldUndoCommand(osg::FieldContainerPtr container,
                                                           const std::string& fieldName, bool value, QObject* object,
                                                           const char* method, QUndoCommand* parent)
    : moInvokeBoolFieldUndoCommand(moUndoString(), container, fieldName, value, object, method, parent)
{
}

moInvokeBoolFieldUndoCommand::moInvokeBoolFieldUndoCommand(const moUndoString& text, osg::FieldContainerPtr container,
                                                           int fieldId, bool value, QObject* object, const char* method,
                                                           QUndoCommand* parent)
    : moBoolFieldUndoCommand(text, container, fieldId, value, parent), m_object(object)
{
    resolve(method);
}

moInvokeBoolFieldUndoCommand::moInvokeBoolFieldUndoCommand(osg::FieldContainerPtr container, int fieldId, bool value,
                                                           QObject* object, const char* method, QUndoCommand* parent)
    : moInvokeBoolFieldUndoCommand(moUndoString(), container, fieldId, value, object, method, parent)
{
}

void moInvokeBoolFieldUndoCommand::resolve(const char* method)
{
    if (!m_object) return; // a caller's error; there is no class whose name could be logged

    const QMetaObject* const metaObject = m_object->metaObject();
    const std::string signature = QMetaObject::normalizedSignature(method).toStdString();
    const int index = metaObject->indexOfMethod(signature.c_str());
    if (index < 0) {
        moLog::error("Method not found: %s::%s", metaObject->className(), signature.c_str());
        m_object = nullptr;
        return;
    }
    m_method = metaObject->method(index);
    if (m_method.parameterCount() == 1) m_parameterType = m_method.parameterTypes().first().toStdString();
}

void moInvokeBoolFieldUndoCommand::redo()
{
    const bool written = value();
    moBoolFieldUndoCommand::redo();

    if (m_object && !invoke(written))
        moLog::error("Could not invoke: %s::%s", m_object->metaObject()->className(),
                     m_method.methodSignature().constData());
}

void moInvokeBoolFieldUndoCommand::undo()
{
    // Intended: neither the field nor the receiver goes back.
}

bool moInvokeBoolFieldUndoCommand::mergeWith(const QUndoCommand* other)
{
    return mergeTime(other);
}

bool moInvokeBoolFieldUndoCommand::invoke(bool written) const
{
    if (m_parameterType.empty()) return m_method.invoke(m_object);

    // Qt only counts the arguments of a direct call: it would hand the bool's address to a method that reads a string
    // there.
    if (QMetaType::type(m_parameterType.c_str()) != QMetaType::Bool) return false;
    return m_method.invoke(m_object, QGenericArgument(m_parameterType.c_str(), &written));
}
