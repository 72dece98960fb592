#include <moUndoStack/transform/moTransformValueUndoCommands.h>

#include <moUndoStack/core/moContainer_p.h>
#include <moUndoStack/transform/moMirror_p.h>

#include <moOpenSGUtils/moNodeUtils.h>

MO_UNDO_COMMAND_ID_IMPL(moTranslationUndoCommand)
MO_UNDO_COMMAND_ID_IMPL(moRotationUndoCommand)
MO_UNDO_COMMAND_ID_IMPL(moScaleUndoCommand)
MO_UNDO_COMMAND_ID_IMPL(moScalePivotUndoCommand)
MO_UNDO_COMMAND_ID_IMPL(moRotationPivotUndoCommand)
MO_UNDO_COMMAND_ID_IMPL(moScalePivotTranslationUndoCommand)
MO_UNDO_COMMAND_ID_IMPL(moRotationPivotTranslationUndoCommand)
MO_UNDO_COMMAND_ID_IMPL(moRotationPivotOrientationUndoCommand)
MO_UNDO_COMMAND_ID_IMPL(moRotationPivotDirectionUndoCommand)
MO_UNDO_COMMAND_ID_IMPL(moShearUndoCommand)

/// When a step calls the synchronisation function. Intended: of all components that variants have, only pivots and
/// pivot translations are mirrored for variants. See docs/oddities.md#only-pivots-are-mirrored-for-variants.
enum class Mirrored
{
    OwnTransform,
    Always
};

struct moTransformValueUndoCommand::Row
{
    QString actionWord; ///< shared by the descriptions of all commands of the class
    Mirrored mirrored;
    osg::Vec3f (*read)(const osg::NodePtr& node, bool flag, int variantIndex);
    void (*write)(const osg::NodePtr& node, const osg::Vec3f& value, bool flag, int variantIndex);
    /// The synchronisation function; the only part of a row that changes.
    mutable moUndoDetail::HeldFunction<void(const osg::NodePtr&, const osg::Vec3f&, bool)> sync = {};
};

using N = const osg::NodePtr&;
using V = const osg::Vec3f&;

// clang-format off
const moTranslationUndoCommand::Row moTranslationUndoCommand::s_row{QStringLiteral("Translate"), Mirrored::OwnTransform,
    [](N node, bool flag, int i)      { return moNodeUtils::getTransformNodeTranslation(node, flag, i); },
    [](N node, V v, bool flag, int i) { moNodeUtils::setTransformNodeTranslation(node, v[0], v[1], v[2], flag, i); }};
const moRotationUndoCommand::Row moRotationUndoCommand::s_row{QStringLiteral("Rotate"), Mirrored::OwnTransform,
    [](N node, bool, int i)      { return moNodeUtils::getTransformNodeRotation(node, i); },
    [](N node, V v, bool, int i) { moNodeUtils::setTransformNodeRotation(node, v[0], v[1], v[2], i); }};
const moScaleUndoCommand::Row moScaleUndoCommand::s_row{QStringLiteral("Scale"), Mirrored::OwnTransform,
    [](N node, bool, int i)      { return moNodeUtils::getTransformNodeScale(node, i); },
    [](N node, V v, bool, int i) { moNodeUtils::setTransformNodeScale(node, v[0], v[1], v[2], i); }};
const moScalePivotUndoCommand::Row moScalePivotUndoCommand::s_row{QStringLiteral("Change Scale Pivot"), Mirrored::Always,
    [](N node, bool flag, int i)      { return moNodeUtils::getTransformNodeScalePivot(node, flag, i); },
    [](N node, V v, bool flag, int i) { moNodeUtils::setTransformNodeScalePivot(node, v[0], v[1], v[2], flag, i); }};
const moRotationPivotUndoCommand::Row moRotationPivotUndoCommand::s_row{QStringLiteral("Change Rotation Pivot"), Mirrored::Always,
    [](N node, bool flag, int i)      { return moNodeUtils::getTransformNodeRotatePivot(node, flag, i); },
    [](N node, V v, bool flag, int i) { moNodeUtils::setTransformNodeRotatePivot(node, v[0], v[1], v[2], flag, i); }};
const moScalePivotTranslationUndoCommand::Row moScalePivotTranslationUndoCommand::s_row{QStringLiteral("Change Scale Pivot Translation"), Mirrored::Always,
    [](N node, bool, int i)      { return moNodeUtils::getTransformNodeScalePivotTranslation(node, i); },
    [](N node, V v, bool, int i) { moNodeUtils::setTransformNodeScalePivotTranslation(node, v[0], v[1], v[2], i); }};
