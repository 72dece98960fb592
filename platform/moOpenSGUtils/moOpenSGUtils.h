#pragma once

#include <OpenSG/OSGNode.h>

/// What the application knows about its scene as a whole.
namespace moOpenSGUtils {
/// The root of the scene; null when none was set or it was destroyed.
osg::NodePtr getRoot();

/// Names the root of the scene and holds no reference on it. Null: no root.
void setRoot(const osg::NodePtr& root);
} // namespace moOpenSGUtils
