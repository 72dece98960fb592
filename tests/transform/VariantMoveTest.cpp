#include <transform/TransformTest.h>

#include <moUndoStack/transform/moTransformVariantMoveCommand.h>

#include <algorithm>
#include <functional>
#include <limits>
#include <numeric>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class VariantMove : public TransformTest
{
protected:
    void fill(const std::string& letters)
    {
        moNodeUtils::createTransformVariantsAttachment(node);
        while (moNodeUtils::getTransformVariantCount(node) > 0)
            moNodeUtils::removeTransformVariant(node, 0);
        for (const char letter : letters)
            addVariant(node, std::string(1, letter));
    }

    static std::string print(const QList<int>& positions)
    {
        std::string text;
        for (const int position : positions)
            text += std::to_string(position);
        return text;
    }
    auto tell()
    {
        return [this](unsigned int id, const QList<int>& before, const QList<int>& after) {
            EXPECT_EQ(id, idOf(node));
            told.push_back(print(before) + "->" + print(after));
        };
    }
    std::vector<std::string> take() { return std::exchange(told, {}); }

    void move(int from, int to) { stack.add(new moTransformVariantMoveCommand(node, from, to, nullptr, tell())); }
    void move(const std::vector<int>& from, int to)
    {
        stack.add(new moTransformVariantMoveCommand(node, from, to, nullptr, tell()));
    }

    /// The list after a move: those at `from` are removed, then each is inserted, from `to` on.
    static std::string moved(const std::string& letters, const std::vector<int>& from, int to)
    {
        std::vector<char> rest;
        for (std::size_t i = 0; i < letters.size(); ++i)
            if (std::find(from.begin(), from.end(), int(i)) == from.end()) rest.push_back(letters[i]);
        for (const int position : from)
            rest.insert(rest.begin() + to++, letters[std::size_t(position)]);
        return {rest.begin(), rest.end()};
    }

    /// Undoes and redoes the top command and compares the list each time.
    void expectCycles(const std::string& before, const std::string& after)
    {
        EXPECT_EQ(names(node), after);
        for (int cycle = 0; cycle < 2; ++cycle) {
            stack.undo();
            EXPECT_EQ(names(node), before);
            stack.redo();
            EXPECT_EQ(names(node), after);
        }
        stack.undo();
    }

    const std::string all = "ABCDEF";
};

} // namespace

TEST_F(VariantMove, IsNamedAfterTheNode)
{
    fill("AB");
    move(0, 1);
    const auto& command = *static_cast<const moUndoCommandBase*>(stack.currentCommand());
    EXPECT_EQ(command.text(), "Move transform variant 'Box'");
    EXPECT_EQ(command.getDescription(), "Move transform variant");
}

TEST_F(VariantMove, OfOneVariantLandsWhereItIsToldForAllPositions)
{
    for (std::size_t length = 1; length <= all.size(); ++length) {
        const std::string letters = all.substr(0, length);
        fill(letters);
        for (int from = 0; from < int(length); ++from)
            for (int to = 0; to < int(length); ++to) {
                SCOPED_TRACE(letters + " " + std::to_string(from) + "->" + std::to_string(to));
                move(from, to);
                expectCycles(letters, moved(letters, {from}, to));
            }
    }
}

TEST_F(VariantMove, OfSeveralVariantsPutsThemSideBySideInTheOrderInWhichTheyAreListedForAllLists)
{
    // Every ordered choice of positions in lists up to length 6, moved to every place where they find room.
    for (std::size_t length = 1; length <= all.size(); ++length) {
        const std::string letters = all.substr(0, length);
        fill(letters);
        int moves = 0;
        const std::function<void(std::vector<int>&)> choose = [&](std::vector<int>& from) {
            for (int to = 0; !from.empty() && to + int(from.size()) <= int(length); ++to, ++moves) {
                stack.clear();
                move(from, to);
                const std::string after = moved(letters, from, to);
                EXPECT_EQ(names(node), after);
                EXPECT_EQ(names(node).substr(std::size_t(to), from.size()).size(), from.size());
                stack.undo();
                ASSERT_EQ(names(node), letters);
                stack.redo();
                ASSERT_EQ(names(node), after);
                stack.undo();
                ASSERT_EQ(names(node), letters);
            }
            for (int next = 0; next < int(length); ++next) {
                if (std::find(from.begin(), from.end(), next) != from.end()) continue;
                from.push_back(next);
                choose(from);
                from.pop_back();
            }
        };
        std::vector<int> none;
        choose(none);
        EXPECT_GE(moves, int(length));
    }
}

