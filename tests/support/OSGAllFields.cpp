#include <support/OSGAllFields.h>

#include <OpenSG/OSGFieldContainerType.h>
#include <OpenSG/OSGFieldDescription.h>
#include <OpenSG/OSGHandleFields.h>

#include <optional>
#include <sstream>
#include <typeinfo>

namespace osg {

OSG_ABSTRACT_CONTAINER_IMPL(ObservedCore, NodeCore, OSG_OBSERVEDCORE_FIELDS)
OSG_CONTAINER_IMPL(AllSingleFields, ObservedCore, OSG_ALLSINGLEFIELDS_FIELDS)
OSG_CONTAINER_IMPL(AllMultiFields, ObservedCore, OSG_ALLMULTIFIELDS_FIELDS)

} // namespace osg

namespace {

/// What fields of this kind hold, as numbers; nothing for another field. Compares classes and makes a stream only if it is
/// needed: digests of scenes read half a million fields in a run of the laws.
template<class Single, class Multi>
std::optional<std::string> numbersIn(const osg::Field& field)
{
    const bool isSingle = typeid(field) == typeid(Single);
    if (!isSingle && typeid(field) != typeid(Multi)) return std::nullopt;
    std::ostringstream text;
    if (isSingle) {
        text << static_cast<const Single&>(field).getValue();
    } else {
        for (const auto& value : static_cast<const Multi&>(field))
            text << value << ' ';
    }
    return text.str();
}

} // namespace

std::string valueText(const osg::Field& field)
{
    if (const auto numbers = numbersIn<osg::SFBitVector, osg::MFBitVector>(field)) return *numbers;
    if (const auto numbers = numbersIn<osg::SFVoidP, osg::MFVoidP>(field)) return *numbers;
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
