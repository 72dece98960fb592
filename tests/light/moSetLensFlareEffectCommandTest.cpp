#include <support/Ground.h>

#include <light/LightTest.h>

#include <moUndoStack/light/moSetLensFlareEffectCommand.h>

#include <OpenSG/OSGFieldContainerFactory.h>

#include <algorithm>

namespace {

class SetLensFlareEffect : public LightTest
{
protected:
    using Element = osg::LensFlareElement;
    using Effect = osg::LensFlareEffect;

    void SetUp() override
    {
        LightTest::SetUp();
        source = keep(Effect::create());
        source->setIsActive(false);
        source->setColor(osg::Color3f(.25f, .5f, .75f));
        source->setIntensity(2.f);
        source->setSize(3.f);
        source->setAngularIntensity(4.f);
        source->setUseLightProperties(true);
        source->setLensFlareType(Effect::AnamorphicFlare);
        source->addElement(Element::create());
        source->addElement(osg::LensFlareGhostLine::create());
        target = keep(Effect::create());
        target->addElement(Element::create());
    }

    std::string sourceElements() const
    {
        const auto ids = idsOf(*source->getMFElements());
        return "elements " + std::to_string(ids[0]) + ' ' + std::to_string(ids[1]);
    }

    osg::LensFlareEffectPtr source, target;
};

TEST_F(SetLensFlareEffect, RedoGivesTheTargetAllSettingsOfTheSourceAndUndoItsOwnBack)
{
    const std::string before = describeEffect(target);
    const std::string wanted = describeEffect(source);
    EXPECT_EQ(wanted, "inactive color 0.25 0.5 0.75 intensity 2 size 3 type 1 angular 4 of light " + sourceElements());
    stack.addOrExecute(new moSetLensFlareEffectCommand(source, target, nullptr));
    for (int round = 0; round < 3; ++round) {
        EXPECT_EQ(describeEffect(target), wanted);
        EXPECT_EQ(describeEffect(source), wanted);
        stack.undo();
        EXPECT_EQ(describeEffect(target), before);
        EXPECT_EQ(describeEffect(source), wanted);
        stack.redo();
    }
}

TEST_F(SetLensFlareEffect, TheTypeIsCopiedAgainAfterUseOfLightPropertiesHasResetIt)
{
    stack.addOrExecute(new moSetLensFlareEffectCommand(source, target, nullptr));
    EXPECT_TRUE(target->getUseLightProperties());
    EXPECT_EQ(target->getLensFlareType(), Effect::AnamorphicFlare);
}

TEST_F(SetLensFlareEffect, TheBackupIsTakenAtConstruction)
{
    auto* command = new moSetLensFlareEffectCommand(source, target, nullptr);
    const std::string before = describeEffect(target);
    target->setSize(77.f);
    stack.addOrExecute(command);
    stack.undo();
    EXPECT_EQ(describeEffect(target), before);
}

TEST_F(SetLensFlareEffect, RedoAppliesTheSourceAsItIsThen)
{
    auto* command = new moSetLensFlareEffectCommand(source, target, nullptr);
    source->setSize(77.f);
    stack.addOrExecute(command);
    EXPECT_EQ(target->getSize(), 77.f);
}

TEST_F(SetLensFlareEffect, EachStepIsOneEditOfAllFieldsOfTheTarget)
{
    const std::vector<EditLog::Edit> expected{{idOf(target), osg::FieldBits::AllFields}};
    auto* command = new moSetLensFlareEffectCommand(source, target, nullptr);
    EditLog edits;
    stack.addOrExecute(command);
    EXPECT_EQ(edits.take(), expected);
    stack.undo();
    EXPECT_EQ(edits.take(), expected);
}

TEST_F(SetLensFlareEffect, EachStepIsAnEditAlsoWhereTheTargetIsSoAlready)
{
    const std::vector<EditLog::Edit> expected{{idOf(target), osg::FieldBits::AllFields}};
    for (const osg::LensFlareEffectPtr& from : {target, source}) {
        auto* command = new moSetLensFlareEffectCommand(from, target, nullptr);
        command->redo();
        const std::string held = describeEffect(target);
        EditLog edits;
        stack.addOrExecute(command);
        EXPECT_EQ(describeEffect(target), held);
        EXPECT_EQ(edits.take(), expected);
    }
}

TEST_F(SetLensFlareEffect, TextAndMessageAreThoseOfALensFlareCommand)
{
    Trace trace(stack);
    stack.addOrExecute(new moSetLensFlareEffectCommand(source, target, nullptr));
    EXPECT_THAT(
        trace.takeMessages(),
        testing::ElementsAre("moURManager::redo index=int:0 added=bool:true text=string:\"Set Lens Flare Effect\" "
                             "description=string:\"Set Lens Flare Effect\" id=int:" +
                             std::to_string(moSetLensFlareEffectCommand::commandId()) + " lightCommand=bool:true"));
}

TEST_F(SetLensFlareEffect, NothingMergesHoweverFast)
{
    auto* first = new moSetLensFlareEffectCommand(source, target, nullptr);
    auto* again = new moSetLensFlareEffectCommand(source, target, nullptr);
    again->setMergeResponseDelta(-1.);
    EXPECT_FALSE(first->canMergeWith(again));
    EXPECT_FALSE(first->mergeWith(again));
    stack.addOrExecute(first);
    stack.addOrExecute(again);
    EXPECT_EQ(stack.size(), 2);
}

TEST_F(SetLensFlareEffect, SourceTargetAndBackupAreHeldFromConstructionToDestruction)
{
    const std::size_t before = liveContainerCount();
    const osg::Int32 elementCount = (*target->getMFElements())[0].getRefCount();
    auto* command = new moSetLensFlareEffectCommand(source, target, nullptr);
    EXPECT_EQ(liveContainerCount(), before + 1) << "the backup shares its elements";
    EXPECT_EQ((*target->getMFElements())[0].getRefCount(), elementCount + ground::objectsPerContainer);
    osg::LensFlareEffectPtr backup; // the newest effect
    for (unsigned int id = std::max(idOf(source), idOf(target)) + 1; id < idOf(target) + 1000 && !backup; ++id)
        backup = osg::LensFlareEffectPtr::dcast(osg::FieldContainerFactory::the()->getContainer(id));
    ASSERT_NE(backup, osg::NullFC);
    EXPECT_EQ(backup.getRefCount(), 1);
    for (int step = 0; step < 4; ++step) {
        EXPECT_EQ(source.getRefCount(), 2);
        EXPECT_EQ(target.getRefCount(), 2);
        step % 2 == 0 ? command->redo() : command->undo();
    }
    delete command;
    EXPECT_EQ(liveContainerCount(), before);
    EXPECT_EQ(source.getRefCount(), 1);
    EXPECT_EQ(target.getRefCount(), 1);
    EXPECT_EQ((*target->getMFElements())[0].getRefCount(), elementCount);
}

TEST_F(SetLensFlareEffect, ElementsOfTheTargetLiveAsLongAsUndoCanBringThemBack)
{
    const unsigned int element = idOf((*target->getMFElements())[0]);
    stack.addOrExecute(new moSetLensFlareEffectCommand(source, target, nullptr));
    EXPECT_TRUE(isAlive(element));
    stack.clear();
    EXPECT_FALSE(isAlive(element));
}

TEST_F(SetLensFlareEffect, ASourceThatTheCallerReleasesIsStillApplied)
{
    const std::string wanted = describeEffect(source);
    auto* command = new moSetLensFlareEffectCommand(source, target, nullptr);
    drop(source);
    stack.addOrExecute(command);
    EXPECT_EQ(describeEffect(target), wanted);
}

TEST_F(SetLensFlareEffect, ANullTargetChangesNothingAndIsNotCounted)
{
    const std::string wanted = describeEffect(source);
    EditLog edits;
    auto* command = new moSetLensFlareEffectCommand(source, osg::NullFC, nullptr);
    EXPECT_EQ(source.getRefCount(), 2);
    stack.addOrExecute(command);
    stack.undo();
    stack.redo();
    EXPECT_EQ(describeEffect(source), wanted);
    EXPECT_THAT(edits.take(), testing::IsEmpty());
    stack.clear();
    EXPECT_EQ(source.getRefCount(), 1);
}

TEST_F(SetLensFlareEffect, ANullSourceChangesNothingTakesNoReferenceAndMakesNoBackup)
{
    const std::size_t containers = liveContainerCount();
    const std::string before = describeEffect(target);
    osg::addRefCP(target); // the one that the command gives back, see the next test
    EditLog edits;
    stack.addOrExecute(new moSetLensFlareEffectCommand(osg::NullFC, target, nullptr));
    EXPECT_EQ(target.getRefCount(), 2);
    EXPECT_EQ(liveContainerCount(), containers);
    stack.undo();
    stack.redo();
    EXPECT_EQ(describeEffect(target), before);
    EXPECT_THAT(edits.take(), testing::IsEmpty());
}

TEST_F(SetLensFlareEffect, ATargetThatWasNeverTakenIsReleasedAllTheSame)
{
    osg::addRefCP(target);
    delete new moSetLensFlareEffectCommand(osg::NullFC, target, nullptr);
    EXPECT_EQ(target.getRefCount(), 1);

    const osg::LensFlareEffectPtr unheld = Effect::create();
    const unsigned int id = idOf(unheld);
    delete new moSetLensFlareEffectCommand(osg::NullFC, unheld, nullptr);
    EXPECT_FALSE(isAlive(id));
}

TEST_F(SetLensFlareEffect, TwoNullsAreHarmless)
{
    EditLog edits;
    stack.addOrExecute(new moSetLensFlareEffectCommand(osg::NullFC, osg::NullFC, nullptr));
    stack.undo();
    stack.redo();
    EXPECT_THAT(edits.take(), testing::IsEmpty());
}

TEST_F(SetLensFlareEffect, ATargetDestroyedByOthersMakesEveryStepANoOp)
{
    stack.addOrExecute(new moSetLensFlareEffectCommand(source, target, nullptr));
    osg::LensFlareEffectPtr commands = target;
    drop(target);
    osg::subRefCP(commands); // gives back the command's reference by mistake
    EditLog edits;
    stack.undo();
    stack.redo();
    EXPECT_THAT(edits.take(), testing::IsEmpty());
}

TEST_F(SetLensFlareEffect, ASourceDestroyedByOthersLeavesUndoAndMakesRedoANoOp)
{
    const std::string before = describeEffect(target);
    stack.addOrExecute(new moSetLensFlareEffectCommand(source, target, nullptr));
    osg::LensFlareEffectPtr commands = source;
    drop(source);
    osg::subRefCP(commands);
    stack.undo();
    EXPECT_EQ(describeEffect(target), before);
    stack.redo();
    EXPECT_EQ(describeEffect(target), before);
}

TEST_F(SetLensFlareEffect, AnEffectAppliedToItselfStaysAsItIs)
{
    const std::string before = describeEffect(source);
    stack.addOrExecute(new moSetLensFlareEffectCommand(source, source, nullptr));
    EXPECT_EQ(describeEffect(source), before);
    stack.undo();
    EXPECT_EQ(describeEffect(source), before);
    stack.clear();
    EXPECT_EQ(source.getRefCount(), 1);
}

TEST_F(SetLensFlareEffect, ElementsThatBothListSurviveTheExchange)
{
    target->addElement((*source->getMFElements())[0]);
    const std::string before = describeEffect(target);
    stack.addOrExecute(new moSetLensFlareEffectCommand(source, target, nullptr));
    EXPECT_EQ(describeEffect(target), describeEffect(source));
    stack.undo();
    EXPECT_EQ(describeEffect(target), before);
}

TEST_F(SetLensFlareEffect, AChainOfCommandsUndoesToTheFirstSettings)
{
    const std::string before = describeEffect(target);
    const auto other = keep(Effect::create());
    other->setSize(9.f);
    stack.addOrExecute(new moSetLensFlareEffectCommand(source, target, nullptr));
    stack.addOrExecute(new moSetLensFlareEffectCommand(other, target, nullptr));
    stack.addOrExecute(new moSetLensFlareEffectCommand(source, target, nullptr));
    while (stack.canUndo())
        stack.undo();
    EXPECT_EQ(describeEffect(target), before);
}

} // namespace