const moRotationPivotTranslationUndoCommand::Row moRotationPivotTranslationUndoCommand::s_row{QStringLiteral("Change Rotation Pivot Translation"), Mirrored::Always,
    [](N node, bool, int i)      { return moNodeUtils::getTransformNodeRotatePivotTranslation(node, i); },
    [](N node, V v, bool, int i) { moNodeUtils::setTransformNodeRotatePivotTranslation(node, v[0], v[1], v[2], i); }};
const moRotationPivotOrientationUndoCommand::Row moRotationPivotOrientationUndoCommand::s_row{QStringLiteral("Change Rotation Pivot"), Mirrored::OwnTransform,
    [](N node, bool, int i)      { return moNodeUtils::getTransformNodeRotationOrientation(node, i); },
    [](N node, V v, bool, int i) { moNodeUtils::setTransformNodeRotationOrientation(node, v[0], v[1], v[2], i); }};
// Intended: -1 reads the direction as it is stored, see docs/oddities.md#a-direction-forgets-its-axis. set() writes it.
const moRotationPivotDirectionUndoCommand::Row moRotationPivotDirectionUndoCommand::s_row{QStringLiteral("Change Rotation Pivot"), Mirrored::OwnTransform,
    [](N node, bool, int i)      { return moNodeUtils::getTransformNodeRotationDirection(node, i, -1); },
    nullptr};
const moShearUndoCommand::Row moShearUndoCommand::s_row{QStringLiteral("Shear"), Mirrored::Always,
    [](N node, bool, int)      { return moNodeUtils::getTransformNodeShear(node); },
    [](N node, V v, bool, int) { moNodeUtils::setTransformNodeShear(node, v[0], v[1], v[2]); }};
// clang-format on

moTransformValueUndoCommand::moTransformValueUndoCommand(const Row& row, osg::NodePtr node, osg::Vec3f value, bool flag,
                                                         moMergeOption merge, QUndoCommand* parent, int variantIndex)
    : moTransformUndoCommand(row.actionWord, node, value, flag, merge, parent, variantIndex), m_row(row)
{
}

osg::Vec3f moTransformValueUndoCommand::get(osg::NodePtr node)
{
    return m_row.read(node, flag(), variantIndex());
}

void moTransformValueUndoCommand::set(osg::NodePtr node, osg::Vec3f value)
{
    write(node, value);
    synchronise(value);
}

void moTransformValueUndoCommand::write(const osg::NodePtr& node, const osg::Vec3f& value)
{
    moStep::writeThroughSibling([&] { m_row.write(node, value, flag(), variantIndex()); });
}

void moTransformValueUndoCommand::synchronise(const osg::Vec3f& value) const
{
    if (m_row.mirrored == Mirrored::Always || editsLiveTransform()) mirror(m_row.sync, nodeId(), value, flag());
}

void moTransformValueUndoCommand::mirrorWith(const Row& row, const SyncFunction& function)
{
    if (!function)
        row.sync.set(nullptr);
    else
        row.sync.set([function](N node, V value, bool /*flag*/) { function(node, value); });
}

void moTransformValueUndoCommand::mirrorWith(const Row& row, const FlagSyncFunction& function)
{
    row.sync.set(function);
}

moTransformCallbackUndoCommand::moTransformCallbackUndoCommand(const Row& row, osg::NodePtr node, osg::Vec3f value,
                                                               bool flag, moMergeOption merge, QUndoCommand* parent,
                                                               Callback callback, int variantIndex)
    : moTransformValueUndoCommand(row, node, value, flag, merge, parent, variantIndex), m_callback(std::move(callback))
{
}

void moTransformCallbackUndoCommand::set(osg::NodePtr node, osg::Vec3f value)
{
    const bool wasIdentity = m_callback && moNodeUtils::isTransformNodeIdentity(node);
    write(node, value);
    if (m_callback) {
        // Looks the node up again: a listener to the edit may have destroyed it.
        const bool isIdentity = moNodeUtils::isTransformNodeIdentity(findNode());
        moStep::afterwards([&] { m_callback(nodeId(), value, variantIndex(), wasIdentity != isIdentity); });
    }
    synchronise(value);
}

void moRotationPivotDirectionUndoCommand::set(osg::NodePtr node, osg::Vec3f value)
{
    moStep::writeThroughSibling([&] {
        moNodeUtils::setTransformNodeRotationDirection(node, value[0], value[1], value[2], m_directionMode,
                                                       m_directionFlag, variantIndex());
    });
    synchronise(value);
}

