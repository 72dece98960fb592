#include <scene/SceneDigest.h>

#include <scene/ModelLoader.h>

#include <OpenSG/OSGFieldContainerFactory.h>
#include <OpenSG/OSGThread.h>
#include <OpenSG/OSGTransform3D.h>

#include <xxhash.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <memory>

namespace {

using osg::UInt32;
using osg::UInt64;

/// Computes a hash from data that is added in blocks.
class Hash
{
public:
    Hash() : m_state(XXH3_createState(), XXH3_freeState)
    {
        XXH3_128bits_reset(m_state.get());
        m_block.reserve(s_blockSize);
    }

    template<class T>
    void add(const T& value)
    {
        const char* bytes = reinterpret_cast<const char*>(&value);
        m_block.insert(m_block.end(), bytes, bytes + sizeof(T));
        if (m_block.size() > s_blockSize - 64) flush();
    }

    /// As 32 hexadecimal digits.
    QByteArray result()
    {
        flush();
        XXH128_canonical_t canonical;
        XXH128_canonicalFromHash(&canonical, XXH3_128bits_digest(m_state.get()));
        return QByteArray(reinterpret_cast<const char*>(canonical.digest), sizeof(canonical.digest)).toHex();
    }

private:
    static constexpr std::size_t s_blockSize = 1 << 16;

    void flush()
    {
        XXH3_128bits_update(m_state.get(), m_block.data(), m_block.size());
        m_block.clear();
    }

    std::unique_ptr<XXH3_state_t, decltype(&XXH3_freeState)> m_state;
    std::vector<char> m_block;
};

template<class T>
UInt64 hashOf(const T& values, UInt64 seed)
{
    return XXH3_64bits_withSeed(values.data(), values.size() * sizeof(values[0]), seed);
}

UInt32 idOf(const osg::FieldContainerPtr& container)
{
    return container == osg::NullFC ? 0 : container.getFieldContainerId();
}

constexpr double tolerance = 1e-5;

double largest(const float* numbers, UInt32 count)
{
    double result = 0.;
    for (UInt32 i = 0; i < count; ++i)
        result = std::max(result, std::abs(double(numbers[i])));
    return result;
}

/// The most by which a length may grow from the world into the space of the matrix: the Frobenius norm of the inverse.
/// Not finite if there is no inverse.
double growthFromWorld(const osg::Matrix& toWorld)
{
    double squares = 0.;
    double determinant = 0.;
    for (UInt32 i = 0; i < 3; ++i) {
        const auto &a = toWorld[(i + 1) % 3], &b = toWorld[(i + 2) % 3];
        for (UInt32 row = 0; row < 3; ++row) {
            const UInt32 next = (row + 1) % 3, last = (row + 2) % 3;
            const double cofactor = double(a[next]) * b[last] - double(a[last]) * b[next];
            squares += cofactor * cofactor;
            if (i == 0) determinant += cofactor * toWorld[0][row];
        }
    }
    return std::sqrt(squares) / std::abs(determinant);
}

/// How far a transform's place is from the world's origin, in the units of its parent; 0 for other containers.
double distanceFromOrigin(const osg::FieldContainerPtr& container)
{
    const auto transform = osg::Transform3DPtr::dcast(container);
    if (transform == osg::NullFC) return 0.;

    double result = 0.;
    for (const osg::Vec3f& part :
         {transform->getTranslation(), transform->getRotatePivot(), transform->getRotatePivotTranslation(),
          transform->getScalePivot(), transform->getScalePivotTranslation()})
        result += largest(part.getValues(), 3);
    double parents = 0.;
    for (const osg::NodePtr& node : *transform->getMFParents()) {
        const osg::NodePtr parent = node->getParent();
        if (parent == osg::NullFC) continue;
        const osg::Matrix toWorld = parent->getToWorld();
        parents = std::max(parents, largest(toWorld[3].getValues(), 3) * growthFromWorld(toWorld));
    }
    return result + parents;
}

bool isPartOfPlace(UInt32 field)
{
    using T = osg::Transform3D;
    return field == T::TranslationFieldId || field == T::RotatePivotFieldId || field == T::ScalePivotFieldId ||
           field == T::MatrixFieldId;
}

} // namespace

SceneWatch::SceneWatch(const Model& model, SceneProgress progress)
    : SceneWatch(model, std::move(progress), Recording::Yes)
{
}

SceneWatch::SceneWatch(const Model& model, SceneProgress progress, Recording recording)
    : m_model(model), m_progress(std::move(progress)), m_recording(recording)
{
    if (m_recording == Recording::No) return;
    osg::ChangeList& changes = *osg::Thread::getCurrentChangeList();
    changes.clearAll();
    changes.setReadOnly(false);
}

