#include <moUndoStack/transform/moTransformValueUndoCommands.h>

#include <moUndoStack/core/moContainer_p.h>
#include <moUndoStack/transform/moMirror_p.h>

#include <moOpenSGUtils/moNodeUtils.h>

#include <utility>

namespace {

/// For which transforms a step is told to the synchronisation function. That the pivots and their translations are
/// mirrored for variants too, and nothing else that has variants is, is intended.
enum class Synced
{
    LiveOnly,
    Always
};

} // namespace

// In a row, `command`, `node`, `flag`, `index` and `v` are the command, its node, flag, variant index and the value to
// write.
#define MO_TRANSFORM(Command, actionWord, getter, setter, whenSynced)                                                  \
    template<>                                                                                                         \
    struct moTransformRow<Command>                                                                                     \
    {                                                                                                                  \
        static constexpr const char* text = actionWord;                                                                \
        static constexpr Synced synced = Synced::whenSynced;                                                           \
        static osg::Vec3f get(const osg::NodePtr& node, [[maybe_unused]] bool flag, [[maybe_unused]] int index)        \
        {                                                                                                              \
            return moNodeUtils::getTransformNode##getter;                                                              \
        }                                                                                                              \
        static void set([[maybe_unused]] const Command& command, const osg::NodePtr& node, const osg::Vec3f& v,        \
                        [[maybe_unused]] bool flag, [[maybe_unused]] int index)                                        \
        {                                                                                                              \
            moNodeUtils::setTransformNode##setter;                                                                     \
        }                                                                                                              \
    };

// clang-format off
//           command                                action word                         getter                                  setter                                                       synced
MO_TRANSFORM(moTranslationUndoCommand,              "Translate",                        Translation(node, flag, index),         Translation(node, v[0], v[1], v[2], flag, index),             LiveOnly)
MO_TRANSFORM(moRotationUndoCommand,                 "Rotate",                           Rotation(node, index),                  Rotation(node, v[0], v[1], v[2], index),                      LiveOnly)
MO_TRANSFORM(moScaleUndoCommand,                    "Scale",                            Scale(node, index),                     Scale(node, v[0], v[1], v[2], index),                         LiveOnly)
MO_TRANSFORM(moScalePivotUndoCommand,               "Change Scale Pivot",               ScalePivot(node, flag, index),          ScalePivot(node, v[0], v[1], v[2], flag, index),              Always)
MO_TRANSFORM(moRotationPivotUndoCommand,            "Change Rotation Pivot",            RotatePivot(node, flag, index),         RotatePivot(node, v[0], v[1], v[2], flag, index),             Always)
MO_TRANSFORM(moScalePivotTranslationUndoCommand,    "Change Scale Pivot Translation",   ScalePivotTranslation(node, index),     ScalePivotTranslation(node, v[0], v[1], v[2], index),         Always)
MO_TRANSFORM(moRotationPivotTranslationUndoCommand, "Change Rotation Pivot Translation", RotatePivotTranslation(node, index),   RotatePivotTranslation(node, v[0], v[1], v[2], index),        Always)
MO_TRANSFORM(moRotationPivotOrientationUndoCommand, "Change Rotation Pivot",            RotationOrientation(node, index),       RotationOrientation(node, v[0], v[1], v[2], index),           LiveOnly)
MO_TRANSFORM(moShearUndoCommand,                    "Shear",                            Shear(node),                            Shear(node, v[0], v[1], v[2]),                                Always)
// The -1 is intended: the direction as it is stored is read, not the one of the command's axis.
MO_TRANSFORM(moRotationPivotDirectionUndoCommand,   "Change Rotation Pivot",            RotationDirection(node, index, -1),     RotationDirection(node, v[0], v[1], v[2], command.m_directionMode, command.m_directionFlag, index), LiveOnly)
// clang-format on

#undef MO_TRANSFORM

