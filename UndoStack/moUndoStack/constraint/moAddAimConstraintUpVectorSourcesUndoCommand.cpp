#include <moUndoStack/constraint/moAddAimConstraintUpVectorSourcesUndoCommand.h>

#include "moConstraintSources_p.h"

#include <moUndoUtils/moUndoString.h>

MO_UNDO_COMMAND_ID_IMPL(moAddAimConstraintUpVectorSourcesUndoCommand)

moAddAimConstraintUpVectorSourcesUndoCommand::moAddAimConstraintUpVectorSourcesUndoCommand(
    osg::AimConstraintPtr constraint, const std::vector<osg::AttachmentContainerPtr>& sources, QUndoCommand* parent)
    : moUndoCommand(moUndoString("Add Aim Constraint Up Vector Sources", QString()), parent),
      m_constraintId(containerId(constraint)),
      m_sourceIds(sourceIds(sources))
{
}

void moAddAimConstraintUpVectorSourcesUndoCommand::undo()
{
    apply(false);
}

void moAddAimConstraintUpVectorSourcesUndoCommand::redo()
{
    apply(true);
}

void moAddAimConstraintUpVectorSourcesUndoCommand::apply(bool add)
{
    moStep::run([&] {
        // Intended: the bracket names the sources field and not the up-vector sources, so that one listener serves both.
        editSources<osg::AimConstraintPtr>(m_constraintId, m_sourceIds, add,
                                           [](const auto& constraint, const auto& source, bool adds) {
                                               if (adds)
                                                   constraint->addUpVectorSource(source, 1.0f);
                                               else
                                                   constraint->removeUpVectorSource(source);
                                           });
    });
}
