#include <scene/FieldContents.h>

#include <moOpenSGConstraint/OSGConstraintObject.h>
#include <moOpenSGExt/OSGTransformVariant.h>
#include <moOpenSGUberLight/OSGLensFlareEffect.h>
#include <moOpenSGUberLight/OSGLensFlareGhostLine.h>
#include <moOpenSGUberMaterial/OSGColorComponentSettings.h>

#include <OpenSG/OSGAttachmentContainer.h>
#include <OpenSG/OSGFieldContainerFactory.h>
#include <OpenSG/OSGImage.h>
#include <OpenSG/OSGMFBaseTypes.h>
#include <OpenSG/OSGMFFieldContainerPtr.h>
#include <OpenSG/OSGMFMathTypes.h>
#include <OpenSG/OSGMFSysTypes.h>
#include <OpenSG/OSGMFVecTypes.h>
#include <OpenSG/OSGMaterial.h>
#include <OpenSG/OSGNode.h>
#include <OpenSG/OSGSFBaseTypes.h>
#include <OpenSG/OSGSFFieldContainerPtr.h>
#include <OpenSG/OSGSFMathTypes.h>
#include <OpenSG/OSGSFSysTypes.h>
#include <OpenSG/OSGSFVecTypes.h>
#include <OpenSG/OSGStateChunk.h>
#include <OpenSG/OSGStringFields.h>

#include <map>
#include <stdexcept>
#include <tuple>
#include <type_traits>
#include <unordered_map>

