#include <moUndoStack/field/moImageFieldUndoCommand.h>

#include <moUndoStack/field/moFieldBaseUndoCommand_p.h>

#include <moOpenSGUberBase/moTextureManager.h>

MO_UNDO_COMMAND_ID_IMPL(moImageFieldUndoCommand)

namespace {

moUndoString setTexture()
{
    return moUndoString("Set Texture", QStringLiteral("ImageField"));
}

} // namespace

moImageFieldUndoCommand::moImageFieldUndoCommand(osg::FieldContainerPtr container, const std::string& fieldName,
                                                 osg::ImagePtr image, QUndoCommand* parent)
    : moFieldBaseUndoCommand<>(setTexture(), container, moFieldAccess::idOf(container, fieldName), parent)
{
    hold(image);
}

moImageFieldUndoCommand::moImageFieldUndoCommand(osg::FieldContainerPtr container, int fieldId, osg::ImagePtr image,
                                                 QUndoCommand* parent)
    : moFieldBaseUndoCommand<>(setTexture(), container, fieldId, parent)
{
    hold(image);
}

moImageFieldUndoCommand::~moImageFieldUndoCommand()
{
    releaseReference(m_new);
    releaseReference(m_old);
}

void moImageFieldUndoCommand::redo()
{
    write(m_new);
}

void moImageFieldUndoCommand::undo()
{
    write(m_old);
}

osg::SFImagePtr* moImageFieldUndoCommand::getField() const
{
    return moFieldAccess::find<osg::SFImagePtr>(*this);
}

void moImageFieldUndoCommand::hold(const osg::ImagePtr& image)
{
    if (const auto* const field = getField()) m_old = field->getValue();
    addReference(m_old);

    m_new = moTextureManager::the()->getImage(image, true);
    if (m_new != image) releaseReference(image);
    addReference(m_new);
}

void moImageFieldUndoCommand::write(osg::ImagePtr image)
{
    osg::ImagePtr previous;
    const auto exchange = [&](osg::SFImagePtr& field) {
        previous = field.getValue();
        field.setValue(image);
    };
    const auto moveReference = [&] {
        addReference(image); // first: both may be the same image
        releaseReference(previous);
    };
    moFieldAccess::write<osg::SFImagePtr>(*this, exchange, moveReference);
}
