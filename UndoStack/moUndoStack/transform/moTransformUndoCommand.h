#pragma once

#include <moUndoStack/core/moFunctionUndoCommand.h>
#include <moUndoStack/core/moMergeOption.h>
#include <moUndoStack/core/moUndoStackExport.h>

#include <OpenSG/OSGVector.h>

#include <QtCore/QString>

#include <string>
#include <type_traits>

/// Sets one component of a node's transform, or of one of its transform variants. Base class: a subclass declares its
/// id, and calls a pair of moNodeUtils' transform functions in get() and set().
///
/// Text: the action word and the node's name in apostrophes, e.g. Translate 'Box'. Description: the action word.
/// Old value: read at each step, as moFunctionUndoCommand does; nothing is read at construction.
/// Merges with a newer command of the same class, node, flag and variant made within its merge interval.
/// If the node was destroyed, undo and redo are no-ops. moNodeUtils decides what happens to a node whose core is no
/// osg::Transform3D.
/// Message: "id" (int), "node" (unsigned int), "transformCommand" = true.
///
/// Arguments of the constructors, in this order: node, value, what the class adds (flag, axis), [merge,] parent, the
/// callback if the class has one, variant index if it has one. For merge pass true, false or seconds as a double, see
/// moMergeOption. A null parent means the composite being composed, if any. Intended: the parent comes before callback
/// and variant index. This order is part of the interface of the folder transform/; see
/// docs/oddities.md#parent-callback-variant-index for the other families.
///
/// A synchronisation function that records commands records them after this step, and the push cuts off what could be
/// redone. Write the mirrored scene directly, or block recording. See
/// docs/oddities.md#a-mirror-that-records-cuts-off-redo.
///
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
    /// Adds: both have the same flag and variant index.
    bool canMergeWith(const QUndoCommand* other) const override;

protected:
    /// \param text          the action word.
    /// \param flag          world space, for the functions of moNodeUtils that take it; false for the others.
    /// \param variantIndex  -1: the node's own transform; from 0 on: that variant of the node.
    moTransformUndoCommand(const char* text, osg::NodePtr node, T value, bool flag, QUndoCommand* parent,
                           int variantIndex);

    /// \param merge  true, false or seconds, see moMergeOption.
    moTransformUndoCommand(const char* text, osg::NodePtr node, T value, bool flag, moMergeOption merge,
                           QUndoCommand* parent, int variantIndex);

    /// The same with a string for the action word, shared by all commands made with it.
    moTransformUndoCommand(const QString& text, osg::NodePtr node, T value, bool flag, moMergeOption merge,
                           QUndoCommand* parent, int variantIndex);

    /// Whether the value is in world space, as given at construction.
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
