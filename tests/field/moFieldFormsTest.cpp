// What every constructor of every class of the family answers to good and to bad input.

#include "FieldForms.h"
#include "FieldTest.h"

#include <moUndoStack/field/moUndoUtil.h>

#include <moUtils/moMessage.h>

#include <OpenSG/OSGFieldContainerType.h>
#include <OpenSG/OSGFieldDescription.h>

#include <gtest/gtest.h>

#include <cctype>
#include <limits>
#include <memory>
#include <stdexcept>
#include <string_view>
#include <utility>

namespace {

bool isReallyUndone(std::string_view what)
{
    return what.substr(0, 6) != "invoke"; // its undo does nothing
}

/// The wording of the commands that FieldForms.cpp makes.
std::string textOf(std::string_view what)
{
    if (what == "image") return "Set Texture";
    const bool hasText = what.substr(0, 6) == "scalar" || what.find("WithText") != std::string_view::npos;
    return hasText ? "Edit" : "";
}

template<class Form>
class FormTest : public FieldTest, public testing::WithParamInterface<Form>
{
protected:
    void SetUp() override
    {
        FieldTest::SetUp();
        target = moUndoUtil::findField(container, form.fieldName) ? osg::FieldContainerPtr(container) : lists;
        const osg::FieldDescription* const description = moUndoUtil::findField(target, form.fieldName);
        ASSERT_NE(description, nullptr);
        fieldId = description->getFieldId();
        mask = description->getFieldMask();
        // Not what a command has that reads nothing.
        container->setSingleString("old");
        lists->getMFMultiString()->setValues({"old"});
        original = state();
    }

    void TearDown() override
    {
        moUndoStack::clearAll();
        moUndoUtil::setImageValue(osg::NullFC, containerId, "singleImagePtr");
        FieldTest::TearDown();
    }

    std::vector<std::string> state() const
    {
        std::vector<std::string> lines = contents(container);
        for (const std::string& line : contents(lists))
            lines.push_back(line);
        return lines;
    }

    std::string messageOf(const moFieldBaseUndoCommand<>& command) const
    {
        moMessage message;
        command.makeMessage(message);
        return describe(message);
    }

    /// Runs the command through undo and redo; nothing may happen.
    void expectInert(moFieldBaseUndoCommand<>* command, const std::string& input)
    {
        SCOPED_TRACE(input);
        int notified = 0;
        command->setNotifyFunction([&notified] { ++notified; });
        stack.add(command);
        stack.undo();
        stack.redo();
        EXPECT_EQ(state(), original);
        EXPECT_EQ(takeEdits(), std::vector<std::string>());
        EXPECT_EQ(notified, 0);
        EXPECT_EQ(log.take(), std::vector<std::string>());
        stack.clear();
    }

    void expectUnresolved(moFieldBaseUndoCommand<>* command, const std::string& input)
    {
        SCOPED_TRACE(input);
        EXPECT_EQ(messageOf(*command), "id=int:" + std::to_string(command->id()) + " container=uint:0 fieldId=uint:0");
        EXPECT_EQ(command->containerId(), 0U);
        expectInert(command, input);
    }

    void expectWritesItsField(moFieldBaseUndoCommand<>* command)
    {
        const std::vector<std::string> none;
        const unsigned int targetId = target.getFieldContainerId();
        int notified = 0;
        command->setNotifyFunction([&] {
            ++notified;
            EXPECT_EQ(edits, oneEdit(mask)) << "notified before the edit was closed";
        });
        EXPECT_EQ(messageOf(*command), "id=int:" + std::to_string(command->id()) + " container=uint:" +
                                           std::to_string(targetId) + " fieldId=uint:" + std::to_string(fieldId));
        EXPECT_EQ(command->containerId(), targetId);
        EXPECT_EQ(state(), original) << "written at construction";

        stack.add(command);
        const auto changed = state();
        EXPECT_NE(changed, original);
        EXPECT_EQ(takeEdits(), oneEdit(mask));
        EXPECT_EQ(notified, 1);

        const bool undone = isReallyUndone(form.what);
        stack.undo();
        EXPECT_EQ(state(), undone ? original : changed);
        EXPECT_EQ(takeEdits(), undone ? oneEdit(mask) : none);
        EXPECT_EQ(notified, undone ? 2 : 1);

        stack.redo();
        EXPECT_EQ(state(), undone ? changed : original);
        EXPECT_EQ(takeEdits(), oneEdit(mask));
        EXPECT_EQ(notified, undone ? 3 : 2);
    }