SceneWatch::~SceneWatch()
{
    if (m_recording == Recording::No) return;
    osg::ChangeList& changes = *osg::Thread::getCurrentChangeList();
    changes.setReadOnly(true);
    changes.clearAll();
}

SceneState SceneWatch::state()
{
    if (m_recording == Recording::Yes) noteChanges();
    return walk();
}

SceneState SceneWatch::readAll()
{
    for (Container& known : m_containers)
        known.changed = true;
    return state();
}

void SceneWatch::noteChanges()
{
    osg::ChangeList& changes = *osg::Thread::getCurrentChangeList();
    for (auto change = changes.beginChanged(); change != changes.endChanged(); ++change)
        container(change->first).changed = true;
    changes.clearAll();
}

SceneWatch::Container& SceneWatch::container(UInt32 id)
{
    if (id >= m_containers.size()) m_containers.resize(std::max<std::size_t>(id + 1, m_containers.size() * 2));
    return m_containers[id];
}

SceneState SceneWatch::walk()
{
    constexpr std::size_t progressInterval = 1 << 14;

    const std::size_t expected = m_reached.size();
    ++m_walk;
    m_reached.clear();
    std::vector<UInt32> roots{idOf(m_model.root.get())};
    for (const osg::FieldContainerRefPtr& each : m_model.containers)
        roots.push_back(idOf(each.get()));

    Hash hash;
    for (const UInt32 root : roots)
        hash.add(reach(root));
    // By index: the list grows during the loop.
    for (std::size_t i = 0; i < m_reached.size(); ++i) {
        if (m_progress && i % progressInterval == 0) m_progress(i, expected);
        readIfChanged(m_reached[i]);
        const Version& version = m_versions[m_containers[m_reached[i]].version];
        hash.add(version.hash);
        for (UInt32 target = 0; target < version.targetCount; ++target)
            hash.add(reach(m_targets[version.targets + target]));
    }
    if (m_nodesMoved) hashWorldMatrices();
    hash.add(m_worldMatrices);

    m_latestDigest = hash.result();
    m_roots.push_back(std::move(roots));
    return {m_latestDigest, static_cast<UInt32>(m_roots.size() - 1)};
}

/// Returns the container's place in the walk, 0 for null. A container that was not reached yet is queued.
UInt32 SceneWatch::reach(UInt32 id)
{
    if (id == 0) return 0;
    Container& reached = container(id);
    if (reached.walk != m_walk) {
        m_reached.push_back(id);
        reached.walk = m_walk;
        reached.place = static_cast<UInt32>(m_reached.size());
    }
    return reached.place;
}

const SceneWatch::TypePlan& SceneWatch::planOf(const osg::FieldContainerPtr& container)
{
    osg::FieldContainerType& type = container->getType();
    const auto [place, isNew] = m_plans.try_emplace(type.getId());
    TypePlan& plan = place->second;
    if (!isNew) return plan;

    FieldContents names;
    names.addText(type.getCName());
    for (UInt32 id = 1; id <= type.getNumFieldDescs(); ++id) {
        const osg::FieldDescription& description = *type.getFieldDescription(id);
        if (description.isInternal() || std::strcmp(description.getCName(), "parents") == 0) continue;
        names.addText(description.getCName());
        plan.fields.push_back({id, readerOf(*container->getField(id))});
    }
    plan.names = hashOf(names.exact, 0);
    plan.isNode = type.isNode();
    plan.movesNodes = type.isNode() || type.isNodeCore();
    return plan;
}

void SceneWatch::readContents(const osg::FieldContainerPtr& container, const TypePlan& plan)
{
    m_contents.clear();
    for (const FieldPlan& field : plan.fields) {
        m_contents.field = field.id;
        field.read(*container->getField(field.id), m_contents);
    }
}

