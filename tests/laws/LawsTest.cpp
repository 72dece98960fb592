// The laws of undo: what holds for every command of the library.
//
// Each law is written once and runs for every class, through the table of samples in tests/support/Samples.cpp, which
// says how to make a command of the class on a new scene. A class without a row fails the first law. An intended
// exception of a class from a law stands in its row, with the reason; the law then asks for what the exception says.
//
// In this order: there is a row for each class (1); undo and redo (2); merging (3); references, and targets that are
// destroyed (4); changes that are announced to the scene (5); reports to the stack's listeners (6); the places where a
// command can be (7).

#include <laws/ExportedClasses.h>

#include <support/EditTrace.h>
#include <support/ProbeCommand.h>
#include <support/Samples.h>
#include <support/Trace.h>
#include <support/UndoTest.h>

#include <moUndoStack/core/moMultiCommand.h>
#include <moUtils/moMessage.h>

#include <OpenSG/OSGFieldContainerFactory.h>

#include <QtCore/QRegularExpression>

#include <algorithm>
#include <cctype>
#include <iterator>
#include <memory>
#include <set>
#include <sstream>

namespace {

using testing::Contains;
using testing::ElementsAreArray;
using testing::IsEmpty;
using testing::Not;

using Lines = std::vector<std::string>;

constexpr double interval = 0.5;
constexpr double tick = 1.0 / (1 << 20);

/// A law of every class: a new scene, and the commands of the row.
class EveryClass : public UndoTest, public testing::WithParamInterface<Sample>
{
protected:
    void SetUp() override
    {
        UndoTest::SetUp();
        startAnew();
    }

    void TearDown() override
    {
        moUndoStack::clearAll();
        scene.reset();
        UndoTest::TearDown();
    }

    /// Empties the stacks and makes a new scene.
    void startAnew()
    {
        moUndoStack::clearAll();
        scene.reset();
        scene = std::make_unique<SampleScene>();
        scene->target.mergeInterval = scene->other.mergeInterval = interval;
    }

    /// Makes the k-th command of a series on the target.
    moUndoCommandBase* make(int k) { return GetParam().make(scene->target, k); }

    void push(int k) { stack.addOrExecute(make(k)); }

    /// Runs the k-th command without recording it.
    void execute(SampleTarget& target, int k)
    {
        moUndoStack::beginBlockUndo();
        stack.addOrExecute(GetParam().make(target, k));
        moUndoStack::endBlockUndo();
    }

    bool isUndoable() const { return !GetParam().has(Exception::UndoDoesNothing); }
    bool merges() const { return GetParam().merging == Merging::InSeries; }
    std::string reason(Exception exception) const
    {
        const auto entry = GetParam().exceptions.find(exception);
        return entry == GetParam().exceptions.end() ? std::string() : entry->second;
    }

    /// Expects that undoing all steps gives the scene from before the first one, and that redoing them gives this one.
    void expectToGoBackTo(const Lines& before)
    {
        if (!isUndoable()) return;
        const Lines after = scene->digest();
        for (int round = 0; round < 2; ++round) {
            while (stack.canUndo())
                stack.undo();
            EXPECT_EQ(scene->digest(), before);
            while (stack.canRedo())
                stack.redo();
            EXPECT_EQ(scene->digest(), after);
        }
    }

