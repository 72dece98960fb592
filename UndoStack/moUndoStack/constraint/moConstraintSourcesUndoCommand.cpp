#include <moUndoStack/constraint/moConstraintSourcesUndoCommand.h>

#include <moUndoStack/constraint/moAddAimConstraintUpVectorSourcesUndoCommand.h>
#include <moUndoStack/constraint/moAddConstraintSourcesUndoCommand.h>
#include <moUndoStack/core/moContainer_p.h>

#include <moUndoUtils/moUndoString.h>

#include <cstddef>

MO_UNDO_COMMAND_ID_IMPL(moAddConstraintSourcesUndoCommand)
MO_UNDO_COMMAND_ID_IMPL(moAddAimConstraintUpVectorSourcesUndoCommand)

template<class ConstraintPtr>
struct moConstraintSourcesUndoCommand<ConstraintPtr>::Row
{
    const char* text;
    void (*add)(const ConstraintPtr& constraint, const osg::AttachmentContainerPtr& source);
    void (*remove)(const ConstraintPtr& constraint, const osg::AttachmentContainerPtr& source);
};

using Any = const osg::AbstractConstraintPtr&;
using Aim = const osg::AimConstraintPtr&;
using S = const osg::AttachmentContainerPtr&;

// Intended: redo adds a source with the weight 1 again, because the command knows its sources by scene object. See
// docs/oddities.md#weights-and-earlier-sources.
const moAddConstraintSourcesUndoCommand::Row moAddConstraintSourcesUndoCommand::s_row{
    "Add Constraint Sources",
    [](Any constraint, S source) { constraint->addSource(source, 1.0f); },
    [](Any constraint, S source) { constraint->removeSource(source); },
};
const moAddAimConstraintUpVectorSourcesUndoCommand::Row moAddAimConstraintUpVectorSourcesUndoCommand::s_row{
    "Add Aim Constraint Up Vector Sources",
    [](Aim constraint, S source) { constraint->addUpVectorSource(source, 1.0f); },
    [](Aim constraint, S source) { constraint->removeUpVectorSource(source); },
};

template<class ConstraintPtr>
moConstraintSourcesUndoCommand<ConstraintPtr>::moConstraintSourcesUndoCommand(
    const Row& row, const ConstraintPtr& constraint, const std::vector<osg::AttachmentContainerPtr>& sources,
    QUndoCommand* parent)
    : moUndoCommand(moUndoString(row.text, QString()), parent), m_row(row), m_constraintId(containerId(constraint))
{
    m_sourceIds.reserve(sources.size());
    for (const osg::AttachmentContainerPtr& source : sources)
        if (source != osg::NullFC) m_sourceIds.push_back(containerId(source));
}

template<class ConstraintPtr>
void moConstraintSourcesUndoCommand<ConstraintPtr>::undo()
{
    apply(false);
}

template<class ConstraintPtr>
void moConstraintSourcesUndoCommand<ConstraintPtr>::redo()
{
    apply(true);
}

/// Edits all sources that were not destroyed in one bracket. Opens none if there is nothing to do.
template<class ConstraintPtr>
void moConstraintSourcesUndoCommand<ConstraintPtr>::apply(bool add)
{
    moStep::run([this, add] {
        const auto constraint = findContainer<ConstraintPtr>(m_constraintId);
        if (constraint == osg::NullFC) return;

        std::vector<osg::AttachmentContainerPtr> sources;
        sources.reserve(m_sourceIds.size());
        for (const unsigned int id : m_sourceIds)
            if (const auto source = findContainer<osg::AttachmentContainerPtr>(id)) sources.push_back(source);
        if (sources.empty()) return;

        const auto there = add ? m_row.add : m_row.remove;
        const auto back = add ? m_row.remove : m_row.add;
        const ContainerEdit bracket(constraint, osg::AbstractConstraintBase::SourcesFieldMask);
        std::size_t done = 0;
        moStep::writeOrTakeBack(
            [&] {
                for (; done < sources.size(); ++done)
                    moStep::writeThroughSibling([&] { there(constraint, sources[done]); });
            },
            [&] {
                while (done > 0)
                    moStep::writeThroughSibling([&] { back(constraint, sources[--done]); });
            });
    });
}

template class moConstraintSourcesUndoCommand<osg::AbstractConstraintPtr>;
template class moConstraintSourcesUndoCommand<osg::AimConstraintPtr>;

moAddConstraintSourcesUndoCommand::moAddConstraintSourcesUndoCommand(
    osg::AbstractConstraintPtr constraint, const std::vector<osg::AttachmentContainerPtr>& sources,
    QUndoCommand* parent)
    : moConstraintSourcesUndoCommand(s_row, constraint, sources, parent)
{
}

moAddAimConstraintUpVectorSourcesUndoCommand::moAddAimConstraintUpVectorSourcesUndoCommand(
    osg::AimConstraintPtr constraint, const std::vector<osg::AttachmentContainerPtr>& sources, QUndoCommand* parent)
    : moConstraintSourcesUndoCommand(s_row, constraint, sources, parent)
{
}
