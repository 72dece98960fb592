#include "HiddenLibrary.h"

#include <OpenSG/OSGNode.h>
#include <OpenSG/OSGNodeFields.h>
#include <OpenSG/OSGReal32Fields.h>
#include <OpenSG/OSGTransform.h>

namespace {

template<class Field, class Value>
bool write(osg::Field& field, const Value& value)
{
    auto* const typed = dynamic_cast<Field*>(&field);
    if (typed) typed->setValue(value);
    return typed != nullptr;
}

} // namespace

bool HiddenLibrary::writes(osg::Field& field, float value)
{
    return write<osg::SFReal32>(field, value);
}

bool HiddenLibrary::writes(osg::Field& field, const osg::NodePtr& value)
{
    return write<osg::SFNodePtr>(field, value);
}

bool HiddenLibrary::isTransform(const osg::FieldContainerPtr& container)
{
    return osg::TransformPtr::dcast(container);
}

osg::UInt32 HiddenLibrary::idOfNodeField()
{
    return osg::SFNodePtr::getClassType().getId();
}

void HiddenLibrary::copy(osg::Field& destination, float value)
{
    destination.setAbstrValue(osg::SFReal32(value));
}
