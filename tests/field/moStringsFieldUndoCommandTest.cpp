#include "FieldTest.h"

#include <moUndoStack/field/moStringsFieldUndoCommand.h>

#include <memory>

namespace {

using Strings = std::vector<std::string>;

osg::MFString fieldOf(const Strings& strings)
{
    osg::MFString field;
    field.setValues(strings);
    return field;
}

class StringsFieldTest : public FieldTest
{
protected:
    moStringsFieldUndoCommand* command(const Strings& value)
    {
        return new moStringsFieldUndoCommand(text, lists, "multiString", fieldOf(value));
    }
    Strings value() const
    {
        const auto& field = *lists->getMFMultiString();
        return Strings(field.begin(), field.end());
    }
    void setValue(const Strings& value) { lists->getMFMultiString()->setValues(value); }
};

const std::vector<Strings>& remarkableLists()
{
    static const std::vector<Strings> s_lists = {{},
                                                 {""},
                                                 {"", ""},
                                                 {"b", "a", "b"},
                                                 {std::string("zero\0byte", 9), "\xC3\xA4", "\xFF"},
                                                 Strings(10000, "many"),
                                                 {std::string(1 << 20, 'x')}};
    return s_lists;
}

} // namespace

TEST_F(StringsFieldTest, EveryListGoesInAndTheOneBeforeComesBackInItsOrder)
{
    for (const Strings& before : remarkableLists()) {
        for (const Strings& after : remarkableLists()) {
            setValue(before);
            stack.add(command(after));
            EXPECT_TRUE(value() == after);
            stack.undo();
            EXPECT_TRUE(value() == before);
            stack.redo();
            EXPECT_TRUE(value() == after);
            stack.clear();
        }
    }
}

TEST_F(StringsFieldTest, TheOldListIsTheOneAtConstruction)
{
    setValue({"at", "construction"});
    auto* const made = command({"new"});
    setValue({"meanwhile"});
    stack.add(made);
    stack.undo();
    EXPECT_EQ(value(), Strings({"at", "construction"}));
}

TEST_F(StringsFieldTest, TheFieldItselfIsAValidArgument)
{
    setValue({"a", "b"});
    stack.add(new moStringsFieldUndoCommand(text, lists, "multiString", *lists->getMFMultiString()));
    EXPECT_EQ(value(), Strings({"a", "b"}));
}

TEST_F(StringsFieldTest, AChainOfEditsIsOneStep)
{
    setValue({"a"});
    for (const Strings& edited : {Strings{"a", "b"}, Strings{"b"}, Strings{}}) {
        clock.advance(0.25);
        stack.add(command(edited));
    }
    EXPECT_EQ(describe(stack), "1 step, at \"Edit\", undo, no redo");
    stack.undo();
    EXPECT_EQ(value(), Strings({"a"}));
    stack.redo();
    EXPECT_EQ(value(), Strings());
}

TEST_F(StringsFieldTest, AnEditThatStartsFromAnotherListIsAStepOfItsOwn)
{
    for (const Strings& other : {Strings{"a"}, Strings{"b", "a"}, Strings{"a", "b", ""}, Strings{"a", "B"}}) {
        stack.add(command({"a", "b"}));
        setValue(other);
        stack.add(command({"c"}));
        EXPECT_EQ(stack.size(), 2);
        stack.undo();
        EXPECT_EQ(value(), other);
        stack.clear();
    }
}

TEST_F(StringsFieldTest, EditsOfTwoContainersMergeWhenTheirListsChainAsIntended)
{
    const osg::AllMultiFieldsPtr other = osg::AllMultiFields::create();
    osg::addRefCP(other);
    other->getMFMultiString()->setValues(Strings{"b"});
    stack.add(command({"b"}));
    stack.add(new moStringsFieldUndoCommand(text, other, "multiString", fieldOf({"c"})));
    EXPECT_EQ(stack.size(), 1);
    stack.undo();
    EXPECT_EQ(value(), Strings());
    stack.redo();
    EXPECT_EQ(value(), Strings({"c"}));
    EXPECT_EQ(other->getMFMultiString()->getValues(), Strings({"c"})) << "no step of its own, and none takes it back";
    osg::subRefCP(other);
}

TEST_F(StringsFieldTest, AnEditAfterTheIntervalIsAStepOfItsOwn)
{
    stack.add(command({"b"}));
    clock.advance(0.4375);
    stack.add(command({"c"}));
    EXPECT_EQ(stack.size(), 2);
}

TEST_F(StringsFieldTest, OtherCommandsAreRefused)
{
    const auto older = std::unique_ptr<moStringsFieldUndoCommand>(command({}));
    const auto newer = std::unique_ptr<moStringsFieldUndoCommand>(command({"b"}));
    const QUndoCommand foreign;
    EXPECT_TRUE(older->canMergeWith(newer.get()));
    EXPECT_FALSE(newer->mergeWith(older.get()));
    EXPECT_FALSE(older->mergeWith(&foreign));
    EXPECT_FALSE(older->mergeWith(nullptr));
}

TEST_F(StringsFieldTest, TheConstructorWithoutATextHasNone)
{
    EXPECT_EQ(moStringsFieldUndoCommand(lists, "multiString", fieldOf({})).text(), QString());
    EXPECT_EQ(moStringsFieldUndoCommand(text, lists, "multiString", fieldOf({})).text(), "Edit");
}
