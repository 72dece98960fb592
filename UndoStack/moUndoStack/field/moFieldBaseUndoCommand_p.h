#pragma once

#include <moUndoStack/core/moContainer_p.h>
#include <moUndoStack/core/moStep.h>
#include <moUndoStack/field/moFieldBaseUndoCommand.h>
#include <moUndoStack/field/moTypedField_p.h>

/// How the library's field commands reach their field. In a private header because it needs the private helpers.
class moFieldAccess
{
public:
    /// The field; null if the container was destroyed or the field is no FieldType.
    template<class FieldType>
    static FieldType* find(const moFieldBaseUndoCommand<>& command)
    {
        return typedField<FieldType>(findContainer<osg::FieldContainerPtr>(command.m_containerId), command.m_fieldId);
    }

    /// The one way in which a field command writes: finds the field, calls writeTo(FieldType&) inside an edit of the
    /// field's mask, then afterEdit(), then notify(). Returns false and does nothing where find() gives null. If
    /// writeTo() throws, it must leave the field as it was.
    template<class FieldType, class WriteTo, class AfterEdit = void (*)()>
    static bool write(
        const moFieldBaseUndoCommand<>& command, const WriteTo& writeTo, const AfterEdit& afterEdit = [] {})
    {
        const auto container = findContainer<osg::FieldContainerPtr>(command.m_containerId);
        auto* const field = typedField<FieldType>(container, command.m_fieldId);
        if (!field) return false;
        moStep::run([&] {
            {
                const ContainerEdit edit(container, command.m_fieldMask);
                writeTo(*field);
            }
            afterEdit();
            command.notify(); // last: a notify function may use the command
        });
        return true;
    }
};
