#pragma once

#include <support/SampleScene.h>

#include <moUndoStack/core/moUndoCommandBase.h>

#include <iosfwd>
#include <map>
#include <string>
#include <vector>

/// Whether newer commands of a class are merged into older ones of the same target.
enum class Merging
{
    Never,
    InSeries
};

/// An intended exception to a law. The law then asks for what the exception says instead.
enum class Exception
{
    UndoDoesNothing,       ///< undo() changes nothing
    TargetsAreNotCompared, ///< merges across targets
    OlderDecidesMerging,   ///< a disabled older command, not a disabled newer one, prevents the merge
    AnnouncesOtherFields,  ///< announces other fields than those that it writes
    HoldsTarget            ///< holds a reference on its target
};

/// One concrete command class and what its laws need to know of it. A class that is used in several forms (of a
/// variant, of another list, in the other direction) has a row without a form and one for each other form.
///
/// `make(target, k)` makes the k-th command of a series on the target, for the state that the target has: it can be
/// called at any time and with any k from 0 on, and each command changes something if it is the first on a new target.
/// Commands have no parent, or the composite being composed. If the containers of the target were destroyed, the
/// command is inert.
struct Sample
{
    using Make = moUndoCommandBase* (*)(SampleTarget& target, int k);

    std::string className; ///< as the library exports it
    std::string form;      ///< name of the form; empty for the first row of the class
    int (*commandId)();    ///< null for a class without an id of its own
    Merging merging;
    std::string target;                 ///< the role without which the command is inert; empty if there is none
    std::string others;                 ///< the roles of the other containers that it needs, separated by blanks
    std::string messageKeys;            ///< the keys after "id" with their types: `node=uint transformCommand=bool`
    std::vector<std::string> edits;     ///< lines of EditTrace for the first redo on a new target
    std::vector<std::string> undoEdits; ///< for its undo
    std::vector<std::string>
        againEdits; ///< for the redo of a second command like the first: the scene has its values already
    Make makeCommand;
    std::map<Exception, std::string> exceptions; ///< with the reason

    moUndoCommandBase* make(SampleTarget& of, int k) const;
    bool has(Exception exception) const { return exceptions.count(exception) > 0; }

    friend std::ostream& operator<<(std::ostream& stream, const Sample& sample);
};

/// All rows.
const std::vector<Sample>& samples();

/// Sets the merge interval of the command and of all commands below it.
void setMergeInterval(QUndoCommand& command, double seconds);
/// The same with the switch for merging.
void setMergingEnabled(QUndoCommand& command, bool enabled);
