#pragma once

#include <moUndoStack/light/moLensFlareCommand.h>

#include <moOpenSGUberLight/OSGLensFlareEffect.h>

#include <QtCore/QCoreApplication>

/// Gives a lens flare effect all settings of another one: its values and its elements, which both then list.
///
/// Old value: the target is cloned at construction, sharing its elements; undo applies that backup.
/// The command holds references on source, target and backup from construction to destruction. With a null source it
/// takes none and makes no backup, but the destructor releases one reference of the target all the same; this is
/// intended. It is for callers that hand the target over: a target nobody else holds goes with the command. A null or
/// destroyed source or target makes redo do nothing; without backup or target undo does nothing. Message: "id" (int),
/// "lightCommand" = true (bool).
class MO_UNDO_STACK_EXPORT moSetLensFlareEffectCommand : public moLensFlareCommand
{
    Q_DECLARE_TR_FUNCTIONS(moSetLensFlareEffectCommand)
    MO_UNDO_COMMAND_ID

public:
    /// \param source  whose settings are applied.
    /// \param target  whose settings are replaced.
    moSetLensFlareEffectCommand(const osg::LensFlareEffectPtr& source, const osg::LensFlareEffectPtr& target,
                                QUndoCommand* parent);
    ~moSetLensFlareEffectCommand() override;

    void undo() override;
    void redo() override;

private:
    static void apply(const osg::LensFlareEffectPtr& from, osg::LensFlareEffectPtr& to);
    void step(unsigned int fromId, unsigned int backId) const;
    void applyToTarget(unsigned int fromId) const;

    unsigned int m_sourceId;
    unsigned int m_targetId;
    unsigned int m_backupId = 0;
};
