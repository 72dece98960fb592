#pragma once

#include <moUndoStack/light/moLensFlareCommand.h>

#include <moOpenSGUberLight/OSGLensFlareEffect.h>

#include <QtCore/QCoreApplication>

/// Gives a lens flare effect all settings of another one: its values and its elements, which both then list.
///
/// Old value: the constructor clones the target, and the clone shares its elements. Undo applies this backup. The
/// command holds references on source, target and backup from construction to deletion. If source or target is null or
/// was destroyed, redo is a no-op; so is undo without target or backup. Never merges.
/// Intended: with a null source the command takes no references and makes no backup, but its destructor gives back one
/// reference of the target. This is for callers that hand the target over; one that nothing else holds is destroyed.
/// See docs/oddities.md#a-null-source-gives-up-the-target.
/// Message: "id" (int), "lightCommand" = true (bool).
class MO_UNDO_STACK_EXPORT moSetLensFlareEffectCommand : public moLensFlareCommand
{
    Q_DECLARE_TR_FUNCTIONS(moSetLensFlareEffectCommand)
    MO_UNDO_COMMAND_ID

public:
    /// \param source  effect whose settings are applied.
    /// \param target  effect whose settings are replaced; null makes the command inert.
    /// \param parent  owns the command; null means the composite being composed, if any.
    moSetLensFlareEffectCommand(const osg::LensFlareEffectPtr& source, const osg::LensFlareEffectPtr& target,
                                QUndoCommand* parent);
    ~moSetLensFlareEffectCommand() override;

    /// Gives the target the settings of the backup.
    void undo() override;
    /// Gives the target the settings of the source.
    void redo() override;

private:
    static void apply(const osg::LensFlareEffectPtr& from, osg::LensFlareEffectPtr& to);
    void step(unsigned int fromId, unsigned int backId) const;
    void applyToTarget(unsigned int fromId) const;

    unsigned int m_sourceId;
    unsigned int m_targetId;
    unsigned int m_backupId = 0;
};
