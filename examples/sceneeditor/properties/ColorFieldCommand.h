#pragma once

#include <moUndoStack/core/moUndoCommand.h>

#include <OpenSG/OSGColor.h>
#include <OpenSG/OSGFieldContainer.h>

/// A command of the application's own: sets a colour field of any container. The library's field commands are for
/// numbers, flags, texts, lists and images.
///
/// The container is kept by id; if it was destroyed, the step is a no-op. Merges with a newer command of the same field
/// made within its merge interval.
class ColorFieldCommand : public moUndoCommand
{
    MO_UNDO_COMMAND_ID

public:
    /// \param field  id of a field of type osg::SFColor3f.
    ColorFieldCommand(const moUndoString& text, const osg::FieldContainerPtr& container, osg::UInt32 field,
                      const osg::Color3f& color);

    void undo() override { exchange(); }
    void redo() override { exchange(); }
    bool canMergeWith(const QUndoCommand* other) const override;
    bool mergeWith(const QUndoCommand* other) override;

private:
    void exchange();

    osg::UInt32 m_containerId;
    osg::UInt32 m_fieldId;
    osg::Color3f m_color; ///< what the next undo or redo writes
};
