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
class MO_UNDO_STACK_EXPORT moUndoCommand : public moUndoCommandBase
{
public:
    /// Merge interval of a command that sets none, in seconds.
    static constexpr double defaultMergeResponseDelta = 0.4;

    /// \param parent  null means the composite that is being composed, if recording is on and there is one
    ///                (moUndoStack::getCurrentCommandParent()).
    moUndoCommand(const moUndoString& text, QUndoCommand* parent);
    ~moUndoCommand() override;

    /// Sets "id" (int).
    void makeMessage(moMessage& message) const override;

    /// True if `other`, the newer command, has merging enabled, has this command's id and was made strictly less than
    /// its own merge interval after this one. Whether merging is enabled here is not asked: it is the newer command
    /// that is merged away, and this asymmetry is intended. Anything that is no moUndoCommand is refused.
    bool canMergeWith(const QUndoCommand* other) const override;

    /// A small positive number for a class: 1, 2, 3 ... in the order of first asking, stable for the life of the
    /// process.
    static int makeId(std::type_index type);

    /// The merge interval, in seconds however long it is; negative (or not a number): no limit.
    void setMergeResponseDelta(const double& seconds);

    /// Whether this command may be merged into an older one. Default true. The interval stays as it is set.
    void setMergeEnabled(bool enabled);

protected:
    /// Seconds since the clock's origin: when this command, or the newest one merged into it, was made.
    double creationTime() const { return m_creationTime; }

    /// Part of a merge: this command counts as made when the newer one was.
    void adoptCreationTime(const moUndoCommand& newer) { m_creationTime = newer.m_creationTime; }

    /// `other` as a Command, or null if it is none. A command that may be merged is nearly always of the very class of
    /// `self`, which is much cheaper to see than that it is of some class derived from Command.
    template<class Command>
    static const Command* castLike(const Command& self, const QUndoCommand* other)
    {
        if (other && typeid(*other) == typeid(self)) return static_cast<const Command*>(other);
        return dynamic_cast<const Command*>(other);
    }

private:
    double m_creationTime;
    double m_mergeResponseDelta = defaultMergeResponseDelta;
    bool m_mergeEnabled = true;
};
