// Runs out of memory at each allocation in turn. A program of its own because it replaces operator new.

#include <support/OSGAllFields.h>
#include <support/ProbeCommand.h>
#include <support/Trace.h>
#include <support/UndoTest.h>

#include <moUndoStack/constraint/moAddConstraintSourcesUndoCommand.h>
#include <moUndoStack/core/moGenericFunctionUndoCommand.h>
#include <moUndoStack/field/moFieldUndoCommand.h>
#include <moUndoStack/field/moStringFieldUndoCommand.h>
#include <moUndoStack/field/moUndoUtil.h>
#include <moUndoStack/tag/moAttachedTagUndoCommand.h>
#include <moUndoUtils/moUndoString.h>
#include <moUtils/moMessage.h>

#include <moOpenSGConstraint/OSGAimConstraint.h>

#include <OpenSG/OSGNode.h>
#include <OpenSG/OSGRefPtr.h>

#include <QtCore/QScopeGuard>

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <new>
#include <ostream>
#include <utility>
#include <vector>

namespace {

/// Which of the next allocations fails, counted from 1; 0: none.
long s_failing = 0;

} // namespace

// Not inlined: the compiler would see only one of new and delete, and warn.
__attribute__((noinline)) void* operator new(std::size_t size)
{
    if (s_failing > 0 && --s_failing == 0) throw std::bad_alloc();
    if (void* const block = std::malloc(size > 0 ? size : 1)) return block;
    throw std::bad_alloc();
}

__attribute__((noinline)) void operator delete(void* block) noexcept
{
    std::free(block);
}

__attribute__((noinline)) void operator delete(void* block, std::size_t) noexcept
{
    std::free(block);
}

