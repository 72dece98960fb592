#pragma once

#include <OpenSG/OSGFieldContainerPtr.h>

namespace osg {
class Field;
}

/// What a library sees that hides its own symbols.
struct __attribute__((visibility("default"))) HiddenLibrary
{
    static bool writes(osg::Field& field, float value);
    static bool writes(osg::Field& field, const osg::NodePtr& value);
    static bool isTransform(const osg::FieldContainerPtr& container);
    static osg::UInt32 idOfNodeField();
    static void copy(osg::Field& destination, float value);
};