    std::unique_ptr<SampleScene> scene;
};

// Some laws are about some of the classes.
class UndoableClass : public EveryClass
{
};
class NotUndoableClass : public EveryClass
{
};
class MergingClass : public EveryClass
{
};
class NeverMergingClass : public EveryClass
{
};
class ClassWithTarget : public EveryClass
{
};

template<class Predicate>
std::vector<Sample> samplesThat(Predicate predicate)
{
    std::vector<Sample> result;
    std::copy_if(samples().begin(), samples().end(), std::back_inserter(result), predicate);
    return result;
}

std::string nameOf(const testing::TestParamInfo<Sample>& info)
{
    std::string name = info.param.className + info.param.form;
    std::replace_if(
        name.begin(), name.end(), [](unsigned char c) { return !std::isalnum(c); }, '_');
    return name;
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Law, EveryClass,        testing::ValuesIn(samples()), nameOf);
INSTANTIATE_TEST_SUITE_P(Law, UndoableClass,     testing::ValuesIn(samplesThat([](const Sample& s) { return !s.has(Exception::UndoDoesNothing); })), nameOf);
INSTANTIATE_TEST_SUITE_P(Law, NotUndoableClass,  testing::ValuesIn(samplesThat([](const Sample& s) { return s.has(Exception::UndoDoesNothing); })), nameOf);
INSTANTIATE_TEST_SUITE_P(Law, MergingClass,      testing::ValuesIn(samplesThat([](const Sample& s) { return s.merging == Merging::InSeries; })), nameOf);
INSTANTIATE_TEST_SUITE_P(Law, NeverMergingClass, testing::ValuesIn(samplesThat([](const Sample& s) { return s.merging == Merging::Never; })), nameOf);
INSTANTIATE_TEST_SUITE_P(Law, ClassWithTarget,   testing::ValuesIn(samplesThat([](const Sample& s) { return !s.target.empty(); })), nameOf);
// clang-format on

// --- 1. Classes ------------------------------------------------------------------------------------------------------

TEST(EveryExportedClass, HasOneRowAndEveryRowIsAnExportedClass)
{
    std::multiset<std::string> rows;
    for (const Sample& sample : samples())
        if (sample.commandId && sample.form.empty()) rows.insert(sample.className);
    const std::set<std::string> exported = exportedCommandClasses();
    EXPECT_THAT(exported, Not(IsEmpty())) << "the library's symbols could not be read";
    EXPECT_THAT(rows, ElementsAreArray(exported));
}

TEST(EveryExportedClass, HasAPositiveIdThatNoOtherClassHas)
{
    std::set<int> ids;
    for (const Sample& sample : samples()) {
        if (!sample.commandId || !sample.form.empty()) continue;
        EXPECT_GT(sample.commandId(), 0) << sample;
        EXPECT_TRUE(ids.insert(sample.commandId()).second) << sample << " has the id of another class";
    }
}

TEST_P(EveryClass, GivesEachOfItsCommandsTheSameId)
{
    const std::unique_ptr<moUndoCommandBase> first(make(0));
    const std::unique_ptr<moUndoCommandBase> elsewhere(GetParam().make(scene->other, 1));
    const int id = GetParam().commandId ? GetParam().commandId() : -1;
    EXPECT_EQ(first->id(), id);
    EXPECT_EQ(elsewhere->id(), id);
}

// --- 2. Undo and redo ------------------------------------------------------------------------------------------------

TEST_P(EveryClass, ChangesNothingUntilItIsDone)
{
    const Lines before = scene->digest();
    const std::unique_ptr<moUndoCommandBase> command(make(0));
    EXPECT_EQ(scene->digest(), before);
}

TEST_P(UndoableClass, ReallyChangesTheScene)
{
    const Lines before = scene->digest();
    push(0);
    EXPECT_NE(scene->digest(), before);
}

TEST_P(UndoableClass, GivesBackTheWholeSceneOnUndoAndItsChangeOnRedo)
{
    const Lines before = scene->digest();
    push(0);
    const Lines after = scene->digest();
    stack.undo();
    EXPECT_EQ(scene->digest(), before);
    stack.redo();
    EXPECT_EQ(scene->digest(), after);
}

TEST_P(UndoableClass, IsTheSameAfterAHundredRounds)
{
    const Lines before = scene->digest();
    push(0);
    const Lines after = scene->digest();
    for (int round = 0; round < 100; ++round) {
        stack.undo();
        stack.redo();
    }
    EXPECT_EQ(scene->digest(), after);
    stack.undo();
    EXPECT_EQ(scene->digest(), before);
}

TEST_P(UndoableClass, GoesBackAndForthThroughAHistoryStepByStep)
{
    std::vector<Lines> states = {scene->digest()};
    for (int k = 0; k < 3; ++k) {
        clock.advance(1);
        push(k);
        states.push_back(scene->digest());
    }
    ASSERT_EQ(stack.size(), 3);
    for (int i = 2; i >= 0; --i) {
        stack.undo();
        EXPECT_EQ(scene->digest(), states[static_cast<std::size_t>(i)]) << "undo to " << i;
    }
    for (int i = 1; i <= 3; ++i) {
        stack.redo();
        EXPECT_EQ(scene->digest(), states[static_cast<std::size_t>(i)]) << "redo to " << i;
    }
}

TEST_P(NotUndoableClass, LeavesTheSceneAloneOnUndo)
{
    push(0);
    const Lines after = scene->digest();
    stack.undo();
    EXPECT_EQ(scene->digest(), after) << reason(Exception::UndoDoesNothing);
}

// --- 3. Merging ------------------------------------------------------------------------------------------------------

TEST_P(MergingClass, MakesOneStepOfASeriesThatUndoTakesBackToBeforeItsFirst)
{
    const Lines before = scene->digest();
    for (int k = 0; k < 3; ++k) {
        push(k);
        clock.advance(interval / 2);
    }
    ASSERT_EQ(stack.size(), 1);
    const Lines after = scene->digest();
    for (int round = 0; round < 2; ++round) {
        stack.undo();
        EXPECT_EQ(scene->digest(), before);
        stack.redo();
        EXPECT_EQ(scene->digest(), after);
    }
}

TEST_P(MergingClass, LeavesTheSceneAsWithoutMerging)
{
    SampleScene separate;
    for (int k = 0; k < 3; ++k) {
        push(k);
        execute(separate.target, k);
    }
    EXPECT_EQ(scene->digest(), separate.digest());
}

TEST_P(NeverMergingClass, KeepsTheStepsOfAFastSeriesApart)
{
    const Lines before = scene->digest();
    for (int k = 0; k < 3; ++k)
        push(k);
    EXPECT_EQ(stack.size(), 3);
    expectToGoBackTo(before);
}

TEST_P(EveryClass, DoesNotMergeWithACommandOnAnotherTarget)
{
    execute(scene->other, 0); // now both targets have the same values
    const Lines before = scene->digest();
    push(0);
    stack.addOrExecute(GetParam().make(scene->other, 1));
    const bool merged = GetParam().has(Exception::TargetsAreNotCompared);
    EXPECT_EQ(stack.size(), merged ? 1 : 2) << reason(Exception::TargetsAreNotCompared);
    if (!merged) expectToGoBackTo(before);
}

TEST_P(MergingClass, DoesNotMergeWithACommandOfAnotherKindThatHasItsId)
{
    moUndoCommandBase* const command = make(0);
    stack.addOrExecute(command);
    stack.addOrExecute((new ProbeCommand("stranger"))->withId(command->id()));
    EXPECT_EQ(stack.size(), 2);
}

TEST_P(MergingClass, MergesLessThanTheIntervalAfterTheStepBefore)
{
    const Lines before = scene->digest();
    push(0);
    clock.advance(interval);
    push(1);
    EXPECT_EQ(stack.size(), 2) << "not at the interval itself";
    clock.advance(interval - tick);
    push(2);
    EXPECT_EQ(stack.size(), 2) << "but just below it";
    clock.advance(interval - tick);
    push(3);
    EXPECT_EQ(stack.size(), 2) << "as long as one step follows the other, however far from the first";
    clock.advance(interval);
    push(3);
    EXPECT_EQ(stack.size(), 3);
    expectToGoBackTo(before);
}

TEST_P(MergingClass, MergesHoweverLateWithANegativeInterval)
{
    const Lines before = scene->digest();
    push(0);
    clock.advance(1e6);
    scene->target.mergeInterval = -1;
    push(1);
    EXPECT_EQ(stack.size(), 1);
    expectToGoBackTo(before);
}

TEST_P(MergingClass, TakesItsIntervalInSecondsHoweverLong)
{
    const Lines before = scene->digest();
    scene->target.mergeInterval = 100;
    push(0);
    clock.advance(100 - tick);
    push(1);
    EXPECT_EQ(stack.size(), 1);
    clock.advance(100);
    push(2);
    EXPECT_EQ(stack.size(), 2);
    expectToGoBackTo(before);
}

TEST_P(MergingClass, AsksTheNewerCommandWhetherMergingIsEnabled)
{
    const bool olderDecides = GetParam().has(Exception::OlderDecidesMerging);
    for (const bool disableOlder : {false, true}) {
        startAnew();
        const Lines before = scene->digest();
        moUndoCommandBase* const older = make(0);
        setMergingEnabled(*older, !disableOlder);
        stack.addOrExecute(older);
        moUndoCommandBase* const newer = make(1);
        setMergingEnabled(*newer, disableOlder);
        stack.addOrExecute(newer);
        EXPECT_EQ(stack.size(), disableOlder == olderDecides ? 2 : 1)
            << (disableOlder ? "disabled in the older" : "disabled in the newer") << ' '
            << reason(Exception::OlderDecidesMerging);
        expectToGoBackTo(before);
    }
}

TEST_P(MergingClass, DoesNotMergeAfterAnUndoWithWhatWasUndone)
{
    push(0);
    stack.undo();
    const Lines before = scene->digest();
    push(1);
    EXPECT_EQ(stack.size(), 1);
    stack.undo();
    EXPECT_EQ(scene->digest(), before);
    EXPECT_FALSE(stack.canUndo());
}

// --- 4. Containers ---------------------------------------------------------------------------------------------------

TEST_P(UndoableClass, HoldsTheSameAfterEachRound)
{
    push(0);
    const Lines done = scene->references();
    const std::size_t doneCount = liveContainerCount();
    stack.undo();
    const Lines undone = scene->references();
    const std::size_t undoneCount = liveContainerCount();
    for (int round = 0; round < 10; ++round) {
        stack.redo();
        EXPECT_EQ(scene->references(), done);
        EXPECT_EQ(liveContainerCount(), doneCount);
        stack.undo();
        EXPECT_EQ(scene->references(), undone);
        EXPECT_EQ(liveContainerCount(), undoneCount);
    }
}

TEST_P(EveryClass, HoldsNothingMoreWhenItGoesWithoutHavingBeenDone)
{
    const Lines before = scene->references();
    const std::size_t count = liveContainerCount();
    delete make(0);
    EXPECT_EQ(scene->references(), before);
    EXPECT_EQ(liveContainerCount(), count);
}

TEST_P(UndoableClass, HoldsNothingMoreWhenItGoesAfterUndo)
{
    const Lines before = scene->references();
    const std::size_t count = liveContainerCount();

    push(0);
    stack.undo();
    stack.clear();
    EXPECT_EQ(scene->references(), before) << "cleared";
    EXPECT_EQ(liveContainerCount(), count) << "cleared";

    push(0);
    stack.undo();
    push(1); // deletes the undone command
    stack.undo();
    stack.clear();
    EXPECT_EQ(scene->references(), before) << "replaced";
    EXPECT_EQ(liveContainerCount(), count) << "replaced";

    push(0);
    push(1); // may be merged
    while (stack.canUndo())
        stack.undo();
    stack.clear();
    EXPECT_EQ(scene->references(), before) << "merged";
    EXPECT_EQ(liveContainerCount(), count) << "merged";
}

TEST_P(EveryClass, LeavesWhatItsEditAloneLeavesWhenItGoes)
{
    const std::size_t count = liveContainerCount();
    execute(scene->target, 0);
    const Lines executed = scene->digest();
    const Lines references = scene->references();
    const std::size_t executedCount = liveContainerCount();

    startAnew();
    ASSERT_EQ(liveContainerCount(), count);
    push(0);
    if (isUndoable()) {
        stack.undo();
        stack.redo();
    }
    stack.clear();
    EXPECT_EQ(scene->digest(), executed);
    EXPECT_EQ(scene->references(), references);
    EXPECT_EQ(liveContainerCount(), executedCount);
}

/// When in the life of a command its target is destroyed.
enum class Moment
{
    BeforeTheFirstRedo,
    BetweenRedoAndUndo,
    BetweenUndoAndRedo
};

class CommandWhoseTargetGoes : public EveryClass
{
protected:
    /// Runs a command up to the moment, destroys the containers of the roles, and runs its other steps.
    void run(Moment moment, const Lines& roles)
    {
        startAnew();
        moUndoCommandBase* const command = make(0);
        if (moment != Moment::BeforeTheFirstRedo) stack.addOrExecute(command);
        if (moment == Moment::BetweenUndoAndRedo) stack.undo();
        for (const std::string& role : roles)
            scene->target.destroy(role);
        const Lines rest = scene->digest();
        const bool all = roles.size() > otherRoles().size();
        const auto expectNoChange = [&](const char* step) {
            if (all) {
                EXPECT_EQ(scene->digest(), rest) << step;
            }
        };

        if (moment == Moment::BeforeTheFirstRedo) stack.addOrExecute(command);
        expectNoChange("first redo");
        for (int round = 0; round < 3; ++round) {
            stack.undo();
            expectNoChange("undo");
            stack.redo();
            expectNoChange("redo");
        }
    }

