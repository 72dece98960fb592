#include <sceneeditor/properties/ColorFieldCommand.h>

#include <moUndoUtils/moUndoString.h>

#include <OpenSG/OSGFieldContainerFactory.h>
#include <OpenSG/OSGSFBaseTypes.h>
#include <OpenSG/OSGSFMathTypes.h>

MO_UNDO_COMMAND_ID_IMPL(ColorFieldCommand)

ColorFieldCommand::ColorFieldCommand(const moUndoString& text, const osg::FieldContainerPtr& container,
                                     osg::UInt32 field, const osg::Color3f& color)
    : moUndoCommand(text, nullptr), m_containerId(osg::getContainerId(container)), m_fieldId(field), m_color(color)
{
}

bool ColorFieldCommand::canMergeWith(const QUndoCommand* other) const
{
    const auto* const newer = dynamic_cast<const ColorFieldCommand*>(other);
    return newer && moUndoCommand::canMergeWith(other) && newer->m_containerId == m_containerId &&
           newer->m_fieldId == m_fieldId;
}

bool ColorFieldCommand::mergeWith(const QUndoCommand* other)
{
    if (!canMergeWith(other)) return false;
    adoptCreationTime(static_cast<const ColorFieldCommand&>(*other));
    return true;
}

void ColorFieldCommand::exchange()
{
    const osg::FieldContainerPtr container = osg::FieldContainerFactory::the()->getContainer(m_containerId);
    if (container == osg::NullFC) return;
    auto* const field = dynamic_cast<osg::SFColor3f*>(container->getField(m_fieldId));
    if (!field) return;
    const osg::CPEditor edit(container, osg::BitVector(1) << m_fieldId);
    std::swap(field->getValue(), m_color);
}
