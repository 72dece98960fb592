#include "MaterialTest.h"

#include <moUndoStack/core/moMultiCommand.h>
#include <moUndoStack/field/moBoolFieldUndoCommand.h>
#include <moUndoStack/field/moStringFieldUndoCommand.h>
#include <moUndoStack/material/moColorComponentUndoCommand.h>
#include <moUndoStack/material/moMaterialUndoCommand.h>

#include <functional>
#include <stdexcept>

namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;

using Lines = std::vector<std::string>;

// The two commands differ in what they add to a step and in the names of their keys; all else is asked of both.
struct ColorComponent
{
    using Command = moColorComponentUndoCommand;
    static constexpr bool touches = false;
    static constexpr const char* firstKey = "component";
    static constexpr const char* secondKey = "parent";

    static Command* create(const moUndoString& text, moFieldBaseUndoCommand<>* command, osg::FieldContainerPtr first,
                           osg::FieldContainerPtr second)
    {
        return new Command(text, command, second, first, nullptr);
    }
};

struct Material
{
    using Command = moMaterialUndoCommand;
    static constexpr bool touches = true;
    static constexpr const char* firstKey = "material";
    static constexpr const char* secondKey = "componentSettings";

    static Command* create(const moUndoString& text, moFieldBaseUndoCommand<>* command, osg::FieldContainerPtr first,
                           osg::FieldContainerPtr second)
    {
        return new Command(text, command, first, second, nullptr);
    }
};

/// A field command that answers to a merge as the test says and counts its instances.
class ProbeField : public moFieldBaseUndoCommand<>
{
public:
    ProbeField(bool canMerge, bool merges)
        : moFieldBaseUndoCommand<>(moUndoString(), osg::NullFC, 1, nullptr), m_canMerge(canMerge), m_merges(merges)
    {
        ++s_count;
    }
    ~ProbeField() override { --s_count; }

    bool canMergeWith(const QUndoCommand*) const override { return m_canMerge; }
    bool mergeWith(const QUndoCommand*) override { return m_merges; }

    static int s_count;

private:
    bool m_canMerge;
    bool m_merges;
};

int ProbeField::s_count = 0;

template<class Row>
class Wrapped : public MaterialTest
{
protected:
    using Command = typename Row::Command;
    using Owner = std::unique_ptr<Command>;

    /// The command on the material and its settings.
    Command* wrap(moFieldBaseUndoCommand<>* command) { return Row::create(text, command, material, settings); }
    Owner make(moFieldBaseUndoCommand<>* command) { return Owner(wrap(command)); }

    /// The trace of a step in which the field command wrote the field.
    static Lines step(const std::string& field)
    {
        Lines lines = touches();
        lines.insert(lines.begin(), field);
        return lines;
    }
    static Lines touches()
    {
        return Row::touches ? Lines{"settings planarProjection 1", "material colorComponentData 1"} : Lines();
    }

    /// The message of a command on the material and its settings.
    std::string message(unsigned int containerId) const
    {
        return "id=int:" + std::to_string(Command::commandId()) + key("container", containerId) +
               key(Row::firstKey, id(material)) + key(Row::secondKey, id(settings));
    }
};

using Rows = testing::Types<ColorComponent, Material>;
TYPED_TEST_SUITE(Wrapped, Rows);

TYPED_TEST(Wrapped, NothingIsWrittenAtConstruction)
{
    const auto command = this->make(this->setRed(0.5f));
    EXPECT_EQ(this->settings->getRed(), 1.0f);
    EXPECT_THAT(this->edits.take(), IsEmpty());
}

TYPED_TEST(Wrapped, EveryStepIsTheFieldCommandsAndThenItsOwnNotifications)
{
    const auto command = this->make(this->setRed(0.5f));
    for (int round = 0; round < 2; ++round) {
        command->redo();
        EXPECT_EQ(this->settings->getRed(), 0.5f);
        EXPECT_THAT(this->edits.take(), ElementsAreArray(this->step("settings red 1")));
        command->undo();
        EXPECT_EQ(this->settings->getRed(), 1.0f);
        EXPECT_THAT(this->edits.take(), ElementsAreArray(this->step("settings red 1")));
    }
}

