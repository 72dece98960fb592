#pragma once

#include <editsession/Chapters.h>
#include <editsession/Report.h>
#include <scene/Progress.h>

/// Edits a model as an editor would: one chapter after the other, then undoes all steps and redoes all.
///
/// Recording is on meanwhile; at the end the stack is cleared. The scene is left as the edits made it.
///
/// If \a progress breaks the session off, the report has what was done so far, and all of it is taken back.
Report runSession(Model& model, const std::vector<Chapter>& chapters, Progress& progress);

/// The same without progress.
Report runSession(Model& model, const std::vector<Chapter>& chapters);
