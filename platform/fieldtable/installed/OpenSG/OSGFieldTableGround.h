#pragma once

#include <OpenSG/OSGAttachmentContainerFields.h>
#include <OpenSG/OSGAttachmentFields.h>
#include <OpenSG/OSGFieldContainer.h>
#include <OpenSG/OSGFieldContainerFields.h>
#include <OpenSG/OSGFieldContainerType.h>
#include <OpenSG/OSGFieldDescription.h>
#include <OpenSG/OSGLog.h>
#include <OpenSG/OSGMFBaseTypes.h>
#include <OpenSG/OSGMFMathTypes.h>
#include <OpenSG/OSGMFSysTypes.h>
#include <OpenSG/OSGMFVecTypes.h>
#include <OpenSG/OSGNodeCoreFields.h>
#include <OpenSG/OSGNodeFields.h>
#include <OpenSG/OSGSFBaseTypes.h>
#include <OpenSG/OSGSFMathTypes.h>
#include <OpenSG/OSGSFSysTypes.h>
#include <OpenSG/OSGSFVecTypes.h>
#include <OpenSG/OSGStringFields.h>

#ifdef OSG_FIXED_MFIELDSYNC
    #error                                                                                                             \
        "OpenSG was built with OSG_FIXED_MFIELDSYNC: its containers have other virtual functions than our tables make"
#endif

// How the table of OSGFieldTable.h becomes a type of an installed OpenSG 1.8.

/// Types and fields are the same object on both sides of a library boundary, also in a library that hides its symbols.
#define OSG_TABLE_VISIBLE __attribute__((visibility("default")))

// What OpenSG wants of every class: descriptions that reach the fields through member functions, the copy of changed
// fields between aspects, and a way to print itself.
#define OSG_TABLE_GROUND_DECL_(Class, FIELDS)                                                                          \
    FIELDS(OSG_TABLE_REACH_S_, OSG_TABLE_REACH_M_)                                                                     \
                                                                                                                       \
protected:                                                                                                             \
    void executeSyncImpl(Class##Base* other, const BitVector& whichField);                                             \
    void executeSync(FieldContainer& other, const BitVector& whichField) override;                                     \
                                                                                                                       \
public:                                                                                                                \
    void dump(UInt32 indent = 0, const BitVector flags = 0) const override;                                            \
                                                                                                                       \
private:                                                                                                               \
    static FieldDescription* _desc[];

#define OSG_TABLE_GROUND_IMPL_(Class, Parent, FIELDS, groupName, createPrototype)                                      \
    FieldDescription* Class##Base::_desc[] = {FIELDS(OSG_TABLE_DESCRIBE_S_, OSG_TABLE_DESCRIBE_M_) nullptr};           \
    /* The descriptions end with a null, so that a table may have no rows; it is not counted. */                       \
    FieldContainerType Class##Base::_type(#Class, #Parent, groupName, createPrototype, nullptr, _desc,                 \
                                          sizeof(_desc) - sizeof(_desc[0]));                                           \
    void Class##Base::executeSyncImpl(Class##Base* other, [[maybe_unused]] const BitVector& whichField)                \
    {                                                                                                                  \
        Inherited::executeSyncImpl(other, whichField);                                                                 \
        FIELDS(OSG_TABLE_SYNC_S_, OSG_TABLE_SYNC_M_)                                                                   \
    }                                                                                                                  \
    void Class##Base::executeSync(FieldContainer& other, const BitVector& whichField)                                  \
    {                                                                                                                  \
        executeSyncImpl(static_cast<Class##Base*>(&other), whichField);                                                \
    }                                                                                                                  \
    void Class##Base::dump(UInt32, const BitVector) const                                                              \
    {                                                                                                                  \
        SLOG << getTypeName() << std::endl;                                                                            \
    }

#define OSG_TABLE_REACH_S_(type, Name, description, ...)                                                               \
    osg::Field* reach##Name()                                                                                          \
    {                                                                                                                  \
        return &_sf##Name;                                                                                             \
    }
#define OSG_TABLE_REACH_M_(type, Name, description)                                                                    \
    osg::Field* reach##Name()                                                                                          \
    {                                                                                                                  \
        return &_mf##Name;                                                                                             \
    }

#define OSG_TABLE_DESCRIBE_(FieldClass, Name, description)                                                             \
    new FieldDescription(FieldClass::getClassType(), description, Name##FieldId, Name##FieldMask, false,               \
                         static_cast<FieldAccessMethod>(&TableClass::reach##Name)),
#define OSG_TABLE_DESCRIBE_S_(type, Name, description, ...) OSG_TABLE_DESCRIBE_(SF##type, Name, description)
#define OSG_TABLE_DESCRIBE_M_(type, Name, description) OSG_TABLE_DESCRIBE_(MF##type, Name, description)

#define OSG_TABLE_SYNC_(member, Name)                                                                                  \
    if ((whichField & Name##FieldMask) != 0) member##Name.syncWith(other->member##Name);
#define OSG_TABLE_SYNC_S_(type, Name, description, ...) OSG_TABLE_SYNC_(_sf, Name)
#define OSG_TABLE_SYNC_M_(type, Name, description) OSG_TABLE_SYNC_(_mf, Name)

#define OSG_HANDLE_FIELDS(HandleType)                                                                                  \
    template<>                                                                                                         \
    struct OSG_TABLE_VISIBLE FieldDataTraits<HandleType> : public FieldTraitsRecurseMapper<HandleType, true>           \
    {                                                                                                                  \
        enum                                                                                                           \
        {                                                                                                              \
            StringConvertable = 0                                                                                      \
        };                                                                                                             \
        enum                                                                                                           \
        {                                                                                                              \
            bHasParent = 1                                                                                             \
        };                                                                                                             \
        static DataType& getType()                                                                                     \
        {                                                                                                              \
            static DataType type(#HandleType, nullptr);                                                                \
            return type;                                                                                               \
        }                                                                                                              \
        static const Char8* getSName() { return "SF" #HandleType; }                                                    \
        static const Char8* getMName() { return "MF" #HandleType; }                                                    \
    };                                                                                                                 \
    typedef SField<HandleType> SF##HandleType;                                                                         \
    typedef MField<HandleType> MF##HandleType;                                                                         \
    template<>                                                                                                         \
    inline OSG_TABLE_VISIBLE const FieldType SF##HandleType::_fieldType(                                               \
        SFieldTraits::getSName(), SFieldTraits::getPName(), SFieldTraits::getType(), SF##HandleType::create,           \
        FieldType::SINGLE_FIELD);                                                                                      \
    template<>                                                                                                         \
    inline OSG_TABLE_VISIBLE const FieldType MF##HandleType::_fieldType(                                               \
        MFieldTraits::getMName(), MFieldTraits::getPName(), MFieldTraits::getType(), MF##HandleType::create,           \
        FieldType::MULTI_FIELD);
