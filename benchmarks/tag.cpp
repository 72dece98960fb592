#include <Scenarios.h>

#include <moUndoStack/tag/moAttachedTagUndoCommand.h>
#include <moUndoUtils/moUndoString.h>

#include <OpenSG/OSGNode.h>
#include <OpenSG/OSGRefPtr.h>

namespace {

using namespace bench;

using Tags = osg::MField<std::string>;
using Stamps = osg::MField<osg::UInt64>;

const QString& editText()
{
    static const QString s_text = QStringLiteral("Add Tag");
    return s_text;
}

const moUndoString& undoString()
{
    static const moUndoString s_string(editText(), editText(), QStringLiteral("Tag Commands"));
    return s_string;
}

osg::TagAttachmentPtr tagsOf(const osg::NodePtr& node)
{
    return osg::TagAttachmentPtr::dcast(node->findAttachment(osg::TagAttachment::getClassType()));
}

/// A node with a thousand tags, and two lists of a thousand that replace them in turn.
class TaggedNode
{
public:
    TaggedNode()
    {
        constexpr int tags = 1000;
        for (int i = 0; i < tags; ++i) {
            m_even.push_back("even tag number " + std::to_string(i));
            m_odd.push_back("odd tag number " + std::to_string(i));
        }
        m_stamps.push_back(1);
        const osg::TagAttachmentPtr attachment = osg::TagAttachment::create();
        *attachment->getMFUserTags() = m_even;
        *attachment->getMFTagStamps() = m_stamps;
        m_node->addAttachment(attachment);
    }

protected:
    osg::NodePtr node() const { return m_node; }
    const Tags& tags(int step) const { return step % 2 == 0 ? m_odd : m_even; }
    const Stamps& stamps() const { return m_stamps; }

private:
    osg::NodeRefPtr m_node{osg::Node::create()};
    Tags m_even;
    Tags m_odd;
    Stamps m_stamps;
};

/// Keeps both lists before and after, and holds the node.
class BareTagCommand : public QUndoCommand
{
public:
    BareTagCommand(const osg::NodePtr& node, const Tags& tags, const Stamps& stamps, QUndoCommand* parent)
        : QUndoCommand(editText(), parent),
          m_node(node),
          m_old(tagsOf(node)->getUserTags()),
          m_new(tags),
          m_oldStamps(stamps),
          m_newStamps(stamps)
    {
    }

    void undo() override { apply(m_old, m_oldStamps); }
    void redo() override { apply(m_new, m_newStamps); }

private:
    void apply(const Tags& tags, const Stamps& stamps)
    {
        const osg::TagAttachmentPtr attachment = tagsOf(m_node);
        if (attachment == osg::NullFC) return;
        {
            const osg::CPEditor edit(attachment, osg::TagAttachment::UserTagsFieldMask);
            attachment->getMFUserTags()->setValues(tags);
        }
        const osg::CPEditor edit(attachment, osg::TagAttachment::UserTagsFieldMask);
        attachment->getMFTagStamps()->setValues(stamps);
    }

    osg::NodeRefPtr m_node;
    Tags m_old;
    Tags m_new;
    Stamps m_oldStamps;
    Stamps m_newStamps;
};

struct Ours : TaggedNode
{
    QUndoCommand* operator()(int step, QUndoCommand*) const
    {
        Tags given = tags(step);
        return new moAddTagUndoCommand(undoString(), node(), osg::TagAttachment::UserTagsFieldMask,
                                       osg::TagAttachment::UserTagsFieldId, "tag", &given, stamps(), stamps());
    }
};
struct Bare : TaggedNode
{
    QUndoCommand* operator()(int step, QUndoCommand* parent) const
    {
        const Tags given = tags(step);
        return new BareTagCommand(node(), given, stamps(), parent);
    }
};

const Comparisons s_comparisons([] {
    const std::vector<int> steps{100};
    compare<Add, Ours, Bare>("tag/thousand/add", steps);
    compare<Undo, Ours, Bare>("tag/thousand/undo", steps);
    compare<Redo, Ours, Bare>("tag/thousand/redo", steps);
});

} // namespace
