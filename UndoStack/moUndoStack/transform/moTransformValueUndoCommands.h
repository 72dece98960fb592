#pragma once

#include <moUndoStack/transform/moTransformUndoCommand.h>

#include <QtCore/QCoreApplication>

#include <functional>
#include <utility>

// The commands that set one component of a transform. Each is a class here and a row of the table in the source file.

/// Base of the commands below: sets three floats. The row of a command says what it reads and writes and when it is
/// mirrored. Only the library has rows: derive a command of your own from moTransformUndoCommand<osg::Vec3f>.
///
/// A value in world space is kept as the three floats of the place in the world. Undo and redo restore the components
/// up to rounding, however often they run. For text, merging, message, bad input and the order of the arguments see
/// moTransformUndoCommand.
///
/// Each command has a static setSyncFunction(), by which the application mirrors edits elsewhere. It sets the one
/// function of the class, until the process ends; an empty one switches mirroring off. The function may replace itself
/// while it runs.
class MO_UNDO_STACK_EXPORT moTransformValueUndoCommand : public moTransformUndoCommand<osg::Vec3f>
{
public:
    /// Called with the node and the value that was written.
    using SyncFunction = std::function<void(const osg::NodePtr& node, const osg::Vec3f& value)>;
    /// The same for commands that take the flag: called with the flag, too.
    using FlagSyncFunction = std::function<void(const osg::NodePtr& node, const osg::Vec3f& value, bool flag)>;

protected:
    /// Action word, getter, setter and synchronisation function of one command.
    struct Row;

    /// \param row   outlives the command.
    /// \param flag  false for a command that takes none.
    moTransformValueUndoCommand(const Row& row, osg::NodePtr node, osg::Vec3f value, bool flag, moMergeOption merge,
                                QUndoCommand* parent, int variantIndex);

    /// Reads as the row says.
    osg::Vec3f get(osg::NodePtr node) override;
    /// Writes as the row says, then calls synchronise().
    void set(osg::NodePtr node, osg::Vec3f value) override;

    /// Writes as the row says.
    void write(const osg::NodePtr& node, const osg::Vec3f& value);
    /// Calls the synchronisation function if the row says so, unless the node was destroyed.
    void synchronise(const osg::Vec3f& value) const;

    /// Sets the synchronisation function of the command that has this row.
    static void mirrorWith(const Row& row, const SyncFunction& function);
    /// The same for a command that takes the flag.
    static void mirrorWith(const Row& row, const FlagSyncFunction& function);

private:
    const Row& m_row;
};

/// The same with a callback for each command.
class MO_UNDO_STACK_EXPORT moTransformCallbackUndoCommand : public moTransformValueUndoCommand
{
public:
    /// Called at every step, before the synchronisation function. variantIndex: -1 for the node's own transform.
    /// identityChanged: the node's own transform became the identity, or no longer is.
    using Callback =
        std::function<void(unsigned int nodeId, const osg::Vec3f& value, int variantIndex, bool identityChanged)>;

protected:
    /// \param callback  may be empty.
    moTransformCallbackUndoCommand(const Row& row, osg::NodePtr node, osg::Vec3f value, bool flag, moMergeOption merge,
                                   QUndoCommand* parent, Callback callback, int variantIndex);

    /// Writes as the row says, then calls the callback and synchronise().
    void set(osg::NodePtr node, osg::Vec3f value) override;

private:
    Callback m_callback;
};

/// Sets the translation of a node's transform.
///
/// Mirrored for the node's own transform only.
class MO_UNDO_STACK_EXPORT moTranslationUndoCommand : public moTransformCallbackUndoCommand
{
    Q_DECLARE_TR_FUNCTIONS(moTranslationUndoCommand)
    MO_UNDO_COMMAND_ID
    Q_DECL_HIDDEN static const Row s_row;

public:
    /// Called with the node, the value that was written and the flag.
    using SyncFunction = FlagSyncFunction;

