#include <moUndoStack/field/moFieldUndoCommand.h>

#include <moUndoStack/field/moFieldBaseUndoCommand_p.h>
#include <moUndoStack/field/moScalarFields_p.h>

#include <utility>

MO_UNDO_COMMAND_ID_TEMPLATE_IMPL(moFieldUndoCommand, T)

template<class T>
moFieldUndoCommand<T>::moFieldUndoCommand(const moUndoString& text, osg::FieldContainerPtr container,
                                          const std::string& fieldName, T value, QUndoCommand* parent)
    : moFieldBaseUndoCommand<>(text, container, moFieldAccess::idOf(container, fieldName), parent), m_value(value)
{
}

template<class T>
void moFieldUndoCommand<T>::redo()
{
    moFieldAccess::write<moScalarFieldType<T>>(*this, [this](auto& field) { std::swap(field.getValue(), m_value); });
}

template<class T>
void moFieldUndoCommand<T>::undo()
{
    moFieldUndoCommand::redo();
}

template<class T>
bool moFieldUndoCommand<T>::mergeWith(const QUndoCommand* other)
{
    // No value to take over: the field holds the newer command's, and m_value is from before this command.
    return mergeTime(other);
}

template class moFieldUndoCommand<signed char>;
template class moFieldUndoCommand<unsigned char>;
template class moFieldUndoCommand<short>;
template class moFieldUndoCommand<unsigned short>;
template class moFieldUndoCommand<int>;
template class moFieldUndoCommand<unsigned int>;
template class moFieldUndoCommand<std::int64_t>;
template class moFieldUndoCommand<std::uint64_t>;
template class moFieldUndoCommand<float>;
template class moFieldUndoCommand<double>;
