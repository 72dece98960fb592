#include "DockTest.h"

#include <moOpenSGUtils/moLights.h>

#include <scene/Prepare.h>

#include <QtWidgets/QColorDialog>

namespace {

class LightDockTest : public DockTest
{
protected:
    osg::NodePtr referenceOf(const char* name)
    {
        return osg::UberLightPtr::dcast(anyNode(name)->getCore())->getVisibilityReference();
    }
};

TEST_F(LightDockTest, EachPropertyIsOneStepThatTheDockFollows)
{
    script("select \"Area Light\"");
    EXPECT_EQ(seen("light-name"), "Area Light (Area)");
    expectOneStepEach({
        {"click light-on", "light-on", "moLightEnableUndoCommand"},
        {"click light-visible", "light-visible", "moLightVisibleUndoCommand"},
        {"set light-diffuse-r 0.25", "light-diffuse-r", "moLightDiffuseUndoCommand"},
        {"set light-glossy-b 0.75", "light-glossy-b", "moLightGlossyUndoCommand"},
        {"set light-intensity 12.5", "light-intensity", "moLightIntensityUndoCommand"},
        {"set light-cone 30", "light-cone", "moLightConeAngleUndoCommand"},
        {"set light-penumbra 12", "light-penumbra", "moLightPenumbraAngleUndoCommand"},
        {"set light-attenuation Quadratic", "light-attenuation", "moLightAttenuationUndoCommand"},
        {"click light-profile", "light-name", "moSetLightProfileShapeCommand"},
    });
    EXPECT_EQ(moLights::getDiffuse(anyNode("Area Light")), osg::Vec3f(0.25F, 1.F, 1.F));
    EXPECT_EQ(moLights::getLightTypeName(anyNode("Area Light")), "Profile");
}

TEST_F(LightDockTest, AllSelectedLightsAreEditedInOneStepAndADragOfThemIsOneStep)
{
    script("select Sun \"Fill Light\" Table");
    EXPECT_EQ(seen("light-name"), "Fill Light (Point) and 1 more");
    const QByteArray before = digest();
    script("set light-intensity 20\nset light-intensity 21\nset light-intensity 22");
    EXPECT_EQ(stack.size(), 1);
    EXPECT_EQ(classesOf(*stack.command(0)), "moMultiCommand(moLightIntensityUndoCommand, moLightIntensityUndoCommand)");
    EXPECT_EQ(moLights::getLightValue(anyNode("Sun")), 22.F);
    EXPECT_EQ(moLights::getLightValue(anyNode("Fill Light")), 22.F);
    stack.undo();
    EXPECT_EQ(digest(), before);
}

TEST_F(LightDockTest, StepsOfTheArrowsAreOneStep)
{
    script("select Sun");
    const QByteArray before = digest();
    for (const char* value : {"0.9", "0.8", "0.7"})
        script(qPrintable(QStringLiteral("set light-diffuse-g ") + value));
    EXPECT_EQ(stack.size(), 1);
    stack.undo();
    EXPECT_EQ(digest(), before);
}

TEST_F(LightDockTest, ColoursThatAreTriedInTheDialogAreOneStep)
{
    script("select Sun\nclick light-diffuse-pick");
    auto* const dialog = window->findChild<QColorDialog*>();
    ASSERT_NE(dialog, nullptr);
    dialog->setCurrentColor(Qt::red);
    dialog->setCurrentColor(Qt::blue);
    EXPECT_EQ(moLights::getDiffuse(anyNode("Sun")), osg::Vec3f(0.F, 0.F, 1.F));
    EXPECT_EQ(stack.size(), 1);
    delete dialog;
}

TEST_F(LightDockTest, TheVisibilityReferenceIsTheOtherSelectedNode)
{
    const char* shown = "light-reference";
    script("select Plate \"Area Light\"");
    expectOneStep({"click light-set-reference", shown, "moMultiCommand(moAddNodeAsVisibilityReferenceUndoCommand)"});
    EXPECT_EQ(seen(shown), "Plate");
    EXPECT_FALSE(widget("light-set-reference").isEnabled()) << "it is the reference already";
    script("select Table \"Area Light\"");
    expectOneStep({"click light-set-reference", shown,
                   "moMultiCommand(moAddNodeAsVisibilityReferenceUndoCommand, "
                   "moAddNodeAsVisibilityReferenceUndoCommand)"});
    expectOneStep({"click light-clear-reference", shown, "moMultiCommand(moAddNodeAsVisibilityReferenceUndoCommand)"});
    EXPECT_FALSE(widget("light-clear-reference").isEnabled());
    undoAll();
    EXPECT_EQ(referenceOf("Area Light"), osg::NodePtr(osg::NullFC));
}

TEST_F(LightDockTest, ALightCannotReferToItselfOrToANodeAbove)
{
    for (const char* nodes : {"select Studio \"Area Light\"", "select \"Area Light\"", "select \"Lamp Head\" Bulb",
                              "select Sun \"Area Light\""}) {
        script(nodes);
        EXPECT_FALSE(widget("light-set-reference").isEnabled()) << nodes;
    }
}

TEST_F(LightDockTest, WithoutALightNothingCanBeEdited)
{
    for (const char* nodes : {"select", "select Table"}) {
        script(nodes);
        EXPECT_EQ(seen("light-name"), "No light is selected");
        for (const char* name :
             {"light-on", "light-visible", "light-diffuse", "light-glossy", "light-intensity", "light-cone",
              "light-penumbra", "light-attenuation", "light-profile", "light-set-reference", "light-clear-reference"})
            EXPECT_FALSE(widget(name).isEnabled()) << name;
    }
}

TEST_F(LightDockTest, NothingIsRecordedWhileRecordingIsOff)
{
    script("select Sun \"Fill Light\" Plate\ntrigger record\nset light-cone 77\nclick light-set-reference");
    EXPECT_EQ(moLights::getConeAngle(anyNode("Sun")), 77.F);
    EXPECT_EQ(referenceOf("Fill Light"), anyNode("Plate"));
    EXPECT_EQ(stack.size(), 0);
}

// --- Lens flare ------------------------------------------------------------------------------------------------------

TEST_F(LightDockTest, EachSettingOfALensFlareIsOneStep)
{
    script("select \"Area Light\"");
    expectOneStepEach({
        {"click flare-active", "flare-active", "moLightsFunctionUndoCommand<bool>"},
        {"set flare-type Anamorphic", "flare-type", "moFieldUndoCommand<int>"},
        {"click flare-use-light", "flare-use-light", "moSetLensFlareEffectCommand"},
        {"set flare-color-g 0.5", "flare-color-g", "ColorFieldCommand"},
        {"set flare-intensity 2", "flare-intensity", "moFieldUndoCommand<float>"},
        {"set flare-size 3", "flare-size", "moFieldUndoCommand<float>"},
        {"set flare-angular 0.5", "flare-angular", "moFieldUndoCommand<float>"},
        {"click flare-anamorphic", "flare-parts", "moSetLensFlareEffectCommand"},
        {"click flare-round", "flare-size", "moSetLensFlareEffectCommand"},
        {"click flare-present", "flare-present", "moGenericFunctionUndoCommand"},
        {"click flare-present", "flare-present", "moGenericFunctionUndoCommand"},
    });
}

TEST_F(LightDockTest, PartsOfALensFlareAreAddedEditedAndRemoved)
{
    const char* parts = "flare-parts";
    script("select \"Area Light\"");
    expectOneStepEach({
        {"click flare-add-glow", parts, "moAddLensFlareElementCommand"},
        {"click part-active", "part-active", "moBoolFieldUndoCommand"},
        {"set part-color-b 0.25", "part-color-b", "ColorFieldCommand"},
        {"set part-intensity 0.5", "part-intensity", "moFieldUndoCommand<float>"},
        {"set part-size 2", "part-size", "moFieldUndoCommand<float>"},
        {"click flare-add-line", parts, "moAddLensFlareElementCommand"},
        {"set part-angle 30", "part-angle", "moFieldUndoCommand<float>"},
        {"click flare-add-ghost", parts, "moAddGhostCommand"},
        {"set part-position 1.5", "part-position", "moFieldUndoCommand<float>"},
        {"click flare-add-ghost", parts, "moAddGhostCommand"},
    });
    EXPECT_EQ(seen(parts), "1: Glow\n2: Line of Ghosts\nGhost 1\nGhost 2\n");
    script("set flare-parts \"Ghost 1\"");
    EXPECT_EQ(seen("part-position"), "1.500");
    expectOneStep({"click flare-remove", parts, "moMultiCommand(moRemoveGhostCommand)"});
    script("set flare-parts \"1: Glow\"");
    auto& list = widget<QTreeWidget>(parts);
    list.topLevelItem(1)->child(0)->setSelected(true);
    expectOneStep({"click flare-remove", parts,
                   "moMultiCommand(moRemoveGhostCommand, "
                   "moRemoveLensFlareElementCommand)"});
    list.selectAll();
    expectOneStep({"click flare-remove", parts, "moMultiCommand(moRemoveLensFlareElementCommand)"});
    EXPECT_EQ(seen(parts), "");
}

TEST_F(LightDockTest, TheListOfPartsFollowsTheSelectedLight)
{
    script("select \"Area Light\"\nclick flare-add-glow\nselect Sun");
    EXPECT_EQ(seen("flare-parts"), "");
    EXPECT_FALSE(widget("flare-add-glow").isEnabled()) << "the sun has no lens flare";
    EXPECT_FALSE(widget("flare-remove").isEnabled());
    EXPECT_FALSE(widget("part-size").isEnabled());
    EXPECT_TRUE(widget("flare-present").isEnabled());
    script("click flare-present\nclick flare-add-line\nselect \"Area Light\"");
    EXPECT_EQ(seen("flare-parts"), "1: Glow\n");
    script("select");
    EXPECT_FALSE(widget("flare-present").isEnabled());
}

// --- Light links -----------------------------------------------------------------------------------------------------

TEST_F(LightDockTest, LinksAreAddedAndRemovedInOneStep)
{
    script("select Plate Sun Table \"Fill Light\"");
    const char* add = "moMultiCommand(moAddNodeToLightLinkSetUndoCommand)";
    expectOneStepEach({
        {"click links-lights-add", "links-lights", add},
        {"click links-nodes-add", "links-nodes", add},
        {"click links-enabled", "links-enabled", "moBoolFieldUndoCommand"},
    });
    EXPECT_EQ(seen("links-lights"), "Sun\nFill Light\n");
    EXPECT_EQ(seen("links-nodes"), "Plate\nSun\nTable\nFill Light\n");
    EXPECT_FALSE(widget("links-nodes-add").isEnabled()) << "all are listed";
    // Selected from the last to the first: removed and put back in the order of the list.
    auto& nodes = widget<QListWidget>("links-nodes");
    for (const int row : {3, 1})
        nodes.item(row)->setSelected(true);
    expectOneStep({"click links-nodes-remove", "links-nodes", add});
    EXPECT_EQ(seen("links-nodes"), "Plate\nTable\n");
    stack.undo();
    EXPECT_EQ(seen("links-nodes"), "Plate\nSun\nTable\nFill Light\n");
}

TEST_F(LightDockTest, ASetDoesNotListItsOwnNodeOrOneAbove)
{
    script("select Studio \"Light Links\"");
    EXPECT_FALSE(widget("links-lights-add").isEnabled());
    EXPECT_FALSE(widget("links-nodes-add").isEnabled());
}

TEST_F(LightDockTest, NamesInTheListsOfLinksFollowTheNodes)
{
    script("select Plate\nclick links-nodes-add");
    renameNode(session(), node("Plate"), "Dish");
    EXPECT_EQ(seen("links-nodes"), "Dish\n");
    stack.undo();
    EXPECT_EQ(seen("links-nodes"), "Plate\n");
}

TEST_F(LightDockTest, AnotherSceneEmptiesTheDocks)
{
    script("select Plate \"Area Light\"\nclick links-nodes-add\nclick flare-add-glow\nclick light-set-reference");
    session().load(STUDIO_MODEL);
    EXPECT_EQ(seen("links-nodes"), "");
    EXPECT_EQ(seen("flare-parts"), "");
    EXPECT_EQ(seen("light-name"), "No light is selected");
}

} // namespace