TYPED_TEST(Wrapped, RendererSeesTheColourOnlyWhenTheMaterialTellsOfIt)
{
    const auto command = this->make(this->setRed(0.5f));
    command->redo();
    EXPECT_THAT(this->rendered(), ElementsAre(TypeParam::touches ? 0.5f : 1.0f, 1, 1, 0));
    command->undo();
    EXPECT_THAT(this->rendered(), ElementsAre(1, 1, 1, 0));
}

TYPED_TEST(Wrapped, DragIsOneStepAndItsUndoReturnsToTheValueBeforeTheFirst)
{
    for (const float red : {0.9f, 0.8f, 0.7f, 0.6f, 0.5f})
        this->stack.addOrExecute(this->wrap(this->setRed(red)));
    EXPECT_EQ(this->stack.size(), 1);
    EXPECT_EQ(this->settings->getRed(), 0.5f);
    this->stack.undo();
    EXPECT_EQ(this->settings->getRed(), 1.0f);
    this->stack.redo();
    EXPECT_EQ(this->settings->getRed(), 0.5f);
}

TYPED_TEST(Wrapped, MergeIntervalSlidesWithEachStep)
{
    for (const float red : {0.9f, 0.8f, 0.7f, 0.6f, 0.5f}) {
        this->stack.add(this->wrap(this->setRed(red)));
        this->clock.advance(0.375);
    }
    EXPECT_EQ(this->stack.size(), 1);
    this->clock.advance(0.25);
    this->stack.add(this->wrap(this->setRed(0.4f)));
    EXPECT_EQ(this->stack.size(), 2);
}

TYPED_TEST(Wrapped, FieldCommandsThatRefuseKeepTheirWrappersApart)
{
    const auto green = [this] { return new moFieldUndoCommand<float>(this->text, this->settings, "green", 0.5f); };
    const auto off = [this] { return new moBoolFieldUndoCommand(this->settings, "enabled", false); };
    this->stack.add(this->wrap(this->setRed(0.5f)));
    this->stack.add(this->wrap(green()));
    this->stack.add(this->wrap(off()));
    this->stack.add(this->wrap(off()));
    EXPECT_EQ(this->stack.size(), 4);
}

TYPED_TEST(Wrapped, WrapperThatIsSetNotToMergeStaysApart)
{
    this->stack.add(this->wrap(this->setRed(0.5f)));
    auto* const alone = this->wrap(this->setRed(0.25f));
    alone->setMergeEnabled(false);
    this->stack.add(alone);
    EXPECT_EQ(this->stack.size(), 2);
}

TYPED_TEST(Wrapped, OtherContainersInEitherPlaceKeepThemApart)
{
    const auto command = this->make(this->setRed(0.5f));
    const osg::FieldContainerPtr none;
    const auto merges = [&](const osg::FieldContainerPtr& first, const osg::FieldContainerPtr& other) {
        const typename TestFixture::Owner newer(TypeParam::create(this->text, this->setRed(0.25f), first, other));
        const bool can = command->canMergeWith(newer.get());
        EXPECT_EQ(command->mergeWith(newer.get()), can);
        return can;
    };
    EXPECT_FALSE(merges(this->otherMaterial, this->settings));
    EXPECT_FALSE(merges(this->material, this->otherSettings));
    EXPECT_FALSE(merges(this->settings, this->material));
    EXPECT_FALSE(merges(none, this->settings));
    EXPECT_FALSE(merges(this->material, none));
    EXPECT_TRUE(merges(this->material, this->settings));
}

TYPED_TEST(Wrapped, StringCommandsChainThroughTheirWrappers)
{
    for (const char* label : {"b", "bc"})
        this->stack.add(this->wrap(new moStringFieldUndoCommand(this->settings, "label", label)));
    EXPECT_EQ(this->stack.size(), 1);
    this->stack.undo();
    EXPECT_EQ(this->settings->getLabel(), "");
    this->stack.redo();
    EXPECT_EQ(this->settings->getLabel(), "bc");
}

TYPED_TEST(Wrapped, MergeAnswersWhatTheFieldCommandsMergeAnswers)
{
    const auto newer = this->make(new ProbeField(true, true));
    EXPECT_TRUE(this->make(new ProbeField(true, true))->mergeWith(newer.get()));
    EXPECT_FALSE(this->make(new ProbeField(true, false))->mergeWith(newer.get()));
    EXPECT_FALSE(this->make(new ProbeField(false, true))->mergeWith(newer.get()));
    EXPECT_FALSE(this->make(new ProbeField(false, true))->canMergeWith(newer.get()));
}