    template<class Key>
    void expectTextAndParent(Key key)
    {
        QUndoCommand parent;
        const moFieldBaseUndoCommand<>* const command = form.make(target, key, &parent);
        EXPECT_EQ(command->text().toStdString(), textOf(form.what));
        EXPECT_EQ(command->getDescription().toStdString(), textOf(form.what));
        EXPECT_EQ(command->parent(), &parent);
        ASSERT_EQ(parent.childCount(), 1);
        EXPECT_EQ(parent.child(0), command);
    }

    void expectInertWhenTheContainerGoes(moFieldBaseUndoCommand<>* command)
    {
        int notified = 0;
        command->setNotifyFunction([&notified] { ++notified; });
        stack.add(command);
        stack.undo();
        notified = 0;
        takeEdits();
        target = osg::NullFC;
        destroy(container);
        destroy(lists);
        stack.redo();
        stack.undo();
        EXPECT_EQ(notified, 0);
        EXPECT_EQ(takeEdits(), std::vector<std::string>());
        EXPECT_EQ(log.take(), std::vector<std::string>());
    }

    /// Does a step after whose write everything throws that can.
    template<class Step>
    void expectItStandsAndTheFirstExceptionComesOut(Step step)
    {
        std::string thrown;
        try {
            step();
        } catch (const std::runtime_error& error) {
            thrown = error.what();
        }
        EXPECT_EQ(thrown, "listener");
        EXPECT_EQ(std::exchange(calls, {}), std::vector<std::string>({"listener", "notify", "wrapper"}));
        EXPECT_EQ(log.take(),
                  std::vector<std::string>({"error: moUndoStack: another exception in the same operation: notify",
                                            "error: moUndoStack: another exception in the same operation: wrapper"}));
    }

    /// Goes through redo, undo and redo while everything throws. The command's undo is what `undo` says.
    template<class Redo, class Undo, class RedoAgain>
    void expectStepsStandThoughAllThrows(moFieldBaseUndoCommand<>* command, Redo redo, Undo undo, RedoAgain redoAgain)
    {
        const auto fails = [this](const std::string& what) {
            return [this, what] {
                calls.push_back(what);
                throw std::runtime_error(what);
            };
        };
        container->onChanged =
            lists->onChanged = [listener = fails("listener")](osg::BitVector, osg::UInt32) { listener(); };
        command->setNotifyFunction(fails("notify"));
        command->addWrapperFunction(fails("wrapper"));

        expectItStandsAndTheFirstExceptionComesOut(redo);
        const auto changed = state();
        EXPECT_NE(changed, original);
        if (isReallyUndone(form.what)) {
            expectItStandsAndTheFirstExceptionComesOut(undo);
            EXPECT_EQ(state(), original);
            expectItStandsAndTheFirstExceptionComesOut(redoAgain);
            EXPECT_EQ(state(), changed);
        }
        container->onChanged = lists->onChanged = nullptr;
    }

    /// Tries make(container, field id) with each field that the class does not handle.
    template<class Make>
    void expectOtherFieldsLeftAlone(Make make)
    {
        int others = 0;
        for (const osg::FieldContainerPtr& any : {osg::FieldContainerPtr(container), osg::FieldContainerPtr(lists)}) {
            const osg::UInt32 count = any->getType().getNumFieldDescs();
            for (osg::UInt32 id = 1; id <= count; ++id) {
                if (form.handles(any->getField(id))) continue;
                expectInert(make(any, id), any->getField(id)->getType().getCName());
                ++others;
            }
        }
        EXPECT_GT(others, 90);
    }

    const Form& form = this->GetParam();
    osg::FieldContainerPtr target;
    osg::UInt32 fieldId = 0;
    osg::BitVector mask = 0;
    std::vector<std::string> original;
    std::vector<std::string> calls;
};

using NamedFieldTest = FormTest<NameForm>;
using NumberedFieldTest = FormTest<IdForm>;

template<class Form>
std::string nameOf(const testing::TestParamInfo<Form>& info)
{
    return info.param.what;
}

std::string withFirstLetterFlipped(std::string name)
{
    name[0] = static_cast<char>(std::islower(name[0]) ? std::toupper(name[0]) : std::tolower(name[0]));
    return name;
}

} // namespace

INSTANTIATE_TEST_SUITE_P(Every, NamedFieldTest, testing::ValuesIn(nameForms()), nameOf<NameForm>);
INSTANTIATE_TEST_SUITE_P(Every, NumberedFieldTest, testing::ValuesIn(idForms()), nameOf<IdForm>);

TEST_P(NamedFieldTest, EachStepIsOneEditOfTheFieldFollowedByTheNotifyFunction)
{
    expectWritesItsField(form.make(target, form.fieldName, nullptr));
}

