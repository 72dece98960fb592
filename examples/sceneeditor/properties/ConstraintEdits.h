#pragma once

#include <moOpenSGConstraint/OSGAbstractConstraint.h>
#include <moOpenSGConstraint/OSGAimConstraint.h>

#include <OpenSG/OSGNode.h>

#include <vector>

class EditorSession;

// The edits of a constraint. Each is one step, and undo brings back all that was there, in its order.

/// Objects that are sources already are left out: the command would give them the weight 1, and undo remove them.
void addSources(EditorSession& session, const osg::AbstractConstraintPtr& constraint,
                const std::vector<osg::NodePtr>& objects);
void addUpVectorSources(EditorSession& session, const osg::AimConstraintPtr& constraint,
                        const std::vector<osg::NodePtr>& objects);

/// \param object  null leaves the constraint without a target.
void setTarget(EditorSession& session, const osg::AbstractConstraintPtr& constraint, const osg::NodePtr& object);

/// Removes the objects from every role. Those that have none are left out.
void removeFromRoles(EditorSession& session, const osg::AbstractConstraintPtr& constraint,
                     const std::vector<osg::NodePtr>& objects);