    Lines otherRoles() const
    {
        std::istringstream words(GetParam().others);
        return {std::istream_iterator<std::string>(words), std::istream_iterator<std::string>()};
    }
};
INSTANTIATE_TEST_SUITE_P(Law, CommandWhoseTargetGoes,
                         testing::ValuesIn(samplesThat([](const Sample& s) { return !s.target.empty(); })), nameOf);

TEST_P(CommandWhoseTargetGoes, DoesNothingFromThenOn)
{
    Lines all = otherRoles();
    all.push_back(GetParam().target);
    for (const Moment moment : {Moment::BeforeTheFirstRedo, Moment::BetweenRedoAndUndo, Moment::BetweenUndoAndRedo}) {
        SCOPED_TRACE("moment " + std::to_string(static_cast<int>(moment)));
        run(moment, all);
    }
}

TEST_P(CommandWhoseTargetGoes, DoesNoHarmWhenOnlySomeOfWhatItNeedsGoes)
{
    Lines roles = otherRoles();
    roles.push_back(GetParam().target);
    for (const std::string& role : roles)
        for (const Moment moment : {Moment::BeforeTheFirstRedo, Moment::BetweenRedoAndUndo, Moment::BetweenUndoAndRedo})
            run(moment, {role});
    EXPECT_EQ(stack.size(), 1);
    moUndoStack::clearAll();
    EXPECT_TRUE(stack.isEmpty());
}

TEST_P(ClassWithTarget, DoesNotKeepItsTargetAlive)
{
    const osg::UInt32 id = scene->target.container(GetParam().target).getFieldContainerId();
    const auto isAlive = [id] { return osg::FieldContainerFactory::the()->getContainer(id) != osg::NullFC; };
    // A target on which others of the scene hold a reference is destroyed with them.
    push(0);
    stack.undo();
    for (const std::string& role : scene->target.roles())
        scene->target.destroy(role);
    EXPECT_EQ(isAlive(), GetParam().has(Exception::HoldsTarget)) << reason(Exception::HoldsTarget);
    stack.clear();
    EXPECT_FALSE(isAlive());
}

// --- 5. Changes that are announced -----------------------------------------------------------------------------------

TEST_P(EveryClass, AnnouncesItsEditsWithTheDocumentedFieldsAndOrigin)
{
    EditTrace edits;
    scene->nameIn(edits);
    push(0);
    EXPECT_THAT(edits.take(), ElementsAreArray(GetParam().edits));
    stack.undo();
    EXPECT_THAT(edits.take(), ElementsAreArray(GetParam().undoEdits));
    stack.redo();
    EXPECT_THAT(edits.take(), ElementsAreArray(GetParam().edits));
}

TEST_P(EveryClass, WritesAnewAndAnnouncesWhatIsSoAlready)
{
    // Two equal commands made for the same state: after the first, the scene has the second one's values already.
    moUndoCommandBase* const before = make(0);
    moUndoCommandBase* const alike = make(0);
    setMergingEnabled(*before, false);
    setMergingEnabled(*alike, false);
    stack.addOrExecute(before);
    EditTrace edits;
    scene->nameIn(edits);
    Trace trace(stack);
    stack.addOrExecute(alike);
    EXPECT_EQ(stack.size(), 2);
    EXPECT_THAT(edits.take(), ElementsAreArray(GetParam().againEdits));
    EXPECT_EQ(trace.take().size(), 2U) << "the signal and the message";
}

TEST_P(EveryClass, AnnouncesEveryFieldThatItWrites)
{
    // Compares two sets of "container.field": the lines that differ, and the fields that were announced.
    std::set<std::string> names;
    for (const auto& entry : scene->target.named())
        names.insert(entry.first);
    // A transform computes these from its other fields when they change.
    const std::set<std::string> derived = {"matrix", "rotation", "eulerRotation"};
    const auto written = [&names, &derived](const Lines& before, const Lines& after) {
        std::set<std::string> fields;
        for (const std::string& line : after) {
            const std::string field = line.substr(0, line.find(" = "));
            const auto dot = static_cast<std::ptrdiff_t>(std::min(field.rfind('.'), field.size() - 1));
            const bool isNamed = names.count(std::string(field.begin(), field.begin() + dot)) > 0;
            if (!isNamed || derived.count(std::string(field.begin() + dot + 1, field.end())) > 0) continue;
            if (std::find(before.begin(), before.end(), line) == before.end()) fields.insert(field);
        }
        return fields;
    };
    const auto announced = [](const Lines& trace) {
        std::set<std::string> fields;
        for (const std::string& line : trace) { // container fields origin
            const std::size_t origin = line.rfind(' ');
            const std::size_t list = line.rfind(' ', origin - 1);
            std::istringstream words(line.substr(list + 1, origin - list - 1));
            for (std::string field; std::getline(words, field, '|');)
                fields.insert(line.substr(0, list) + '.' + field);
        }
        return fields;
    };

    EditTrace edits;
    scene->nameIn(edits);
    std::set<std::string> missing;
    const auto check = [&](const Lines& before) {
        const auto fields = written(before, scene->digest());
        auto told = announced(edits.take());
        if (told.count("effect.everything") > 0) told = fields;
        std::set_difference(fields.begin(), fields.end(), told.begin(), told.end(),
                            std::inserter(missing, missing.end()));
    };

    Lines before = scene->digest();
    push(0);
    check(before);
    before = scene->digest();
    stack.undo();
    check(before);
    if (GetParam().has(Exception::AnnouncesOtherFields))
        EXPECT_THAT(missing, Not(IsEmpty())) << reason(Exception::AnnouncesOtherFields);
    else
        EXPECT_THAT(missing, IsEmpty());
}

// --- 6. Reports ------------------------------------------------------------------------------------------------------

Lines replaceAll(Lines lines, const std::string& what, const std::string& with)
{
    for (std::string& line : lines)
        for (std::size_t at = line.find(what); at != std::string::npos; at = line.find(what, at + with.size()))
            line.replace(at, what.size(), with);
    return lines;
}

TEST_P(EveryClass, TellsOfARedoAsOfTheFirstTimeSaveForAddedAndOfAnUndoInItsWords)
{
    Trace trace(stack);
    stack.addOrExecute(trace.watch(make(0), "command"));
    const Lines first = trace.take();
    ASSERT_EQ(first.size(), 3U);
    EXPECT_THAT(first[0], testing::MatchesRegex("signal redo \".*\" added"));
    EXPECT_THAT(first[1], testing::StartsWith("message moURManager::redo index=int:0 added=bool:true text="));
    EXPECT_EQ(first[2], "changed \"command\" true");

    const Lines again = replaceAll(replaceAll(first, "\" added", "\""), "added=bool:true", "added=bool:false");
    const Lines back = replaceAll(replaceAll(replaceAll(again, "signal redo", "signal undo"), "::redo", "::undo"),
                                  "\"command\" true", "\"command\" false");
    for (int round = 0; round < 2; ++round) {
        stack.undo();
        EXPECT_EQ(trace.take(), back);
        stack.redo();
        EXPECT_EQ(trace.take(), again);
    }
}

TEST_P(MergingClass, TellsOfAMergeAsOfAFirstTime)
{
    Trace trace(stack);
    stack.addOrExecute(trace.watch(make(0), "command"));
    const Lines first = trace.take();
    push(1);
    EXPECT_EQ(trace.take(), first);
}

TEST_P(EveryClass, DescribesItselfWithTheDocumentedKeysInTheirOrderAndOfTheirTypes)
{
    std::string expected = "index=int added=bool text=string description=string id=int";
    if (!GetParam().messageKeys.empty()) expected += ' ' + GetParam().messageKeys;

    Trace trace(stack);
    push(0);
    stack.undo();
    const Lines messages = trace.takeMessages();
    ASSERT_EQ(messages.size(), 2U);
    for (const std::string& message : messages) {
        static const QRegularExpression pattern(QStringLiteral("([A-Za-z]+=[a-z]+):"));
        QStringList keys;
        for (auto match = pattern.globalMatch(QString::fromStdString(message)); match.hasNext();)
            keys.append(match.next().captured(1));
        EXPECT_EQ(keys.join(' ').toStdString(), expected) << message;
    }
}

TEST_P(EveryClass, DescribesItselfWhateverTheMessageHeldBefore)
{
    const std::unique_ptr<moUndoCommandBase> command(make(0));
    moMessage fresh;
    command->makeMessage(fresh);
    moMessage used;
    for (const auto& [key, value] : fresh.entries())
        used.set(key, std::string("of somebody else"));
    command->makeMessage(used);
    EXPECT_EQ(describe(used), describe(fresh));
}

// --- 7. Places -------------------------------------------------------------------------------------------------------

/// The first command of a series does the same in every place.
class EveryPlace : public EveryClass
{
protected:
    void SetUp() override
    {
        EveryClass::SetUp();
        before = scene->digest();
        push(0);
        after = scene->digest();
        startAnew();
    }