TEST_F(VariantMove, TellsThePositionsBeforeAndAfterInTheOrderOfTheOldOnes)
{
    fill(all);
    move(std::vector<int>{4, 1, 2}, 3);
    EXPECT_EQ(names(node), "ADFEBC");
    EXPECT_THAT(take(), ElementsAre("124->453"));
    stack.undo();
    EXPECT_THAT(take(), ElementsAre("453->124"));
    stack.redo();
    EXPECT_THAT(take(), ElementsAre("124->453"));
}

TEST_F(VariantMove, ToWhereTheyStandAlreadyIsToldOfAllTheSame)
{
    fill("abcd");
    move(1, 1);
    stack.undo();
    move({1, 2}, 1);
    stack.undo();
    EXPECT_EQ(names(node), "abcd");
    EXPECT_THAT(take(), ElementsAre("1->1", "1->1", "12->12", "12->12"));
}

TEST_F(VariantMove, OutOfRangeRecordsNothingAndIsToldWithoutPositions)
{
    const int huge = std::numeric_limits<int>::max();
    const int tiny = std::numeric_limits<int>::min();
    fill("ABC");
    for (const auto& [from, to] : std::vector<std::pair<int, int>>{
             {0, 3}, {3, 0}, {-1, 0}, {0, -1}, {huge, 0}, {0, huge}, {tiny, 0}, {0, tiny}, {huge, huge}}) {
        move(from, to);
        expectCycles("ABC", "ABC");
    }
    for (const auto& [from, to] : std::vector<std::pair<std::vector<int>, int>>{{{}, 0},
                                                                                {{0, 1}, 2},
                                                                                {{0, 1, 2}, 1},
                                                                                {{0, 1, 2, 0}, 0},
                                                                                {{0}, 3},
                                                                                {{0}, -1},
                                                                                {{1, 2}, huge},
                                                                                {{1}, tiny}}) {
        move(from, to);
        expectCycles("ABC", "ABC");
    }
    EXPECT_THAT(take(), testing::Each("->"));
}

TEST_F(VariantMove, ListedPositionsWithoutAVariantAreSkippedAndNotCounted)
{
    fill("ABCD");
    move(std::vector<int>{7, 3, -1}, 0);
    EXPECT_EQ(names(node), "DABC");
    EXPECT_THAT(take(), ElementsAre("3->0"));
    stack.undo();
    EXPECT_EQ(names(node), "ABCD");
}

TEST_F(VariantMove, APositionThatIsListedTwiceCountsOnce)
{
    fill("ABCD");
    move(std::vector<int>{2, 2, 3}, 0);
    expectCycles("ABCD", "CDAB");
}

TEST_F(VariantMove, OnANodeWithoutVariantsOrNoneAtAllDoesNothing)
{
    move(0, 0);
    EXPECT_EQ(names(node), "none");
    fill("");
    move(0, 0);
    expectCycles("", "");
    told.clear();
    stack.add(new moTransformVariantMoveCommand(osg::NullFC, 0, 0, nullptr, tell()));
    stack.add(new moTransformVariantMoveCommand(osg::NullFC, std::vector<int>{0}, 0, nullptr, tell()));
    stack.undo();
    EXPECT_THAT(told, IsEmpty());
}

TEST_F(VariantMove, AGapInTheListIsNoVariantToBeMoved)
{
    fill("AB");
    moNodeUtils::getTransformVariantsAttachment(node)->getMFVariants()->push_back(osg::NullFC);
    move(2, 0);
    EXPECT_EQ(moNodeUtils::getTransformVariantCount(node), 3U);
    EXPECT_EQ(moNodeUtils::getTransformVariant(node, 2), osg::NullFC);
    EXPECT_THAT(take(), ElementsAre("->"));
}

