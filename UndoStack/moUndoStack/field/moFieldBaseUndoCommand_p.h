#pragma once

#include <moUndoStack/core/moContainer_p.h>
#include <moUndoStack/field/moFieldBaseUndoCommand.h>
#include <moUndoStack/field/moTypedField_p.h>

#include <QtCore/QScopeGuard>

// The member templates of moFieldBaseUndoCommand, for the members of the family: they need the private helpers.

template<class... Nothing>
template<class FieldType>
FieldType* moFieldBaseUndoCommand<Nothing...>::findTypedField() const
{
    return typedField<FieldType>(findContainer<osg::FieldContainerPtr>(m_containerId), m_fieldId);
}

template<class... Nothing>
template<class FieldType, class Write, class AfterEdit>
bool moFieldBaseUndoCommand<Nothing...>::apply(Write write, AfterEdit afterEdit)
{
    const auto container = findContainer<osg::FieldContainerPtr>(m_containerId);
    auto* const field = typedField<FieldType>(container, m_fieldId);
    if (!field) return false;
    {
        // A listener to the change may throw out of the end of the edit, when the field is written already.
        const auto always = qScopeGuard(std::move(afterEdit));
        const ContainerEdit edit(container, m_fieldMask);
        write(*field);
    }
    notify(); // last, so that a notify function that throws finds the command's own values in order
    return true;
}

template<class... Nothing>
template<class FieldType, class Write>
bool moFieldBaseUndoCommand<Nothing...>::apply(Write write)
{
    return apply<FieldType>(std::move(write), [] {});
}
