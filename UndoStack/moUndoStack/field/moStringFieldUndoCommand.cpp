#include <moUndoStack/field/moStringFieldUndoCommand.h>

#include <moUndoStack/field/moFieldBaseUndoCommand_p.h>

#include <utility>

MO_UNDO_COMMAND_ID_IMPL(moStringFieldUndoCommand)

moStringFieldUndoCommand::moStringFieldUndoCommand(const moUndoString& text, osg::FieldContainerPtr container,
                                                   const std::string& fieldName, std::string value,
                                                   QUndoCommand* parent)
    : moFieldBaseUndoCommand<>(text, container, fieldName, parent), m_new(std::move(value))
{
    readOld();
}

moStringFieldUndoCommand::moStringFieldUndoCommand(osg::FieldContainerPtr container, const std::string& fieldName,
                                                   std::string value, QUndoCommand* parent)
    : moStringFieldUndoCommand(moUndoString(), container, fieldName, std::move(value), parent)
{
}

moStringFieldUndoCommand::moStringFieldUndoCommand(const moUndoString& text, osg::FieldContainerPtr container,
                                                   int fieldId, std::string value, QUndoCommand* parent)
    : moFieldBaseUndoCommand<>(text, container, fieldId, parent), m_new(std::move(value))
{
    readOld();
}

moStringFieldUndoCommand::moStringFieldUndoCommand(osg::FieldContainerPtr container, int fieldId, std::string value,
                                                   QUndoCommand* parent)
    : moStringFieldUndoCommand(moUndoString(), container, fieldId, std::move(value), parent)
{
}

void moStringFieldUndoCommand::redo()
{
    apply(m_new);
}

void moStringFieldUndoCommand::undo()
{
    apply(m_old);
}

bool moStringFieldUndoCommand::canMergeWith(const QUndoCommand* other) const
{
    const auto* const newer = dynamic_cast<const moStringFieldUndoCommand*>(other);
    // Past the base of the family, which compares containers and fields. NOLINTNEXTLINE(bugprone-parent-virtual-call)
    return newer && moUndoCommand::canMergeWith(newer) && newer->m_old == m_new;
}

bool moStringFieldUndoCommand::mergeWith(const QUndoCommand* other)
{
    if (!mergeTime(other)) return false;
    m_new = static_cast<const moStringFieldUndoCommand*>(other)->m_new;
    return true;
}

osg::SFString* moStringFieldUndoCommand::getField() const
{
    return moFieldAccess::find<osg::SFString>(*this);
}

void moStringFieldUndoCommand::readOld()
{
    if (const auto* const field = getField()) m_old = field->getValue();
}

void moStringFieldUndoCommand::apply(const std::string& value)
{
    moFieldAccess::write<osg::SFString>(*this, [&value](osg::SFString& field) { field.setValue(value); });
}
