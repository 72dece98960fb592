#include "EditorTest.h"

#include <scene/ModelWriter.h>

#include <moOpenSGUberMaterial/OSGUberMaterial.h>
#include <moOpenSGUtils/moLights.h>
#include <moOpenSGUtils/moNodeUtils.h>

#include <moUndoStack/moUndoCommands.h>

#include <QtCore/QFile>

#include <cmath>

namespace {

class ModelWriterTest : public EditorTest
{
protected:
    Model saved()
    {
        const QString fileName = folder.filePath("saved.gltf");
        writeModel(session().model(), fileName);
        return loadModel(fileName, Geometry::Read);
    }
    static osg::NodePtr find(const Model& model, const char* name)
    {
        for (const osg::NodePtr& each : model.nodes)
            if (nameOf(each) == name) return each;
        return osg::NullFC;
    }
};

TEST_F(ModelWriterTest, ASavedSceneHasTheNodesWhereTheyWere)
{
    script("select Table\ndrag x 60 10\nselect \"Lower Arm\"\ntrigger toolRotate\ndrag y 30 30");
    const Model model = saved();
    for (const osg::NodePtr& each : session().model().nodes) {
        const osg::NodePtr same = find(model, nameOf(each).toUtf8());
        ASSERT_NE(same, osg::NodePtr(osg::NullFC)) << nameOf(each).toStdString();
        EXPECT_TRUE(same->getToWorld().equals(each->getToWorld(), 1e-4f)) << nameOf(each).toStdString();
    }
    EXPECT_EQ(model.meshes.size(), session().model().meshes.size());
}

TEST_F(ModelWriterTest, ASavedSceneHasTheNewNames)
{
    renameNode(session(), node("Table"), "Arbeitstisch für zwei");
    const Model model = saved();
    EXPECT_NE(find(model, "Arbeitstisch für zwei"), osg::NodePtr(osg::NullFC));
    EXPECT_EQ(find(model, "Table"), osg::NodePtr(osg::NullFC));
}

TEST_F(ModelWriterTest, ASavedSceneHasTheLightsAsEdited)
{
    const osg::NodePtr bulb = node("Bulb");
    session().apply(new moLightIntensityUndoCommand(bulb, 12.f, nullptr));
    session().apply(new moLightConeAngleUndoCommand(bulb, 40.f, nullptr));
    session().apply(new moLightDiffuseUndoCommand(bulb, osg::Vec3f(1.f, 0.5f, 0.25f), nullptr));
    const Model model = saved();
    ASSERT_EQ(model.lights.size(), session().model().lights.size() + 1) << "and the stand-in of the area light";
    const auto light = std::find_if(model.lights.begin(), model.lights.end(),
                                    [](const LoadedLight& each) { return nameOf(each.node) == "Bulb"; });
    ASSERT_NE(light, model.lights.end());
    EXPECT_EQ(light->kind, LoadedLight::Kind::Spot);
    EXPECT_NEAR(light->color[0], 12.f, 1e-3f);
    EXPECT_NEAR(light->color[1], 6.f, 1e-3f);
    EXPECT_NEAR(light->outerConeAngle, 40.f, 1e-2f);
}

TEST_F(ModelWriterTest, ASavedSceneHasTheMaterialsAsEdited)
{
    osg::UberMaterialPtr oak;
    for (const osg::FieldContainerRefPtr& container : session().model().containers) {
        const auto material = osg::UberMaterialPtr::dcast(container.get());
        if (material && material->getColorComponents(0)->getLabel() == "Oak") oak = material;
    }
    ASSERT_NE(oak, osg::UberMaterialPtr(osg::NullFC));
    const osg::ColorComponentSettingsPtr settings = oak->getColorComponents(0);
    auto* const red = new moFieldUndoCommand<float>(moUndoString("Red", "Red"), settings, "red", 0.125f, nullptr);
    session().apply(new moMaterialUndoCommand(moUndoString("Red", "Red"), red, oak, settings, nullptr));
    const Model model = saved();
    const auto material = std::find_if(model.materials.begin(), model.materials.end(),
                                       [](const LoadedMaterial& each) { return each.name == "Oak"; });
    ASSERT_NE(material, model.materials.end());
    EXPECT_NEAR(material->baseColor[0], 0.125f, 1e-5f);
    EXPECT_NEAR(material->baseColor[1], 0.42f, 1e-5f);
    EXPECT_EQ(material->nodes.size(), 1U);
}

TEST_F(ModelWriterTest, ASceneSavedTwiceIsTheSame)
{
    const Model once = saved();
    writeModel(once, folder.filePath("twice.gltf"));
    const Model twice = loadModel(folder.filePath("twice.gltf"), Geometry::Read);
    ASSERT_EQ(twice.nodes.size(), once.nodes.size());
    for (std::size_t i = 0; i < once.nodes.size(); ++i) {
        EXPECT_EQ(nameOf(twice.nodes[i]), nameOf(once.nodes[i]));
        EXPECT_TRUE(twice.nodes[i]->getToWorld().equals(once.nodes[i]->getToWorld(), 1e-4f));
    }
}

TEST_F(ModelWriterTest, ASceneWithoutMeshesIsSaved)
{
    QFile file(folder.filePath("bare.gltf"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(R"({"asset": {"version": "2.0"}, "scene": 0, "scenes": [{"nodes": [0]}],
                   "nodes": [{"name": "a", "children": [1, 2]}, {"name": "b", "translation": [1, 2, 3]}, {"name": "b"}]})");
    file.close();
    session().load(file.fileName());
    const Model model = saved();
    EXPECT_TRUE(moNodeUtils::getTransformNodeTranslation(find(model, "b"), false, -1) == osg::Vec3f(1, 2, 3));
}

TEST_F(ModelWriterTest, WhatIsNotFiniteMovesNothingInTheSavedScene)
{
    session().apply(
        new moTranslationUndoCommand(node("Table"), osg::Vec3f(std::nanf(""), 0.f, 0.f), false, nullptr, {}, -1));
    const Model model = saved();
    EXPECT_TRUE(find(model, "Table")->getToWorld().equals(osg::Matrix(), 1e-4f));
}

TEST_F(ModelWriterTest, WhatCannotBeWrittenIsSaidInOneLine)
{
    try {
        writeModel(session().model(), folder.filePath("no/such/folder/saved.gltf"));
        FAIL() << "it was written";
    } catch (const ModelError& error) {
        EXPECT_THAT(error.what(), testing::HasSubstr("cannot write '"));
    }
}

} // namespace
