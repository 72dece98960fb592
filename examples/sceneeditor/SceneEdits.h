#pragma once

#include <OpenSG/OSGNode.h>

#include <QtCore/QString>
#include <QtCore/QStringList>

#include <vector>

class EditorSession;

// The edits that the scene tree offers. Each is one step, whatever the number of nodes.

void renameNode(EditorSession& session, const osg::NodePtr& node, const QString& name);
void showNode(EditorSession& session, const osg::NodePtr& node, bool shown);

/// Nodes that have the tag already, or cannot have one, are left out.
void addTag(EditorSession& session, const std::vector<osg::NodePtr>& nodes, const QString& tag);
/// Nodes that do not have the tag are left out.
void removeTag(EditorSession& session, const std::vector<osg::NodePtr>& nodes, const QString& tag);

/// Notes a tag that another system was given: the history shows it, the scene does not have it.
void noteServerTag(EditorSession& session, const QString& tag, bool added);

/// All nodes of the scene, parents before children, with those that no file has.
std::vector<osg::NodePtr> nodesOf(EditorSession& session);

QString nameOf(const osg::NodePtr& node);
QStringList userTagsOf(const osg::NodePtr& node);
QStringList systemTagsOf(const osg::NodePtr& node);
