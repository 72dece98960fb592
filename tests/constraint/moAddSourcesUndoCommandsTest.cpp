#include "TracedConstraints.h"

#include <support/WholeSteps.h>

#include <moUndoStack/constraint/moAddAimConstraintUpVectorSourcesUndoCommand.h>
#include <moUndoStack/constraint/moAddConstraintSourcesUndoCommand.h>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using Sources = std::vector<osg::AttachmentContainerPtr>;

// The two commands differ in the list that they write; all else is asked of both.
struct AddSources
{
    using Command = moAddConstraintSourcesUndoCommand;
    static constexpr const char* text = "Add Constraint Sources";
    static std::string list(const std::string& sources) { return "sources" + sources + " up target -"; }
    static osg::ConstraintObjectPtr find(const osg::AimConstraintPtr& aim, const osg::NodePtr& node)
    {
        return aim->findSourceConstraintObject(node);
    }
};

struct AddUpVectorSources
{
    using Command = moAddAimConstraintUpVectorSourcesUndoCommand;
    static constexpr const char* text = "Add Aim Constraint Up Vector Sources";
    static std::string list(const std::string& sources) { return "sources up" + sources + " target -"; }
    static osg::ConstraintObjectPtr find(const osg::AimConstraintPtr& aim, const osg::NodePtr& node)
    {
        return aim->findUpVectorConstraintObject(node);
    }
};

template<class Row>
class AddSourcesTest : public ConstraintTest
{
protected:
    using Command = typename Row::Command;

    Command* create(const Sources& sources) { return new Command(aim, sources, nullptr); }
    std::unique_ptr<Command> make(const Sources& sources) { return std::unique_ptr<Command>(create(sources)); }
};

using Rows = testing::Types<AddSources, AddUpVectorSources>;
TYPED_TEST_SUITE(AddSourcesTest, Rows);

TYPED_TEST(AddSourcesTest, RedoAddsInOrderAndUndoRemoves)
{
    const auto command = this->make({this->door, this->lamp});
    EXPECT_EQ(this->describe(this->aim), TypeParam::list(""));
    for (int round = 0; round < 2; ++round) {
        command->redo();
        EXPECT_EQ(this->describe(this->aim), TypeParam::list(" door*1 lamp*1"));
        command->undo();
        EXPECT_EQ(this->describe(this->aim), TypeParam::list(""));
    }
}

TYPED_TEST(AddSourcesTest, EachStepIsOneEditOfTheSourcesField)
{
    const auto command = this->make({this->door, this->lamp});
    EXPECT_THAT(this->edits.take(), IsEmpty());
    command->redo();
    EXPECT_THAT(this->edits.take(), ElementsAre("aim sources 1"));
    command->undo();
    EXPECT_THAT(this->edits.take(), ElementsAre("aim sources 1"));
}

TYPED_TEST(AddSourcesTest, SourceComesBackWithWeightOneAfterItsWeightWasChanged)
{
    const auto command = this->make({this->lamp});
    command->redo();
    TypeParam::find(this->aim, this->lamp)->setWeight(0.25f);
    command->undo();
    EXPECT_EQ(this->describe(this->aim), TypeParam::list(""));
    command->redo();
    EXPECT_EQ(this->describe(this->aim), TypeParam::list(" lamp*1"));
}

TYPED_TEST(AddSourcesTest, StandsThoughAListenerThrows)
{
    expectStepsStandThoughAListenerThrows(this->stack, this->edits, this->create({this->door, this->lamp}),
                                          [this] { return this->describe(this->aim); });
}

TYPED_TEST(AddSourcesTest, NullSourcesAreDropped)
{
    const auto command = this->make({osg::NullFC, this->lamp, osg::NullFC});
    command->redo();
    EXPECT_EQ(this->describe(this->aim), TypeParam::list(" lamp*1"));
    command->undo();
    EXPECT_EQ(this->describe(this->aim), TypeParam::list(""));
}

TYPED_TEST(AddSourcesTest, RepeatedSourceComesAndGoesOnce)
{
    const auto command = this->make({this->lamp, this->door, this->lamp});
    command->redo();
    EXPECT_EQ(this->describe(this->aim), TypeParam::list(" lamp*1 door*1"));
    command->undo();
    EXPECT_EQ(this->describe(this->aim), TypeParam::list(""));
}

TYPED_TEST(AddSourcesTest, NothingToAddOpensNoEdit)
{
    for (const Sources& sources : {Sources(), Sources{osg::NullFC}}) {
        const auto command = this->make(sources);
        command->redo();
        command->undo();
    }
    EXPECT_THAT(this->edits.take(), IsEmpty());
    EXPECT_EQ(this->describe(this->aim), TypeParam::list(""));
}

