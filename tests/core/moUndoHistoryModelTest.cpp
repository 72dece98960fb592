#include <core/HistoryMirror.h>
#include <support/ContextTranslator.h>
#include <support/ProbeCommand.h>
#include <support/UndoTest.h>

#include <moUndoStack/core/moMultiCommand.h>
#include <moUndoStack/core/moUndoHistoryModel.h>
#include <moUndoStack/core/moUndoScopes.h>

#include <QtCore/QCoreApplication>
#include <QtGui/QFont>
#include <QtGui/QPalette>
#include <QtTest/QAbstractItemModelTester>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QListView>
#include <QtWidgets/QTreeView>

#include <memory>
#include <random>
#include <stdexcept>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class HistoryModel : public UndoTest
{
protected:
    /// What a view shows; after each call what the signals told must be the same.
    std::vector<std::string> rows()
    {
        EXPECT_EQ(mirror.rows(), HistoryMirror::read(*model)) << "told by signals, and asked for";
        EXPECT_EQ(mirror.faults(), std::vector<std::string>());
        return HistoryMirror::read(*model);
    }

    void add(const std::string& text) { stack.add(new ProbeCommand(text)); }

    /// A step that merges with the one before.
    void drag(const std::string& text)
    {
        auto* command = new ProbeCommand(text);
        stack.add(command->withId(7)->onMerge([command](const QUndoCommand* newer) {
            command->setText(newer->text());
            return true;
        }));
    }

    /// A step that takes over as many children as a newer one has, and merges with it.
    void step(int children)
    {
        auto* command = new ProbeCommand("step");
        for (int i = 0; i < children; ++i)
            new ProbeCommand("child", command);
        stack.add(command->withId(7)->onMerge([command](const QUndoCommand* newer) {
            for (int i = 0; i < newer->childCount(); ++i)
                new ProbeCommand("more", command);
            return true;
        }));
    }

    void compose(const std::string& text, const std::vector<std::string>& children)
    {
        const moCompositionScope composition(stack, QString::fromStdString(text));
        for (const std::string& child : children)
            new ProbeCommand(child, moUndoStack::getCurrentCommandParent());
    }

    QModelIndex row(int number) const { return model->index(number, 0); }

    std::unique_ptr<moUndoHistoryModel> model = std::make_unique<moUndoHistoryModel>(stack);
    std::unique_ptr<QAbstractItemModelTester> tester =
        std::make_unique<QAbstractItemModelTester>(model.get(), QAbstractItemModelTester::FailureReportingMode::Fatal);
    HistoryMirror mirror{*model};
    QObject context;
};

using HistoryModelView = HistoryModel;

// --- rows -----------------------------------------------------------------------------------------------------------

TEST_F(HistoryModel, HasARowForTheStartAndOneForEachStep)
{
    EXPECT_THAT(rows(), ElementsAre("<empty> clean"));
    add("a");
    add("b");
    EXPECT_THAT(rows(), ElementsAre("<empty> clean", "a", "b"));
    EXPECT_EQ(model->currentIndex(), row(2));
    EXPECT_EQ(model->columnCount(), 1);
}

TEST_F(HistoryModel, MadeLateShowsWhatThereIs)
{
    add("a");
    add("b");
    stack.setClean();
    add("c");
    stack.undo();
    stack.undo();
    EXPECT_THAT(HistoryMirror::read(moUndoHistoryModel(stack)),
                ElementsAre("<empty>", "a", "b clean undone", "c undone"));
}

TEST_F(HistoryModel, IsThatOfItsOwnStack)
{
    second.add(new ProbeCommand("a"));
    EXPECT_THAT(rows(), ElementsAre("<empty> clean"));
}

TEST_F(HistoryModel, SaysWhichStepsAreUndone)
{
    for (const char* text : {"a", "b", "c"})
        add(text);
    stack.undo();
    EXPECT_THAT(rows(), ElementsAre("<empty> clean", "a", "b", "c undone"));
    stack.setIndex(0);
    EXPECT_THAT(rows(), ElementsAre("<empty> clean", "a undone", "b undone", "c undone"));
    EXPECT_EQ(model->currentIndex(), row(0));
    stack.redo();
    EXPECT_THAT(rows(), ElementsAre("<empty> clean", "a", "b undone", "c undone"));
}

