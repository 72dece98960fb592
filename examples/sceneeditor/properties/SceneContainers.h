#pragma once

#include <OpenSG/OSGFieldContainer.h>
#include <OpenSG/OSGNode.h>

#include <QtCore/QString>

#include <vector>

struct Model;

/// A container that a user can choose to see its fields.
struct NamedContainer
{
    osg::UInt32 id;
    QString name;
};

/// The node itself, its core, its attachments and its transform variants, then the containers of the scene that belong to
/// no node.
std::vector<NamedContainer> containersOf(const osg::NodePtr& node, const Model& model);

/// Null if it was destroyed.
osg::FieldContainerPtr containerById(osg::UInt32 id);
