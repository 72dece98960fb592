#include <support/OSGAllFields.h>

#include <OpenSG/OSGFieldContainerType.h>
#include <OpenSG/OSGFieldDescription.h>
#include <OpenSG/OSGHandleFields.h>

#include <sstream>

namespace osg {

OSG_ABSTRACT_CONTAINER_IMPL(ObservedCore, NodeCore, OSG_OBSERVEDCORE_FIELDS)
OSG_CONTAINER_IMPL(AllSingleFields, ObservedCore, OSG_ALLSINGLEFIELDS_FIELDS)
OSG_CONTAINER_IMPL(AllMultiFields, ObservedCore, OSG_ALLMULTIFIELDS_FIELDS)

} // namespace osg

namespace {

/// Adds what fields of this kind hold as numbers; false for another field.
template<class Single, class Multi>
bool addNumbers(std::ostream& text, const osg::Field& field)
{
    if (const auto* const single = dynamic_cast<const Single*>(&field)) {
        text << single->getValue();
        return true;
    }
    const auto* const multi = dynamic_cast<const Multi*>(&field);
    if (!multi) return false;
    for (const auto& value : *multi)
        text << value << ' ';
    return true;
}

} // namespace

std::string valueText(const osg::Field& field)
{
    std::ostringstream numbers;
    if (addNumbers<osg::SFBitVector, osg::MFBitVector>(numbers, field) ||
        addNumbers<osg::SFVoidP, osg::MFVoidP>(numbers, field))
        return numbers.str();
    std::string text;
    field.getValueByStr(text);
    return text;
}

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
            text = valueText(field);
        }
        lines.push_back(std::to_string(id) + ' ' + text);
    }
    return lines;
}