TEST_F(HistoryModel, RemovesTheUndoneStepsThatAPushDeletes)
{
    for (const char* text : {"a", "b", "c"})
        add(text);
    stack.setIndex(1);
    add("d");
    EXPECT_THAT(rows(), ElementsAre("<empty> clean", "a", "d"));
    stack.clear();
    EXPECT_THAT(rows(), ElementsAre("<empty> clean"));
}

TEST_F(HistoryModel, RemovesTheOldestStepsThatTheLimitDeletesAndKeepsTheIndexesOfTheOthers)
{
    stack.setUndoLimit(2);
    add("a");
    stack.setClean();
    add("b");
    const QPersistentModelIndex stepB = row(2);
    add("c");
    EXPECT_THAT(rows(), ElementsAre("<empty> clean", "b", "c"));
    EXPECT_EQ(stepB, row(1));
    add("d");
    EXPECT_THAT(rows(), ElementsAre("<empty>", "c", "d"));
    EXPECT_FALSE(stepB.isValid());
}

TEST_F(HistoryModel, ShowsTheTextOfAMergedStep)
{
    drag("from here");
    drag("to there");
    EXPECT_THAT(rows(), ElementsAre("<empty> clean", "to there"));
}

TEST_F(HistoryModel, DoesNotChangeWhenACommandCouldNotBePushed)
{
    add("a");
    EXPECT_THROW(stack.add((new ProbeCommand("b"))->onRedo([] { throw std::runtime_error("redo"); })),
                 std::runtime_error);
    EXPECT_THAT(rows(), ElementsAre("<empty> clean", "a"));
}

TEST_F(HistoryModel, ShowsAMacroFromItsEndOnWithItsChildren)
{
    add("a");
    add("b");
    stack.undo();
    stack.beginMacro("macro");
    EXPECT_THAT(rows(), ElementsAre("<empty> clean", "a"));
    add("c");
    stack.beginMacro("inner");
    add("d");
    stack.endMacro();
    EXPECT_THAT(rows(), ElementsAre("<empty> clean", "a"));
    EXPECT_THAT(HistoryMirror::read(moUndoHistoryModel(stack)), ElementsAre("<empty> clean", "a"));
    stack.endMacro();
    EXPECT_THAT(rows(), ElementsAre("<empty> clean", "a", "macro", "  c", "  inner", "    d"));
}

TEST_F(HistoryModel, ShowsTheChildrenOfCompositesButNoCancelledOnes)
{
    {
        const moCompositionScope outer(stack, "outer");
        new ProbeCommand("a", moUndoStack::getCurrentCommandParent());
        {
            moCompositionScope dropped(stack, "dropped");
            new ProbeCommand("b", moUndoStack::getCurrentCommandParent());
            dropped.cancel();
        }
        compose("inner", {"c", "d"});
    }
    const std::vector<std::string> all{"<empty> clean", "outer", "  a", "  inner", "    c", "    d"};
    EXPECT_EQ(rows(), all);
    EXPECT_EQ(model->parent(model->index(1, 0, row(1))), row(1));
    stack.undo();
    EXPECT_THAT(rows(), ElementsAre("<empty> clean", "outer undone", "  a undone", "  inner undone", "    c undone",
                                    "    d undone"));
}

TEST_F(HistoryModel, TellsOfTheChildrenThatAMergeAdds)
{
    step(0);
    EXPECT_THAT(rows(), ElementsAre("<empty> clean", "step"));
    step(1);
    EXPECT_THAT(rows(), ElementsAre("<empty> clean", "step", "  more"));
    step(2);
    EXPECT_THAT(rows(), ElementsAre("<empty> clean", "step", "  more", "  more", "  more"));
}

TEST_F(HistoryModel, TellsOfTheChildrenThatAMergeAddsWhenItAlsoDeletesUndoneSteps)
{
    step(0);
    add("b");
    stack.undo();
    QObject::connect(model.get(), &QAbstractItemModel::rowsAboutToBeRemoved, &context,
                     [this] { HistoryMirror::read(*model); });
    step(1);
    EXPECT_THAT(rows(), ElementsAre("<empty> clean", "step", "  more"));
}

