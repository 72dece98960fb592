#include <sceneeditor/properties/LightLinksDock.h>

#include <sceneeditor/EditorSession.h>
#include <sceneeditor/SceneEdits.h>
#include <sceneeditor/properties/ChangingChoice.h>
#include <sceneeditor/properties/FieldRows.h>

#include <moUndoStack/core/moUndoScopes.h>
#include <moUndoStack/field/moFieldBaseUndoCommand.h>
#include <moUndoStack/light/moAddNodeToLightLinkSetUndoCommand.h>

#include <moOpenSGUtils/moLights.h>
#include <moOpenSGUtils/moNodeUtils.h>

#include <QtWidgets/QListWidget>

#include <algorithm>

namespace {

// What the command calls list types.
constexpr unsigned int lightList = 3, sceneNodeList = 0;
constexpr bool adding = false, removing = true;

template<class List>
std::vector<osg::NodePtr> listed(const List& list)
{
    return {list.begin(), list.end()};
}

bool contains(const std::vector<osg::NodePtr>& nodes, const osg::NodePtr& node)
{
    return std::find(nodes.begin(), nodes.end(), node) != nodes.end();
}

} // namespace

LightLinksDock::LightLinksDock(EditorSession& session, QWidget* parent)
    : PropertyDock(tr("Light Links"), "links-dock", session, parent),
      m_lights{lightList, tr("Lights"), new QListWidget, {}},
      m_nodes{sceneNodeList, tr("Nodes"), new QListWidget, {}}
{
    addChangingChoice(
        form(), tr("Set"), "links-set",
        [this] {
            QStringList names;
            for (const moNodePtr& set : m_sets)
                names.append(nameOf(set.getPtr()));
            return names;
        },
        [this]() -> std::optional<int> {
            if (!set()) return std::nullopt;
            return static_cast<int>(m_current);
        },
        [this](int index) {
            m_current = static_cast<std::size_t>(index);
            form().refresh();
        });
    FieldRows rows(
        form(), "Light Commands", [this]() -> osg::FieldContainerPtr { return set(); },
        [this](moFieldBaseUndoCommand<>* command) { this->session().apply(command); });
    rows.addFlag(tr("Enabled"), "links-enabled", "enabled");
    addList(m_lights, tr("These lights"), "links-lights");
    addList(m_nodes, tr("shine on these nodes only"), "links-nodes");
    connect(&session, &EditorSession::sceneLoaded, this, &LightLinksDock::findSets);
    findSets();
}

/// Only a file brings sets: this is not done at each edit.
void LightLinksDock::findSets()
{
    m_sets.clear();
    m_current = 0;
    for (const osg::NodePtr& node : nodesOf(session())) {
        if (osg::LightLinkSetPtr::dcast(node->getCore())) m_sets.emplace_back(node);
    }
    form().refresh();
}

osg::NodePtr LightLinksDock::setNode() const
{
    return m_current < m_sets.size() ? m_sets[m_current].getPtr() : osg::NodePtr(osg::NullFC);
}

osg::LightLinkSetPtr LightLinksDock::set() const
{
    const osg::NodePtr node = setNode();
    return node == osg::NullFC ? osg::LightLinkSetPtr() : osg::LightLinkSetPtr::dcast(node->getCore());
}

void LightLinksDock::addList(LinkList& list, const QString& label, const QString& name)
{
    list.widget->setObjectName(name);
    list.widget->setSelectionMode(QAbstractItemView::ExtendedSelection);
    constexpr int rows = 6;
    list.widget->setMinimumHeight(fontMetrics().height() * rows);
    form().addHeading(label);
    form().addWidget(list.widget, [this, &list] { showList(list); });
    connect(list.widget, &QListWidget::itemSelectionChanged, &form(), &PropertyForm::refresh);
    form().addButtons({{tr("Add Selected"), name + "-add", [this, &list] { return !addable(list).empty(); },
                        [this, &list] { add(list); }},
                       {tr("Remove"), name + "-remove", [&list] { return !list.widget->selectedItems().isEmpty(); },
                        [this, &list] { remove(list); }}});
}

std::vector<osg::NodePtr> LightLinksDock::nodesIn(const LinkList& list) const
{
    const osg::LightLinkSetPtr links = set();
    if (!links) return {};
    return list.type == lightList ? listed(links->getLights()) : listed(links->getSceneNodes());
}

/// The selected nodes that the list does not have. A set must not list its own node or one above: the two would keep each
/// other for ever.
std::vector<osg::NodePtr> LightLinksDock::addable(const LinkList& list) const
{
    std::vector<osg::NodePtr> found;
    const osg::NodePtr own = setNode();
    if (own == osg::NullFC) return found;
    const std::vector<osg::NodePtr> present = nodesIn(list);
    for (const osg::NodePtr& node : session().selection()) {
        if (list.type == lightList && !moLights::isLight(node)) continue;
        if (node != own && !moNodeUtils::hasParent(own, node) && !contains(present, node)) found.push_back(node);
    }
    return found;
}

/// Makes the items anew only if the nodes are others, so that other edits leave the selection alone.
void LightLinksDock::showList(LinkList& list)
{
    const std::vector<osg::NodePtr> now = nodesIn(list);
    list.widget->setEnabled(set() != osg::NullFC);
    const QSignalBlocker blocked(list.widget);
    if (now != list.shown) {
        list.widget->clear();
        for (const osg::NodePtr& node : now)
            list.widget->addItem(nameOf(node));
        list.shown = now;
        return;
    }
    for (std::size_t i = 0; i < now.size(); ++i)
        list.widget->item(static_cast<int>(i))->setText(nameOf(now[i]));
}

// The composites give the steps a text that says what was done: those of the commands are the same for both directions.

void LightLinksDock::add(const LinkList& list)
{
    const std::vector<osg::NodePtr> nodes = addable(list);
    if (nodes.empty()) return;
    const QString text = tr("Add to %1 of '%2'").arg(list.what, nameOf(setNode()));
    const moCompositionScope composition(session().edits(), text, text);
    session().apply(new moAddNodeToLightLinkSetUndoCommand(set(), nodes, list.type, adding, nullptr));
}

/// In the order of the list: so undo inserts each node at its old place.
void LightLinksDock::remove(const LinkList& list)
{
    std::vector<osg::NodePtr> nodes;
    const std::vector<osg::NodePtr> present = nodesIn(list);
    for (std::size_t i = 0; i < present.size(); ++i) {
        const QListWidgetItem* const item = list.widget->item(static_cast<int>(i));
        if (item && item->isSelected()) nodes.push_back(present[i]);
    }
    if (nodes.empty()) return;
    const QString text = tr("Remove from %1 of '%2'").arg(list.what, nameOf(setNode()));
    const moCompositionScope composition(session().edits(), text, text);
    session().apply(new moAddNodeToLightLinkSetUndoCommand(set(), nodes, list.type, removing, nullptr));
}
