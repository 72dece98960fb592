#include <support/OSGAllFields.h>
#include <support/ProbeCommand.h>
#include <support/Trace.h>
#include <support/UndoTest.h>

#include <moOpenSGUtils/moNodeUtils.h>
#include <moOpenSGUtils/moTransformVariantUtils.h>
#include <moUndoStack/core/moInvokeMultiCommand.h>
#include <moUndoStack/field/moFieldUndoCommand.h>
#include <moUndoStack/field/moInvokeBoolFieldUndoCommand.h>
#include <moUndoStack/transform/moApplyTransformationVariantUndoCommand.h>
#include <moUndoStack/transform/moEulerRotationOrderUndoCommand.h>
#include <moUndoStack/transform/moTransformValueUndoCommands.h>
#include <moUndoUtils/moUndoString.h>

#include <OpenSG/OSGTransform3D.h>

#include <QtCore/QScopeGuard>

#include <map>
#include <memory>
#include <ostream>
#include <stdexcept>

// All foreign code that the library calls (a command's own steps, merges, slots, callbacks, synchronisation functions,
// listeners to a change of the scene) passes a checkpoint here. Each scenario runs once for each of its checkpoints,
// and something goes wrong there.

namespace {

struct Fault : std::runtime_error
{
    using std::runtime_error::runtime_error;
};

std::function<void(const char*)> s_onMessage;

bool receive(const char* name, moMessage&, int)
{
    if (s_onMessage) s_onMessage(name);
    return true;
}

/// A slot without and one with an argument. Not slots of Qt: an exception that passes them makes them leak.
class Receiver : public QObject
{
    Q_OBJECT

public:
    std::function<void()> onCall;

public Q_SLOTS:
    void receive() { onCall(); }
    void receive(bool) { onCall(); }
};

/// A scene with every kind of listener. Commands made here pass a checkpoint in each of their steps.
class Stage
{
public:
    explicit Stage(moUndoStack& on) : stack(on)
    {
        core = osg::AllSingleFields::create();
        osg::addRefCP(core);
        core->onChanged = [this](osg::BitVector, osg::UInt32) { passFromTheScene(); };
        node = osg::Node::create();
        osg::addRefCP(node);
        node->setCore(osg::Transform3D::create());

        QObject::connect(&stack, &moUndoStack::redoPerformed, &m_context, [this] { pass("redoPerformed"); });
        QObject::connect(&stack, &moUndoStack::undoPerformed, &m_context, [this] { pass("undoPerformed"); });
        QObject::connect(&stack, &moUndoStack::cleared, &m_context, [this] { pass("cleared"); });
        s_onMessage = [this](const char* name) { pass(name); };
        stack.setMessageCallback(receive);
        setSyncFunctions([this] { pass("synchronisation"); });
        moNodeUtils::createTransformVariantsAttachment(node);
        moNodeUtils::insertTransformVariant(
            node, 0, moTransformVariantUtils::recordTransformVariant(moNodeUtils::getTransform3D(node, -1), "variant"));
        receiver.onCall = [this] { pass("slot"); };
    }
    ~Stage()
    {
        m_trigger = 0;
        stack.setMessageCallback(nullptr);
        s_onMessage = {};
        setSyncFunctions({});
        destroyScene();
    }
    Stage(const Stage&) = delete;
    Stage& operator=(const Stage&) = delete;

    /// From now on checkpoints are counted, and the mischief happens at the trigger-th.
    void arm(int trigger, std::function<void(Stage&)> mischief)
    {
        m_passed.clear();
        m_trigger = trigger;
        m_mischief = std::move(mischief);
    }
    void disarm() { m_trigger = 0; }

    /// Removes all listeners to the stack.
    void silence()
    {
        stack.disconnect(&m_context);
        stack.setMessageCallback(nullptr);
    }

    const std::vector<std::string>& passed() const { return m_passed; }

    void destroyScene()
    {
        osg::subRefCP(core);
        core = osg::NullFC;
        osg::subRefCP(node);
        node = osg::NullFC;
    }

