#include <editsession/Chapters.h>
#include <editsession/Report.h>
#include <scene/ModelLoader.h>

#include <moUndoStack/moUndoCommands.h>

#include <moOpenSGConstraint/OSGAimConstraint.h>

namespace {

osg::AimConstraintPtr aimOf(const Model& model)
{
    for (const osg::FieldContainerRefPtr& container : model.containers) {
        if (const auto aim = osg::AimConstraintPtr::dcast(container.get())) return aim;
    }
    return osg::NullFC;
}

} // namespace

/// Builds an aim constraint, takes it apart and begins a new one. In a model of one node, that node has all roles.
void constraintChapter(Context& context)
{
    const osg::AimConstraintPtr aim = aimOf(context.model);
    const std::vector<osg::NodePtr>& nodes = context.model.nodes;
    const osg::NodePtr aimed = nodes.front();
    const osg::NodePtr watched = nodes.back();

    context.stack.addOrExecute(new moAddConstraintSourcesUndoCommand(aim, {watched, aimed}, nullptr));
    context.stack.addOrExecute(new moAddAimConstraintUpVectorSourcesUndoCommand(aim, {watched}, nullptr));
    context.stack.addOrExecute(new moSetConstraintTargetUndoCommand(aim, aimed, nullptr));
    context.report.check("constraints: an aim constraint is built", aim->findSourceConstraintObject(watched) &&
                                                                        aim->findUpVectorConstraintObject(watched) &&
                                                                        aim->hasTarget(aimed));

    const osg::ConstraintObjectPtr source = aim->findSourceConstraintObject(watched);
    context.stack.addOrExecute(new moDeleteConstraintReferenceUndoCommand(aim, {watched}, nullptr));
    context.report.check("constraints: an object is taken out of every role",
                         !aim->findSourceConstraintObject(watched) && !aim->findUpVectorConstraintObject(watched));
    context.stack.undo();
    context.report.check("constraints: undo puts the very same objects back",
                         aim->findSourceConstraintObject(watched) == source);
    context.stack.redo();

    context.stack.addOrExecute(new moDeleteConstraintReferenceUndoCommand(aim, {nodes.begin(), nodes.end()}, nullptr));
    context.report.check("constraints: the constraint is taken apart",
                         aim->getSources().empty() && aim->getUpVectorSources().empty() && !aim->getTarget());

    context.stack.addOrExecute(new moAddConstraintSourcesUndoCommand(aim, {watched}, nullptr));
    context.report.check("constraints: it can be built anew", aim->findSourceConstraintObject(watched) &&
                                                                  aim->findSourceConstraintObject(watched) != source);
}
