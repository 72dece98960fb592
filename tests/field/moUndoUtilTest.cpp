#include "FieldForms.h"
#include "FieldTest.h"
#include "ScalarRow.h"

#include <moUndoStack/core/moMultiCommand.h>
#include <moUndoStack/field/moBoolFieldUndoCommand.h>
#include <moUndoStack/field/moFieldUndoCommand.h>
#include <moUndoStack/field/moUndoUtil.h>

#include <OpenSG/OSGFieldContainerType.h>
#include <OpenSG/OSGFieldDescription.h>

#include <QtCore/QPointer>

#include <cctype>
#include <cmath>
#include <cstddef>
#include <limits>
#include <type_traits>
#include <typeinfo>

namespace {

bool s_otherLetters = false;

/// As long as it lives, the C library knows other pairs of letters than ASCII has, as it does under some locales, which
/// need not be installed here.
struct OtherLetters
{
    OtherLetters() { s_otherLetters = true; }
    ~OtherLetters() { s_otherLetters = false; }
    OtherLetters(const OtherLetters&) = delete;
    OtherLetters& operator=(const OtherLetters&) = delete;
};

bool isBetween(int first, int letter, int last)
{
    return first <= letter && letter <= last;
}

} // namespace

// In place of the C library's, for the library under test, too.
extern "C" {
int toupper(int letter) noexcept
{
    return isBetween('a', letter, 'z') ? (s_otherLetters ? 0xDD : letter - 'a' + 'A') : letter;
}
int tolower(int letter) noexcept
{
    return isBetween('A', letter, 'Z') ? (s_otherLetters ? 0xFD : letter - 'A' + 'a') : letter;
}
}

namespace {

class UndoUtilTest : public FieldTest
{
protected:
    std::string found(const std::string& name)
    {
        const osg::FieldDescription* const description = moUndoUtil::findField(container, name);
        return description ? '"' + std::string(description->getCName()) + '"' : "null";
    }

    const QUndoCommand* made() const { return stack.currentCommand(); }

    /// Tries a value with each field that `handles` refuses.
    template<class T, class Handles>
    void expectNoCommandForOtherFields(T value, Handles handles)
    {
        const auto singles = contents(container);
        const auto multis = contents(lists);
        int tried = 0;
        for (const osg::FieldContainerPtr& any : {osg::FieldContainerPtr(container), osg::FieldContainerPtr(lists)}) {
            osg::FieldContainerType& type = any->getType();
            for (osg::UInt32 id = 1; id <= type.getNumFieldDescs(); ++id) {
                if (handles(any->getField(id))) continue;
                moUndoUtil::makeCommand(text, any, type.getFieldDescription(id)->getCName(), value);
                ++tried;
            }
        }
        EXPECT_GT(tried, 90);
        EXPECT_TRUE(stack.isEmpty());
        EXPECT_EQ(contents(container), singles);
        EXPECT_EQ(contents(lists), multis);
        EXPECT_EQ(log.take(), std::vector<std::string>());
    }
};

template<class Value>
using MakeCommandWith =
    decltype(moUndoUtil::makeCommand(std::declval<const moUndoString&>(), std::declval<osg::FieldContainerPtr>(),
                                     std::declval<const std::string&>(), std::declval<Value>()));

template<class Value, class = void>
constexpr bool compilesWith = false;
template<class Value>
constexpr bool compilesWith<Value, std::void_t<MakeCommandWith<Value>>> = true;

template<class... Values>
constexpr bool allCompile = (compilesWith<Values> && ...);
template<class... Values>
constexpr bool noneCompiles = !(compilesWith<Values> || ...);

enum Colour
{
    Red
};
struct Switch
{
    operator bool() const { return true; }
};

static_assert(
    allCompile<bool, unsigned char, signed char, char, unsigned short, short, unsigned int, int, std::int64_t,
               std::uint64_t, float, double, const int&, bool&, Colour, Switch, std::vector<bool>::reference>);
static_assert(noneCompiles<const char*, const char (&)[5], char (&)[5], void*, const volatile void*, int*, const bool*,
                           std::nullptr_t, QObject*, QPointer<QObject>&, void (*)(), void (&)(), int Switch::*,
                           void (Switch::*)(), std::string, QString>);

/// One value of each overload's type, and 1 in it.
using Integers = testing::Types<bool, unsigned char, signed char, unsigned short, short, unsigned int, int,
                                std::int64_t, std::uint64_t>;
using Floats = testing::Types<float, double>;

} // namespace