void SceneWatch::readIfChanged(UInt32 id)
{
    Container& known = m_containers[id];
    if (known.version != s_none && !known.changed) return;

    const osg::FieldContainerPtr container = osg::FieldContainerFactory::the()->getContainer(id);
    const TypePlan& plan = planOf(container);
    readContents(container, plan);
    const UInt64 exactHash = hashOf(m_contents.exact, plan.names);
    const UInt64 hash = hashOf(m_contents.numbers, exactHash);
    known.isNode = plan.isNode;
    known.changed = false;
    if (known.version != s_none) {
        const Version& latest = m_versions[known.version];
        if (latest.hash == hash &&
            std::equal(m_contents.targets.begin(), m_contents.targets.end(), m_targets.begin() + latest.targets,
                       m_targets.begin() + latest.targets + latest.targetCount))
            return;
    }
    m_versions.push_back({exactHash, hash, known.version, static_cast<UInt32>(m_roots.size()),
                          static_cast<UInt32>(m_numbers.size()), static_cast<UInt32>(m_targets.size()),
                          static_cast<UInt32>(m_contents.targets.size())});
    m_numbers.insert(m_numbers.end(), m_contents.numbers.begin(), m_contents.numbers.end());
    m_targets.insert(m_targets.end(), m_contents.targets.begin(), m_contents.targets.end());
    known.version = static_cast<UInt32>(m_versions.size() - 1);
    m_nodesMoved = m_nodesMoved || plan.movesNodes;
}

/// Computes each matrix from the parent's, so that a deep scene costs no more than a flat one.
void SceneWatch::hashWorldMatrices()
{
    std::vector<osg::NodePtr> nodes;
    for (const UInt32 id : m_reached) {
        if (!m_containers[id].isNode) continue;
        m_containers[id].node = static_cast<UInt32>(nodes.size());
        nodes.push_back(osg::NodePtr::dcast(osg::FieldContainerFactory::the()->getContainer(id)));
    }

    std::vector<osg::Matrix> matrices(nodes.size());
    std::vector<bool> isKnown(nodes.size());
    std::vector<UInt32> way;
    for (UInt32 i = 0; i < nodes.size(); ++i) {
        // Up to the first node whose matrix is known, and down again: a node may be reached before its parent.
        osg::Matrix matrix;
        for (UInt32 node = i;;) {
            if (isKnown[node]) {
                matrix = matrices[node];
                break;
            }
            way.push_back(node);
            const osg::NodePtr parent = nodes[node]->getParent();
            if (parent == osg::NullFC) break;
            const Container& reached = container(idOf(parent));
            if (reached.walk != m_walk) { // the parent belongs to another tree and not to the scene
                matrix = parent->getToWorld();
                break;
            }
            node = reached.node;
        }
        for (; !way.empty(); way.pop_back()) {
            if (const osg::NodeCorePtr core = nodes[way.back()]->getCore()) core->accumulateMatrix(matrix);
            matrices[way.back()] = matrix;
            isKnown[way.back()] = true;
        }
    }
    m_worldMatrices = hashOf(matrices, 0);
    m_nodesMoved = false;
}

bool SceneWatch::sameTargets(const Version& a, const Version& b) const
{
    return std::equal(m_targets.begin() + a.targets, m_targets.begin() + a.targets + a.targetCount,
                      m_targets.begin() + b.targets, m_targets.begin() + b.targets + b.targetCount);
}

SceneComparison SceneWatch::compareWith(const SceneState& earlier)
{
    if (earlier.digest == m_latestDigest) return {true, 0};
    if (m_roots[earlier.number] != m_roots.back()) return {};

    SceneComparison result;
    // Only the latest walk: if all handles point to the same containers, both states reach the same ones.
    for (const UInt32 id : m_reached) {
        const UInt32 now = m_containers[id].version;
        UInt32 then = now;
        while (then != s_none && m_versions[then].firstState > earlier.number)
            then = m_versions[then].previous;
        if (then == now) continue;
        if (then == s_none || m_versions[then].exactHash != m_versions[now].exactHash ||
            !sameTargets(m_versions[then], m_versions[now]))
            return {};

        const osg::FieldContainerPtr container = osg::FieldContainerFactory::the()->getContainer(id);
        readContents(container, planOf(container));
        const double distance = distanceFromOrigin(container);
        for (const FieldContents::Run& run : m_contents.runs) {
            std::vector<float> before(run.count), after(run.count);
            for (UInt32 i = 0; i < run.count; ++i) {
                before[i] = m_numbers[m_versions[then].numbers + run.begin + i];
                after[i] = m_numbers[m_versions[now].numbers + run.begin + i];
            }
            const double size = std::max({largest(before.data(), run.count), largest(after.data(), run.count),
                                          isPartOfPlace(run.field) ? distance : 0.});
            for (UInt32 i = 0; i < run.count; ++i) {
                if (std::memcmp(&before[i], &after[i], sizeof(float)) == 0) continue;
                if (!(std::abs(double(before[i]) - double(after[i])) <= tolerance * size)) return {};
                ++result.rounded;
            }
        }
    }
    result.same = result.rounded > 0;
    return result;
}

QByteArray sceneDigest(const Model& model)
{
    return SceneWatch(model, {}, SceneWatch::Recording::No).state().digest;
}
