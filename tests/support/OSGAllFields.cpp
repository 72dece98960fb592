#include <support/OSGAllFields.h>

#include <OpenSG/OSGFieldContainerType.h>
#include <OpenSG/OSGFieldDescription.h>

namespace osg {

OSG_ABSTRACT_CONTAINER_IMPL(ObservedCore, NodeCore, OSG_OBSERVEDCORE_FIELDS)
OSG_CONTAINER_IMPL(AllSingleFields, ObservedCore, OSG_ALLSINGLEFIELDS_FIELDS)
OSG_CONTAINER_IMPL(AllMultiFields, ObservedCore, OSG_ALLMULTIFIELDS_FIELDS)

} // namespace osg

std::vector<std::string> contents(const osg::FieldContainerPtr& container)
{
    const osg::FieldContainerType& type = container->getType();
    std::vector<std::string> lines;
    for (osg::UInt32 id = 1; id <= type.getNumFieldDescs(); ++id)
        lines.push_back(std::to_string(id) + ' ' + container->getField(id)->getValueByStr());
    return lines;
}
