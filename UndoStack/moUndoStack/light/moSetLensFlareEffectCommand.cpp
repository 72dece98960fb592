#include <moUndoStack/light/moSetLensFlareEffectCommand.h>

#include <moUndoStack/core/moContainer_p.h>

#include <moOpenSGUtils/moLights.h>

#include <vector>

MO_UNDO_COMMAND_ID_IMPL(moSetLensFlareEffectCommand)

moSetLensFlareEffectCommand::moSetLensFlareEffectCommand(const osg::LensFlareEffectPtr& source,
                                                         const osg::LensFlareEffectPtr& target, QUndoCommand* parent)
    : moLensFlareCommand("Set Lens Flare Effect", parent),
      m_sourceId(containerId(source)),
      m_targetId(containerId(target))
{
    if (!source) return;
    const auto backup = moLights::cloneLensFlareEffect(target, LensFlareEffectCloneSharedElements);
    addReference(source);
    addReference(target);
    addReference(backup);
    m_backupId = containerId(backup);
}

// Not a ContainerReference: the target's reference is given back even if none was taken, see the class.
moSetLensFlareEffectCommand::~moSetLensFlareEffectCommand()
{
    for (const unsigned int id : {m_sourceId, m_targetId, m_backupId}) {
        releaseReference(findContainer<osg::FieldContainerPtr>(id));
    }
}

void moSetLensFlareEffectCommand::undo()
{
    step(m_backupId, m_sourceId);
}

void moSetLensFlareEffectCommand::redo()
{
    step(m_sourceId, m_backupId);
}

void moSetLensFlareEffectCommand::step(unsigned int fromId, unsigned int backId) const
{
    moStep::run([&] { moStep::writeOrTakeBack([&] { applyToTarget(fromId); }, [&] { applyToTarget(backId); }); });
}

void moSetLensFlareEffectCommand::applyToTarget(unsigned int fromId) const
{
    auto target = findContainer<osg::LensFlareEffectPtr>(m_targetId);
    apply(findContainer<osg::LensFlareEffectPtr>(fromId), target);
}

void moSetLensFlareEffectCommand::apply(const osg::LensFlareEffectPtr& from, osg::LensFlareEffectPtr& to)
{
    if (!from || !to) return;

    // Held while the list is cleared: otherwise an effect applied to itself would destroy them.
    std::vector<ContainerReference> elements;
    for (const auto& element : *from->getMFElements())
        elements.emplace_back(element);

    const ContainerEdit edit(to, osg::FieldBits::AllFields);
    to->setIsActive(from->getIsActive());
    to->setColor(from->getColor());
    to->setIntensity(from->getIntensity());
    to->setSize(from->getSize());
    to->setLensFlareType(from->getLensFlareType());
    to->setAngularIntensity(from->getAngularIntensity());
    to->setUseLightProperties(from->getUseLightProperties());
    // Intended: writes the type again, because setUseLightProperties() may have set another one.
    to->setLensFlareType(from->getLensFlareType());
    to->clearEffects();
    for (const ContainerReference& element : elements)
        to->addElement(element.find<osg::LensFlareElementPtr>());
}
