#include "RandomModel.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

constexpr std::uint64_t seedCount = 40;
constexpr unsigned programLength = 1000;

int countOf(const Counts& counts, const std::string& what)
{
    const auto found = counts.find(what);
    return found == counts.end() ? 0 : found->second;
}

class RandomModel : public testing::TestWithParam<std::uint64_t>
{
};

TEST_P(RandomModel, AgreesWithTheLibraryAfterEachOfManyRandomOperations)
{
    const Program program = Generator(GetParam()).program(programLength);
    Counts counts;
    ASSERT_EQ(differenceOf(program, &counts), "") << "seed " << GetParam() << ", shrunk:\n"
                                                  << reportOf(program, "Seed" + std::to_string(GetParam()));

    // A program without an effect must not pass.
    for (unsigned kind = 0; kind < Operation::kindCount; ++kind) {
        const char* const name = nameOf(static_cast<Operation::Kind>(kind));
        EXPECT_GE(countOf(counts, name), 1) << "seed " << GetParam() << " never played " << name;
    }
    EXPECT_GE(countOf(counts, "pushed"), 20);
    EXPECT_GE(countOf(counts, "undone"), 20);
    EXPECT_GE(countOf(counts, "redone"), 10);
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomModel, testing::Range<std::uint64_t>(1, seedCount + 1));

TEST(RandomModelSeeds, TogetherMakeAllHappenThatTheModelKnowsOf)
{
    Counts counts;
    for (std::uint64_t seed = 1; seed <= seedCount; ++seed)
        differenceOf(Generator(seed).program(programLength), &counts);

    for (const char* event : {"sample stepped",
                              "merged",
                              "merged in a macro",
                              "loop of a listener",
                              "composite merged",
                              "pushed into a macro",
                              "nested macro",
                              "macro recorded",
                              "child made",
                              "nested composition",
                              "composition without parent",
                              "composition ended on the wrong stack",
                              "composition cleared",
                              "history cleared",
                              "redo branch purged",
                              "jump back",
                              "jump forward",
                              "run unrecorded",
                              "command left to its maker",
                              "surplus end",
                              "step without a target",
                              "thing created",
                              "thing destroyed",
                              "response",
                              "call waited",
                              "composition cancelled",
                              "nested composition cancelled",
                              "held back from the clean step",
                              "clean state lost",
                              "oldest step dropped",
                              "limit refused"})
        EXPECT_GE(countOf(counts, event), 10) << event;
}

TEST(RandomModelGenerator, GivesTheSameProgramForTheSameSeedAndAnotherForAnother)
{
    const auto codeOf = [](std::uint64_t seed) { return asCode(Generator(seed).program(50), "Any"); };
    EXPECT_EQ(codeOf(7), codeOf(7));
    EXPECT_NE(codeOf(7), codeOf(8));
}

TEST(RandomModelShrinking, LeavesOnlyTheOperationsThatAreNeeded)
{
    const auto isWrong = [](const Program& program) {
        bool isMarked = false;
        for (const Operation& operation : program) {
            isMarked = isMarked || operation.kind == Operation::Mark;
            if (isMarked && operation.kind == Operation::Reset) return true;
        }
        return false;
    };
    const Program program = shrunk(Generator(4).program(300), isWrong);
    ASSERT_EQ(program.size(), 2U);
    EXPECT_EQ(program[0].kind, Operation::Mark);
    EXPECT_EQ(program[1].kind, Operation::Reset);
}

TEST(RandomModelCase, ACompositeAroundASampleOfAnyClass)
{
    for (unsigned row = 0; row < 100; ++row) // more than there are
        EXPECT_EQ(differenceOf({
                      {Operation::Begin, 0, 26, 322},
                      {Operation::Sample, 1, 0, row},
                      {Operation::End, 0, 14, 395},
                  }),
                  "")
            << row;
}

TEST(RandomModelGenerator, MakesAProgramOfAnyBytes)
{
    const std::uint8_t bytes[] = {255, 255, 255, 255, 0, 3, 1, 2, 9};
    EXPECT_EQ(asCode(programOfBytes(bytes, sizeof bytes), "Bytes"),
              "TEST(RandomModelCase, Bytes)\n{\n    EXPECT_EQ(differenceOf({\n"
              "        {Operation::Limit, 1, 63, 735},\n"
              "        {Operation::Rename, 1, 1, 258},\n"
              "    }), \"\");\n}\n");
}

} // namespace
