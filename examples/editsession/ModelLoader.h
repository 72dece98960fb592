#pragma once

#include <OpenSG/OSGColor.h>
#include <OpenSG/OSGNode.h>
#include <OpenSG/OSGRefPtr.h>

#include <QtCore/QString>

#include <stdexcept>
#include <string>
#include <vector>

class Progress;

/// A light as the file describes it. The node that it shines from is an ordinary transform node.
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

/// A model file as a scene graph. Each of the file's nodes is an osg::Node with its name and an osg::Transform3D;
/// meshes are left out, undo does not touch them.
///
/// The model owns the scene: its nodes live until the last copy of it is destroyed. Lights and materials are kept as
/// data. A chapter that edits them turns them into containers of its own kind in its prepare function: a core is put on
/// the light's node, and what hangs on no node goes into `containers`, which keeps it alive and makes it part of the
/// digest.
struct Model
{
    osg::RefPtr<osg::NodePtr> root;
    std::vector<osg::NodePtr> nodes; ///< parents before children, the root first; never empty
    std::vector<LoadedLight> lights;
    std::vector<LoadedMaterial> materials;
    std::vector<osg::FieldContainerRefPtr> containers;
};

/// What is wrong with a model file, in one line.
class ModelError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

/// Reads a model in any format that Assimp reads, and names its root as the scene's root.
///
/// \throws ModelError   when the file is missing, cannot be read, is damaged or holds nothing that could be edited.
/// \throws Interrupted  when \a progress breaks it off, or a remembered SIGINT does while the file is tried out.
Model loadModel(const QString& fileName, Progress& progress);

/// The same without a word on the way.
Model loadModel(const QString& fileName);
