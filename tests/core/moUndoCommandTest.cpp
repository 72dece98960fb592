#include <support/ProbeCommand.h>
#include <support/UndoTest.h>

#include <moUndoStack/core/moMultiCommand.h>
#include <moUndoUtils/moUndoString.h>
#include <moUtils/moMessage.h>

#include <array>
#include <cstdlib>
#include <limits>
#include <memory>
#include <typeinfo>

namespace {

template<int>
struct Tag
{
};

TEST(CommandIds, CountUpByOneInTheOrderOfFirstAsking)
{
    const int first = moUndoCommand::makeId(typeid(Tag<0>));
    const int second = moUndoCommand::makeId(typeid(Tag<1>));
    EXPECT_GE(first, 1);
    EXPECT_EQ(second, first + 1);
}

TEST(CommandIds, StartAtOne)
{
    // Asked in a process of its own, where nobody has asked before.
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(std::_Exit(moUndoCommand::makeId(typeid(Tag<4>))), testing::ExitedWithCode(1), "");
}

TEST(CommandIds, StayTheSameForAClass)
{
    const int first = moUndoCommand::makeId(typeid(Tag<2>));
    moUndoCommand::makeId(typeid(Tag<3>));
    EXPECT_EQ(moUndoCommand::makeId(typeid(Tag<2>)), first);
}

TEST(CommandIds, AreThoseOfTheClassForEveryInstance)
{
    const moMultiCommand a(moUndoString("a", ""));
    const moMultiCommand b(moUndoString("b", ""));
    EXPECT_EQ(a.id(), moMultiCommand::commandId());
    EXPECT_EQ(b.id(), a.id());
    EXPECT_GT(a.id(), 0);
}

using UndoCommand = UndoTest;

TEST_F(UndoCommand, ThatDeclaresNoIdReportsMinusOneAndSaysSoInItsMessage)
{
    const ProbeCommand command("a");
    moMessage message;
    command.makeMessage(message);
    EXPECT_EQ(describe(message), "id=int:-1");
}

TEST_F(UndoCommand, IsStampedWithTheTimeOfItsConstruction)
{
    const ProbeCommand earlier("a");
    clock.advance(1.5);
    const ProbeCommand later("b");
    EXPECT_EQ(later.creationTime() - earlier.creationTime(), 1.5);
}

TEST_F(UndoCommand, WithANullParentBecomesAChildOfTheCompositeBeingComposed)
{
    stack.beginMultiCommand("composite", "", true);
    auto* composite = moUndoStack::getCurrentCommandParent();
    const auto* command = new ProbeCommand("a");
    EXPECT_EQ(command->parent(), composite);
    EXPECT_EQ(composite->child(0), command);
    stack.endMultiCommand();
}

TEST_F(UndoCommand, WithAParentOfItsOwnLeavesTheCompositeBeingComposedAlone)
{
    stack.beginMultiCommand("composite", "", true);
    auto* composite = moUndoStack::getCurrentCommandParent();
    QUndoCommand own;
    const auto* command = new ProbeCommand("a", &own);
    EXPECT_EQ(command->parent(), &own);
    EXPECT_EQ(composite->childCount(), 0);
    stack.endMultiCommand();
}

TEST_F(UndoCommand, StaysParentlessWhileRecordingIsOff)
{
    stack.beginMultiCommand("composite", "", true);
    moUndoStack::beginBlockUndo();
    const std::unique_ptr<ProbeCommand> command(new ProbeCommand("a"));
    EXPECT_EQ(command->parent(), nullptr);
    moUndoStack::endBlockUndo();
    stack.endMultiCommand();
}

/// The merge interval. `later()` makes a newer command, so many seconds after the older one.
class MergeInterval : public UndoTest
{
protected:
    static constexpr int id = 4711;

    void TearDown() override
    {
        newer.reset();
        older.reset();
        UndoTest::TearDown();
    }

    ProbeCommand& later(double seconds, int withId = id)
    {
        clock.advance(seconds);
        newer = std::make_unique<ProbeCommand>("newer");
        newer->withId(withId);
        return *newer;
    }

    void SetUp() override
    {
        UndoTest::SetUp();
        older.reset((new ProbeCommand("older"))->withId(id));
    }

