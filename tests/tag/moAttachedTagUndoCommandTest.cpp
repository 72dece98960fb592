#include <moUndoStack/tag/moAttachedTagUndoCommand.h>

#include <support/EditTrace.h>
#include <support/Trace.h>
#include <support/UndoTest.h>
#include <support/WholeSteps.h>

#include <moUndoStack/core/moMultiCommand.h>

#include <moOpenSGExt/OSGTagAttachment.h>
#include <moUndoUtils/moUndoString.h>

#include <OpenSG/OSGFieldContainerFactory.h>
#include <OpenSG/OSGNode.h>

#include <iostream>
#include <sstream>

namespace osg {

// The library finds an attachment by its group, so types that stand in for osg::TagAttachment name the same one.
MO_TRACED_CONTAINER(TagAttachment, "TagAttachment")

class LongTagAttachment;
typedef FCPtr<TagAttachmentPtr, LongTagAttachment> LongTagAttachmentPtr;
#define LONG_TAG_FIELDS(SINGLE, MULTI) MULTI(String, Keywords, "keywords") MULTI(String, Remarks, "remarks")
OSG_CONTAINER_BASE(LongTagAttachment, TagAttachment, LONG_TAG_FIELDS)
class LongTagAttachment : public LongTagAttachmentBase
{
    OSG_CONTAINER(LongTagAttachment)
};
OSG_CONTAINER_GROUP_IMPL(LongTagAttachment, TagAttachment, LONG_TAG_FIELDS, "TagAttachment")

// Looks like tags, field for field, but is none.
class ForeignAttachment;
typedef FCPtr<AttachmentPtr, ForeignAttachment> ForeignAttachmentPtr;
OSG_CONTAINER_BASE(ForeignAttachment, Attachment, OSG_TAGATTACHMENT_FIELDS)
class ForeignAttachment : public ForeignAttachmentBase
{
    OSG_CONTAINER(ForeignAttachment)
};
OSG_CONTAINER_GROUP_IMPL(ForeignAttachment, Attachment, OSG_TAGATTACHMENT_FIELDS, "TagAttachment")

} // namespace osg

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using Tags = std::vector<std::string>;
using Stamps = std::vector<osg::UInt64>;

constexpr osg::UInt32 userTags = 4;
constexpr osg::UInt32 systemTags = 5;
constexpr osg::BitVector userMask = osg::BitVector(1) << userTags;

class StandardOutput
{
public:
    StandardOutput() : m_before(std::cout.rdbuf(m_text.rdbuf())) {}
    ~StandardOutput() { std::cout.rdbuf(m_before); }
    StandardOutput(const StandardOutput&) = delete;
    StandardOutput& operator=(const StandardOutput&) = delete;

    std::string text() const { return m_text.str(); }

private:
    std::ostringstream m_text;
    std::streambuf* m_before;
};

template<class Value>
osg::MField<Value> field(const std::vector<Value>& values)
{
    osg::MField<Value> made;
    made.setValues(values);
    return made;
}

/// What can be seen of a tag attachment.
struct State
{
    Tags user;
    Tags system;
    Stamps stamps;

    bool operator==(const State& other) const
    {
        return user == other.user && system == other.system && stamps == other.stamps;
    }
    friend std::ostream& operator<<(std::ostream& stream, const State& state)
    {
        return stream << "user " << testing::PrintToString(state.user) << " system "
                      << testing::PrintToString(state.system) << " stamps " << testing::PrintToString(state.stamps);
    }
};

/// A node with the user tag "old", the system tag "locked" and the stamps 1 and 2.
class TagTest : public UndoTest
{
protected:
    void SetUp() override
    {
        UndoTest::SetUp();
        node = osg::Node::create();
        osg::addRefCP(node);
        attach(osg::TracedTagAttachment::create());
        tags->getMFUserTags()->setValues(Tags{"old"});
        tags->getMFSystemTags()->setValues(Tags{"locked"});
        tags->getMFTagStamps()->setValues(Stamps{1, 2});
    }

    void TearDown() override
    {
        edits.onChange({});
        stack.clear();
        osg::subRefCP(tags);
        osg::subRefCP(node);
        UndoTest::TearDown();
    }

