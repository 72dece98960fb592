#include "FieldForms.h"

#include <support/Images.h>

#include <moUndoStack/field/moBoolFieldUndoCommand.h>
#include <moUndoStack/field/moFieldUndoCommand.h>
#include <moUndoStack/field/moImageFieldUndoCommand.h>
#include <moUndoStack/field/moInvokeBoolFieldUndoCommand.h>
#include <moUndoStack/field/moStringFieldUndoCommand.h>
#include <moUndoStack/field/moStringsFieldUndoCommand.h>

#include <QtCore/QTimer>

#include <ostream>

namespace {

using Container = osg::FieldContainerPtr;
using Name = std::string;

const moUndoString& text()
{
    static const moUndoString s_text("Edit", QStringLiteral("Fields"));
    return s_text;
}

osg::MFString strings()
{
    osg::MFString list;
    list.push_back("new");
    list.push_back("");
    return list;
}

/// Any object that has a method without parameters.
QObject* receiver()
{
    static QTimer s_timer;
    return &s_timer;
}

constexpr const char* method = "stop()";

template<class T, class Field>
NameForm scalarForm(const std::string& type)
{
    return {"scalar" + type, "single" + type, isFieldOfAnyOf<Field>, [](const Container& container, const Name& name) {
                return new moFieldUndoCommand<T>(text(), container, name, T(1));
            }};
}

} // namespace

const std::vector<NameForm>& nameForms()
{
    // clang-format off
    static const std::vector<NameForm> s_forms = {
        scalarForm<signed char,    osg::SFInt8>("Int8"),
        scalarForm<unsigned char,  osg::SFUInt8>("UInt8"),
        scalarForm<short,          osg::SFInt16>("Int16"),
        scalarForm<unsigned short, osg::SFUInt16>("UInt16"),
        scalarForm<int,            osg::SFInt32>("Int32"),
        scalarForm<unsigned int,   osg::SFUInt32>("UInt32"),
        scalarForm<std::int64_t,   osg::SFInt64>("Int64"),
        scalarForm<std::uint64_t,  osg::SFUInt64>("UInt64"),
        scalarForm<float,          osg::SFReal32>("Real32"),
        scalarForm<double,         osg::SFReal64>("Real64"),
        {"bool", "singleBool", isBoolOrIntegerField, [](const Container& c, const Name& name) {
             return new moBoolFieldUndoCommand(c, name, true); }},
        {"boolWithText", "singleBool", isBoolOrIntegerField, [](const Container& c, const Name& name) {
             return new moBoolFieldUndoCommand(text(), c, name, true); }},
        {"boolIntoInteger", "singleInt16", isBoolOrIntegerField, [](const Container& c, const Name& name) {
             return new moBoolFieldUndoCommand(c, name, true); }},
        {"invoke", "singleBool", isBoolOrIntegerField, [](const Container& c, const Name& name) {
             return new moInvokeBoolFieldUndoCommand(c, name, true, receiver(), method); }},
        {"invokeWithText", "singleBool", isBoolOrIntegerField, [](const Container& c, const Name& name) {
             return new moInvokeBoolFieldUndoCommand(text(), c, name, true, receiver(), method); }},
        {"string", "singleString", isFieldOfAnyOf<osg::SFString>, [](const Container& c, const Name& name) {
             return new moStringFieldUndoCommand(c, name, "new"); }},
        {"stringWithText", "singleString", isFieldOfAnyOf<osg::SFString>, [](const Container& c, const Name& name) {
             return new moStringFieldUndoCommand(text(), c, name, "new"); }},
        {"strings", "multiString", isFieldOfAnyOf<osg::MFString>, [](const Container& c, const Name& name) {
             return new moStringsFieldUndoCommand(c, name, strings()); }},
        {"stringsWithText", "multiString", isFieldOfAnyOf<osg::MFString>, [](const Container& c, const Name& name) {
             return new moStringsFieldUndoCommand(text(), c, name, strings()); }},
        {"image", "singleImagePtr", isFieldOfAnyOf<osg::SFImagePtr>, [](const Container& c, const Name& name) {
             return new moImageFieldUndoCommand(c, name, makeImage({1, 2, 3})); }},
    };
    // clang-format on
    return s_forms;
}

const std::vector<IdForm>& idForms()
{
    // clang-format off
    static const std::vector<IdForm> s_forms = {
        {"bool", "singleBool", isBoolOrIntegerField, [](const Container& c, int id) {
             return new moBoolFieldUndoCommand(c, id, true); }},
        {"boolWithText", "singleBool", isBoolOrIntegerField, [](const Container& c, int id) {
             return new moBoolFieldUndoCommand(text(), c, id, true); }},
        {"invoke", "singleBool", isBoolOrIntegerField, [](const Container& c, int id) {
             return new moInvokeBoolFieldUndoCommand(c, id, true, receiver(), method); }},
        {"invokeWithText", "singleBool", isBoolOrIntegerField, [](const Container& c, int id) {
             return new moInvokeBoolFieldUndoCommand(text(), c, id, true, receiver(), method); }},
        {"string", "singleString", isFieldOfAnyOf<osg::SFString>, [](const Container& c, int id) {
             return new moStringFieldUndoCommand(c, id, "new"); }},
        {"stringWithText", "singleString", isFieldOfAnyOf<osg::SFString>, [](const Container& c, int id) {
             return new moStringFieldUndoCommand(text(), c, id, "new"); }},
        {"image", "singleImagePtr", isFieldOfAnyOf<osg::SFImagePtr>, [](const Container& c, int id) {
             return new moImageFieldUndoCommand(c, id, makeImage({1, 2, 3})); }},
    };
    // clang-format on
    return s_forms;
}

void PrintTo(const NameForm& form, std::ostream* out)
{
    *out << form.what;
}

void PrintTo(const IdForm& form, std::ostream* out)
{
    *out << form.what;
}