TYPED_TEST(Wrapped, TimeIsTakenOverThoughTheFieldCommandDoesNotMergeInTheEnd)
{
    const auto older = this->make(new ProbeField(true, false));
    this->clock.advance(0.375);
    EXPECT_FALSE(older->mergeWith(this->make(new ProbeField(true, true)).get()));
    this->clock.advance(0.375);
    EXPECT_TRUE(older->canMergeWith(this->make(new ProbeField(true, true)).get()));
}

TYPED_TEST(Wrapped, NullAndForeignCommandsAreRefused)
{
    const auto command = this->make(this->setRed(0.5f));
    const std::unique_ptr<QUndoCommand> field(this->setRed(0.25f));
    const QUndoCommand plain;
    EXPECT_FALSE(command->canMergeWith(nullptr));
    EXPECT_FALSE(command->mergeWith(nullptr));
    EXPECT_FALSE(command->mergeWith(&plain));
    EXPECT_FALSE(command->mergeWith(field.get()));
}

TYPED_TEST(Wrapped, FieldCommandIsDeletedWithItsWrapper)
{
    auto command = this->make(new ProbeField(true, true));
    EXPECT_EQ(ProbeField::s_count, 1);
    command.reset();
    EXPECT_EQ(ProbeField::s_count, 0);

    this->stack.add(this->wrap(new ProbeField(true, true)));
    this->stack.add(this->wrap(new ProbeField(true, true)));
    EXPECT_EQ(this->stack.size(), 1);
    EXPECT_EQ(ProbeField::s_count, 1) << "the merged one went with its wrapper";
    this->stack.clear();
    EXPECT_EQ(ProbeField::s_count, 0);
}

TYPED_TEST(Wrapped, RunWithoutRecordingItIsDoneAndDeleted)
{
    moUndoStack::beginBlockUndo();
    this->stack.addOrExecute(this->wrap(this->setRed(0.5f)));
    this->stack.addOrExecute(this->wrap(new ProbeField(true, true)));
    moUndoStack::endBlockUndo();
    EXPECT_EQ(this->settings->getRed(), 0.5f);
    EXPECT_EQ(ProbeField::s_count, 0);
    EXPECT_TRUE(this->stack.isEmpty());
}

TYPED_TEST(Wrapped, InertFieldCommandWritesNothingAndTheNotificationsAreSentAllTheSame)
{
    const auto command = this->make(new moFieldUndoCommand<float>(this->text, this->settings, "noSuchField", 0.5f));
    command->redo();
    EXPECT_THAT(this->edits.take(), ElementsAreArray(this->touches()));
    command->undo();
    EXPECT_THAT(this->edits.take(), ElementsAreArray(this->touches()));
    EXPECT_EQ(this->messageOf(*command), this->message(0));
}

TYPED_TEST(Wrapped, NullFieldCommandMakesItInert)
{
    const auto command = this->make(nullptr);
    command->redo();
    command->undo();
    EXPECT_THAT(this->edits.take(), IsEmpty());
    EXPECT_EQ(this->messageOf(*command), this->message(0));
    EXPECT_FALSE(command->mergeWith(this->make(this->setRed(0.5f)).get()));
    EXPECT_FALSE(this->make(this->setRed(0.5f))->mergeWith(command.get()));
    EXPECT_TRUE(command->mergeWith(this->make(nullptr).get())) << "nothing is lost";
}

TYPED_TEST(Wrapped, NullContainersArePassedOverAndLeftOutOfTheMessage)
{
    const osg::FieldContainerPtr none;
    const auto message = [this](const osg::FieldContainerPtr& first, const osg::FieldContainerPtr& other) {
        const typename TestFixture::Owner command(TypeParam::create(this->text, this->setRed(0.5f), first, other));
        command->redo();
        command->undo();
        return this->messageOf(*command);
    };
    const std::string begin =
        "id=int:" + std::to_string(TypeParam::Command::commandId()) + this->key("container", this->id(this->settings));
    const std::string first = this->key(TypeParam::firstKey, this->id(this->material));
    const std::string other = this->key(TypeParam::secondKey, this->id(this->settings));
    EXPECT_EQ(message(none, none), begin);
    EXPECT_EQ(message(this->material, none), begin + first);
    EXPECT_EQ(message(none, this->settings), begin + other);
    EXPECT_EQ(message(this->material, this->settings), begin + first + other);
}

