#include <sceneeditor/SceneTreeDock.h>

#include <sceneeditor/EditorSession.h>
#include <sceneeditor/SceneEdits.h>
#include <sceneeditor/SceneTreeModel.h>
#include <sceneeditor/TagDelegate.h>

#include <QtCore/QScopedValueRollback>
#include <QtWidgets/QGridLayout>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QTreeView>

#include <unordered_set>

SceneTreeDock::SceneTreeDock(EditorSession& session, QWidget* parent)
    : QDockWidget(tr("Scene"), parent),
      m_session(session),
      m_model(new SceneTreeModel(session, this)),
      m_view(new QTreeView),
      m_tag(new QLineEdit)
{
    setObjectName("sceneDock");
    m_view->setObjectName("sceneTree");
    m_view->setModel(m_model);
    m_view->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_view->setEditTriggers(QAbstractItemView::EditKeyPressed | QAbstractItemView::SelectedClicked |
                            QAbstractItemView::DoubleClicked);
    m_view->setUniformRowHeights(true);
    auto* const chips = new TagDelegate(m_view);
    m_view->setItemDelegateForColumn(SceneTreeModel::TagsColumn, chips);

    m_tag->setObjectName("tagName");
    m_tag->setPlaceholderText(tr("Tag"));
    QPushButton* const add = addButton(tr("Add"), "addTag");
    QPushButton* const remove = addButton(tr("Remove"), "removeTag");
    QPushButton* const addServer = addButton(tr("Note Server Tag"), "addServerTag");
    QPushButton* const removeServer = addButton(tr("Note Its Removal"), "removeServerTag");

    auto* const content = new QWidget;
    auto* const layout = new QGridLayout(content);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_view, 0, 0, 1, 4);
    layout->addWidget(m_tag, 1, 0, 1, 2);
    layout->addWidget(add, 1, 2);
    layout->addWidget(remove, 1, 3);
    layout->addWidget(addServer, 2, 0, 1, 2);
    layout->addWidget(removeServer, 2, 2, 1, 2);
    setWidget(content);

    connect(add, &QPushButton::clicked, this, [this] {
        if (!m_tag->text().isEmpty()) addTag(m_session, m_session.selection(), m_tag->text());
    });
    connect(remove, &QPushButton::clicked, this,
            [this] { ::removeTag(m_session, m_session.selection(), m_tag->text()); });
    connect(addServer, &QPushButton::clicked, this, [this] { noteServerTag(m_session, m_tag->text(), true); });
    connect(removeServer, &QPushButton::clicked, this, [this] { noteServerTag(m_session, m_tag->text(), false); });
    connect(m_tag, &QLineEdit::returnPressed, add, &QPushButton::click);
    connect(chips, &TagDelegate::removeRequested, this, [this](const QModelIndex& index, const QString& tag) {
        // The cross of a selected node stands for all that are selected.
        const osg::NodePtr node = m_model->node(index);
        if (node == osg::NullFC) return;
        ::removeTag(m_session, m_session.isSelected(node) ? m_session.selection() : std::vector<osg::NodePtr>{node},
                    tag);
    });
    connect(m_view->selectionModel(), &QItemSelectionModel::selectionChanged, this, &SceneTreeDock::takeSelection);
    connect(&session, &EditorSession::selectionChanged, this, &SceneTreeDock::showSelection);
    connect(&session, &EditorSession::sceneLoaded, this, &SceneTreeDock::showScene);
    connect(&session, &EditorSession::sceneChanged, m_view->viewport(), qOverload<>(&QWidget::update));
    showScene();
}

QPushButton* SceneTreeDock::addButton(const QString& text, const char* name)
{
    auto* const button = new QPushButton(text);
    button->setObjectName(name);
    return button;
}

void SceneTreeDock::showScene()
{
    m_view->expandToDepth(1);
    // Room for the tags, too.
    m_view->setColumnWidth(SceneTreeModel::NameColumn, m_view->fontMetrics().averageCharWidth() * 20);
    showSelection();
}

void SceneTreeDock::showSelection()
{
    if (m_isShowing) return;
    const QScopedValueRollback<bool> showing(m_isShowing, true);
    QItemSelection selection;
    for (const osg::NodePtr& node : m_session.selection()) {
        const QModelIndex index = m_model->indexOf(node);
        selection.select(index, index);
    }
    m_view->selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    const QModelIndex current = m_model->indexOf(m_session.current());
    if (!current.isValid()) return;
    m_view->selectionModel()->setCurrentIndex(current, QItemSelectionModel::NoUpdate);
    m_view->scrollTo(current);
}

void SceneTreeDock::takeSelection()
{
    if (m_isShowing) return;
    const QScopedValueRollback<bool> showing(m_isShowing, true);
    const QModelIndexList rows = m_view->selectionModel()->selectedRows();
    std::unordered_set<quintptr> ids;
    for (const QModelIndex& row : rows)
        ids.insert(row.internalId());
    std::vector<osg::NodePtr> selected;
    // The order of the clicks: those that were selected before keep their place.
    for (const osg::NodePtr& node : m_session.selection())
        if (ids.count(osg::getContainerId(node)) > 0) selected.push_back(node);
    for (const QModelIndex& row : rows) {
        const osg::NodePtr node = m_model->node(row);
        if (node != osg::NullFC && !m_session.isSelected(node)) selected.push_back(node);
    }
    m_session.select(selected);
}
