#include "MaterialTest.h"

#include <moUndoStack/core/moMultiCommand.h>
#include <moUndoStack/field/moUndoUtil.h>
#include <moUndoStack/material/moMaterialMultiUndoCommand.h>

#include <support/ProbeCommand.h>

#include <functional>
#include <stdexcept>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class MaterialMulti : public MaterialTest
{
protected:
    moMaterialMultiUndoCommand* create() { return new moMaterialMultiUndoCommand(text, material, settings); }

    /// With red and green as children, which merge however long ago the older was made.
    moMaterialMultiUndoCommand* create(float red, float green)
    {
        auto* const multi = create();
        setRed(red, multi)->setMergeResponseDelta(-1);
        (new moFieldUndoCommand<float>(text, settings, "green", green, multi))->setMergeResponseDelta(-1);
        return multi;
    }
};

TEST_F(MaterialMulti, NotificationsFollowOnceAfterAllChildren)
{
    stack.add(create(0.5f, 0.25f));
    EXPECT_THAT(rendered(), ElementsAre(0.5f, 0.25f, 1, 0));
    EXPECT_THAT(edits.take(), ElementsAre("settings red 1", "settings green 1", "settings planarProjection 1",
                                          "material colorComponentData 1"));
    stack.undo();
    EXPECT_THAT(rendered(), ElementsAre(1, 1, 1, 0));
    EXPECT_THAT(edits.take(), ElementsAre("settings green 1", "settings red 1", "settings planarProjection 1",
                                          "material colorComponentData 1"));
}

TEST_F(MaterialMulti, FactoryMakesItsChildren)
{
    auto* const multi = create();
    moUndoUtil::makeCommand(text, settings, "red", 0.5f, multi);
    moUndoUtil::makeCommand(text, settings, "planarProjection", true, multi);
    EXPECT_EQ(multi->childCount(), 2);
    stack.add(multi);
    EXPECT_THAT(rendered(), ElementsAre(0.5f, 1, 1, 1));
    stack.undo();
    EXPECT_THAT(rendered(), ElementsAre(1, 1, 1, 0));
}

TEST_F(MaterialMulti, NotificationsAreSentThoughThereAreNoChildren)
{
    const std::unique_ptr<moMaterialMultiUndoCommand> multi(create());
    multi->redo();
    EXPECT_THAT(edits.take(), ElementsAre("settings planarProjection 1", "material colorComponentData 1"));
    multi->undo();
    EXPECT_THAT(edits.take(), ElementsAre("settings planarProjection 1", "material colorComponentData 1"));
}

TEST_F(MaterialMulti, ContainersThatAreNullOrWereDestroyedArePassedOver)
{
    moMaterialMultiUndoCommand none(text, osg::NullFC, osg::NullFC);
    none.redo();
    none.undo();
    EXPECT_THAT(edits.take(), IsEmpty());

    const std::unique_ptr<moMaterialMultiUndoCommand> multi(create());
    destroySettings();
    multi->redo();
    EXPECT_THAT(edits.take(), ElementsAre("material colorComponentData 1"));
    destroy(material);
    multi->undo();
    EXPECT_THAT(edits.take(), IsEmpty());
}

TEST_F(MaterialMulti, MergesHoweverLongAgoTheOlderWasMade)
{
    stack.add(create(0.5f, 0.25f));
    clock.advance(3600);
    stack.add(create(0.75f, 0.125f));
    EXPECT_EQ(stack.size(), 1);
    stack.undo();
    EXPECT_THAT(rendered(), ElementsAre(1, 1, 1, 0));
    stack.redo();
    EXPECT_THAT(rendered(), ElementsAre(0.75f, 0.125f, 1, 0));
}

TEST_F(MaterialMulti, ChildrenStillLookAtTheirMergeInterval)
{
    const auto ofRed = [this](float red) {
        auto* const multi = create();
        setRed(red, multi);
        return multi;
    };
    stack.add(ofRed(0.5f));
    clock.advance(0.375);
    stack.add(ofRed(0.25f));
    EXPECT_EQ(stack.size(), 1);
    clock.advance(0.5);
    stack.add(ofRed(0.125f));
    EXPECT_EQ(stack.size(), 2);
}

