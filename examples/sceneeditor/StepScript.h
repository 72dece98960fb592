#pragma once

#include <QtCore/QPoint>
#include <QtCore/QString>
#include <QtCore/QStringList>

#include <stdexcept>
#include <string>

class EditorSession;
class EditorWindow;
class QWidget;

/// Says in one line which step of a script cannot be done.
class StepError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

/// Drives a window as a user would: what a script names is clicked, typed and dragged.
///
/// One step a line; words are separated by blanks, and those with blanks stand in quotes. # begins a comment. Widgets and
/// actions are named by their object names.
///
///     size W H                  resize the window
///     select [NODE ...]         select nodes by name; nothing without one
///     pick X Y                  click into the viewport; parts of its size, 0 to 1
///     drag PART DX DY [cancel]  drag a handle (x, y, z, centre) by that many pixels; cancel: press Escape, then release
///     orbit DX DY               drag beside everything; pan and zoom likewise
///     pan DX DY
///     zoom NOTCHES              turn the wheel
///     trigger ACTION            choose a menu item
///     click WIDGET              click a button, or the box of a check box
///     set WIDGET VALUE          give a field a value: text, number, item of a list, on, off
///     press WIDGET KEYS         e.g. Ctrl+Z
///     raise DOCK                bring a dock to the front
class StepScript
{
public:
    StepScript(EditorSession& session, EditorWindow& window) : m_session(session), m_window(window) {}

    /// \throws StepError  at the first step that cannot be done.
    void run(const QString& script);

private:
    void runStep(const QStringList& words);
    void select(const QStringList& names);
    void drag(QPoint from, QPoint by, Qt::MouseButton button, bool cancelled);
    void setValue(QWidget& widget, const QString& value);
    template<class T>
    T& find(const QString& name);

    EditorSession& m_session;
    EditorWindow& m_window;
};
