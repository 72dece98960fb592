#include <moUndoStack/field/moTextFieldUndoCommand.h>

#include <moUndoStack/field/moFieldBaseUndoCommand_p.h>
#include <moUndoStack/field/moStringFieldUndoCommand.h>
#include <moUndoStack/field/moStringsFieldUndoCommand.h>

#include <utility>

MO_UNDO_COMMAND_ID_IMPL(moStringFieldUndoCommand)
MO_UNDO_COMMAND_ID_IMPL(moStringsFieldUndoCommand)

template<class Field, class Value>
struct moTextFieldUndoCommand<Field, Value>::Row
{
    void (*read)(const Field* field, Value& value);
    void (*write)(const Value& value, Field* field);
};

const moStringFieldUndoCommand::Row moStringFieldUndoCommand::s_row{
    [](const osg::SFString* field, std::string& value) { value = field->getValue(); },
    [](const std::string& value, osg::SFString* field) { field->setValue(value); },
};
const moStringsFieldUndoCommand::Row moStringsFieldUndoCommand::s_row{
    &moStringsFieldUndoCommand::getStdStrings,
    &moStringsFieldUndoCommand::setStdStrings,
};

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

moStringFieldUndoCommand::moStringFieldUndoCommand(const moUndoString& text, osg::FieldContainerPtr container,
                                                   const std::string& fieldName, std::string value,
                                                   QUndoCommand* parent)
    : moTextFieldUndoCommand(s_row, text, container, fieldName, std::move(value), parent)
{
}

moStringFieldUndoCommand::moStringFieldUndoCommand(osg::FieldContainerPtr container, const std::string& fieldName,
                                                   std::string value, QUndoCommand* parent)
    : moStringFieldUndoCommand(moUndoString(), container, fieldName, std::move(value), parent)
{
}

moStringFieldUndoCommand::moStringFieldUndoCommand(const moUndoString& text, osg::FieldContainerPtr container,
                                                   int fieldId, std::string value, QUndoCommand* parent)
    : moTextFieldUndoCommand(s_row, text, container, fieldId, std::move(value), parent)
{
}

moStringFieldUndoCommand::moStringFieldUndoCommand(osg::FieldContainerPtr container, int fieldId, std::string value,
                                                   QUndoCommand* parent)
    : moStringFieldUndoCommand(moUndoString(), container, fieldId, std::move(value), parent)
{
}

moStringsFieldUndoCommand::moStringsFieldUndoCommand(const moUndoString& text, osg::FieldContainerPtr container,
                                                     const std::string& fieldName, const osg::MFString& value,
                                                     QUndoCommand* parent)
    : moTextFieldUndoCommand(s_row, text, container, fieldName, {value.begin(), value.end()}, parent)
{
}

moStringsFieldUndoCommand::moStringsFieldUndoCommand(osg::FieldContainerPtr container, const std::string& fieldName,
                                                     const osg::MFString& value, QUndoCommand* parent)
    : moStringsFieldUndoCommand(moUndoString(), container, fieldName, value, parent)
{
}

template<class Field, class Value>
moTextFieldUndoCommand<Field, Value>::moTextFieldUndoCommand(const Row& row, const moUndoString& text,
                                                             osg::FieldContainerPtr container,
                                                             const std::string& fieldName, Value value,
                                                             QUndoCommand* parent)
    : moFieldBaseUndoCommand<>(text, container, moFieldAccess::idOf(container, fieldName), parent),
      m_row(row),
      m_new(std::move(value))
{
    readOld();
}

template<class Field, class Value>
moTextFieldUndoCommand<Field, Value>::moTextFieldUndoCommand(const Row& row, const moUndoString& text,
                                                             osg::FieldContainerPtr container, int fieldId, Value value,
                                                             QUndoCommand* parent)
    : moFieldBaseUndoCommand<>(text, container, fieldId, parent), m_row(row), m_new(std::move(value))
{
    readOld();
}

template<class Field, class Value>
void moTextFieldUndoCommand<Field, Value>::redo()
{
    write(m_new);
}

template<class Field, class Value>
void moTextFieldUndoCommand<Field, Value>::undo()
{
    write(m_old);
}

template<class Field, class Value>
bool moTextFieldUndoCommand<Field, Value>::canMergeWith(const QUndoCommand* other) const
{
    const auto* const newer = dynamic_cast<const moTextFieldUndoCommand*>(other);
    // Skips moFieldBaseUndoCommand, which compares containers and fields: intended, a text that continues another
    // merges. See docs/oddities.md#texts-merge-by-value. NOLINTNEXTLINE(bugprone-parent-virtual-call)
    return newer && moUndoCommand::canMergeWith(newer) && newer->m_old == m_new;
}

template<class Field, class Value>
bool moTextFieldUndoCommand<Field, Value>::mergeWith(const QUndoCommand* other)
{
    if (!mergeTime(other)) return false;
    m_new = static_cast<const moTextFieldUndoCommand*>(other)->m_new;
    return true;
}

template<class Field, class Value>
Field* moTextFieldUndoCommand<Field, Value>::getField() const
{
    return moFieldAccess::find<Field>(*this);
}

template<class Field, class Value>
void moTextFieldUndoCommand<Field, Value>::readOld()
{
    if (const auto* const field = getField()) m_row.read(field, m_old);
}

template<class Field, class Value>
void moTextFieldUndoCommand<Field, Value>::write(const Value& value)
{
    moFieldAccess::write<Field>(*this, [&](Field& field) { m_row.write(value, &field); });
}

template class moTextFieldUndoCommand<osg::SFString, std::string>;
template class moTextFieldUndoCommand<osg::MFString, std::vector<std::string>>;
