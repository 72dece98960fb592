#include "TestModel.h"

#include <editsession/Session.h>
#include <scene/ModelLoader.h>
#include <scene/SceneDigest.h>
#include <support/UndoTest.h>

#include <moUndoStack/moUndoCommands.h>

#include <moOpenSGUtils/moNodeUtils.h>

#include <OpenSG/OSGImage.h>
#include <OpenSG/OSGSimpleAttachments.h>

#include <stdexcept>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<std::string> failures(const Report& report)
{
    std::vector<std::string> result;
    for (const Report::Check& check : report.checks) {
        if (!check.passed) result.push_back(check.what.toStdString());
    }
    return result;
}

void move(Context& context, float x)
{
    auto* command =
        new moTranslationUndoCommand(context.model.nodes[0], osg::Vec3f(x, 0.f, 0.f), false, false, nullptr, {}, -1);
    context.stack.addOrExecute(command);
}

void nothing(Context&) {}
void twoMoves(Context& context)
{
    move(context, 1.f);
    move(context, 2.f);
}
void unrecordedName(Context& context)
{
    moUndoStack::beginBlockUndo();
    context.stack.addOrExecute(new moGenericFunctionUndoCommand(
        moUndoString("Name", ""), [] {}, [node = context.model.nodes[0]] { osg::setName(node, "changed"); }, nullptr));
    moUndoStack::endBlockUndo();
}
void moveTakenBack(Context& context)
{
    move(context, 5.f);
    context.stack.undo();
}
void moveThenThrow(Context& context)
{
    move(context, 6.f);
    throw std::runtime_error("broken");
}
void counts(Context& context)
{
    const auto count = [node = context.model.nodes[0], calls = 0]() mutable {
        osg::setName(node, std::to_string(++calls));
    };
    context.stack.addOrExecute(new moGenericFunctionUndoCommand(
        moUndoString("Count", ""), [] {}, count, nullptr));
}
/// Undo and redo miss what was there by a little, as the way to the world may.
void drift(Context& context)
{
    const auto move = [node = context.model.nodes[0]](float x) {
        moNodeUtils::setTransformNodeTranslation(node, x, 0.f, 0.f, false, -1);
    };
    context.stack.addOrExecute(new moGenericFunctionUndoCommand(
        moUndoString("Drift", ""), [move] { move(1.000004f); },
        [move, x = 2.f]() mutable {
            move(x);
            x = 2.000004f;
        },
        nullptr));
}
void placeFirst(Model& model)
{
    moNodeUtils::setTransformNodeTranslation(model.nodes[0], 1.f, 0.f, 0.f, false, -1);
}
void addImage(Model& model)
{
    model.containers.emplace_back(osg::Image::create());
}

class Session : public UndoTest
{
protected:
    Report run(const std::vector<Chapter>& table) { return runSession(model, table); }

    void SetUp() override
    {
        UndoTest::SetUp();
        model = loadModel(files.write("node.gltf", gltf(R"({"name": "root", "children": [1]}, {"name": "child"})")));
    }

    void TearDown() override
    {
        model = Model();
        UndoTest::TearDown();
    }

    ModelFiles files;
    Model model;
};

TEST_F(Session, OfChaptersThatRecordWhatTheyDoPasses)
{
    const Report report = run({{"first", nullptr, twoMoves}, {"second", nullptr, twoMoves}});
    EXPECT_THAT(failures(report), IsEmpty());
    EXPECT_EQ(report.digestAfterUndoAll, report.digestAfterLoad);
    EXPECT_EQ(report.digestAfterRedoAll, report.digestAfterEdits);
    EXPECT_NE(report.digestAfterEdits, report.digestAfterLoad);
    EXPECT_EQ(report.digestAfterRedoAll, sceneDigest(model));
    EXPECT_EQ(report.nodeCount, 2U);
}

TEST_F(Session, ListsTheHistoryFromTheFirstStepToTheLast)
{
    const Report report = run({{"moves", nullptr, twoMoves}, {"count", nullptr, counts}});
    std::vector<std::string> texts;
    for (const Report::Step& step : report.history)
        texts.push_back(step.text.toStdString() + " / " + step.description.toStdString());
    EXPECT_THAT(texts, ElementsAre("Translate 'root' / Translate", "Translate 'root' / Translate", "Count / Count"));
}

TEST_F(Session, RecordsEveryMessageWithThePhaseInWhichItCame)
{
    const Report report = run({{"moves", nullptr, twoMoves}});
    std::vector<std::string> lines;
    for (const Report::Message& message : report.messages) {
        lines.push_back(message.phase.toStdString() + ": " + message.name.toStdString() + " " +
                        std::to_string(message.entries.at(0).value.toInt()));
    }
    EXPECT_THAT(lines, ElementsAre("moves: moURManager::redo 0", "moves: moURManager::redo 1",
                                   "undo to the start: moURManager::undo 1", "undo to the start: moURManager::undo 0",
                                   "redo to the end: moURManager::redo 0", "redo to the end: moURManager::redo 1"));
    std::vector<std::string> keys;
    for (const Report::Entry& entry : report.messages[0].entries)
        keys.push_back(entry.key.toStdString());
    EXPECT_THAT(keys, ElementsAre("index", "added", "text", "description", "id", "node", "transformCommand"));
}

TEST_F(Session, FailsForAnEditThatWasNotRecorded)
{
    EXPECT_THAT(failures(run({{"moves", nullptr, twoMoves}, {"name", nullptr, unrecordedName}})),
                ElementsAre("name: undo gives back the scene from before it",
                            "moves: undo gives back the scene from before it",
                            "undo-all gives back the scene after load"));
}

