#include <scene/ModelLoader.h>
#include <scene/Progress.h>
#include <scene/Trial.h>

#include <moOpenSGUtils/moOpenSGUtils.h>

#include <OpenSG/OSGSimpleAttachments.h>
#include <OpenSG/OSGTransform3D.h>

#include <assimp/Importer.hpp>
#include <assimp/postprocess.h>
#include <assimp/scene.h>

#include <QtCore/QFile>
#include <QtCore/QFileInfo>

#include <algorithm>
#include <cmath>
#include <initializer_list>

namespace {

constexpr float degreesPerRadian = 57.2957795f;

/// Splits a matrix into translation, rotation, shear and scale that compose it again. For every matrix that has an
/// inverse, mirrored and sheared ones included, and for those that only flatten.
struct Decomposed
{
    explicit Decomposed(const aiMatrix4x4& m) : translation(m.a4, m.b4, m.c4)
    {
        const aiVector3D a(m.a1, m.b1, m.c1), b(m.a2, m.b2, m.c2), c(m.a3, m.b3, m.c3);
        // Gram-Schmidt. The part of each column along the axes found before is shear, the rest is scale.
        const aiVector3D x = direction({a, b ^ c, perpendicular(b), perpendicular(c), aiVector3D(1, 0, 0)});
        const aiVector3D y = direction({b - x * (x * b), c ^ x, perpendicular(x)}, s_negligible * b.Length());
        const aiVector3D z = x ^ y;
        scale = osg::Vec3f(x * a, y * b, z * c);
        shear = osg::Vec3f(part(x * b, scale[1]), part(x * c, scale[2]), part(y * c, scale[2]));
        rotation = aiQuaternion(aiMatrix3x3(x.x, y.x, z.x, x.y, y.y, z.y, x.z, y.z, z.z));
    }

    osg::Vec3f translation;
    aiQuaternion rotation;
    osg::Vec3f scale;
    osg::Vec3f shear;

private:
    static constexpr float s_negligible = 1e-6f;

