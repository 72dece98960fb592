#pragma once

#include <moUndoStack/core/moContainer_p.h>

#include <moOpenSGUtils/moNodeUtils.h>

#include <cstdint>
#include <vector>

/// The list of transform variants of a node, as the commands edit it. Each call finds the node anew: a listener to the
/// edit before may have destroyed it.
class moVariantList
{
public:
    explicit moVariantList(unsigned int nodeId) : m_nodeId(nodeId) {}

    osg::TransformVariantsAttachmentPtr attachment() const
    {
        return moNodeUtils::getTransformVariantsAttachment(node());
    }
    std::uint64_t count() const { return moNodeUtils::getTransformVariantCount(node()); }
    osg::TransformVariantPtr at(std::uint64_t index) const { return moNodeUtils::getTransformVariant(node(), index); }

    void create() const
    {
        moStep::writeThroughSibling([this] { moNodeUtils::createTransformVariantsAttachment(node()); });
    }
    void putOn(const osg::TransformVariantsAttachmentPtr& list) const
    {
        moStep::writeThroughSibling([&] { moNodeUtils::setTransformVariantsAttachment(node(), list); });
    }
    void takeOff() const
    {
        moStep::writeThroughSibling([this] { moNodeUtils::removeTransformVariantsAttachment(node()); });
    }
    void insert(std::uint64_t index, const osg::TransformVariantPtr& variant) const
    {
        moStep::writeThroughSibling([&] { moNodeUtils::insertTransformVariant(node(), index, variant); });
    }
    void remove(std::uint64_t index) const
    {
        moStep::writeThroughSibling([&] { moNodeUtils::removeTransformVariant(node(), index); });
    }

    /// Runs a write on the list; if a part of it fails, the list becomes what it was.
    template<class Write>
    void edit(const Write& write) const
    {
        const ContainerReference list(attachment());
        std::vector<ContainerReference> variants;
        for (std::uint64_t i = 0; i < count(); ++i)
            variants.emplace_back(at(i));
        moStep::writeOrTakeBack(write, [&] { become(list, variants); });
    }

private:
    osg::NodePtr node() const { return findContainer<osg::NodePtr>(m_nodeId); }

    void become(const ContainerReference& list, const std::vector<ContainerReference>& variants) const
    {
        const auto former = list.find<osg::TransformVariantsAttachmentPtr>();
        if (former != osg::NullFC && attachment() != former) putOn(former);
        std::uint64_t same = 0;
        while (same < variants.size() && same < count() && containerId(at(same)) == variants[same].id())
            ++same;
        for (std::uint64_t last = count(); last > same; --last)
            remove(last - 1);
        for (; same < variants.size(); ++same)
            insert(same, variants[same].find<osg::TransformVariantPtr>());
        // Last, so that a list that comes back later comes back empty.
        if (former == osg::NullFC) takeOff();
    }

    unsigned int m_nodeId;
};
