#include <moUndoStack/core/moInvokeMultiCommand.h>

#include <moUndoStack/core/moUndoCommand.h>

#include <moUndoUtils/moUndoString.h>
#include <moUtils/moLog.h>

MO_UNDO_COMMAND_ID_IMPL(moInvokeMultiCommand)

moInvokeMultiCommand::moInvokeMultiCommand(const moUndoString& text, QObject* object, const char* method)
    : moMultiCommand(text, [this] { invoke(); }), m_object(object)
{
    if (!m_object) return;
    const QByteArray signature = QMetaObject::normalizedSignature(method ? method : "");
    const QMetaObject* type = m_object->metaObject();
    const int index = type->indexOfMethod(signature.constData());
    if (index < 0) {
        moLog::error("Method not found: %s::%s", type->className(), signature.constData());
        m_object = nullptr;
        return;
    }
    m_method = type->method(index);
}

moInvokeMultiCommand::~moInvokeMultiCommand() = default;

void moInvokeMultiCommand::invoke() const
{
    if (!m_object || m_method.invoke(m_object)) return;
    moLog::error("Could not invoke: %s::%s", m_object->metaObject()->className(),
                 m_method.methodSignature().constData());
}
