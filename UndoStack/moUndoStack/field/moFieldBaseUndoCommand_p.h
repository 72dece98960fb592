#pragma once

#include <moUndoStack/core/moContainer_p.h>
#include <moUndoStack/core/moStep.h>
#include <moUndoStack/field/moFieldBaseUndoCommand.h>
#include <moUndoStack/field/moTypedField_p.h>

/// How the members of the family reach their field. Not in the public header, as it needs the private helpers.
class moFieldAccess
{
public:
    /// The field, if the container is there and the field is a FieldType; else null.
    template<class FieldType>
    static FieldType* find(const moFieldBaseUndoCommand<>& command)
    {
        return typedField<FieldType>(findContainer<osg::FieldContainerPtr>(command.m_containerId), command.m_fieldId);
    }

    /// The one way in which a member of the family writes its field: finds it, calls writeTo(FieldType&) inside an edit
    /// of the field's mask, then afterEdit(), then notifies. Returns false, having done nothing, when the field is not
    /// there or of another type. If writeTo() throws, it must have left the field as it was.
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
            command.notify(); // last, so that a notify function finds the command's own values in order
        });
        return true;
    }
};