    /// \param value  in the unit of the scene.
    /// \param flag   true: the value is a point of the world; false: it is relative to the node's parent.
    moTranslationUndoCommand(osg::NodePtr node, osg::Vec3f value, bool flag, QUndoCommand* parent, Callback callback,
                             int variantIndex)
        : moTranslationUndoCommand(node, value, flag, moMergeOption(), parent, std::move(callback), variantIndex)
    {
    }
    /// \param merge  true, false or seconds, see moMergeOption.
    moTranslationUndoCommand(osg::NodePtr node, osg::Vec3f value, bool flag, moMergeOption merge, QUndoCommand* parent,
                             Callback callback, int variantIndex);

    /// See moTransformValueUndoCommand.
    static void setSyncFunction(const SyncFunction& function);
};

/// Sets the Euler angles of a node's transform; the order of the axes stays.
///
/// Mirrored for the node's own transform only.
class MO_UNDO_STACK_EXPORT moRotationUndoCommand : public moTransformCallbackUndoCommand
{
    Q_DECLARE_TR_FUNCTIONS(moRotationUndoCommand)
    MO_UNDO_COMMAND_ID
    Q_DECL_HIDDEN static const Row s_row;

public:
    /// \param value  degrees.
    moRotationUndoCommand(osg::NodePtr node, osg::Vec3f value, QUndoCommand* parent, Callback callback,
                          int variantIndex)
        : moRotationUndoCommand(node, value, moMergeOption(), parent, std::move(callback), variantIndex)
    {
    }
    /// \param merge  true, false or seconds, see moMergeOption.
    moRotationUndoCommand(osg::NodePtr node, osg::Vec3f value, moMergeOption merge, QUndoCommand* parent,
                          Callback callback, int variantIndex);

    /// See moTransformValueUndoCommand.
    static void setSyncFunction(const SyncFunction& function);
};

/// Sets the scale factors of a node's transform.
///
/// Mirrored for the node's own transform only.
class MO_UNDO_STACK_EXPORT moScaleUndoCommand : public moTransformCallbackUndoCommand
{
    Q_DECLARE_TR_FUNCTIONS(moScaleUndoCommand)
    MO_UNDO_COMMAND_ID
    Q_DECL_HIDDEN static const Row s_row;

public:
    /// \param value  factors along the three axes.
    moScaleUndoCommand(osg::NodePtr node, osg::Vec3f value, QUndoCommand* parent, Callback callback, int variantIndex)
        : moScaleUndoCommand(node, value, moMergeOption(), parent, std::move(callback), variantIndex)
    {
    }
    /// \param merge  true, false or seconds, see moMergeOption.
    moScaleUndoCommand(osg::NodePtr node, osg::Vec3f value, moMergeOption merge, QUndoCommand* parent,
                       Callback callback, int variantIndex);

    /// See moTransformValueUndoCommand.
    static void setSyncFunction(const SyncFunction& function);
};

/// Sets the point that scaling leaves where it is.
///
/// Mirrored at every step. Intended: also for variants, see docs/oddities.md#only-pivots-are-mirrored-for-variants.
class MO_UNDO_STACK_EXPORT moScalePivotUndoCommand : public moTransformValueUndoCommand
{
    Q_DECLARE_TR_FUNCTIONS(moScalePivotUndoCommand)
    MO_UNDO_COMMAND_ID
    Q_DECL_HIDDEN static const Row s_row;

public:
    /// Called with the node, the value that was written and the flag.
    using SyncFunction = FlagSyncFunction;

    /// \param value  a point, in the unit of the scene.
    /// \param flag   true: the point is in the world; false: it is in the node's own space.
    moScalePivotUndoCommand(osg::NodePtr node, osg::Vec3f value, bool flag, QUndoCommand* parent, int variantIndex)
        : moScalePivotUndoCommand(node, value, flag, moMergeOption(), parent, variantIndex)
    {
    }
    /// \param merge  true, false or seconds, see moMergeOption.
    moScalePivotUndoCommand(osg::NodePtr node, osg::Vec3f value, bool flag, moMergeOption merge, QUndoCommand* parent,
                            int variantIndex);

