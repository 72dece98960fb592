#include "FieldTest.h"
#include "ScalarRow.h"

#include <moUndoStack/field/moBoolFieldUndoCommand.h>

namespace {

class BoolFieldTest : public FieldTest
{
protected:
    moBoolFieldUndoCommand* command(bool value)
    {
        return new moBoolFieldUndoCommand(text, container, "singleBool", value);
    }
};

} // namespace

TEST_F(BoolFieldTest, EveryValueGoesInAndTheOneBeforeComesBack)
{
    for (const bool before : {false, true}) {
        for (const bool after : {false, true}) {
            container->setSingleBool(before);
            stack.add(command(after));
            EXPECT_EQ(container->getSingleBool(), after);
            stack.undo();
            EXPECT_EQ(container->getSingleBool(), before);
            stack.redo();
            EXPECT_EQ(container->getSingleBool(), after);
            stack.clear();
        }
    }
}

TEST_F(BoolFieldTest, TheOldValueIsTheOneAtTheFirstRedoNotAtConstruction)
{
    auto* const made = command(false);
    container->setSingleBool(true);
    stack.add(made);
    stack.undo();
    EXPECT_TRUE(container->getSingleBool());
}

TEST_F(BoolFieldTest, NothingMerges)
{
    stack.add(command(true));
    stack.add(command(true));
    EXPECT_EQ(stack.size(), 2);
    const moBoolFieldUndoCommand older(container, "singleBool", true);
    const moBoolFieldUndoCommand newer(container, "singleBool", true);
    EXPECT_FALSE(older.canMergeWith(&newer));
    EXPECT_FALSE(older.canMergeWith(nullptr));
}

TEST_F(BoolFieldTest, ConstructorsWithoutATextHaveNone)
{
    EXPECT_EQ(moBoolFieldUndoCommand(container, "singleBool", true).text(), QString());
    EXPECT_EQ(moBoolFieldUndoCommand(container, 1, true).text(), QString());
    EXPECT_EQ(moBoolFieldUndoCommand(text, container, 1, true).text(), "Edit");
    EXPECT_EQ(moBoolFieldUndoCommand(text, container, 1, true).getDescription(), "edits a field");
}

template<class T>
class BoolIntoIntegerTest : public FieldTest
{
};

using Integers =
    testing::Types<signed char, unsigned char, short, unsigned short, int, unsigned int, std::int64_t, std::uint64_t>;
TYPED_TEST_SUITE(BoolIntoIntegerTest, Integers);

TYPED_TEST(BoolIntoIntegerTest, OnlyWhetherTheIntegerWasZeroIsRemembered)
{
    using Row = ScalarRow<TypeParam>;
    std::vector<TypeParam> befores = remarkableValues<TypeParam>();
    befores.push_back(7);
    for (const TypeParam before : befores) {
        for (const bool after : {false, true}) {
            SCOPED_TRACE(testing::Message() << +before << " -> " << after);
            Row::set(this->container, before);
            this->stack.add(new moBoolFieldUndoCommand(this->text, this->container, Row::name, after));
            EXPECT_EQ(Row::get(this->container), TypeParam(after));
            this->stack.undo();
            EXPECT_EQ(Row::get(this->container), TypeParam(before != 0));
            this->stack.redo();
            EXPECT_EQ(Row::get(this->container), TypeParam(after));
            EXPECT_EQ(this->takeEdits().size(), 3U);
            this->stack.clear();
        }
    }
}