    void attach(const osg::TagAttachmentPtr& attachment)
    {
        osg::addRefCP(attachment);
        node->addAttachment(attachment);
        osg::subRefCP(tags);
        tags = attachment;
        edits.name(tags, "tags");
        edits.take();
    }

    void detach() { node->subAttachment(tags); }

    State state() const
    {
        return {tags->getUserTags().getValues(), tags->getSystemTags().getValues(), tags->getTagStamps().getValues()};
    }

    const State before{{"old"}, {"locked"}, {1, 2}};

    EditTrace edits;
    osg::NodePtr node;
    osg::TagAttachmentPtr tags; ///< held by the test, on the node unless detached
};

template<class Command>
class AttachedTag : public TagTest
{
protected:
    Command* create(osg::UInt32 fieldId = userTags, const Tags& newTags = {"old", "new"},
                    const Stamps& newStamps = {1, 2, 3})
    {
        osg::MField<std::string> list = field(newTags);
        return new Command(moUndoString("Tag", QString()), node, osg::BitVector(1) << fieldId, fieldId, "new", &list,
                           tags->getTagStamps(), field(newStamps));
    }

    std::unique_ptr<Command> make(osg::UInt32 fieldId = userTags) { return std::unique_ptr<Command>(create(fieldId)); }
};

using Commands = testing::Types<moAttachedTagUndoCommand, moAddTagUndoCommand, moSubTagUndoCommand>;
TYPED_TEST_SUITE(AttachedTag, Commands);

TYPED_TEST(AttachedTag, RedoWritesTheNewListsAndUndoTheOldOnes)
{
    const auto command = this->make();
    EXPECT_EQ(this->state(), this->before);

    const State after{{"old", "new"}, {"locked"}, {1, 2, 3}};
    for (int round = 0; round < 2; ++round) {
        command->redo();
        EXPECT_EQ(this->state(), after);
        command->undo();
        EXPECT_EQ(this->state(), this->before);
    }
}

TYPED_TEST(AttachedTag, EachStepIsTwoEditsUnderTheOneMask)
{
    const auto command = this->make();
    EXPECT_THAT(this->edits.take(), IsEmpty());
    command->redo();
    EXPECT_THAT(this->edits.take(), ElementsAre("tags userTags 1", "tags userTags 1"));
    command->undo();
    EXPECT_THAT(this->edits.take(), ElementsAre("tags userTags 1", "tags userTags 1"));
}

TYPED_TEST(AttachedTag, EachStepIsTwoEditsAlsoWhenTheListsAreSoAlready)
{
    osg::MField<std::string> same = field(Tags{"old"});
    TypeParam command(moUndoString("Tag", QString()), this->node, osg::BitVector(1) << userTags, userTags, "old", &same,
                      this->tags->getTagStamps(), this->tags->getTagStamps());
    command.redo();
    EXPECT_THAT(this->edits.take(), ElementsAre("tags userTags 1", "tags userTags 1"));
    command.undo();
    EXPECT_THAT(this->edits.take(), ElementsAre("tags userTags 1", "tags userTags 1"));
    EXPECT_EQ(this->state(), this->before);
}

TYPED_TEST(AttachedTag, MaskIsTheCallersWhateverTheField)
{
    osg::MField<std::string> list;
    TypeParam command(moUndoString(), this->node, osg::TagAttachment::InternalFieldMask, userTags, "", &list, {}, {});
    command.redo();
    EXPECT_THAT(this->edits.take(), ElementsAre("tags internal 1", "tags internal 1"));
    EXPECT_EQ(this->state(), (State{{}, {"locked"}, {}}));
}

TYPED_TEST(AttachedTag, TagsAreInPlaceBeforeTheStampsAreWritten)
{
    const auto command = this->make();
    std::vector<State> seen;
    this->edits.onChange([&] { seen.push_back(this->state()); });
    command->redo();
    EXPECT_THAT(seen,
                ElementsAre(State{{"old", "new"}, {"locked"}, {1, 2}}, State{{"old", "new"}, {"locked"}, {1, 2, 3}}));
}