namespace {

const std::string longText = "a text that is too long to be kept within a string object itself";

struct Operation
{
    const char* name;
    /// It has at least so many allocations.
    int allocations;
    std::function<void(moUndoStack&, const osg::AllSingleFieldsPtr&)> prepare;
    std::function<void(moUndoStack&, const osg::AllSingleFieldsPtr&)> act;
};

void PrintTo(const Operation& operation, std::ostream* out)
{
    *out << operation.name;
}

moUndoString textOf(const char* text)
{
    return moUndoString(QString::fromLatin1(text), QString::fromStdString(longText), QString());
}

void pushProbe(moUndoStack& stack, const char* text)
{
    stack.add((new ProbeCommand(text))->withId(-1));
}

void pushNumber(moUndoStack& stack, const osg::AllSingleFieldsPtr& core, int value)
{
    stack.addOrExecute(new moFieldUndoCommand<int>(textOf("number"), core, "singleInt32", value));
}

void compose(moUndoStack& stack, const osg::AllSingleFieldsPtr& core)
{
    stack.beginMultiCommand("", "", true);
    new ProbeCommand("first");
    new moFieldUndoCommand<int>(textOf("number"), core, "singleInt32", 8);
    stack.beginMultiCommand("inner", "", true);
    new ProbeCommand("second");
    stack.endMultiCommand();
}

/// A command that calls the stack while the stack is at work, so that the call must wait.
ProbeCommand* callingProbe(std::function<void()> call)
{
    return (new ProbeCommand("outer"))->onRedo(std::move(call));
}

// clang-format off
const std::vector<Operation>& operations()
{
    using Stack = moUndoStack;
    using Core = osg::AllSingleFieldsPtr;
    static const auto s_nothing = [](Stack&, const Core&) {};
    static const std::vector<Operation> s_operations = {
        {"Push", 5, s_nothing, [](Stack& s, const Core&) { pushProbe(s, "a"); }},
        {"PushOfAField", 3, s_nothing, [](Stack& s, const Core& core) { pushNumber(s, core, 3); }},
        {"PushOfAString", 3, s_nothing,
         [](Stack& s, const Core& core) {
             s.addOrExecute(new moStringFieldUndoCommand(textOf("string"), core, "singleString", longText));
         }},
        {"MergedPush", 3, [](Stack& s, const Core& core) { pushNumber(s, core, 3); },
         [](Stack& s, const Core& core) { pushNumber(s, core, 4); }},
        {"MergedString", 3,
         [](Stack& s, const Core& core) {
             s.addOrExecute(new moStringFieldUndoCommand(textOf("string"), core, "singleString", "short"));
         },
         [](Stack& s, const Core& core) {
             s.addOrExecute(new moStringFieldUndoCommand(textOf("string"), core, "singleString", longText));
         }},
        {"MakeCommand", 3, s_nothing,
         [](Stack&, const Core& core) { moUndoUtil::makeCommand(textOf("made"), core, "SingleInt32", 5); }},
        {"Unrecorded", 3, s_nothing,
         [](Stack& s, const Core& core) {
             moUndoStack::beginBlockUndo();
             const auto end = qScopeGuard(moUndoStack::endBlockUndo);
             pushNumber(s, core, 3);
         }},
        {"FunctionCommand", 3, s_nothing,
         [](Stack& s, const Core&) {
             const std::string captured = longText;
             s.add(new moGenericFunctionUndoCommand(textOf("functions"), [captured] {}, [captured] {}, nullptr));
         }},
        {"Undo", 3, [](Stack& s, const Core& core) { pushNumber(s, core, 3); },
         [](Stack& s, const Core&) { s.undo(); }},
        {"Redo", 3, [](Stack& s, const Core& core) { pushNumber(s, core, 3); s.undo(); },
         [](Stack& s, const Core&) { s.redo(); }},
        {"UndoOfAString", 3,
         [](Stack& s, const Core& core) {
             s.addOrExecute(new moStringFieldUndoCommand(textOf("string"), core, "singleString", longText));
         },
         [](Stack& s, const Core&) { s.undo(); }},
        {"BeginOfAComposition", 1, s_nothing,
         [](Stack& s, const Core&) { s.beginMultiCommand("composite", "", true); }},
        {"BeginOfANestedComposition", 1,
         [](Stack& s, const Core&) { s.beginMultiCommand("outer", "", true); },
         [](Stack& s, const Core&) { s.beginMultiCommand("inner", "", true); }},
        {"EndOfAComposition", 3, compose, [](Stack& s, const Core&) { s.endMultiCommand(); }},
        {"EndOfACompositionWithoutAParent", 1,
         [](Stack& s, const Core&) {
             s.beginMultiCommand("outer", "", true);
             moUndoStack::beginBlockUndo();
             const auto end = qScopeGuard(moUndoStack::endBlockUndo);
             s.beginMultiCommand("inner", "", true);
         },
         [](Stack& s, const Core&) { s.endMultiCommand(); }},
        {"UnrecordedComposition", 3, compose,
         [](Stack& s, const Core&) {
             moUndoStack::beginBlockUndo();
             const auto end = qScopeGuard(moUndoStack::endBlockUndo);
             s.endMultiCommand();
         }},
        {"UndoOfAComposition", 3,
         [](Stack& s, const Core& core) { compose(s, core); s.endMultiCommand(); },
         [](Stack& s, const Core&) { s.undo(); }},
        // Beginning a macro is left out: Qt itself leaks a few bytes if memory runs out there.
        {"PushIntoAMacro", 2, [](Stack& s, const Core&) { s.beginMacro("macro"); },
         [](Stack& s, const Core&) { pushProbe(s, "a"); }},
        {"EndOfAMacro", 3, [](Stack& s, const Core&) { s.beginMacro("macro"); pushProbe(s, "a"); },
         [](Stack& s, const Core&) { s.endMacro(); }},
        {"Jump", 3, [](Stack& s, const Core& core) { pushNumber(s, core, 3); pushProbe(s, "a"); },
         [](Stack& s, const Core&) { s.reset(); }},
        {"WaitingPush", 5, s_nothing,
         [](Stack& s, const Core&) { s.add(callingProbe([&s] { pushProbe(s, "inner"); })); }},
        {"WaitingComposition", 5, s_nothing,
         [](Stack& s, const Core&) {
             s.add(callingProbe([&s] {
                 s.beginMultiCommand("composite", "", true);
                 // No scope guard: the end of the composition may run out of memory, too.
                 try {
                     new ProbeCommand("child");
                 } catch (...) {
                     s.endMultiCommand();
                     throw;
                 }
                 s.endMultiCommand();
             }));
         }},
        {"Clear", 0, [](Stack& s, const Core& core) { compose(s, core); },
         [](Stack& s, const Core&) { s.clear(); }},
    };
    return s_operations;
}
// clang-format on

bool takeMessage(const char*, moMessage& message, int)
{
    return message.entries().empty();
}

class AllocationFaults : public UndoTest, public testing::WithParamInterface<Operation>
{
protected:
    void SetUp() override
    {
        UndoTest::SetUp();
        m_core = osg::AllSingleFields::create();
        osg::addRefCP(m_core);
        stack.mark();
    }
    void TearDown() override
    {
        osg::subRefCP(m_core);
        UndoTest::TearDown();
    }