TEST_F(HistoryModel, MarksTheCleanState)
{
    add("a");
    add("b");
    stack.setClean();
    EXPECT_THAT(rows(), ElementsAre("<empty>", "a", "b clean"));
    EXPECT_TRUE(row(2).data(Qt::FontRole).value<QFont>().bold());
    EXPECT_FALSE(row(1).data(Qt::FontRole).isValid());
    stack.undo();
    add("c");
    EXPECT_THAT(rows(), ElementsAre("<empty>", "a", "c"));
    stack.setClean();
    stack.resetClean();
    EXPECT_THAT(rows(), ElementsAre("<empty>", "a", "c"));
    stack.clear();
    EXPECT_THAT(rows(), ElementsAre("<empty> clean"));
}

TEST_F(HistoryModel, ForgetsStepsThatBecameObsoleteWhenTheyWereUndone)
{
    add("a");
    auto* command = new ProbeCommand("b");
    stack.add(command->onUndo([command] { command->setObsolete(true); }));
    stack.undo();
    EXPECT_THAT(rows(), ElementsAre("<empty> clean", "a"));
}

// --- what a row shows -----------------------------------------------------------------------------------------------

TEST_F(HistoryModel, ShowsTextsOnOneLineAndAsTheyAre)
{
    add("cut & paste ");
    add("set\n(a)\t(b)");
    add("short\nthe text of the action");
    EXPECT_EQ(row(1).data().toString(), "cut & paste");
    EXPECT_EQ(row(2).data().toString(), "set");
    EXPECT_EQ(row(3).data().toString(), "short");
    compose("", {"a", "b"});
    EXPECT_EQ(row(4).data().toString(), "Set (a) (b)");
}

TEST_F(HistoryModel, ShowsDescriptionsAsToolTips)
{
    compose("step", {"child"});
    EXPECT_EQ(row(0).data(Qt::ToolTipRole).toString(), "");
    EXPECT_EQ(row(1).data(Qt::ToolTipRole).toString(), "Set about child");
    EXPECT_EQ(model->index(0, 0, row(1)).data(Qt::ToolTipRole).toString(), "about child");
    add("<b>");
    EXPECT_EQ(row(2).data(Qt::ToolTipRole).toString().toStdString(), "<p>about &lt;b&gt;</p>")
        << "not as a bold nothing";
}

TEST_F(HistoryModel, GreysUndoneStepsAndTheirChildrenInTheColourOfThePalette)
{
    const QPalette before = QGuiApplication::palette();
    QPalette dark(QColor(40, 40, 40));
    dark.setColor(QPalette::PlaceholderText, QColor(100, 101, 102));
    QGuiApplication::setPalette(dark);
    compose("step", {"child"});
    EXPECT_FALSE(row(1).data(Qt::ForegroundRole).isValid());
    stack.undo();
    for (const QModelIndex& undone : {row(1), model->index(0, 0, row(1))})
        EXPECT_EQ(undone.data(Qt::ForegroundRole).value<QBrush>().color(), QColor(100, 101, 102));
    QGuiApplication::setPalette(before);
}

TEST_F(HistoryModel, NamesTheStartInTheContextOfItsClass)
{
    const ContextTranslator translator;
    EXPECT_EQ(row(0).data().toString(), "moUndoHistoryModel: <empty>");
}

// --- while a call is at hand ----------------------------------------------------------------------------------------

TEST_F(HistoryModel, ChangesAfterTheListenersOfTheStack)
{
    int rowsSeen = 0;
    QObject::connect(&stack, &moUndoStack::redoPerformed, &context, [&] { rowsSeen = model->rowCount(); });
    add("a");
    EXPECT_EQ(rowsSeen, 1);
    EXPECT_EQ(model->rowCount(), 2);
}

TEST_F(HistoryModel, AnswersForEveryRowWhileCommandsAreDeleted)
{
    for (const char* text : {"a", "b", "c"})
        add(text);
    std::vector<std::string> seen;
    compose("d", {"child"});
    stack.add((new ProbeCommand("e"))->onDestroyed([&] { seen = HistoryMirror::read(*model); }));
    rows();
    stack.clear();
    EXPECT_THAT(seen, testing::Each(testing::AnyOf(testing::StartsWith("<empty>"), "", "  ")));
    EXPECT_GT(seen.size(), 4U);
    EXPECT_THAT(rows(), ElementsAre("<empty> clean"));
}

