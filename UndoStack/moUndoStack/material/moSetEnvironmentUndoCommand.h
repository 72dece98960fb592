#pragma once

#include <moUndoStack/core/moUndoCommand.h>
#include <moUndoStack/core/moUndoCommandId.h>
#include <moUndoStack/core/moUndoStackExport.h>

#include <moOpenSGUberMaterial/OSGUBRDFMaterial.h>

#include <QtCore/QCoreApplication>

/// Sets the environment of a UBRDF material.
///
/// Old environment: read at construction. If the material was destroyed, the step is a no-op.
///
/// Intended: both environments are kept by id, without a reference, because the scene keeps its containers alive. A
/// step whose environment was destroyed leaves the material without one. See
/// docs/oddities.md#an-environment-that-nobody-holds.
///
/// Intended: the text is always "Change Environment", untranslated. It is part of the interface, and no constructor
/// takes another. See docs/oddities.md#two-untranslated-texts.
///
/// Never merges; a composite with such a child does not merge either. Message: "id", "material" (unsigned int, left out
/// for a null material).
class MO_UNDO_STACK_EXPORT moSetEnvironmentUndoCommand : public moUndoCommand
{
    Q_DECLARE_TR_FUNCTIONS(moSetEnvironmentUndoCommand)
    MO_UNDO_COMMAND_ID

public:
    /// \param material     the material to edit; null makes the command inert.
    /// \param environment  the new environment; null for none.
    /// \param parent       null means the composite being composed, if any.
    moSetEnvironmentUndoCommand(osg::UBRDFMaterialPtr material, osg::MaterialPtr environment, QUndoCommand* parent);

    /// Sets the old environment.
    void undo() override;
    /// Sets the new environment.
    void redo() override;
    /// Adds "material".
    void makeMessage(moMessage& message) const override;
    /// Always false.
    bool canMergeWith(const QUndoCommand* /*other*/) const override { return false; }

private:
    void apply(unsigned int environmentId);

    unsigned int m_materialId;
    unsigned int m_oldEnvironmentId;
    unsigned int m_newEnvironmentId;
};
