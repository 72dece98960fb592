#include "FieldTest.h"
#include "ScalarRow.h"

#include <moUndoStack/field/moFieldUndoCommand.h>

#include <cstring>
#include <memory>
#include <set>

namespace {

template<class T>
bool sameBits(T a, T b)
{
    return std::memcmp(&a, &b, sizeof(T)) == 0;
}

} // namespace

template<class T>
class ScalarFieldTest : public FieldTest
{
protected:
    moFieldUndoCommand<T>* command(T value)
    {
        return new moFieldUndoCommand<T>(text, container, ScalarRow<T>::name, value);
    }
    T value() const { return ScalarRow<T>::get(container); }
    void setValue(T value) { ScalarRow<T>::set(container, value); }
};

using Scalars = testing::Types<signed char, unsigned char, short, unsigned short, int, unsigned int, std::int64_t,
                               std::uint64_t, float, double>;
TYPED_TEST_SUITE(ScalarFieldTest, Scalars);

TYPED_TEST(ScalarFieldTest, EveryValueGoesInAndTheOneBeforeComesBackBitForBit)
{
    for (const TypeParam before : remarkableValues<TypeParam>()) {
        for (const TypeParam after : remarkableValues<TypeParam>()) {
            SCOPED_TRACE(testing::Message() << +before << " -> " << +after);
            this->setValue(before);
            this->stack.add(this->command(after));
            EXPECT_TRUE(sameBits(this->value(), after));
            this->stack.undo();
            EXPECT_TRUE(sameBits(this->value(), before));
            this->stack.redo();
            EXPECT_TRUE(sameBits(this->value(), after));
            this->stack.clear();
        }
    }
}

TYPED_TEST(ScalarFieldTest, TheOldValueIsTheOneAtTheFirstRedoNotAtConstruction)
{
    auto* const command = this->command(5);
    this->setValue(3);
    this->stack.add(command);
    this->stack.undo();
    EXPECT_EQ(this->value(), TypeParam(3));
}

TYPED_TEST(ScalarFieldTest, AnUndoBringsBackWhatSomebodyElseWroteMeanwhile)
{
    this->setValue(1);
    this->stack.add(this->command(2));
    this->setValue(3);
    this->stack.undo();
    EXPECT_EQ(this->value(), TypeParam(1));
    this->stack.redo();
    EXPECT_EQ(this->value(), TypeParam(3));
}

TYPED_TEST(ScalarFieldTest, UndoIsTheExchangeItselfAndNotTheRedoOfASubclass)
{
    struct Subclass : moFieldUndoCommand<TypeParam>
    {
        using moFieldUndoCommand<TypeParam>::moFieldUndoCommand;
        void redo() override { ++redone; }
        int redone = 0;
    };
    this->setValue(1);
    Subclass command(this->text, this->container, ScalarRow<TypeParam>::name, TypeParam(2));
    command.undo();
    EXPECT_EQ(command.redone, 0);
    EXPECT_EQ(this->value(), TypeParam(2));
}

TYPED_TEST(ScalarFieldTest, ASeriesWithinTheIntervalIsOneStepBackToTheValueBeforeTheFirst)
{
    this->setValue(1);
    for (const int step : {2, 3, 4}) {
        this->clock.advance(0.25);
        this->stack.add(this->command(static_cast<TypeParam>(step)));
    }
    EXPECT_EQ(describe(this->stack), "1 step, at \"Edit\", undo, no redo");
    this->stack.undo();
    EXPECT_EQ(this->value(), TypeParam(1));
    this->stack.redo();
    EXPECT_EQ(this->value(), TypeParam(4));
}

TYPED_TEST(ScalarFieldTest, ASecondEditAfterTheIntervalIsAStepOfItsOwn)
{
    this->stack.add(this->command(2));
    this->clock.advance(0.5);
    this->stack.add(this->command(3));
    this->stack.undo();
    EXPECT_EQ(this->value(), TypeParam(2));
    EXPECT_EQ(describe(this->stack), "2 steps, at \"Edit\", undo, redo");
}