TEST_F(MaterialMulti, MergedStepTakesTheNewerText)
{
    stack.add(create());
    stack.add(new moMaterialMultiUndoCommand(moUndoString("Later", QString()), material, settings));
    EXPECT_EQ(stack.size(), 1);
    EXPECT_EQ(stack.currentCommand()->text(), "Later");
}

TEST_F(MaterialMulti, OtherMaterialOrSettingsOrClassDoNotMerge)
{
    const std::unique_ptr<moMaterialMultiUndoCommand> multi(create());
    const moMaterialMultiUndoCommand same(text, material, settings);
    const moMaterialMultiUndoCommand ofMaterial(text, otherMaterial, settings);
    const moMaterialMultiUndoCommand ofSettings(text, material, otherSettings);
    const moMaterialMultiUndoCommand swapped(text, settings, material);
    const moMultiCommand plain(text);
    EXPECT_FALSE(multi->mergeWith(&ofMaterial));
    EXPECT_FALSE(multi->mergeWith(&ofSettings));
    EXPECT_FALSE(multi->mergeWith(&swapped));
    EXPECT_FALSE(multi->mergeWith(&plain));
    EXPECT_FALSE(multi->mergeWith(nullptr));
    EXPECT_FALSE(moMultiCommand(text).mergeWith(multi.get()));
    EXPECT_TRUE(multi->mergeWith(&same));
}

TEST_F(MaterialMulti, CanMergeWithIsTheCompositesAndDoesNotLookAtTheContainers)
{
    const std::unique_ptr<moMaterialMultiUndoCommand> multi(create());
    const moMaterialMultiUndoCommand other(text, otherMaterial, otherSettings);
    EXPECT_TRUE(multi->canMergeWith(&other));
}

TEST_F(MaterialMulti, OlderOneThatIsSetNotToMergeStaysAlone)
{
    auto* const first = create();
    first->setMergeEnabled(false);
    EXPECT_FALSE(first->isMergeEnabled());
    stack.add(first);
    stack.add(create());
    EXPECT_EQ(stack.size(), 2);
}

TEST_F(MaterialMulti, DescribesItselfAsItsFirstChildAndThenItsContainers)
{
    const std::unique_ptr<moMaterialMultiUndoCommand> multi(create(0.5f, 0.25f));
    EXPECT_EQ(messageOf(*multi), "id=int:" + std::to_string(moFieldUndoCommand<float>::commandId()) +
                                     key("container", id(settings)) +
                                     key("fieldId", osg::ColorComponentSettings::RedFieldId) +
                                     key("material", id(material)) + key("componentSettings", id(settings)));

    const moMaterialMultiUndoCommand ofSettings(text, osg::NullFC, settings);
    EXPECT_EQ(' ' + messageOf(ofSettings), key("componentSettings", id(settings)));
    const moMaterialMultiUndoCommand ofNothing(text, osg::NullFC, osg::NullFC);
    EXPECT_EQ(messageOf(ofNothing), "");
}

TEST_F(MaterialMulti, IsAChildOfTheCompositeBeingComposed)
{
    stack.beginMultiCommand("Colours", QString(), true);
    stack.addOrExecute(create(0.5f, 0.25f));
    stack.endMultiCommand();
    EXPECT_EQ(stack.size(), 1);
    EXPECT_THAT(rendered(), ElementsAre(0.5f, 0.25f, 1, 0));
    stack.undo();
    EXPECT_THAT(rendered(), ElementsAre(1, 1, 1, 0));
}

