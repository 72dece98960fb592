#pragma once

#include <QtWidgets/QDockWidget>

class EditorSession;
class QLineEdit;
class QPushButton;
class QTreeView;
class SceneTreeModel;

/// The nodes of the scene: selects them, renames them in place, shows and hides them, adds and removes tags.
class SceneTreeDock : public QDockWidget
{
    Q_OBJECT

public:
    explicit SceneTreeDock(EditorSession& session, QWidget* parent = nullptr);

private:
    void showSelection();
    void takeSelection();
    void showScene();
    QPushButton* addButton(const QString& text, const char* name);

    EditorSession& m_session;
    SceneTreeModel* m_model;
    QTreeView* m_view;
    QLineEdit* m_tag;
    bool m_isShowing = false; ///< the view follows the session, and not the other way round
};
