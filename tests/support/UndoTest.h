#pragma once

#include <support/Describe.h>
#include <support/FakeClock.h>
#include <support/LiveContainers.h>
#include <support/LogCapture.h>

#include <moUndoStack/core/moUndoStack.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

/// A test of recorded commands: recording is on, time stands still until the test advances `clock`, and the log is
/// captured.
///
/// At the end both stacks are cleared, and nothing may be left: no step, no composition, counters at zero, no container
/// and no probe command more than before.
class UndoTest : public testing::Test
{
protected:
    UndoTest();
    ~UndoTest() override;

    void SetUp() override;
    void TearDown() override;

    moUndoStack& stack = moUndoStack::get(moUndoStack::DefaultStack);
    moUndoStack& second = moUndoStack::get(moUndoStack::SecondStack);
    FakeClock clock;
    LogCapture log;

private:
    std::size_t m_containersBefore = 0;
    int m_probesBefore = 0;
};
