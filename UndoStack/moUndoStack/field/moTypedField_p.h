#pragma once

#include <OpenSG/OSGField.h>
#include <OpenSG/OSGFieldContainer.h>

#include <typeinfo>

/// The container's field of that id; null for a null container or if the field is no FieldType. Asks the field for its
/// type, because some descriptions name another one. Compares the classes first: nearly always the field is of that
/// very class, and that is much cheaper than a dynamic_cast.
template<class FieldType>
FieldType* typedField(const osg::FieldContainerPtr& container, osg::UInt32 fieldId)
{
    if (container == osg::NullFC) return nullptr;
    osg::Field* const field = container->getField(fieldId);
    if (field && typeid(*field) == typeid(FieldType)) return static_cast<FieldType*>(field);
    return dynamic_cast<FieldType*>(field);
}
