#pragma once

#include <moUndoStack/field/moFieldBaseUndoCommand.h>

#include <OpenSG/OSGField.h>
#include <OpenSG/OSGFieldContainer.h>
#include <OpenSG/OSGFieldTable.h>

#include <functional>
#include <iosfwd>
#include <string>
#include <vector>

template<class... Fields>
bool isFieldOfAnyOf(const osg::Field* field)
{
    return ((dynamic_cast<const Fields*>(field) != nullptr) || ...);
}

inline bool isBoolOrIntegerField(const osg::Field* field)
{
    return isFieldOfAnyOf<osg::SFBool, osg::SFInt64, osg::SFUInt64, osg::SFInt32, osg::SFUInt32, osg::SFInt16,
                          osg::SFUInt16, osg::SFInt8, osg::SFUInt8>(field);
}

/// One constructor of one class of the family; `Key` says which field it is: its name or its id.
template<class Key>
struct FieldForm
{
    std::string what;      // in letters and digits
    std::string fieldName; // a field of osg::AllFields that the class can write
    std::function<bool(const osg::Field*)> handles;
    /// A command whose first redo changes the field of a new container.
    std::function<moFieldBaseUndoCommand<>*(const osg::FieldContainerPtr& container, Key key, QUndoCommand* parent)>
        make;
};

using NameForm = FieldForm<const std::string&>;
using IdForm = FieldForm<int>;

/// Every constructor of every class of the family.
const std::vector<NameForm>& nameForms();
const std::vector<IdForm>& idForms();

void PrintTo(const NameForm& form, std::ostream* out);
void PrintTo(const IdForm& form, std::ostream* out);
