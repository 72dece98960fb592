#pragma once

#include <moUndoStack/transform/moTransformUndoCommand.h>

#include <QtCore/QCoreApplication>

#include <functional>
#include <type_traits>

/// What Command reads and writes, and when it is mirrored: the rows of the table in the source file.
template<class Command>
struct moTransformRow;

class moTranslationUndoCommand;
class moRotationUndoCommand;
class moScaleUndoCommand;
class moScalePivotUndoCommand;
class moRotationPivotUndoCommand;
class moScalePivotTranslationUndoCommand;
class moRotationPivotTranslationUndoCommand;
class moRotationPivotOrientationUndoCommand;
class moRotationPivotDirectionUndoCommand;
class moShearUndoCommand;

namespace moUndoDetail {

template<class T, class... Others>
inline constexpr bool isOneOf = (std::is_same_v<T, Others> || ...);

/// The commands that have a row.
template<class Command>
inline constexpr bool isTransformValueCommand =
    isOneOf<Command, moTranslationUndoCommand, moRotationUndoCommand, moScaleUndoCommand, moScalePivotUndoCommand,
            moRotationPivotUndoCommand, moScalePivotTranslationUndoCommand, moRotationPivotTranslationUndoCommand,
            moRotationPivotOrientationUndoCommand, moRotationPivotDirectionUndoCommand, moShearUndoCommand>;

} // namespace moUndoDetail

/// A transform command over three floats, one of those below: a class outside of the library derives from
/// moTransformUndoCommand<osg::Vec3f>. `Flag` is bool for a command that takes the flag (world space), and left out
/// for one that does not. The synchronisation function gets what was written, so that the application can mirror it
/// elsewhere. A value placed in the world is kept as the three floats of that place: undo and redo give the components
/// back but for rounding, and do not drift.
template<class Command, class... Flag>
class MO_UNDO_STACK_EXPORT moTransformValueUndoCommand : public moTransformUndoCommand<osg::Vec3f>
{
    static_assert(moUndoDetail::isTransformValueCommand<Command>,
                  "moTransformValueUndoCommand is for the library's own commands: derive from "
                  "moTransformUndoCommand<osg::Vec3f>");

public:
    using SyncFunction = std::function<void(const osg::NodePtr& node, const osg::Vec3f& value, Flag... flag)>;

    // The optional bool and double are the merge switch and the merge interval of moTransformUndoCommand.
    moTransformValueUndoCommand(osg::NodePtr node, osg::Vec3f value, Flag... flag, QUndoCommand* parent,
                                int variantIndex);
    moTransformValueUndoCommand(osg::NodePtr node, osg::Vec3f value, Flag... flag, bool mergeEnabled,
                                QUndoCommand* parent, int variantIndex);
    moTransformValueUndoCommand(osg::NodePtr node, osg::Vec3f value, Flag... flag, double mergeDelta,
                                QUndoCommand* parent, int variantIndex);

    /// One function for the whole class and the rest of the process; an empty one switches mirroring off. The
    /// function may replace itself while it runs.
    static void setSyncFunction(const SyncFunction& function);

protected:
    osg::Vec3f get(osg::NodePtr node) override;
    void set(osg::NodePtr node, osg::Vec3f value) override;

    void write(const osg::NodePtr& node, const osg::Vec3f& value);
    void synchronise(unsigned int nodeId, const osg::Vec3f& value) const;

private:
    static moUndoDetail::HeldFunction<void(const osg::NodePtr&, const osg::Vec3f&, Flag...)> s_sync;
};

/// The same with a callback of the command's own, which is called at every step, before the synchronisation function:
/// identityChanged tells that the node's own transform became the identity, or no longer is.
template<class Command, class... Flag>
class MO_UNDO_STACK_EXPORT moTransformCallbackUndoCommand : public moTransformValueUndoCommand<Command, Flag...>
{
public:
    using Callback =
        std::function<void(unsigned int nodeId, const osg::Vec3f& value, int variantIndex, bool identityChanged)>;

