#pragma once

#include <OpenSG/OSGNode.h>

#include <QtCore/QAbstractItemModel>

class EditorSession;

/// The nodes of a session's scene, for a view: name and tags. Reads the scene whenever it is asked, by the ids of the
/// nodes; edits do not change which nodes there are. A changed name is a step, and so is a changed check mark, which
/// says whether a node is shown.
class SceneTreeModel : public QAbstractItemModel
{
    Q_OBJECT

public:
    enum Column
    {
        NameColumn,
        TagsColumn,
        ColumnCount
    };
    /// Lists of texts, in the column of the tags.
    enum Role
    {
        UserTagsRole = Qt::UserRole,
        SystemTagsRole
    };

    explicit SceneTreeModel(EditorSession& session, QObject* parent = nullptr);

    /// Null if the node was destroyed.
    osg::NodePtr node(const QModelIndex& index) const;
    QModelIndex indexOf(const osg::NodePtr& node) const;

    QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
    QModelIndex parent(const QModelIndex& index) const override;
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
    EditorSession& m_session;
};
