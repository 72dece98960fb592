#include "TestModel.h"

#include <scene/ModelLoader.h>
#include <support/UndoTest.h>

#include <moOpenSGUtils/moOpenSGUtils.h>

#include <OpenSG/OSGSimpleAttachments.h>
#include <OpenSG/OSGTransform3D.h>

#include <random>

namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class ModelLoader : public UndoTest
{
protected:
    ModelFiles files;

    static std::vector<std::string> names(const Model& model)
    {
        std::vector<std::string> result;
        for (const osg::NodePtr& node : model.nodes) {
            const char* name = osg::getName(node);
            result.emplace_back(name ? name : "(none)");
        }
        return result;
    }

    static osg::Transform3DPtr transform(const osg::NodePtr& node)
    {
        return osg::Transform3DPtr::dcast(node->getCore());
    }

    /// The error of a file that must not load.
    static std::string error(const QString& fileName)
    {
        try {
            loadModel(fileName);
        } catch (const ModelError& e) {
            return e.what();
        }
        return "(loaded)";
    }
};

osg::Matrix matrixOf(const std::vector<float>& columns)
{
    osg::Matrix matrix;
    std::copy(columns.begin(), columns.end(), matrix.getValues());
    return matrix;
}

TEST_F(ModelLoader, LoadsTheStudioWithItsNodesLightsAndMaterials)
{
    const Model model = loadModel(studioModel());
    EXPECT_EQ(model.nodes.size(), 23U);
    EXPECT_EQ(names(model).front(), "Studio");
    EXPECT_THAT(names(model), testing::IsSupersetOf({"Gehäuse", "Blade 3", "Bulb"}));
    EXPECT_EQ(model.root->getNChildren(), 6U);
    EXPECT_TRUE(model.nodes.front() == model.root.get());

    ASSERT_EQ(model.lights.size(), 3U);
    const LoadedLight& bulb = model.lights[0];
    EXPECT_EQ(bulb.kind, LoadedLight::Kind::Spot);
    EXPECT_STREQ(osg::getName(bulb.node), "Bulb");
    EXPECT_FLOAT_EQ(bulb.color[0], 40.f);
    EXPECT_NEAR(bulb.outerConeAngle, 0.6 * 57.29578, 1e-3);
    EXPECT_EQ(model.lights[1].kind, LoadedLight::Kind::Directional);
    EXPECT_EQ(model.lights[2].kind, LoadedLight::Kind::Point);

    std::vector<std::string> materials;
    for (const LoadedMaterial& material : model.materials)
        materials.push_back(material.name);
    EXPECT_THAT(materials, testing::IsSupersetOf({"Concrete", "Oak", "Brushed Steel", "Red Lacquer"}));
    const auto steel = std::find(materials.begin(), materials.end(), "Brushed Steel") - materials.begin();
    EXPECT_FLOAT_EQ(model.materials[std::size_t(steel)].baseColor[2], 0.75f);
    EXPECT_EQ(model.materials[std::size_t(steel)].nodes.size(), 9U);
}

TEST_F(ModelLoader, LeavesTrianglesOutUnlessTheyAreAskedFor)
{
    EXPECT_TRUE(loadModel(studioModel()).meshes.empty());
    const Model model = loadModel(studioModel(), Geometry::Read);
    ASSERT_EQ(model.meshes.size(), 4U);
    std::size_t shown = 0;
    for (const LoadedMesh& mesh : model.meshes) {
        EXPECT_EQ(mesh.points.size(), 8U);
        EXPECT_EQ(mesh.corners.size(), 36U);
        EXPECT_EQ(model.materials[mesh.material].nodes, mesh.nodes);
        shown += mesh.nodes.size();
    }
    EXPECT_EQ(shown, 13U);
}

TEST_F(ModelLoader, SplitsFacesOfMoreCornersIntoTriangles)
{
    const QByteArray pentagon = "v 0 0 0\nv 1 0 0\nv 2 1 0\nv 1 2 0\nv 0 1 0\n";
    const Model model = loadModel(files.write("pentagon.obj", pentagon + "f 1 2 3 4 5\n"), Geometry::Read);
    ASSERT_EQ(model.meshes.size(), 1U);
    EXPECT_THAT(model.meshes[0].corners, ElementsAre(0, 1, 2, 0, 2, 3, 0, 3, 4));
    const Model line = loadModel(files.write("line.obj", pentagon + "l 1 2\n"), Geometry::Read);
    for (const LoadedMesh& mesh : line.meshes)
        EXPECT_TRUE(mesh.corners.empty()) << "a line has no triangle";
}

TEST_F(ModelLoader, NamesTheSceneRoot)
{
    const Model model = loadModel(studioModel());
    EXPECT_TRUE(moOpenSGUtils::getRoot() == model.root.get());
}

TEST_F(ModelLoader, LeavesNothingBehindWhenTheModelGoes)
{
    const std::size_t before = liveContainerCount();
    {
        const Model model = loadModel(studioModel());
        EXPECT_GT(liveContainerCount(), before + 60);
    }
    EXPECT_EQ(liveContainerCount(), before);
    EXPECT_TRUE(moOpenSGUtils::getRoot() == osg::NullFC);
}

