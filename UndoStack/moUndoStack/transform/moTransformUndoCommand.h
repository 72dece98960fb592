#pragma once

#include <moUndoStack/core/moFunctionUndoCommand.h>
#include <moUndoStack/core/moMergeOption.h>
#include <moUndoStack/core/moUndoStackExport.h>

#include <OpenSG/OSGVector.h>

#include <QtCore/QString>

#include <string>
#include <type_traits>

/// Sets one component of a node's transform, or of one of its transform variants. The base of the commands that
/// moNodeUtils' transform operations carry out: a subclass says which operation (get and set) and declares its id.
///
/// Text: the action word and the node's name in apostrophes, e.g. Translate 'Box'. Description: the action word.
/// Old value: read at each step, as moFunctionUndoCommand does; nothing is read at construction.
/// Merges with a newer command of the same class, node, flag and variant made within its merge interval.
/// A destroyed node makes undo and redo no-ops. What a node without a transform core gets is moNodeUtils' business.
/// Order of the constructors' arguments: node, value, what the class adds (flag, direction), [merge,] parent, the
/// callback if the class has one, variant index. For merge pass true, false or seconds as a double, see moMergeOption.
/// The parent may be null: the composite being composed, if any. It stands before callback and index here and in the
/// commands of the list of variants, and last everywhere else. A synchronisation function that records commands of its
/// own records them after this step: where this step was a redo, what could have been redone after it is lost, as with
/// any push. Write the mirrored scene directly, or block recording. Message: "id" (int), "node" (unsigned int),
/// "transformCommand" = true.
/// For osg::Vec3f and std::string: those are what the library exports.
template<class T>
class moTransformUndoCommand : public moFunctionUndoCommand<T>
{
    static_assert(std::is_same_v<T, osg::Vec3f> || std::is_same_v<T, std::string>,
                  "moTransformUndoCommand is for osg::Vec3f and std::string; for another value derive from "
                  "moFunctionUndoCommand");

public:
    /// Adds "transformCommand".
    void makeMessage(moMessage& message) const override;
    /// Asks for the same flag and variant, too.
    bool canMergeWith(const QUndoCommand* other) const override;

protected:
    /// \param text          the action word.
    /// \param flag          world space, handed to those operations that take it; false for the others.
    /// \param variantIndex  -1: the node's own transform; from 0 on: that variant of the node.
    moTransformUndoCommand(const char* text, osg::NodePtr node, T value, bool flag, QUndoCommand* parent,
                           int variantIndex);

    /// The same with the merging chosen, see moMergeOption: true or false, or seconds.
    moTransformUndoCommand(const char* text, osg::NodePtr node, T value, bool flag, moMergeOption merge,
                           QUndoCommand* parent, int variantIndex);

    /// The same with a string for the action word, which all commands share that are made with it.
    moTransformUndoCommand(const QString& text, osg::NodePtr node, T value, bool flag, moMergeOption merge,
                           QUndoCommand* parent, int variantIndex);

    /// World space, as given at construction.
    bool flag() const { return m_flag; }
    /// -1 for the node's own transform, else the index of the variant.
    int variantIndex() const { return m_variantIndex; }
    /// Whether the command edits the node's own transform.
    bool editsLiveTransform() const { return m_variantIndex == -1; }

private:
    bool m_flag;
    int m_variantIndex;
};

extern template class MO_UNDO_STACK_EXPORT moTransformUndoCommand<osg::Vec3f>;
extern template class MO_UNDO_STACK_EXPORT moTransformUndoCommand<std::string>;