TYPED_TEST(Wrapped, MaterialThatWasDestroyedIsPassedOver)
{
    const auto command = this->make(this->setRed(0.5f));
    command->redo();
    this->edits.take();
    this->destroy(this->material);
    command->undo();
    EXPECT_EQ(this->settings->getRed(), 1.0f);
    Lines expected = this->step("settings red 1");
    if (TypeParam::touches) expected.pop_back();
    EXPECT_THAT(this->edits.take(), ElementsAreArray(expected));
}

TYPED_TEST(Wrapped, SettingsThatWereDestroyedArePassedOver)
{
    const auto command = this->make(this->setRed(0.5f));
    command->redo();
    this->destroySettings();
    this->edits.take();
    command->undo();
    Lines expected = this->touches();
    if (TypeParam::touches) expected.erase(expected.begin());
    EXPECT_THAT(this->edits.take(), ElementsAreArray(expected));
}

TYPED_TEST(Wrapped, HoldsNoContainer)
{
    this->stack.add(this->wrap(this->setRed(0.5f)));
    EXPECT_EQ(this->material.getRefCount(), 1);
    EXPECT_EQ(this->settings.getRefCount(), 2);
}

TYPED_TEST(Wrapped, FieldCommandMadeWhileACompositionIsOpenIsRunOnce)
{
    this->stack.beginMultiCommand("Colours", QString(), true);
    this->stack.addOrExecute(this->wrap(this->setRed(0.5f)));
    this->stack.endMultiCommand();
    ASSERT_EQ(this->stack.size(), 1);
    for (int round = 0; round < 2; ++round) {
        EXPECT_EQ(this->settings->getRed(), 0.5f);
        EXPECT_THAT(this->edits.take(), ElementsAreArray(this->step("settings red 1")));
        this->stack.undo();
        EXPECT_EQ(this->settings->getRed(), 1.0f);
        EXPECT_THAT(this->rendered(), ElementsAre(1, 1, 1, 0));
        EXPECT_THAT(this->edits.take(), ElementsAreArray(this->step("settings red 1")));
        this->stack.redo();
    }
}

TYPED_TEST(Wrapped, FieldCommandMadeBeforeTheCompositionIsRunByItsWrapper)
{
    auto* const red = this->setRed(0.5f);
    this->stack.beginMultiCommand("Colours", QString(), true);
    this->stack.addOrExecute(this->wrap(red));
    this->stack.endMultiCommand();
    EXPECT_EQ(this->settings->getRed(), 0.5f);
    EXPECT_THAT(this->edits.take(), ElementsAreArray(this->step("settings red 1")));
    this->stack.undo();
    EXPECT_EQ(this->settings->getRed(), 1.0f);
}

TYPED_TEST(Wrapped, ComposedDragIsOneStepAndItsUndoReturnsToTheValueBeforeTheFirst)
{
    for (const float red : {0.75f, 0.5f, 0.25f}) {
        this->stack.beginMultiCommand("Colours", QString(), true);
        this->stack.addOrExecute(this->wrap(this->setRed(red)));
        this->stack.endMultiCommand();
    }
    EXPECT_EQ(this->stack.size(), 1);
    EXPECT_EQ(this->settings->getRed(), 0.25f);
    this->stack.undo();
    EXPECT_EQ(this->settings->getRed(), 1.0f);
}

TYPED_TEST(Wrapped, FieldCommandOfAnotherParentIsLeftToThatParentWhicheverGoesFirst)
{
    auto parent = std::make_unique<moMultiCommand>(moUndoString());
    auto command = this->make(this->setRed(0.5f, parent.get()));
    command->redo();
    EXPECT_EQ(this->settings->getRed(), 1.0f);
    parent->redo();
    EXPECT_EQ(this->settings->getRed(), 0.5f);
    EXPECT_THAT(this->edits.take(), ElementsAreArray(this->step("settings red 1")));
    command.reset();
    parent->undo();
    EXPECT_EQ(this->settings->getRed(), 1.0f);
    EXPECT_THAT(this->edits.take(), ElementsAreArray(this->step("settings red 1")));

    command = this->make(this->setRed(0.5f, parent.get()));
    parent.reset();
    command->redo();
    command->undo();
    EXPECT_EQ(this->messageOf(*command), this->message(this->id(this->settings)));
}

