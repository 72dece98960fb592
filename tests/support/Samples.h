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

/// What the rows can be excepted from, always on purpose. A class that is excepted does not just miss a law: it has to
/// behave as the reason says.
enum class Exception
{
    UndoDoesNothing,       ///< undo() leaves everything as it is
    TargetsAreNotCompared, ///< merges across targets
    OlderDecidesMerging,   ///< a disabled older command, not a disabled newer one, prevents the merge
    AnnouncesOtherFields,  ///< the change notifications name other fields than those that were written
    HoldsTarget            ///< the target lives as long as the command
};

/// One concrete command class and all that its laws need to know of it. A class that is used in several forms (of a
/// variant, of another list, in the other direction) has a row without a form and one for each other form.
///
/// `make(target, k)` gives the k-th command of a series on the target, in the state that the target is in: it can be
/// called at any time and with any k from 0 on, and each command really changes something if it is the first on a fresh
/// target. Commands get no parent but the composite being composed. On a target whose containers are gone it gives an
/// inert command.
struct Sample
{
    using Make = moUndoCommandBase* (*)(SampleTarget& target, int k);

    std::string className; ///< as the library exports it
    std::string form;      ///< what tells its row from the class's others; empty for the first
    int (*commandId)();    ///< null for a class without an id of its own
    Merging merging;
    std::string target;                 ///< the role without which the command can do nothing; empty if there is none
    std::string others;                 ///< the roles of whatever else it needs, separated by blanks
    std::string messageKeys;            ///< with their types, what follows "id": `node=uint transformCommand=bool`
    std::vector<std::string> edits;     ///< of the first redo on a fresh target: what EditTrace tells
    std::vector<std::string> undoEdits; ///< of its undo
    std::vector<std::string>
        againEdits; ///< of a second one alike, after the first: the scene is as it wants it already
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