    /// See moTransformValueUndoCommand.
    static void setSyncFunction(const SyncFunction& function);
};

/// Sets the point that the rotation turns about.
///
/// Mirrored at every step. Intended: also for variants, see docs/oddities.md#only-pivots-are-mirrored-for-variants.
class MO_UNDO_STACK_EXPORT moRotationPivotUndoCommand : public moTransformValueUndoCommand
{
    Q_DECLARE_TR_FUNCTIONS(moRotationPivotUndoCommand)
    MO_UNDO_COMMAND_ID
    Q_DECL_HIDDEN static const Row s_row;

public:
    /// Called with the node, the value that was written and the flag.
    using SyncFunction = FlagSyncFunction;

    /// \param value  a point, in the unit of the scene.
    /// \param flag   true: the point is in the world; false: it is in the node's own space.
    moRotationPivotUndoCommand(osg::NodePtr node, osg::Vec3f value, bool flag, QUndoCommand* parent, int variantIndex)
        : moRotationPivotUndoCommand(node, value, flag, moMergeOption(), parent, variantIndex)
    {
    }
    /// \param merge  true, false or seconds, see moMergeOption.
    moRotationPivotUndoCommand(osg::NodePtr node, osg::Vec3f value, bool flag, moMergeOption merge,
                               QUndoCommand* parent, int variantIndex);

    /// See moTransformValueUndoCommand.
    static void setSyncFunction(const SyncFunction& function);
};

/// Sets how far the node is moved between scaling and rotation.
///
/// Mirrored at every step. Intended: also for variants, see docs/oddities.md#only-pivots-are-mirrored-for-variants.
class MO_UNDO_STACK_EXPORT moScalePivotTranslationUndoCommand : public moTransformValueUndoCommand
{
    Q_DECLARE_TR_FUNCTIONS(moScalePivotTranslationUndoCommand)
    MO_UNDO_COMMAND_ID
    Q_DECL_HIDDEN static const Row s_row;

public:
    /// \param value  unit of the scene.
    moScalePivotTranslationUndoCommand(osg::NodePtr node, osg::Vec3f value, QUndoCommand* parent, int variantIndex)
        : moScalePivotTranslationUndoCommand(node, value, moMergeOption(), parent, variantIndex)
    {
    }
    /// \param merge  true, false or seconds, see moMergeOption.
    moScalePivotTranslationUndoCommand(osg::NodePtr node, osg::Vec3f value, moMergeOption merge, QUndoCommand* parent,
                                       int variantIndex);

    /// See moTransformValueUndoCommand.
    static void setSyncFunction(const SyncFunction& function);
};

/// Sets how far the node is moved between rotation and translation.
///
/// Mirrored at every step. Intended: also for variants, see docs/oddities.md#only-pivots-are-mirrored-for-variants.
class MO_UNDO_STACK_EXPORT moRotationPivotTranslationUndoCommand : public moTransformValueUndoCommand
{
    Q_DECLARE_TR_FUNCTIONS(moRotationPivotTranslationUndoCommand)
    MO_UNDO_COMMAND_ID
    Q_DECL_HIDDEN static const Row s_row;

public:
    /// \param value  unit of the scene.
    moRotationPivotTranslationUndoCommand(osg::NodePtr node, osg::Vec3f value, QUndoCommand* parent, int variantIndex)
        : moRotationPivotTranslationUndoCommand(node, value, moMergeOption(), parent, variantIndex)
    {
    }
    /// \param merge  true, false or seconds, see moMergeOption.
    moRotationPivotTranslationUndoCommand(osg::NodePtr node, osg::Vec3f value, moMergeOption merge,
                                          QUndoCommand* parent, int variantIndex);

    /// See moTransformValueUndoCommand.
    static void setSyncFunction(const SyncFunction& function);
};