    std::unique_ptr<ProbeCommand> older;
    std::unique_ptr<ProbeCommand> newer;
};

TEST_F(MergeInterval, IsFourTenthsOfASecondUnlessSet)
{
    EXPECT_TRUE(older->canMergeWith(&later(0.399)));
    EXPECT_FALSE(older->canMergeWith(&later(0.002)));
}

TEST_F(MergeInterval, EndsStrictlyBeforeItsLength)
{
    later(0.5).setMergeResponseDelta(0.5);
    EXPECT_FALSE(older->canMergeWith(newer.get()));
    newer->setMergeResponseDelta(std::nextafter(0.5, 1.0));
    EXPECT_TRUE(older->canMergeWith(newer.get()));
}

TEST_F(MergeInterval, IsTheNewerCommandsOwn)
{
    older->setMergeResponseDelta(100.0);
    EXPECT_FALSE(older->canMergeWith(&later(1.0)));
    older->setMergeResponseDelta(0.0);
    newer->setMergeResponseDelta(2.0);
    EXPECT_TRUE(older->canMergeWith(newer.get()));
}

TEST_F(MergeInterval, OfZeroMergesNothingMadeAtTheSameMoment)
{
    later(0.0).setMergeResponseDelta(0.0);
    EXPECT_FALSE(older->canMergeWith(newer.get()));
    newer->setMergeResponseDelta(-0.0);
    EXPECT_FALSE(older->canMergeWith(newer.get())) << "minus zero is not negative";
}

TEST_F(MergeInterval, ThatIsNegativeHasNoLimit)
{
    later(1e6).setMergeResponseDelta(-1.0);
    EXPECT_TRUE(older->canMergeWith(newer.get()));
}

TEST_F(MergeInterval, IsInSecondsHoweverLong)
{
    double between = 0.0;
    for (const double seconds : {61.0, 90.0, 1000.0, 86400.0, 1e7}) {
        SCOPED_TRACE(seconds);
        const double wait = seconds - between;
        between = seconds;
        later(wait).setMergeResponseDelta(std::nextafter(seconds, 0.0));
        EXPECT_FALSE(older->canMergeWith(newer.get()));
        newer->setMergeResponseDelta(std::nextafter(seconds, 1e9));
        EXPECT_TRUE(older->canMergeWith(newer.get()));
    }
}

TEST_F(MergeInterval, ThatIsNotANumberHasNoLimit)
{
    later(1e6).setMergeResponseDelta(std::numeric_limits<double>::quiet_NaN());
    EXPECT_TRUE(older->canMergeWith(newer.get()));
}

TEST_F(MergeInterval, DoesNotHelpCommandsOfDifferentIds)
{
    EXPECT_FALSE(older->canMergeWith(&later(0.0, id + 1)));
    newer->setMergeResponseDelta(-1.0);
    EXPECT_FALSE(older->canMergeWith(newer.get()));
}

TEST_F(MergeInterval, AppliesToCommandsWithoutAnIdOfTheirOwnToo)
{
    older->withId(-1);
    EXPECT_TRUE(older->canMergeWith(&later(0.1, -1)));
    EXPECT_FALSE(older->canMergeWith(&later(0.4, -1)));
}

TEST_F(MergeInterval, DoesNotKeepACommandFromMergingIntoOneThatWasMadeAfterIt)
{
    later(10.0);
    older->setMergeResponseDelta(0.0);
    EXPECT_TRUE(newer->canMergeWith(older.get()));
}

TEST_F(MergeInterval, DoesNotHelpANewerCommandWithMergingDisabled)
{
    later(0.0).setMergeEnabled(false);
    EXPECT_FALSE(older->canMergeWith(newer.get()));
    newer->setMergeResponseDelta(-1.0);
    EXPECT_FALSE(older->canMergeWith(newer.get()));
}

TEST_F(MergeInterval, IsKeptWhileMergingIsDisabledAndEnabledAgain)
{
    for (const bool first : {false, true}) {
        SCOPED_TRACE(first);
        older->adoptCreationTime(later(0.0));
        later(0.75).setMergeResponseDelta(1.0);
        newer->setMergeEnabled(first);
        newer->setMergeEnabled(true);
        EXPECT_TRUE(older->canMergeWith(newer.get())) << "longer than the default";
        newer->setMergeResponseDelta(0.25);
        newer->setMergeEnabled(first);
        newer->setMergeEnabled(true);
        older->adoptCreationTime(*newer);
        EXPECT_TRUE(older->canMergeWith(newer.get()));
        later(0.375).setMergeResponseDelta(0.25);
        newer->setMergeEnabled(first);
        newer->setMergeEnabled(true);
        EXPECT_FALSE(older->canMergeWith(newer.get())) << "shorter than the default";
    }
}

TEST_F(MergeInterval, CanBeSetBackToTheDefault)
{
    later(0.3).setMergeResponseDelta(0.2);
    newer->setMergeResponseDelta(moUndoCommand::defaultMergeResponseDelta);
    EXPECT_TRUE(older->canMergeWith(newer.get()));
}

TEST_F(MergeInterval, AsksTheNewerCommandOnlyWhetherMergingIsEnabled)
{
    older->setMergeEnabled(false);
    EXPECT_TRUE(older->canMergeWith(&later(0.1)));
}

TEST_F(MergeInterval, SlidesWithTheCreationTimeTakenOver)
{
    older->adoptCreationTime(later(0.3));
    EXPECT_TRUE(older->canMergeWith(&later(0.3)));
    older->adoptCreationTime(*newer);
    EXPECT_FALSE(older->canMergeWith(&later(0.5)));
}

/// Somebody else's command; mistaken for one of ours it would look willing: no merge options, made at the very start.
struct ForeignCommand : QUndoCommand
{
    std::array<char, 200> content{};
};

TEST_F(MergeInterval, RefusesWhatIsNoCommandOfOurs)
{
    ForeignCommand plain;
    older->adoptCreationTime(later(1.0));
    EXPECT_FALSE(older->withId(-1)->canMergeWith(&plain));
    EXPECT_FALSE(older->canMergeWith(nullptr));
}

} // namespace
