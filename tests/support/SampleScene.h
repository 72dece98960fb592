#pragma once

#include <moUndoStack/core/moUndoCommand.h>

#include <moOpenSGConstraint/OSGAimConstraint.h>
#include <moOpenSGExt/OSGTagAttachment.h>
#include <moOpenSGExt/OSGTransformVariant.h>
#include <moOpenSGUberLight/OSGLensFlareEffect.h>
#include <moOpenSGUberLight/OSGLensFlareGhostLine.h>
#include <moOpenSGUberLight/OSGLightLinkSet.h>
#include <moOpenSGUberLight/OSGUberLight.h>
#include <moOpenSGUberMaterial/OSGUBRDFMaterial.h>
#include <moOpenSGUberMaterial/OSGUberMaterial.h>
#include <support/OSGAllFields.h>

#include <OpenSG/OSGNode.h>
#include <OpenSG/OSGRefPtr.h>

#include <QAction>

#include <string>
#include <utility>
#include <vector>

class EditTrace;

/// One container of each kind that a command can edit. The samples of Samples.h make their commands on it.
///
/// Each container has a role, by which tests name it, and the target holds one reference on it:
///
///     role        what it is
///     node        a node with a transform, three transform variants and tags
///     variant     the first of these variants
///     sibling     the second of them
///     tags        the tags of the node
///     bare        a node with only a transform
///     light       a node with an area light, in lumen, with a profile and a lens flare effect
///     spot        a node with another light, whose visibility reference the node is
///     effect      the effect of the light, with three elements
///     line        a ghost line with three ghosts
///     set         a light link set with one scene node (node) and two lights (light, bare)
///     material    a material with one colour
///     settings    that colour
///     component   a colour that belongs to no material
///     glass       a material that can have an environment
///     sky         a material to be that environment
///     mirror      a material that has it
///     aim         an aim constraint with two sources (node, bare) and an up-vector source (bare)
///     gaze        an aim constraint whose only source, up-vector source and target is bare
///     values      a container with a single field of each type
///     lists       a container with a multi field of each type
///
/// No two places that a command could confuse hold the same value: the node's transform and its variants differ in
/// every component that a variant has, and so do the two lights, the colours, and the two targets of a scene.
class SampleTarget
{
public:
    /// \param prefix  stands before each role in digests and traces.
    /// \param shift   by how much its numbers differ from those of a target with shift 0.
    SampleTarget(std::string prefix, int shift);
    ~SampleTarget();
    SampleTarget(const SampleTarget&) = delete;
    SampleTarget& operator=(const SampleTarget&) = delete;

    // Null once destroyed.
    osg::NodePtr node() const { return get<osg::NodePtr>("node"); }
    osg::TransformVariantPtr variant() const { return get<osg::TransformVariantPtr>("variant"); }
    osg::TransformVariantPtr sibling() const { return get<osg::TransformVariantPtr>("sibling"); }
    osg::TagAttachmentPtr tags() const { return get<osg::TagAttachmentPtr>("tags"); }
    osg::NodePtr bare() const { return get<osg::NodePtr>("bare"); }
    osg::NodePtr light() const { return get<osg::NodePtr>("light"); }
    osg::NodePtr spot() const { return get<osg::NodePtr>("spot"); }
    osg::LensFlareEffectPtr effect() const { return get<osg::LensFlareEffectPtr>("effect"); }
    osg::LensFlareGhostLinePtr line() const { return get<osg::LensFlareGhostLinePtr>("line"); }
    osg::LightLinkSetPtr set() const { return get<osg::LightLinkSetPtr>("set"); }
    osg::UberMaterialPtr material() const { return get<osg::UberMaterialPtr>("material"); }
    osg::ColorComponentSettingsPtr settings() const { return get<osg::ColorComponentSettingsPtr>("settings"); }
    osg::ColorComponentSettingsPtr component() const { return get<osg::ColorComponentSettingsPtr>("component"); }
    osg::UBRDFMaterialPtr glass() const { return get<osg::UBRDFMaterialPtr>("glass"); }
    osg::MaterialPtr sky() const { return get<osg::MaterialPtr>("sky"); }
    osg::UBRDFMaterialPtr mirror() const { return get<osg::UBRDFMaterialPtr>("mirror"); }
    osg::AimConstraintPtr aim() const { return get<osg::AimConstraintPtr>("aim"); }
    osg::AimConstraintPtr gaze() const { return get<osg::AimConstraintPtr>("gaze"); }
    osg::AllSingleFieldsPtr values() const { return get<osg::AllSingleFieldsPtr>("values"); }
    osg::AllMultiFieldsPtr lists() const { return get<osg::AllMultiFieldsPtr>("lists"); }
    osg::UberLightPtr lightCore() const { return coreOf(light()); }
    osg::UberLightPtr spotCore() const { return coreOf(spot()); }

    /// Not containers: a number that generic function commands change, and a receiver of method calls.
    int counter = 0;
    QAction action;

    /// Merge interval of the commands that a sample makes, those inside others included.
    double mergeInterval = moUndoCommand::defaultMergeResponseDelta;

    /// Removes the container of that role from the scene and releases it. It is destroyed unless a command holds a
    /// reference. Does nothing at a second call.
    void destroy(const std::string& role);

    std::vector<std::string> roles() const;
    osg::FieldContainerPtr container(const std::string& role) const { return get<osg::FieldContainerPtr>(role); }

    /// The containers that have a name, with their names: the roles, and the cores of the nodes and variants.
    std::vector<std::pair<std::string, osg::FieldContainerPtr>> named() const;

private:
    template<class Ptr>
    Ptr get(const std::string& role) const
    {
        for (const auto& [name, container] : m_held)
            if (name == role) {
                if constexpr (std::is_same_v<Ptr, osg::FieldContainerPtr>)
                    return container.get();
                else
                    return Ptr::dcast(container.get());
            }
        return Ptr();
    }
    template<class Ptr>
    Ptr hold(const std::string& role, const Ptr& container)
    {
        m_held.emplace_back(role, container);
        return container;
    }
    static osg::UberLightPtr coreOf(const osg::NodePtr& light);
    void detach(const std::string& role);

    std::string m_prefix;
    std::vector<std::pair<std::string, osg::FieldContainerRefPtr>> m_held;
};

/// A new scene of its own: a target for the commands under test, and a second one with other values.
///
/// It must outlive the commands that were made on it: generic function commands write to it.
class SampleScene
{
public:
    SampleTarget target{"", 0};
    SampleTarget other{"other ", 20};

    /// Every value of every field that can be reached, one line each: `node core.translation = 0 0 0`. Numbers are
    /// exact: each has the shortest text that gives the same number again. Containers appear under their role or the
    /// path to them, never under their id. Left out are links upwards, which follow from those downwards, and volumes,
    /// which are caches.
    std::vector<std::string> digest() const;

    /// The reference count of every container that can be reached: `node core 1`.
    std::vector<std::string> references() const;

    /// Makes the trace use the names of the digest.
    void nameIn(EditTrace& edits) const;
};