TYPED_TEST(AttachedTag, RedoAfterUndoRestoresTheCallersListsWhateverStoodThere)
{
    const auto command = this->make();
    command->redo();
    command->undo();
    this->tags->getMFUserTags()->setValues(Tags{"somebody", "else"});
    this->tags->getMFTagStamps()->setValues(Stamps{77});
    command->redo();
    EXPECT_EQ(this->state(), (State{{"old", "new"}, {"locked"}, {1, 2, 3}}));
}

TYPED_TEST(AttachedTag, UndoRestoresTheTagsOfConstructionAndTheCallersStampsWhateverStoodThereAtRedo)
{
    const auto command = this->make();
    this->tags->getMFUserTags()->setValues(Tags{"somebody", "else"});
    this->tags->getMFTagStamps()->setValues(Stamps{77});
    command->redo();
    command->undo();
    EXPECT_EQ(this->state(), this->before);
}

TYPED_TEST(AttachedTag, FieldFourIsUserTagsAndFieldFiveSystemTags)
{
    const StandardOutput output;
    const auto user = this->make(userTags);
    EXPECT_EQ(user->getTagType(), moTagUndoCommand::USER_TAG);
    EXPECT_EQ(static_cast<int>(user->getTagType()), 0);
    EXPECT_EQ(user->getTagString(), "new");

    const auto system = this->make(systemTags);
    EXPECT_EQ(system->getTagType(), moTagUndoCommand::SYSTEM_TAG);
    EXPECT_EQ(static_cast<int>(system->getTagType()), 1);
    EXPECT_EQ(output.text(), "");

    system->redo();
    EXPECT_EQ(this->state(), (State{{"old"}, {"old", "new"}, {1, 2, 3}}));
    system->undo();
    EXPECT_EQ(this->state(), this->before);
}

TYPED_TEST(AttachedTag, OtherListOfStringsPrintsOneLineCountsAsSystemTagsAndIsEdited)
{
    const auto attachment = osg::LongTagAttachment::create();
    attachment->getMFRemarks()->push_back("fragile");
    this->attach(attachment);

    const StandardOutput output;
    const auto command = this->make(osg::LongTagAttachment::RemarksFieldId);
    EXPECT_EQ(osg::UInt32(osg::LongTagAttachment::RemarksFieldId), 7u);
    EXPECT_EQ(output.text(), "Tag type is not Undo Redo supported!");
    EXPECT_EQ(command->getTagType(), moTagUndoCommand::SYSTEM_TAG);
    EXPECT_EQ(command->getTagString(), "new");

    command->redo();
    EXPECT_THAT(attachment->getRemarks().getValues(), ElementsAre("old", "new"));
    command->undo();
    EXPECT_THAT(attachment->getRemarks().getValues(), ElementsAre("fragile"));
    EXPECT_EQ(output.text(), "Tag type is not Undo Redo supported!");
}

TYPED_TEST(AttachedTag, FieldThatIsNoListOfStringsMakesItInert)
{
    const StandardOutput output;
    for (const osg::UInt32 fieldId : {0u, 1u, 2u, 3u, 6u, 63u, 4711u}) {
        osg::MField<std::string> list = field(Tags{"x"});
        TypeParam command(moUndoString(), this->node, userMask, fieldId, "x", &list, {}, {});
        command.redo();
        command.undo();
        EXPECT_EQ(command.getTagString(), "") << fieldId;
        EXPECT_EQ(command.getTagType(), moTagUndoCommand::USER_TAG) << fieldId;
    }
    EXPECT_EQ(this->state(), this->before);
    EXPECT_THAT(this->edits.take(), IsEmpty());
    EXPECT_EQ(output.text(), "");
}

TYPED_TEST(AttachedTag, MadeWithoutAnAttachmentEmptiesTheOneThatTurnsUpLater)
{
    this->detach();
    const auto command = this->make();
    EXPECT_EQ(command->getTagString(), "");
    EXPECT_EQ(command->getTagType(), moTagUndoCommand::USER_TAG);
    command->redo();
    command->undo();
    EXPECT_EQ(this->state(), this->before);

    this->node->addAttachment(this->tags);
    this->edits.take();
    command->redo();
    EXPECT_EQ(this->state(), (State{{}, {"locked"}, {}}));
    EXPECT_THAT(this->edits.take(), ElementsAre("tags userTags 1", "tags userTags 1"));
}

