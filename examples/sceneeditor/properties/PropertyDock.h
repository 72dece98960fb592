#pragma once

#include <OpenSG/OSGNode.h>

#include <QtWidgets/QDockWidget>

class EditorSession;
class PropertyForm;

/// A dock with a form that is shown again whenever scene or selection change: also while undoing.
class PropertyDock : public QDockWidget
{
protected:
    PropertyDock(const QString& title, const char* name, EditorSession& session, QWidget* parent);

    EditorSession& session() const { return m_session; }
    /// The node whose properties are shown, the one selected last; null if there is none.
    osg::NodePtr node() const;
    /// A subclass adds its rows in the constructor, and then calls refresh().
    PropertyForm& form() const { return *m_form; }

private:
    EditorSession& m_session;
    PropertyForm* m_form;
};
