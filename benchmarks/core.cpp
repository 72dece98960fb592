#include <Scenarios.h>

#include <moUndoStack/core/moFunctionUndoCommand.h>
#include <moUndoUtils/moUndoString.h>

#include <OpenSG/OSGFieldContainerFactory.h>
#include <OpenSG/OSGNode.h>

#include <string>
#include <vector>

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

/// So many nodes that live until the program ends: ids are not used again, so a new scene for each run would grow
/// OpenSG's list of containers.
class ManyNodes
{
public:
    explicit ManyNodes(int count)
    {
        while (static_cast<int>(nodes().size()) < count) {
            nodes().push_back(osg::Node::create());
            osg::addRefCP(nodes().back());
        }
    }

protected:
    static const osg::NodePtr& node(int step) { return nodes()[static_cast<std::size_t>(step)]; }

private:
    static std::vector<osg::NodePtr>& nodes()
    {
        static std::vector<osg::NodePtr> s_nodes;
        return s_nodes;
    }
};

/// Each command is about a node of its own.
struct OursOfMany : ManyNodes
{
    using ManyNodes::ManyNodes;
    QUndoCommand* operator()(int step, QUndoCommand*) const { return new OurEdit(node(step), true); }
};
struct BareOfMany : ManyNodes
{
    using ManyNodes::ManyNodes;
    QUndoCommand* operator()(int step, QUndoCommand* parent) const { return new BareEdit(node(step), true, parent); }
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

/// A window shows the history while steps are pushed.
template<int length>
void compareShownHistory()
{
    constexpr double goal = 2e6; // a step stays below what an eye sees as a pause, however long the history is
    const std::string name = "history/" + std::to_string(length);
    Comparison& push = compare<ShownHistoryOf<length>::template Push, Ours, Bare>(name + "/push", {3}, Listener::View,
                                                                                  {goal, goal, Target::Ours});
    push.before = length;
    push.timeOnly = true;
    Comparison& paint = compare<ShownHistoryOf<length>::template PushAndPaint, Ours, Bare>(name + "/push-and-paint",
                                                                                           {3}, Listener::View);
    paint.before = length;
    paint.timeOnly = true;
}

/// The steps of the core as one listener hears them. The bare side has nobody to tell in any case.
void compareSteps(const std::string& suffix, Listener listener, const Target& add, const Target& merged,
                  const Target& undo, const Target& redo)
{
    const std::vector<int> sizes{1000, 100000};
    compare<Add, Ours, Bare>("add" + suffix, sizes, listener, add);
    compare<Add, OursMerging, BareMerging>("add/merged" + suffix, sizes, listener, merged);
    compare<Undo, Ours, Bare>("undo" + suffix, sizes, listener, undo);
    compare<Redo, Ours, Bare>("redo" + suffix, sizes, listener, redo);
}

const Comparisons s_comparisons([] {
    const std::vector<int> sizes{1000, 100000};
    const std::vector<int> toAMillion{1000, 100000, 1000000};
    const Listener nobody = Listener::None;

    compare<Add, Ours, Bare>("add", toAMillion, nobody, {1.51, 1.42}).bytes = bytes(104, 104);
    compare<Add, OursRefused, BareRefused>("add/merge-refused", sizes, nobody, {1.55, 1.47});
    compare<Add, OursMerging, BareMerging>("add/merged", toAMillion, nobody, {1.55, 1.47});
    compare<Undo, Ours, Bare>("undo", toAMillion, nobody, {1.64, 1.47}).allocations = none();
    compare<Redo, Ours, Bare>("redo", toAMillion, nobody, {1.62, 1.47}).allocations = none();
    compare<Jump, Ours, Bare>("jump", toAMillion, nobody, {1.8, 1.4}).allocations = none();
    compare<Clear, Ours, Bare>("clear", toAMillion, nobody, {1.44, 1.1}).allocations = none();

    compare<Add, OursOfMany, BareOfMany>("load", toAMillion, nobody, {1.51, 1.42}).bytes = bytes(104, 104);
    compare<Clear, OursOfMany, BareOfMany>("load/clear", toAMillion, nobody, {1.44, 1.1}).allocations = none();

    // What a child takes more is that of a step of a jump, what every command is made with, and Qt's child().
    compare<CompositesOf<10>::Add, Ours, Bare>("composite/10/add", sizes, nobody, {1.4, 1.35});
    compare<CompositesOf<10>::Undo, Ours, Bare>("composite/10/undo", sizes, nobody, {1.8, 1.6});
    compare<CompositesOf<1000>::Add, Ours, Bare>("composite/1000/add", sizes, nobody, {1.4, 1.35});
    compare<CompositesOf<1000>::Undo, Ours, Bare>("composite/1000/undo", sizes, nobody, {1.8, 1.6});
    compare<CompositesOf<100000>::Add, Ours, Bare>("composite/100000/add", {100000}, nobody, {1.4, 1.25});
    compare<CompositesOf<100000>::Undo, Ours, Bare>("composite/100000/undo", {100000}, nobody, {1.8, 1.6});

    compareSteps("/callback", Listener::Callback, {3.93, 3.2}, {}, {5.55, 4.4}, {5.52, 4.4});
    compareSteps("/reader", Listener::Reader, {}, {}, {}, {});
    compareSteps("/slots", Listener::Slots, {}, {}, {}, {});
    compare<Jump, Ours, Bare>("jump/callback", sizes, Listener::Callback, {1.8, 1.4});
    compare<CompositesOf<100>::Add, Ours, Bare>("composite/100/callback", sizes, Listener::Callback, {1.5, 1.25});
    compare<Clear, Ours, Bare>("clear/callback", sizes, Listener::Callback, {1.44, 1.1});

    compareShownHistory<1000>();
    compareShownHistory<100000>();
});

} // namespace
