#include <scene/ModelWriter.h>

#include <scene/ModelLoader.h>

#include <moOpenSGUberLight/OSGUberLight.h>
#include <moOpenSGUberMaterial/OSGUberMaterial.h>

#include <OpenSG/OSGSimpleAttachments.h>
#include <OpenSG/OSGTransform.h>

#include <assimp/Exporter.hpp>
#include <assimp/material.h>
#include <assimp/scene.h>

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QSaveFile>
#include <QtCore/QTemporaryDir>

#include <algorithm>
#include <cmath>
#include <memory>
#include <unordered_map>

namespace {

constexpr double degreesPerRadian = 57.29577951308232;
const QString lightsExtension = QStringLiteral("KHR_lights_punctual");

[[noreturn]] void fail(const QString& fileName, const QString& reason)
{
    throw ModelError(QStringLiteral("cannot write '%1': %2").arg(fileName, reason.simplified()).toStdString());
}

aiMatrix4x4 matrixOf(const osg::NodePtr& node)
{
    const auto transform = osg::TransformPtr::dcast(node->getCore());
    if (!transform) return {};
    const osg::Matrix& m = transform->getMatrix();
    // As the loader does it: what is not finite moves nothing.
    const bool isFinite =
        std::all_of(m.getValues(), m.getValues() + 16, [](float value) { return std::isfinite(value); });
    if (!isFinite) return {};
    return {m[0][0], m[1][0], m[2][0], m[3][0], m[0][1], m[1][1], m[2][1], m[3][1],
            m[0][2], m[1][2], m[2][2], m[3][2], m[0][3], m[1][3], m[2][3], m[3][3]};
}

/// The materials as edited, in the order of the model. Beside its colour, a material is as the file had it.
std::vector<osg::UberMaterialPtr> materialsOf(const Model& model)
{
    std::vector<osg::UberMaterialPtr> found;
    for (const osg::FieldContainerRefPtr& container : model.containers) {
        if (const auto material = osg::UberMaterialPtr::dcast(container.get())) found.push_back(material);
    }
    return found;
}

/// The model as Assimp's scene.
class SceneMaker
{
public:
    explicit SceneMaker(const Model& model) : m_model(model)
    {
        makeMaterials();
        makeMeshes();
        m_scene.mRootNode = makeNode(model.root.get());
    }

    const aiScene& scene() const { return m_scene; }

private:
    void makeMaterials()
    {
        const auto edited = materialsOf(m_model);
        m_scene.mMaterials = new aiMaterial*[m_model.materials.size()];
        for (std::size_t i = 0; i < m_model.materials.size(); ++i) {
            const LoadedMaterial& loaded = m_model.materials[i];
            osg::Color3f color = loaded.baseColor;
            if (i < edited.size() && edited[i]->getMFColorComponentData()->size() >= 3) {
                const auto& data = *edited[i]->getMFColorComponentData();
                color = osg::Color3f(data[0], data[1], data[2]);
            }
            auto* const material = new aiMaterial;
            m_scene.mMaterials[m_scene.mNumMaterials++] = material;
            const aiString name(loaded.name);
            material->AddProperty(&name, AI_MATKEY_NAME);
            const aiColor4D base(color.red(), color.green(), color.blue(), loaded.opacity);
            material->AddProperty(&base, 1, AI_MATKEY_BASE_COLOR);
            const aiColor4D emission(loaded.emission.red(), loaded.emission.green(), loaded.emission.blue(), 1.f);
            material->AddProperty(&emission, 1, AI_MATKEY_COLOR_EMISSIVE);
        }
    }

    void makeMeshes()
    {
        m_scene.mMeshes = new aiMesh*[m_model.meshes.size()];
        for (const LoadedMesh& loaded : m_model.meshes) {
            // A mesh without triangles cannot be written.
            if (loaded.corners.empty()) continue;
            auto* const mesh = new aiMesh;
            for (const osg::NodePtr& node : loaded.nodes)
                m_meshesOf[osg::getContainerId(node)].push_back(m_scene.mNumMeshes);
            m_scene.mMeshes[m_scene.mNumMeshes++] = mesh;
            mesh->mPrimitiveTypes = aiPrimitiveType_TRIANGLE;
            mesh->mMaterialIndex = static_cast<unsigned int>(loaded.material);
            mesh->mVertices = new aiVector3D[loaded.points.size()];
            for (const osg::Vec3f& point : loaded.points)
                mesh->mVertices[mesh->mNumVertices++] = aiVector3D(point[0], point[1], point[2]);
            mesh->mFaces = new aiFace[loaded.corners.size() / 3];
            for (std::size_t i = 0; i + 2 < loaded.corners.size(); i += 3) {
                aiFace& face = mesh->mFaces[mesh->mNumFaces++];
                face.mNumIndices = 3;
                face.mIndices = new unsigned int[3];
                std::copy_n(loaded.corners.begin() + static_cast<std::ptrdiff_t>(i), 3, face.mIndices);
            }
        }
    }

