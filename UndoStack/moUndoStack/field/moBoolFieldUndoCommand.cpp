#include <moUndoStack/field/moBoolFieldUndoCommand.h>

#include <moUndoStack/field/moFieldBaseUndoCommand_p.h>
#include <moUndoStack/field/moScalarFields_p.h>

MO_UNDO_COMMAND_ID_IMPL(moBoolFieldUndoCommand)

moBoolFieldUndoCommand::moBoolFieldUndoCommand(const moUndoString& text, osg::FieldContainerPtr container,
                                               const std::string& fieldName, bool value, QUndoCommand* parent)
    : moFieldBaseUndoCommand<>(text, container, moFieldAccess::idOf(container, fieldName), parent), m_value(value)
{
}

moBoolFieldUndoCommand::moBoolFieldUndoCommand(osg::FieldContainerPtr container, const std::string& fieldName,
                                               bool value, QUndoCommand* parent)
    : moBoolFieldUndoCommand(moUndoString(), container, fieldName, value, parent)
{
}

moBoolFieldUndoCommand::moBoolFieldUndoCommand(const moUndoString& text, osg::FieldContainerPtr container, int fieldId,
                                               bool value, QUndoCommand* parent)
    : moFieldBaseUndoCommand<>(text, container, fieldId, parent), m_value(value)
{
}

moBoolFieldUndoCommand::moBoolFieldUndoCommand(osg::FieldContainerPtr container, int fieldId, bool value,
                                               QUndoCommand* parent)
    : moBoolFieldUndoCommand(moUndoString(), container, fieldId, value, parent)
{
}

void moBoolFieldUndoCommand::redo()
{
    apply();
}

void moBoolFieldUndoCommand::undo()
{
    apply();
}

void moBoolFieldUndoCommand::apply()
{
    const auto exchangeAs = [this](auto type) {
        using T = decltype(type);
        return moFieldAccess::write<moScalarFieldType<T>>(*this, [this](auto& field) {
            const bool previous = field.getValue() != T(0);
            field.setValue(static_cast<T>(m_value));
            m_value = previous;
        });
    };
    if (!exchangeAs(bool())) moTryInOrder(moIntegerTypes(), exchangeAs);
}
