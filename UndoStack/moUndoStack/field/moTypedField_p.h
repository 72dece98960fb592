#pragma once

#include <OpenSG/OSGField.h>
#include <OpenSG/OSGFieldContainer.h>

/// The container's field of that id; null for a null container or if the field is no FieldType. Asks the field for its
/// type, because some descriptions name another one.
template<class FieldType>
FieldType* typedField(const osg::FieldContainerPtr& container, osg::UInt32 fieldId)
{
    return container == osg::NullFC ? nullptr : dynamic_cast<FieldType*>(container->getField(fieldId));
}