TEST_F(MaterialMulti, IsComposedBesideOtherCommandsByGivingItToItsChildrenAsTheirParent)
{
    Trace trace(stack);
    stack.beginMultiCommand("Look", "changes the look", true);
    auto* const colours = new moMaterialMultiUndoCommand(text, material, settings);
    new moFieldUndoCommand<float>(text, settings, "red", 0.5f, colours);
    moUndoUtil::makeCommand(text, settings, "green", 0.25f, colours);
    stack.addOrExecute(colours);
    moUndoUtil::makeCommand(text, settings, "blue", 0.125f);
    stack.endMultiCommand();

    EXPECT_EQ(stack.size(), 1);
    EXPECT_THAT(edits.take(), ElementsAre("settings red 1", "settings green 1", "settings planarProjection 1",
                                          "material colorComponentData 1", "settings blue 1"));
    EXPECT_THAT(trace.takeMessages(), ElementsAre("moURManager::redo index=int:0 added=bool:true text=string:\"Look\" "
                                                  "description=string:\"changes the look\""))
        << "a composite as first child adds nothing";
    stack.undo();
    EXPECT_THAT(edits.take(), ElementsAre("settings blue 1", "settings green 1", "settings red 1",
                                          "settings planarProjection 1", "material colorComponentData 1"));
    EXPECT_THAT(rendered(), ElementsAre(1, 1, 1, 0));
}

TEST_F(MaterialMulti, ChildrenWithoutAParentBelongToTheCompositionAndNotToIt)
{
    stack.beginMultiCommand("Look", "", true);
    auto* const colours = create();
    stack.addOrExecute(setRed(0.5f));
    stack.addOrExecute(colours);
    EXPECT_EQ(colours->childCount(), 0);
    stack.endMultiCommand();
    EXPECT_THAT(edits.take(),
                ElementsAre("settings planarProjection 1", "material colorComponentData 1", "settings red 1"))
        << "the material tells of its colours before they change";
}

TEST_F(MaterialMulti, NotificationsFollowThoughNotifyFunctionsAndListenersThrow)
{
    std::function<void()> listener = [this, &listener] {
        edits.onChange(listener);
        throw std::runtime_error("listener");
    };
    const auto fill = [this](moMaterialMultiUndoCommand* multi) {
        setRed(0.5f, multi)->setNotifyFunction([] { throw std::runtime_error("notify"); });
        return multi;
    };
    const auto steps = [this](const auto& step) {
        EXPECT_THROW(step(), std::runtime_error);
        EXPECT_THAT(edits.take(),
                    ElementsAre("settings red 1", "settings planarProjection 1", "material colorComponentData 1"));
        EXPECT_EQ(log.take().size(), 3U);
    };
    edits.onChange(listener);
    steps([&] { stack.add(fill(create())); });
    EXPECT_THAT(rendered(), ElementsAre(0.5f, 1, 1, 0));
    steps([&] { stack.undo(); });
    EXPECT_THAT(rendered(), ElementsAre(1, 1, 1, 0));
    steps([&] { stack.redo(); });
    EXPECT_EQ(stack.size(), 1);
    steps([&] { stack.undo(); });

    const std::unique_ptr<moMaterialMultiUndoCommand> byHand(fill(create()));
    steps([&] { byHand->redo(); });
    steps([&] { byHand->undo(); });
    EXPECT_THAT(rendered(), ElementsAre(1, 1, 1, 0));
    edits.onChange({});
}

TEST_F(MaterialMulti, NothingIsToldWhenAChildsStepDoesNotHappen)
{
    auto* const multi = create();
    setRed(0.5f, multi);
    (new ProbeCommand("failing", multi))->onRedo([] { throw std::runtime_error("write"); });
    EXPECT_THROW(stack.add(multi), std::runtime_error);
    EXPECT_THAT(edits.take(), ElementsAre("settings red 1", "settings red 1")) << "done and taken back";
    EXPECT_THAT(rendered(), ElementsAre(1, 1, 1, 0));
    EXPECT_TRUE(stack.isEmpty());
}

TEST_F(MaterialMulti, HoldsNoContainer)
{
    stack.add(create(0.5f, 0.25f));
    EXPECT_EQ(material.getRefCount(), 1);
    EXPECT_EQ(settings.getRefCount(), 2);
}

} // namespace