    /// Expects one step on the stack whose redo and undo do the same as those of the command alone.
    void expectOneStep(moUndoStack& on)
    {
        EXPECT_EQ(on.size(), 1);
        EXPECT_EQ(scene->digest(), after);
        for (int round = 0; round < 2 && isUndoable(); ++round) {
            on.undo();
            EXPECT_EQ(scene->digest(), before);
            on.redo();
            EXPECT_EQ(scene->digest(), after);
        }
    }

    Lines before;
    Lines after;
};
INSTANTIATE_TEST_SUITE_P(Law, EveryPlace, testing::ValuesIn(samples()), nameOf);

TEST_P(EveryPlace, InAComposite)
{
    stack.beginMultiCommand("composite", "", true);
    push(0);
    EXPECT_EQ(scene->digest(), before) << "its time comes at the end of the composition";
    stack.endMultiCommand();
    expectOneStep(stack);
}

TEST_P(EveryPlace, InACompositeInAComposite)
{
    stack.beginMultiCommand("outer", "", true);
    stack.beginMultiCommand("inner", "", true);
    push(0);
    stack.endMultiCommand();
    stack.endMultiCommand();
    expectOneStep(stack);
}

TEST_P(EveryPlace, InAMacro)
{
    stack.beginMacro("macro");
    push(0);
    stack.endMacro();
    expectOneStep(stack);
}

TEST_P(EveryPlace, OnTheSecondStack)
{
    stack.addOrExecute(new ProbeCommand("of the first stack"));
    const std::string first = describe(stack);
    Trace trace(stack);
    second.addOrExecute(make(0));
    expectOneStep(second);
    EXPECT_EQ(describe(stack), first);
    EXPECT_THAT(trace.take(), IsEmpty()) << "what happens on the other one is not told";
}

TEST_P(EveryPlace, OnTheFirstStackWhileTheSecondHasStepsOfItsOwn)
{
    second.addOrExecute(new ProbeCommand("of the second stack"));
    second.addOrExecute(new ProbeCommand("undone"));
    second.undo();
    const std::string other = describe(second);
    Trace trace(second);
    push(0);
    expectOneStep(stack);
    EXPECT_EQ(describe(second), other);
    EXPECT_THAT(trace.take(), IsEmpty());
}

TEST_P(EveryPlace, OnNoStackWhileRecordingIsOff)
{
    execute(scene->target, 0);
    EXPECT_TRUE(stack.isEmpty());
    EXPECT_EQ(scene->digest(), after);
}

} // namespace
