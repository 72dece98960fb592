#pragma once

#include <OpenSG/OSGFieldContainer.h>
#include <OpenSG/OSGFieldContainerFields.h>
#include <OpenSG/OSGFieldContainerType.h>
#include <OpenSG/OSGFieldTypes.h>

#include <vector>

/** Declares a container class as a table of fields. This is the only place that knows how a container type is
 * registered.
 *
 *     class LightLinkSet;
 *     typedef FCPtr<NodeCorePtr, LightLinkSet> LightLinkSetPtr;
 *
 *     //     type      Name         description     default
 *     #define OSG_LIGHTLINKSET_FIELDS(SINGLE, MULTI) \
 *         SINGLE(Bool,     Enabled,     "enabled",      true) \
 *         MULTI (NodePtr,  Lights,      "lights") \
 *         MULTI (NodePtr,  SceneNodes,  "sceneNodes")
 *
 *     OSG_CONTAINER_BASE(LightLinkSet, NodeCore, OSG_LIGHTLINKSET_FIELDS)
 *     class LightLinkSet : public LightLinkSetBase
 *     {
 *         OSG_CONTAINER(LightLinkSet)
 *     public:
 *         …
 *     };
 *
 *     // in one .cpp
 *     OSG_CONTAINER_IMPL(LightLinkSet, NodeCore, OSG_LIGHTLINKSET_FIELDS)
 *
 * All of it stands in namespace osg. `type` is what follows SF and MF in the name of the field type. A single field
 * starts with its default, which may contain commas; a multi field starts empty. The table may have no rows. For each
 * row there are
 *
 *   - FooFieldId (ids go on where the parent class ended; NextFieldId is the first free one) and FooFieldMask,
 *   - getSFFoo() or getMFFoo(), a pointer to the field,
 *   - getFoo(), a reference to the value or the list, and getFoo(index) of a list,
 *   - setFoo(value) of a single field: a plain assignment, which neither notifies nor counts.
 *
 * For the class there are Ptr, getClassType(), getClassTypeId(), getClassGroupId(), create(), createEmpty(), and the
 * overrides of getType(), getContainerSize() and shallowCopy(). The class may add changed(), onDestroy(), static
 * initMethod(), a destructor.
 *
 * A second expansion of the same tables, for an installed OpenSG, differs in here only: OSG_CONTAINER_BASE would
 * declare the masks as `static const BitVector`, the field list as `static FieldDescription* _desc[]` with member
 * function accessors, and executeSync; OSG_CONTAINER_IMPL would define these and pass _desc and its size to the
 * constructor of the FieldContainerType, and OSG_HANDLE_FIELDS would give the handle's FieldDataTraits a DataType and
 * its string and binary forms.
 */
#define OSG_CONTAINER_BASE(Class, Parent, FIELDS)                                                                      \
    class OSG_BASELIB_DLLMAPPING Class##Base : public Parent                                                           \
    {                                                                                                                  \
        typedef Parent Inherited;                                                                                      \
        typedef Class##Base TableClass;                                                                                \
                                                                                                                       \
    public:                                                                                                            \
        typedef Class##Ptr Ptr;                                                                                        \
                                                                                                                       \
        enum : UInt32                                                                                                  \
        {                                                                                                              \
            LastInheritedFieldId = Parent::NextFieldId - 1,                                                            \
            FIELDS(OSG_TABLE_ID_S_, OSG_TABLE_ID_M_) NextFieldId                                                       \
        };                                                                                                             \
        FIELDS(OSG_TABLE_MASK_S_, OSG_TABLE_MASK_M_)                                                                   \
                                                                                                                       \
        static FieldContainerType& getClassType();                                                                     \
        static UInt32 getClassTypeId();                                                                                \
        static UInt16 getClassGroupId();                                                                               \
        static Class##Ptr create();                                                                                    \
        static Class##Ptr createEmpty();                                                                               \
                                                                                                                       \
        FieldContainerType& getType() override;                                                                        \
        const FieldContainerType& getType() const override;                                                            \
        UInt32 getContainerSize() const override;                                                                      \
        FieldContainerPtr shallowCopy() const override;                                                                \
                                                                                                                       \
        FIELDS(OSG_TABLE_ACCESS_S_, OSG_TABLE_ACCESS_M_)                                                               \
                                                                                                                       \
    protected:                                                                                                         \
        Class##Base() = default;                                                                                       \
        Class##Base(const Class##Base&) = default;                                                                     \
        ~Class##Base() override = default;                                                                             \
                                                                                                                       \
        FIELDS(OSG_TABLE_MEMBER_S_, OSG_TABLE_MEMBER_M_)                                                               \
                                                                                                                       \
    private:                                                                                                           \
        static std::vector<FieldDescription> describeFields();                                                         \
                                                                                                                       \
        static FieldContainerType _type;                                                                               \
    };