TYPED_TEST(AttachedTag, MadeWithoutAnAttachmentKeepsTagTypeZeroAlsoForSystemTags)
{
    this->detach();
    EXPECT_EQ(this->make(systemTags)->getTagType(), moTagUndoCommand::USER_TAG);
}

TYPED_TEST(AttachedTag, AttachmentThatIsAwayForAStepIsPassedOver)
{
    const auto command = this->make();
    command->redo();
    this->edits.take();
    this->detach();
    this->edits.take();
    command->undo();
    EXPECT_EQ(this->state(), (State{{"old", "new"}, {"locked"}, {1, 2, 3}}));
    EXPECT_THAT(this->edits.take(), IsEmpty());

    this->node->addAttachment(this->tags);
    command->undo();
    EXPECT_EQ(this->state(), this->before);
}

TYPED_TEST(AttachedTag, AttachmentDestroyedByAListenerIsNotWrittenAnyMore)
{
    const auto command = this->make();
    this->edits.onChange([this] { this->detach(); });
    command->redo();
    EXPECT_EQ(this->state(), (State{{"old", "new"}, {"locked"}, {1, 2}}));
}

TYPED_TEST(AttachedTag, AttachmentThatWasReplacedIsEditedInsteadOfTheFirst)
{
    const auto command = this->make();
    command->redo();
    this->attach(osg::TracedTagAttachment::create());
    command->undo();
    EXPECT_EQ(this->state(), (State{{"old"}, {}, {1, 2}}));
}

TYPED_TEST(AttachedTag, AttachmentOfAnotherTypeInTheSamePlaceIsLeftAlone)
{
    const auto command = this->make();
    const osg::ForeignAttachmentPtr foreign = osg::ForeignAttachment::create();
    foreign->getMFUserTags()->push_back("mine");
    this->node->addAttachment(foreign);
    ASSERT_EQ(this->node->findAttachment(osg::TagAttachment::getClassType()), foreign);

    command->redo();
    command->undo();
    EXPECT_EQ(this->make()->getTagString(), "");
    EXPECT_THAT(foreign->getUserTags().getValues(), ElementsAre("mine"));
    EXPECT_EQ(this->state(), this->before);
}

TYPED_TEST(AttachedTag, NullObjectMakesItInert)
{
    osg::MField<std::string> list = field(Tags{"x"});
    TypeParam command(moUndoString(), osg::NullFC, userMask, userTags, "x", &list, field(Stamps{1}), field(Stamps{2}));
    command.redo();
    command.undo();
    EXPECT_EQ(command.getContainer(), osg::NullFC);
    EXPECT_EQ(command.getTagString(), "");
    EXPECT_EQ(command.getTagType(), moTagUndoCommand::USER_TAG);
}

TYPED_TEST(AttachedTag, NullListStandsForAnEmptyOne)
{
    TypeParam command(moUndoString(), this->node, userMask, userTags, "old", nullptr, field(Stamps{1, 2}), {});
    command.redo();
    EXPECT_EQ(this->state(), (State{{}, {"locked"}, {}}));
    command.undo();
    EXPECT_EQ(this->state(), this->before);
}

TYPED_TEST(AttachedTag, ListOfTheCallerIsCopied)
{
    osg::MField<std::string> list = field(Tags{"kept"});
    TypeParam command(moUndoString(), this->node, userMask, userTags, "kept", &list, field(Stamps{1, 2}),
                      field(Stamps{3}));
    list.setValues(Tags{"changed", "later"});
    command.redo();
    EXPECT_EQ(this->state(), (State{{"kept"}, {"locked"}, {3}}));
}