TEST_F(VariantMove, HoldsVariantsOnlyOnTheWay)
{
    fill("AB");
    const osg::TransformVariantPtr a = moNodeUtils::getTransformVariant(node, 0);
    const unsigned int id = idOf(a);
    move(0, 1);
    EXPECT_EQ(moNodeUtils::getTransformVariant(node, 1), a);
    EXPECT_EQ(idOf(moNodeUtils::getTransformVariant(node, 1)), id);
    EXPECT_EQ(a.getRefCount(), 1);
}

TEST_F(VariantMove, SkipsAVariantThatWasDestroyed)
{
    fill("ABC");
    move(std::vector<int>{0, 2}, 0);
    EXPECT_EQ(names(node), "ACB");
    moNodeUtils::removeTransformVariant(node, 1); // destroys C; D takes its place
    moNodeUtils::insertTransformVariant(node, 1, moTransformVariantUtils::recordTransformVariant(osg::NullFC, "D"));
    EXPECT_EQ(names(node), "ADB");
    stack.undo();
    EXPECT_EQ(names(node), "ADB");
    EXPECT_THAT(told, ElementsAre("02->01", "01->02"));
}

TEST_F(VariantMove, TakesItsOwnVariantsOutWhereverTheyStandAndNoOther)
{
    fill("ABC");
    move(0, 2);
    EXPECT_EQ(names(node), "BCA");
    moNodeUtils::insertTransformVariant(node, 0, moTransformVariantUtils::recordTransformVariant(osg::NullFC, "X"));
    stack.undo();
    EXPECT_EQ(names(node), "AXBC");
    moNodeUtils::removeTransformVariant(node, 1);
    stack.redo();
    EXPECT_EQ(names(node), "BCA");
    moNodeUtils::removeTransformVariant(node, 0);
    moNodeUtils::insertTransformVariant(node, 2, moTransformVariantUtils::recordTransformVariant(osg::NullFC, "X"));
    EXPECT_EQ(names(node), "CAX");
    for (int round = 0; round < 3; ++round) {
        stack.undo();
        EXPECT_EQ(names(node), "ACX");
        stack.redo();
        EXPECT_EQ(names(node), "CXA");
    }
}

TEST_F(VariantMove, PutsAVariantAtTheEndOfAListThatIsTooShortByNow)
{
    fill("ABCD");
    move(std::vector<int>{0, 1}, 2);
    EXPECT_EQ(names(node), "CDAB");
    moNodeUtils::removeTransformVariant(node, 0);
    stack.undo();
    EXPECT_EQ(names(node), "ABD");
    moNodeUtils::removeTransformVariant(node, 2);
    stack.redo();
    EXPECT_EQ(names(node), "AB");
    stack.undo();
    EXPECT_EQ(names(node), "AB");
}

TEST_F(VariantMove, OfAVariantThatIsListedTwiceLeavesItTwice)
{
    fill("AB");
    moNodeUtils::insertTransformVariant(node, 2, moNodeUtils::getTransformVariant(node, 0));
    EXPECT_EQ(names(node), "ABA");
    move(2, 0);
    expectCycles("ABA", "AAB");
    move(std::vector<int>{2, 0}, 1);
    expectCycles("ABA", "BAA");
}

TEST_F(VariantMove, DoesAndTellsNothingOnceItsNodeWasDestroyed)
{
    fill("AB");
    move(0, 1);
    take();
    destroy(node);
    stack.undo();
    stack.redo();
    EXPECT_THAT(told, IsEmpty());
}

TEST_F(VariantMove, NeverMergesAndThrowsWithoutACallbackAfterTheEdit)
{
    fill("ABC");
    move(0, 1);
    move(0, 1);
    EXPECT_EQ(stack.size(), 2);
    stack.clear();
    EXPECT_EQ(names(node), "ABC");
    EXPECT_THROW(stack.add(new moTransformVariantMoveCommand(node, 0, 2, nullptr, nullptr)), std::bad_function_call);
    EXPECT_EQ(names(node), "BCA");
    EXPECT_EQ(stack.size(), 1) << "the step stands";
    for (int round = 0; round < 3; ++round) {
        EXPECT_THROW(stack.undo(), std::bad_function_call);
        EXPECT_EQ(names(node), "ABC");
        EXPECT_THROW(stack.redo(), std::bad_function_call);
        EXPECT_EQ(names(node), "BCA");
    }
}
