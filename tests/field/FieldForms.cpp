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
using Name = const std::string&;
using Parent = QUndoCommand*;

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
    return {"scalar" + type, "single" + type, isFieldOfAnyOf<Field>,
            [](const Container& container, Name name, Parent p) {
                return new moFieldUndoCommand<T>(text(), container, name, T(1), p);
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
        {"bool", "singleBool", isBoolOrIntegerField, [](const Container& c, Name n, Parent p) {
             return new moBoolFieldUndoCommand(c, n, true, p); }},
        {"boolWithText", "singleBool", isBoolOrIntegerField, [](const Container& c, Name n, Parent p) {
             return new moBoolFieldUndoCommand(text(), c, n, true, p); }},
        {"boolIntoInteger", "singleInt16", isBoolOrIntegerField, [](const Container& c, Name n, Parent p) {
             return new moBoolFieldUndoCommand(c, n, true, p); }},
        {"invoke", "singleBool", isBoolOrIntegerField, [](const Container& c, Name n, Parent p) {
             return new moInvokeBoolFieldUndoCommand(c, n, true, receiver(), method, p); }},
        {"invokeWithText", "singleBool", isBoolOrIntegerField, [](const Container& c, Name n, Parent p) {
             return new moInvokeBoolFieldUndoCommand(text(), c, n, true, receiver(), method, p); }},
        {"string", "singleString", isFieldOfAnyOf<osg::SFString>, [](const Container& c, Name n, Parent p) {
             return new moStringFieldUndoCommand(c, n, "new", p); }},
        {"stringWithText", "singleString", isFieldOfAnyOf<osg::SFString>, [](const Container& c, Name n, Parent p) {
             return new moStringFieldUndoCommand(text(), c, n, "new", p); }},
        {"strings", "multiString", isFieldOfAnyOf<osg::MFString>, [](const Container& c, Name n, Parent p) {
             return new moStringsFieldUndoCommand(c, n, strings(), p); }},
        {"stringsWithText", "multiString", isFieldOfAnyOf<osg::MFString>, [](const Container& c, Name n, Parent p) {
             return new moStringsFieldUndoCommand(text(), c, n, strings(), p); }},
        {"image", "singleImagePtr", isFieldOfAnyOf<osg::SFImagePtr>, [](const Container& c, Name n, Parent p) {
             return new moImageFieldUndoCommand(c, n, makeImage({1, 2, 3}), p); }},
    };
    // clang-format on
    return s_forms;
}

const std::vector<IdForm>& idForms()
{
    // clang-format off
    static const std::vector<IdForm> s_forms = {
        {"bool", "singleBool", isBoolOrIntegerField, [](const Container& c, int id, Parent p) {
             return new moBoolFieldUndoCommand(c, id, true, p); }},
        {"boolWithText", "singleBool", isBoolOrIntegerField, [](const Container& c, int id, Parent p) {
             return new moBoolFieldUndoCommand(text(), c, id, true, p); }},
        {"invoke", "singleBool", isBoolOrIntegerField, [](const Container& c, int id, Parent p) {
             return new moInvokeBoolFieldUndoCommand(c, id, true, receiver(), method, p); }},
        {"invokeWithText", "singleBool", isBoolOrIntegerField, [](const Container& c, int id, Parent p) {
             return new moInvokeBoolFieldUndoCommand(text(), c, id, true, receiver(), method, p); }},
        {"string", "singleString", isFieldOfAnyOf<osg::SFString>, [](const Container& c, int id, Parent p) {
             return new moStringFieldUndoCommand(c, id, "new", p); }},
        {"stringWithText", "singleString", isFieldOfAnyOf<osg::SFString>, [](const Container& c, int id, Parent p) {
             return new moStringFieldUndoCommand(text(), c, id, "new", p); }},
        {"image", "singleImagePtr", isFieldOfAnyOf<osg::SFImagePtr>, [](const Container& c, int id, Parent p) {
             return new moImageFieldUndoCommand(c, id, makeImage({1, 2, 3}), p); }},
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
