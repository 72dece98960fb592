#include <sceneeditor/properties/SceneContainers.h>

#include <sceneeditor/SceneEdits.h>

#include <scene/ModelLoader.h>

#include <moOpenSGUtils/moNodeUtils.h>

#include <OpenSG/OSGFieldContainerFactory.h>
#include <OpenSG/OSGNodeCore.h>
#include <OpenSG/OSGSFSysTypes.h>

namespace {

/// Names of a container's own, where it has one, tell those of one type apart.
QString nameIn(const osg::FieldContainerPtr& container)
{
    for (const char* field : {"label", "name"})
        if (const auto* const text = dynamic_cast<const osg::SFString*>(container->getField(field)))
            return QString::fromStdString(text->getValue());
    return {};
}

void add(std::vector<NamedContainer>& all, const osg::FieldContainerPtr& container, const QString& own)
{
    if (container == osg::NullFC) return;
    const QString type = container->getType().getCName();
    all.push_back({osg::getContainerId(container), own.isEmpty() ? type : QString("%1 '%2'").arg(type, own)});
}

} // namespace

std::vector<NamedContainer> containersOf(const osg::NodePtr& node, const Model& model)
{
    std::vector<NamedContainer> all;
    if (node != osg::NullFC) {
        add(all, node, nameOf(node));
        add(all, node->getCore(), {});
        for (const auto& [key, attachment] : node->getSFAttachments()->getValue())
            add(all, attachment, {});
        for (osg::UInt64 i = 0; i < moNodeUtils::getTransformVariantCount(node); ++i)
            add(all, moNodeUtils::getTransformVariant(node, i),
                QString::fromStdString(moNodeUtils::getTransformVariantName(node, static_cast<int>(i))));
    }
    for (const osg::FieldContainerRefPtr& container : model.containers)
        add(all, container.get(), nameIn(container.get()));
    return all;
}

osg::FieldContainerPtr containerById(osg::UInt32 id)
{
    return osg::FieldContainerFactory::the()->getContainer(id);
}