TEST_F(HistoryModel, IsRightAgainThoughAViewAskedForChildrenWhileAStepWasReported)
{
    stack.setUndoLimit(2);
    compose("a", {"1"});
    compose("b", {"2", "3"});
    const moUndoHistoryModel unseen(stack);
    QObject::connect(&stack, &moUndoStack::redoPerformed, &context, [&] { HistoryMirror::read(unseen); });
    compose("c", {"4", "5", "6"});
    EXPECT_THAT(HistoryMirror::read(unseen), ElementsAre("<empty>", "b", "  2", "  3", "c", "  4", "  5", "  6"));
}

TEST_F(HistoryModel, MadeWhileAStepIsReportedIsRightAfterwards)
{
    std::unique_ptr<moUndoHistoryModel> late;
    const auto make = [&] {
        if (!late) late = std::make_unique<moUndoHistoryModel>(stack);
    };
    QObject::connect(&stack, &moUndoStack::redoPerformed, &context, make);
    add("a");
    EXPECT_EQ(HistoryMirror::read(*late), rows());
    add("b");
    EXPECT_EQ(HistoryMirror::read(*late), rows());
}

TEST_F(HistoryModel, FollowsCallsThatWaited)
{
    bool first = true;
    QObject::connect(&stack, &moUndoStack::redoPerformed, &context, [&] {
        if (!std::exchange(first, false)) return;
        add("b");
        stack.undo();
        add("c");
    });
    add("a");
    EXPECT_THAT(rows(), ElementsAre("<empty> clean", "a", "c"));
}

TEST_F(HistoryModel, LetsAStepStandAndShowsItThoughASlotThrows)
{
    // A change whose begin throws is followed by a reset instead of its end. The tester of Qt 6 asks for the end.
    tester.reset();
    for (const auto signal : {&QAbstractItemModel::rowsAboutToBeInserted, &QAbstractItemModel::rowsInserted}) {
        QObject thrower;
        QObject::connect(model.get(), signal, &thrower, [] { throw std::runtime_error("view"); });
        EXPECT_THROW(add("a"), std::runtime_error);
    }
    add("b");
    EXPECT_THAT(rows(), ElementsAre("<empty> clean", "a", "a", "b"));
    stack.setIndex(1);
    for (const auto signal : {&QAbstractItemModel::rowsAboutToBeRemoved, &QAbstractItemModel::rowsRemoved}) {
        QObject thrower;
        QObject::connect(model.get(), signal, &thrower, [] { throw std::runtime_error("view"); });
        EXPECT_THROW(add("c"), std::runtime_error);
        EXPECT_THAT(rows(), ElementsAre("<empty> clean", "a", "c"));
        stack.undo();
    }
}

TEST_F(HistoryModel, MayBeDestroyedByAListenerOfTheStack)
{
    auto other = std::make_unique<moUndoHistoryModel>(stack);
    QObject::connect(&stack, &moUndoStack::redoPerformed, &context, [&] { other.reset(); });
    add("a");
    EXPECT_EQ(other, nullptr);
    EXPECT_THAT(rows(), ElementsAre("<empty> clean", "a"));
}

// --- random calls ---------------------------------------------------------------------------------------------------

/// Makes random calls and compares the model with what Qt's commands say.
class RandomHistory : public HistoryModel, public testing::WithParamInterface<unsigned int>
{
protected:
    int below(int end) { return std::uniform_int_distribution<int>(0, end - 1)(m_random); }

    std::string name() { return "step " + std::to_string(++m_names); }

    void makeChildren()
    {
        for (int i = below(3); i >= 0; --i) {
            new ProbeCommand(name(), moUndoStack::getCurrentCommandParent());
            if (below(4) == 0) composeRandomly(below(2) == 0);
        }
    }

    /// The text of a cancelled one tells expected() to leave it out.
    void composeRandomly(bool cancelled)
    {
        moCompositionScope composition(stack, cancelled ? "cancelled" : QString::fromStdString(name()), "",
                                       below(2) == 0);
        makeChildren();
        if (cancelled) composition.cancel();
    }

