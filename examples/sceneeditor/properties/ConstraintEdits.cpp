#include <sceneeditor/properties/ConstraintEdits.h>

#include <sceneeditor/EditorSession.h>

#include <moUndoStack/core/moUndoScopes.h>
#include <moUndoStack/moUndoCommands.h>

#include <OpenSG/OSGFieldContainerFactory.h>
#include <OpenSG/OSGRefPtr.h>

#include <QtCore/QCoreApplication>

#include <algorithm>

namespace {

using Objects = std::vector<osg::AttachmentContainerPtr>;
/// Ids of scene objects in the order in which a list has them.
using Order = std::vector<osg::UInt32>;

QString tr(const char* text)
{
    return QCoreApplication::translate("ConstraintEdits", text);
}

moUndoString wording(const QString& text)
{
    return {text, text, "Constraint Commands"};
}

osg::AbstractConstraintPtr find(osg::UInt32 id)
{
    return osg::AbstractConstraintPtr::dcast(osg::FieldContainerFactory::the()->getContainer(id));
}

template<class Test>
Objects those(const std::vector<osg::NodePtr>& nodes, const Test& test)
{
    Objects objects;
    std::copy_if(nodes.begin(), nodes.end(), std::back_inserter(objects), test);
    return objects;
}

Order orderOf(const osg::MFConstraintObjectPtr& list)
{
    Order order;
    for (const osg::ConstraintObjectPtr& entry : list)
        order.push_back(entry->getObjectId());
    return order;
}

/// Entries that the order does not have stand at the end.
void sort(osg::MFConstraintObjectPtr& list, const Order& order)
{
    const auto place = [&order](const osg::ConstraintObjectPtr& entry) {
        return std::find(order.begin(), order.end(), entry->getObjectId());
    };
    std::stable_sort(list.begin(), list.end(), [&place](const auto& a, const auto& b) { return place(a) < place(b); });
}

/// A child that is undone last: undo of a removal puts the entries at the end of their lists.
void restoreOrderAtUndo(EditorSession& session, const osg::AbstractConstraintPtr& constraint, const QString& text)
{
    const auto aim = osg::AimConstraintPtr::dcast(constraint);
    const auto restore = [id = osg::getContainerId(constraint), sources = orderOf(*constraint->getMFSources()),
                          upVectors = aim ? orderOf(*aim->getMFUpVectorSources()) : Order()] {
        const osg::AbstractConstraintPtr found = find(id);
        if (!found) return;
        const osg::CPEditor edit(found, osg::AbstractConstraint::SourcesFieldMask);
        sort(*found->getMFSources(), sources);
        if (const auto foundAim = osg::AimConstraintPtr::dcast(found))
            sort(*foundAim->getMFUpVectorSources(), upVectors);
    };
    session.apply(new moGenericFunctionUndoCommand(
        wording(text), restore, [] {}, nullptr));
}

} // namespace

void addSources(EditorSession& session, const osg::AbstractConstraintPtr& constraint,
                const std::vector<osg::NodePtr>& objects)
{
    const Objects added =
        those(objects, [&](const osg::NodePtr& node) { return !constraint->findSourceConstraintObject(node); });
    if (!added.empty()) session.apply(new moAddConstraintSourcesUndoCommand(constraint, added, nullptr));
}

void addUpVectorSources(EditorSession& session, const osg::AimConstraintPtr& constraint,
                        const std::vector<osg::NodePtr>& objects)
{
    const Objects added =
        those(objects, [&](const osg::NodePtr& node) { return !constraint->findUpVectorConstraintObject(node); });
    if (!added.empty()) session.apply(new moAddAimConstraintUpVectorSourcesUndoCommand(constraint, added, nullptr));
}

void setTarget(EditorSession& session, const osg::AbstractConstraintPtr& constraint, const osg::NodePtr& object)
{
    const osg::RefPtr<osg::ConstraintObjectPtr> before(constraint->getTarget());
    if (before.get() == osg::NullFC) {
        if (object != osg::NullFC) session.apply(new moSetConstraintTargetUndoCommand(constraint, object, nullptr));
        return;
    }
    if (before->getObject() == object) return;
    // Undo of the command leaves no target, whatever was there before: the first child puts that back.
    const auto putBack = [id = osg::getContainerId(constraint), before] {
        const osg::AbstractConstraintPtr found = find(id);
        if (!found) return;
        const osg::CPEditor edit(found, osg::AbstractConstraint::TargetFieldMask);
        found->setTarget(before.get());
    };
    const QString text = object == osg::NullFC ? tr("Clear Target") : tr("Replace Target");
    const moCompositionScope composition(session.edits(), text, text);
    session.apply(new moGenericFunctionUndoCommand(
        wording(text), putBack, [] {}, nullptr));
    session.apply(new moSetConstraintTargetUndoCommand(constraint, object, nullptr));
}

void removeFromRoles(EditorSession& session, const osg::AbstractConstraintPtr& constraint,
                     const std::vector<osg::NodePtr>& objects)
{
    const auto aim = osg::AimConstraintPtr::dcast(constraint);
    const Objects removed = those(objects, [&](const osg::NodePtr& node) {
        return constraint->hasTarget(node) || constraint->findSourceConstraintObject(node) ||
               (aim && aim->findUpVectorConstraintObject(node));
    });
    if (removed.empty()) return;
    const QString text = tr("Remove from Constraint");
    const moCompositionScope composition(session.edits(), text, text);
    restoreOrderAtUndo(session, constraint, text);
    session.apply(new moDeleteConstraintReferenceUndoCommand(constraint, removed, nullptr));
}
