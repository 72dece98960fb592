#pragma once

#include <moUndoStack/core/moUndoStackExport.h>

class moMessage;

/// What the commands share that edit the colours of a material: empty edits by which containers tell of a change.
///
/// A base and not free functions, so that only the commands that derive from it can touch.
class MO_UNDO_STACK_EXPORT moContainerTouch
{
protected:
    /// Opens an edit of the fields and closes it at once: the container sends its change notification although nothing
    /// was written. A container that was destroyed is left out.
    static void touch(unsigned int containerId, unsigned long long fieldMask);

    /// The settings first, the material second: a listener to the material finds the settings announced already. The
    /// material is touched also when a listener to the settings throws (see moStep).
    static void touchSettingsAndMaterial(unsigned int settingsId, unsigned int materialId);

    /// Sets the key to the id, as unsigned int; leaves it out when the id is 0.
    static void setIdUnlessNull(moMessage& message, const char* key, unsigned int id);
};