TEST_F(UndoUtilTest, AFieldIsFoundByItsNameAndWithTheFirstLettersCaseFlipped)
{
    EXPECT_EQ(found("singleInt32"), "\"singleInt32\"");
    EXPECT_EQ(found("SingleInt32"), "\"singleInt32\"");
    EXPECT_EQ(found("UpperCase"), "\"UpperCase\"");
    EXPECT_EQ(found("upperCase"), "\"UpperCase\"");
}

TEST_F(UndoUtilTest, ANameThatIsThereExactlyIsPreferredToOneWithTheFirstLettersCaseFlipped)
{
    for (const char* name : {"twin", "Twin"}) {
        const osg::FieldDescription* const description = moUndoUtil::findField(lists, name);
        ASSERT_NE(description, nullptr);
        EXPECT_STREQ(description->getCName(), name);
    }
}

TEST_F(UndoUtilTest, TheRestOfTheNameIsTakenAsItIs)
{
    EXPECT_EQ(found("singleint32"), "null");
    EXPECT_EQ(found("SINGLEINT32"), "null");
    EXPECT_EQ(found("uppercase"), "null");
    EXPECT_EQ(found("singleInt32 "), "null");
    EXPECT_EQ(found(" singleInt32"), "null");
    EXPECT_EQ(found("singleInt3"), "null");
}

TEST_F(UndoUtilTest, ANameThatStartsWithNoLetterIsTakenAsItIs)
{
    EXPECT_EQ(found("_underscore"), "\"_underscore\"");
    EXPECT_EQ(found("3digit"), "\"3digit\"");
    EXPECT_EQ(found("4digit"), "null");
    EXPECT_EQ(found("\xC3\xA4"), "null");
    EXPECT_EQ(found(std::string(1, '\xFF')), "null");
}

TEST_F(UndoUtilTest, OnlyAsciiLettersAreFlippedWhateverTheLocaleSays)
{
    const OtherLetters turkish;
    ASSERT_NE(std::toupper('s'), 'S');
    EXPECT_EQ(found("SingleInt32"), "\"singleInt32\"");
    EXPECT_EQ(found("upperCase"), "\"UpperCase\"");
}

TEST_F(UndoUtilTest, EveryAsciiLetterIsFlippedAndNoOtherByte)
{
    for (int first = 1; first < 256; ++first) {
        const std::string name = static_cast<char>(first) + std::string("ingleInt32");
        EXPECT_EQ(found(name), first == 's' || first == 'S' ? "\"singleInt32\"" : "null") << first;
    }
    for (int first = 1; first < 256; ++first) {
        const std::string name = static_cast<char>(first) + std::string("pperCase");
        EXPECT_EQ(found(name), first == 'u' || first == 'U' ? "\"UpperCase\"" : "null") << first;
    }
}

TEST_F(UndoUtilTest, AnEmptyNameFindsNothing)
{
    EXPECT_EQ(found(""), "null");
}

TEST_F(UndoUtilTest, AZeroByteIsPartOfTheName)
{
    EXPECT_EQ(found(std::string("singleInt32\0", 12)), "null");
    EXPECT_EQ(found(std::string("\0", 1)), "null");
}

TEST_F(UndoUtilTest, InheritedFieldsAreFound)
{
    EXPECT_EQ(found("attachments"), "\"attachments\"");
}

TEST_F(UndoUtilTest, ANullContainerHasNoFields)
{
    EXPECT_EQ(moUndoUtil::findField(osg::NullFC, "singleInt32"), nullptr);
}

TEST_F(UndoUtilTest, TheStackOfATypeIsTheOneThatTheStackClassGives)
{
    for (const unsigned int type : {0U, 1U, 2U, 0xFFFFFFFFU})
        EXPECT_EQ(&moUndoUtil::the(type), &moUndoStack::get(type));
    EXPECT_NE(&moUndoUtil::the(0), &moUndoUtil::the(1));
}

TEST_F(UndoUtilTest, TheHelpersHaveNoStateToAssign)
{
    moUndoUtil one;
    moUndoUtil other;
    one = other;
    one = std::move(other);
    EXPECT_TRUE(std::is_empty_v<moUndoUtil>);
}

