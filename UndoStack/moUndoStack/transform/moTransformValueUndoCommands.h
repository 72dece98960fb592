#pragma once

#include <moUndoStack/transform/moTransformUndoCommand.h>

#include <QtCore/QCoreApplication>

#include <functional>
#include <utility>

// The commands that set one component of a transform. Each is a class here and a row in the table in the source.

/// Base of the commands below: a transform command over three floats, whose row says what it reads and writes and when
/// it is mirrored. For the library's own rows: a command of yours derives from moTransformUndoCommand<osg::Vec3f>.
///
/// A value placed in the world is kept as the three floats of that place: undo and redo give the components back but for
/// rounding, and do not drift. For all else (text, merging, messages, bad input, the order of the constructors'
/// arguments) see moTransformUndoCommand.
///
/// Each command has a static setSyncFunction(): one function for the whole class and the rest of the process, so that
/// the application can mirror edits elsewhere. An empty one switches mirroring off. It may replace itself while it runs.
class MO_UNDO_STACK_EXPORT moTransformValueUndoCommand : public moTransformUndoCommand<osg::Vec3f>
{
public:
    /// Told the node and what was written.
    using SyncFunction = std::function<void(const osg::NodePtr& node, const osg::Vec3f& value)>;
    /// The same for the commands that take the flag: told the flag, too.
    using FlagSyncFunction = std::function<void(const osg::NodePtr& node, const osg::Vec3f& value, bool flag)>;

protected:
    /// Action word, getter, setter and mirror of one command.
    struct Row;

    /// \param row   outlives the command.
    /// \param flag  false for a command that takes none.
    moTransformValueUndoCommand(const Row& row, osg::NodePtr node, osg::Vec3f value, bool flag, moMergeOption merge,
                                QUndoCommand* parent, int variantIndex);

    /// Reads as the row says.
    osg::Vec3f get(osg::NodePtr node) override;
    /// Writes as the row says, then tells the mirror.
    void set(osg::NodePtr node, osg::Vec3f value) override;

    /// Writes as the row says.
    void write(const osg::NodePtr& node, const osg::Vec3f& value);
    /// Tells the mirror what was written, if the row says so and the node was not destroyed.
    void synchronise(const osg::Vec3f& value) const;

    /// Sets the mirror of the command that has this row.
    static void mirrorWith(const Row& row, const SyncFunction& function);
    /// The same for a command that takes the flag.
    static void mirrorWith(const Row& row, const FlagSyncFunction& function);

private:
    const Row& m_row;
};

/// The same with a callback of the command's own.
class MO_UNDO_STACK_EXPORT moTransformCallbackUndoCommand : public moTransformValueUndoCommand
{
public:
    /// Called at every step, before the synchronisation function. identityChanged: the node's own transform became the
    /// identity, or no longer is.
    using Callback =
        std::function<void(unsigned int nodeId, const osg::Vec3f& value, int variantIndex, bool identityChanged)>;

protected:
    /// \param callback  may be empty.
    moTransformCallbackUndoCommand(const Row& row, osg::NodePtr node, osg::Vec3f value, bool flag, moMergeOption merge,
                                   QUndoCommand* parent, Callback callback, int variantIndex);

    /// Writes as the row says, then tells the callback and the mirror.
    void set(osg::NodePtr node, osg::Vec3f value) override;

private:
    Callback m_callback;
};

/// Sets the translation of a node's transform.
///
/// Mirrored for the node's own transform only: variants are never synchronised.
class MO_UNDO_STACK_EXPORT moTranslationUndoCommand : public moTransformCallbackUndoCommand
{
    Q_DECLARE_TR_FUNCTIONS(moTranslationUndoCommand)
    MO_UNDO_COMMAND_ID
    static const Row s_row;

public:
    /// Told the node, what was written and the flag.
    using SyncFunction = FlagSyncFunction;

