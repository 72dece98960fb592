#include <moUndoStack/field/moStringsFieldUndoCommand.h>

#include <moUndoStack/field/moFieldBaseUndoCommand_p.h>

MO_UNDO_COMMAND_ID_IMPL(moStringsFieldUndoCommand)

moStringsFieldUndoCommand::moStringsFieldUndoCommand(const moUndoString& text, osg::FieldContainerPtr container,
                                                     const std::string& fieldName, const osg::MFString& value,
                                                     QUndoCommand* parent)
    : moFieldBaseUndoCommand<>(text, container, fieldName, parent)
{
    getStdStrings(&value, m_new);
    if (const auto* const field = getField()) getStdStrings(field, m_old);
}

moStringsFieldUndoCommand::moStringsFieldUndoCommand(osg::FieldContainerPtr container, const std::string& fieldName,
                                                     const osg::MFString& value, QUndoCommand* parent)
    : moStringsFieldUndoCommand(moUndoString(), container, fieldName, value, parent)
{
}

void moStringsFieldUndoCommand::redo()
{
    apply(m_new);
}

void moStringsFieldUndoCommand::undo()
{
    apply(m_old);
}

bool moStringsFieldUndoCommand::canMergeWith(const QUndoCommand* other) const
{
    const auto* const newer = dynamic_cast<const moStringsFieldUndoCommand*>(other);
    // Past the base of the family, which compares containers and fields. NOLINTNEXTLINE(bugprone-parent-virtual-call)
    return newer && moUndoCommand::canMergeWith(newer) && newer->m_old == m_new;
}

bool moStringsFieldUndoCommand::mergeWith(const QUndoCommand* other)
{
    if (!mergeTime(other)) return false;
    m_new = static_cast<const moStringsFieldUndoCommand*>(other)->m_new;
    return true;
}

osg::MFString* moStringsFieldUndoCommand::getField() const
{
    return moFieldAccess::find<osg::MFString>(*this);
}

void moStringsFieldUndoCommand::getStdStrings(const osg::MFString* field, std::vector<std::string>& strings)
{
    strings.assign(field->begin(), field->end());
}

void moStringsFieldUndoCommand::setStdStrings(const std::vector<std::string>& strings, osg::MFString* field)
{
    osg::MFString written;
    written.setValues(strings); // may throw half-way
    field->swap(written);
}

void moStringsFieldUndoCommand::apply(const std::vector<std::string>& strings)
{
    moFieldAccess::write<osg::MFString>(*this, [&strings](osg::MFString& field) { setStdStrings(strings, &field); });
}