TYPED_TEST(Wrapped, TheCallersNotifyFunctionStillRunsOncePerStepAndBeforeTheTouches)
{
    for (const bool composed : {false, true}) {
        SCOPED_TRACE(composed);
        int notified = 0;
        if (composed) this->stack.beginMultiCommand("Colours", QString(), true);
        auto* const red = this->setRed(0.5f);
        red->setNotifyFunction([&] {
            ++notified;
            EXPECT_THAT(this->edits.take(), ElementsAre("settings red 1"));
        });
        this->stack.addOrExecute(this->wrap(red));
        if (composed) this->stack.endMultiCommand();
        EXPECT_EQ(notified, 1);
        EXPECT_THAT(this->edits.take(), ElementsAreArray(this->touches()));
        this->stack.undo();
        EXPECT_EQ(notified, 2);
        EXPECT_THAT(this->edits.take(), ElementsAreArray(this->touches()));
        this->stack.clear();
    }
}

TYPED_TEST(Wrapped, ANotifyFunctionSetAfterWrappingDoesNotSilenceTheTouches)
{
    for (const bool composed : {false, true}) {
        SCOPED_TRACE(composed);
        int notified = 0;
        if (composed) this->stack.beginMultiCommand("Colours", QString(), true);
        auto* const red = this->setRed(0.5f);
        this->stack.addOrExecute(this->wrap(red));
        red->setNotifyFunction([&notified] { ++notified; });
        if (composed) this->stack.endMultiCommand();
        this->edits.take();
        this->stack.undo();
        EXPECT_EQ(notified, composed ? 2 : 1);
        EXPECT_THAT(this->edits.take(), ElementsAreArray(this->step("settings red 1")));
        red->setNotifyFunction({});
        this->stack.redo();
        EXPECT_THAT(this->edits.take(), ElementsAreArray(this->step("settings red 1")));
        this->stack.clear();
        this->edits.take();
        this->settings->setRed(1);
    }
}

TYPED_TEST(Wrapped, TwoWrappersOfOneFieldCommandBothFollowIt)
{
    auto parent = std::make_unique<moMultiCommand>(moUndoString());
    auto* const red = this->setRed(0.5f, parent.get());
    const auto first = this->make(red);
    const typename TestFixture::Owner other(
        TypeParam::create(this->text, red, this->otherMaterial, this->otherSettings));
    this->edits.name(this->otherMaterial, "other material");
    this->edits.name(this->otherSettings, "other settings");
    parent->redo();
    EXPECT_THAT(
        this->edits.take(),
        ElementsAreArray(TypeParam::touches
                             ? Lines{"settings red 1", "settings planarProjection 1", "material colorComponentData 1",
                                     "other settings planarProjection 1", "other material colorComponentData 1"}
                             : Lines{"settings red 1"}));
}

TYPED_TEST(Wrapped, EveryPartOfAStepIsDoneThoughEachThrowsAndTheFirstExceptionComesOut)
{
    int calls = 0;
    std::function<void()> listener = [this, &listener, &calls] {
        this->edits.onChange(listener);
        throw std::runtime_error("listener " + std::to_string(++calls));
    };
    const auto expectStands = [this, &calls](const std::function<void()>& step) {
        calls = 0;
        std::string thrown;
        try {
            step();
        } catch (const std::runtime_error& error) {
            thrown = error.what();
        }
        EXPECT_EQ(thrown, "listener 1");
        EXPECT_THAT(this->edits.take(), ElementsAreArray(this->step("settings red 1")));
        EXPECT_EQ(this->log.take().size(), this->touches().size() + 1) << "the others are logged";
    };
    const auto red = [this] {
        auto* const command = this->setRed(0.5f);
        command->setNotifyFunction([] { throw std::runtime_error("notify"); });
        return command;
    };
    this->edits.onChange(listener);

    expectStands([&] { this->stack.addOrExecute(this->wrap(red())); });
    expectStands([&] { this->stack.undo(); });
    expectStands([&] { this->stack.redo(); });
    EXPECT_EQ(this->stack.size(), 1);
    expectStands([&] { this->stack.undo(); });

    const auto byHand = this->make(red());
    expectStands([&] { byHand->redo(); });
    EXPECT_EQ(this->settings->getRed(), 0.5f);
    expectStands([&] { byHand->undo(); });
    EXPECT_EQ(this->settings->getRed(), 1.0f);

    this->stack.clear();
    expectStands([&] {
        this->stack.beginMultiCommand("Colours", QString(), true);
        this->stack.addOrExecute(this->wrap(red()));
        this->stack.endMultiCommand();
    });
    expectStands([&] { this->stack.undo(); });
    EXPECT_EQ(this->settings->getRed(), 1.0f);
    this->edits.onChange({});
}

