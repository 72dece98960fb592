#pragma once

#include <moUndoStack/core/moUndoClock_p.h>

/// Replaces the clock of the merge interval: it stands still until the test advances it.
///
/// One tick is 2^-20 s, so that sums of binary fractions of a second are exact.
class FakeClock
{
public:
    FakeClock();
    ~FakeClock();
    FakeClock(const FakeClock&) = delete;
    FakeClock& operator=(const FakeClock&) = delete;

    void advance(double seconds);

private:
    moUndoClock::Source m_real;
};
