#pragma once

#include <OpenSG/OSGColor.h>
#include <OpenSG/OSGNode.h>
#include <OpenSG/OSGRefPtr.h>
#include <OpenSG/OSGVector.h>

#include <QtCore/QString>

#include <cstddef>
#include <stdexcept>
#include <string>
#include <vector>

class Progress;

/// A light as the file describes it. Its node is an ordinary transform node.
struct LoadedLight
{
    enum class Kind
    {
        Directional,
        Point,
        Spot,
        Area,
        Ambient
    };

    Kind kind = Kind::Point;
    osg::NodePtr node;
    osg::Color3f color;         ///< colour times intensity
    float innerConeAngle = 0.f; ///< degrees, from the axis or across as the format has it; spot lights only
    float outerConeAngle = 0.f;
    float attenuation[3] = {}; ///< constant, linear, quadratic
};

/// A material as the file describes it, and the nodes whose meshes it covers.
struct LoadedMaterial
{
    std::string name;
    osg::Color3f baseColor{1.f, 1.f, 1.f};
    osg::Color3f emission;
    float opacity = 1.f;
    std::vector<osg::NodePtr> nodes;
};

/// A mesh of the file as triangles, in the space of the nodes that show it. Faces of more corners are split as fans;
/// points and lines are left out.
struct LoadedMesh
{
    std::vector<osg::Vec3f> points;
    std::vector<osg::UInt32> corners; ///< indices of points, three for each triangle
    std::size_t material = 0;         ///< index in Model::materials
    std::vector<osg::NodePtr> nodes;  ///< those that show it
};

/// Whether the triangles are read, too. Undo does not touch them.
enum class Geometry
{
    LeaveOut,
    Read
};

/// A model file as a scene graph. Each of the file's nodes is an osg::Node with its name and an osg::Transform3D;
/// meshes stay beside the scene graph.
///
/// The model owns the scene: its nodes exist until the last copy of the model is destroyed. Lights and materials are
/// kept as data. A chapter that edits them makes containers from them in its prepare function: a core for the light's
/// node. Containers that belong to no node go into `containers`, which holds them and makes them part of the digest.
struct Model
{
    osg::RefPtr<osg::NodePtr> root;
    std::vector<osg::NodePtr> nodes; ///< parents before children, the root first; never empty
    std::vector<LoadedLight> lights;
    std::vector<LoadedMaterial> materials;
    std::vector<LoadedMesh> meshes; ///< empty if they were left out
    std::vector<osg::FieldContainerRefPtr> containers;
};

/// Says in one line what is wrong with a model file.
class ModelError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

/// Reads a model in any format that Assimp reads, and makes its root the scene's root.
///
/// \throws ModelError   if the file is missing, cannot be read, is damaged or has nothing that could be edited.
/// \throws Interrupted  if \a progress breaks it off, or a SIGINT is remembered while the file is tried out.
Model loadModel(const QString& fileName, Progress& progress, Geometry geometry = Geometry::LeaveOut);

/// The same without progress.
Model loadModel(const QString& fileName, Geometry geometry = Geometry::LeaveOut);
