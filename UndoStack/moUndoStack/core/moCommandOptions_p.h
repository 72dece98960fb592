#pragma once

#include <moUndoStack/core/moHeldFunction.h>
#include <moUndoStack/core/moUndoCommand.h>

/// What a caller may set on a command. Kept apart because few do: a command without options takes 16 bytes less, and a
/// long history is cleared and jumped over as fast as its commands are small.
struct moUndoCommandBase::Options
{
    moUndoDetail::HeldFunction<void(bool)> changed;
    double mergeResponseDelta = moUndoCommand::defaultMergeResponseDelta;
    bool mergeEnabled = true;
};
