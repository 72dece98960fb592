#include <support/OSGAllFields.h>

#include <OpenSG/OSGFieldContainerType.h>
#include <OpenSG/OSGFieldDescription.h>
#include <OpenSG/OSGHandleFields.h>

namespace osg {

OSG_ABSTRACT_CONTAINER_IMPL(ObservedCore, NodeCore, OSG_OBSERVEDCORE_FIELDS)
OSG_CONTAINER_IMPL(AllSingleFields, ObservedCore, OSG_ALLSINGLEFIELDS_FIELDS)
OSG_CONTAINER_IMPL(AllMultiFields, ObservedCore, OSG_ALLMULTIFIELDS_FIELDS)

} // namespace osg

std::vector<std::string> contents(const osg::FieldContainerPtr& container)
{
    const osg::FieldContainerType& type = container->getType();
    std::vector<std::string> lines;
    for (osg::UInt32 id = 1; id <= type.getNumFieldDescs(); ++id) {
        const osg::Field& field = *container->getField(id);
        std::string text;
        if (osg::holdsHandles(field)) {
            for (const osg::FieldContainerPtr& handle : osg::handlesIn(field))
                text += ' ' + std::to_string(handle != osg::NullFC ? osg::getContainerId(handle) : 0);
        } else {
            field.getValueByStr(text);
        }
        lines.push_back(std::to_string(id) + ' ' + text);
    }
    return lines;
}
