#pragma once

#include <moUndoStack/core/moUndoClock_p.h>

/// The clock of the merge interval under a test's control: it stands still until it is told to go on.
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
