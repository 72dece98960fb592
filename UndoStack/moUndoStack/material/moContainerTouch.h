#pragma once

#include <moUndoStack/core/moUndoStackExport.h>

class moMessage;

/// Base of the commands that edit the colours of a material: empty edits, which announce a change, and a message key.
///
/// A base class and not free functions, so that only these commands can announce a change without writing.
///
/// Intended: nothing is written, because the renderer listens to the material and an edit of the settings does not
/// reach it. See docs/oddities.md#a-change-is-announced-though-nothing-was-written.
class MO_UNDO_STACK_EXPORT moContainerTouch
{
protected:
    /// Opens an edit of the fields and closes it at once: a change is announced although nothing was written. Does
    /// nothing if the container was destroyed.
    static void touch(unsigned int containerId, unsigned long long fieldMask);

    /// Touches the settings and then the material: when the material is announced, the settings have been. The material
    /// is touched also if a listener to the settings throws (see moStep).
    static void touchSettingsAndMaterial(unsigned int settingsId, unsigned int materialId);

    /// Sets the key to the id, as unsigned int; leaves the key out if the id is 0.
    static void setIdUnlessNull(moMessage& message, const char* key, unsigned int id);
};