    /// One run in which the n-th allocation fails. Returns false if there are fewer.
    bool run(long n)
    {
        SCOPED_TRACE("allocation " + std::to_string(n));
        stack.setMessageCallback(takeMessage);
        GetParam().prepare(stack, m_core);
        const bool wasComposing = moUndoStack::isComposing();
        bool hasFailed = false;
        s_failing = n;
        try {
            GetParam().act(stack, m_core);
        } catch (const std::bad_alloc&) {
            hasFailed = true;
        }
        const bool wasReached = s_failing == 0;
        s_failing = 0;
        stack.setMessageCallback(nullptr);
        EXPECT_EQ(hasFailed, wasReached);
        EXPECT_TRUE(moUndoStack::undoEnabled());
        EXPECT_FALSE(moUndoStack::undoBlocked());
        if (moUndoStack::isComposing()) {
            EXPECT_TRUE(wasComposing || !hasFailed) << "a composition was begun by a call that failed";
        }

        // Closes what is open; nothing may be left.
        stack.clear();
        EXPECT_FALSE(moUndoStack::isComposing());
        EXPECT_EQ(describe(stack), "0 steps, at start, no undo, no redo");
        EXPECT_EQ(ProbeCommand::liveCount(), 0);
        log.take();

        Trace trace(stack);
        pushProbe(stack, "next");
        stack.undo();
        stack.redo();
        EXPECT_EQ(describe(stack), "1 step, at \"next\", undo, no redo");
        EXPECT_EQ(trace.take().size(), 6U);
        stack.clear();
        return wasReached;
    }

private:
    osg::AllSingleFieldsPtr m_core;
};

TEST_P(AllocationFaults, LeaveAStackThatWorksWithNothingLeaked)
{
    long n = 1;
    while (run(n) && !HasFailure())
        ++n;
    EXPECT_GE(n - 1, GetParam().allocations);
}

using Tags = std::vector<std::string>;
using Stamps = std::vector<osg::UInt64>;

struct TagListCase
{
    const char* name;
    Tags before;
    Tags after;
};

void PrintTo(const TagListCase& given, std::ostream* out)
{
    *out << given.name;
}

/// A step of a tag command writes two lists, one after the other.
class TagStepWithoutMemory : public UndoTest, public testing::WithParamInterface<TagListCase>
{
protected:
    using State = std::pair<Tags, Stamps>;

    void SetUp() override
    {
        UndoTest::SetUp();
        m_node->addAttachment(m_tags);
        m_tags->getMFUserTags()->setValues(GetParam().before);
        m_tags->getMFTagStamps()->setValues(Stamps{1});
    }

