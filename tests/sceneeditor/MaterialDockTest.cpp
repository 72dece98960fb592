#include "DockTest.h"

#include <moOpenSGUberMaterial/OSGUBRDFMaterial.h>
#include <moOpenSGUberMaterial/OSGUberMaterial.h>

#include <QtWidgets/QColorDialog>

namespace {

class MaterialDockTest : public DockTest
{
protected:
    /// What the renderer reads of the material with that label.
    std::vector<float> rendered(const std::string& label)
    {
        for (const osg::FieldContainerRefPtr& each : session().model().containers) {
            const auto material = osg::UberMaterialPtr::dcast(each.get());
            if (!material || material->getColorComponents(0)->getLabel() != label) continue;
            const auto& data = *material->getMFColorComponentData();
            return {data.begin(), data.end()};
        }
        return {};
    }
};

TEST_F(MaterialDockTest, EachFieldOfAComponentIsOneStepThatTheDockFollows)
{
    script("set material Oak");
    expectOneStepEach({
        {"set material-color-r 0.875", "material-color-r", "moMaterialUndoCommand"},
        {"set material-intensity 0.5", "material-intensity", "moMaterialUndoCommand"},
        {"click material-planar", "material-planar", "moMaterialUndoCommand"},
        {"set material-blend 3", "material-blend", "moMaterialUndoCommand"},
        {"set material-unit 2", "material-unit", "moMaterialUndoCommand"},
        {"click material-enabled", "material-enabled", "moMaterialUndoCommand"},
        {"set material-label \"Dark Oak\"", "material", "moColorComponentUndoCommand"},
        {"set material-textures \"a.png; b.png\"", "material-textures", "moColorComponentUndoCommand"},
    });
    EXPECT_EQ(seen("material"), "Dark Oak");
    EXPECT_EQ(seen("material-textures"), "a.png; b.png");
}

TEST_F(MaterialDockTest, TheRendererSeesEachEditAndItsUndo)
{
    script("set material Oak");
    const std::vector<float> before = rendered("Oak");
    script("set material-color-r 0.5");
    ASSERT_FALSE(rendered("Oak").empty());
    EXPECT_EQ(rendered("Oak").at(0), 0.5F);
    script("set material-intensity 0.5");
    EXPECT_EQ(rendered("Oak").at(0), 0.25F);
    undoAll();
    EXPECT_EQ(rendered("Oak").at(0), before.empty() ? 0.6F : before.at(0));
}

TEST_F(MaterialDockTest, ColoursOfTheDialogAreOneStep)
{
    script("set material Oak\nclick material-color-pick");
    auto* const dialog = window->findChild<QColorDialog*>();
    ASSERT_NE(dialog, nullptr);
    const QByteArray before = digest();
    dialog->setCurrentColor(QColor(10, 20, 30));
    dialog->setCurrentColor(QColor(40, 50, 60));
    const std::string floats = "moFieldUndoCommand<float>";
    EXPECT_EQ(stack.size(), 1);
    EXPECT_EQ(classesOf(*stack.command(0)),
              "moMaterialMultiUndoCommand(" + floats + ", " + floats + ", " + floats + ")");
    stack.undo();
    EXPECT_EQ(digest(), before);
    delete dialog;
}

TEST_F(MaterialDockTest, TheSelectionChoosesTheMaterial)
{
    script("set material Sky\nselect \"Table Top\"");
    EXPECT_EQ(seen("material"), "Oak");
    script("select Floor");
    EXPECT_EQ(seen("material"), "Concrete");
    script("select Sun");
    EXPECT_EQ(seen("material"), "Concrete") << "a light has no material: the one shown stays";
}

TEST_F(MaterialDockTest, TheMaterialsOfAllSelectedNodesArePaintedInOneStep)
{
    script("select Floor \"Table Top\" Plate\nset material Sky\nset material-color-r 0.125");
    const std::string before = seen("material-color-r");
    clock.advance(10.);
    const int steps = stack.size();
    const QByteArray unpainted = digest();
    script("click material-paint-selected");
    ASSERT_EQ(stack.size(), steps + 1);
    EXPECT_EQ(stack.command(steps)->childCount(), 3);
    script("set material Concrete");
    EXPECT_EQ(seen("material-color-r"), before);
    script("set material Oak");
    EXPECT_EQ(seen("material-color-r"), before);
    stack.undo();
    EXPECT_EQ(digest(), unpainted);
}

TEST_F(MaterialDockTest, TheEnvironmentOfAMeasuredMaterialIsChosen)
{
    script("set material Measured");
    expectOneStepEach({
        {"set material-environment Studio", "material-environment", "moSetEnvironmentUndoCommand"},
        {"set material-environment Sky", "material-environment", "moSetEnvironmentUndoCommand"},
        {"set material-environment None", "material-environment", "moSetEnvironmentUndoCommand"},
    });
    EXPECT_LT(widget<QComboBox>("material-environment").findText("Measured"), 0) << "it cannot light itself";
}

TEST_F(MaterialDockTest, OnlyWhatTheMaterialHasIsEnabled)
{
    const auto enabled = [this] {
        std::string names;
        for (const char* name : {"component", "enabled", "color", "intensity", "blend", "unit", "planar", "label",
                                 "textures", "environment"})
            if (widget(("material-" + std::string(name)).c_str()).isEnabled()) names += name + std::string(" ");
        return names;
    };
    script("set material Oak");
    EXPECT_EQ(enabled(), "component enabled color intensity blend unit planar label textures ");
    script("set material Measured");
    EXPECT_EQ(enabled(), "environment ");
}

TEST_F(MaterialDockTest, LabelsOfTwoMaterialsAreTwoSteps)
{
    const QByteArray before = digest();
    script("set material Studio\nset material-label a\nset material Sky\nset material-label b");
    EXPECT_EQ(stack.size(), 2);
    undoAll();
    EXPECT_EQ(digest(), before);
}

} // namespace