    /// The axis of the first candidate that is long enough to have one.
    static aiVector3D direction(std::initializer_list<aiVector3D> candidates, float smallest = 0.f)
    {
        for (const aiVector3D& candidate : candidates) {
            const float length = candidate.Length();
            if (length > smallest) return candidate / length;
        }
        return aiVector3D();
    }
    static aiVector3D perpendicular(const aiVector3D& v)
    {
        return v ^ (std::abs(v.x) < 0.9f * v.Length() ? aiVector3D(1, 0, 0) : aiVector3D(0, 1, 0));
    }
    static float part(float value, float ofScale)
    {
        return std::abs(value) <= s_negligible * std::abs(ofScale) || ofScale == 0.f ? 0.f : value / ofScale;
    }
};

bool isFinite(const aiMatrix4x4& m)
{
    for (unsigned int row = 0; row < 4; ++row) {
        for (unsigned int column = 0; column < 4; ++column) {
            if (!std::isfinite(m[row][column])) return false;
        }
    }
    return true;
}

osg::Color3f color(const aiColor3D& c)
{
    return osg::Color3f(c.r, c.g, c.b);
}

/// Makes angles and quaternion of a rotation an exact pair. A transform derives each from the other, which rounds. This
/// searches close by for a pair of which each gives exactly the other, so that undo of an edit restores both to the
/// bit.
void settleRotation(const osg::Transform3DPtr& transform)
{
    using T = osg::Transform3D;

    constexpr int rounds = 200;
    for (int round = 1; round <= rounds; ++round) {
        // Usually a few rounds suffice. If they repeat in a circle, start again a little beside it.
        if (round % 8 == 0)
            transform->getEulerRotation() += osg::Vec3f(1.f, -1.f, 1.f) * (1e-6f * static_cast<float>(round));
        const osg::Vec3f angles = transform->getEulerRotation();
        osg::endEditCP(transform, T::EulerRotationFieldMask);
        osg::endEditCP(transform, T::RotationFieldMask);
        if (std::equal(angles.getValues(), angles.getValues() + 3, transform->getEulerRotation().getValues())) return;
    }
}

osg::Transform3DPtr makeTransform(const aiMatrix4x4& matrix)
{
    using T = osg::Transform3D;

    const osg::Transform3DPtr transform = osg::Transform3D::create();
    if (!isFinite(matrix)) return transform;
    const Decomposed parts(matrix);
    {
        const osg::CPEditor edit(transform, T::TranslationFieldMask | T::RotationFieldMask | T::ScaleFieldMask |
                                                T::ShearFieldMask);
        osg::Quaternion rotation;
        rotation.setValueAsQuat(parts.rotation.x, parts.rotation.y, parts.rotation.z, parts.rotation.w);
        transform->setTranslation(parts.translation);
        transform->setRotationAsQuaternion(rotation);
        transform->setScale(parts.scale);
        transform->setShear(parts.shear);
    }
    settleRotation(transform);
    return transform;
}

class Builder
{
public:
    Builder(const aiScene& scene, Model& model, Progress& progress, Geometry geometry)
        : m_scene(scene), m_model(model), m_progress(progress)
    {
        for (unsigned int i = 0; i < scene.mNumMaterials; ++i)
            m_model.materials.push_back(material(*scene.mMaterials[i]));
        if (geometry == Geometry::Read) {
            for (unsigned int i = 0; i < scene.mNumMeshes; ++i)
                m_model.meshes.push_back(mesh(*scene.mMeshes[i]));
        }
        addNode(*scene.mRootNode, osg::NullFC);
        for (unsigned int i = 0; i < scene.mNumLights; ++i)
            addLight(*scene.mLights[i]);
    }

private:
    void addNode(const aiNode& source, const osg::NodePtr& parent)
    {
        if (m_model.nodes.size() % s_progressInterval == 0) m_progress.step("building the scene");
        const osg::NodePtr node = osg::Node::create();
        if (parent == osg::NullFC) {
            m_model.root = node;
        } else {
            const osg::CPEditor edit(parent, osg::Node::ChildrenFieldMask);
            parent->addChild(node);
        }
        m_model.nodes.push_back(node);
        {
            const osg::CPEditor edit(node, osg::Node::CoreFieldMask);
            node->setCore(makeTransform(source.mTransformation));
        }
        if (source.mName.length > 0) osg::setName(node, std::string(source.mName.data, source.mName.length));

        for (unsigned int i = 0; i < source.mNumMeshes; ++i) {
            std::vector<osg::NodePtr>& users =
                m_model.materials[m_scene.mMeshes[source.mMeshes[i]]->mMaterialIndex].nodes;
            if (users.empty() || users.back() != node) users.push_back(node);
            if (!m_model.meshes.empty()) m_model.meshes[source.mMeshes[i]].nodes.push_back(node);
        }
        for (unsigned int i = 0; i < source.mNumChildren; ++i)
            addNode(*source.mChildren[i], node);
    }

    static LoadedMesh mesh(const aiMesh& source)
    {
        LoadedMesh result;
        result.material = source.mMaterialIndex;
        result.points.reserve(source.mNumVertices);
        for (unsigned int i = 0; i < source.mNumVertices; ++i) {
            const aiVector3D& point = source.mVertices[i];
            result.points.emplace_back(point.x, point.y, point.z);
        }
        for (unsigned int i = 0; i < source.mNumFaces; ++i) {
            const aiFace& face = source.mFaces[i];
            for (unsigned int corner = 2; corner < face.mNumIndices; ++corner)
                result.corners.insert(result.corners.end(),
                                      {face.mIndices[0], face.mIndices[corner - 1], face.mIndices[corner]});
        }
        return result;
    }

    static LoadedMaterial material(const aiMaterial& source)
    {
        LoadedMaterial result;
        aiString name;
        if (source.Get(AI_MATKEY_NAME, name) == AI_SUCCESS) result.name.assign(name.data, name.length);
        aiColor3D value;
        if (source.Get(AI_MATKEY_COLOR_DIFFUSE, value) == AI_SUCCESS) result.baseColor = color(value);
        if (source.Get(AI_MATKEY_COLOR_EMISSIVE, value) == AI_SUCCESS) result.emission = color(value);
        source.Get(AI_MATKEY_OPACITY, result.opacity);
        return result;
    }

