#include <editsession/SceneDigest.h>

#include <editsession/ModelLoader.h>

#include <OpenSG/OSGAttachmentContainer.h>
#include <OpenSG/OSGFieldContainerFactory.h>

#include <QtCore/QCryptographicHash>

#include <cstdlib>
#include <cstring>
#include <map>
#include <tuple>

namespace {

class Walk
{
public:
    /// Adds where the container stands in the walk (0 for null), and lets the walk come to it.
    void addHandle(const osg::FieldContainerPtr& container)
    {
        if (container == osg::NullFC) return addNumber(0);
        const auto [place, isNew] = m_places.emplace(container.getFieldContainerId(), m_reached.size() + 1);
        if (isNew) m_reached.push_back(container);
        addNumber(place->second);
    }

    QByteArray finish()
    {
        // The list grows while it is walked along.
        for (std::size_t i = 0; i < m_reached.size(); ++i)
            addContainer(osg::FieldContainerPtr(m_reached[i]));
        return m_hash.result().toHex();
    }

private:
    void addBytes(const void* bytes, std::size_t count)
    {
        m_hash.addData(static_cast<const char*>(bytes), static_cast<int>(count));
    }
    void addNumber(quint64 number) { addBytes(&number, sizeof(number)); }
    /// With its length, so that no two lists of texts look alike.
    void addText(const std::string& text)
    {
        addNumber(text.size());
        addBytes(text.data(), text.size());
    }

    void addContainer(const osg::FieldContainerPtr& container)
    {
        osg::FieldContainerType& type = container->getType();
        addText(type.getCName());
        for (osg::UInt32 id = 1; id <= type.getNumFieldDescs(); ++id) {
            const osg::FieldDescription& description = *type.getFieldDescription(id);
            if (description.isInternal() || std::strcmp(description.getCName(), "parents") == 0) continue;
            addText(description.getCName());
            addField(*container->getField(id));
        }
        if (const auto node = osg::NodePtr::dcast(container)) {
            addBytes(toWorld(node).getValues(), 16 * sizeof(osg::Real32));
        }
    }

    /// Kept, so that a deep scene costs no more than a flat one.
    const osg::Matrix& toWorld(const osg::NodePtr& node)
    {
        const auto known = m_toWorld.find(node.getFieldContainerId());
        if (known != m_toWorld.end()) return known->second;

        osg::Matrix matrix;
        if (const osg::NodePtr parent = node->getParent()) matrix = toWorld(parent);
        if (const osg::NodeCorePtr core = node->getCore()) core->accumulateMatrix(matrix);
        return m_toWorld.emplace(node.getFieldContainerId(), matrix).first->second;
    }

    void addField(osg::Field& field)
    {
        const char* typeName = field.getType().getCName();
        if (auto* attachments = dynamic_cast<osg::SFAttachmentMap*>(&field)) {
            addAttachments(attachments->getValue());
        } else if (auto* texts = dynamic_cast<osg::MFString*>(&field)) {
            addNumber(texts->size());
            for (const std::string& text : *texts)
                addText(text);
        } else if (std::strstr(typeName, "Ptr")) {
            addHandles(field);
        } else if (!dynamic_cast<osg::SFDynamicVolume*>(&field)) {
            // A number's text is the shortest that gives the very same number again.
            addNumber(field.getSize());
            addText(field.getValueByStr());
        }
    }

    /// There is a field type for each type of handle. What they have in common is their text: the ids.
    void addHandles(const osg::Field& field)
    {
        addNumber(field.getSize());
        const std::string ids = field.getValueByStr();
        const char* text = ids.c_str();
        for (osg::UInt32 i = 0; i < field.getSize(); ++i) {
            char* end = nullptr;
            const auto id = static_cast<osg::UInt32>(std::strtoul(text, &end, 10));
            addHandle(osg::FieldContainerFactory::the()->getContainer(id));
            text = end + std::strspn(end, ", ");
        }
    }

    /// By the name of their group: its number is only the order in which the groups were registered.
    void addAttachments(const osg::AttachmentMap& attachments)
    {
        std::map<std::pair<std::string, unsigned int>, osg::AttachmentPtr> sorted;
        for (const auto& [key, attachment] : attachments) {
            const char* group = osg::FieldContainerFactory::the()->findGroupName(static_cast<osg::UInt16>(key >> 16));
            sorted.emplace(std::pair(group ? group : "", key & 0xFFFFu), attachment);
        }
        addNumber(sorted.size());
        for (const auto& [place, attachment] : sorted) {
            addText(place.first);
            addNumber(place.second);
            addHandle(attachment);
        }
    }

    QCryptographicHash m_hash{QCryptographicHash::Sha256};
    std::map<osg::UInt32, std::size_t> m_places;
    std::vector<osg::FieldContainerPtr> m_reached;
    std::map<osg::UInt32, osg::Matrix> m_toWorld;
};

} // namespace

QByteArray sceneDigest(const Model& model)
{
    Walk walk;
    walk.addHandle(model.root.get());
    for (const osg::FieldContainerRefPtr& container : model.containers)
        walk.addHandle(container.get());
    return walk.finish();
}
