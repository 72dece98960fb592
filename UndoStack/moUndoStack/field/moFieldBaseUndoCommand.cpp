#include <moUndoStack/field/moFieldBaseUndoCommand.h>

#include <moUndoStack/field/moFieldBaseUndoCommand_p.h>
#include <moUndoStack/field/moUndoUtil.h>

#include <moUtils/moMessage.h>

#include <OpenSG/OSGFieldContainerType.h>
#include <OpenSG/OSGFieldDescription.h>

#include <utility>

template<class... Nothing>
moFieldBaseUndoCommand<Nothing...>::moFieldBaseUndoCommand(const moUndoString& text, osg::FieldContainerPtr container,
                                                           // NOLINTNEXTLINE(performance-unnecessary-value-param)
                                                           std::string fieldName, QUndoCommand* parent)
    : moUndoCommand(text, parent)
{
    if (const auto* const description = moUndoUtil::findField(container, fieldName)) {
        m_containerId = ::containerId(container);
        m_fieldId = description->getFieldId();
        m_fieldMask = description->getFieldMask();
    }
}

template<class... Nothing>
moFieldBaseUndoCommand<Nothing...>::moFieldBaseUndoCommand(const moUndoString& text, osg::FieldContainerPtr container,
                                                           int fieldId, QUndoCommand* parent)
    : moUndoCommand(text, parent)
{
    if (container == osg::NullFC) return;
    const auto id = static_cast<osg::UInt32>(fieldId);
    if (const auto* const description = container->getType().getFieldDescription(id)) {
        m_containerId = ::containerId(container);
        m_fieldId = id;
        m_fieldMask = description->getFieldMask();
    }
}

template<class... Nothing>
void moFieldBaseUndoCommand<Nothing...>::makeMessage(moMessage& message) const
{
    moUndoCommand::makeMessage(message);
    message.set("container", static_cast<unsigned int>(m_containerId), true);
    message.set("fieldId", static_cast<unsigned int>(m_fieldId), true);
}

template<class... Nothing>
bool moFieldBaseUndoCommand<Nothing...>::canMergeWith(const QUndoCommand* other) const
{
    const auto* const newer = castLike(*this, other);
    return newer && moUndoCommand::canMergeWith(newer) && newer->m_containerId == m_containerId &&
           newer->m_fieldId == m_fieldId && newer->m_fieldMask == m_fieldMask;
}

template<class... Nothing>
void moFieldBaseUndoCommand<Nothing...>::setNotifyFunction(std::function<void()> function)
{
    m_notify.set(std::move(function));
}

template<class... Nothing>
void moFieldBaseUndoCommand<Nothing...>::addWrapperFunction(std::function<void()> function)
{
    m_wrappers.set([before = m_wrappers, function = std::move(function)] {
        moStep::run([&] {
            moStep::afterwards(before);
            moStep::afterwards(function);
        });
    });
}

template<class... Nothing>
void moFieldBaseUndoCommand<Nothing...>::notify() const
{
    moStep::run([this] {
        moStep::afterwards(m_notify);
        moStep::afterwards(m_wrappers);
    });
}

template<class... Nothing>
bool moFieldBaseUndoCommand<Nothing...>::mergeTime(const QUndoCommand* other)
{
    if (!canMergeWith(other)) return false;
    adoptCreationTime(static_cast<const moUndoCommand&>(*other));
    return true;
}

template class moFieldBaseUndoCommand<>;
