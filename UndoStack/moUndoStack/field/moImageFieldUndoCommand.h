#pragma once

#include <moUndoStack/core/moUndoCommandId.h>
#include <moUndoStack/field/moFieldBaseUndoCommand.h>

#include <OpenSG/OSGImage.h>

#include <QtCore/QCoreApplication>

/// Sets an image field, e.g. a texture slot of a material, to the texture manager's image for the given one.
///
/// \param fieldName  as moUndoUtil::findField() takes it.
/// \param fieldId    counts from 1.
/// \param image      null gives whatever the texture manager has for null.
///
/// The text is always "Set Texture", untranslated; no constructor takes another.
/// Old image: read at construction. Never merges, nor does a composite that has one. The command holds one reference of
/// the old and of the new image as long as it lives, so neither is destroyed while it may have to return. When the texture manager puts another image in the
/// place of the given one, the command gives up one reference of the given one: the caller hands it over. Each undo and
/// redo moves one reference, from the image that leaves the field to the one that enters it: the field's image must have
/// been counted for the field, as a material does. A field of another type is left alone.
/// Message: "id", "container", "fieldId".
class MO_UNDO_STACK_EXPORT moImageFieldUndoCommand : public moFieldBaseUndoCommand<>
{
    Q_DECLARE_TR_FUNCTIONS(moImageFieldUndoCommand)
    MO_UNDO_COMMAND_ID
public:
    /// By the field's name.
    moImageFieldUndoCommand(osg::FieldContainerPtr container, const std::string& fieldName, osg::ImagePtr image,
                            QUndoCommand* parent = nullptr);
    /// By the field's id.
    moImageFieldUndoCommand(osg::FieldContainerPtr container, int fieldId, osg::ImagePtr image,
                            QUndoCommand* parent = nullptr);
    ~moImageFieldUndoCommand() override;

    void undo() override;
    void redo() override;
    bool canMergeWith(const QUndoCommand* /*other*/) const override { return false; }

private:
    osg::SFImagePtr* getField() const;
    void hold(const osg::ImagePtr& image);
    void write(osg::ImagePtr image);

    osg::ImagePtr m_old;
    osg::ImagePtr m_new;
};