    /// Merges with another one; may take over its children.
    void dragRandomly()
    {
        auto* command = new ProbeCommand(name());
        for (int i = below(3); i > 0; --i)
            new ProbeCommand(name(), command);
        const bool grows = below(2) == 0;
        stack.add(command->withId(7)->onMerge([this, command, grows](const QUndoCommand* newer) {
            command->setText(newer->text());
            for (int i = 0; grows && i < newer->childCount(); ++i)
                new ProbeCommand(name(), command);
            return true;
        }));
    }

    void addFailing()
    {
        auto* command = new ProbeCommand(name());
        const auto fail = [this] {
            if (below(3) == 0) throw std::runtime_error("step");
        };
        stack.add(command->onUndo(fail)->onRedo(fail));
    }

    void addThatTurnsObsolete()
    {
        auto* command = new ProbeCommand(name());
        stack.add(command->onUndo([command] { command->setObsolete(true); }));
    }

    void call()
    {
        switch (below(20)) {
        case 0:
        case 1:
        case 2:
            return add(name());
        case 3:
        case 4:
            return dragRandomly();
        case 5:
            return addFailing();
        case 6:
        case 7:
            return composeRandomly(below(4) == 0);
        case 8:
            return stack.beginMacro(QString::fromStdString(name()));
        case 9:
        case 10:
            return stack.endMacro();
        case 11:
        case 12:
            return stack.undo();
        case 13:
            return stack.redo();
        case 14:
        case 15:
            return stack.setIndex(below(stack.size() + 2) - 1);
        case 16:
            return stack.setClean();
        case 17:
            return below(3) == 0 ? addThatTurnsObsolete() : stack.resetClean();
        case 18:
            return stack.mark();
        default:
            if (below(2) == 0) return stack.reset();
            stack.clear();
            return stack.setUndoLimit(below(4));
        }
    }

    void print(const QUndoCommand& command, const std::string& indent, bool clean, bool done,
               std::vector<std::string>& lines)
    {
        lines.push_back(indent + command.text().toStdString() + (clean ? " clean" : "") + (done ? "" : " undone"));
        for (int i = 0; i < command.childCount(); ++i) {
            if (command.child(i)->text() != "cancelled") print(*command.child(i), indent + "  ", false, done, lines);
        }
    }

    std::vector<std::string> expected()
    {
        std::vector<std::string> lines{std::string("<empty>") + (stack.cleanIndex() == 0 ? " clean" : "")};
        const bool macroIsOpen = stack.index() < stack.size() && !stack.canRedo();
        const int steps = macroIsOpen ? stack.index() : stack.size();
        for (int i = 0; i < steps; ++i)
            print(*stack.command(i), "", stack.cleanIndex() == i + 1, stack.index() > i, lines);
        return lines;
    }

    std::mt19937 m_random{GetParam()};
    int m_names = 0;
};