    // The callback may be empty.
    moTransformCallbackUndoCommand(osg::NodePtr node, osg::Vec3f value, Flag... flag, QUndoCommand* parent,
                                   Callback callback, int variantIndex);
    moTransformCallbackUndoCommand(osg::NodePtr node, osg::Vec3f value, Flag... flag, bool mergeEnabled,
                                   QUndoCommand* parent, Callback callback, int variantIndex);
    moTransformCallbackUndoCommand(osg::NodePtr node, osg::Vec3f value, Flag... flag, double mergeDelta,
                                   QUndoCommand* parent, Callback callback, int variantIndex);

protected:
    void set(osg::NodePtr node, osg::Vec3f value) override;

private:
    Callback m_callback;
};

/// Sets the translation of a node's transform.
/// Made from (node, value, flag, [mergeEnabled | mergeDelta,] parent, callback, variantIndex).
///
/// \param value  unit of the scene; with the flag the point of the world to go to, without it relative to the parent.
/// \param flag   world space.
///
/// Mirrored, with the flag, for the node's own transform only: variants are never synchronised.
class MO_UNDO_STACK_EXPORT moTranslationUndoCommand
    : public moTransformCallbackUndoCommand<moTranslationUndoCommand, bool>
{
    Q_DECLARE_TR_FUNCTIONS(moTranslationUndoCommand)
    MO_UNDO_COMMAND_ID

public:
    using moTransformCallbackUndoCommand::moTransformCallbackUndoCommand;
};

/// Sets the Euler angles of a node's transform, in degrees; the order of the axes stays.
/// Made from (node, value, [mergeEnabled | mergeDelta,] parent, callback, variantIndex).
///
/// Mirrored for the node's own transform only.
class MO_UNDO_STACK_EXPORT moRotationUndoCommand : public moTransformCallbackUndoCommand<moRotationUndoCommand>
{
    Q_DECLARE_TR_FUNCTIONS(moRotationUndoCommand)
    MO_UNDO_COMMAND_ID

public:
    using moTransformCallbackUndoCommand::moTransformCallbackUndoCommand;
};

/// Sets the scale factors of a node's transform.
/// Made from (node, value, [mergeEnabled | mergeDelta,] parent, callback, variantIndex).
///
/// Mirrored for the node's own transform only.
class MO_UNDO_STACK_EXPORT moScaleUndoCommand : public moTransformCallbackUndoCommand<moScaleUndoCommand>
{
    Q_DECLARE_TR_FUNCTIONS(moScaleUndoCommand)
    MO_UNDO_COMMAND_ID

public:
    using moTransformCallbackUndoCommand::moTransformCallbackUndoCommand;
};

/// Sets the point that scaling leaves where it is.
/// Made from (node, value, flag, [mergeEnabled | mergeDelta,] parent, variantIndex).
///
/// \param flag  true: the value is a point of the world; false: of the node's own space.
///
/// Mirrored, with the flag, at every step, variants included: unlike a translation, this is intended.
class MO_UNDO_STACK_EXPORT moScalePivotUndoCommand : public moTransformValueUndoCommand<moScalePivotUndoCommand, bool>
{
    Q_DECLARE_TR_FUNCTIONS(moScalePivotUndoCommand)
    MO_UNDO_COMMAND_ID

public:
    using moTransformValueUndoCommand::moTransformValueUndoCommand;
};

/// Sets the point that the rotation turns about.
/// Made from (node, value, flag, [mergeEnabled | mergeDelta,] parent, variantIndex).
///
/// \param flag  true: the value is a point of the world; false: of the node's own space.
///
/// Mirrored, with the flag, at every step, variants included (intended).
class MO_UNDO_STACK_EXPORT moRotationPivotUndoCommand
    : public moTransformValueUndoCommand<moRotationPivotUndoCommand, bool>
{
    Q_DECLARE_TR_FUNCTIONS(moRotationPivotUndoCommand)
    MO_UNDO_COMMAND_ID

public:
    using moTransformValueUndoCommand::moTransformValueUndoCommand;
};

