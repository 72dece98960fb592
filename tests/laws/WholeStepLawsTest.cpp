// The law of whole steps: a step happens whole or not at all, also when foreign code throws.
//
// Foreign code is a listener to a change of the scene, a command's own callback, notify and after function, a
// synchronisation function, a slot, the message callback and the changed callback. Each of them passes a checkpoint
// here. Each deed runs once undisturbed and then once for each of its checkpoints, where an exception is thrown. Scene
// and stack must both be as before the deed, or both as after it. The exception must reach the caller. After that, undo
// and redo must give exactly the states of the undisturbed run.

#include <support/EditTrace.h>
#include <support/Ground.h>
#include <support/Samples.h>
#include <support/UndoTest.h>

#include <moUndoStack/moUndoCommands.h>

#include <moOpenSGUtils/moNodeUtils.h>
#include <moUndoUtils/moUndoString.h>

#include <QtCore/QScopeGuard>

#include <algorithm>
#include <cctype>
#include <functional>
#include <iterator>
#include <map>
#include <memory>
#include <new>
#include <stdexcept>

namespace osg {

// Replaces the lists that the commands make, so that a listener to their changes can throw, too.
class LoudVariantList;
typedef FCPtr<TransformVariantsAttachmentPtr, LoudVariantList> LoudVariantListPtr;
OSG_CONTAINER_BASE(LoudVariantList, TransformVariantsAttachment, MO_NO_FIELDS)
class LoudVariantList : public LoudVariantListBase
{
    OSG_CONTAINER(LoudVariantList)
public:
    void changed(BitVector mask, UInt32 origin) override
    {
        Inherited::changed(mask, origin);
        EditTrace::tell(LoudVariantListPtr(this), mask, origin);
    }
};
OSG_CONTAINER_GROUP_IMPL(LoudVariantList, TransformVariantsAttachment, MO_NO_FIELDS, "TransformVariantsAttachment")

} // namespace osg

namespace {

using Lines = std::vector<std::string>;

/// The lines that differ; empty if there is none.
std::string difference(const Lines& now, const Lines& expected)
{
    std::string text = now.size() == expected.size() ? "" : "another number of lines\n";
    for (std::size_t i = 0; i < std::min(now.size(), expected.size()); ++i)
        if (now[i] != expected[i]) text += now[i] + ", not " + expected[i] + '\n';
    return text;
}

struct Fault : std::runtime_error
{
    Fault() : std::runtime_error("fault") {}
};

/// The kind of exception.
enum class Kind
{
    Ordinary,
    /// Thrown by a listener, but the library takes it for a write of a sibling library that failed.
    NoMemory
};

/// Counts the calls of foreign code, and throws from one of them.
struct Checkpoints
{
    Lines passed;
    int failing = 0;
    Kind kind = Kind::Ordinary;
    bool isArmed = false;