TYPED_TEST(ScalarFieldTest, TheSameFieldOfAnotherContainerDoesNotMerge)
{
    const osg::AllSingleFieldsPtr other = this->makeContainer();
    this->stack.add(this->command(2));
    this->stack.add(new moFieldUndoCommand<TypeParam>(this->text, other, ScalarRow<TypeParam>::name, 3));
    EXPECT_EQ(this->stack.size(), 2);
    this->stack.undo();
    EXPECT_EQ(this->value(), TypeParam(2));
    EXPECT_EQ(ScalarRow<TypeParam>::get(other), TypeParam(0));
    osg::subRefCP(other);
}

TYPED_TEST(ScalarFieldTest, UnequalCommandsAreNotTakenForEachOther)
{
    const auto command = std::unique_ptr<moFieldUndoCommand<TypeParam>>(this->command(2));
    const auto twin = std::unique_ptr<moFieldUndoCommand<TypeParam>>(this->command(3));
    const auto unresolved = std::make_unique<moFieldUndoCommand<TypeParam>>(this->text, this->container, "no", 3);
    const QUndoCommand foreign;
    EXPECT_TRUE(command->canMergeWith(twin.get()));
    EXPECT_FALSE(command->canMergeWith(unresolved.get()));
    EXPECT_FALSE(command->mergeWith(unresolved.get()));
    EXPECT_FALSE(command->canMergeWith(&foreign));
    EXPECT_FALSE(command->mergeWith(&foreign));
    EXPECT_FALSE(command->canMergeWith(nullptr));
    EXPECT_FALSE(command->mergeWith(nullptr));
}

TEST_F(FieldTest, TwoFieldsOfOneContainerDoNotMerge)
{
    stack.add(new moFieldUndoCommand<int>(text, container, "singleInt32", 1));
    stack.add(new moFieldUndoCommand<int>(text, container, "secondInt32", 2));
    EXPECT_EQ(stack.size(), 2);
}

TEST_F(FieldTest, EveryScalarTypeHasACommandIdOfItsOwn)
{
    const std::set<int> ids = {
        moFieldUndoCommand<signed char>::commandId(),  moFieldUndoCommand<unsigned char>::commandId(),
        moFieldUndoCommand<short>::commandId(),        moFieldUndoCommand<unsigned short>::commandId(),
        moFieldUndoCommand<int>::commandId(),          moFieldUndoCommand<unsigned int>::commandId(),
        moFieldUndoCommand<std::int64_t>::commandId(), moFieldUndoCommand<std::uint64_t>::commandId(),
        moFieldUndoCommand<float>::commandId(),        moFieldUndoCommand<double>::commandId()};
    EXPECT_EQ(ids.size(), 10U);
    EXPECT_GT(*ids.begin(), 0);
    const moFieldUndoCommand<short> command(text, container, "singleInt16", 1);
    EXPECT_EQ(command.id(), moFieldUndoCommand<short>::commandId());
}

TEST_F(FieldTest, AReplacedNotifyFunctionIsNotCalledAnyMoreAndAnEmptyOneIsNone)
{
    std::vector<std::string> called;
    auto* const command = new moFieldUndoCommand<int>(text, container, "singleInt32", 1);
    command->setNotifyFunction([&called] { called.push_back("first"); });
    command->setNotifyFunction([&called] { called.push_back("second"); });
    stack.add(command);
    EXPECT_EQ(called, std::vector<std::string>({"second"}));
    command->setNotifyFunction({});
    stack.undo();
    EXPECT_EQ(called, std::vector<std::string>({"second"}));
}

TEST_F(FieldTest, ANotifyFunctionMayReplaceItself)
{
    std::vector<std::string> called;
    auto* const command = new moFieldUndoCommand<int>(text, container, "singleInt32", 1);
    command->setNotifyFunction([&called, command, kept = std::string(1000, 'x')] {
        command->setNotifyFunction({});
        called.push_back(kept);
    });
    stack.add(command);
    stack.undo();
    EXPECT_EQ(called, std::vector<std::string>({std::string(1000, 'x')}));
}

TEST_F(FieldTest, ANotifyFunctionKeepsItsStateFromOneCallToTheNext)
{
    std::vector<int> counts;
    auto* const command = new moFieldUndoCommand<int>(text, container, "singleInt32", 1);
    command->setNotifyFunction([&counts, count = 0]() mutable { counts.push_back(++count); });
    stack.add(command);
    stack.undo();
    EXPECT_EQ(counts, std::vector<int>({1, 2}));
}

