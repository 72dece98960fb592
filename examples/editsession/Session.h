#pragma once

#include <editsession/Chapters.h>
#include <editsession/Progress.h>
#include <editsession/Report.h>

/// Edits a model the way a user's editor would: one chapter after the other, then back to the start and forward to the
/// end.
///
/// Recording is on meanwhile; at the end the history is cleared. The scene is left as the edits made it.
///
/// When \a progress breaks it off, the report tells what was done so far, and all of it is taken back.
Report runSession(Model& model, const std::vector<Chapter>& chapters, Progress& progress);

/// The same without a word on the way.
Report runSession(Model& model, const std::vector<Chapter>& chapters);
