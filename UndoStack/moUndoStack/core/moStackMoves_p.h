#pragma once

#include <QtCore/QObject>

/// What one call did to the steps of a stack, as those who list them need it. A macro counts as a step from its end on.
struct moStackMove
{
    int kept = 0;          ///< the steps from this position on were deleted
    int dropped = 0;       ///< so many of the oldest steps were deleted
    bool appended = false; ///< one step was added at the end, after the deletions
    bool merged = false;   ///< the last step may have another text and other children
    bool unknown = false;  ///< something else: nothing can be said of any step
};

/// Tells the companions of a stack what each call did, after the call was reported and before the next one that waits.
class moStackMoves : public QObject
{
    Q_OBJECT

Q_SIGNALS:
    /// The slots keep their exceptions with moStep::afterwards().
    void moved(const moStackMove& move);
};
