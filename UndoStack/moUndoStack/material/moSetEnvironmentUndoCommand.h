#pragma once

#include <moUndoStack/core/moUndoCommand.h>
#include <moUndoStack/core/moUndoCommandId.h>
#include <moUndoStack/core/moUndoStackExport.h>

#include <moOpenSGUberMaterial/OSGUBRDFMaterial.h>

#include <QtCore/QCoreApplication>

/// Sets the environment of a UBRDF material.
///
/// \param material     the material to edit; null makes the command inert.
/// \param environment  the new environment; null takes it away.
/// \param parent       null means the composite being composed, if any.
///
/// The text is always "Change Environment", untranslated.
/// Old value: read at construction. Both environments are kept by id and not held: one that was destroyed by undo or
/// redo leaves the material without an environment. If the material was destroyed, undo and redo are no-ops. Never
/// merges, nor does a composite that has one. Message: "id", "material" (unsigned int, left out for a null material).
class MO_UNDO_STACK_EXPORT moSetEnvironmentUndoCommand : public moUndoCommand
{
    Q_DECLARE_TR_FUNCTIONS(moSetEnvironmentUndoCommand)
    MO_UNDO_COMMAND_ID

public:
    moSetEnvironmentUndoCommand(osg::UBRDFMaterialPtr material, osg::MaterialPtr environment, QUndoCommand* parent);

    void undo() override;
    void redo() override;
    void makeMessage(moMessage& message) const override;
    bool canMergeWith(const QUndoCommand* /*other*/) const override { return false; }

private:
    void apply(unsigned int environmentId);

    unsigned int m_materialId;
    unsigned int m_oldEnvironmentId;
    unsigned int m_newEnvironmentId;
};
