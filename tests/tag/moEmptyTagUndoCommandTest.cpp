#include <moUndoStack/tag/moEmptyTagUndoCommand.h>

#include <support/Trace.h>
#include <support/UndoTest.h>

#include <moUndoUtils/moUndoString.h>

namespace {

using testing::ElementsAre;

template<class Command>
class EmptyTag : public UndoTest
{
protected:
    static Command* create()
    {
        return new Command(moUndoString("Tag", QString()), "approved", moTagUndoCommand::SYSTEM_TAG);
    }
};

using Commands = testing::Types<moEmptyTagUndoCommand, moAddEmptyTagUndoCommand, moSubEmptyTagUndoCommand>;
TYPED_TEST_SUITE(EmptyTag, Commands);

TYPED_TEST(EmptyTag, KeepsTagAndType)
{
    const std::unique_ptr<TypeParam> command(this->create());
    EXPECT_EQ(command->getTagString(), "approved");
    EXPECT_EQ(command->getTagType(), moTagUndoCommand::SYSTEM_TAG);
}

TYPED_TEST(EmptyTag, ShowsInTheNotificationsAsAnyCommand)
{
    Trace trace(this->stack);
    auto* command = trace.watch(this->create(), "tag");
    const std::string end = " text=string:\"Tag\" description=string:\"Tag\" id=int:" + std::to_string(command->id());

    this->stack.addOrExecute(command);
    EXPECT_THAT(trace.take(),
                ElementsAre("signal redo \"Tag\" added", "message moURManager::redo index=int:0 added=bool:true" + end,
                            "changed \"tag\" true"));
    this->stack.undo();
    EXPECT_THAT(trace.take(),
                ElementsAre("signal undo \"Tag\"", "message moURManager::undo index=int:0 added=bool:false" + end,
                            "changed \"tag\" false"));
    this->stack.redo();
    EXPECT_THAT(trace.take(),
                ElementsAre("signal redo \"Tag\"", "message moURManager::redo index=int:0 added=bool:false" + end,
                            "changed \"tag\" true"));
}

TYPED_TEST(EmptyTag, TwoInARowNeverMerge)
{
    this->stack.add(this->create());
    this->stack.add(this->create());
    EXPECT_EQ(describe(this->stack), "2 steps, at \"Tag\", undo, no redo");
}

TYPED_TEST(EmptyTag, CompositesNeverMerge)
{
    for (int i = 0; i < 2; ++i) {
        this->stack.beginMultiCommand("Tags", "", true);
        this->create();
        this->stack.endMultiCommand();
    }
    EXPECT_EQ(this->stack.size(), 2);
}

TEST(EmptyTagIds, TellAdditionFromRemovalAndFromTheirBase)
{
    const moUndoString text;
    const moEmptyTagUndoCommand base(text, "", moTagUndoCommand::USER_TAG);
    const moAddEmptyTagUndoCommand add(text, "", moTagUndoCommand::USER_TAG);
    const moSubEmptyTagUndoCommand sub(text, "", moTagUndoCommand::USER_TAG);
    EXPECT_EQ(base.id(), -1);
    EXPECT_EQ(add.id(), moAddEmptyTagUndoCommand::commandId());
    EXPECT_EQ(sub.id(), moSubEmptyTagUndoCommand::commandId());
    EXPECT_NE(add.id(), sub.id());
    EXPECT_GT(add.id(), 0);
    EXPECT_GT(sub.id(), 0);
}

} // namespace