    ProbeCommand* probe(const std::string& name, QUndoCommand* parent = nullptr)
    {
        auto* command = new ProbeCommand(name, parent);
        command->onRedo([this, name] {
            pass("redo " + name);
            ++done[name];
        });
        command->onUndo([this, name] {
            pass("undo " + name);
            --done[name];
        });
        command->setChangedCB([this, name](bool) { pass("changed " + name); });
        return command;
    }
    ProbeCommand* mergingProbe(const std::string& name, bool merges = true)
    {
        return probe(name)->withId(4711)->onMerge([this, merges](const QUndoCommand*) {
            pass("merge");
            return merges;
        });
    }
    moUndoCommand* number(int value, QUndoCommand* parent = nullptr)
    {
        auto* command = new moFieldUndoCommand<int>(moUndoString("number", ""), core, "singleInt32", value, parent);
        command->setNotifyFunction([this] { pass("notify"); });
        return command;
    }
    moUndoCommand* translation(float x)
    {
        return new moTranslationUndoCommand(
            node, osg::Vec3f(x, 0, 0), false, nullptr,
            [this](unsigned int, const osg::Vec3f&, int, bool) { pass("transform callback"); }, -1);
    }

    moUndoCommand* rotationOrder(const std::string& order)
    {
        return new moEulerRotationOrderUndoCommand(
            node, order, nullptr, [this](unsigned int, const std::string&, int) { pass("transform callback"); }, -1);
    }
    moUndoCommand* variant()
    {
        return new moApplyTransformationVariantUndoCommand(node, 0, true, nullptr,
                                                           [this] { pass("transform callback"); });
    }
    moUndoCommand* check()
    {
        return new moInvokeBoolFieldUndoCommand(core, "singleBool", true, &receiver, "receive(bool)");
    }
    moMultiCommand* group()
    {
        auto* command = new moInvokeMultiCommand(moUndoString("group", ""), &receiver, "receive()");
        probe("child", command);
        number(9, command);
        return command;
    }

    /// Records a composite with a composite in it.
    void compose()
    {
        stack.beginMultiCommand("composite", "", true);
        probe("first");
        number(5);
        stack.beginMultiCommand("inner", "", true);
        probe("second");
        stack.endMultiCommand();
        probe("third");
    }
    void composeValues(float value)
    {
        stack.beginMultiCommand("composite", "", true);
        translation(value);
        number(static_cast<int>(value));
        stack.endMultiCommand();
    }
    void openMacro()
    {
        stack.beginMacro("macro");
        stack.add(probe("in macro"));
        stack.add(number(6));
    }
    void pushThree()
    {
        stack.add(probe("a"));
        stack.add(translation(1.0F));
        stack.add(probe("c"));
    }

    void pass(const std::string& where)
    {
        m_passed.push_back(where);
        if (static_cast<int>(m_passed.size()) != m_trigger) return;
        // Disarmed and copied first: the mischief passes checkpoints, too.
        m_trigger = 0;
        const auto mischief = m_mischief;
        mischief(*this);
    }

    moUndoStack& stack;
    Receiver receiver;
    osg::AllSingleFieldsPtr core;
    osg::NodePtr node;
    std::map<std::string, int> done; ///< how often each probe was done minus how often it was undone

private:
    /// Sets the synchronisation function of each class that has one.
    static void setSyncFunctions(const std::function<void()>& function)
    {
        moTranslationUndoCommand::SyncFunction translation;
        moEulerRotationOrderUndoCommand::SyncFunction order;
        moApplyTransformationVariantUndoCommand::SyncFunction variant;
        if (function) {
            const auto all = [function](const auto&...) { function(); };
            translation = all;
            order = all;
            variant = all;
        }
        moTranslationUndoCommand::setSyncFunction(translation);
        moEulerRotationOrderUndoCommand::setSyncFunction(order);
        moApplyTransformationVariantUndoCommand::setSyncFunction(variant);
    }

    /// Does not use the container afterwards: it may be destroyed.
    void passFromTheScene()
    {
        Stage& self = *this;
        self.pass("changed container");
    }