    /// \param value  unit of the scene; with the flag the point of the world to go to, without it relative to the parent.
    /// \param flag   world space.
    moTranslationUndoCommand(osg::NodePtr node, osg::Vec3f value, bool flag, QUndoCommand* parent, Callback callback,
                             int variantIndex)
        : moTranslationUndoCommand(node, value, flag, moMergeOption(), parent, std::move(callback), variantIndex)
    {
    }
    /// \param merge  true, false or seconds, see moMergeOption.
    moTranslationUndoCommand(osg::NodePtr node, osg::Vec3f value, bool flag, moMergeOption merge, QUndoCommand* parent,
                             Callback callback, int variantIndex)
        : moTransformCallbackUndoCommand(s_row, node, value, flag, merge, parent, std::move(callback), variantIndex)
    {
    }

    /// See moTransformValueUndoCommand.
    static void setSyncFunction(const SyncFunction& function) { mirrorWith(s_row, function); }
};

/// Sets the Euler angles of a node's transform; the order of the axes stays.
///
/// Mirrored for the node's own transform only: variants are never synchronised.
class MO_UNDO_STACK_EXPORT moRotationUndoCommand : public moTransformCallbackUndoCommand
{
    Q_DECLARE_TR_FUNCTIONS(moRotationUndoCommand)
    MO_UNDO_COMMAND_ID
    static const Row s_row;

public:
    /// \param value  degrees.
    moRotationUndoCommand(osg::NodePtr node, osg::Vec3f value, QUndoCommand* parent, Callback callback,
                          int variantIndex)
        : moRotationUndoCommand(node, value, moMergeOption(), parent, std::move(callback), variantIndex)
    {
    }
    /// \param merge  true, false or seconds, see moMergeOption.
    moRotationUndoCommand(osg::NodePtr node, osg::Vec3f value, moMergeOption merge, QUndoCommand* parent,
                          Callback callback, int variantIndex)
        : moTransformCallbackUndoCommand(s_row, node, value, false, merge, parent, std::move(callback), variantIndex)
    {
    }

    /// See moTransformValueUndoCommand.
    static void setSyncFunction(const SyncFunction& function) { mirrorWith(s_row, function); }
};

/// Sets the scale factors of a node's transform.
///
/// Mirrored for the node's own transform only: variants are never synchronised.
class MO_UNDO_STACK_EXPORT moScaleUndoCommand : public moTransformCallbackUndoCommand
{
    Q_DECLARE_TR_FUNCTIONS(moScaleUndoCommand)
    MO_UNDO_COMMAND_ID
    static const Row s_row;

public:
    /// \param value  factors along the three axes.
    moScaleUndoCommand(osg::NodePtr node, osg::Vec3f value, QUndoCommand* parent, Callback callback, int variantIndex)
        : moScaleUndoCommand(node, value, moMergeOption(), parent, std::move(callback), variantIndex)
    {
    }
    /// \param merge  true, false or seconds, see moMergeOption.
    moScaleUndoCommand(osg::NodePtr node, osg::Vec3f value, moMergeOption merge, QUndoCommand* parent,
                       Callback callback, int variantIndex)
        : moTransformCallbackUndoCommand(s_row, node, value, false, merge, parent, std::move(callback), variantIndex)
    {
    }

    /// See moTransformValueUndoCommand.
    static void setSyncFunction(const SyncFunction& function) { mirrorWith(s_row, function); }
};

/// Sets the point that scaling leaves where it is.
///
/// Mirrored at every step, variants included: unlike a translation, this is intended.
class MO_UNDO_STACK_EXPORT moScalePivotUndoCommand : public moTransformValueUndoCommand
{
    Q_DECLARE_TR_FUNCTIONS(moScalePivotUndoCommand)
    MO_UNDO_COMMAND_ID
    static const Row s_row;

public:
    /// Told the node, what was written and the flag.
    using SyncFunction = FlagSyncFunction;

    /// \param value  a point, in the unit of the scene.
    /// \param flag   true: of the world; false: of the node's own space.
    moScalePivotUndoCommand(osg::NodePtr node, osg::Vec3f value, bool flag, QUndoCommand* parent, int variantIndex)
        : moScalePivotUndoCommand(node, value, flag, moMergeOption(), parent, variantIndex)
    {
    }
    /// \param merge  true, false or seconds, see moMergeOption.
    moScalePivotUndoCommand(osg::NodePtr node, osg::Vec3f value, bool flag, moMergeOption merge, QUndoCommand* parent,
                            int variantIndex)
        : moTransformValueUndoCommand(s_row, node, value, flag, merge, parent, variantIndex)
    {
    }

