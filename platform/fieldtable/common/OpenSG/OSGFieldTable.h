#pragma once

#include <OpenSG/OSGFieldTableGround.h>

/** Declares a container class as a table of fields, on whichever OpenSG the build stands: the bundled one or an
 * installed one. What differs between the two stands in OSGFieldTableGround.h, of which each has its own.
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
 * For the class there are Ptr, getClassType(), getClassTypeId(), create(), createEmpty(), and the overrides of
 * getType(), getContainerSize() and shallowCopy(). The class may add changed(), onDestroy(), a destructor, and
 * onCreate(const FieldContainer* source = nullptr), which is called once it is made. An abstract class starts with
 * OSG_ABSTRACT_CONTAINER_BASE and is made by OSG_ABSTRACT_CONTAINER_IMPL: it has no create functions.
 *
 * A class that counts what its fields refer to takes and gives its references back in the constructors and the
 * destructor, never in onDestroy(): an installed OpenSG makes and destroys one object per aspect, but calls onDestroy()
 * once. It changes such a field by assigning first and releasing last: a listener may look at it in between.
 *
 * OSG_HANDLE_FIELDS(XPtr) declares the fields SFXPtr and MFXPtr of a handle type XPtr.
 */
#define OSG_CONTAINER_BASE(Class, Parent, FIELDS) OSG_TABLE_CLASS_(Class, Parent, FIELDS, OSG_TABLE_CREATE_DECL_(Class))

/// The same for an abstract class: nothing makes a container of it.
#define OSG_ABSTRACT_CONTAINER_BASE(Class, Parent, FIELDS) OSG_TABLE_CLASS_(Class, Parent, FIELDS, )

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
        Class##Ptr result;                                                                                             \
        newPtr(result);                                                                                                \
        return result;                                                                                                 \
    }                                                                                                                  \
    FieldContainerPtr Class##Base::shallowCopy() const                                                                 \
    {                                                                                                                  \
        Class##Ptr result;                                                                                             \
        newPtr(result, static_cast<const Class*>(this));                                                               \
        return result;                                                                                                 \
    }

/// The same for an abstract class.
#define OSG_ABSTRACT_CONTAINER_IMPL(Class, Parent, FIELDS) OSG_TABLE_IMPL_(Class, Parent, FIELDS, #Class, nullptr)

// The rest is what these are made of. From OSGFieldTableGround.h come OSG_TABLE_VISIBLE, OSG_HANDLE_FIELDS,
// OSG_TABLE_GROUND_DECL_ (what the class needs beyond the above) and OSG_TABLE_GROUND_IMPL_ (its definition, and the
// type).

/// The class that a table makes. CREATE declares the functions that make containers.
#define OSG_TABLE_CLASS_(Class, Parent, FIELDS, CREATE)                                                                \
    class OSG_TABLE_VISIBLE Class##Base : public Parent                                                                \
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
                                                                                                                       \
        FieldContainerType& getType() override;                                                                        \
        const FieldContainerType& getType() const override;                                                            \
        UInt32 getContainerSize() const override;                                                                      \
        CREATE                                                                                                         \
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
        OSG_TABLE_GROUND_DECL_(Class, FIELDS)                                                                          \
                                                                                                                       \
        static FieldContainerType _type;                                                                               \
    };

#define OSG_TABLE_CREATE_DECL_(Class)                                                                                  \
    static Class##Ptr create();                                                                                        \
    static Class##Ptr createEmpty();                                                                                   \
    FieldContainerPtr shallowCopy() const override;

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

#define OSG_TABLE_IMPL_(Class, Parent, FIELDS, groupName, createPrototype)                                             \
    OSG_TABLE_GROUND_IMPL_(Class, Parent, FIELDS, groupName, createPrototype)                                          \
    FieldContainerType& Class##Base::getClassType()                                                                    \
    {                                                                                                                  \
        return _type;                                                                                                  \
    }                                                                                                                  \
    UInt32 Class##Base::getClassTypeId()                                                                               \
    {                                                                                                                  \
        return _type.getId();                                                                                          \
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
