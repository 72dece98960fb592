#include <sceneeditor/properties/PropertyDock.h>

#include <sceneeditor/EditorSession.h>
#include <sceneeditor/properties/ValueRow.h>

PropertyDock::PropertyDock(const QString& title, const char* name, EditorSession& session, QWidget* parent)
    : QDockWidget(title, parent), m_session(session), m_form(new PropertyForm)
{
    setObjectName(name);
    setWidget(m_form);
    connect(&session, &EditorSession::sceneChanged, m_form, &PropertyForm::refresh);
    connect(&session, &EditorSession::selectionChanged, m_form, &PropertyForm::refresh);
}

osg::NodePtr PropertyDock::node() const
{
    return m_session.current();
}