    void pass(const char* where)
    {
        if (!isArmed) return;
        passed.emplace_back(where);
        if (static_cast<int>(passed.size()) != failing) return;
        if (kind == Kind::NoMemory) throw std::bad_alloc();
        throw Fault();
    }
};

Checkpoints* s_checkpoints = nullptr;

void pass(const char* where)
{
    if (s_checkpoints) s_checkpoints->pass(where);
}

bool receive(const char*, moMessage&, int)
{
    pass("message");
    return true;
}

template<class... Commands>
void setSyncFunctions(bool on)
{
    const auto each = [on](auto setter, auto function) {
        if (on) function = [](const auto&...) { pass("synchronisation"); };
        setter(function);
    };
    (each(&Commands::setSyncFunction, typename Commands::SyncFunction()), ...);
}

void setAllSyncFunctions(bool on)
{
    setSyncFunctions<moTranslationUndoCommand, moRotationUndoCommand, moScaleUndoCommand, moScalePivotUndoCommand,
                     moRotationPivotUndoCommand, moScalePivotTranslationUndoCommand,
                     moRotationPivotTranslationUndoCommand, moRotationPivotOrientationUndoCommand,
                     moRotationPivotDirectionUndoCommand, moShearUndoCommand, moEulerRotationOrderUndoCommand,
                     moApplyTransformationVariantUndoCommand>(on);
}

const auto callback = [](const auto&...) { pass("callback"); };

/// The commands of the samples' rows have no callbacks of their own; these have.
const std::map<std::string, Sample::Make>& makersWithCallback()
{
    using Target = SampleTarget;
    static const moUndoString text("Sample", QStringLiteral("sample"), QStringLiteral("Samples"));
    static const auto vec = [](int k) { return osg::Vec3f(static_cast<float>(k) + 1.5f, 2.25f, 3.5f); };
    static const auto variants = [](const Target& t) { return moNodeUtils::getTransformVariantCount(t.node()); };
    // clang-format off
    static const std::map<std::string, Sample::Make> makers = {
        {"moTranslationUndoCommand", [](Target& t, int k) -> moUndoCommandBase* { return new moTranslationUndoCommand(t.node(), vec(k), false, nullptr, callback, -1); }},
        {"moRotationUndoCommand", [](Target& t, int k) -> moUndoCommandBase* { return new moRotationUndoCommand(t.node(), vec(k), nullptr, callback, -1); }},
        {"moScaleUndoCommand", [](Target& t, int k) -> moUndoCommandBase* { return new moScaleUndoCommand(t.node(), vec(k), nullptr, callback, -1); }},
        {"moEulerRotationOrderUndoCommand", [](Target& t, int k) -> moUndoCommandBase* { return new moEulerRotationOrderUndoCommand(t.node(), k % 2 == 0 ? "ZYX" : "YXZ", nullptr, callback, -1); }},
        {"moAddTransformVariantUndoCommand", [](Target& t, int k) -> moUndoCommandBase* {
             const auto variant = osg::TransformVariant::create();
             variant->setName("new " + std::to_string(k));
             return new moAddTransformVariantUndoCommand(t.bare(), variant, 0, nullptr, callback); }},
        {"moRemoveTransformSwitchVariantUndoCommand", [](Target& t, int) -> moUndoCommandBase* { return new moRemoveTransformSwitchVariantUndoCommand(t.node(), 0, nullptr, callback); }},
        {"moTransformVariantMoveCommand", [](Target& t, int) -> moUndoCommandBase* {
             const int last = static_cast<int>(variants(t)) - 1;
             return new moTransformVariantMoveCommand(t.node(), std::vector<int>{last, 0}, 0, nullptr, callback); }},
        {"moTransformVariantNameUndoCommand", [](Target& t, int k) -> moUndoCommandBase* { return new moTransformVariantNameUndoCommand(t.variant(), "name " + std::to_string(k), nullptr, callback); }},
        {"moTransformVariantOptionsUndoCommand", [](Target& t, int k) -> moUndoCommandBase* { return new moTransformVariantOptionsUndoCommand(t.variant(), static_cast<std::uint64_t>(k + 1), nullptr, callback); }},
        {"moApplyTransformationVariantUndoCommand", [](Target& t, int k) -> moUndoCommandBase* { return new moApplyTransformationVariantUndoCommand(t.node(), k % 2, true, nullptr, callback); }},
        {"moMultiCommand", [](Target& t, int k) -> moUndoCommandBase* {
             auto* const composite = new moMultiCommand(text, [] { pass("after"); });
             new moTranslationUndoCommand(t.node(), vec(k), false, composite, callback, -1);
             new moFieldUndoCommand<int>(text, t.values(), "singleInt32", k + 1, composite);
             return composite; }},
    };
    // clang-format on
    return makers;
}

/// Classes whose step does not happen if a listener to its change throws, with the reason.
const std::map<std::string, std::string>& notStanding()
{
    static const std::map<std::string, std::string> classes = {
        {"moLightsFunctionUndoCommand<bool>", "the setter is the caller's: what passes it is a write that failed"},
    };
    return classes;
}

/// A use of a command, and its preparation.
struct Deed
{
    const char* name;
    /// Whether the stack shows if the deed was done.
    bool isRecorded;
    std::function<void(moUndoStack& stack, const std::function<moUndoCommandBase*(int)>& make)> prepare;
    std::function<void(moUndoStack& stack, const std::function<moUndoCommandBase*(int)>& make)> act;
};

using Make = std::function<moUndoCommandBase*(int)>;

void composeWith(moUndoStack& stack, const Make& make, int k)
{
    stack.beginMultiCommand("composite", "", true);
    make(-1);
    make(k);
    make(-1);
    stack.endMultiCommand();
}

// clang-format off
const std::vector<Deed>& deeds()
{
    static const auto nothing = [](moUndoStack&, const Make&) {};
    static const std::vector<Deed> all = {
        {"push", true, nothing, [](moUndoStack& s, const Make& make) { s.addOrExecute(make(0)); }},
        {"second push", true, [](moUndoStack& s, const Make& make) { s.addOrExecute(make(0)); },
         [](moUndoStack& s, const Make& make) { s.addOrExecute(make(1)); }},
        {"undo", true, [](moUndoStack& s, const Make& make) { s.addOrExecute(make(0)); },
         [](moUndoStack& s, const Make&) { s.undo(); }},
        {"redo", true, [](moUndoStack& s, const Make& make) { s.addOrExecute(make(0)); s.undo(); },
         [](moUndoStack& s, const Make&) { s.redo(); }},
        {"unrecorded", false, nothing,
         [](moUndoStack& s, const Make& make) {
             moUndoStack::beginBlockUndo();
             const auto end = qScopeGuard(moUndoStack::endBlockUndo);
             s.addOrExecute(make(0));
         }},
        {"by hand", false, nothing,
         [](moUndoStack&, const Make& make) {
             const std::unique_ptr<QUndoCommand> command(make(0));
             command->redo();
         }},
        {"push of a composite", true, nothing, [](moUndoStack& s, const Make& make) { composeWith(s, make, 0); }},
        {"undo of a composite", true, [](moUndoStack& s, const Make& make) { composeWith(s, make, 0); },
         [](moUndoStack& s, const Make&) { s.undo(); }},
    };
    return all;
}
// clang-format on

class EveryStep : public UndoTest, public testing::WithParamInterface<Sample>
{
protected:
    void SetUp() override
    {
        m_quiet = osg::TransformVariantsAttachment::getClassType().getPrototype();
        osg::addRefCP(m_quiet);
        UndoTest::SetUp();
        if (ground::listenersToAttachmentsMayThrow)
            osg::TransformVariantsAttachment::getClassType().setPrototype(
                osg::LoudVariantList::getClassType().getPrototype());
        QObject::connect(&stack, &moUndoStack::redoPerformed, &m_context, [] { pass("signal"); });
        QObject::connect(&stack, &moUndoStack::undoPerformed, &m_context, [] { pass("signal"); });
        stack.setMessageCallback(receive);
        setAllSyncFunctions(true);
        s_checkpoints = &checkpoints;
    }

