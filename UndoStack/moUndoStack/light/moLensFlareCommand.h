#pragma once

#include <moUndoStack/core/moUndoCommand.h>

/// Base of the commands that edit lens flares. They never merge, however fast they follow each other.
///
/// Message: "id" (int), "lightCommand" = true (bool).
class MO_UNDO_STACK_EXPORT moLensFlareCommand : public moUndoCommand
{
public:
    /// \param text    literal, not translated; also the description.
    /// \param parent  null means the composite being composed, if any.
    moLensFlareCommand(const char* text, QUndoCommand* parent);
    ~moLensFlareCommand() override;

    void makeMessage(moMessage& message) const override;
    bool canMergeWith(const QUndoCommand* /*other*/) const override { return false; }
};