    /// See moTransformValueUndoCommand.
    static void setSyncFunction(const SyncFunction& function) { mirrorWith(s_row, function); }
};

/// Sets the point that the rotation turns about.
///
/// Mirrored at every step, variants included: unlike a translation, this is intended.
class MO_UNDO_STACK_EXPORT moRotationPivotUndoCommand : public moTransformValueUndoCommand
{
    Q_DECLARE_TR_FUNCTIONS(moRotationPivotUndoCommand)
    MO_UNDO_COMMAND_ID
    static const Row s_row;

public:
    /// Told the node, what was written and the flag.
    using SyncFunction = FlagSyncFunction;

    /// \param value  a point, in the unit of the scene.
    /// \param flag   true: of the world; false: of the node's own space.
    moRotationPivotUndoCommand(osg::NodePtr node, osg::Vec3f value, bool flag, QUndoCommand* parent, int variantIndex)
        : moRotationPivotUndoCommand(node, value, flag, moMergeOption(), parent, variantIndex)
    {
    }
    /// \param merge  true, false or seconds, see moMergeOption.
    moRotationPivotUndoCommand(osg::NodePtr node, osg::Vec3f value, bool flag, moMergeOption merge,
                               QUndoCommand* parent, int variantIndex)
        : moTransformValueUndoCommand(s_row, node, value, flag, merge, parent, variantIndex)
    {
    }

    /// See moTransformValueUndoCommand.
    static void setSyncFunction(const SyncFunction& function) { mirrorWith(s_row, function); }
};

/// Sets how far the node is moved between scaling and rotation.
///
/// Mirrored at every step, variants included: unlike a translation, this is intended.
class MO_UNDO_STACK_EXPORT moScalePivotTranslationUndoCommand : public moTransformValueUndoCommand
{
    Q_DECLARE_TR_FUNCTIONS(moScalePivotTranslationUndoCommand)
    MO_UNDO_COMMAND_ID
    static const Row s_row;

public:
    /// \param value  unit of the scene.
    moScalePivotTranslationUndoCommand(osg::NodePtr node, osg::Vec3f value, QUndoCommand* parent, int variantIndex)
        : moScalePivotTranslationUndoCommand(node, value, moMergeOption(), parent, variantIndex)
    {
    }
    /// \param merge  true, false or seconds, see moMergeOption.
    moScalePivotTranslationUndoCommand(osg::NodePtr node, osg::Vec3f value, moMergeOption merge, QUndoCommand* parent,
                                       int variantIndex)
        : moTransformValueUndoCommand(s_row, node, value, false, merge, parent, variantIndex)
    {
    }

    /// See moTransformValueUndoCommand.
    static void setSyncFunction(const SyncFunction& function) { mirrorWith(s_row, function); }
};

/// Sets how far the node is moved between rotation and translation.
///
/// Mirrored at every step, variants included: unlike a translation, this is intended.
class MO_UNDO_STACK_EXPORT moRotationPivotTranslationUndoCommand : public moTransformValueUndoCommand
{
    Q_DECLARE_TR_FUNCTIONS(moRotationPivotTranslationUndoCommand)
    MO_UNDO_COMMAND_ID
    static const Row s_row;

public:
    /// \param value  unit of the scene.
    moRotationPivotTranslationUndoCommand(osg::NodePtr node, osg::Vec3f value, QUndoCommand* parent, int variantIndex)
        : moRotationPivotTranslationUndoCommand(node, value, moMergeOption(), parent, variantIndex)
    {
    }
    /// \param merge  true, false or seconds, see moMergeOption.
    moRotationPivotTranslationUndoCommand(osg::NodePtr node, osg::Vec3f value, moMergeOption merge,
                                          QUndoCommand* parent, int variantIndex)
        : moTransformValueUndoCommand(s_row, node, value, false, merge, parent, variantIndex)
    {
    }

    /// See moTransformValueUndoCommand.
    static void setSyncFunction(const SyncFunction& function) { mirrorWith(s_row, function); }
};