TEST_F(Session, FailsForARedoThatDoesSomethingElseThanTheFirstTime)
{
    EXPECT_THAT(failures(run({{"count", nullptr, counts}})),
                ElementsAre("count: undo gives back the scene from before it",
                            "undo-all gives back the scene after load",
                            "redo-all gives back the scene after the edits"));
}

TEST_F(Session, FailsForAChapterThatLeavesSomethingToRedo)
{
    EXPECT_THAT(failures(run({{"moves", nullptr, twoMoves}, {"back", nullptr, moveTakenBack}})),
                testing::Contains("back: recorded all of its edits"));
}

TEST_F(Session, SaysHowManyValuesDifferByRounding)
{
    const Report report = run({{"drift", placeFirst, drift}});
    EXPECT_THAT(failures(report), IsEmpty());
    std::vector<std::size_t> rounded;
    for (const Report::Check& check : report.checks)
        rounded.push_back(check.rounded);
    EXPECT_THAT(rounded, ElementsAre(0U, 2U, 0U, 2U, 2U));
    EXPECT_NE(report.digestAfterUndoAll, report.digestAfterLoad);
}

/// Interrupts a session at its n-th step.
class InterruptedSession : public Session
{
protected:
    /// The phase it was interrupted in, null if it came to its end.
    QString interruptAt(int step, Report& report)
    {
        Progress progress({}, [&step] { return step-- == 0; });
        report = runSession(model, {{"moves", nullptr, twoMoves}, {"names", nullptr, twoMoves}}, progress);
        return report.interruptedIn;
    }
};

TEST_F(InterruptedSession, EndsCleanlyWhereverItIsInterrupted)
{
    const QByteArray loaded = sceneDigest(model);
    std::vector<std::string> phases;
    for (int step = 0;; ++step) {
        Report report;
        const QString phase = interruptAt(step, report);
        EXPECT_EQ(describe(stack), "0 steps, at start, no undo, no redo");
        // The fixture records, too: without its part, nothing does.
        moUndoStack::endUndo();
        EXPECT_FALSE(moUndoStack::undoEnabled());
        moUndoStack::beginUndo();
        if (phase.isNull()) break;
        EXPECT_EQ(sceneDigest(model), loaded);
        EXPECT_TRUE(failures(report).empty());
        if (phases.empty() || phases.back() != phase.toStdString()) phases.push_back(phase.toStdString());
    }
    EXPECT_THAT(phases,
                ElementsAre("prepare", "moves (1 of 2)", "names (2 of 2)", "undo to the start", "redo to the end"));
}

TEST_F(InterruptedSession, TellsWhatWasDoneSoFar)
{
    std::size_t steps = 0;
    for (int step = 0;; ++step) {
        Report report;
        const QString phase = interruptAt(step, report);
        if (phase.isNull()) break;
        EXPECT_GE(report.history.size(), steps);
        steps = report.history.size();
        if (phase == QStringLiteral("prepare")) {
            EXPECT_EQ(steps, 0U);
        }
        if (phase == QStringLiteral("names (2 of 2)")) {
            EXPECT_GE(steps, 2U);
            EXPECT_FALSE(report.digestAfterLoad.isEmpty());
            EXPECT_GE(report.checks.size(), 1U);
        }
        if (phase == QStringLiteral("redo to the end")) {
            EXPECT_EQ(steps, 4U);
        }
    }
    EXPECT_EQ(steps, 4U);
}

TEST_F(Session, SaysWhichChapterItIsInAndHowFar)
{
    std::string written;
    Progress progress([&written](const QByteArray& text) { written += text.toStdString(); });
    runSession(model, {{"moves", nullptr, twoMoves}, {"again", nullptr, twoMoves}}, progress);
    EXPECT_THAT(written, testing::HasSubstr("moves (1 of 2): reading the scene"));
    EXPECT_THAT(written, testing::HasSubstr("again (2 of 2): editing"));
    EXPECT_THAT(written, testing::HasSubstr("undo to the start: undoing, 75 %"));
    EXPECT_THAT(written, testing::HasSubstr("redo to the end: redoing, 50 %"));
}

TEST_F(Session, FailsIfNothingWasEdited)
{
    EXPECT_THAT(failures(run({{"nothing", nullptr, nothing}})), ElementsAre("the edits changed the scene"));
}

TEST_F(Session, CountsWhatChaptersPrepareToTheLoadedScene)
{
    const QByteArray loaded = sceneDigest(model);
    const Report report = run({{"moves", addImage, twoMoves}});
    EXPECT_THAT(failures(report), IsEmpty());
    EXPECT_NE(report.digestAfterLoad, loaded);
}

TEST_F(Session, LeavesTheStackAsItWas)
{
    run({{"moves", nullptr, twoMoves}});
    EXPECT_EQ(describe(stack), "0 steps, at start, no undo, no redo");
    moUndoStack::endUndo();
    EXPECT_FALSE(moUndoStack::undoEnabled());
    moUndoStack::beginUndo();
}

TEST_F(Session, ThatBreaksOffLeavesTheStackAsItWas)
{
    EXPECT_THROW(run({{"moves", nullptr, moveThenThrow}}), std::runtime_error);
    EXPECT_EQ(describe(stack), "0 steps, at start, no undo, no redo");
    moUndoStack::endUndo();
    EXPECT_FALSE(moUndoStack::undoEnabled());
    moUndoStack::beginUndo();
}

} // namespace
