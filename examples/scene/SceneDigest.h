#pragma once

#include <scene/FieldContents.h>

#include <OpenSG/OSGBaseTypes.h>

#include <QtCore/QByteArray>

#include <deque>
#include <functional>
#include <unordered_map>
#include <vector>

namespace osg {
class FieldContainerPtr;
} // namespace osg

struct Model;

/// The state of a scene at one moment.
struct SceneState
{
    /// An XXH3 hash of 128 bits as 32 hexadecimal digits: two scenes have the same digest exactly when every name, the
    /// hierarchy, every value (bit by bit) and every world matrix are the same.
    QByteArray digest;

    osg::UInt32 number = 0; ///< its place among the states that its SceneWatch made
};

/// Called now and then with the number of containers read so far and of all, 0 if that is not known yet. If it throws,
/// the state is not made.
using SceneProgress = std::function<void(std::size_t seen, std::size_t all)>;

/// How two states compare: equal to the bit, equal up to rounding, or different.
struct SceneComparison
{
    bool same = false;
    std::size_t rounded = 0; ///< values that differ by rounding only; 0 if the states differ
};

/// Keeps track of a model's scene: makes a digest of its state at any time, and compares it with earlier states.
///
/// The scene is all that can be reached from the model's root and containers through attachments and handles in fields.
/// Containers are identified by the order in which they are reached, because their ids differ from run to run. Handles
/// to parents are left out, which follow from the others, and volumes, which are caches.
///
/// While it exists, the change list of the calling thread records, and a container is read again only if the list names
/// it. So state() does not see what is written outside an edit bracket; readAll() does. One watch at a time.
class SceneWatch
{
public:
    explicit SceneWatch(const Model& model, SceneProgress progress = {});
    ~SceneWatch();
    SceneWatch(const SceneWatch&) = delete;
    SceneWatch& operator=(const SceneWatch&) = delete;

    /// Reads the containers that were changed since the last call.
    SceneState state();
    /// Reads all containers. The digest equals that of state() if each change was made in a bracket.
    SceneState readAll();

    /// Compares the latest state with an earlier one. They are the same if their digests are. Otherwise they are
    /// compared value by value: numbers of single precision may differ by 1e-5 of the largest in their field. The
    /// components that place a transform may differ by 1e-5 of its distance from the world's origin, in the units of
    /// the transform: a value in world space is rounded there and back.
    SceneComparison compareWith(const SceneState& earlier);

private:
    /// The contents of a container from one state on, until its next version.
    struct Version
    {
        osg::UInt64 exactHash; ///< of the values that are compared to the bit
        osg::UInt64 hash;      ///< of those and the numbers
        osg::UInt32 previous;  ///< its index, s_none if there is none
        osg::UInt32 firstState;
        osg::UInt32 numbers; ///< where they begin in m_numbers
        osg::UInt32 targets; ///< where they begin in m_targets
        osg::UInt32 targetCount;
    };

    /// The bookkeeping of a container, at the index of its id.
    struct Container
    {
        osg::UInt32 version = s_none; ///< the latest
        osg::UInt32 walk = 0;         ///< the latest walk that reached it
        osg::UInt32 place = 0;        ///< its place in that walk, from 1 on
        osg::UInt32 node = 0;         ///< its index among the nodes of that walk
        bool isNode = false;
        bool changed = false;
    };

    struct FieldPlan
    {
        osg::UInt32 id;
        FieldReader read;
    };

    /// How containers of one type are read.
    struct TypePlan
    {
        osg::UInt64 names; ///< a hash of the names of the type and of its fields
        std::vector<FieldPlan> fields;
        bool isNode;
        bool movesNodes; ///< whether world matrices depend on it
    };

    static constexpr osg::UInt32 s_none = 0xFFFFFFFFu;

    friend QByteArray sceneDigest(const Model& model);
    enum class Recording
    {
        No,
        Yes
    };
    SceneWatch(const Model& model, SceneProgress progress, Recording recording);

    Container& container(osg::UInt32 id);
    const TypePlan& planOf(const osg::FieldContainerPtr& container);
    void noteChanges();
    SceneState walk();
    osg::UInt32 reach(osg::UInt32 id);
    void readContents(const osg::FieldContainerPtr& container, const TypePlan& plan);
    void readIfChanged(osg::UInt32 id);
    void hashWorldMatrices();
    bool sameTargets(const Version& a, const Version& b) const;

    const Model& m_model;
    SceneProgress m_progress;
    Recording m_recording;
    std::unordered_map<osg::UInt32, TypePlan> m_plans;
    std::vector<Container> m_containers;
    // Deques: indices stay valid, and growing moves no element.
    std::deque<Version> m_versions;
    std::deque<float> m_numbers;
    std::vector<osg::UInt32> m_targets;
    std::vector<std::vector<osg::UInt32>> m_roots; ///< of each state: where its walk began
    std::vector<osg::UInt32> m_reached;            ///< ids in the order of the latest walk
    FieldContents m_contents;
    QByteArray m_latestDigest;
    osg::UInt32 m_walk = 0;
    osg::UInt64 m_worldMatrices = 0; ///< a hash
    bool m_nodesMoved = true;
};

/// The digest of a model's scene at this moment. Does not touch the change list.
QByteArray sceneDigest(const Model& model);
