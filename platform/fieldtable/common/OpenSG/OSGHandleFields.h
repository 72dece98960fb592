#pragma once

#include <OpenSG/OSGFieldContainerFields.h>
#include <OpenSG/OSGFieldType.h>
#include <OpenSG/OSGMFFieldContainerPtr.h>
#include <OpenSG/OSGSFFieldContainerPtr.h>

#include <cstring>
#include <vector>

#if defined(__has_attribute)
    #if __has_attribute(no_sanitize)
        #define OSG_READS_HANDLES_ALIKE __attribute__((no_sanitize("undefined")))
    #endif
#endif
#ifndef OSG_READS_HANDLES_ALIKE
    #define OSG_READS_HANDLES_ALIKE
#endif

namespace osg {

/// True for a field of handles of whatever type.
inline bool holdsHandles(const Field& field)
{
    return std::strstr(field.getContentType().getCName(), "Ptr") != nullptr;
}

/// What a field of handles refers to, in order, nulls included. There is a field type for each handle type and nothing
/// that they have in common but their layout: OpenSG's own generic code reads them alike, as this does.
OSG_READS_HANDLES_ALIKE inline std::vector<FieldContainerPtr> handlesIn(const Field& field)
{
    if (field.getCardinality() == FieldType::SINGLE_FIELD)
        return {reinterpret_cast<const SFFieldContainerPtr&>(field).getValue()};
    const auto& handles = reinterpret_cast<const MFFieldContainerPtr&>(field);
    return {handles.begin(), handles.end()};
}

} // namespace osg

#undef OSG_READS_HANDLES_ALIKE
