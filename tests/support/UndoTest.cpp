#include <support/UndoTest.h>

#include <support/ProbeCommand.h>

UndoTest::UndoTest() = default;
UndoTest::~UndoTest() = default;

void UndoTest::SetUp()
{
    m_containersBefore = liveContainerCount();
    m_probesBefore = ProbeCommand::liveCount();
    moUndoStack::beginUndo();
}

void UndoTest::TearDown()
{
    EXPECT_EQ(moUndoStack::getCurrentCommandParent(), nullptr) << "a composition is still open";
    moUndoStack::clearAll();
    stack.setUndoLimit(0);
    second.setUndoLimit(0);
    moUndoStack::endUndo();
    EXPECT_FALSE(moUndoStack::undoEnabled()) << "beginUndo() without endUndo()";
    EXPECT_FALSE(moUndoStack::undoBlocked()) << "beginBlockUndo() without endBlockUndo()";
    while (moUndoStack::undoEnabled())
        moUndoStack::endUndo();
    while (moUndoStack::undoBlocked())
        moUndoStack::endBlockUndo();
    EXPECT_EQ(describe(stack), "0 steps, at start, no undo, no redo");
    EXPECT_EQ(describe(second), "0 steps, at start, no undo, no redo");
    EXPECT_EQ(liveContainerCount(), m_containersBefore) << "containers were left behind";
    EXPECT_EQ(ProbeCommand::liveCount(), m_probesBefore) << "commands were left behind";
}
