#pragma once

#include <OpenSG/OSGSFSysTypes.h>

#include <cstdint>

/// The field type that holds a scalar. By its typedef: SFBool, for one, is not SField<bool>.
template<class T>
struct moScalarField;

// clang-format off
template<> struct moScalarField<bool>           { using Type = osg::SFBool; };
template<> struct moScalarField<std::int64_t>   { using Type = osg::SFInt64; };
template<> struct moScalarField<std::uint64_t>  { using Type = osg::SFUInt64; };
template<> struct moScalarField<int>            { using Type = osg::SFInt32; };
template<> struct moScalarField<unsigned int>   { using Type = osg::SFUInt32; };
template<> struct moScalarField<short>          { using Type = osg::SFInt16; };
template<> struct moScalarField<unsigned short> { using Type = osg::SFUInt16; };
template<> struct moScalarField<signed char>    { using Type = osg::SFInt8; };
template<> struct moScalarField<unsigned char>  { using Type = osg::SFUInt8; };
template<> struct moScalarField<float>          { using Type = osg::SFReal32; };
template<> struct moScalarField<double>         { using Type = osg::SFReal64; };
// clang-format on

template<class T>
using moScalarFieldType = typename moScalarField<T>::Type;

template<class... T>
struct moScalarTypes
{
};

// A field is tried for these types in this order.
template<class... More>
using moIntegerTypesAnd = moScalarTypes<std::int64_t, std::uint64_t, int, unsigned int, short, unsigned short,
                                        signed char, unsigned char, More...>;
using moIntegerTypes = moIntegerTypesAnd<>;
using moFloatTypes = moScalarTypes<float, double>;

/// Calls attempt(T()) for each T in order until one returns true; the argument only says which T it is.
template<class... T, class Attempt>
bool moTryInOrder(moScalarTypes<T...>, Attempt attempt)
{
    return (attempt(T()) || ...);
}
