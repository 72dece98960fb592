#pragma once

#include <moUndoStack/core/moContainer_p.h>
#include <moUndoStack/core/moStep.h>
#include <moUndoStack/field/moFieldBaseUndoCommand.h>
#include <moUndoStack/field/moTypedField_p.h>
#include <moUndoStack/field/moUndoUtil.h>

#include <OpenSG/OSGFieldDescription.h>

#include <string>

/// How the library's field commands reach their field. In a private header because it needs the private helpers.
class moFieldAccess
{
public:
    /// Id of the field of that name; 0, which no field has, if there is none. The commands hand it to the base in place
    /// of the name, of which the base would take a copy.
    static int idOf(const osg::FieldContainerPtr& container, const std::string& name)
    {
        const osg::FieldDescription* const description = moUndoUtil::findField(container, name);
        return description ? static_cast<int>(description->getFieldId()) : 0;
    }

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
            if (command.m_notify || command.m_wrappers) command.notify(); // last: a notify function may use the command
        });
        return true;
    }
};
