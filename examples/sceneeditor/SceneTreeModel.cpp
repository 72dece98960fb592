#include <sceneeditor/SceneTreeModel.h>

#include <sceneeditor/EditorSession.h>
#include <sceneeditor/SceneEdits.h>

#include <OpenSG/OSGFieldContainerFactory.h>

SceneTreeModel::SceneTreeModel(EditorSession& session, QObject* parent) : QAbstractItemModel(parent), m_session(session)
{
    connect(&session, &EditorSession::sceneLoaded, this, [this] {
        beginResetModel();
        endResetModel();
    });
}

osg::NodePtr SceneTreeModel::node(const QModelIndex& index) const
{
    if (!index.isValid()) return osg::NullFC;
    return osg::NodePtr::dcast(
        osg::FieldContainerFactory::the()->getContainer(static_cast<osg::UInt32>(index.internalId())));
}

QModelIndex SceneTreeModel::indexOf(const osg::NodePtr& node) const
{
    if (node == osg::NullFC) return {};
    const osg::NodePtr above = node->getParent();
    const int row = above == osg::NullFC ? 0 : above->findChild(node);
    return createIndex(row, NameColumn, static_cast<quintptr>(osg::getContainerId(node)));
}

QModelIndex SceneTreeModel::index(int row, int column, const QModelIndex& parent) const
{
    if (row < 0 || row >= rowCount(parent) || column < 0 || column >= ColumnCount) return {};
    const osg::NodePtr child = parent.isValid() ? node(parent)->getChild(static_cast<osg::UInt32>(row))
                                                : osg::NodePtr(m_session.model().root.get());
    return createIndex(row, column, static_cast<quintptr>(osg::getContainerId(child)));
}

QModelIndex SceneTreeModel::parent(const QModelIndex& index) const
{
    const osg::NodePtr child = node(index);
    return child == osg::NullFC ? QModelIndex() : indexOf(child->getParent());
}

int SceneTreeModel::rowCount(const QModelIndex& parent) const
{
    if (!parent.isValid()) return m_session.model().root.get() == osg::NullFC ? 0 : 1;
    const osg::NodePtr above = node(parent);
    if (above == osg::NullFC || parent.column() != NameColumn) return 0;
    return static_cast<int>(above->getNChildren());
}

int SceneTreeModel::columnCount(const QModelIndex&) const
{
    return ColumnCount;
}

QVariant SceneTreeModel::data(const QModelIndex& index, int role) const
{
    const osg::NodePtr shown = node(index);
    if (shown == osg::NullFC) return {};
    if (index.column() == TagsColumn) {
        switch (role) {
        case UserTagsRole:
            return userTagsOf(shown);
        case SystemTagsRole:
            return systemTagsOf(shown);
        case Qt::ToolTipRole:
        case Qt::AccessibleTextRole:
            return (systemTagsOf(shown) + userTagsOf(shown)).join(", ");
        default:
            return {};
        }
    }
    switch (role) {
    case Qt::DisplayRole:
        return nameOf(shown).isEmpty() ? tr("(no name)") : nameOf(shown);
    case Qt::EditRole:
        return nameOf(shown);
    case Qt::CheckStateRole:
        return shown->getActive() ? Qt::Checked : Qt::Unchecked;
    default:
        return {};
    }
}

bool SceneTreeModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    const osg::NodePtr edited = node(index);
    if (edited == osg::NullFC || index.column() != NameColumn) return false;
    if (role == Qt::EditRole)
        renameNode(m_session, edited, value.toString());
    else if (role == Qt::CheckStateRole)
        showNode(m_session, edited, value.toInt() == Qt::Checked);
    else
        return false;
    Q_EMIT dataChanged(index, index);
    return true;
}

QVariant SceneTreeModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
    return section == NameColumn ? tr("Node") : tr("Tags");
}

Qt::ItemFlags SceneTreeModel::flags(const QModelIndex& index) const
{
    Qt::ItemFlags flags = QAbstractItemModel::flags(index);
    if (index.column() == NameColumn) flags |= Qt::ItemIsEditable | Qt::ItemIsUserCheckable;
    return flags;
}
