#include <support/Trace.h>
#include <support/UndoTest.h>

#include <moUndoStack/core/moFunctionUndoCommand.h>
#include <moUndoUtils/moUndoString.h>

#include <OpenSG/OSGNode.h>
#include <OpenSG/OSGSimpleAttachments.h>
#include <OpenSG/OSGTransform.h>

#include <memory>
#include <stdexcept>

namespace {

using testing::ElementsAre;

/// Sets the name of a node: the smallest command that a host could write.
class RenameCommand : public moFunctionUndoCommand<std::string>
{
    MO_UNDO_COMMAND_ID

public:
    RenameCommand(osg::NodePtr node, std::string name)
        : moFunctionUndoCommand(moUndoString("Rename", "Rename a node", ""), node, std::move(name), nullptr)
    {
    }

protected:
    std::string get(osg::NodePtr node) override { return osg::getName(node) ? osg::getName(node) : ""; }
    void set(osg::NodePtr node, std::string name) override { osg::setName(node, name); }
};

/// The same for the traversal mask, a type of value that the library does not instantiate itself.
class TravMaskCommand : public moFunctionUndoCommand<osg::UInt32>
{
    MO_UNDO_COMMAND_ID

public:
    TravMaskCommand(osg::NodePtr node, osg::UInt32 mask)
        : moFunctionUndoCommand(moUndoString("Mask", ""), node, mask, nullptr)
    {
    }

protected:
    osg::UInt32 get(osg::NodePtr node) override { return node->getTravMask(); }
    void set(osg::NodePtr node, osg::UInt32 mask) override { node->setTravMask(mask); }
};

MO_UNDO_COMMAND_ID_IMPL(RenameCommand)
MO_UNDO_COMMAND_ID_IMPL(TravMaskCommand)

class FunctionUndoCommand : public UndoTest
{
protected:
    void SetUp() override
    {
        UndoTest::SetUp();
        node = namedNode("before");
        other = namedNode("before");
    }
    void TearDown() override
    {
        osg::subRefCP(node);
        osg::subRefCP(other);
        UndoTest::TearDown();
    }

    static osg::NodePtr namedNode(const char* name)
    {
        osg::NodePtr made = osg::Node::create();
        osg::addRefCP(made);
        osg::setName(made, name);
        return made;
    }

    void rename(const char* name) { stack.addOrExecute(new RenameCommand(node, name)); }
    std::string name() const { return osg::getName(node); }