namespace {

bool flagOf()
{
    return false;
}
bool flagOf(bool flag)
{
    return flag;
}

} // namespace

template<class Command, class... Flag>
moUndoDetail::HeldFunction<void(const osg::NodePtr&, const osg::Vec3f&, Flag...)>
    moTransformValueUndoCommand<Command, Flag...>::s_sync;

template<class Command, class... Flag>
moTransformValueUndoCommand<Command, Flag...>::moTransformValueUndoCommand(osg::NodePtr node, osg::Vec3f value,
                                                                           Flag... flag, QUndoCommand* parent,
                                                                           int variantIndex)
    : moTransformUndoCommand(moTransformRow<Command>::text, node, value, flagOf(flag...), parent, variantIndex)
{
}

template<class Command, class... Flag>
moTransformValueUndoCommand<Command, Flag...>::moTransformValueUndoCommand(osg::NodePtr node, osg::Vec3f value,
                                                                           Flag... flag, bool mergeEnabled,
                                                                           QUndoCommand* parent, int variantIndex)
    : moTransformUndoCommand(moTransformRow<Command>::text, node, value, flagOf(flag...), mergeEnabled, parent,
                             variantIndex)
{
}

template<class Command, class... Flag>
moTransformValueUndoCommand<Command, Flag...>::moTransformValueUndoCommand(osg::NodePtr node, osg::Vec3f value,
                                                                           Flag... flag, double mergeDelta,
                                                                           QUndoCommand* parent, int variantIndex)
    : moTransformUndoCommand(moTransformRow<Command>::text, node, value, flagOf(flag...), mergeDelta, parent,
                             variantIndex)
{
}

template<class Command, class... Flag>
void moTransformValueUndoCommand<Command, Flag...>::setSyncFunction(const SyncFunction& function)
{
    s_sync.set(function);
}

template<class Command, class... Flag>
osg::Vec3f moTransformValueUndoCommand<Command, Flag...>::get(osg::NodePtr node)
{
    return moTransformRow<Command>::get(node, flag(), variantIndex());
}

template<class Command, class... Flag>
void moTransformValueUndoCommand<Command, Flag...>::set(osg::NodePtr node, osg::Vec3f value)
{
    const unsigned int id = containerId(node);
    write(node, value);
    synchronise(id, value);
}

template<class Command, class... Flag>
void moTransformValueUndoCommand<Command, Flag...>::write(const osg::NodePtr& node, const osg::Vec3f& value)
{
    moStep::writeThroughSibling(
        [&] { moTransformRow<Command>::set(static_cast<const Command&>(*this), node, value, flag(), variantIndex()); });
}

template<class Command, class... Flag>
void moTransformValueUndoCommand<Command, Flag...>::synchronise(unsigned int nodeId, const osg::Vec3f& value) const
{
    if (moTransformRow<Command>::synced == Synced::Always || editsLiveTransform())
        mirror(s_sync, nodeId, value, Flag(flag())...);
}

template<class Command, class... Flag>
moTransformCallbackUndoCommand<Command, Flag...>::moTransformCallbackUndoCommand(osg::NodePtr node, osg::Vec3f value,
                                                                                 Flag... flag, QUndoCommand* parent,
                                                                                 Callback callback, int variantIndex)
    : moTransformValueUndoCommand<Command, Flag...>(node, value, flag..., parent, variantIndex),
      m_callback(std::move(callback))
{
}

template<class Command, class... Flag>
moTransformCallbackUndoCommand<Command, Flag...>::moTransformCallbackUndoCommand(osg::NodePtr node, osg::Vec3f value,
                                                                                 Flag... flag, bool mergeEnabled,
                                                                                 QUndoCommand* parent,
                                                                                 Callback callback, int variantIndex)
    : moTransformValueUndoCommand<Command, Flag...>(node, value, flag..., mergeEnabled, parent, variantIndex),
      m_callback(std::move(callback))
{
}