// What each overload makes of each kind of field.

template<class T>
class MakeIntegerCommandTest : public UndoUtilTest
{
protected:
    /// Tries the value 1 of type T on the field of type Field.
    template<class Field, class Command>
    void expectCommand()
    {
        using Row = ScalarRow<Field>;
        moUndoUtil::makeCommand(this->text, this->container, Row::name, T(1));
        ASSERT_NE(this->made(), nullptr) << Row::name;
        EXPECT_TRUE(typeid(*this->made()) == typeid(Command)) << typeid(*this->made()).name();
        EXPECT_EQ(Row::get(this->container), Field(1));
        EXPECT_EQ(this->made()->text(), "Edit");
        this->stack.clear();
    }
};

TYPED_TEST_SUITE(MakeIntegerCommandTest, Integers);

TYPED_TEST(MakeIntegerCommandTest, TheFieldDecidesWhichCommandItIs)
{
    this->template expectCommand<std::int64_t, moFieldUndoCommand<std::int64_t>>();
    this->template expectCommand<std::uint64_t, moFieldUndoCommand<std::uint64_t>>();
    this->template expectCommand<int, moFieldUndoCommand<int>>();
    this->template expectCommand<unsigned int, moFieldUndoCommand<unsigned int>>();
    this->template expectCommand<short, moFieldUndoCommand<short>>();
    this->template expectCommand<unsigned short, moFieldUndoCommand<unsigned short>>();
    this->template expectCommand<signed char, moFieldUndoCommand<signed char>>();
    this->template expectCommand<unsigned char, moFieldUndoCommand<unsigned char>>();

    moUndoUtil::makeCommand(this->text, this->container, "singleBool", TypeParam(1));
    ASSERT_NE(this->made(), nullptr);
    EXPECT_TRUE(typeid(*this->made()) == typeid(moBoolFieldUndoCommand));
    EXPECT_TRUE(this->container->getSingleBool());
}

TYPED_TEST(MakeIntegerCommandTest, ValuesOfTheWholeRangeAreCutToTheWidthOfTheFieldAndNoFurther)
{
    using Limits = std::numeric_limits<TypeParam>;
    // Between the ends, values of which every byte is different.
    for (const TypeParam value : {Limits::min(), Limits::max(), static_cast<TypeParam>(0x0123456789ABCDEFULL),
                                  static_cast<TypeParam>(0xFEDCBA9876543210ULL)}) {
        for (const char* field : {"singleInt64", "singleUInt64", "singleInt32", "singleUInt32", "singleInt16",
                                  "singleUInt16", "singleInt8", "singleUInt8", "singleBool"})
            moUndoUtil::makeCommand(this->text, this->container, field, value);
        EXPECT_EQ(this->container->getSingleInt64(), static_cast<std::int64_t>(value));
        EXPECT_EQ(this->container->getSingleUInt64(), static_cast<std::uint64_t>(value));
        EXPECT_EQ(this->container->getSingleInt32(), static_cast<std::int32_t>(value));
        EXPECT_EQ(this->container->getSingleUInt32(), static_cast<std::uint32_t>(value));
        EXPECT_EQ(this->container->getSingleInt16(), static_cast<std::int16_t>(value));
        EXPECT_EQ(this->container->getSingleUInt16(), static_cast<std::uint16_t>(value));
        EXPECT_EQ(this->container->getSingleInt8(), static_cast<std::int8_t>(value));
        EXPECT_EQ(this->container->getSingleUInt8(), static_cast<std::uint8_t>(value));
        EXPECT_EQ(this->container->getSingleBool(), value != TypeParam(0));
        this->clock.advance(1);
    }
}

TYPED_TEST(MakeIntegerCommandTest, AnyOtherFieldGetsNoCommandAsIntended)
{
    this->expectNoCommandForOtherFields(TypeParam(1), isBoolOrIntegerField);
}

template<class T>
class MakeFloatCommandTest : public UndoUtilTest
{
};

TYPED_TEST_SUITE(MakeFloatCommandTest, Floats);

