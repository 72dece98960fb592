#include <moUndoStack/field/moInvokeBoolFieldUndoCommand.h>

#include <moUndoStack/core/moStep.h>

#include <moUtils/moLog.h>

#include <QtCore/QMetaType>

MO_UNDO_COMMAND_ID_IMPL(moInvokeBoolFieldUndoCommand)

namespace {

/// Whether a parameter of the type can be given a pointer to a bool.
bool takesBool(QByteArray type)
{
    if (type.endsWith('&')) type.chop(1);
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    return QMetaType::type(type) == QMetaType::Bool;
#else
    return QMetaType::fromName(type).id() == QMetaType::Bool;
#endif
}

} // namespace

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
    if (!m_object) return; // nothing to log: the message needs the object's class

    const QMetaObject* const metaObject = m_object->metaObject();
    const std::string signature = QMetaObject::normalizedSignature(method).toStdString();
    const int index = metaObject->indexOfMethod(signature.c_str());
    if (index < 0) {
        moLog::error("Method not found: %s::%s", metaObject->className(), signature.c_str());
        m_object = nullptr;
        return;
    }
    m_method = metaObject->method(index);
    // Checked here because Qt only counts the arguments of a direct call: it would pass the bool's address to a method
    // that reads a string there.
    if (m_method.parameterCount() == 1)
        m_argument = takesBool(m_method.parameterTypes().first()) ? Argument::Written : Argument::Impossible;
}

void moInvokeBoolFieldUndoCommand::redo()
{
    moStep::run([this] {
        const bool written = value();
        moBoolFieldUndoCommand::redo();
        moStep::afterwards([&] { invoke(written); });
    });
}

void moInvokeBoolFieldUndoCommand::undo()
{
    // Intended, part of the interface. See docs/oddities.md#undo-that-does-nothing.
}

bool moInvokeBoolFieldUndoCommand::mergeWith(const QUndoCommand* other)
{
    return mergeTime(other);
}

void moInvokeBoolFieldUndoCommand::invoke(bool written) const
{
    if (!m_object) return;

    bool done = false;
    switch (m_argument) {
    case Argument::None:
        done = m_method.invoke(m_object);
        break;
    case Argument::Written:
        done = m_method.invoke(m_object, Q_ARG(bool, written));
        break;
    case Argument::Impossible:
        break;
    }
    if (!done)
        moLog::error("Could not invoke: %s::%s", m_object->metaObject()->className(),
                     m_method.methodSignature().constData());
}
