#include <sceneeditor/properties/ConstraintDock.h>

#include <sceneeditor/EditorSession.h>
#include <sceneeditor/SceneEdits.h>
#include <sceneeditor/properties/ConstraintEdits.h>
#include <sceneeditor/properties/ValueRow.h>

#include <OpenSG/OSGFieldContainerFactory.h>

#include <QtCore/QSignalBlocker>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QTreeWidget>

#include <algorithm>

namespace {

constexpr int idRole = Qt::UserRole;

void addEntry(QTreeWidgetItem* role, const osg::ConstraintObjectPtr& entry)
{
    if (!entry) return;
    const auto node = osg::NodePtr::dcast(entry->getObject());
    auto* const item = new QTreeWidgetItem(
        role, {node ? nameOf(node) : ConstraintDock::tr("(destroyed)"), QString::number(double(entry->getWeight()))});
    item->setData(0, idRole, entry->getObjectId());
}

} // namespace

ConstraintDock::ConstraintDock(EditorSession& session, QWidget* parent)
    : PropertyDock(tr("Constraints"), "constraint-dock", session, parent),
      m_constraint(new QComboBox),
      m_roles(new QTreeWidget)
{
    m_constraint->setObjectName("constraint");
    connect(m_constraint, qOverload<int>(&QComboBox::activated), this, [this] { form().refresh(); });
    form().addWidget(tr("Constraint"), m_constraint, [this] { showConstraints(); });
    addRoles();
    addRoleButtons();
    form().refresh();
}

void ConstraintDock::addRoles()
{
    m_roles->setObjectName("constraint-roles");
    m_roles->setHeaderLabels({tr("Role"), tr("Weight")});
    m_roles->setMinimumHeight(160);
    for (const QString& role : {tr("Target"), tr("Sources"), tr("Up-vector sources")})
        new QTreeWidgetItem(m_roles, {role});
    m_roles->expandAll();
    m_roles->resizeColumnToContents(0);
    connect(m_roles, &QTreeWidget::itemActivated, this, [this](const QTreeWidgetItem* item) {
        const auto object =
            osg::NodePtr::dcast(osg::FieldContainerFactory::the()->getContainer(item->data(0, idRole).toUInt()));
        if (object) session().select({object});
    });
    form().addWidget(m_roles, [this] { showRoles(); });
}

void ConstraintDock::addRoleButtons()
{
    const auto has = [this] { return constraint() && node(); };
    form().addButtons({
        {tr("Add Source"), "add-sources", has, [this] { addSources(session(), constraint(), session().selection()); }},
        {tr("Add Up Vector"), "add-up-vectors", [this] { return aim() && node(); },
         [this] { addUpVectorSources(session(), aim(), session().selection()); }},
    });
    form().addButtons({
        {tr("Make Target"), "set-target", has, [this] { setTarget(session(), constraint(), node()); }},
        {tr("Clear Target"), "clear-target", [this] { return constraint() && constraint()->getTarget(); },
         [this] { setTarget(session(), constraint(), osg::NullFC); }},
    });
    form().addButtons({
        {tr("Remove from All Roles"), "remove-from-roles", has,
         [this] { removeFromRoles(session(), constraint(), session().selection()); }},
    });
}

void ConstraintDock::showConstraints()
{
    const QSignalBlocker blocked(m_constraint);
    const std::vector<osg::AbstractConstraintPtr> all = constraints();
    const int row = m_constraint->currentIndex();
    m_constraint->clear();
    for (const osg::AbstractConstraintPtr& each : all)
        m_constraint->addItem(tr("%1 %2").arg(each->getType().getCName()).arg(m_constraint->count() + 1));
    m_constraint->setCurrentIndex(std::max(0, std::min(row, m_constraint->count() - 1)));
    m_constraint->setEnabled(!all.empty());
}

void ConstraintDock::showRoles()
{
    QTreeWidgetItem* const target = m_roles->topLevelItem(0);
    QTreeWidgetItem* const sources = m_roles->topLevelItem(1);
    QTreeWidgetItem* const upVectors = m_roles->topLevelItem(2);
    for (QTreeWidgetItem* role : {target, sources, upVectors})
        qDeleteAll(role->takeChildren());
    m_roles->setEnabled(constraint() != osg::NullFC);
    upVectors->setHidden(aim() == osg::NullFC);
    if (!constraint()) return;
    addEntry(target, constraint()->getTarget());
    for (const osg::ConstraintObjectPtr& entry : *constraint()->getMFSources())
        addEntry(sources, entry);
    if (!aim()) return;
    for (const osg::ConstraintObjectPtr& entry : *aim()->getMFUpVectorSources())
        addEntry(upVectors, entry);
}

std::vector<osg::AbstractConstraintPtr> ConstraintDock::constraints() const
{
    std::vector<osg::AbstractConstraintPtr> all;
    for (const osg::FieldContainerRefPtr& container : session().model().containers)
        if (const auto found = osg::AbstractConstraintPtr::dcast(container.get())) all.push_back(found);
    return all;
}

osg::AbstractConstraintPtr ConstraintDock::constraint() const
{
    const std::vector<osg::AbstractConstraintPtr> all = constraints();
    const auto row = static_cast<std::size_t>(m_constraint->currentIndex());
    return row < all.size() ? all[row] : osg::AbstractConstraintPtr(osg::NullFC);
}

osg::AimConstraintPtr ConstraintDock::aim() const
{
    return osg::AimConstraintPtr::dcast(constraint());
}
