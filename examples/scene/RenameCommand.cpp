#include <scene/RenameCommand.h>

#include <moUndoUtils/moUndoString.h>

#include <OpenSG/OSGSimpleAttachments.h>

MO_UNDO_COMMAND_ID_IMPL(RenameCommand)

RenameCommand::RenameCommand(const osg::NodePtr& node, const std::string& name)
    : moFunctionUndoCommand(moUndoString("Rename", "Node Commands"), node, name, nullptr)
{
}

std::string RenameCommand::get(osg::NodePtr node)
{
    const char* name = osg::getName(node);
    return name ? name : "";
}

void RenameCommand::set(osg::NodePtr node, std::string name)
{
    const osg::CPEditor edit(node, osg::Node::AttachmentsFieldMask);
    if (name.empty())
        osg::setName(node, static_cast<const char*>(nullptr));
    else
        osg::setName(node, name);
}
