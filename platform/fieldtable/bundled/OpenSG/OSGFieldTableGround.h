#pragma once

#include <OpenSG/OSGFieldContainer.h>
#include <OpenSG/OSGFieldContainerFields.h>
#include <OpenSG/OSGFieldContainerType.h>
#include <OpenSG/OSGFieldTypes.h>

#include <vector>

// How the table of OSGFieldTable.h becomes a type of the bundled OpenSG.

#define OSG_TABLE_VISIBLE OSG_BASELIB_DLLMAPPING

#define OSG_TABLE_GROUND_DECL_(Class, FIELDS) static std::vector<FieldDescription> describeFields();

#define OSG_TABLE_GROUND_IMPL_(Class, Parent, FIELDS, groupName, createPrototype)                                      \
    FieldContainerType Class##Base::_type(#Class, #Parent, groupName, createPrototype, &Class::initMethod,             \
                                          &Class##Base::describeFields);                                               \
    std::vector<FieldDescription> Class##Base::describeFields()                                                        \
    {                                                                                                                  \
        std::vector<FieldDescription> fields;                                                                          \
        FIELDS(OSG_TABLE_DESCRIBE_S_, OSG_TABLE_DESCRIBE_M_)                                                           \
        return fields;                                                                                                 \
    }

#define OSG_TABLE_DESCRIBE_(FieldClass, member, Name, description)                                                     \
    fields.emplace_back(                                                                                               \
        FieldClass::getClassType(), description, Name##FieldId, Name##FieldMask, false,                                \
        [](FieldContainer& container) -> osg::Field* { return &static_cast<TableClass&>(container).member##Name; });
#define OSG_TABLE_DESCRIBE_S_(type, Name, description, ...) OSG_TABLE_DESCRIBE_(SF##type, _sf, Name, description)
#define OSG_TABLE_DESCRIBE_M_(type, Name, description) OSG_TABLE_DESCRIBE_(MF##type, _mf, Name, description)