    void TearDown() override
    {
        s_checkpoints = nullptr;
        setAllSyncFunctions(false);
        stack.setMessageCallback(nullptr);
        stack.disconnect(&m_context);
        moUndoStack::clearAll();
        scene.reset();
        osg::TransformVariantsAttachment::getClassType().setPrototype(m_quiet);
        UndoTest::TearDown();
        osg::subRefCP(m_quiet);
    }

    bool isUndoable() const { return !GetParam().has(Exception::UndoDoesNothing); }

    /// Makes the k-th command of the row, with all its callbacks; for -1 one that counts.
    moUndoCommandBase* make(int k)
    {
        if (k < 0) {
            int& counter = scene->other.counter;
            return new moGenericFunctionUndoCommand(
                moUndoString("count", ""), [&counter] { --counter; }, [&counter] { ++counter; }, nullptr);
        }
        const auto own = makersWithCallback().find(GetParam().className);
        moUndoCommandBase* const command =
            own == makersWithCallback().end() ? GetParam().make(scene->target, k) : own->second(scene->target, k);
        command->setChangedCB([](bool) { pass("changed callback"); });
        listen(*command);
        for (int i = 0; i < command->childCount(); ++i)
            listen(const_cast<QUndoCommand&>(*command->child(i))); // Qt returns children as const only
        return command;
    }

    static void listen(QUndoCommand& command)
    {
        if (auto* const field = dynamic_cast<moFieldBaseUndoCommand<>*>(&command))
            field->setNotifyFunction([] { pass("notify"); });
    }

    /// Scene and stack.
    struct State
    {
        Lines scene;
        std::string stack;
        bool operator==(const State& other) const { return scene == other.scene && stack == other.stack; }
    };
    State state() const { return {scene->digest(), describe(stack)}; }

