#include <editsession/Chapters.h>
#include <editsession/Report.h>
#include <scene/ModelLoader.h>
#include <scene/Prepare.h>

#include <moUndoStack/moUndoCommands.h>

#include <moOpenSGExt/OSGTagAttachment.h>

#include <algorithm>

namespace {

using Tags = osg::TagAttachment;

bool hasTag(const osg::NodePtr& node, const std::string& tag)
{
    const auto& tags = tagsOf(node)->getUserTags();
    return tags.find(tag) != tags.end();
}

/// A command takes the whole lists after the change. Each edit adds its number to the stamps.
template<class Command>
void changeTags(Context& context, const osg::NodePtr& node, const char* text, const std::string& tag,
                osg::MField<std::string> tags)
{
    const osg::MField<osg::UInt64> stamps = tagsOf(node)->getTagStamps();
    osg::MField<osg::UInt64> newStamps = stamps;
    newStamps.push_back(stamps.size() + 1);
    context.stack.addOrExecute(new Command(moUndoString(text, "Tag Commands"), node, Tags::UserTagsFieldMask,
                                           Tags::UserTagsFieldId, tag, &tags, stamps, newStamps));
}

void addTag(Context& context, const osg::NodePtr& node, const std::string& tag)
{
    osg::MField<std::string> tags = tagsOf(node)->getUserTags();
    tags.push_back(tag);
    changeTags<moAddTagUndoCommand>(context, node, "Add Tag", tag, tags);
}

void removeTag(Context& context, const osg::NodePtr& node, const std::string& tag)
{
    osg::MField<std::string> tags = tagsOf(node)->getUserTags();
    tags.erase(std::find(tags.begin(), tags.end(), tag));
    changeTags<moSubTagUndoCommand>(context, node, "Remove Tag", tag, tags);
}

} // namespace

void tagChapter(Context& context)
{
    const std::vector<osg::NodePtr>& nodes = context.model.nodes;
    const osg::NodePtr node = nodes.front();

    addTag(context, node, "approved");
    addTag(context, node, "for export");
    removeTag(context, node, "approved");
    context.report.check("tags: one of two tags is left", !hasTag(node, "approved") && hasTag(node, "for export"));
    context.stack.undo();
    context.report.check("tags: undo puts the removed tag back", hasTag(node, "approved"));
    context.stack.redo();

    const int before = context.stack.size();
    context.stack.beginMultiCommand("Tag All", "Tag All Nodes", false);
    for (const osg::NodePtr& each : nodes)
        addTag(context, each, "session");
    context.stack.endMultiCommand();
    context.report.check(
        "tags: all nodes are tagged in one step",
        context.stack.size() == before + 1 &&
            std::all_of(nodes.begin(), nodes.end(), [](const auto& each) { return hasTag(each, "session"); }));

    // A tag on the asset server: the history shows it, and the scene does not have it.
    context.stack.addOrExecute(new moAddEmptyTagUndoCommand(moUndoString("Add Server Tag", "Tag Commands"), "published",
                                                            moTagUndoCommand::SYSTEM_TAG));
}