TYPED_TEST(MakeFloatCommandTest, TheFieldDecidesWhichCommandItIs)
{
    moUndoUtil::makeCommand(this->text, this->container, "singleReal32", TypeParam(0.5));
    ASSERT_NE(this->made(), nullptr);
    EXPECT_TRUE(typeid(*this->made()) == typeid(moFieldUndoCommand<float>));
    EXPECT_EQ(this->container->getSingleReal32(), 0.5F);

    moUndoUtil::makeCommand(this->text, this->container, "SingleReal64", TypeParam(0.25));
    EXPECT_TRUE(typeid(*this->made()) == typeid(moFieldUndoCommand<double>));
    EXPECT_EQ(this->container->getSingleReal64(), 0.25);
}

TYPED_TEST(MakeFloatCommandTest, NotANumberAndInfinitiesGoIn)
{
    using Limits = std::numeric_limits<TypeParam>;
    for (const TypeParam value : {Limits::quiet_NaN(), Limits::infinity(), -Limits::infinity(), Limits::lowest(),
                                  Limits::denorm_min(), -TypeParam(0)}) {
        moUndoUtil::makeCommand(this->text, this->container, "singleReal32", value);
        moUndoUtil::makeCommand(this->text, this->container, "singleReal64", value);
        const float narrow = static_cast<float>(value);
        const double wide = value;
        EXPECT_TRUE(this->container->getSingleReal32() == narrow || std::isnan(narrow));
        EXPECT_EQ(std::isnan(this->container->getSingleReal32()), std::isnan(narrow));
        EXPECT_TRUE(this->container->getSingleReal64() == wide || std::isnan(wide));
        EXPECT_EQ(std::isnan(this->container->getSingleReal64()), std::isnan(wide));
    }
}

TYPED_TEST(MakeFloatCommandTest, AnyOtherFieldGetsNoCommandAsIntended)
{
    this->expectNoCommandForOtherFields(TypeParam(1), isFieldOfAnyOf<osg::SFReal32, osg::SFReal64>);
}

TEST_F(UndoUtilTest, WideValuesGoInWhole)
{
    constexpr std::int64_t wide = 0x0123456789ABCDEF;
    for (const std::int64_t value : {wide, -wide, std::int64_t(1) << 32, -(std::int64_t(1) << 32) - 1}) {
        SCOPED_TRACE(value);
        moUndoUtil::makeIntTypeCommand(text, container, "singleInt64", value);
        moUndoUtil::makeIntTypeCommand(text, container, "singleUInt64", value);
        EXPECT_EQ(container->getSingleInt64(), value);
        EXPECT_EQ(container->getSingleUInt64(), static_cast<std::uint64_t>(value));
    }
    for (const double value : {1.0 / 3.0, 1e300, -1e-300, 16777217.0}) {
        SCOPED_TRACE(value);
        moUndoUtil::makeFloatTypeCommand(text, container, "singleReal64", value);
        EXPECT_EQ(container->getSingleReal64(), value);
        moUndoUtil::makeCommand(text, container, "singleReal64", -value);
        EXPECT_EQ(container->getSingleReal64(), -value);
    }
    moUndoUtil::makeCommand(text, container, "singleReal64", 0.1F);
    EXPECT_EQ(container->getSingleReal64(), double(0.1F));
}

TEST_F(UndoUtilTest, MinusOneGoesIntoUnsignedFieldsAsAllOnes)
{
    for (const char* field : {"singleUInt8", "singleUInt16", "singleUInt32", "singleUInt64"})
        moUndoUtil::makeCommand(text, container, field, -1);
    EXPECT_EQ(container->getSingleUInt8(), 0xFFU);
    EXPECT_EQ(container->getSingleUInt16(), 0xFFFFU);
    EXPECT_EQ(container->getSingleUInt32(), 0xFFFFFFFFU);
    EXPECT_EQ(container->getSingleUInt64(), 0xFFFFFFFFFFFFFFFFU);
}

TEST_F(UndoUtilTest, AnyIntegerButZeroIsTrue)
{
    moUndoUtil::makeCommand(text, container, "singleBool", std::int64_t(1) << 40);
    EXPECT_TRUE(container->getSingleBool());
    moUndoUtil::makeCommand(text, container, "singleBool", 0);
    EXPECT_FALSE(container->getSingleBool());
    moUndoUtil::makeCommand(text, container, "singleBool", 7);
    EXPECT_TRUE(container->getSingleBool());
}

