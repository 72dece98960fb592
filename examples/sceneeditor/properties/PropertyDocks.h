#pragma once

#include <vector>

class EditorSession;
class QDockWidget;
class QWidget;

/// The docks that show and edit the properties of the selection, in the order of their tabs.
std::vector<QDockWidget*> makePropertyDocks(EditorSession& session, QWidget* parent);
