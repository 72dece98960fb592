#include <sceneeditor/SceneEdits.h>

#include <sceneeditor/EditorSession.h>

#include <scene/Prepare.h>
#include <scene/RenameCommand.h>

#include <moUndoStack/moUndoCommands.h>

#include <moOpenSGUtils/moNodeUtils.h>

#include <QtCore/QCoreApplication>

#include <algorithm>

namespace {

using Tags = osg::TagAttachment;

QString tr(const char* text)
{
    return QCoreApplication::translate("SceneEdits", text);
}

QStringList listOf(const osg::MField<std::string>& field)
{
    QStringList list;
    for (const std::string& text : field)
        list.append(QString::fromStdString(text));
    return list;
}

bool hasTag(const osg::NodePtr& node, const QString& tag)
{
    return userTagsOf(node).contains(tag);
}

/// A command takes the whole lists after the change. Each edit adds its number to the stamps.
template<class Command>
void changeTags(EditorSession& session, const osg::NodePtr& node, const QString& text, const std::string& tag,
                osg::MField<std::string> tags)
{
    const osg::MField<osg::UInt64> stamps = *tagsOf(node)->getMFTagStamps();
    osg::MField<osg::UInt64> newStamps = stamps;
    newStamps.push_back(stamps.size() + 1);
    session.apply(new Command(moUndoString(text, text, "Tag Commands"), node, Tags::UserTagsFieldMask,
                              Tags::UserTagsFieldId, tag, &tags, stamps, newStamps));
}

/// Runs the edit for each of the nodes: one command, or one composite with a command for each.
template<class Edit>
void editEach(EditorSession& session, const std::vector<osg::NodePtr>& nodes, const QString& text, const Edit& edit)
{
    if (nodes.empty()) return;
    if (nodes.size() == 1) {
        edit(nodes.front());
        return;
    }
    const moCompositionScope composition(session.edits(), text, text);
    for (const osg::NodePtr& node : nodes)
        edit(node);
}

} // namespace

std::vector<osg::NodePtr> nodesOf(EditorSession& session)
{
    std::vector<osg::NodePtr> nodes;
    std::vector<osg::NodePtr> open{session.model().root.get()};
    while (!open.empty()) {
        const osg::NodePtr node = open.back();
        open.pop_back();
        if (node == osg::NullFC) continue;
        nodes.push_back(node);
        for (osg::UInt32 child = node->getNChildren(); child > 0; --child)
            open.push_back(node->getChild(child - 1));
    }
    return nodes;
}

QString nameOf(const osg::NodePtr& node)
{
    const char* name = moNodeUtils::getName(node);
    return name ? QString::fromUtf8(name) : QString();
}

QStringList userTagsOf(const osg::NodePtr& node)
{
    const osg::TagAttachmentPtr tags = tagsOf(node);
    return tags ? listOf(*tags->getMFUserTags()) : QStringList();
}

QStringList systemTagsOf(const osg::NodePtr& node)
{
    const osg::TagAttachmentPtr tags = tagsOf(node);
    return tags ? listOf(*tags->getMFSystemTags()) : QStringList();
}

void renameNode(EditorSession& session, const osg::NodePtr& node, const QString& name)
{
    if (name == nameOf(node)) return;
    auto* const command = new RenameCommand(node, name.toStdString());
    command->setMergeEnabled(false);
    session.apply(command);
}

void showNode(EditorSession& session, const osg::NodePtr& node, bool shown)
{
    // The functions look the node up by its id, as it may be destroyed before they run.
    const auto apply = [handle = moNodePtr(node)](osg::UInt32 mask) {
        const osg::NodePtr found = handle.getPtr();
        if (!found) return;
        const osg::CPEditor edit(found, osg::Node::TravMaskFieldMask);
        found->setTravMask(mask);
    };
    const osg::UInt32 before = node->getTravMask();
    const osg::UInt32 after = shown ? 0xFFFFFFFFU : 0U;
    const QString text = (shown ? tr("Show '%1'") : tr("Hide '%1'")).arg(nameOf(node));
    session.apply(new moGenericFunctionUndoCommand(
        moUndoString(text, text, "Node Commands"), [=] { apply(before); }, [=] { apply(after); }, nullptr));
}

void addTag(EditorSession& session, const std::vector<osg::NodePtr>& nodes, const QString& tag)
{
    std::vector<osg::NodePtr> without;
    std::copy_if(nodes.begin(), nodes.end(), std::back_inserter(without),
                 [&tag](const osg::NodePtr& node) { return tagsOf(node) && !hasTag(node, tag); });
    const QString text = tr("Add Tag '%1'").arg(tag);
    editEach(session, without, text, [&](const osg::NodePtr& node) {
        osg::MField<std::string> tags = *tagsOf(node)->getMFUserTags();
        tags.push_back(tag.toStdString());
        changeTags<moAddTagUndoCommand>(session, node, text, tag.toStdString(), tags);
    });
}

void removeTag(EditorSession& session, const std::vector<osg::NodePtr>& nodes, const QString& tag)
{
    std::vector<osg::NodePtr> with;
    std::copy_if(nodes.begin(), nodes.end(), std::back_inserter(with),
                 [&tag](const osg::NodePtr& node) { return hasTag(node, tag); });
    const QString text = tr("Remove Tag '%1'").arg(tag);
    editEach(session, with, text, [&](const osg::NodePtr& node) {
        osg::MField<std::string> tags = *tagsOf(node)->getMFUserTags();
        tags.erase(std::find(tags.begin(), tags.end(), tag.toStdString()));
        changeTags<moSubTagUndoCommand>(session, node, text, tag.toStdString(), tags);
    });
}

void noteServerTag(EditorSession& session, const QString& tag, bool added)
{
    const QString text = (added ? tr("Add Server Tag '%1'") : tr("Remove Server Tag '%1'")).arg(tag);
    const moUndoString wording(text, text, "Tag Commands");
    if (added)
        session.apply(new moAddEmptyTagUndoCommand(wording, tag.toStdString(), moTagUndoCommand::SYSTEM_TAG));
    else
        session.apply(new moSubEmptyTagUndoCommand(wording, tag.toStdString(), moTagUndoCommand::SYSTEM_TAG));
}
