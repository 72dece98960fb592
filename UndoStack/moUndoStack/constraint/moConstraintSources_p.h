#pragma once

#include <moUndoStack/core/moContainer_p.h>

#include <moOpenSGConstraint/OSGAbstractConstraint.h>

#include <cstddef>
#include <vector>

// What the two commands that add sources to a constraint have in common.

/// The ids of the sources in their order; null handles are left out.
inline std::vector<unsigned int> sourceIds(const std::vector<osg::AttachmentContainerPtr>& sources)
{
    std::vector<unsigned int> ids;
    ids.reserve(sources.size());
    for (const osg::AttachmentContainerPtr& source : sources)
        if (source != osg::NullFC) ids.push_back(containerId(source));
    return ids;
}

/// Calls `edit` with the constraint, each source that is still there and `add`, all in one bracket of the sources
/// field; opens none when the constraint was destroyed or is of another type than `ConstraintPtr`, or when no source is
/// left. If an edit fails, those before it are taken back: `edit` is called with the opposite of `add`.
template<class ConstraintPtr, class Edit>
void editSources(unsigned int constraintId, const std::vector<unsigned int>& ids, bool add, const Edit& edit)
{
    const auto constraint = findContainer<ConstraintPtr>(constraintId);
    if (constraint == osg::NullFC) return;

    std::vector<osg::AttachmentContainerPtr> sources;
    sources.reserve(ids.size());
    for (const unsigned int id : ids)
        if (const auto source = findContainer<osg::AttachmentContainerPtr>(id)) sources.push_back(source);
    if (sources.empty()) return;

    const ContainerEdit bracket(constraint, osg::AbstractConstraintBase::SourcesFieldMask);
    std::size_t done = 0;
    moStep::writeOrTakeBack(
        [&] {
            for (; done < sources.size(); ++done)
                moStep::writeThroughSibling([&] { edit(constraint, sources[done], add); });
        },
        [&] {
            while (done > 0)
                moStep::writeThroughSibling([&] { edit(constraint, sources[--done], !add); });
        });
}
