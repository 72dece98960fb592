#pragma once

#include <support/OSGAllFields.h>

#include <limits>
#include <vector>

/// The field of osg::AllSingleFields that holds a T.
template<class T>
struct ScalarRow;

// clang-format off
#define MO_ROW(T, FieldType) \
    template<> struct ScalarRow<T> \
    { \
        static constexpr const char* name = "single" #FieldType; \
        static constexpr osg::BitVector mask = osg::AllSingleFields::Single##FieldType##FieldMask; \
        static T get(const osg::AllSingleFieldsPtr& container) { return container->getSingle##FieldType(); } \
        static void set(const osg::AllSingleFieldsPtr& container, T value) { container->setSingle##FieldType(value); } \
    };
MO_ROW(signed char,    Int8)
MO_ROW(unsigned char,  UInt8)
MO_ROW(short,          Int16)
MO_ROW(unsigned short, UInt16)
MO_ROW(int,            Int32)
MO_ROW(unsigned int,   UInt32)
MO_ROW(std::int64_t,   Int64)
MO_ROW(std::uint64_t,  UInt64)
MO_ROW(float,          Real32)
MO_ROW(double,         Real64)
#undef MO_ROW
// clang-format on

/// Both ends of a type's range and what else is easily lost on the way.
template<class T>
inline std::vector<T> remarkableValues()
{
    using Limits = std::numeric_limits<T>;
    std::vector<T> values = {Limits::lowest(), Limits::min(), Limits::max(), T(0), T(1)};
    if constexpr (Limits::has_infinity)
        values.insert(values.end(),
                      {Limits::quiet_NaN(), Limits::infinity(), -Limits::infinity(), Limits::denorm_min(), -T(0)});
    return values;
}