TEST_P(NamedFieldTest, AFieldThatHoldsTheValueAlreadyIsWrittenAndToldOfAllTheSame)
{
    stack.add(form.make(target, form.fieldName, nullptr));
    const auto held = state();
    auto* const again = form.make(target, form.fieldName, nullptr);
    again->setMergeEnabled(false);
    int notified = 0;
    again->setNotifyFunction([&notified] { ++notified; });
    takeEdits();
    stack.add(again);
    EXPECT_EQ(state(), held);
    EXPECT_EQ(takeEdits(), oneEdit(mask));
    EXPECT_EQ(notified, 1);
    if (!isReallyUndone(form.what)) return;
    stack.undo();
    EXPECT_EQ(state(), held);
    EXPECT_EQ(takeEdits(), oneEdit(mask));
    EXPECT_EQ(notified, 2);
}

TEST_P(NamedFieldTest, TextAndParentAreTheOnesThatTheConstructorWasGiven)
{
    expectTextAndParent(form.fieldName);
}

TEST_P(NamedFieldTest, TheCaseOfTheFirstLetterDoesNotMatter)
{
    expectWritesItsField(form.make(target, withFirstLetterFlipped(form.fieldName), nullptr));
}

TEST_P(NamedFieldTest, ANameThatIsNotFoundMakesTheCommandInert)
{
    std::string otherFirst = form.fieldName;
    otherFirst.front() = 'x';
    for (const std::string& name :
         {std::string(), std::string("noSuchField"), QString::fromStdString(form.fieldName).toLower().toStdString(),
          otherFirst, form.fieldName + '\0', form.fieldName + ' ', std::string(100000, 's')})
        expectUnresolved(form.make(target, name, nullptr), '"' + name.substr(0, 40) + '"');
}

TEST_P(NamedFieldTest, ANullContainerMakesTheCommandInert)
{
    expectUnresolved(form.make(osg::NullFC, form.fieldName, nullptr), "null");
}

TEST_P(NamedFieldTest, AContainerDestroyedBetweenUndoAndRedoMakesTheCommandInert)
{
    expectInertWhenTheContainerGoes(form.make(target, form.fieldName, nullptr));
}

TEST_P(NamedFieldTest, AFieldOfAnotherTypeIsLeftAlone)
{
    expectOtherFieldsLeftAlone([this](const osg::FieldContainerPtr& any, osg::UInt32 id) {
        return form.make(any, any->getType().getFieldDescription(id)->getCName(), nullptr);
    });
}

TEST_P(NamedFieldTest, AStepStandsAndIsFinishedThoughEverythingAfterItsWriteThrows)
{
    auto* const command = form.make(target, form.fieldName, nullptr);
    expectStepsStandThoughAllThrows(
        command, [&] { stack.add(command); }, [&] { stack.undo(); }, [&] { stack.redo(); });
    EXPECT_EQ(stack.size(), 1);
}

TEST_P(NamedFieldTest, AStepByHandIsFinishedBeforeTheExceptionComesOutOfIt)
{
    const std::unique_ptr<moFieldBaseUndoCommand<>> command(form.make(target, form.fieldName, nullptr));
    expectStepsStandThoughAllThrows(
        command.get(), [&] { command->redo(); }, [&] { command->undo(); }, [&] { command->redo(); });
}

TEST_P(NumberedFieldTest, EachStepIsOneEditOfTheFieldFollowedByTheNotifyFunction)
{
    expectWritesItsField(form.make(target, static_cast<int>(fieldId), nullptr));
}

TEST_P(NumberedFieldTest, TextAndParentAreTheOnesThatTheConstructorWasGiven)
{
    expectTextAndParent(static_cast<int>(fieldId));
}

TEST_P(NumberedFieldTest, AnIdThatTheContainerDoesNotHaveMakesTheCommandInert)
{
    const int last = static_cast<int>(target->getType().getNumFieldDescs());
    for (const int id : {0, -1, last + 1, 64, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()})
        expectUnresolved(form.make(target, id, nullptr), std::to_string(id));
}

TEST_P(NumberedFieldTest, ANullContainerMakesTheCommandInert)
{
    expectUnresolved(form.make(osg::NullFC, static_cast<int>(fieldId), nullptr), "null");
}

TEST_P(NumberedFieldTest, AContainerDestroyedBetweenUndoAndRedoMakesTheCommandInert)
{
    expectInertWhenTheContainerGoes(form.make(target, static_cast<int>(fieldId), nullptr));
}

TEST_P(NumberedFieldTest, AFieldOfAnotherTypeIsLeftAlone)
{
    expectOtherFieldsLeftAlone([this](const osg::FieldContainerPtr& any, osg::UInt32 id) {
        return form.make(any, static_cast<int>(id), nullptr);
    });
}
