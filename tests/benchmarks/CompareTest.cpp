#include <Compare.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using namespace bench;
using testing::ElementsAre;
using testing::IsEmpty;

/// Three comparisons: a usual one, one whose growth is shown, a window.
class Cases : public testing::Test
{
protected:
    Cases()
    {
        add("drag", {100, 100000});
        add("undo", {100, 100000, 1000000});
        add("window", {3}).timeOnly = true;
    }
    ~Cases() override { comparisons().clear(); }

    static std::vector<std::string> names(const std::vector<Case>& cases)
    {
        std::vector<std::string> names;
        names.reserve(cases.size());
        for (const Case& one : cases)
            names.push_back(one.name());
        return names;
    }

private:
    static Comparison& add(const std::string& name, std::vector<int> steps)
    {
        Comparison comparison;
        comparison.name = name;
        comparison.steps = std::move(steps);
        return comparisons().emplace_back(comparison);
    }
};

TEST_F(Cases, TimeIsMeasuredOfEachWithEachNumberOfSteps)
{
    EXPECT_THAT(names(casesMatching("")),
                ElementsAre("drag/100", "drag/100000", "undo/100", "undo/100000", "undo/1000000", "window/3"));
}

TEST_F(Cases, InstructionsAreCountedWithTheFirstNumberAndWithAHundredThousandOnTheWayToAMillion)
{
    EXPECT_THAT(names(countedCasesMatching("")), ElementsAre("drag/100", "undo/100", "undo/100000"));
}

TEST_F(Cases, MemoryIsCountedWithTheFirstNumberOnly)
{
    EXPECT_THAT(names(memoryCasesMatching("")), ElementsAre("drag/100", "undo/100"));
}

TEST_F(Cases, AFilterIsSearchedInNameAndSteps)
{
    EXPECT_THAT(names(casesMatching("o/1000000$")), ElementsAre("undo/1000000"));
    EXPECT_THAT(names(countedCasesMatching("undo/1000000")), IsEmpty());
}

} // namespace