    aiNode* makeNode(const osg::NodePtr& source)
    {
        auto* const node = new aiNode;
        if (const char* name = osg::getName(source)) node->mName = aiString(std::string(name));
        node->mTransformation = matrixOf(source);
        const auto meshes = m_meshesOf.find(osg::getContainerId(source));
        if (meshes != m_meshesOf.end()) {
            node->mMeshes = new unsigned int[meshes->second.size()];
            for (const unsigned int mesh : meshes->second)
                node->mMeshes[node->mNumMeshes++] = mesh;
        }
        node->mChildren = new aiNode*[source->getNChildren()];
        for (osg::UInt32 i = 0; i < source->getNChildren(); ++i) {
            aiNode* const child = makeNode(source->getChild(i));
            child->mParent = node;
            node->mChildren[node->mNumChildren++] = child;
        }
        return node;
    }

    const Model& m_model;
    aiScene m_scene;
    std::unordered_map<osg::UInt32, std::vector<unsigned int>> m_meshesOf;
};

QJsonObject lightOf(const osg::NodePtr& node, const osg::UberLightPtr& light)
{
    QJsonObject json;
    if (const char* name = osg::getName(node)) json["name"] = QString::fromUtf8(name);
    const auto type = light->getLightType();
    json["type"] = type == osg::UberLight::DirectionalLight ? "directional"
                   : type == osg::UberLight::SpotLight      ? "spot"
                                                            : "point";
    const osg::Color3f& color = light->getDiffuse();
    const auto channel = [](float value) { return std::isfinite(value) ? static_cast<double>(value) : 0.; };
    json["color"] = QJsonArray{channel(color.red()), channel(color.green()), channel(color.blue())};
    // A light that is off shines with nothing.
    json["intensity"] = light->getOn() ? channel(light->getIntensity()) : 0.;
    if (type == osg::UberLight::SpotLight) {
        // The format wants 0 <= inner < outer <= 90 degrees.
        const double outer = std::clamp(channel(light->getConeAngle()), 0.01, 90.);
        const double inner = std::clamp(outer - channel(light->getPenumbraAngle()), 0., outer * 0.999);
        json["spot"] =
            QJsonObject{{"innerConeAngle", inner / degreesPerRadian}, {"outerConeAngle", outer / degreesPerRadian}};
    }
    return json;
}

/// Adds the lights to a glTF document, which Assimp leaves out. Its nodes have the children of the scene's nodes, in
/// the same order.
class LightWriter
{
public:
    explicit LightWriter(QJsonObject& document) : m_document(document), m_nodes(document["nodes"].toArray()) {}

    void write(const osg::NodePtr& root)
    {
        const QJsonArray scenes = m_document["scenes"].toArray();
        visit(root, scenes.at(m_document["scene"].toInt()).toObject()["nodes"].toArray().at(0).toInt());
        if (m_lights.isEmpty()) return;
        m_document["nodes"] = m_nodes;
        QJsonArray used = m_document["extensionsUsed"].toArray();
        used.append(lightsExtension);
        m_document["extensionsUsed"] = used;
        QJsonObject extensions = m_document["extensions"].toObject();
        extensions[lightsExtension] = QJsonObject{{"lights", m_lights}};
        m_document["extensions"] = extensions;
    }

private:
    void visit(const osg::NodePtr& node, int index)
    {
        QJsonObject json = m_nodes.at(index).toObject();
        if (const auto light = osg::UberLightPtr::dcast(node->getCore())) {
            json["extensions"] = QJsonObject{{lightsExtension, QJsonObject{{"light", m_lights.size()}}}};
            m_lights.append(lightOf(node, light));
            m_nodes[index] = json;
        }
        const QJsonArray children = json["children"].toArray();
        for (osg::UInt32 i = 0; i < node->getNChildren(); ++i)
            visit(node->getChild(i), children.at(static_cast<int>(i)).toInt());
    }

    QJsonObject& m_document;
    QJsonArray m_nodes;
    QJsonArray m_lights;
};

void writeFile(const QString& fileName, const QByteArray& contents)
{
    QSaveFile file(fileName);
    if (!file.open(QIODevice::WriteOnly) || file.write(contents) != contents.size() || !file.commit())
        fail(fileName, file.errorString());
}

} // namespace

void writeModel(const Model& model, const QString& fileName)
{
    const QTemporaryDir folder;
    const QString draft = folder.filePath(QFileInfo(fileName).completeBaseName() + ".gltf");
    Assimp::Exporter exporter;
    const SceneMaker maker(model);
    if (exporter.Export(&maker.scene(), "gltf2", QFile::encodeName(draft).constData()) != aiReturn_SUCCESS)
        fail(fileName, QString::fromUtf8(exporter.GetErrorString()));

    QFile file(draft);
    if (!file.open(QIODevice::ReadOnly)) fail(fileName, file.errorString());
    QJsonObject document = QJsonDocument::fromJson(file.readAll()).object();
    if (document.isEmpty()) fail(fileName, "a value is not a number");
    LightWriter(document).write(model.root.get());

    for (const QString& name : QDir(folder.path()).entryList({"*.bin"}, QDir::Files)) {
        QFile mesh(folder.filePath(name));
        if (!mesh.open(QIODevice::ReadOnly)) fail(fileName, mesh.errorString());
        writeFile(QFileInfo(fileName).dir().filePath(name), mesh.readAll());
    }
    writeFile(fileName, QJsonDocument(document).toJson());
}
