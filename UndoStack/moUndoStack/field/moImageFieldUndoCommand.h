#pragma once

#include <moUndoStack/core/moUndoCommandId.h>
#include <moUndoStack/field/moFieldBaseUndoCommand.h>

#include <OpenSG/OSGImage.h>

#include <QtCore/QCoreApplication>

/// Sets an image field, e.g. a texture slot of a material, to the texture manager's image for the given one.
///
/// Old image: read at construction. A field of another type is left alone.
///
/// References: the command holds one on the old and one on the new image until it is deleted, so that both can be put
/// back. Each undo and redo releases the field's reference on the image that leaves it and adds one on the image that
/// enters it: the field must hold a reference on its image, as materials do. If the texture manager gives another image
/// than the given one, the command releases one reference of the given one. Intended: a caller who makes an image for
/// the command need not release it. See docs/oddities.md#an-image-is-handed-over.
///
/// Intended: the text is always "Set Texture", untranslated. It is part of the interface, and no constructor takes
/// another. See docs/oddities.md#two-untranslated-texts.
///
/// Never merges; a composite with such a child does not merge either. Message: "id", "container", "fieldId".
class MO_UNDO_STACK_EXPORT moImageFieldUndoCommand : public moFieldBaseUndoCommand<>
{
    Q_DECLARE_TR_FUNCTIONS(moImageFieldUndoCommand)
    MO_UNDO_COMMAND_ID
public:
    /// \param fieldName  as moUndoUtil::findField() takes it.
    /// \param image      null sets the image that the texture manager gives for null.
    /// \param parent     null means the composite being composed, if any.
    moImageFieldUndoCommand(osg::FieldContainerPtr container, const std::string& fieldName, osg::ImagePtr image,
                            QUndoCommand* parent = nullptr);
    /// \param fieldId  counts from 1.
    /// \param image    null sets the image that the texture manager gives for null.
    /// \param parent   null means the composite being composed, if any.
    moImageFieldUndoCommand(osg::FieldContainerPtr container, int fieldId, osg::ImagePtr image,
                            QUndoCommand* parent = nullptr);
    ~moImageFieldUndoCommand() override;

    /// Writes the old image.
    void undo() override;
    /// Writes the new image.
    void redo() override;
    /// Always false.
    bool canMergeWith(const QUndoCommand* /*other*/) const override { return false; }

private:
    osg::SFImagePtr* getField() const;
    void hold(const osg::ImagePtr& image);
    void write(osg::ImagePtr image);

    osg::ImagePtr m_old;
    osg::ImagePtr m_new;
};
