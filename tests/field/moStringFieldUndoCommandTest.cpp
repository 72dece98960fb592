#include "FieldTest.h"

#include <moUndoStack/field/moStringFieldUndoCommand.h>

#include <memory>

namespace {

class StringFieldTest : public FieldTest
{
protected:
    moStringFieldUndoCommand* command(const std::string& value)
    {
        return new moStringFieldUndoCommand(text, container, "singleString", value);
    }
    const std::string& value() const { return container->getSingleString(); }
};

const std::vector<std::string>& remarkableStrings()
{
    static const std::vector<std::string> s_strings = {"",
                                                       "a",
                                                       std::string("zero\0byte", 9),
                                                       std::string(1, '\0'),
                                                       "\xC3\xA4\xE2\x82\xAC\xF0\x9F\x8E\xA8",
                                                       "\xFF not UTF-8",
                                                       std::string(1 << 20, 'x'),
                                                       "'quoted', \"twice\"\n"};
    return s_strings;
}

} // namespace

TEST_F(StringFieldTest, EveryStringGoesInAndTheOneBeforeComesBackByteForByte)
{
    for (const std::string& before : remarkableStrings()) {
        for (const std::string& after : remarkableStrings()) {
            container->setSingleString(before);
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

TEST_F(StringFieldTest, TheOldTextIsTheOneAtConstruction)
{
    container->setSingleString("at construction");
    auto* const made = command("new");
    container->setSingleString("meanwhile");
    stack.add(made);
    stack.undo();
    EXPECT_EQ(value(), "at construction");
}

TEST_F(StringFieldTest, AChainOfEditsIsOneStep)
{
    container->setSingleString("a");
    for (const char* typed : {"ab", "abc", "abcd"}) {
        clock.advance(0.25);
        stack.add(command(typed));
    }
    EXPECT_EQ(describe(stack), "1 step, at \"Edit\", undo, no redo");
    stack.undo();
    EXPECT_EQ(value(), "a");
    stack.redo();
    EXPECT_EQ(value(), "abcd");
}

TEST_F(StringFieldTest, AnEditThatStartsSomewhereElseIsAStepOfItsOwn)
{
    container->setSingleString("a");
    stack.add(command("b"));
    container->setSingleString("x");
    stack.add(command("c"));
    EXPECT_EQ(stack.size(), 2);
    stack.undo();
    EXPECT_EQ(value(), "x");
}

TEST_F(StringFieldTest, TextsThatDifferBehindAZeroByteDoNotChain)
{
    stack.add(command(std::string("b\0c", 3)));
    container->setSingleString(std::string("b\0d", 3));
    stack.add(command("e"));
    EXPECT_EQ(stack.size(), 2);
}

TEST_F(StringFieldTest, AnEditAfterTheIntervalIsAStepOfItsOwn)
{
    stack.add(command("b"));
    clock.advance(0.4375);
    stack.add(command("c"));
    EXPECT_EQ(stack.size(), 2);
}

TEST_F(StringFieldTest, EditsOfTwoContainersMergeWhenTheirTextsChainAsIntended)
{
    const osg::AllSingleFieldsPtr other = makeContainer();
    other->setSingleString("b");
    container->setSingleString("a");
    stack.add(command("b"));
    stack.add(new moStringFieldUndoCommand(text, other, "singleString", "c"));
    EXPECT_EQ(stack.size(), 1);
    stack.undo();
    EXPECT_EQ(value(), "a");
    EXPECT_EQ(other->getSingleString(), "c") << "the merged step writes only the older command's container";
    stack.redo();
    EXPECT_EQ(value(), "c");
    osg::subRefCP(other);
}

TEST_F(StringFieldTest, OtherCommandsAreRefused)
{
    const auto older = std::unique_ptr<moStringFieldUndoCommand>(command(""));
    const auto newer = std::unique_ptr<moStringFieldUndoCommand>(command("b"));
    const QUndoCommand foreign;
    EXPECT_TRUE(older->canMergeWith(newer.get()));
    EXPECT_FALSE(newer->canMergeWith(older.get()));
    EXPECT_FALSE(newer->mergeWith(older.get()));
    EXPECT_FALSE(older->canMergeWith(&foreign));
    EXPECT_FALSE(older->mergeWith(&foreign));
    EXPECT_FALSE(older->mergeWith(nullptr));
}

TEST_F(StringFieldTest, ConstructorsWithoutATextHaveNone)
{
    EXPECT_EQ(moStringFieldUndoCommand(container, "singleString", "").text(), QString());
    EXPECT_EQ(moStringFieldUndoCommand(container, 1, "").text(), QString());
    EXPECT_EQ(moStringFieldUndoCommand(text, container, 1, "").text(), "Edit");
    EXPECT_EQ(moStringFieldUndoCommand(text, container, "singleString", "").getDescription(), "edits a field");
}
