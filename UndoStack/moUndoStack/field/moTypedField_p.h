#pragma once

#include <OpenSG/OSGField.h>
#include <OpenSG/OSGFieldContainer.h>

/// The field of that id, if there is a container and the field is a FieldType; else null. The type is the field
/// object's own: descriptions exist that name another one.
template<class FieldType>
FieldType* typedField(const osg::FieldContainerPtr& container, osg::UInt32 fieldId)
{
    return container == osg::NullFC ? nullptr : dynamic_cast<FieldType*>(container->getField(fieldId));
}
