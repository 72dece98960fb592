#include <support/ProbeCommand.h>
#include <support/UndoTest.h>

#include <moUndoStack/core/moMergeOption.h>

#include <cstddef>
#include <type_traits>

namespace {

// What a caller may write for it; an int could be either.
static_assert(std::is_convertible_v<bool, moMergeOption>);
static_assert(std::is_convertible_v<double, moMergeOption>);
static_assert(std::is_convertible_v<float, moMergeOption>);
static_assert(!std::is_convertible_v<int, moMergeOption>);
static_assert(!std::is_convertible_v<std::nullptr_t, moMergeOption>);

class MergeOption : public UndoTest
{
protected:
    /// Whether a command with the option merges into one that was made `seconds` before it.
    bool merges(double seconds, moMergeOption option)
    {
        const ProbeCommand older("older");
        clock.advance(seconds);
        ProbeCommand newer("newer");
        option.applyTo(newer);
        return older.canMergeWith(&newer);
    }
};

TEST_F(MergeOption, NothingMeansTheDefaultInterval)
{
    EXPECT_TRUE(merges(0.25, {}));
    EXPECT_FALSE(merges(0.5, {}));
}

TEST_F(MergeOption, ABoolIsTheSwitchAndLeavesTheInterval)
{
    EXPECT_FALSE(merges(0, false));
    EXPECT_TRUE(merges(0.25, true));
    EXPECT_FALSE(merges(0.5, true)) << "true is no second";
}

TEST_F(MergeOption, ANumberWithAPointIsTheIntervalInSeconds)
{
    EXPECT_TRUE(merges(0.75, 1.0));
    EXPECT_FALSE(merges(1.25, 1.0));
    EXPECT_FALSE(merges(0.25, 0.125f));
    EXPECT_FALSE(merges(0, 0.0)) << "less than no time";
    EXPECT_TRUE(merges(1000, -1.0)) << "no limit";
}

} // namespace