TEST_P(RandomHistory, IsWhatTheCommandsSayAfterEachCall)
{
    QTreeView tree;
    model->showIn(tree);
    tree.show();
    QObject::connect(&stack, &moUndoStack::undoPerformed, &context, [this] {
        if (below(10) == 0) stack.redo();
        if (below(10) == 0) HistoryMirror::read(*model);
    });
    for (int i = 0; i < 60; ++i) {
        try {
            call();
        } catch (const std::runtime_error&) {
            continue;
        }
        ASSERT_EQ(rows(), expected()) << "after call " << i;
        ASSERT_EQ(model->currentIndex().row(), stack.index());
        ASSERT_EQ(tree.currentIndex(), model->currentIndex());
        if (below(4) == 0) tree.expandAll();
        if (below(4) == 0) QCoreApplication::processEvents();
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomHistory, testing::Range(1U, 17U));

// --- views ----------------------------------------------------------------------------------------------------------

TEST_F(HistoryModelView, FollowsTheStackAndTellsOfItInTheEventLoop)
{
    QListView view;
    model->showIn(view);
    view.show();
    std::vector<int> told;
    QObject::connect(view.selectionModel(), &QItemSelectionModel::currentChanged, &context,
                     [&](const QModelIndex& current) { told.push_back(current.row()); });
    for (const char* text : {"a", "b", "c"})
        add(text);
    EXPECT_EQ(view.currentIndex(), row(3));
    EXPECT_EQ(view.selectionModel()->selectedIndexes(), QModelIndexList{row(3)});
    EXPECT_THAT(told, IsEmpty());
    QCoreApplication::processEvents();
    EXPECT_THAT(told, ElementsAre(3));
    stack.setIndex(1);
    EXPECT_EQ(view.currentIndex(), row(1));
}

TEST_F(HistoryModelView, MovesTheStackToTheChosenRow)
{
    for (const char* text : {"a", "b", "c"})
        add(text);
    QTreeView view;
    model->showIn(view);
    view.setCurrentIndex(row(1));
    EXPECT_EQ(stack.index(), 1);
    view.setCurrentIndex(row(0));
    EXPECT_EQ(stack.index(), 0);
    EXPECT_THAT(rows(), ElementsAre("<empty> clean", "a undone", "b undone", "c undone"));
}

TEST_F(HistoryModelView, MovesNothingWhenAChildIsChosen)
{
    compose("a", {"child"});
    add("b");
    QTreeView view;
    model->showIn(view);
    const QModelIndex child = model->index(0, 0, row(1));
    view.setCurrentIndex(child);
    QCoreApplication::processEvents();
    EXPECT_EQ(stack.index(), 2);
    EXPECT_EQ(view.currentIndex(), child);
    add("c");
    EXPECT_EQ(view.currentIndex(), row(3));
}

TEST_F(HistoryModelView, ReturnsToTheRowOfTheStackWhenAClickIsRefused)
{
    add("a");
    add("b");
    QListView view;
    model->showIn(view);
    view.show();
    QCoreApplication::processEvents();
    stack.beginMacro("macro");
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, view.visualRect(row(1)).center());
    EXPECT_EQ(stack.index(), 2);
    QCoreApplication::processEvents();
    EXPECT_EQ(view.currentIndex(), row(2));
    EXPECT_EQ(view.selectionModel()->selectedIndexes(), QModelIndexList{row(2)});
    stack.endMacro();
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, view.visualRect(row(1)).center());
    EXPECT_EQ(stack.index(), 1);
}

TEST_F(HistoryModelView, DoesNotMoveTheStackWhenTheCurrentRowIsRemovedAndQtChoosesAnother)
{
    stack.setUndoLimit(1);
    QTreeView view;
    model->showIn(view);
    add("a");
    add("b");
    EXPECT_EQ(stack.index(), 1);
    EXPECT_EQ(view.currentIndex(), row(1));
}

TEST_F(HistoryModelView, ScrollsToThePresentState)
{
    QListView view;
    model->showIn(view);
    view.resize(100, 60);
    view.show();
    for (int i = 0; i < 50; ++i)
        add("a");
    QCoreApplication::processEvents();
    EXPECT_TRUE(view.viewport()->rect().contains(view.visualRect(row(50)).center()));
    stack.setIndex(3);
    QCoreApplication::processEvents();
    EXPECT_TRUE(view.viewport()->rect().contains(view.visualRect(row(3)).center()));
}

TEST_F(HistoryModelView, IsNotEditedAndMeasuresOneRowOnly)
{
    QListView list;
    QTreeView tree;
    model->showIn(list);
    model->showIn(tree);
    EXPECT_TRUE(list.uniformItemSizes());
    EXPECT_TRUE(tree.uniformRowHeights());
    EXPECT_TRUE(tree.isHeaderHidden());
    EXPECT_EQ(list.editTriggers(), QAbstractItemView::NoEditTriggers);
}

TEST_F(HistoryModelView, IsLeftAloneOnceItShowsSomethingElse)
{
    add("a");
    QListView view;
    model->showIn(view);
    moUndoHistoryModel other(second);
    other.showIn(view);
    stack.undo();
    EXPECT_EQ(view.currentIndex(), other.index(0, 0));
    second.add(new ProbeCommand("b"));
    EXPECT_EQ(view.currentIndex(), other.index(1, 0));
}

TEST_F(HistoryModelView, MayBeDestroyedBeforeOrAfterTheModel)
{
    auto view = std::make_unique<QListView>();
    model->showIn(*view);
    view.reset();
    add("a");
    QListView longer;
    auto other = std::make_unique<moUndoHistoryModel>(stack);
    other->showIn(longer);
    other.reset();
    add("b");
    QCoreApplication::processEvents();
    EXPECT_FALSE(longer.currentIndex().isValid());
}

} // namespace