/// Sets how far the node is moved between scaling and rotation.
/// Made from (node, value, [mergeEnabled | mergeDelta,] parent, variantIndex).
///
/// Mirrored at every step, variants included (intended).
class MO_UNDO_STACK_EXPORT moScalePivotTranslationUndoCommand
    : public moTransformValueUndoCommand<moScalePivotTranslationUndoCommand>
{
    Q_DECLARE_TR_FUNCTIONS(moScalePivotTranslationUndoCommand)
    MO_UNDO_COMMAND_ID

public:
    using moTransformValueUndoCommand::moTransformValueUndoCommand;
};

/// Sets how far the node is moved between rotation and translation.
/// Made from (node, value, [mergeEnabled | mergeDelta,] parent, variantIndex).
///
/// Mirrored at every step, variants included (intended).
class MO_UNDO_STACK_EXPORT moRotationPivotTranslationUndoCommand
    : public moTransformValueUndoCommand<moRotationPivotTranslationUndoCommand>
{
    Q_DECLARE_TR_FUNCTIONS(moRotationPivotTranslationUndoCommand)
    MO_UNDO_COMMAND_ID

public:
    using moTransformValueUndoCommand::moTransformValueUndoCommand;
};

/// Sets the orientation of the axes that the rotation turns about, as three angles in degrees.
/// Made from (node, value, [mergeEnabled | mergeDelta,] parent, variantIndex).
///
/// The action word is that of moRotationPivotUndoCommand, and so are the texts; the ids differ. Intended.
/// Mirrored for the node's own transform only.
class MO_UNDO_STACK_EXPORT moRotationPivotOrientationUndoCommand
    : public moTransformValueUndoCommand<moRotationPivotOrientationUndoCommand>
{
    Q_DECLARE_TR_FUNCTIONS(moRotationPivotOrientationUndoCommand)
    MO_UNDO_COMMAND_ID

public:
    using moTransformValueUndoCommand::moTransformValueUndoCommand;
};

/// Sets the orientation of the axes that the rotation turns about by the direction in which one of them points.
///
/// \param directionMode  the axis, see moNodeUtils::setTransformNodeRotationDirection().
/// \param directionFlag  true: the direction is stored with length one.
///
/// Both are handed to the setter only. The old value is the direction as it is stored, whatever its axis; undo writes
/// it with this command's axis and flag. An editor that lets the user change the axis makes that a step of its own. The
/// action word is that of moRotationPivotUndoCommand, and so are the texts; the ids differ. Intended. Mirrored for the
/// node's own transform only.
class MO_UNDO_STACK_EXPORT moRotationPivotDirectionUndoCommand
    : public moTransformValueUndoCommand<moRotationPivotDirectionUndoCommand>
{
    Q_DECLARE_TR_FUNCTIONS(moRotationPivotDirectionUndoCommand)
    MO_UNDO_COMMAND_ID

public:
    moRotationPivotDirectionUndoCommand(osg::NodePtr node, osg::Vec3f value, int directionMode, bool directionFlag,
                                        QUndoCommand* parent, int variantIndex);
    moRotationPivotDirectionUndoCommand(osg::NodePtr node, osg::Vec3f value, int directionMode, bool directionFlag,
                                        bool mergeEnabled, QUndoCommand* parent, int variantIndex);
    moRotationPivotDirectionUndoCommand(osg::NodePtr node, osg::Vec3f value, int directionMode, bool directionFlag,
                                        double mergeDelta, QUndoCommand* parent, int variantIndex);

private:
    friend struct moTransformRow<moRotationPivotDirectionUndoCommand>;

    int m_directionMode;
    bool m_directionFlag;
};

/// Sets the shear of a node's own transform: (a, b, c) adds a·y + b·z to x and c·z to y.
///
/// Variants have no shear of their own to edit. Mirrored at every step.
class MO_UNDO_STACK_EXPORT moShearUndoCommand : public moTransformValueUndoCommand<moShearUndoCommand>
{
    Q_DECLARE_TR_FUNCTIONS(moShearUndoCommand)
    MO_UNDO_COMMAND_ID

public:
    moShearUndoCommand(osg::NodePtr node, osg::Vec3f value, QUndoCommand* parent);
};
