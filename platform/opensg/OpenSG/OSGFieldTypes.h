#pragma once

#include <OpenSG/OSGColor.h>
#include <OpenSG/OSGDynamicVolume.h>
#include <OpenSG/OSGMField.h>
#include <OpenSG/OSGMatrix.h>
#include <OpenSG/OSGQuaternion.h>
#include <OpenSG/OSGSField.h>
#include <OpenSG/OSGVector.h>

#include <string>

/// Declares SFSuffix and MFSuffix as the fields of a value type; to be used in namespace osg.
#define OSG_FIELD_TYPE(ValueType, fieldNameSpace, Suffix, valueTypeName)                                               \
    template<>                                                                                                         \
    struct OSG_BASELIB_DLLMAPPING FieldDataTraits<ValueType, fieldNameSpace>                                           \
    {                                                                                                                  \
        static const Char8* getSName() { return "SF" #Suffix; }                                                        \
        static const Char8* getMName() { return "MF" #Suffix; }                                                        \
        static const DataType& getType()                                                                               \
        {                                                                                                              \
            static const DataType type(valueTypeName);                                                                 \
            return type;                                                                                               \
        }                                                                                                              \
    };                                                                                                                 \
    typedef SField<ValueType, fieldNameSpace> SF##Suffix;                                                              \
    typedef MField<ValueType, fieldNameSpace> MF##Suffix;

/// Declares SFXPtr and MFXPtr for a handle type XPtr; to be used in namespace osg.
#define OSG_HANDLE_FIELDS(HandleType) OSG_FIELD_TYPE(HandleType, 0, HandleType, #HandleType)

/// All value types that have fields, apart from handles.
// clang-format off
//        value type    name space  suffix       name of the value type
#define OSG_VALUE_FIELD_TYPES(TYPE)                                                                                    \
    TYPE(bool,          2,          Bool,        "bool")                                                               \
    TYPE(Int8,          0,          Int8,        "Int8")                                                               \
    TYPE(UInt8,         0,          UInt8,       "UInt8")                                                              \
    TYPE(Int16,         0,          Int16,       "Int16")                                                              \
    TYPE(UInt16,        0,          UInt16,      "UInt16")                                                             \
    TYPE(Int32,         0,          Int32,       "Int32")                                                              \
    TYPE(UInt32,        0,          UInt32,      "UInt32")                                                             \
    TYPE(Int64,         0,          Int64,       "Int64")                                                              \
    TYPE(UInt64,        0,          UInt64,      "UInt64")                                                             \
    TYPE(Real32,        0,          Real32,      "Real32")                                                             \
    TYPE(Real64,        0,          Real64,      "Real64")                                                             \
    TYPE(std::string,   0,          String,      "string")                                                             \
    TYPE(Time,          1,          Time,        "Time")                                                               \
    TYPE(GLenum,        1,          GLenum,      "GLenum")                                                             \
    TYPE(BitVector,     1,          BitVector,   "BitVector")                                                          \
    TYPE(void*,         0,          VoidP,       "VoidP")                                                              \
    TYPE(Vec2b,         0,          Vec2b,       "Vec2b")                                                              \
    TYPE(Vec3b,         0,          Vec3b,       "Vec3b")                                                              \
    TYPE(Vec4b,         0,          Vec4b,       "Vec4b")                                                              \
    TYPE(Vec2ub,        0,          Vec2ub,      "Vec2ub")                                                             \
    TYPE(Vec3ub,        0,          Vec3ub,      "Vec3ub")                                                             \
    TYPE(Vec4ub,        0,          Vec4ub,      "Vec4ub")                                                             \
    TYPE(Vec2s,         0,          Vec2s,       "Vec2s")                                                              \
    TYPE(Vec3s,         0,          Vec3s,       "Vec3s")                                                              \
    TYPE(Vec4s,         0,          Vec4s,       "Vec4s")                                                              \
    TYPE(Vec2us,        0,          Vec2us,      "Vec2us")                                                             \
    TYPE(Vec3us,        0,          Vec3us,      "Vec3us")                                                             \
    TYPE(Vec4us,        0,          Vec4us,      "Vec4us")                                                             \
    TYPE(Vec2f,         0,          Vec2f,       "Vec2f")                                                              \
    TYPE(Vec3f,         0,          Vec3f,       "Vec3f")                                                              \
    TYPE(Vec4f,         0,          Vec4f,       "Vec4f")                                                              \
    TYPE(Vec2d,         0,          Vec2d,       "Vec2d")                                                              \
    TYPE(Vec3d,         0,          Vec3d,       "Vec3d")                                                              \
    TYPE(Vec4d,         0,          Vec4d,       "Vec4d")                                                              \
    TYPE(Pnt2f,         0,          Pnt2f,       "Pnt2f")                                                              \
    TYPE(Pnt3f,         0,          Pnt3f,       "Pnt3f")                                                              \
    TYPE(Pnt4f,         0,          Pnt4f,       "Pnt4f")                                                              \
    TYPE(Pnt2d,         0,          Pnt2d,       "Pnt2d")                                                              \
    TYPE(Pnt3d,         0,          Pnt3d,       "Pnt3d")                                                              \
    TYPE(Pnt4d,         0,          Pnt4d,       "Pnt4d")                                                              \
    TYPE(Color3f,       0,          Color3f,     "Color3f")                                                            \
    TYPE(Color4f,       0,          Color4f,     "Color4f")                                                            \
    TYPE(Color3ub,      0,          Color3ub,    "Color3ub")                                                           \
    TYPE(Color4ub,      0,          Color4ub,    "Color4ub")                                                           \
    TYPE(Quaternion,    0,          Quaternion,  "Quaternion")                                                         \
    TYPE(Matrix,        0,          Matrix,      "Matrix")                                                             \
    TYPE(DynamicVolume, 0,          DynamicVolume, "DynamicVolume")
// clang-format on

namespace osg {

OSG_VALUE_FIELD_TYPES(OSG_FIELD_TYPE)

/// The one list that is not called like its type.
typedef MFDynamicVolume MFVolume;

} // namespace osg
