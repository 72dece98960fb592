#pragma once

#include <moUndoStack/core/moUndoCommandBase.h>
#include <moUndoStack/core/moUndoCommandId.h>

#include <typeindex>
#include <typeinfo>

/// Base of every command that makes one edit: the id of its class, its time of creation and the merge interval.
///
/// Merging. A newer command is merged into an older one only if both have the same id and the newer one was made less
/// than its merge interval after the older one. A class that merges calls canMergeWith() first in its own, adds its
/// conditions, and takes over the newer command's creation time, so that a drag merges as long as each step follows the
/// one before it within the interval.
///
/// Classes that do not declare MO_UNDO_COMMAND_ID have the id -1: Qt never asks them to merge.
///
/// Inside a composite. A composite that merges asks canMergeWith() of its children, ids of -1 included, and does not
/// look at what mergeWith() answers. A class that does not merge must say so in canMergeWith(), or switch merging off
/// in its constructor (setMergeEnabled(false)). Otherwise two composites of one such command each, made within the
/// merge interval, become one step: the newer edit is made, but redo does not make it again, or undo does not take it
/// back. A class that merges must take over in mergeWith() all that redo needs of the newer command. See
/// docs/oddities.md#composites-do-not-look-at-what-mergewith-answers.
class MO_UNDO_STACK_EXPORT moUndoCommand : public moUndoCommandBase
{
public:
    /// Merge interval of a command that sets none, in seconds.
    static constexpr double defaultMergeResponseDelta = 0.4;

    /// \param parent  null means the composite that is being composed, if recording is on and there is one
    ///                (moUndoStack::getCurrentCommandParent()).
    moUndoCommand(const moUndoString& text, QUndoCommand* parent);
    ~moUndoCommand() override = default;

    /// Sets "id" (int).
    void makeMessage(moMessage& message) const override;

    /// True if `other`, the newer command, has merging enabled, has this command's id and was made strictly less than
    /// its own merge interval after this one. Intended: switch and interval of this, the older command, do not count,
    /// because it is the newer one that is merged and deleted. See
    /// docs/oddities.md#the-newer-command-decides-or-the-older-composite. False for anything that is no moUndoCommand.
    bool canMergeWith(const QUndoCommand* other) const override;

    /// The id of a class: 1, 2, 3 ... in the order of the first calls, the same until the process ends. The types are
    /// kept and compared, so a plugin with command classes that have ids must stay loaded.
    static int makeId(std::type_index type);

    /// Sets the merge interval in seconds. Negative, or not a number: no limit. 0: never merges.
    void setMergeResponseDelta(const double& seconds);

    /// Whether this command may be merged into an older one. Default true. Keeps the interval.
    void setMergeEnabled(bool enabled);

protected:
    /// Seconds since the clock's origin: when this command, or the newest one merged into it, was made.
    double creationTime() const { return m_creationTime; }

    /// Part of a merge: this command counts as made when the newer one was.
    void adoptCreationTime(const moUndoCommand& newer) { m_creationTime = newer.m_creationTime; }

    /// `other` as a Command, or null if it is none. Compares the classes first: nearly always both are of one class,
    /// and that is much cheaper than a dynamic_cast.
    template<class Command>
    static const Command* castLike(const Command& self, const QUndoCommand* other)
    {
        if (other && typeid(*other) == typeid(self)) return static_cast<const Command*>(other);
        return dynamic_cast<const Command*>(other);
    }

private:
    double m_creationTime;
};
