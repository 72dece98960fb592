#include <Scenarios.h>

#include <moUndoStack/light/moAddNodeToLightLinkSetUndoCommand.h>
#include <moUndoStack/light/moLightPropertyUndoCommands.h>

#include <moOpenSGUtils/moLights.h>

#include <OpenSG/OSGFieldContainerFactory.h>
#include <OpenSG/OSGRefPtr.h>

#include <QtCore/QCoreApplication>

#include <algorithm>

namespace {

using namespace bench;

template<class Ptr>
Ptr found(unsigned int id)
{
    return Ptr::dcast(osg::FieldContainerFactory::the()->getContainer(id));
}

// Drags a slider: every command sets the intensity of the same light, and all merge into the first.

struct Light
{
    const osg::NodeRefPtr node{osg::makeNodeFor(osg::UberLight::create())};
};

class BareIntensity : public QUndoCommand
{
public:
    BareIntensity(const osg::NodePtr& light, float value, QUndoCommand* parent)
        : QUndoCommand(text(), parent), m_lightId(light.getFieldContainerId()), m_value(value)
    {
    }

    int id() const override { return 1; }
    void undo() override { redo(); }
    void redo() override
    {
        const auto light = found<osg::NodePtr>(m_lightId);
        if (light == osg::NullFC) return;
        const float old = moLights::getLightValue(light);
        moLights::setLightValue(light, m_value);
        m_value = old;
    }
    bool mergeWith(const QUndoCommand* other) override
    {
        return static_cast<const BareIntensity*>(other)->m_lightId == m_lightId;
    }

private:
    /// Translates the text for each command, as a host does.
    static QString text() { return QCoreApplication::translate("LightUndoCommand", "Light Intensity"); }

    unsigned int m_lightId;
    float m_value;
};

struct OurDrag : Light
{
    QUndoCommand* operator()(int step, QUndoCommand*) const
    {
        return new moLightIntensityUndoCommand(node, static_cast<float>(step), nullptr);
    }
};
struct BareDrag : Light
{
    QUndoCommand* operator()(int step, QUndoCommand* parent) const
    {
        return new BareIntensity(node, static_cast<float>(step), parent);
    }
};

/// Two lights in turn: nothing merges.
struct OurSteps
{
    QUndoCommand* operator()(int step, QUndoCommand* parent) const { return m_lights[step % 2](step, parent); }
    OurDrag m_lights[2];
};
struct BareSteps
{
    QUndoCommand* operator()(int step, QUndoCommand* parent) const { return m_lights[step % 2](step, parent); }
    BareDrag m_lights[2];
};

// One command removes all nodes from a link set and puts them back in order. One operation is one node, so a case with
// ten times the nodes shows how the cost of a node grows with their number.

class LinkSet
{
public:
    explicit LinkSet(int count)
    {
        for (int i = 0; i < count; ++i) {
            m_nodes.push_back(osg::Node::create());
            m_set->addSceneNode(m_nodes.back());
        }
    }

    osg::LightLinkSetPtr set() const { return m_set; }
    const std::vector<osg::NodePtr>& nodes() const { return m_nodes; }

private:
    const osg::RefPtr<osg::LightLinkSetPtr> m_set{osg::LightLinkSet::create()};
    std::vector<osg::NodePtr> m_nodes;
};

class BareRemovalCommand : public QUndoCommand
{
public:
    BareRemovalCommand(const LinkSet& linkSet, QUndoCommand* parent)
        : QUndoCommand(QStringLiteral("Remove Nodes"), parent), m_setId(linkSet.set().getFieldContainerId())
    {
        const auto& list = linkSet.set()->getSceneNodes();
        for (const osg::NodePtr& node : linkSet.nodes()) {
            const auto entry = std::find(list.begin(), list.end(), node);
            m_nodeIds.push_back(node.getFieldContainerId());
            m_positions.push_back(static_cast<int>(entry - list.begin()));
        }
    }

    void undo() override
    {
        const auto set = found<osg::LightLinkSetPtr>(m_setId);
        for (std::size_t i = 0; i < m_nodeIds.size(); ++i) {
            set->insertSceneNode(found<osg::NodePtr>(m_nodeIds[i]), m_positions[i]);
        }
    }
    void redo() override
    {
        const auto set = found<osg::LightLinkSetPtr>(m_setId);
        for (const unsigned int id : m_nodeIds)
            set->subSceneNode(found<osg::NodePtr>(id));
    }

private:
    unsigned int m_setId;
    std::vector<unsigned int> m_nodeIds;
    std::vector<int> m_positions;
};

struct OurRemoval
{
    static QUndoCommand* make(const LinkSet& linkSet, QUndoCommand* parent)
    {
        return new moAddNodeToLightLinkSetUndoCommand(linkSet.set(), linkSet.nodes(), 0, true, parent);
    }
};
struct BareRemoval
{
    static QUndoCommand* make(const LinkSet& linkSet, QUndoCommand* parent)
    {
        return new BareRemovalCommand(linkSet, parent);
    }
};

template<class Stack, class Removal>
class MakeRemoval : public Work
{
public:
    MakeRemoval(int nodes, Listener) : m_linkSet(nodes) {}
    void run() override { m_command.reset(Removal::make(m_linkSet, nullptr)); }

private:
    LinkSet m_linkSet;
    std::unique_ptr<QUndoCommand> m_command;
};

template<class Stack, class Removal>
class UndoRemoval : public Work
{
public:
    UndoRemoval(int nodes, Listener listener)
        : m_linkSet(nodes), m_held(m_linkSet.nodes().begin(), m_linkSet.nodes().end()), m_stack(listener)
    {
        m_stack.push([this](int, QUndoCommand* parent) { return Removal::make(m_linkSet, parent); }, 0);
    }
    void run() override { m_stack.undo(); }

protected:
    LinkSet m_linkSet;
    std::vector<osg::NodeRefPtr> m_held;
    Stack m_stack;
};

template<class Stack, class Removal>
class RedoRemoval : public UndoRemoval<Stack, Removal>
{
public:
    RedoRemoval(int nodes, Listener listener) : UndoRemoval<Stack, Removal>(nodes, listener) { this->m_stack.undo(); }
    void run() override { this->m_stack.redo(); }
};

const Comparisons s_comparisons([] {
    compareCommands<OurSteps, BareSteps>("light");
    compare<Add, OurDrag, BareDrag>("light/drag", {1000}, Listener::None, {2.1, 1.6});
    compare<Add, OurDrag, BareDrag>("light/drag/callback", {1000}, Listener::Callback);

    const std::vector<int> nodes{1000, 10000};
    compare<MakeRemoval, OurRemoval, BareRemoval>("light/link-set/make", nodes);
    compare<RedoRemoval, OurRemoval, BareRemoval>("light/link-set/remove", nodes);
    compare<UndoRemoval, OurRemoval, BareRemoval>("light/link-set/put-back", nodes);
});

} // namespace