TYPED_TEST(AddSourcesTest, SourceThatWasDestroyedIsPassedOver)
{
    const auto command = this->make({this->lamp, this->door});
    this->destroy(this->lamp);
    command->redo();
    EXPECT_EQ(this->describe(this->aim), TypeParam::list(" door*1"));
    this->edits.take();

    this->destroy(this->door);
    command->undo();
    EXPECT_THAT(this->edits.take(), IsEmpty());
    EXPECT_EQ(this->describe(this->aim), TypeParam::list(" gone*1"));
}

TYPED_TEST(AddSourcesTest, NullConstraintMakesItInert)
{
    typename TypeParam::Command command(osg::NullFC, {this->lamp}, nullptr);
    command.redo();
    command.undo();
    EXPECT_THAT(this->edits.take(), IsEmpty());
}

TYPED_TEST(AddSourcesTest, ConstraintThatWasDestroyedIsPassedOver)
{
    const auto command = this->make({this->lamp});
    command->redo();
    this->destroy(this->aim);
    this->edits.take();
    command->undo();
    command->redo();
    EXPECT_THAT(this->edits.take(), IsEmpty());
}

TYPED_TEST(AddSourcesTest, ConstraintMayBeItsOwnSource)
{
    const auto command = this->make({this->aim});
    command->redo();
    EXPECT_EQ(this->describe(this->aim), TypeParam::list(" other*1"));
    command->undo();
    EXPECT_EQ(this->describe(this->aim), TypeParam::list(""));
}

TYPED_TEST(AddSourcesTest, HoldsNeitherSourcesNorConstraint)
{
    this->stack.add(this->create({this->lamp}));
    EXPECT_EQ(this->aim.getRefCount(), 1);
    EXPECT_EQ(this->lamp.getRefCount(), 1);
}

TYPED_TEST(AddSourcesTest, TellsItsTextAndIdAlone)
{
    Trace trace(this->stack);
    this->stack.add(this->create({this->lamp}));
    const std::string text = std::string("\"") + TypeParam::text + '"';
    EXPECT_THAT(trace.takeMessages(), ElementsAre("moURManager::redo index=int:0 added=bool:true text=string:" + text +
                                                  " description=string:" + text +
                                                  " id=int:" + std::to_string(TypeParam::Command::commandId())));
}

TYPED_TEST(AddSourcesTest, AParentThatIsGivenIsTheParent)
{
    QUndoCommand parent;
    new typename TypeParam::Command(this->aim, {this->lamp}, &parent);
    EXPECT_EQ(parent.childCount(), 1);
}

TYPED_TEST(AddSourcesTest, TwoInARowNeverMerge)
{
    auto* first = this->create({this->lamp});
    this->stack.add(first);
    const auto newer = this->make({this->lamp});
    EXPECT_FALSE(first->canMergeWith(newer.get()));
    EXPECT_FALSE(first->mergeWith(newer.get()));
    this->stack.add(this->create({this->lamp}));
    EXPECT_EQ(this->stack.size(), 2);
}

using AddToOneRole = ConstraintTest;

TEST_F(AddToOneRole, UpVectorSourcesAreAnnouncedAsSourcesThoughSourcesStay)
{
    aim->addSource(car, 1);
    moAddAimConstraintUpVectorSourcesUndoCommand command(aim, {lamp}, nullptr);
    command.redo();
    EXPECT_EQ(describe(aim), "sources car*1 up lamp*1 target -");
    EXPECT_THAT(edits.take(), ElementsAre("aim sources 1"));
}

TEST_F(AddToOneRole, AConstraintThatIsNoAimConstraintTakesNoUpVectorSources)
{
    // Assigned as to any handle: nobody has looked at the type.
    osg::AimConstraintPtr unchecked;
    static_cast<osg::FieldContainerPtr&>(unchecked) = plain;
    for (const auto& handle : {unchecked, osg::AimConstraintPtr::dcast(plain)}) {
        moAddAimConstraintUpVectorSourcesUndoCommand command(handle, {lamp}, nullptr);
        command.redo();
        command.undo();
    }
    EXPECT_EQ(describe(plain), "sources target -");
    EXPECT_THAT(edits.take(), IsEmpty());
}

TEST_F(AddToOneRole, SourcesOfAConstraintThatIsNoAimConstraintAreAddedToo)
{
    moAddConstraintSourcesUndoCommand command(plain, {lamp}, nullptr);
    command.redo();
    EXPECT_EQ(describe(plain), "sources lamp*1 target -");
    EXPECT_THAT(edits.take(), ElementsAre("plain sources 1"));
}

TEST_F(AddToOneRole, UndoRemovesASourceThatWasThereBefore)
{
    aim->addSource(lamp, 0.5f);
    moAddConstraintSourcesUndoCommand command(aim, {lamp}, nullptr);
    command.redo();
    EXPECT_EQ(describe(aim), "sources lamp*1 up target -");
    command.undo();
    EXPECT_EQ(describe(aim), "sources up target -");
}

} // namespace
