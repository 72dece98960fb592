#include <moUndoStack/transform/moTransformVariantOptionsUndoCommand.h>

#include <moUndoStack/core/moContainer_p.h>

#include <moUndoUtils/moUndoString.h>

#include <moOpenSGUtils/moTransformVariantUtils.h>

#include <utility>

MO_UNDO_COMMAND_ID_IMPL(moTransformVariantOptionsUndoCommand)

moTransformVariantOptionsUndoCommand::moTransformVariantOptionsUndoCommand(osg::TransformVariantPtr variant,
                                                                           std::uint64_t applyFlags,
                                                                           QUndoCommand* parent, Callback callback)
    : moUndoCommand(moUndoString("Transform Variant Options", QStringLiteral("Transform Commands")), parent),
      m_variantId(containerId(variant)),
      m_oldFlags(moTransformVariantUtils::getApplyFlags(variant)),
      m_newFlags(applyFlags),
      m_callback(std::move(callback))
{
}

void moTransformVariantOptionsUndoCommand::redo()
{
    apply(m_newFlags);
}

void moTransformVariantOptionsUndoCommand::undo()
{
    apply(m_oldFlags);
}

void moTransformVariantOptionsUndoCommand::apply(std::uint64_t flags) const
{
    moStep::run([this, flags] {
        const auto variant = findContainer<osg::TransformVariantPtr>(m_variantId);
        if (variant == osg::NullFC) return;
        const auto write = [this](std::uint64_t value) {
            moStep::writeThroughSibling([&] {
                moTransformVariantUtils::setApplyFlags(findContainer<osg::TransformVariantPtr>(m_variantId), value);
            });
        };
        const std::uint64_t before = moTransformVariantUtils::getApplyFlags(variant);
        moStep::writeOrTakeBack([&] { write(flags); }, [&] { write(before); });
        moStep::afterwards([this] { m_callback(); });
    });
}