namespace {

void addId(const osg::FieldContainerPtr& container, FieldContents& contents)
{
    contents.targets.push_back(container == osg::NullFC ? 0 : container.getFieldContainerId());
}

/// A value whose bytes are its contents: a number, or several without gaps (vectors, colours, matrices).
template<class T>
void addValues(const T* values, std::size_t count, FieldContents& contents)
{
    contents.exact.append(reinterpret_cast<const char*>(values), count * sizeof(T));
}

/// The same for values made of floats.
template<class T>
void addFloats(const T* values, std::size_t count, FieldContents& contents)
{
    constexpr std::size_t size = sizeof(T) / sizeof(float);
    static_assert(sizeof(T) == size * sizeof(float));
    const auto* numbers = reinterpret_cast<const float*>(values);
    for (std::size_t i = 0; i < count; ++i)
        contents.runs.push_back({contents.field, static_cast<osg::UInt32>(contents.numbers.size() + i * size), size});
    contents.numbers.insert(contents.numbers.end(), numbers, numbers + count * size);
}

/// Handles, texts and all values that are compared to the bit.
template<class T>
void addExact(const T* values, std::size_t count, FieldContents& contents)
{
    if constexpr (std::is_same_v<T, std::string>) {
        for (std::size_t i = 0; i < count; ++i)
            contents.addText(values[i]);
    } else if constexpr (std::is_convertible_v<T, osg::FieldContainerPtr>) {
        for (std::size_t i = 0; i < count; ++i)
            addId(values[i], contents);
    } else {
        addValues(values, count, contents);
    }
}

template<class T>
using Add = void (*)(const T* values, std::size_t count, FieldContents& contents);

template<class SingleField, Add<typename SingleField::StoredType> add>
void readSingle(const osg::Field& field, FieldContents& contents)
{
    add(&static_cast<const SingleField&>(field).getValue(), 1, contents);
}

template<class MultiField, Add<typename MultiField::StoredType> add>
void readMulti(const osg::Field& field, FieldContents& contents)
{
    const auto& values = static_cast<const MultiField&>(field);
    contents.addNumber(values.size());
    if (!values.empty()) add(&values[0], values.size(), contents);
}

/// For lists of bool, whose elements have no address.
void readBools(const osg::Field& field, FieldContents& contents)
{
    const auto& values = static_cast<const osg::MFBool&>(field);
    contents.addNumber(values.size());
    for (osg::UInt32 i = 0; i < values.size(); ++i)
        contents.exact += values[i] ? '\1' : '\0';
}

/// By the name of the group: its number depends on the order in which the groups were registered.
void readAttachments(const osg::Field& field, FieldContents& contents)
{
    const osg::AttachmentMap& attachments = static_cast<const osg::SFAttachmentMap&>(field).getValue();
    std::map<std::pair<std::string, unsigned int>, osg::AttachmentPtr> sorted;
    for (const auto& [key, attachment] : attachments) {
        const char* group = osg::FieldContainerFactory::the()->findGroupName(static_cast<osg::UInt16>(key >> 16));
        sorted.emplace(std::pair(group ? group : "", key & 0xFFFFu), attachment);
    }
    contents.addNumber(sorted.size());
    for (const auto& [place, attachment] : sorted) {
        contents.addText(place.first);
        contents.addNumber(place.second);
        addId(attachment, contents);
    }
}

void readNothing(const osg::Field&, FieldContents&) {}

/// By the number of the field's type.
using Readers = std::unordered_map<osg::UInt32, FieldReader>;

template<class SingleField>
void exactly(Readers& readers)
{
    readers[SingleField::getClassType().getId()] = readSingle<SingleField, addExact<typename SingleField::StoredType>>;
}
template<class SingleField, class MultiField>
void exactly(Readers& readers)
{
    using T = typename MultiField::StoredType;
    exactly<SingleField>(readers);
    readers[MultiField::getClassType().getId()] = readMulti<MultiField, addExact<T>>;
}
template<class SingleField, class MultiField>
void asFloats(Readers& readers)
{
    using T = typename MultiField::StoredType;
    readers[SingleField::getClassType().getId()] = readSingle<SingleField, addFloats<T>>;
    readers[MultiField::getClassType().getId()] = readMulti<MultiField, addFloats<T>>;
}

Readers makeReaders()
{
    using namespace osg;

    Readers readers;
    exactly<SFBool>(readers);
    readers[MFBool::getClassType().getId()] = readBools;
    exactly<SFInt8, MFInt8>(readers);
    exactly<SFUInt8, MFUInt8>(readers);
    exactly<SFInt16, MFInt16>(readers);
    exactly<SFUInt16, MFUInt16>(readers);
    exactly<SFInt32, MFInt32>(readers);
    exactly<SFUInt32, MFUInt32>(readers);
    exactly<SFInt64, MFInt64>(readers);
    exactly<SFUInt64, MFUInt64>(readers);
    exactly<SFReal64, MFReal64>(readers);
    exactly<SFTime, MFTime>(readers);
    exactly<SFGLenum, MFGLenum>(readers);
    exactly<SFBitVector, MFBitVector>(readers);
    exactly<SFString, MFString>(readers);
    exactly<SFColor3ub, MFColor3ub>(readers);
    exactly<SFColor4ub, MFColor4ub>(readers);
    exactly<SFVec3d, MFVec3d>(readers);
    exactly<SFPnt3d, MFPnt3d>(readers);
    asFloats<SFReal32, MFReal32>(readers);
    asFloats<SFVec2f, MFVec2f>(readers);
    asFloats<SFVec3f, MFVec3f>(readers);
    asFloats<SFVec4f, MFVec4f>(readers);
    asFloats<SFPnt2f, MFPnt2f>(readers);
    asFloats<SFPnt3f, MFPnt3f>(readers);
    asFloats<SFPnt4f, MFPnt4f>(readers);
    asFloats<SFColor3f, MFColor3f>(readers);
    asFloats<SFColor4f, MFColor4f>(readers);
    asFloats<SFQuaternion, MFQuaternion>(readers);
    asFloats<SFMatrix, MFMatrix>(readers);

    exactly<SFFieldContainerPtr, MFFieldContainerPtr>(readers);
    exactly<SFNodePtr, MFNodePtr>(readers);
    exactly<SFNodeCorePtr>(readers);
    exactly<SFImagePtr, MFImagePtr>(readers);
    exactly<SFMaterialPtr, MFMaterialPtr>(readers);
    exactly<SFStateChunkPtr, MFStateChunkPtr>(readers);
    exactly<SFTransform3DPtr, MFTransform3DPtr>(readers);
    exactly<SFTransformVariantPtr, MFTransformVariantPtr>(readers);
    exactly<SFColorComponentSettingsPtr, MFColorComponentSettingsPtr>(readers);
    exactly<SFConstraintObjectPtr, MFConstraintObjectPtr>(readers);
    exactly<SFLensFlareEffectPtr, MFLensFlareEffectPtr>(readers);
    exactly<SFLensFlareElementPtr, MFLensFlareElementPtr>(readers);
    exactly<SFLensFlareGhostPtr, MFLensFlareGhostPtr>(readers);
    readers[SFAttachmentMap::getClassType().getId()] = readAttachments;

    readers[SFDynamicVolume::getClassType().getId()] = readNothing;
    readers[SFVoidP::getClassType().getId()] = readNothing;
    readers[MFVoidP::getClassType().getId()] = readNothing;
    return readers;
}

} // namespace

void FieldContents::clear()
{
    exact.clear();
    numbers.clear();
    targets.clear();
    runs.clear();
}

void FieldContents::addNumber(osg::UInt64 number)
{
    addValues(&number, 1, *this);
}

void FieldContents::addText(const std::string& text)
{
    addNumber(text.size());
    exact += text;
}

FieldReader readerOf(const osg::Field& field)
{
    static const Readers readers = makeReaders();
    const auto found = readers.find(field.getType().getId());
    if (found == readers.end())
        throw std::logic_error(std::string("no reader for a field of type ") + field.getType().getCName());
    return found->second;
}
