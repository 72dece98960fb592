#include "MaterialTest.h"

#include <support/ContextTranslator.h>
#include <support/WholeSteps.h>

#include <moUndoStack/material/moSetEnvironmentUndoCommand.h>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class SetEnvironment : public MaterialTest
{
protected:
    moSetEnvironmentUndoCommand* create(const osg::MaterialPtr& environment)
    {
        return new moSetEnvironmentUndoCommand(glass, environment, nullptr);
    }
    std::unique_ptr<moSetEnvironmentUndoCommand> make(const osg::MaterialPtr& environment)
    {
        return std::unique_ptr<moSetEnvironmentUndoCommand>(create(environment));
    }
};

TEST_F(SetEnvironment, RedoSetsItAndUndoRestoresTheOneBefore)
{
    glass->setEnvironment(otherMaterial);
    const auto command = make(sky);
    EXPECT_EQ(glass->getEnvironment(), otherMaterial);
    for (int round = 0; round < 2; ++round) {
        command->redo();
        EXPECT_EQ(glass->getEnvironment(), sky);
        command->undo();
        EXPECT_EQ(glass->getEnvironment(), otherMaterial);
    }
    EXPECT_THAT(edits.take(), ElementsAre("glass environment 1", "glass environment 1", "glass environment 1",
                                          "glass environment 1"));
}

TEST_F(SetEnvironment, TheOneBeforeIsThatOfConstruction)
{
    glass->setEnvironment(otherMaterial);
    const auto command = make(sky);
    glass->setEnvironment(material);
    command->redo();
    command->undo();
    EXPECT_EQ(glass->getEnvironment(), otherMaterial);
}

TEST_F(SetEnvironment, MaterialThatHadNoneHasNoneAfterUndo)
{
    const auto command = make(sky);
    command->redo();
    command->undo();
    EXPECT_EQ(glass->getEnvironment(), osg::NullFC);
    EXPECT_EQ(sky.getRefCount(), 1);
}

TEST_F(SetEnvironment, NullTakesTheEnvironmentAway)
{
    glass->setEnvironment(sky);
    const auto command = make(osg::NullFC);
    command->redo();
    EXPECT_EQ(glass->getEnvironment(), osg::NullFC);
    EXPECT_THAT(edits.take(), ElementsAre("glass environment 1"));
    command->undo();
    EXPECT_EQ(glass->getEnvironment(), sky);
}

TEST_F(SetEnvironment, NewEnvironmentThatWasDestroyedLeavesNone)
{
    glass->setEnvironment(otherMaterial);
    const auto command = make(sky);
    destroy(sky);
    command->redo();
    EXPECT_EQ(glass->getEnvironment(), osg::NullFC);
    EXPECT_THAT(edits.take(), ElementsAre("glass environment 1"));
    command->undo();
    EXPECT_EQ(glass->getEnvironment(), otherMaterial);
}

TEST_F(SetEnvironment, OldEnvironmentThatOnlyTheMaterialHeldIsGoneAtUndo)
{
    glass->setEnvironment(osg::UberMaterial::create());
    const unsigned int old = osg::getContainerId(glass->getEnvironment());
    stack.add(create(sky));
    EXPECT_FALSE(isAlive(old));
    stack.undo();
    EXPECT_EQ(glass->getEnvironment(), osg::NullFC);
}

TEST_F(SetEnvironment, SameEnvironmentAgainIsAnEditWithoutEffect)
{
    glass->setEnvironment(sky);
    const auto command = make(sky);
    command->redo();
    command->undo();
    EXPECT_EQ(glass->getEnvironment(), sky);
    EXPECT_EQ(sky.getRefCount(), 2);
    EXPECT_THAT(edits.take(), ElementsAre("glass environment 1", "glass environment 1"));
}

