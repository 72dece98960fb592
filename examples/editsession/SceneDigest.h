#pragma once

#include <editsession/FieldContents.h>

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

/// What a scene was at one moment.
struct SceneState
{
    /// An XXH3 hash of 128 bits as 32 hexadecimal digits: two scenes have the same digest exactly when every name, the
    /// hierarchy, every value (bit by bit) and every world matrix are the same.
    QByteArray digest;

    osg::UInt32 number = 0; ///< of the moments that its SceneWatch was asked for
};

/// Called every now and then with how many containers were seen of how many, 0 if that is not known yet. It may throw; the
/// state is then not made.
using SceneProgress = std::function<void(std::size_t seen, std::size_t all)>;

/// How two states compare: equal to the bit, equal but for rounding, or different.
struct SceneComparison
{
    bool same = false;
    std::size_t rounded = 0; ///< values that differ, all of them by no more than rounding; 0 if the states differ
};

/// Keeps track of a model's scene and tells at any time what it is: as a digest, and by comparison with what it was.
///
/// The scene is whatever can be reached from the model's root and containers through attachments and handles in fields.
/// Containers are told apart by the order in which they are reached, not by their ids, which differ from run to run. Left
/// out are links upwards, which follow from those downwards, and volumes, which are caches.
///
/// While it lives, the change list of the calling thread records, and a container is read again only when the list names
/// it. So state() does not see what is written outside an edit bracket; readAll() does. One watch at a time.
class SceneWatch
{
public:
    explicit SceneWatch(const Model& model, SceneProgress progress = {});
    ~SceneWatch();
    SceneWatch(const SceneWatch&) = delete;
    SceneWatch& operator=(const SceneWatch&) = delete;

    /// Reads what was changed since the last call.
    SceneState state();
    /// Reads everything. The digest is the one that state() has if each change was made in a bracket.
    SceneState readAll();

    /// How the latest state compares with an earlier one. They are the same when their digests are. If those differ, the
    /// states are looked at value by value: numbers of single precision may differ by 1e-5 of the largest in their field.
    /// What makes up the place of a transform may differ by 1e-5 of the distance, in the units of the transform, from
    /// there to the world's origin: a value that is placed in the world makes that journey and comes back rounded.
    SceneComparison compareWith(const SceneState& earlier);

private:
    /// What a container was from one state on, until the next version of it.
    struct Version
    {
        osg::UInt64 exactHash; ///< of what has no tolerance
        osg::UInt64 hash;      ///< of that and the numbers
        osg::UInt32 previous;  ///< its index, s_none if there is none
        osg::UInt32 firstState;
        osg::UInt32 numbers; ///< where they begin in m_numbers
        osg::UInt32 targets; ///< where they begin in m_targets
        osg::UInt32 targetCount;
    };

    /// What is known of a container, at the index of its id.
    struct Container
    {
        osg::UInt32 version = s_none; ///< the latest
        osg::UInt32 walk = 0;         ///< the latest walk that reached it
        osg::UInt32 place = 0;        ///< and where in that walk, from 1 on
        osg::UInt32 node = 0;         ///< among the nodes of that walk
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
        osg::UInt64 names; ///< a hash of the type's name and its fields'
        std::vector<FieldPlan> fields;
        bool isNode;
        bool movesNodes; ///< whether world matrices follow from it
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
    // Queues where indices last and growing moves nothing.
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

/// The digest of all that a model's scene is at this moment. Leaves the change list alone.
QByteArray sceneDigest(const Model& model);
