#pragma once

#include <moUndoStack/core/moUndoCommand.h>

/// Base of the commands that edit lens flares. They never merge.
///
/// Message: "id" (int), "lightCommand" = true (bool).
class MO_UNDO_STACK_EXPORT moLensFlareCommand : public moUndoCommand
{
public:
    /// \param text    also the description; not translated.
    /// \param parent  owns the command; null means the composite being composed, if any.
    moLensFlareCommand(const char* text, QUndoCommand* parent);
    ~moLensFlareCommand() override;

    /// Adds "lightCommand".
    void makeMessage(moMessage& message) const override;
    /// Never merges.
    bool canMergeWith(const QUndoCommand* /*other*/) const override { return false; }
};