TEST_F(SetEnvironment, NullMaterialMakesItInertAndIsLeftOutOfTheMessage)
{
    moSetEnvironmentUndoCommand command(osg::NullFC, sky, nullptr);
    command.redo();
    command.undo();
    EXPECT_THAT(edits.take(), IsEmpty());
    EXPECT_EQ(sky.getRefCount(), 1);
    EXPECT_EQ(messageOf(command), "id=int:" + std::to_string(moSetEnvironmentUndoCommand::commandId()));
}

TEST_F(SetEnvironment, MaterialThatWasDestroyedIsPassedOver)
{
    const auto command = make(sky);
    command->redo();
    edits.take();
    destroy(glass);
    command->undo();
    command->redo();
    EXPECT_THAT(edits.take(), IsEmpty());
    EXPECT_EQ(sky.getRefCount(), 1);
}

TEST_F(SetEnvironment, TwoThatLightEachOtherAndAreHeldByNobodyElseGoTogetherAtUndo)
{
    osg::UBRDFMaterialPtr mirror = osg::UBRDFMaterial::create();
    osg::UBRDFMaterialPtr lamp = osg::UBRDFMaterial::create();
    osg::addRefCP(mirror);
    osg::addRefCP(lamp);
    const unsigned int mirrorId = osg::getContainerId(mirror), lampId = osg::getContainerId(lamp);
    const auto bothAre = [&](bool alive) { return isAlive(mirrorId) == alive && isAlive(lampId) == alive; };
    stack.add(new moSetEnvironmentUndoCommand(mirror, lamp, nullptr));
    stack.add(new moSetEnvironmentUndoCommand(lamp, mirror, nullptr));
    osg::subRefCP(mirror);
    osg::subRefCP(lamp);
    EXPECT_TRUE(bothAre(true));
    stack.undo();
    EXPECT_TRUE(bothAre(false));
    stack.undo();
    stack.redo();
    EXPECT_TRUE(bothAre(false));
}

TEST_F(SetEnvironment, HoldsNeitherMaterialNorEnvironments)
{
    stack.add(create(sky));
    EXPECT_EQ(glass.getRefCount(), 1);
    EXPECT_EQ(sky.getRefCount(), 2) << "the material's";
    stack.undo();
    EXPECT_EQ(sky.getRefCount(), 1);
}

TEST_F(SetEnvironment, TwoInARowNeverMerge)
{
    auto* const first = create(sky);
    stack.add(first);
    const auto newer = make(sky);
    EXPECT_FALSE(first->canMergeWith(newer.get()));
    EXPECT_FALSE(first->mergeWith(newer.get()));
    stack.add(create(otherMaterial));
    EXPECT_EQ(stack.size(), 2);
    stack.undo();
    EXPECT_EQ(glass->getEnvironment(), sky);
    stack.undo();
    EXPECT_EQ(glass->getEnvironment(), osg::NullFC);
}

TEST_F(SetEnvironment, AParentThatIsGivenIsTheParent)
{
    QUndoCommand parent;
    new moSetEnvironmentUndoCommand(glass, sky, &parent);
    EXPECT_EQ(parent.childCount(), 1);
}

TEST_F(SetEnvironment, TellsTheStackItsMaterial)
{
    Trace trace(stack);
    stack.add(create(sky));
    EXPECT_THAT(trace.takeMessages(),
                ElementsAre("moURManager::redo index=int:0 added=bool:true text=string:\"Change Environment\" "
                            "description=string:\"Change Environment\" id=int:" +
                            std::to_string(moSetEnvironmentUndoCommand::commandId()) + key("material", id(glass))));
}

TEST_F(SetEnvironment, TranslatesInItsOwnContextButNotItsText)
{
    const ContextTranslator translator;
    EXPECT_EQ(moSetEnvironmentUndoCommand::tr("Sky"), "moSetEnvironmentUndoCommand: Sky");
    EXPECT_EQ(make(sky)->text(), "Change Environment");
}

TEST_F(SetEnvironment, StandsThoughAListenerThrows)
{
    expectStepsStandThoughAListenerThrows(stack, edits, create(sky), [this] { return glass->getEnvironment(); });
}

} // namespace