    QObject m_context;
    std::vector<std::string> m_passed;
    int m_trigger = 0;
    std::function<void(Stage&)> m_mischief;
};

struct Scenario
{
    const char* name;
    /// Checkpoints that a run without mischief must pass.
    std::vector<std::string> places;
    std::function<void(Stage&)> prepare;
    std::function<void(Stage&)> act;
    /// Whether undoing everything afterwards must leave no probe done, whichever checkpoint threw.
    bool isWhole;
};

const char* const redoMessage = "moURManager::redo";
const char* const undoMessage = "moURManager::undo";

// clang-format off
const std::vector<Scenario>& scenarios()
{
    static const auto s_nothing = [](Stage&) {};
    static const std::vector<Scenario> s_scenarios = {
        {"Push", {"redo a", "redoPerformed", redoMessage, "changed a"},
         s_nothing, [](Stage& s) { s.stack.add(s.probe("a")); }, true},
        {"PushAfterUndo", {"redo d", "redoPerformed", redoMessage, "changed d"},
         [](Stage& s) { s.pushThree(); s.stack.undo(); s.stack.undo(); },
         [](Stage& s) { s.stack.add(s.probe("d")); }, true},
        {"PushOfAField", {"changed container", "notify", "redoPerformed", redoMessage},
         s_nothing, [](Stage& s) { s.stack.add(s.number(7)); }, true},
        {"PushOfATransform", {"transform callback", "synchronisation", "redoPerformed", redoMessage},
         s_nothing, [](Stage& s) { s.stack.add(s.translation(7.0F)); }, true},
        {"PushOfARotationOrder", {"transform callback", "synchronisation", "redoPerformed", redoMessage},
         s_nothing, [](Stage& s) { s.stack.add(s.rotationOrder("ZYX")); }, true},
        {"PushOfAVariant", {"transform callback", "synchronisation", "redoPerformed", redoMessage},
         s_nothing, [](Stage& s) { s.stack.add(s.variant()); }, true},
        {"PushOfACheck", {"changed container", "slot", "redoPerformed", redoMessage},
         s_nothing, [](Stage& s) { s.stack.add(s.check()); }, true},
        {"PushOfAGroupWithASlot", {"redo child", "changed container", "notify", "slot", "redoPerformed", redoMessage,
                                   "changed child"},
         s_nothing, [](Stage& s) { s.stack.add(s.group()); }, true},
        {"UndoOfAGroupWithASlot", {"changed container", "notify", "undo child", "slot", "undoPerformed", undoMessage,
                                   "changed child"},
         [](Stage& s) { s.stack.add(s.group()); }, [](Stage& s) { s.stack.undo(); }, true},
        {"MergedPush", {"redo b", "merge", "redoPerformed", redoMessage, "changed a"},
         [](Stage& s) { s.stack.add(s.mergingProbe("a")); },
         [](Stage& s) { s.stack.add(s.mergingProbe("b")); }, false},
        {"RefusedMerge", {"redo b", "merge", "redoPerformed", redoMessage, "changed b"},
         [](Stage& s) { s.stack.add(s.mergingProbe("a", false)); },
         [](Stage& s) { s.stack.add(s.mergingProbe("b")); }, false},
        {"Unrecorded", {"redo a", "redoPerformed", redoMessage, "changed a"},
         s_nothing,
         [](Stage& s) {
             moUndoStack::beginBlockUndo();
             const auto end = qScopeGuard(moUndoStack::endBlockUndo);
             s.stack.addOrExecute(s.probe("a"));
         }, false},
        {"Composite", {"redo first", "changed container", "notify", "redo second", "redo third", "redoPerformed", redoMessage,
                       "changed first", "changed second", "changed third"},
         [](Stage& s) { s.compose(); }, [](Stage& s) { s.stack.endMultiCommand(); }, true},
        {"UnrecordedComposite", {"redo first", "changed container", "notify", "redo second", "redo third", "redoPerformed",
                                 redoMessage, "changed first", "changed second", "changed third"},
         [](Stage& s) { s.compose(); },
         [](Stage& s) {
             moUndoStack::beginBlockUndo();
             const auto end = qScopeGuard(moUndoStack::endBlockUndo);
             s.stack.endMultiCommand();
         }, false},
        {"UndoOfAComposite", {"undo third", "undo second", "changed container", "notify", "undo first", "undoPerformed",
                              undoMessage, "changed first", "changed second", "changed third"},
         [](Stage& s) { s.compose(); s.stack.endMultiCommand(); }, [](Stage& s) { s.stack.undo(); }, true},
        {"RedoOfAComposite", {"redo first", "changed container", "notify", "redo second", "redo third", "redoPerformed",
                              redoMessage, "changed first", "changed second", "changed third"},
         [](Stage& s) { s.compose(); s.stack.endMultiCommand(); s.stack.undo(); },
         [](Stage& s) { s.stack.redo(); }, true},
        {"MergedComposite", {"transform callback", "synchronisation", "changed container", "notify", "redoPerformed",
                             redoMessage},
         [](Stage& s) { s.composeValues(2.0F); }, [](Stage& s) { s.composeValues(3.0F); }, true},
        {"MadeByHand", {"redo child", "changed container", "notify", "after", "redoPerformed", redoMessage, "changed child"},
         s_nothing,
         [](Stage& s) {
             auto* group = new moMultiCommand(moUndoString("group", ""), [&s] { s.pass("after"); });
             s.probe("child", group);
             s.number(9, group);
             s.stack.add(group);
         }, true},
        {"PushIntoAMacro", {"redo more"},
         [](Stage& s) { s.openMacro(); }, [](Stage& s) { s.stack.add(s.probe("more")); }, false},
        {"EndOfAMacro", {"redoPerformed", redoMessage},
         [](Stage& s) { s.openMacro(); }, [](Stage& s) { s.stack.endMacro(); }, true},
        {"UndoOfAMacro", {"changed container", "notify", "undo in macro", "undoPerformed", undoMessage},
         [](Stage& s) { s.openMacro(); s.stack.endMacro(); }, [](Stage& s) { s.stack.undo(); }, false},
        {"RedoOfAMacro", {"redo in macro", "changed container", "notify", "redoPerformed", redoMessage},
         [](Stage& s) { s.openMacro(); s.stack.endMacro(); s.stack.undo(); },
         [](Stage& s) { s.stack.redo(); }, false},
        {"JumpBack", {"undo c", "transform callback", "synchronisation", "undo a", "undoPerformed", undoMessage, "changed a"},
         [](Stage& s) { s.stack.mark(); s.pushThree(); }, [](Stage& s) { s.stack.reset(); }, false},
        {"JumpForward", {"redo a", "transform callback", "synchronisation", "redo c", "redoPerformed", redoMessage,
                         "changed c"},
         [](Stage& s) { s.pushThree(); s.stack.mark(); for (int i = 0; i < 3; ++i) s.stack.undo(); },
         [](Stage& s) { s.stack.reset(); }, false},
        {"Clear", {"undoPerformed", "cleared"},
         [](Stage& s) { s.pushThree(); }, [](Stage& s) { s.stack.clear(); }, false},
        {"ClearOfASecondHalf", {"redoPerformed", "cleared"},
         [](Stage& s) { s.stack.add(s.probe("a")); s.stack.undo(); }, [](Stage&) { moUndoStack::clearAll(); }, false},
    };
    return s_scenarios;
}
// clang-format on

/// What goes wrong at a checkpoint.
struct Mischief
{
    const char* name;
    std::function<void(Stage&)> function;
    bool isThrown;
    bool keepsHistory = true;
};

const std::vector<Mischief>& mischiefs()
{
    static const std::vector<Mischief> s_mischiefs = {
        {"Throw", [](Stage&) { throw Fault("fault"); }, true},
        {"DestroyTheScene", [](Stage& s) { s.destroyScene(); }, false},
        {"Clear", [](Stage& s) { s.stack.clear(); }, false, false},
        {"Undo", [](Stage& s) { s.stack.undo(); }, false},
        {"Redo", [](Stage& s) { s.stack.redo(); }, false},
        {"Push", [](Stage& s) { s.stack.addOrExecute(s.probe("extra")); }, false},
        {"EmptyComposition",
         [](Stage& s) {
             s.stack.beginMultiCommand("", "", true);
             s.stack.endMultiCommand();
         },
         false},
        {"ThrowAfterPush",
         [](Stage& s) {
             s.stack.addOrExecute(s.probe("extra"));
             throw Fault("fault");
         },
         true},
    };
    return s_mischiefs;
}

void PrintTo(const Scenario& scenario, std::ostream* out)
{
    *out << scenario.name;
}

void PrintTo(const Mischief& mischief, std::ostream* out)
{
    *out << mischief.name;
}

class Faults : public UndoTest, public testing::WithParamInterface<std::tuple<Scenario, Mischief>>
{
protected:
    void expectTheStackToWork()
    {
        Trace trace(stack);
        std::vector<std::string> steps;
        const int before = stack.size();
        const bool hadRedo = stack.canRedo();
        stack.addOrExecute((new ProbeCommand("next"))->loggingTo(steps));
        EXPECT_TRUE(stack.size() == before + 1 || hadRedo);
        stack.undo();
        stack.redo();
        EXPECT_THAT(steps, testing::ElementsAre("redo next", "undo next", "redo next"));
        const auto message = [](const char* end) { return testing::HasSubstr(end); };
        EXPECT_THAT(trace.take(), testing::ElementsAre("signal redo \"next\" added", message("added=bool:true"), //
                                                       "signal undo \"next\"", message("moURManager::undo"),     //
                                                       "signal redo \"next\"", message("added=bool:false")));
    }

