#pragma once

#include <moOpenSGExt/OSGTagAttachment.h>

#include <OpenSG/OSGNode.h>
#include <OpenSG/OSGSFSysTypes.h>

struct Model;

// Each function adds to a loaded model what a model file does not have, but an application's scene does: what the
// commands of one family edit. Called once, before the first edit; any model will do, down to a single node.

/// A container with fields of all kinds for each material.
void prepareFields(Model& model);

/// Cores for the lights of the file, and below the root, by the names below: an area light with a profile and a lens
/// flare, a stand-in that shares its core (if nodes can be marked as stand-ins), and a link set.
void prepareLights(Model& model);

/// A material container for each material of the file, one for each of two environments, and one to be lit by them.
void prepareMaterials(Model& model);

/// An attachment for tags on each node that has none.
void prepareTags(Model& model);

/// An aim constraint.
void prepareConstraints(Model& model);

constexpr const char* areaLightName = "Area Light";
constexpr const char* standInName = "Area Light as seen by the Library";
constexpr const char* linkSetName = "Light Links";

/// The external flags of a node; null on an OpenSG whose nodes have none.
osg::SFUInt32* externalFlags(const osg::NodePtr& node);

/// The tags of a node; null for a node that has none.
osg::TagAttachmentPtr tagsOf(const osg::NodePtr& node);
