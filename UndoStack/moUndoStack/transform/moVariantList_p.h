#pragma once

#include <moUndoStack/core/moContainer_p.h>

#include <moOpenSGUtils/moNodeUtils.h>

#include <algorithm>
#include <cstdint>
#include <vector>

/// The list of transform variants of a node, as the commands edit it. Each call looks the node up again: a listener to
/// the edit before may have destroyed it.
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

    /// Runs a write that calls the functions below. If one of them fails, the changes before it are taken back.
    template<class Write>
    void edit(const Write& write)
    {
        m_changes.reserve(2); // a removal and an insertion: most edits make no more changes
        moStep::writeOrTakeBack(write, [this] { takeBack(); });
        m_changes.clear();
    }

    void create()
    {
        note(Change::List, 0, 0, attachment());
        moStep::writeThroughSibling([this] { moNodeUtils::createTransformVariantsAttachment(node()); });
    }
    void putOn(const osg::TransformVariantsAttachmentPtr& list)
    {
        note(Change::List, 0, 0, attachment());
        moStep::writeThroughSibling([&] { moNodeUtils::setTransformVariantsAttachment(node(), list); });
    }
    void takeOff()
    {
        note(Change::List, 0, 0, attachment());
        moStep::writeThroughSibling([this] { moNodeUtils::removeTransformVariantsAttachment(node()); });
    }
    /// Does nothing past the end.
    void insert(std::uint64_t index, const osg::TransformVariantPtr& variant) { insert(index, variant, count()); }
    /// Past the end: at the end.
    void insertOrAppend(std::uint64_t index, const osg::TransformVariantPtr& variant)
    {
        const std::uint64_t end = count();
        insert(std::min(index, end), variant, end);
    }
    /// Holds a reference on the variant until the edit ends.
    void remove(std::uint64_t index)
    {
        note(Change::Removal, index, count(), at(index));
        moStep::writeThroughSibling([&] { moNodeUtils::removeTransformVariant(node(), index); });
    }

private:
    /// A change that was begun, with what taking it back needs.
    struct Change
    {
        enum Kind
        {
            List,      ///< the node got another list, or none
            Insertion, ///< of a variant
            Removal    ///< of a variant
        };
        Kind kind;
        std::uint64_t index;
        std::uint64_t countBefore;    ///< of the variants; not used for a list
        ContainerReference container; ///< the former list, or the variant
    };

    osg::NodePtr node() const { return findContainer<osg::NodePtr>(m_nodeId); }

    void insert(std::uint64_t index, const osg::TransformVariantPtr& variant, std::uint64_t countBefore)
    {
        note(Change::Insertion, index, countBefore, variant);
        moStep::writeThroughSibling([&] { moNodeUtils::insertTransformVariant(node(), index, variant); });
    }

    void note(Change::Kind kind, std::uint64_t index, std::uint64_t countBefore,
              const osg::FieldContainerPtr& container)
    {
        m_changes.push_back({kind, index, countBefore, ContainerReference(container)});
    }

    void takeBack()
    {
        for (; !m_changes.empty(); m_changes.pop_back())
            moStep::writeThroughSibling([this] { takeBack(m_changes.back()); });
    }

    /// Looks whether the change was made: the one that failed may not have been.
    void takeBack(const Change& change) const
    {
        if (change.kind == Change::List) {
            const auto list = change.container.find<osg::TransformVariantsAttachmentPtr>();
            if (list == osg::NullFC)
                moNodeUtils::removeTransformVariantsAttachment(node());
            else if (list != attachment())
                moNodeUtils::setTransformVariantsAttachment(node(), list);
        } else if (count() != change.countBefore) {
            if (change.kind == Change::Insertion)
                moNodeUtils::removeTransformVariant(node(), change.index);
            else
                moNodeUtils::insertTransformVariant(node(), change.index,
                                                    change.container.find<osg::TransformVariantPtr>());
        }
    }

    unsigned int m_nodeId;
    std::vector<Change> m_changes;
};
