#include <Scenarios.h>

#include <moUndoStack/core/moFunctionUndoCommand.h>
#include <moUndoUtils/moUndoString.h>

#include <OpenSG/OSGFieldContainerFactory.h>
#include <OpenSG/OSGNode.h>

namespace {

using namespace bench;

// The edit of both sides: switches a node, found by id, on or off. All commands share their texts, as in a real editor.

const QString& editText()
{
    static const QString s_text = QStringLiteral("Switch Node");
    return s_text;
}

const moUndoString& undoString()
{
    static const moUndoString s_string(editText(), QStringLiteral("Switch a node on or off"),
                                       QStringLiteral("Node Commands"));
    return s_string;
}

void setActive(const osg::NodePtr& node, bool active)
{
    osg::beginEditCP(node, osg::Node::TravMaskFieldMask);
    node->setActive(active);
    osg::endEditCP(node, osg::Node::TravMaskFieldMask);
}

class OurEdit : public moFunctionUndoCommand<bool>
{
public:
    OurEdit(const osg::NodePtr& node, bool active) : moFunctionUndoCommand(undoString(), node, active, nullptr) {}

protected:
    bool get(osg::NodePtr node) override { return node->getActive(); }
    void set(osg::NodePtr node, bool active) override { setActive(node, active); }
};

class OurMergingEdit : public OurEdit
{
    MO_UNDO_COMMAND_ID

public:
    using OurEdit::OurEdit;
};
MO_UNDO_COMMAND_ID_IMPL(OurMergingEdit)

/// The least that a QUndoCommand must do for the same edit.
class BareEdit : public QUndoCommand
{
public:
    BareEdit(const osg::NodePtr& node, bool active, QUndoCommand* parent)
        : QUndoCommand(editText(), parent), m_nodeId(node.getFieldContainerId()), m_active(active)
    {
    }

    void undo() override { redo(); }
    void redo() override
    {
        const osg::NodePtr node = osg::NodePtr::dcast(osg::FieldContainerFactory::the()->getContainer(m_nodeId));
        if (node == osg::NullFC) return;
        const bool old = node->getActive();
        setActive(node, m_active);
        m_active = old;
    }

protected:
    unsigned int m_nodeId;

private:
    bool m_active;
};

class BareMergingEdit : public BareEdit
{
public:
    using BareEdit::BareEdit;
    int id() const override { return 1; }
    bool mergeWith(const QUndoCommand* other) override
    {
        return static_cast<const BareMergingEdit*>(other)->m_nodeId == m_nodeId;
    }
};

class Nodes
{
public:
    Nodes() : m_nodes{osg::Node::create(), osg::Node::create()}
    {
        for (const osg::NodePtr& node : m_nodes)
            osg::addRefCP(node);
    }
    ~Nodes()
    {
        for (osg::NodePtr& node : m_nodes)
            osg::subRefCP(node);
    }
    Nodes(const Nodes&) = delete;
    Nodes& operator=(const Nodes&) = delete;

protected:
    const osg::NodePtr& node() const { return m_nodes[0]; }
    /// Never the same node twice in a row.
    const osg::NodePtr& alternatingNode(int step) const { return m_nodes[step % 2]; }
    static bool active(int step) { return step % 2 != 0; }

private:
    osg::NodePtr m_nodes[2];
};

/// Commands without an id: merging is not considered.
struct Ours : Nodes
{
    QUndoCommand* operator()(int step, QUndoCommand*) const { return new OurEdit(node(), active(step)); }
};
struct Bare : Nodes
{
    QUndoCommand* operator()(int step, QUndoCommand* parent) const
    {
        return new BareEdit(node(), active(step), parent);
    }
};

/// Commands of one class on one node: all merge into the first.
struct OursMerging : Nodes
{
    QUndoCommand* operator()(int step, QUndoCommand*) const { return new OurMergingEdit(node(), active(step)); }
};
struct BareMerging : Nodes
{
    QUndoCommand* operator()(int step, QUndoCommand* parent) const
    {
        return new BareMergingEdit(node(), active(step), parent);
    }
};

/// Commands of one class, each on another node than the one before: merging is considered and refused.
struct OursRefused : Nodes
{
    QUndoCommand* operator()(int step, QUndoCommand*) const
    {
        return new OurMergingEdit(alternatingNode(step), active(step));
    }
};
struct BareRefused : Nodes
{
    QUndoCommand* operator()(int step, QUndoCommand* parent) const
    {
        return new BareMergingEdit(alternatingNode(step), active(step), parent);
    }
};

const Comparisons s_comparisons([] {
    const std::vector<int> sizes{1000, 100000};

    compare<Add, Ours, Bare>("add", {1000, 10000, 100000, 1000000}, Listener::None, {2.2, 1.6});
    compare<Add, OursRefused, BareRefused>("add/merge-refused", sizes, Listener::None, {2.2, 1.6});
    compare<Add, OursMerging, BareMerging>("add/merged", sizes, Listener::None, {2.1, 1.6});
    compare<Undo, Ours, Bare>("undo", sizes, Listener::None, {2.4, 1.7}).allocationFree = true;
    compare<Redo, Ours, Bare>("redo", sizes, Listener::None, {2.4, 1.7}).allocationFree = true;
    compare<Jump, Ours, Bare>("jump", sizes, Listener::None, {1.3, 1.3}).allocationFree = true;
    compare<Composite, Ours, Bare>("composite-child", sizes, Listener::None, {1.5, 1.2});
    compare<Clear, Ours, Bare>("clear", sizes, Listener::None, {1.2, 1.05}).allocationFree = true;

    // The bare side has no listener here, either.
    compare<Add, Ours, Bare>("add/callback", sizes, Listener::Callback, {4.5, 3.0});
    compare<Add, OursMerging, BareMerging>("add/merged/callback", sizes, Listener::Callback);
    compare<Undo, Ours, Bare>("undo/callback", sizes, Listener::Callback, {6.5, 4.0});
    compare<Redo, Ours, Bare>("redo/callback", sizes, Listener::Callback, {6.5, 4.0});
    compare<Jump, Ours, Bare>("jump/callback", sizes, Listener::Callback, {1.3, 1.3});
    compare<Composite, Ours, Bare>("composite-child/callback", sizes, Listener::Callback, {1.5, 1.2});
    compare<Clear, Ours, Bare>("clear/callback", sizes, Listener::Callback, {1.2, 1.05});
});

} // namespace