    /// The node of the same name gives the light its place. A light without one is left out.
    void addLight(const aiLight& source)
    {
        const std::string name(source.mName.data, source.mName.length);
        for (const osg::NodePtr& node : m_model.nodes) {
            const char* nodeName = osg::getName(node);
            if (!nodeName || name != nodeName) continue;

            LoadedLight light;
            light.kind = kind(source.mType);
            light.node = node;
            light.color = color(source.mColorDiffuse);
            light.innerConeAngle = source.mAngleInnerCone * degreesPerRadian;
            light.outerConeAngle = source.mAngleOuterCone * degreesPerRadian;
            light.attenuation[0] = source.mAttenuationConstant;
            light.attenuation[1] = source.mAttenuationLinear;
            light.attenuation[2] = source.mAttenuationQuadratic;
            m_model.lights.push_back(light);
            return;
        }
    }

    static LoadedLight::Kind kind(aiLightSourceType type)
    {
        switch (type) {
        case aiLightSource_DIRECTIONAL:
            return LoadedLight::Kind::Directional;
        case aiLightSource_SPOT:
            return LoadedLight::Kind::Spot;
        case aiLightSource_AREA:
            return LoadedLight::Kind::Area;
        case aiLightSource_AMBIENT:
            return LoadedLight::Kind::Ambient;
        default:
            return LoadedLight::Kind::Point;
        }
    }

    static constexpr std::size_t s_progressInterval = 1 << 14;

    const aiScene& m_scene;
    Model& m_model;
    Progress& m_progress;
};

[[noreturn]] void fail(const QString& fileName, const QString& reason)
{
    throw ModelError(QStringLiteral("cannot load '%1': %2").arg(fileName, reason.simplified()).toStdString());
}

} // namespace

Model loadModel(const QString& fileName, Geometry geometry)
{
    Progress silent;
    return loadModel(fileName, silent, geometry);
}

Model loadModel(const QString& fileName, Progress& progress, Geometry geometry)
{
    progress.begin(QStringLiteral("load"));
    const QFileInfo info(fileName);
    if (!info.exists()) fail(fileName, QStringLiteral("no such file"));
    if (!info.isFile()) fail(fileName, QStringLiteral("not a file"));
    if (!info.isReadable()) fail(fileName, QStringLiteral("not readable"));
    if (info.size() == 0) fail(fileName, QStringLiteral("the file is empty"));

    Assimp::Importer importer;
    // Validated, so that every index in the file is valid.
    const auto import = [&importer, &fileName] {
        return importer.ReadFile(QFile::encodeName(fileName).constData(), aiProcess_ValidateDataStructure);
    };
    constexpr qint64 bytesPerSecond = 1'000'000; // readers of all formats are much faster
    progress.step("trying the file out");
    const auto complaint = [&importer, &import] { return std::string(import() ? "" : importer.GetErrorString()); };
    const Trial trial = tryOut(complaint, static_cast<unsigned int>(5 + info.size() / bytesPerSecond));
    switch (trial.end) {
    case Trial::Crashed:
        fail(fileName, QStringLiteral("damaged, or not what its name says (the importer crashes on it)"));
    case Trial::DidNotEnd:
        fail(fileName, QStringLiteral("damaged (the importer does not come to an end)"));
    case Trial::Returned:
        break;
    }
    if (!trial.complaint.empty()) fail(fileName, QString::fromStdString(trial.complaint));
    progress.step("reading the file");
    const aiScene* scene = import();
    if (!scene) fail(fileName, QString::fromUtf8(importer.GetErrorString()));
    if (!scene->mRootNode || (scene->mRootNode->mNumChildren == 0 && scene->mNumMeshes == 0 && scene->mNumLights == 0))
        fail(fileName, QStringLiteral("there is no scene in it"));

    Model model;
    Builder(*scene, model, progress, geometry);
    moOpenSGUtils::setRoot(model.root);
    return model;
}