template<class Command, class... Flag>
moTransformCallbackUndoCommand<Command, Flag...>::moTransformCallbackUndoCommand(osg::NodePtr node, osg::Vec3f value,
                                                                                 Flag... flag, double mergeDelta,
                                                                                 QUndoCommand* parent,
                                                                                 Callback callback, int variantIndex)
    : moTransformValueUndoCommand<Command, Flag...>(node, value, flag..., mergeDelta, parent, variantIndex),
      m_callback(std::move(callback))
{
}

template<class Command, class... Flag>
void moTransformCallbackUndoCommand<Command, Flag...>::set(osg::NodePtr node, osg::Vec3f value)
{
    const unsigned int id = containerId(node);
    const bool wasIdentity = m_callback && moNodeUtils::isTransformNodeIdentity(node);
    this->write(node, value);
    // Found again: a listener to the edit may have destroyed the node.
    if (m_callback) {
        const bool isIdentity = moNodeUtils::isTransformNodeIdentity(findContainer<osg::NodePtr>(id));
        moStep::afterwards([&] { m_callback(id, value, this->variantIndex(), wasIdentity != isIdentity); });
    }
    this->synchronise(id, value);
}

// Each command's base is instantiated by its constructors' using-declaration in the header; the code stands here only.
template class moTransformCallbackUndoCommand<moTranslationUndoCommand, bool>;
template class moTransformCallbackUndoCommand<moRotationUndoCommand>;
template class moTransformCallbackUndoCommand<moScaleUndoCommand>;
template class moTransformValueUndoCommand<moTranslationUndoCommand, bool>;
template class moTransformValueUndoCommand<moRotationUndoCommand>;
template class moTransformValueUndoCommand<moScaleUndoCommand>;
template class moTransformValueUndoCommand<moScalePivotUndoCommand, bool>;
template class moTransformValueUndoCommand<moRotationPivotUndoCommand, bool>;
template class moTransformValueUndoCommand<moScalePivotTranslationUndoCommand>;
template class moTransformValueUndoCommand<moRotationPivotTranslationUndoCommand>;
template class moTransformValueUndoCommand<moRotationPivotOrientationUndoCommand>;
template class moTransformValueUndoCommand<moRotationPivotDirectionUndoCommand>;
template class moTransformValueUndoCommand<moShearUndoCommand>;

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

moRotationPivotDirectionUndoCommand::moRotationPivotDirectionUndoCommand(osg::NodePtr node, osg::Vec3f value,
                                                                         int directionMode, bool directionFlag,
                                                                         QUndoCommand* parent, int variantIndex)
    : moTransformValueUndoCommand(node, value, parent, variantIndex),
      m_directionMode(directionMode),
      m_directionFlag(directionFlag)
{
}

moRotationPivotDirectionUndoCommand::moRotationPivotDirectionUndoCommand(osg::NodePtr node, osg::Vec3f value,
                                                                         int directionMode, bool directionFlag,
                                                                         bool mergeEnabled, QUndoCommand* parent,
                                                                         int variantIndex)
    : moTransformValueUndoCommand(node, value, mergeEnabled, parent, variantIndex),
      m_directionMode(directionMode),
      m_directionFlag(directionFlag)
{
}

moRotationPivotDirectionUndoCommand::moRotationPivotDirectionUndoCommand(osg::NodePtr node, osg::Vec3f value,
                                                                         int directionMode, bool directionFlag,
                                                                         double mergeDelta, QUndoCommand* parent,
                                                                         int variantIndex)
    : moTransformValueUndoCommand(node, value, mergeDelta, parent, variantIndex),
      m_directionMode(directionMode),
      m_directionFlag(directionFlag)
{
}

moShearUndoCommand::moShearUndoCommand(osg::NodePtr node, osg::Vec3f value, QUndoCommand* parent)
    : moTransformValueUndoCommand(node, value, parent, -1)
{
}