    State state() const { return {m_tags->getUserTags().getValues(), m_tags->getTagStamps().getValues()}; }

    std::unique_ptr<QUndoCommand> makeCommand() const
    {
        osg::MField<std::string> tags;
        osg::MField<osg::UInt64> old;
        osg::MField<osg::UInt64> stamps;
        tags.setValues(GetParam().after);
        old.setValues(Stamps{1});
        stamps.setValues(Stamps{1, 2, 3});
        return std::make_unique<moAddTagUndoCommand>(textOf("Tag"), m_node, osg::TagAttachment::UserTagsFieldMask,
                                                     osg::TagAttachment::UserTagsFieldId, "tag", &tags, old, stamps);
    }

    /// Runs redo with the n-th allocation failing. Returns false if it is done.
    bool fails(QUndoCommand& command, long n)
    {
        s_failing = n;
        const auto memoryAgain = qScopeGuard([] { s_failing = 0; });
        try {
            command.redo();
        } catch (const std::bad_alloc&) {
            return true;
        }
        return false;
    }

private:
    const osg::NodeRefPtr m_node{osg::Node::create()};
    const osg::RefPtr<osg::TagAttachmentPtr> m_tags{osg::TagAttachment::create()};
};

TEST_P(TagStepWithoutMemory, LeavesBothListsAsTheyWereAndCanBeTriedAgain)
{
    const auto command = makeCommand();
    const State before = state();
    long n = 1;
    for (; fails(*command, n); ++n)
        EXPECT_EQ(state(), before) << "allocation " << n;
    EXPECT_GT(n, 1);
    EXPECT_EQ(state(), State(GetParam().after, {1, 2, 3}));
    command->undo();
    EXPECT_EQ(state(), before);
}

INSTANTIATE_TEST_SUITE_P(OfEachKindOfList, TagStepWithoutMemory,
                         testing::Values(TagListCase{"Longer", {"a"}, {"b", longText, "c"}},
                                         TagListCase{"Shorter", {"a", longText, "c"}, {longText + longText}},
                                         TagListCase{"Emptied", {longText}, {}},
                                         TagListCase{"Filled", {}, {longText, "b"}},
                                         TagListCase{"WithLongerTags", {"a", longText}, {longText, "b"}}),
                         [](const auto& parameter) { return std::string(parameter.param.name); });

INSTANTIATE_TEST_SUITE_P(OfEachOperation, AllocationFaults, testing::ValuesIn(operations()),
                         [](const auto& parameter) { return std::string(parameter.param.name); });

// An edit of several parts, each of which takes memory.
TEST(AllocationFaultsOfSources, AddAllSourcesOrNone)
{
    const osg::AimConstraintPtr aim = osg::AimConstraint::create();
    osg::addRefCP(aim);
    std::vector<osg::AttachmentContainerPtr> nodes;
    for (int i = 0; i < 3; ++i) {
        nodes.push_back(osg::Node::create());
        osg::addRefCP(nodes.back());
    }
    const auto sources = [&] {
        return std::count_if(nodes.begin(), nodes.end(),
                             [&](const auto& node) { return aim->findSourceConstraintObject(node) != osg::NullFC; });
    };

    moAddConstraintSourcesUndoCommand command(aim, nodes, nullptr);
    long n = 1;
    for (bool hasFailed = true; hasFailed; ++n) {
        SCOPED_TRACE("allocation " + std::to_string(n));
        hasFailed = false;
        s_failing = n;
        try {
            command.redo();
        } catch (const std::bad_alloc&) {
            hasFailed = true;
        }
        s_failing = 0;
        EXPECT_EQ(sources(), hasFailed ? 0 : 3);
    }
    EXPECT_GT(n, 6) << "each source takes memory";
    command.undo();
    EXPECT_EQ(sources(), 0);

    for (osg::AttachmentContainerPtr& node : nodes)
        osg::subRefCP(node);
    osg::subRefCP(aim);
}

} // namespace