TYPED_TEST(Wrapped, NothingIsToldOfAFieldCommandWhoseStepDoesNotHappen)
{
    struct Failing : moFieldBaseUndoCommand<>
    {
        explicit Failing(const osg::FieldContainerPtr& container)
            : moFieldBaseUndoCommand<>(moUndoString(), container, "red")
        {
        }
        void redo() override { throw std::runtime_error("write"); }
    };
    EXPECT_THROW(this->stack.add(this->wrap(new Failing(this->settings))), std::runtime_error);
    EXPECT_THAT(this->edits.take(), IsEmpty());
    EXPECT_TRUE(this->stack.isEmpty());
}

TYPED_TEST(Wrapped, ACompositionTellsOfItsFirstChildAlone)
{
    const auto compose = [this](moFieldBaseUndoCommand<>* made) {
        Trace trace(this->stack);
        this->stack.beginMultiCommand("Colours", "all of them", true);
        this->stack.addOrExecute(this->wrap(made ? made : this->setRed(0.5f)));
        this->stack.endMultiCommand();
        return trace.takeMessages();
    };
    const std::string begin = "moURManager::redo index=int:0 added=bool:true text=string:\"Colours\" "
                              "description=string:\"all of them\" ";
    EXPECT_THAT(compose(nullptr),
                ElementsAre(begin + "id=int:" + std::to_string(moFieldUndoCommand<float>::commandId()) +
                            this->key("container", this->id(this->settings)) +
                            this->key("fieldId", osg::ColorComponentSettings::RedFieldId)));
    this->stack.clear();
    EXPECT_THAT(compose(this->setRed(0.25f)), ElementsAre(begin + this->message(this->id(this->settings))))
        << "a field command made before the composition is no child of it";
}

TYPED_TEST(Wrapped, TheChangedCallbackOfAFieldCommandThatItOwnsIsNotCalledButItsOwnIs)
{
    int fieldsCalls = 0;
    int ownCalls = 0;
    auto* const red = this->setRed(0.5f);
    red->setChangedCB([&fieldsCalls](bool) { ++fieldsCalls; });
    auto* const command = this->wrap(red);
    command->setChangedCB([&ownCalls](bool) { ++ownCalls; });
    this->stack.add(command);
    this->stack.undo();
    EXPECT_EQ(fieldsCalls, 0);
    EXPECT_EQ(ownCalls, 2);
}

using WrappedPair = MaterialTest;

TEST_F(WrappedPair, CommandsOfDifferentClassesNeverMergeThoughTheirContainersAreEqual)
{
    ASSERT_NE(moColorComponentUndoCommand::commandId(), moMaterialUndoCommand::commandId());
    moMaterialUndoCommand ofMaterial(text, setRed(0.5f), material, settings, nullptr);
    moColorComponentUndoCommand ofComponent(text, setRed(0.5f), settings, material, nullptr);
    EXPECT_FALSE(ofMaterial.mergeWith(&ofComponent));
    EXPECT_FALSE(ofComponent.mergeWith(&ofMaterial));
}

TEST_F(WrappedPair, AParentThatIsGivenIsTheParent)
{
    QUndoCommand parent;
    new moMaterialUndoCommand(text, setRed(0.5f), material, settings, &parent);
    new moColorComponentUndoCommand(text, setRed(0.25f), material, settings, &parent);
    EXPECT_EQ(parent.childCount(), 2);
}

TEST_F(WrappedPair, MaterialCommandTellsTheStackItsKeys)
{
    Trace trace(stack);
    stack.add(new moMaterialUndoCommand(text, setRed(0.5f), material, settings, nullptr));
    EXPECT_THAT(trace.takeMessages(),
                ElementsAre("moURManager::redo index=int:0 added=bool:true text=string:\"Colour\" "
                            "description=string:\"Colour\" id=int:" +
                            std::to_string(moMaterialUndoCommand::commandId()) + key("container", id(settings)) +
                            key("material", id(material)) + key("componentSettings", id(settings))));
}

} // namespace