/// Sets the orientation of the axes that the rotation turns about.
///
/// The action word is that of moRotationPivotUndoCommand, and so are the texts; the ids differ. Intended.
/// Mirrored for the node's own transform only: variants are never synchronised.
class MO_UNDO_STACK_EXPORT moRotationPivotOrientationUndoCommand : public moTransformValueUndoCommand
{
    Q_DECLARE_TR_FUNCTIONS(moRotationPivotOrientationUndoCommand)
    MO_UNDO_COMMAND_ID
    static const Row s_row;

public:
    /// \param value  three angles in degrees.
    moRotationPivotOrientationUndoCommand(osg::NodePtr node, osg::Vec3f value, QUndoCommand* parent, int variantIndex)
        : moRotationPivotOrientationUndoCommand(node, value, moMergeOption(), parent, variantIndex)
    {
    }
    /// \param merge  true, false or seconds, see moMergeOption.
    moRotationPivotOrientationUndoCommand(osg::NodePtr node, osg::Vec3f value, moMergeOption merge,
                                          QUndoCommand* parent, int variantIndex)
        : moTransformValueUndoCommand(s_row, node, value, false, merge, parent, variantIndex)
    {
    }

    /// See moTransformValueUndoCommand.
    static void setSyncFunction(const SyncFunction& function) { mirrorWith(s_row, function); }
};

/// Sets the orientation of the axes that the rotation turns about by the direction in which one of them points.
///
/// Axis and flag are handed to the setter only. The old value is the direction as it is stored, whatever its axis; undo
/// writes it with this command's axis and flag. An editor that lets the user change the axis makes that a step of its
/// own. The action word is that of moRotationPivotUndoCommand, and so are the texts; the ids differ. Intended.
/// Mirrored for the node's own transform only: variants are never synchronised.
class MO_UNDO_STACK_EXPORT moRotationPivotDirectionUndoCommand : public moTransformValueUndoCommand
{
    Q_DECLARE_TR_FUNCTIONS(moRotationPivotDirectionUndoCommand)
    MO_UNDO_COMMAND_ID
    static const Row s_row;

public:
    /// \param value          the direction.
    /// \param directionMode  the axis, see moNodeUtils::setTransformNodeRotationDirection().
    /// \param directionFlag  true: the direction is stored with length one.
    moRotationPivotDirectionUndoCommand(osg::NodePtr node, osg::Vec3f value, int directionMode, bool directionFlag,
                                        QUndoCommand* parent, int variantIndex)
        : moRotationPivotDirectionUndoCommand(node, value, directionMode, directionFlag, moMergeOption(), parent,
                                              variantIndex)
    {
    }
    /// \param merge  true, false or seconds, see moMergeOption.
    moRotationPivotDirectionUndoCommand(osg::NodePtr node, osg::Vec3f value, int directionMode, bool directionFlag,
                                        moMergeOption merge, QUndoCommand* parent, int variantIndex)
        : moTransformValueUndoCommand(s_row, node, value, false, merge, parent, variantIndex),
          m_directionMode(directionMode),
          m_directionFlag(directionFlag)
    {
    }

    /// See moTransformValueUndoCommand.
    static void setSyncFunction(const SyncFunction& function) { mirrorWith(s_row, function); }

protected:
    /// Writes direction, axis and flag, then tells the mirror.
    void set(osg::NodePtr node, osg::Vec3f value) override;

private:
    int m_directionMode;
    bool m_directionFlag;
};

/// Sets the shear of a node's own transform.
///
/// Variants have no shear of their own to edit. Mirrored at every step.
class MO_UNDO_STACK_EXPORT moShearUndoCommand : public moTransformValueUndoCommand
{
    Q_DECLARE_TR_FUNCTIONS(moShearUndoCommand)
    MO_UNDO_COMMAND_ID
    static const Row s_row;

public:
    /// \param value  (a, b, c) adds a·y + b·z to x and c·z to y.
    moShearUndoCommand(osg::NodePtr node, osg::Vec3f value, QUndoCommand* parent)
        : moTransformValueUndoCommand(s_row, node, value, false, moMergeOption(), parent, -1)
    {
    }

    /// See moTransformValueUndoCommand.
    static void setSyncFunction(const SyncFunction& function) { mirrorWith(s_row, function); }
};
