#pragma once

#include <moUndoStack/core/moUndoStackExport.h>

#include <cstdint>

/// The clock of the merge interval: seconds since the first reading in the process, from a monotonic counter.
///
/// Exported because the tests replace the counter; its header is not installed.
class MO_UNDO_STACK_EXPORT moUndoClock
{
public:
    /// A monotonic counter and how many of its ticks make a second.
    struct Source
    {
        std::int64_t (*counter)();
        std::int64_t (*frequency)();
    };

    /// Seconds since the origin. The first call reads the counter once more for the origin, and the frequency once.
    static double seconds();

    /// Reads from another counter from now on, with an origin of its own. Returns the source before it.
    static Source setSource(const Source& source);
};