TYPED_TEST(AttachedTag, ListsOfTenThousandTagsAndOfNoneComeAndGoWhole)
{
    Tags many;
    Stamps stamps;
    for (osg::UInt64 i = 0; i < 10000; ++i) {
        many.push_back("tag " + std::to_string(i));
        stamps.push_back(i << 40);
    }
    const std::unique_ptr<TypeParam> fill(this->create(userTags, many, stamps));
    fill->redo();
    EXPECT_EQ(this->state(), (State{many, {"locked"}, stamps}));

    const std::unique_ptr<TypeParam> empty(this->create(userTags, {}, {}));
    empty->redo();
    EXPECT_EQ(this->state(), (State{{}, {"locked"}, {}}));
    empty->undo();
    EXPECT_EQ(this->state(), (State{many, {"locked"}, stamps}));
    fill->undo();
    EXPECT_EQ(this->state(), this->before);
}

TYPED_TEST(AttachedTag, HoldsTheObjectForItsLife)
{
    auto command = this->make();
    EXPECT_EQ(this->node.getRefCount(), 2);
    EXPECT_EQ(command->getContainer(), this->node);
    command->redo();
    command->undo();
    command.reset();
    EXPECT_EQ(this->node.getRefCount(), 1);

    this->detach();
    auto inert = this->make();
    EXPECT_EQ(this->node.getRefCount(), 2);
    inert.reset();
    EXPECT_EQ(this->node.getRefCount(), 1);
}

TYPED_TEST(AttachedTag, ObjectThatTheSceneGaveUpLivesAsLongAsTheCommand)
{
    this->stack.add(this->create());
    const osg::UInt32 id = this->node.getFieldContainerId();
    osg::subRefCP(this->node);
    ASSERT_EQ(this->node.getRefCount(), 1);

    this->stack.undo();
    EXPECT_EQ(this->state(), this->before);
    this->node = osg::NullFC;
    this->stack.clear();
    EXPECT_EQ(osg::FieldContainerFactory::the()->getContainer(id), osg::NullFC);
}

TYPED_TEST(AttachedTag, RunWithoutRecordingItIsDoneAndGivesTheObjectBack)
{
    moUndoStack::beginBlockUndo();
    this->stack.addOrExecute(this->create());
    moUndoStack::endBlockUndo();
    EXPECT_EQ(this->state(), (State{{"old", "new"}, {"locked"}, {1, 2, 3}}));
    EXPECT_EQ(this->node.getRefCount(), 1);
    EXPECT_TRUE(this->stack.isEmpty());
}

TYPED_TEST(AttachedTag, TwoInARowNeverMerge)
{
    auto* first = this->create();
    this->stack.add(first);
    const std::unique_ptr<TypeParam> newer(this->create(userTags, {"third"}, {}));
    EXPECT_FALSE(first->mergeWith(newer.get()));
    this->stack.add(this->create(userTags, {"third"}, {}));
    EXPECT_EQ(this->stack.size(), 2);
    this->stack.undo();
    EXPECT_EQ(this->state(), (State{{"old", "new"}, {"locked"}, {1, 2, 3}}));
    this->stack.undo();
    EXPECT_EQ(this->state(), this->before);
}

TYPED_TEST(AttachedTag, CompositesOfTagCommandsNeverMerge)
{
    const State older{{"old", "new"}, {"locked"}, {1, 2, 3}};
    const State newer{{"third"}, {"locked"}, {4}};
    for (const int tagsPerComposite : {1, 2}) {
        for (const Tags& list : {older.user, newer.user}) {
            this->stack.beginMultiCommand("Tags", "", true);
            for (int i = 0; i < tagsPerComposite; ++i)
                this->create(userTags, list, list == older.user ? older.stamps : newer.stamps);
            this->stack.endMultiCommand();
        }
        EXPECT_EQ(this->stack.size(), 2);
        EXPECT_EQ(this->state(), newer);
        this->stack.undo();
        EXPECT_EQ(this->state(), older);
        this->stack.undo();
        EXPECT_EQ(this->state(), this->before);
        this->stack.redo();
        this->stack.redo();
        EXPECT_EQ(this->state(), newer);
        this->stack.undo();
        this->stack.undo();
        this->stack.clear();
    }
}