/// Sets the orientation of the axes that the rotation turns about.
///
/// Intended: text and description are those of moRotationPivotUndoCommand; they are part of the interface. See
/// docs/oddities.md#one-word-for-several-commands.
/// Mirrored for the node's own transform only.
class MO_UNDO_STACK_EXPORT moRotationPivotOrientationUndoCommand : public moTransformValueUndoCommand
{
    Q_DECLARE_TR_FUNCTIONS(moRotationPivotOrientationUndoCommand)
    MO_UNDO_COMMAND_ID
    Q_DECL_HIDDEN static const Row s_row;

public:
    /// \param value  three angles in degrees.
    moRotationPivotOrientationUndoCommand(osg::NodePtr node, osg::Vec3f value, QUndoCommand* parent, int variantIndex)
        : moRotationPivotOrientationUndoCommand(node, value, moMergeOption(), parent, variantIndex)
    {
    }
    /// \param merge  true, false or seconds, see moMergeOption.
    moRotationPivotOrientationUndoCommand(osg::NodePtr node, osg::Vec3f value, moMergeOption merge,
                                          QUndoCommand* parent, int variantIndex);

    /// See moTransformValueUndoCommand.
    static void setSyncFunction(const SyncFunction& function);
};

/// Sets the orientation of the axes that the rotation turns about by the direction in which one of them points.
///
/// Intended: the value of the command is the direction alone. The old value is the direction as it is stored, whatever
/// its axis, and undo writes it with this command's axis and flag. Change the axis in a step of its own. See
/// docs/oddities.md#a-direction-forgets-its-axis.
/// Intended: text and description are those of moRotationPivotUndoCommand; they are part of the interface. See
/// docs/oddities.md#one-word-for-several-commands.
/// Mirrored for the node's own transform only.
class MO_UNDO_STACK_EXPORT moRotationPivotDirectionUndoCommand : public moTransformValueUndoCommand
{
    Q_DECLARE_TR_FUNCTIONS(moRotationPivotDirectionUndoCommand)
    MO_UNDO_COMMAND_ID
    Q_DECL_HIDDEN static const Row s_row;

public:
    /// \param value          the direction.
    /// \param directionMode  the axis, see moNodeUtils::setTransformNodeRotationDirection().
    /// \param directionFlag  true: the direction is stored with length one; false: as given.
    moRotationPivotDirectionUndoCommand(osg::NodePtr node, osg::Vec3f value, int directionMode, bool directionFlag,
                                        QUndoCommand* parent, int variantIndex)
        : moRotationPivotDirectionUndoCommand(node, value, directionMode, directionFlag, moMergeOption(), parent,
                                              variantIndex)
    {
    }
    /// \param merge  true, false or seconds, see moMergeOption.
    moRotationPivotDirectionUndoCommand(osg::NodePtr node, osg::Vec3f value, int directionMode, bool directionFlag,
                                        moMergeOption merge, QUndoCommand* parent, int variantIndex);

    /// See moTransformValueUndoCommand.
    static void setSyncFunction(const SyncFunction& function);

protected:
    /// Writes the direction with axis and flag, then calls synchronise().
    void set(osg::NodePtr node, osg::Vec3f value) override;

private:
    int m_directionMode;
    bool m_directionFlag;
};

/// Sets the shear of a node's own transform.
///
/// Variants have no shear, so there is no variant index. Mirrored at every step. There is no merge option.
class MO_UNDO_STACK_EXPORT moShearUndoCommand : public moTransformValueUndoCommand
{
    Q_DECLARE_TR_FUNCTIONS(moShearUndoCommand)
    MO_UNDO_COMMAND_ID
    Q_DECL_HIDDEN static const Row s_row;

public:
    /// \param value  (a, b, c) adds a·y + b·z to x and c·z to y; zero is no shear.
    moShearUndoCommand(osg::NodePtr node, osg::Vec3f value, QUndoCommand* parent);

    /// See moTransformValueUndoCommand.
    static void setSyncFunction(const SyncFunction& function);
};