    /// One run, with the mischief at the trigger-th checkpoint. Returns false if there are fewer.
    bool run(int trigger)
    {
        const auto& [scenario, mischief] = GetParam();
        Stage stage(stack);
        scenario.prepare(stage);
        stage.arm(trigger, mischief.function);
        bool isThrown = false;
        try {
            scenario.act(stage);
        } catch (const Fault&) {
            isThrown = true;
        }
        stage.disarm();
        const std::vector<std::string> passed = stage.passed();
        const bool wasReached = static_cast<int>(passed.size()) >= trigger;
        SCOPED_TRACE(wasReached ? "at " + passed[static_cast<std::size_t>(trigger - 1)] : "after the last checkpoint");
        if (!wasReached) {
            EXPECT_THAT(passed, testing::ElementsAreArray(scenario.places));
        }
        EXPECT_EQ(isThrown, wasReached && mischief.isThrown);

        EXPECT_TRUE(moUndoStack::undoEnabled());
        EXPECT_FALSE(moUndoStack::undoBlocked());
        EXPECT_FALSE(moUndoStack::isComposing());
        EXPECT_THAT(log.take(), testing::IsEmpty());
        if (!stack.isEmpty() && !stack.canUndo() && !stack.canRedo()) stack.endMacro();

        if (scenario.isWhole && mischief.keepsHistory) {
            while (stack.canUndo())
                stack.undo();
            for (const auto& [name, times] : stage.done)
                EXPECT_EQ(times, 0) << name << " is done, and nobody can undo it";
        }
        stage.silence();
        expectTheStackToWork();
        stack.clear();
        EXPECT_EQ(describe(stack), "0 steps, at start, no undo, no redo");
        EXPECT_EQ(ProbeCommand::liveCount(), 0);
        return wasReached;
    }
};

TEST_P(Faults, LeaveAStackThatWorksWithNothingLeaked)
{
    int trigger = 1;
    while (run(trigger) && !HasFailure())
        ++trigger;
    EXPECT_EQ(trigger, static_cast<int>(std::get<Scenario>(GetParam()).places.size()) + 1);
}

INSTANTIATE_TEST_SUITE_P(AtEachCheckpoint, Faults,
                         testing::Combine(testing::ValuesIn(scenarios()), testing::ValuesIn(mischiefs())),
                         [](const auto& parameters) {
                             return std::string(std::get<Scenario>(parameters.param).name) + '_' +
                                    std::get<Mischief>(parameters.param).name;
                         });

} // namespace

#include "FaultsTest.moc"