TYPED_TEST(AttachedTag, CompositesOfTagCommandsOfTwoObjectsNeverMerge)
{
    const osg::NodePtr tagged = this->node;
    const osg::NodePtr other = osg::Node::create();
    osg::addRefCP(other);
    const auto otherTags = osg::TracedTagAttachment::create();
    other->addAttachment(otherTags);
    for (const osg::NodePtr& each : {tagged, other}) {
        this->node = each;
        this->stack.beginMultiCommand("Tags", "", true);
        this->create();
        this->stack.endMultiCommand();
    }
    this->node = tagged;
    EXPECT_EQ(this->stack.size(), 2);
    EXPECT_EQ(otherTags->getUserTags().getValues(), (Tags{"old", "new"}));
    this->stack.undo();
    EXPECT_EQ(otherTags->getUserTags().getValues(), Tags{});
    this->stack.undo();
    EXPECT_EQ(this->state(), this->before);
    this->stack.clear();
    osg::subRefCP(other);
}

TYPED_TEST(AttachedTag, ChangesTagsAndStampsThoughAListenerToTheFirstThrows)
{
    expectStepsStandThoughAListenerThrows(this->stack, this->edits, this->create(), [this] { return this->state(); });
}

TYPED_TEST(AttachedTag, MayBeSwitchedToMerging)
{
    // What the base class offers stays as it is: only the default is another one.
    auto* const command = this->create();
    this->stack.add(this->create());
    EXPECT_FALSE(static_cast<const moUndoCommand*>(this->stack.currentCommand())->canMergeWith(command));
    command->setMergeEnabled(true);
    EXPECT_EQ(static_cast<const moUndoCommand*>(this->stack.currentCommand())->canMergeWith(command),
              command->id() == this->stack.currentCommand()->id());
    delete command;
}

TYPED_TEST(AttachedTag, IsAChildOfTheCompositeBeingComposed)
{
    this->stack.beginMultiCommand("Tags", QString(), true);
    this->stack.addOrExecute(this->create(userTags));
    this->stack.addOrExecute(this->create(systemTags));
    EXPECT_EQ(this->state(), this->before);
    this->stack.endMultiCommand();
    EXPECT_EQ(this->stack.size(), 1);
    EXPECT_EQ(this->state(), (State{{"old", "new"}, {"old", "new"}, {1, 2, 3}}));
    this->stack.undo();
    EXPECT_EQ(this->state(), this->before);
}

class TagMessages : public AttachedTag<moAddTagUndoCommand>
{
};

TEST_F(TagMessages, AdditionAndRemovalDifferInTheirIdsAlone)
{
    EXPECT_NE(moAddTagUndoCommand::commandId(), moSubTagUndoCommand::commandId());
    Trace trace(stack);
    const std::string add = std::to_string(moAddTagUndoCommand::commandId());
    const std::string sub = std::to_string(moSubTagUndoCommand::commandId());
    osg::MField<std::string> list;
    stack.add(create());
    stack.add(
        new moSubTagUndoCommand(moUndoString("Untag", QString()), node, userMask, userTags, "new", &list, {}, {}));
    stack.undo();
    EXPECT_THAT(trace.takeMessages(),
                ElementsAre("moURManager::redo index=int:0 added=bool:true text=string:\"Tag\" "
                            "description=string:\"Tag\" id=int:" +
                                add,
                            "moURManager::redo index=int:1 added=bool:true text=string:\"Untag\" "
                            "description=string:\"Untag\" id=int:" +
                                sub,
                            "moURManager::undo index=int:1 added=bool:false text=string:\"Untag\" "
                            "description=string:\"Untag\" id=int:" +
                                sub));
}

TEST_F(TagMessages, BaseOfAdditionAndRemovalHasNoId)
{
    const moAttachedTagUndoCommand command(moUndoString(), node, userMask, userTags, "", nullptr, {}, {});
    EXPECT_EQ(command.id(), -1);
}

TEST_F(TagMessages, TagFieldsStandWhereTheCommandLooksForThem)
{
    EXPECT_EQ(osg::UInt32(osg::TagAttachment::TagStampsFieldId), 3u);
    EXPECT_EQ(osg::UInt32(osg::TagAttachment::UserTagsFieldId), 4u);
    EXPECT_EQ(osg::UInt32(osg::TagAttachment::SystemTagsFieldId), 5u);
}

} // namespace
