#pragma once

#include <moUndoStack/core/moUndoCommand.h>

/// How a new command merges, for constructors that let their caller choose: a bool is the switch, a double the
/// interval.
///
///     new Command(node, value, false, parent);  // a step of its own
///     new Command(node, value, 1.5, parent);    // merges into a step made less than 1.5 s before
///
/// An int does not compile: 1 could mean either.
class moMergeOption
{
public:
    /// As every command merges: enabled, with the interval moUndoCommand::defaultMergeResponseDelta.
    moMergeOption() = default;

    /// See moUndoCommand::setMergeEnabled(). The interval stays the default.
    moMergeOption(bool enabled) : m_enabled(enabled) {}

    /// \param interval  seconds, see moUndoCommand::setMergeResponseDelta(): negative means without a limit. Enabled.
    moMergeOption(double interval) : m_interval(interval) {}

    /// Gives the command what was chosen.
    void applyTo(moUndoCommand& command) const
    {
        command.setMergeEnabled(m_enabled);
        command.setMergeResponseDelta(m_interval);
    }

private:
    bool m_enabled = true;
    double m_interval = moUndoCommand::defaultMergeResponseDelta;
};
