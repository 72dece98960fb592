// What a step must not cost: a program of its own, as it replaces operator new.

#include <support/UndoTest.h>

#include <moUndoStack/core/moFunctionUndoCommand.h>
#include <moUndoUtils/moUndoString.h>

#include <OpenSG/OSGNode.h>

#include <cstdlib>
#include <new>

namespace {

long s_allocations = 0;

} // namespace

void* operator new(std::size_t size)
{
    ++s_allocations;
    if (void* const block = std::malloc(size > 0 ? size : 1)) return block;
    throw std::bad_alloc();
}

void operator delete(void* block) noexcept
{
    std::free(block);
}

void operator delete(void* block, std::size_t) noexcept
{
    std::free(block);
}

namespace {

class SwitchCommand : public moFunctionUndoCommand<bool>
{
public:
    SwitchCommand(const moUndoString& text, const osg::NodePtr& node, bool active)
        : moFunctionUndoCommand(text, node, active, nullptr)
    {
    }

    void makeMessage(moMessage& message) const override
    {
        ++s_messages;
        moFunctionUndoCommand::makeMessage(message);
    }

    static int s_messages;

protected:
    bool get(osg::NodePtr node) override { return node->getActive(); }
    void set(osg::NodePtr node, bool active) override { node->setActive(active); }
};

int SwitchCommand::s_messages = 0;

class Allocation : public UndoTest
{
protected:
    void SetUp() override
    {
        UndoTest::SetUp();
        SwitchCommand::s_messages = 0;
        m_node = osg::Node::create();
        osg::addRefCP(m_node);
    }
    void TearDown() override
    {
        stack.setMessageCallback(nullptr);
        stack.clear();
        osg::subRefCP(m_node);
        UndoTest::TearDown();
    }

    void pushSome()
    {
        const moUndoString text(QStringLiteral("Switch"), QStringLiteral("A description too long to be kept in place"),
                                QString());
        for (int i = 0; i < 10; ++i)
            stack.add(new SwitchCommand(text, m_node, i % 2 != 0));
    }

    /// All the way back and forth, step by step, and then in one jump each.
    long allocationsOfSteps()
    {
        const long before = s_allocations;
        while (stack.canUndo())
            stack.undo();
        while (stack.canRedo())
            stack.redo();
        stack.reset();
        return s_allocations - before;
    }

private:
    osg::NodePtr m_node;
};

TEST_F(Allocation, UndoRedoAndResetAllocateNothingWithoutAMessageCallback)
{
    stack.mark();
    pushSome();

    EXPECT_EQ(allocationsOfSteps(), 0);
    EXPECT_FALSE(stack.canUndo()) << "the steps were not taken";
}

TEST_F(Allocation, ACommandTakesNoMemoryForOptionsThatAreTheDefault)
{
    SwitchCommand command({}, osg::NullFC, true);
    const long before = s_allocations;
    command.setMergeEnabled(true);
    command.setMergeResponseDelta(moUndoCommand::defaultMergeResponseDelta);
    command.setChangedCB({});
    EXPECT_EQ(s_allocations, before);
    command.setMergeEnabled(false);
    EXPECT_GT(s_allocations, before) << "nothing was counted";
}

TEST_F(Allocation, NoMessageIsBuiltWithoutAMessageCallback)
{
    pushSome();
    allocationsOfSteps();

    EXPECT_EQ(SwitchCommand::s_messages, 0);
}

TEST_F(Allocation, AMessageCallbackIsWhatMakesMessagesBeBuiltAndMemoryBeTaken)
{
    stack.mark();
    stack.setMessageCallback([](const char*, moMessage&, int) { return true; });
    pushSome();

    EXPECT_GT(allocationsOfSteps(), 0);
    EXPECT_EQ(SwitchCommand::s_messages, 10 + 10 + 10 + 1);
}

} // namespace