TEST_F(FieldTest, ANotifyFunctionThatThrowsLosesNoValue)
{
    auto* const command = new moFieldUndoCommand<int>(text, container, "singleInt32", 1);
    stack.add(command);
    command->setNotifyFunction([] { throw 1; });
    EXPECT_THROW(stack.undo(), int);
    EXPECT_EQ(container->getSingleInt32(), 0);
    command->setNotifyFunction({});
    stack.redo();
    EXPECT_EQ(container->getSingleInt32(), 1) << "the values still change places";
}

TEST_F(FieldTest, AListenerToTheChangeSeesTheNewValueAndTheNotifyFunctionRunsThoughItThrows)
{
    auto* const command = new moFieldUndoCommand<int>(text, container, "singleInt32", 1);
    stack.add(command);
    int seen = -1;
    container->onChanged = [&](osg::BitVector, osg::UInt32) {
        seen = container->getSingleInt32();
        throw 1;
    };
    int notified = 0;
    command->setNotifyFunction([&notified] { ++notified; });
    EXPECT_THROW(stack.undo(), int);
    EXPECT_EQ(seen, 0);
    EXPECT_EQ(notified, 1);
    container->onChanged = nullptr;
    stack.redo();
    EXPECT_EQ(container->getSingleInt32(), 1);
}

TEST_F(FieldTest, WrappersAreCalledAfterTheNotifyFunctionInTheOrderInWhichTheyCame)
{
    std::vector<std::string> called;
    const auto call = [&called](const char* what) { return [&called, what] { called.emplace_back(what); }; };
    auto* const command = new moFieldUndoCommand<int>(text, container, "singleInt32", 1);
    command->addWrapperFunction(call("first"));
    command->addWrapperFunction(call("second"));
    command->setNotifyFunction(call("notify"));
    stack.add(command);
    EXPECT_EQ(std::exchange(called, {}), std::vector<std::string>({"notify", "first", "second"}));
    command->setNotifyFunction({});
    stack.undo();
    EXPECT_EQ(called, std::vector<std::string>({"first", "second"}));
}

TEST_F(FieldTest, AWrapperIsCalledThoughTheOneBeforeItThrows)
{
    int called = 0;
    auto* const command = new moFieldUndoCommand<int>(text, container, "singleInt32", 1);
    command->addWrapperFunction([] { throw 1; });
    command->addWrapperFunction([&called] { ++called; });
    EXPECT_THROW(stack.add(command), int);
    EXPECT_EQ(called, 1);
}

TEST_F(FieldTest, AMergedCommandsNotifyFunctionIsCalledOnceAndThenOnlyTheOlderOnes)
{
    std::vector<std::string> called;
    const auto add = [&](int value, const char* name) {
        auto* const command = new moFieldUndoCommand<int>(text, container, "singleInt32", value);
        command->setNotifyFunction([&called, name] { called.emplace_back(name); });
        stack.add(command);
    };
    add(1, "older");
    add(2, "newer");
    ASSERT_EQ(stack.size(), 1);
    stack.undo();
    stack.redo();
    EXPECT_EQ(called, std::vector<std::string>({"older", "newer", "older", "older"}));
}

TEST_F(FieldTest, UndoIsTheExchangeItselfAndNotAnOverriddenRedo)
{
    struct Counting : moFieldUndoCommand<int>
    {
        using moFieldUndoCommand::moFieldUndoCommand;
        void redo() override
        {
            ++redone;
            moFieldUndoCommand::redo();
        }
        int redone = 0;
    };
    Counting command(text, container, "singleInt32", 1);
    command.redo();
    command.undo();
    EXPECT_EQ(container->getSingleInt32(), 0);
    EXPECT_EQ(command.redone, 1);
}

namespace {

struct NotMembers
{
    int apply;
    int findTypedField;
};
struct BothBases : moFieldBaseUndoCommand<>, NotMembers
{
};

// Members of the base with these names would make them ambiguous.
static_assert(std::is_same_v<decltype(&BothBases::apply), int NotMembers::*>);
static_assert(std::is_same_v<decltype(&BothBases::findTypedField), int NotMembers::*>);

} // namespace