    osg::NodePtr node;
    osg::NodePtr other;
};

TEST_F(FunctionUndoCommand, ReadsNothingAndChangesNothingBeforeItsFirstRedo)
{
    const RenameCommand command(node, "after");
    EXPECT_EQ(name(), "before");
}

TEST_F(FunctionUndoCommand, SwapsItsValueWithTheNodesAtEachStep)
{
    rename("after");
    EXPECT_EQ(name(), "after");
    for (int i = 0; i < 3; ++i) {
        stack.undo();
        EXPECT_EQ(name(), "before");
        stack.redo();
        EXPECT_EQ(name(), "after");
    }
}

TEST_F(FunctionUndoCommand, TakesUpAnEditMadeBesideTheStack)
{
    rename("after");
    osg::setName(node, "beside");
    stack.undo();
    EXPECT_EQ(name(), "before");
    stack.redo();
    EXPECT_EQ(name(), "beside");
}

TEST_F(FunctionUndoCommand, WorksForTypesThatTheLibraryDoesNotUseItself)
{
    stack.add(new TravMaskCommand(node, 5));
    EXPECT_EQ(node->getTravMask(), 5U);
    stack.undo();
    EXPECT_EQ(node->getTravMask(), ~0U);
}

TEST_F(FunctionUndoCommand, SeriesWithinTheIntervalIsOneStepBackToBeforeTheFirst)
{
    rename("a");
    clock.advance(0.3);
    rename("b");
    clock.advance(0.3);
    rename("c");
    EXPECT_EQ(describe(stack), "1 step, at \"Rename\", undo, no redo") << "the interval slides";
    stack.undo();
    EXPECT_EQ(name(), "before");
    stack.redo();
    EXPECT_EQ(name(), "c");
}

TEST_F(FunctionUndoCommand, AfterAPauseStartsANewStep)
{
    rename("a");
    clock.advance(0.5);
    rename("b");
    EXPECT_EQ(stack.size(), 2);
    stack.undo();
    EXPECT_EQ(name(), "a");
}

TEST_F(FunctionUndoCommand, NeverMergesWithOneForAnotherNode)
{
    rename("a");
    stack.add(new RenameCommand(other, "a"));
    EXPECT_EQ(stack.size(), 2);
}

TEST_F(FunctionUndoCommand, NeverMergesWithOneOfAnotherClass)
{
    rename("a");
    stack.add(new TravMaskCommand(node, 5));
    EXPECT_EQ(stack.size(), 2);
}

TEST_F(FunctionUndoCommand, RefusesToMergeWithACommandThatOnlyPretendsToHaveItsId)
{
    struct Impostor : moUndoCommand
    {
        Impostor() : moUndoCommand(moUndoString("impostor", ""), nullptr) {}
        int id() const override { return RenameCommand::commandId(); }
    };
    rename("a");
    stack.add(new Impostor);
    EXPECT_EQ(stack.size(), 2);
}

TEST_F(FunctionUndoCommand, OfANodeThatWasDestroyedDoesNothingAndKeepsItsValue)
{
    rename("after");
    osg::subRefCP(node);
    stack.undo();
    stack.redo();
    EXPECT_EQ(describe(stack), "1 step, at \"Rename\", undo, no redo");
    EXPECT_THAT(log.take(), testing::IsEmpty());
}

TEST_F(FunctionUndoCommand, OfANullNodeHasTheIdZeroAndNeverDoesAnything)
{
    Trace trace(stack);
    stack.add(new RenameCommand(osg::NullFC, "after"));
    stack.undo();
    EXPECT_THAT(trace.takeMessages().front(), testing::HasSubstr("node=uint:0"));
    stack.redo();
    stack.add(new RenameCommand(osg::NullFC, "again"));
    EXPECT_EQ(stack.size(), 1) << "like those of any one node";
    stack.add(new RenameCommand(node, "after"));
    EXPECT_EQ(stack.size(), 2) << "it takes up no edit of a node";
}

TEST_F(FunctionUndoCommand, FindsItsNodeForItsSubclassUntilTheNodeIsDestroyed)
{
    struct Finding : RenameCommand
    {
        using RenameCommand::findNode;
        using RenameCommand::RenameCommand;
    };
    const Finding command(node, "after");
    EXPECT_EQ(command.findNode(), node);
    osg::subRefCP(node);
    EXPECT_EQ(command.findNode(), osg::NullFC);
    EXPECT_EQ(Finding(osg::NullFC, "after").findNode(), osg::NullFC);
}

TEST_F(FunctionUndoCommand, DescribesItselfWithItsIdAndItsNode)
{
    Trace trace(stack);
    rename("after");
    EXPECT_THAT(trace.takeMessages(),
                ElementsAre("moURManager::redo index=int:0 added=bool:true text=string:\"Rename\" "
                            "description=string:\"Rename a node\" id=int:" +
                            std::to_string(RenameCommand::commandId()) +
                            " node=uint:" + std::to_string(osg::getContainerId(node))));
}

TEST_F(FunctionUndoCommand, OverriddenRedoChangesUndoToo)
{
    struct Twice : RenameCommand
    {
        Twice(osg::NodePtr renamed, int& count) : RenameCommand(renamed, "x"), m_count(count) {}
        void redo() override { ++m_count; }
        int& m_count;
    };
    int count = 0;
    stack.add(new Twice(node, count));
    stack.undo();
    EXPECT_EQ(count, 2);
    EXPECT_EQ(name(), "before");
}

TEST_F(FunctionUndoCommand, WhoseSetterThrowsKeepsItsValueForAnotherTry)
{
    struct Fragile : RenameCommand
    {
        using RenameCommand::RenameCommand;
        void set(osg::NodePtr renamed, std::string value) override
        {
            if (broken) throw std::runtime_error("set");
            RenameCommand::set(renamed, value);
        }
        bool broken = false;
    };
    auto* command = new Fragile(node, "after");
    stack.add(command);
    command->broken = true;
    EXPECT_THROW(stack.undo(), std::runtime_error);
    EXPECT_EQ(name(), "after");
    command->broken = false;
    stack.undo();
    EXPECT_EQ(name(), "before");
    stack.redo();
    EXPECT_EQ(name(), "after");
}

/// Writes, and throws afterwards as long as it is broken.
struct LateFault : RenameCommand
{
    using RenameCommand::RenameCommand;
    void set(osg::NodePtr renamed, std::string value) override
    {
        RenameCommand::set(renamed, value);
        written.push_back(value);
        if (broken && written.size() % 2 == 1) throw std::runtime_error("set");
    }
    bool broken = true;
    std::vector<std::string> written;
};

TEST_F(FunctionUndoCommand, WhoseSetterThrowsAfterItWroteIsNotRecordedAndTheOldValueIsWrittenAgain)
{
    const auto command = std::make_unique<LateFault>(node, "after");
    EXPECT_THROW(command->redo(), std::runtime_error);
    EXPECT_EQ(name(), "before");
    EXPECT_THAT(command->written, ElementsAre("after", "before"));

    EXPECT_THROW(stack.add(new LateFault(node, "after")), std::runtime_error);
    EXPECT_EQ(name(), "before");
    EXPECT_TRUE(stack.isEmpty());
}

TEST_F(FunctionUndoCommand, WhoseSetterThrowsAfterItWroteKeepsBothValues)
{
    auto* command = new LateFault(node, "after");
    command->broken = false;
    stack.add(command);
    command->written.clear();
    command->broken = true;
    EXPECT_THROW(stack.undo(), std::runtime_error);
    EXPECT_EQ(name(), "after");
    EXPECT_TRUE(stack.canUndo());
    command->broken = false;
    for (int round = 0; round < 3; ++round) {
        stack.undo();
        EXPECT_EQ(name(), "before");
        stack.redo();
        EXPECT_EQ(name(), "after");
    }
}

TEST_F(FunctionUndoCommand, ThatFailsInACompositeLeavesNothingOfTheComposite)
{
    osg::setName(other, "other");
    stack.beginMultiCommand("composite", "", true);
    new RenameCommand(other, "renamed");
    new LateFault(node, "after");
    EXPECT_THROW(stack.endMultiCommand(), std::runtime_error);
    EXPECT_EQ(name(), "before");
    EXPECT_STREQ(osg::getName(other), "other");
    EXPECT_TRUE(stack.isEmpty());
}

TEST_F(FunctionUndoCommand, WhoseOldValueCannotBeWrittenAgainEitherReportsTheFirstFault)
{
    struct Hopeless : RenameCommand
    {
        using RenameCommand::RenameCommand;
        void set(osg::NodePtr, std::string value) override { throw std::runtime_error(value); }
    };
    try {
        stack.add(new Hopeless(node, "after"));
        ADD_FAILURE() << "nothing was thrown";
    } catch (const std::runtime_error& fault) {
        EXPECT_STREQ(fault.what(), "after");
    }
    EXPECT_THAT(log.take(), ElementsAre("error: moUndoStack: another exception in the same operation: before"));
}

} // namespace
