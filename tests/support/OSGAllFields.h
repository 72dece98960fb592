#pragma once

#include <OpenSG/OSGFieldTable.h>
#include <OpenSG/OSGImage.h>
#include <OpenSG/OSGMaterial.h>
#include <OpenSG/OSGNode.h>
#include <OpenSG/OSGNodeCore.h>

#include <functional>
#include <string>
#include <vector>

// Containers with a field of every type. There are two of them because a field mask has room for 63 fields.

namespace osg {

class ObservedCore;
typedef FCPtr<NodeCorePtr, ObservedCore> ObservedCorePtr;

#define OSG_OBSERVEDCORE_FIELDS(SINGLE, MULTI)

OSG_ABSTRACT_CONTAINER_BASE(ObservedCore, NodeCore, OSG_OBSERVEDCORE_FIELDS)

/// Called for every change; a test sets it. May throw.
class ObservedCore : public ObservedCoreBase
{
    OSG_CONTAINER(ObservedCore)

public:
    void changed(BitVector mask, UInt32 origin) override
    {
        Inherited::changed(mask, origin);
        if (onChanged) onChanged(mask, origin);
    }

    std::function<void(BitVector mask, UInt32 origin)> onChanged;
};

class AllSingleFields;
typedef FCPtr<ObservedCorePtr, AllSingleFields> AllSingleFieldsPtr;

// clang-format off
//         type                   Name                           description                     default
#define OSG_ALLSINGLEFIELDS_FIELDS(SINGLE, MULTI) \
    SINGLE(Bool,                  SingleBool,                    "singleBool",                   false) \
    SINGLE(Int8,                  SingleInt8,                    "singleInt8",                   0) \
    SINGLE(UInt8,                 SingleUInt8,                   "singleUInt8",                  0) \
    SINGLE(Int16,                 SingleInt16,                   "singleInt16",                  0) \
    SINGLE(UInt16,                SingleUInt16,                  "singleUInt16",                 0) \
    SINGLE(Int32,                 SingleInt32,                   "singleInt32",                  0) \
    SINGLE(UInt32,                SingleUInt32,                  "singleUInt32",                 0) \
    SINGLE(Int64,                 SingleInt64,                   "singleInt64",                  0) \
    SINGLE(UInt64,                SingleUInt64,                  "singleUInt64",                 0) \
    SINGLE(Real32,                SingleReal32,                  "singleReal32",                 0) \
    SINGLE(Real64,                SingleReal64,                  "singleReal64",                 0) \
    SINGLE(String,                SingleString,                  "singleString",                 "") \
    SINGLE(Time,                  SingleTime,                    "singleTime",                   0) \
    SINGLE(GLenum,                SingleGLenum,                  "singleGLenum",                 0) \
    SINGLE(BitVector,             SingleBitVector,               "singleBitVector",              0) \
    SINGLE(VoidP,                 SingleVoidP,                   "singleVoidP",                  nullptr) \
    SINGLE(Vec2b,                 SingleVec2b,                   "singleVec2b",                  ) \
    SINGLE(Vec3b,                 SingleVec3b,                   "singleVec3b",                  ) \
    SINGLE(Vec4b,                 SingleVec4b,                   "singleVec4b",                  ) \
    SINGLE(Vec2ub,                SingleVec2ub,                  "singleVec2ub",                 ) \
    SINGLE(Vec3ub,                SingleVec3ub,                  "singleVec3ub",                 ) \
    SINGLE(Vec4ub,                SingleVec4ub,                  "singleVec4ub",                 ) \
    SINGLE(Vec2s,                 SingleVec2s,                   "singleVec2s",                  ) \
    SINGLE(Vec3s,                 SingleVec3s,                   "singleVec3s",                  ) \
    SINGLE(Vec4s,                 SingleVec4s,                   "singleVec4s",                  ) \
    SINGLE(Vec2us,                SingleVec2us,                  "singleVec2us",                 ) \
    SINGLE(Vec3us,                SingleVec3us,                  "singleVec3us",                 ) \
    SINGLE(Vec4us,                SingleVec4us,                  "singleVec4us",                 ) \
    SINGLE(Vec2f,                 SingleVec2f,                   "singleVec2f",                  ) \
    SINGLE(Vec3f,                 SingleVec3f,                   "singleVec3f",                  ) \
    SINGLE(Vec4f,                 SingleVec4f,                   "singleVec4f",                  ) \
    SINGLE(Vec2d,                 SingleVec2d,                   "singleVec2d",                  ) \
    SINGLE(Vec3d,                 SingleVec3d,                   "singleVec3d",                  ) \
    SINGLE(Vec4d,                 SingleVec4d,                   "singleVec4d",                  ) \
    SINGLE(Pnt2f,                 SinglePnt2f,                   "singlePnt2f",                  ) \
    SINGLE(Pnt3f,                 SinglePnt3f,                   "singlePnt3f",                  ) \
    SINGLE(Pnt4f,                 SinglePnt4f,                   "singlePnt4f",                  ) \
    SINGLE(Pnt2d,                 SinglePnt2d,                   "singlePnt2d",                  ) \
    SINGLE(Pnt3d,                 SinglePnt3d,                   "singlePnt3d",                  ) \
    SINGLE(Pnt4d,                 SinglePnt4d,                   "singlePnt4d",                  ) \
    SINGLE(Color3f,               SingleColor3f,                 "singleColor3f",                ) \
    SINGLE(Color4f,               SingleColor4f,                 "singleColor4f",                ) \
    SINGLE(Color3ub,              SingleColor3ub,                "singleColor3ub",               ) \
    SINGLE(Color4ub,              SingleColor4ub,                "singleColor4ub",               ) \
    SINGLE(Quaternion,            SingleQuaternion,              "singleQuaternion",             ) \
    SINGLE(Matrix,                SingleMatrix,                  "singleMatrix",                 ) \
    SINGLE(DynamicVolume,         SingleDynamicVolume,           "singleDynamicVolume",          ) \
    SINGLE(FieldContainerPtr,     SingleFieldContainerPtr,       "singleFieldContainerPtr",      NullFC) \
    SINGLE(AttachmentPtr,         SingleAttachmentPtr,           "singleAttachmentPtr",          NullFC) \
    SINGLE(NodePtr,               SingleNodePtr,                 "singleNodePtr",                NullFC) \
    SINGLE(NodeCorePtr,           SingleNodeCorePtr,             "singleNodeCorePtr",            NullFC) \
    SINGLE(ImagePtr,              SingleImagePtr,                "singleImagePtr",               NullFC) \
    SINGLE(MaterialPtr,           SingleMaterialPtr,             "singleMaterialPtr",            NullFC) \
    SINGLE(Int32,                 SecondInt32,                   "secondInt32",                  0) \
    SINGLE(Int32,                 UpperCase,                     "UpperCase",                    0) \
    SINGLE(Int32,                 Underscore,                    "_underscore",                  0) \
    SINGLE(Int32,                 Digit,                         "3digit",                       0)
// clang-format on

OSG_CONTAINER_BASE(AllSingleFields, ObservedCore, OSG_ALLSINGLEFIELDS_FIELDS)

class AllSingleFields : public AllSingleFieldsBase
{
    OSG_CONTAINER(AllSingleFields)
};

class AllMultiFields;
typedef FCPtr<ObservedCorePtr, AllMultiFields> AllMultiFieldsPtr;

// clang-format off
//        type                   Name                           description
#define OSG_ALLMULTIFIELDS_FIELDS(SINGLE, MULTI) \
    MULTI(Bool,                  MultiBool,                     "multiBool") \
    MULTI(Int8,                  MultiInt8,                     "multiInt8") \
    MULTI(UInt8,                 MultiUInt8,                    "multiUInt8") \
    MULTI(Int16,                 MultiInt16,                    "multiInt16") \
    MULTI(UInt16,                MultiUInt16,                   "multiUInt16") \
    MULTI(Int32,                 MultiInt32,                    "multiInt32") \
    MULTI(UInt32,                MultiUInt32,                   "multiUInt32") \
    MULTI(Int64,                 MultiInt64,                    "multiInt64") \
    MULTI(UInt64,                MultiUInt64,                   "multiUInt64") \
    MULTI(Real32,                MultiReal32,                   "multiReal32") \
    MULTI(Real64,                MultiReal64,                   "multiReal64") \
    MULTI(String,                MultiString,                   "multiString") \
    MULTI(Time,                  MultiTime,                     "multiTime") \
    MULTI(GLenum,                MultiGLenum,                   "multiGLenum") \
    MULTI(BitVector,             MultiBitVector,                "multiBitVector") \
    MULTI(VoidP,                 MultiVoidP,                    "multiVoidP") \
    MULTI(Vec2b,                 MultiVec2b,                    "multiVec2b") \
    MULTI(Vec3b,                 MultiVec3b,                    "multiVec3b") \
    MULTI(Vec4b,                 MultiVec4b,                    "multiVec4b") \
    MULTI(Vec2ub,                MultiVec2ub,                   "multiVec2ub") \
    MULTI(Vec3ub,                MultiVec3ub,                   "multiVec3ub") \
    MULTI(Vec4ub,                MultiVec4ub,                   "multiVec4ub") \
    MULTI(Vec2s,                 MultiVec2s,                    "multiVec2s") \
    MULTI(Vec3s,                 MultiVec3s,                    "multiVec3s") \
    MULTI(Vec4s,                 MultiVec4s,                    "multiVec4s") \
    MULTI(Vec2us,                MultiVec2us,                   "multiVec2us") \
    MULTI(Vec3us,                MultiVec3us,                   "multiVec3us") \
    MULTI(Vec4us,                MultiVec4us,                   "multiVec4us") \
    MULTI(Vec2f,                 MultiVec2f,                    "multiVec2f") \
    MULTI(Vec3f,                 MultiVec3f,                    "multiVec3f") \
    MULTI(Vec4f,                 MultiVec4f,                    "multiVec4f") \
    MULTI(Vec2d,                 MultiVec2d,                    "multiVec2d") \
    MULTI(Vec3d,                 MultiVec3d,                    "multiVec3d") \
    MULTI(Vec4d,                 MultiVec4d,                    "multiVec4d") \
    MULTI(Pnt2f,                 MultiPnt2f,                    "multiPnt2f") \
    MULTI(Pnt3f,                 MultiPnt3f,                    "multiPnt3f") \
    MULTI(Pnt4f,                 MultiPnt4f,                    "multiPnt4f") \
    MULTI(Pnt2d,                 MultiPnt2d,                    "multiPnt2d") \
    MULTI(Pnt3d,                 MultiPnt3d,                    "multiPnt3d") \
    MULTI(Pnt4d,                 MultiPnt4d,                    "multiPnt4d") \
    MULTI(Color3f,               MultiColor3f,                  "multiColor3f") \
    MULTI(Color4f,               MultiColor4f,                  "multiColor4f") \
    MULTI(Color3ub,              MultiColor3ub,                 "multiColor3ub") \
    MULTI(Color4ub,              MultiColor4ub,                 "multiColor4ub") \
    MULTI(Quaternion,            MultiQuaternion,               "multiQuaternion") \
    MULTI(Matrix,                MultiMatrix,                   "multiMatrix") \
    MULTI(Volume,                MultiDynamicVolume,            "multiDynamicVolume") \
    MULTI(FieldContainerPtr,     MultiFieldContainerPtr,        "multiFieldContainerPtr") \
    MULTI(AttachmentPtr,         MultiAttachmentPtr,            "multiAttachmentPtr") \
    MULTI(NodePtr,               MultiNodePtr,                  "multiNodePtr") \
    MULTI(NodeCorePtr,           MultiNodeCorePtr,              "multiNodeCorePtr") \
    MULTI(ImagePtr,              MultiImagePtr,                 "multiImagePtr") \
    MULTI(MaterialPtr,           MultiMaterialPtr,              "multiMaterialPtr") \
    MULTI(Int32,                 LowerTwin,                     "twin") \
    MULTI(Int32,                 UpperTwin,                     "Twin")
// clang-format on

OSG_CONTAINER_BASE(AllMultiFields, ObservedCore, OSG_ALLMULTIFIELDS_FIELDS)

class AllMultiFields : public AllMultiFieldsBase
{
    OSG_CONTAINER(AllMultiFields)
};

} // namespace osg

/// The value of a field other than of handles. An installed OpenSG has no text for some types and logs that there is
/// none.
std::string valueText(const osg::Field& field);
/// The values of all fields of a container, one line each, to be compared.
std::vector<std::string> contents(const osg::FieldContainerPtr& container);