    void startAnew()
    {
        moUndoStack::clearAll();
        scene.reset();
        scene = std::make_unique<SampleScene>();
        checkpoints = {};
    }

    /// Prepares and runs a deed. Returns whether it threw. The undisturbed run keeps the states before it: each run starts
    /// from the same ones.
    bool run(const Deed& deed, Kind kind, int failing)
    {
        startAnew();
        const Make makeOne = [this](int k) { return make(k); };
        if (failing == 0) origin = scene->digest();
        deed.prepare(stack, makeOne);
        if (failing == 0) before = state();
        EditTrace edits;
        edits.onChange([] { pass("change"); });
        checkpoints.kind = kind;
        checkpoints.failing = failing;
        checkpoints.isArmed = true;
        bool isThrown = false;
        try {
            deed.act(stack, makeOne);
        } catch (const Fault&) {
            isThrown = true;
        } catch (const std::bad_alloc&) {
            isThrown = true;
        }
        checkpoints.isArmed = false;
        return isThrown;
    }

    /// From the state after the deed: undoes all steps and redoes them up to the same state, twice.
    void expectToGoBackAndForth(const State& here)
    {
        if (!isUndoable()) return;
        const bool wasUndone = !stack.canUndo();
        Lines end;
        for (int round = 0; round < 2; ++round) {
            while (stack.canUndo())
                stack.undo();
            EXPECT_EQ(difference(scene->digest(), origin), "") << "undo of round " << round;
            while (stack.canRedo())
                stack.redo();
            if (round == 0) end = wasUndone ? scene->digest() : here.scene;
            EXPECT_EQ(difference(scene->digest(), end), "") << "redo of round " << round;
        }
    }

    void expectWhole(const Deed& deed, Kind kind)
    {
        ASSERT_FALSE(run(deed, kind, 0)) << deed.name;
        const State after = state();
        const Lines places = checkpoints.passed;
        if (deed.isRecorded) expectToGoBackAndForth(after);
        const bool stands = notStanding().count(GetParam().className) == 0;

        for (std::size_t n = 1; n <= places.size() && !HasFailure(); ++n) {
            SCOPED_TRACE(std::string(deed.name) + ": thrown by " + places[n - 1] + ", call " + std::to_string(n));
            EXPECT_TRUE(run(deed, kind, static_cast<int>(n))) << "the exception was lost";
            const State now = state();
            if (kind == Kind::Ordinary && (stands || places[n - 1] != "change"))
                EXPECT_TRUE(now == after)
                    << "what happened does not stand: " << now.stack << ", not " << after.stack << '\n'
                    << difference(now.scene, after.scene);
            else
                EXPECT_TRUE(now == before || now == after) << now.stack << '\n'
                                                           << difference(now.scene, before.scene) << "or\n"
                                                           << difference(now.scene, after.scene);
            if (!(now == before)) {
                EXPECT_EQ(difference(now.scene, after.scene), "");
            }
            if (deed.isRecorded) expectToGoBackAndForth(now);
        }
    }

    std::unique_ptr<SampleScene> scene;
    Checkpoints checkpoints;
    Lines origin;
    State before;

private:
    QObject m_context;
    osg::FieldContainerPtr m_quiet;
};

std::string nameOf(const testing::TestParamInfo<Sample>& info)
{
    std::string name = info.param.className + info.param.form;
    std::replace_if(
        name.begin(), name.end(), [](unsigned char c) { return !std::isalnum(c); }, '_');
    return name;
}

INSTANTIATE_TEST_SUITE_P(Law, EveryStep, testing::ValuesIn(samples()), nameOf);

TEST_P(EveryStep, StandsWholeWhateverForeignCodeThrowsAfterItsWrite)
{
    for (const Deed& deed : deeds())
        expectWhole(deed, Kind::Ordinary);
}

TEST_P(EveryStep, HappensWholeOrNotAtAllWhenAListenerFindsNoMemory)
{
    for (const Deed& deed : deeds())
        expectWhole(deed, Kind::NoMemory);
}

TEST(EveryStepThatMayNotStand, BelongsToARow)
{
    for (const auto& [name, reason] : notStanding()) {
        const auto isIt = [&className = name](const Sample& sample) { return sample.className == className; };
        EXPECT_TRUE(std::any_of(samples().begin(), samples().end(), isIt)) << name << ": " << reason;
    }
}

} // namespace
