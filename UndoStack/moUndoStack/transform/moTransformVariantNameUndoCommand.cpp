#include <moUndoStack/transform/moTransformVariantNameUndoCommand.h>

#include <moUndoStack/core/moContainer_p.h>

#include <moUndoUtils/moUndoString.h>

#include <moOpenSGUtils/moTransformVariantUtils.h>

#include <utility>

MO_UNDO_COMMAND_ID_IMPL(moTransformVariantNameUndoCommand)

moTransformVariantNameUndoCommand::moTransformVariantNameUndoCommand(osg::TransformVariantPtr variant, std::string name,
                                                                     QUndoCommand* parent, Callback callback)
    : moUndoCommand(moUndoString("Transform Variant Name", QStringLiteral("Transform Commands")), parent),
      m_variantId(containerId(variant)),
      m_oldName(moTransformVariantUtils::getName(variant)),
      m_newName(std::move(name)),
      m_callback(std::move(callback))
{
}

void moTransformVariantNameUndoCommand::redo()
{
    rename(m_oldName, m_newName);
}

void moTransformVariantNameUndoCommand::undo()
{
    rename(m_newName, m_oldName);
}

void moTransformVariantNameUndoCommand::rename(const std::string& from, const std::string& to) const
{
    moStep::run([&] {
        const auto variant = findContainer<osg::TransformVariantPtr>(m_variantId);
        if (variant == osg::NullFC) return;
        const auto write = [this](const std::string& name) {
            moStep::writeThroughSibling(
                [&] { moTransformVariantUtils::setName(findContainer<osg::TransformVariantPtr>(m_variantId), name); });
        };
        const std::string before = moTransformVariantUtils::getName(variant);
        moStep::writeOrTakeBack([&] { write(to); }, [&] { write(before); });
        moStep::afterwards([&] { m_callback(from, to); });
    });
}
