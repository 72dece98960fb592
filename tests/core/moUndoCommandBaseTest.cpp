#include <support/ProbeCommand.h>
#include <support/UndoTest.h>

#include <moUndoStack/core/moGenericFunctionUndoCommand.h>
#include <moUndoStack/core/moMultiCommand.h>
#include <moUndoUtils/moUndoString.h>

#include <memory>

namespace {

/// The base alone, with nothing of moUndoCommand.
class BareCommand : public moUndoCommandBase
{
public:
    using moUndoCommandBase::moUndoCommandBase;
    void makeMessage(moMessage&) const override {}
    bool canMergeWith(const QUndoCommand*) const override { return false; }
};

using UndoCommandBase = UndoTest;

TEST_F(UndoCommandBase, TakesTextAndDescriptionFromTheUndoString)
{
    const BareCommand command(moUndoString("short", "long and telling", "group"), nullptr);
    EXPECT_EQ(command.text(), "short");
    EXPECT_EQ(command.getDescription(), "long and telling");
}

TEST_F(UndoCommandBase, SetDescriptionReplacesTheDescriptionAndLeavesTheText)
{
    BareCommand command(moUndoString("short", "long", "group"), nullptr);
    command.setDescription("other");
    EXPECT_EQ(command.getDescription(), "other");
    EXPECT_EQ(command.text(), "short");
}

TEST_F(UndoCommandBase, DescriptionHandedOutIsACopy)
{
    BareCommand command(moUndoString("short", "long", "group"), nullptr);
    QString copy = command.getDescription();
    copy += " changed";
    EXPECT_EQ(command.getDescription(), "long");
}

TEST_F(UndoCommandBase, ReportsNoIdAndRefusesToMerge)
{
    BareCommand command(moUndoString("a", ""), nullptr);
    BareCommand other(moUndoString("a", ""), nullptr);
    EXPECT_EQ(command.id(), -1);
    EXPECT_FALSE(command.mergeWith(&other));
}

TEST_F(UndoCommandBase, WithANullParentItStaysParentlessWhileACompositeIsComposed)
{
    stack.beginMultiCommand("composite", "", true);
    const BareCommand command(moUndoString("a", ""), nullptr);
    EXPECT_EQ(command.parent(), nullptr);
    EXPECT_EQ(moUndoStack::getCurrentCommandParent()->childCount(), 0);
    stack.endMultiCommand();
}

TEST_F(UndoCommandBase, RemembersTheParentThatOwnsIt)
{
    BareCommand parent(moUndoString("parent", ""), nullptr);
    const auto* child = new BareCommand(moUndoString("child", ""), &parent);
    EXPECT_EQ(child->parent(), &parent);
    EXPECT_EQ(parent.child(0), child);
}

TEST_F(UndoCommandBase, StepsOfACommandWithoutItsOwnAreThoseOfItsChildren)
{
    std::vector<std::string> steps;
    BareCommand parent(moUndoString("parent", ""), nullptr);
    (new ProbeCommand("a", &parent))->loggingTo(steps);
    (new ProbeCommand("b", &parent))->loggingTo(steps);
    parent.redo();
    parent.undo();
    EXPECT_THAT(steps, testing::ElementsAre("redo a", "redo b", "undo b", "undo a"));
}

class ChangedCallbacks : public UndoTest
{
protected:
    std::function<void(bool)> note(const std::string& name)
    {
        return [this, name](bool done) { calls.push_back(name + (done ? " done" : " undone")); };
    }

    std::vector<std::string> calls;
};

TEST_F(ChangedCallbacks, FireParentsFirstAndDepthFirst)
{
    auto* root = new BareCommand(moUndoString("root", ""), nullptr);
    root->setChangedCB(note("root"));
    auto* left = new BareCommand(moUndoString("left", ""), root);
    left->setChangedCB(note("left"));
    (new BareCommand(moUndoString("leaf", ""), left))->setChangedCB(note("leaf"));
    (new BareCommand(moUndoString("right", ""), root))->setChangedCB(note("right"));

    stack.add(root);
    stack.undo();
    EXPECT_THAT(calls, testing::ElementsAre("root done", "left done", "leaf done", "right done", //
                                            "root undone", "left undone", "leaf undone", "right undone"));
}

TEST_F(ChangedCallbacks, SkipChildrenThatArePlainCommands)
{
    auto* root = new BareCommand(moUndoString("root", ""), nullptr);
    root->setChangedCB(note("root"));
    auto* plain = new QUndoCommand("plain", root);
    (new BareCommand(moUndoString("below a plain one", ""), plain))->setChangedCB(note("below"));
    stack.add(root);
    EXPECT_THAT(calls, testing::ElementsAre("root done"));
}

TEST_F(ChangedCallbacks, AreReplacedBySettingAnotherAndRemovedBySettingNone)
{
    auto* command = new BareCommand(moUndoString("a", ""), nullptr);
    command->setChangedCB(note("first"));
    command->setChangedCB(note("second"));
    stack.add(command);
    command->setChangedCB({});
    stack.undo();
    EXPECT_THAT(calls, testing::ElementsAre("second done"));
}

TEST_F(ChangedCallbacks, MayReplaceThemselvesWhileTheyRun)
{
    auto* command = new BareCommand(moUndoString("a", ""), nullptr);
    const std::string name = "a name too long to be kept inside of a string object";
    command->setChangedCB([this, command, name](bool) {
        command->setChangedCB(note("second"));
        calls.push_back(name);
    });
    stack.add(command);
    stack.undo();
    EXPECT_THAT(calls, testing::ElementsAre(name, "second undone"));
}

TEST_F(ChangedCallbacks, KeepTheirStateFromOneCallToTheNext)
{
    std::vector<int> counts;
    auto* command = new BareCommand(moUndoString("a", ""), nullptr);
    command->setChangedCB([&counts, count = 0](bool) mutable { counts.push_back(++count); });
    stack.add(command);
    stack.undo();
    stack.redo();
    EXPECT_THAT(counts, testing::ElementsAre(1, 2, 3));
}

TEST_F(ChangedCallbacks, AreReleasedWithTheirCommand)
{
    const auto held = std::make_shared<int>(1);
    auto* command = new BareCommand(moUndoString("a", ""), nullptr);
    command->setChangedCB([held](bool) {});
    stack.add(command);
    EXPECT_EQ(held.use_count(), 2);
    stack.clear();
    EXPECT_EQ(held.use_count(), 1);
}

TEST_F(ChangedCallbacks, FireAlsoAfterACommandWhoseOwnWasRemovedIsDestroyed)
{
    auto* command = new BareCommand(moUndoString("a", ""), nullptr);
    command->setChangedCB(note("a"));
    {
        BareCommand without(moUndoString("b", ""), nullptr);
        without.setChangedCB(note("b"));
        without.setChangedCB({});
    }
    stack.add(command);
    EXPECT_THAT(calls, testing::ElementsAre("a done"));
}

TEST_F(ChangedCallbacks, ReachAChildThatACallbackAddedWhileTheyFire)
{
    auto* root = new BareCommand(moUndoString("root", ""), nullptr);
    root->setChangedCB([this, root](bool) {
        if (root->childCount() == 0) (new BareCommand(moUndoString("late", ""), root))->setChangedCB(note("late"));
    });
    stack.add(root);
    EXPECT_THAT(calls, testing::ElementsAre("late done"));
}

} // namespace
