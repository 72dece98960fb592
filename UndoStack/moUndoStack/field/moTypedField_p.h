#pragma once

#include <OpenSG/OSGField.h>
#include <OpenSG/OSGFieldContainer.h>

#include <typeinfo>

/// The field of that id, if there is a container and the field is a FieldType; else null. The type is the field
/// object's own: descriptions exist that name another one. Nearly always it is a FieldType itself, and no class derived
/// from it: to compare the classes is much cheaper than a dynamic_cast.
template<class FieldType>
FieldType* typedField(const osg::FieldContainerPtr& container, osg::UInt32 fieldId)
{
    if (container == osg::NullFC) return nullptr;
    osg::Field* const field = container->getField(fieldId);
    if (field && typeid(*field) == typeid(FieldType)) return static_cast<FieldType*>(field);
    return dynamic_cast<FieldType*>(field);
}