moTranslationUndoCommand::moTranslationUndoCommand(osg::NodePtr node, osg::Vec3f value, bool flag, moMergeOption merge,
                                                   QUndoCommand* parent, Callback callback, int variantIndex)
    : moTransformCallbackUndoCommand(s_row, node, value, flag, merge, parent, std::move(callback), variantIndex)
{
}

void moTranslationUndoCommand::setSyncFunction(const SyncFunction& function)
{
    mirrorWith(s_row, function);
}

moRotationUndoCommand::moRotationUndoCommand(osg::NodePtr node, osg::Vec3f value, moMergeOption merge,
                                             QUndoCommand* parent, Callback callback, int variantIndex)
    : moTransformCallbackUndoCommand(s_row, node, value, false, merge, parent, std::move(callback), variantIndex)
{
}

void moRotationUndoCommand::setSyncFunction(const SyncFunction& function)
{
    mirrorWith(s_row, function);
}

moScaleUndoCommand::moScaleUndoCommand(osg::NodePtr node, osg::Vec3f value, moMergeOption merge, QUndoCommand* parent,
                                       Callback callback, int variantIndex)
    : moTransformCallbackUndoCommand(s_row, node, value, false, merge, parent, std::move(callback), variantIndex)
{
}

void moScaleUndoCommand::setSyncFunction(const SyncFunction& function)
{
    mirrorWith(s_row, function);
}

moScalePivotUndoCommand::moScalePivotUndoCommand(osg::NodePtr node, osg::Vec3f value, bool flag, moMergeOption merge,
                                                 QUndoCommand* parent, int variantIndex)
    : moTransformValueUndoCommand(s_row, node, value, flag, merge, parent, variantIndex)
{
}

void moScalePivotUndoCommand::setSyncFunction(const SyncFunction& function)
{
    mirrorWith(s_row, function);
}

moRotationPivotUndoCommand::moRotationPivotUndoCommand(osg::NodePtr node, osg::Vec3f value, bool flag,
                                                       moMergeOption merge, QUndoCommand* parent, int variantIndex)
    : moTransformValueUndoCommand(s_row, node, value, flag, merge, parent, variantIndex)
{
}

void moRotationPivotUndoCommand::setSyncFunction(const SyncFunction& function)
{
    mirrorWith(s_row, function);
}

moScalePivotTranslationUndoCommand::moScalePivotTranslationUndoCommand(osg::NodePtr node, osg::Vec3f value,
                                                                       moMergeOption merge, QUndoCommand* parent,
                                                                       int variantIndex)
    : moTransformValueUndoCommand(s_row, node, value, false, merge, parent, variantIndex)
{
}

void moScalePivotTranslationUndoCommand::setSyncFunction(const SyncFunction& function)
{
    mirrorWith(s_row, function);
}

moRotationPivotTranslationUndoCommand::moRotationPivotTranslationUndoCommand(osg::NodePtr node, osg::Vec3f value,
                                                                             moMergeOption merge, QUndoCommand* parent,
                                                                             int variantIndex)
    : moTransformValueUndoCommand(s_row, node, value, false, merge, parent, variantIndex)
{
}

void moRotationPivotTranslationUndoCommand::setSyncFunction(const SyncFunction& function)
{
    mirrorWith(s_row, function);
}

moRotationPivotOrientationUndoCommand::moRotationPivotOrientationUndoCommand(osg::NodePtr node, osg::Vec3f value,
                                                                             moMergeOption merge, QUndoCommand* parent,
                                                                             int variantIndex)
    : moTransformValueUndoCommand(s_row, node, value, false, merge, parent, variantIndex)
{
}

void moRotationPivotOrientationUndoCommand::setSyncFunction(const SyncFunction& function)
{
    mirrorWith(s_row, function);
}

moRotationPivotDirectionUndoCommand::moRotationPivotDirectionUndoCommand(osg::NodePtr node, osg::Vec3f value,
                                                                         int directionMode, bool directionFlag,
                                                                         moMergeOption merge, QUndoCommand* parent,
                                                                         int variantIndex)
    : moTransformValueUndoCommand(s_row, node, value, false, merge, parent, variantIndex),
      m_directionMode(directionMode),
      m_directionFlag(directionFlag)
{
}

void moRotationPivotDirectionUndoCommand::setSyncFunction(const SyncFunction& function)
{
    mirrorWith(s_row, function);
}

moShearUndoCommand::moShearUndoCommand(osg::NodePtr node, osg::Vec3f value, QUndoCommand* parent)
    : moTransformValueUndoCommand(s_row, node, value, false, moMergeOption(), parent, -1)
{
}

void moShearUndoCommand::setSyncFunction(const SyncFunction& function)
{
    mirrorWith(s_row, function);
}
