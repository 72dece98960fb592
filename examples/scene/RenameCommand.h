#pragma once

#include <moUndoStack/core/moFunctionUndoCommand.h>
#include <moUndoStack/core/moUndoCommandId.h>

#include <string>

/// A command of the application's own: renames a node. It only says how the value is read and written.
class RenameCommand : public moFunctionUndoCommand<std::string>
{
    MO_UNDO_COMMAND_ID

public:
    RenameCommand(const osg::NodePtr& node, const std::string& name);

protected:
    std::string get(osg::NodePtr node) override;
    /// An empty name removes the attachment, because a node without a name has none.
    void set(osg::NodePtr node, std::string name) override;
};