/// The first line of the hand-written class: its constructors, and who may call them.
#define OSG_CONTAINER(Class)                                                                                           \
    OSG_CONTAINER_OWNING(Class)                                                                                        \
protected:                                                                                                             \
    Class() = default;                                                                                                 \
    Class(const Class&) = default;                                                                                     \
                                                                                                                       \
private:

/// The same for a class that declares its default and copy constructor itself, since it owns something.
#define OSG_CONTAINER_OWNING(Class)                                                                                    \
    typedef Class##Base Inherited;                                                                                     \
    friend class osg::FieldContainer;                                                                                  \
    friend class Class##Base;

/// Registers the type; its group has its own name.
#define OSG_CONTAINER_IMPL(Class, Parent, FIELDS) OSG_CONTAINER_GROUP_IMPL(Class, Parent, FIELDS, #Class)

/// The same with a group name: attachments of one group replace each other.
#define OSG_CONTAINER_GROUP_IMPL(Class, Parent, FIELDS, groupName)                                                     \
    OSG_TABLE_IMPL_(Class, Parent, FIELDS, groupName,                                                                  \
                    []() -> FieldContainerPtr { return Class##Base::createEmpty(); })                                  \
    Class##Ptr Class##Base::create()                                                                                   \
    {                                                                                                                  \
        return Class##Ptr::dcast(_type.createFieldContainer());                                                        \
    }                                                                                                                  \
    Class##Ptr Class##Base::createEmpty()                                                                              \
    {                                                                                                                  \
        return newPtr<Class>();                                                                                        \
    }                                                                                                                  \
    FieldContainerPtr Class##Base::shallowCopy() const                                                                 \
    {                                                                                                                  \
        return newPtr(static_cast<const Class*>(this));                                                                \
    }

/// The same for an abstract class: it has no prototype, and what would make a container gives null.
#define OSG_ABSTRACT_CONTAINER_IMPL(Class, Parent, FIELDS)                                                             \
    OSG_TABLE_IMPL_(Class, Parent, FIELDS, #Class, nullptr)                                                            \
    Class##Ptr Class##Base::create()                                                                                   \
    {                                                                                                                  \
        return NullFC;                                                                                                 \
    }                                                                                                                  \
    Class##Ptr Class##Base::createEmpty()                                                                              \
    {                                                                                                                  \
        return NullFC;                                                                                                 \
    }                                                                                                                  \
    FieldContainerPtr Class##Base::shallowCopy() const                                                                 \
    {                                                                                                                  \
        return NullFC;                                                                                                 \
    }

// The rest is what the four above are made of.

#define OSG_TABLE_ID_S_(type, Name, description, ...) Name##FieldId,
#define OSG_TABLE_ID_M_(type, Name, description) Name##FieldId,

#define OSG_TABLE_MASK_(Name) static constexpr BitVector Name##FieldMask = BitVector(1) << Name##FieldId;
#define OSG_TABLE_MASK_S_(type, Name, description, ...) OSG_TABLE_MASK_(Name)
#define OSG_TABLE_MASK_M_(type, Name, description) OSG_TABLE_MASK_(Name)

#define OSG_TABLE_ACCESS_S_(type, Name, description, ...)                                                              \
    SF##type* getSF##Name()                                                                                            \
    {                                                                                                                  \
        return &_sf##Name;                                                                                             \
    }                                                                                                                  \
    SF##type::StoredType& get##Name()                                                                                  \
    {                                                                                                                  \
        return _sf##Name.getValue();                                                                                   \
    }                                                                                                                  \
    const SF##type::StoredType& get##Name() const                                                                      \
    {                                                                                                                  \
        return _sf##Name.getValue();                                                                                   \
    }                                                                                                                  \
    void set##Name(const SF##type::StoredType& value)                                                                  \
    {                                                                                                                  \
        _sf##Name.setValue(value);                                                                                     \
    }
#define OSG_TABLE_ACCESS_M_(type, Name, description)                                                                   \
    MF##type* getMF##Name()                                                                                            \
    {                                                                                                                  \
        return &_mf##Name;                                                                                             \
    }                                                                                                                  \
    MF##type& get##Name()                                                                                              \
    {                                                                                                                  \
        return _mf##Name;                                                                                              \
    }                                                                                                                  \
    const MF##type& get##Name() const                                                                                  \
    {                                                                                                                  \
        return _mf##Name;                                                                                              \
    }                                                                                                                  \
    MF##type::reference get##Name(UInt32 index)                                                                        \
    {                                                                                                                  \
        return _mf##Name[index];                                                                                       \
    }                                                                                                                  \
    MF##type::const_reference get##Name(UInt32 index) const                                                            \
    {                                                                                                                  \
        return _mf##Name[index];                                                                                       \
    }

#define OSG_TABLE_MEMBER_S_(type, Name, description, ...) SF##type _sf##Name{SF##type::StoredType(__VA_ARGS__)};
#define OSG_TABLE_MEMBER_M_(type, Name, description) MF##type _mf##Name;

#define OSG_TABLE_DESCRIBE_(FieldClass, member, Name, description)                                                     \
    fields.emplace_back(                                                                                               \
        FieldClass::getClassType(), description, Name##FieldId, Name##FieldMask, false,                                \
        [](FieldContainer& container) -> osg::Field* { return &static_cast<TableClass&>(container).member##Name; });
#define OSG_TABLE_DESCRIBE_S_(type, Name, description, ...) OSG_TABLE_DESCRIBE_(SF##type, _sf, Name, description)
#define OSG_TABLE_DESCRIBE_M_(type, Name, description) OSG_TABLE_DESCRIBE_(MF##type, _mf, Name, description)

#define OSG_TABLE_IMPL_(Class, Parent, FIELDS, groupName, createPrototype)                                             \
    FieldContainerType Class##Base::_type(#Class, #Parent, groupName, createPrototype, &Class::initMethod,             \
                                          &Class##Base::describeFields);                                               \
    std::vector<FieldDescription> Class##Base::describeFields()                                                        \
    {                                                                                                                  \
        std::vector<FieldDescription> fields;                                                                          \
        FIELDS(OSG_TABLE_DESCRIBE_S_, OSG_TABLE_DESCRIBE_M_)                                                           \
        return fields;                                                                                                 \
    }                                                                                                                  \
    FieldContainerType& Class##Base::getClassType()                                                                    \
    {                                                                                                                  \
        return _type;                                                                                                  \
    }                                                                                                                  \
    UInt32 Class##Base::getClassTypeId()                                                                               \
    {                                                                                                                  \
        return _type.getId();                                                                                          \
    }                                                                                                                  \
    UInt16 Class##Base::getClassGroupId()                                                                              \
    {                                                                                                                  \
        return _type.getGroupId();                                                                                     \
    }                                                                                                                  \
    FieldContainerType& Class##Base::getType()                                                                         \
    {                                                                                                                  \
        return _type;                                                                                                  \
    }                                                                                                                  \
    const FieldContainerType& Class##Base::getType() const                                                             \
    {                                                                                                                  \
        return _type;                                                                                                  \
    }                                                                                                                  \
    UInt32 Class##Base::getContainerSize() const                                                                       \
    {                                                                                                                  \
        return static_cast<UInt32>(sizeof(Class));                                                                     \
    }
