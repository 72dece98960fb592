#pragma once

#include <OpenSG/OSGNode.h>

#include <vector>

class EditorSession;

/// The selected lights in the order in which they were selected.
std::vector<osg::NodePtr> selectedLights(const EditorSession& session);
/// The one selected last; null if no light is selected.
osg::NodePtr currentLight(const EditorSession& session);
