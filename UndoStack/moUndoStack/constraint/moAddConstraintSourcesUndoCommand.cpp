#include <moUndoStack/constraint/moAddConstraintSourcesUndoCommand.h>

#include "moConstraintSources_p.h"

#include <moUndoUtils/moUndoString.h>

MO_UNDO_COMMAND_ID_IMPL(moAddConstraintSourcesUndoCommand)

moAddConstraintSourcesUndoCommand::moAddConstraintSourcesUndoCommand(
    osg::AbstractConstraintPtr constraint, const std::vector<osg::AttachmentContainerPtr>& sources,
    QUndoCommand* parent)
    : moUndoCommand(moUndoString("Add Constraint Sources", QString()), parent),
      m_constraintId(containerId(constraint)),
      m_sourceIds(sourceIds(sources))
{
}

void moAddConstraintSourcesUndoCommand::undo()
{
    apply(false);
}

void moAddConstraintSourcesUndoCommand::redo()
{
    apply(true);
}

void moAddConstraintSourcesUndoCommand::apply(bool add)
{
    moStep::run([&] {
        editSources<osg::AbstractConstraintPtr>(m_constraintId, m_sourceIds, add,
                                                [](const auto& constraint, const auto& source, bool adds) {
                                                    // Intended: a source comes back with the weight 1, also when the user had given it another one before
                                                    // undo.
                                                    if (adds)
                                                        constraint->addSource(source, 1.0f);
                                                    else
                                                        constraint->removeSource(source);
                                                });
    });
}