TEST_F(UndoUtilTest, WithoutAParentTheCommandIsAStepOfTheDefaultStack)
{
    moUndoUtil::makeIntTypeCommand(text, container, "singleInt32", 5);
    moUndoUtil::makeFloatTypeCommand(text, container, "singleReal64", 5);
    EXPECT_EQ(describe(stack), "2 steps, at \"Edit\", undo, no redo");
    EXPECT_EQ(describe(second), "0 steps, at start, no undo, no redo");
    stack.undo();
    stack.undo();
    EXPECT_EQ(container->getSingleInt32(), 0);
    EXPECT_EQ(container->getSingleReal64(), 0);
}

TEST_F(UndoUtilTest, WithRecordingOffTheCommandIsRecordedAllTheSame)
{
    moUndoStack::beginBlockUndo();
    moUndoUtil::makeCommand(text, container, "singleInt32", 5);
    moUndoUtil::makeCommand(text, container, "singleReal32", 0.5F);
    moUndoStack::endBlockUndo();
    EXPECT_EQ(describe(stack), "2 steps, at \"Edit\", undo, no redo");
    EXPECT_EQ(container->getSingleInt32(), 5);
}

TEST_F(UndoUtilTest, AParentOwnsItsCommandsAndRunsThem)
{
    auto* const parent = new QUndoCommand("Both");
    moUndoUtil::makeCommand(text, container, "singleInt32", 5, parent);
    moUndoUtil::makeCommand(text, container, "singleReal32", 0.5F, parent);
    moUndoUtil::makeCommand(text, container, "singleString", 5, parent);
    EXPECT_EQ(parent->childCount(), 2);
    EXPECT_TRUE(stack.isEmpty());
    EXPECT_EQ(container->getSingleInt32(), 0);

    stack.add(parent);
    EXPECT_EQ(container->getSingleInt32(), 5);
    EXPECT_EQ(container->getSingleReal32(), 0.5F);
    stack.undo();
    EXPECT_EQ(container->getSingleInt32(), 0);
    EXPECT_EQ(container->getSingleReal32(), 0.0F);
}

TEST_F(UndoUtilTest, WhileACompositeIsComposedTheCommandBecomesItsChild)
{
    stack.beginMultiCommand("Both", "both", false);
    moUndoUtil::makeCommand(text, container, "singleInt32", 5);
    moUndoUtil::makeCommand(text, container, "singleInt16", 6);
    EXPECT_TRUE(stack.isEmpty());
    stack.endMultiCommand();
    EXPECT_EQ(stack.size(), 1);
    EXPECT_EQ(container->getSingleInt32(), 5);
    stack.undo();
    EXPECT_EQ(container->getSingleInt32(), 0);
    EXPECT_EQ(container->getSingleInt16(), 0);
}

TEST_F(UndoUtilTest, WhileACompositeIsComposedWithRecordingOffNothingIsMadeOrLeftBehind)
{
    stack.beginMultiCommand("Both", "both", false);
    moUndoStack::beginBlockUndo();
    moUndoUtil::makeCommand(text, container, "singleInt32", 5);
    moUndoStack::endBlockUndo();
    stack.endMultiCommand();
    EXPECT_TRUE(stack.isEmpty());
    EXPECT_EQ(container->getSingleInt32(), 0);
}

TEST_F(UndoUtilTest, WithRecordingOffTheCommandIsAStepAllTheSame)
{
    moUndoStack::beginBlockUndo();
    moUndoUtil::makeCommand(text, container, "singleInt32", 5);
    moUndoStack::endBlockUndo();
    EXPECT_EQ(describe(stack), "1 step, at \"Edit\", undo, no redo");
    EXPECT_EQ(container->getSingleInt32(), 5);
}

TEST_F(UndoUtilTest, WhatCannotBeDoneIsLeftUndoneInSilence)
{
    const auto original = contents(container);
    for (const std::string& name : {std::string(), std::string("noSuchField"), std::string("singleInt32\0", 12)}) {
        moUndoUtil::makeCommand(text, container, name, 1);
        moUndoUtil::makeCommand(text, container, name, 1.0);
    }
    moUndoUtil::makeCommand(text, osg::NullFC, "singleInt32", 1);
    moUndoUtil::makeCommand(text, osg::NullFC, "singleReal32", 1.0);
    EXPECT_TRUE(stack.isEmpty());
    EXPECT_EQ(contents(container), original);
    EXPECT_EQ(takeEdits(), std::vector<std::string>());
    EXPECT_TRUE(log.take().empty());
}