TEST_F(ModelLoader, KeepsTranslationRotationAndScaleAsTheFileHasThem)
{
    const Model model = loadModel(files.write("node.gltf", gltf(R"({"name": "a", "children": [1]},
        {"name": "b", "translation": [1, 2, 3], "rotation": [0, 0, 0.70710678, 0.70710678], "scale": [2, 3, 4]})")));
    ASSERT_EQ(model.nodes.size(), 2U);
    const osg::Transform3DPtr t = transform(model.nodes[1]);
    EXPECT_TRUE(t->getTranslation() == osg::Vec3f(1, 2, 3));
    EXPECT_LT((t->getScale() - osg::Vec3f(2, 3, 4)).length(), 1e-5f) << t->getScale();
    EXPECT_TRUE(t->getShear() == osg::Vec3f(0, 0, 0)) << t->getShear();
    EXPECT_LT((t->getEulerRotation() - osg::Vec3f(0, 0, 90)).length(), 1e-3f) << t->getEulerRotation();
}

// Translated, turned, sheared, mirrored, flattened: the transform's matrix must be the one of the file.
TEST_F(ModelLoader, ComposesAnyMatrixOfTheFileAgain)
{
    const std::vector<std::vector<float>> matrices = {
        {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 5, 6, 7, 1},
        {0, 1, 0, 0, -1, 0, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1},
        {1, 0, 0, 0, 0.5f, 1, 0, 0, 0.25f, -0.75f, 1, 0, 0, 0, 0, 1},
        {-1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1},
        {0, 2, 0, 0, 3, 0, 0, 0, 0, 0, 4, 0, 1, 1, 1, 1},
        {0.3f, 0.1f, -0.7f, 0, 2, 1.5f, 0.2f, 0, -0.4f, 0.6f, 0.9f, 0, -3, 2, 8, 1},
        {2, 0, 0, 0, 0, 0, 0, 0, 0, 0, 2, 0, 0, 0, 0, 1},
        {0, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1},
        {0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1, 2, 3, 1},
    };
    for (const std::vector<float>& values : matrices) {
        QByteArray text;
        for (float value : values)
            text += (text.isEmpty() ? "" : ", ") + QByteArray::number(double(value));
        const Model model = loadModel(files.write(
            "node.gltf", gltf(R"({"name": "a", "children": [1]}, {"name": "b", "matrix": [)" + text + "]}")));
        ASSERT_EQ(model.nodes.size(), 2U);
        EXPECT_TRUE(model.nodes[1]->getToWorld().equals(matrixOf(values), 2e-6f))
            << model.nodes[1]->getToWorld() << "instead of\n"
            << matrixOf(values);
    }
}

TEST_F(ModelLoader, ARotationIsTheSameToTheBitAfterItsAnglesOrItsQuaternionWereWrittenAgain)
{
    std::mt19937 random(7);
    std::normal_distribution<double> normal;
    QByteArray nodes = R"({"name": "root", "children": [1)";
    constexpr int count = 300;
    for (int i = 2; i <= count; ++i)
        nodes += ", " + QByteArray::number(i);
    nodes += "]}";
    for (int i = 1; i <= count; ++i) {
        double q[4];
        for (double& component : q)
            component = normal(random);
        const double length = std::sqrt(q[0] * q[0] + q[1] * q[1] + q[2] * q[2] + q[3] * q[3]);
        nodes += R"(, {"rotation": [)";
        for (int c = 0; c < 4; ++c)
            nodes += (c ? ", " : "") + QByteArray::number(q[c] / length, 'g', 9);
        nodes += "]}";
    }
    const Model model = loadModel(files.write("turned.gltf", gltf(nodes)));
    ASSERT_EQ(model.nodes.size(), count + 1U);
    const auto bits = [](const osg::Transform3DPtr& t) {
        std::string euler;
        std::string rotation;
        return t->getSFEulerRotation()->getValueByStr(euler) + " | " + t->getSFRotation()->getValueByStr(rotation);
    };
    for (const osg::NodePtr& node : model.nodes) {
        const osg::Transform3DPtr t = transform(node);
        const std::string loaded = bits(t);
        osg::endEditCP(t, osg::Transform3D::EulerRotationFieldMask);
        EXPECT_EQ(bits(t), loaded) << "angles written";
        osg::endEditCP(t, osg::Transform3D::RotationFieldMask);
        EXPECT_EQ(bits(t), loaded) << "quaternion written";
    }
}

TEST_F(ModelLoader, LoadsObjAndPly)
{
    EXPECT_GE(loadModel(files.write("triangle.obj", objTriangle())).nodes.size(), 1U);
    EXPECT_EQ(loadModel(files.write("triangle.ply", plyTriangle())).nodes.size(), 1U);
}

TEST_F(ModelLoader, SaysInOneLineWhyAFileDoesNotLoad)
{
    const std::vector<std::pair<QString, const char*>> cases = {
        {files.path("missing.gltf"), "no such file"},
        {files.path(""), "not a file"},
        {files.write("empty.gltf", ""), "the file is empty"},
        {files.write("half.gltf", gltf("{}").left(40)), "half.gltf"},
        {files.write("noscene.gltf", R"({"asset": {"version": "2.0"}})"), "noscene.gltf"},
        {files.write("noise.ply", "ply\nformat ascii 1.0\nelement vertex 30\nend_header\n"), "noise.ply"},
        {files.write("headless.ply", "ply\nformat ascii 1.0\nelement vertex 9\n"), "does not come to an end"},
        {files.write("noise.obj", "this is\nnot a model\n"), "noise.obj"},
        {files.write("model.unknown", "whatever"), "model.unknown"},
        {files.write("noise.fbx", QByteArray(300, '\x7f')), "noise.fbx"},
        {files.write("noise.dae", "<COLLADA><library_visual_scenes>"), "noise.dae"},
    };
    for (const auto& [file, reason] : cases) {
        const std::string text = error(file);
        EXPECT_THAT(text, HasSubstr("cannot load '" + file.toStdString() + "': "));
        EXPECT_THAT(text, HasSubstr(reason));
        EXPECT_EQ(text.find('\n'), std::string::npos) << text;
    }
}

} // namespace
