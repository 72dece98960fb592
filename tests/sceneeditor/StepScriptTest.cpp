#include "EditorTest.h"

#include <QtWidgets/QLineEdit>

namespace {

class StepScriptTest : public EditorTest
{
protected:
    std::string error(const char* steps)
    {
        try {
            script(steps);
        } catch (const StepError& e) {
            return e.what();
        }
        return "(done)";
    }
};

TEST_F(StepScriptTest, WordsInQuotesMayHaveBlanksAndCommentsAreSkipped)
{
    script("# nothing\n\n  select \"Desk Lamp\" Table # two of them\nset tagName \"a # b\"");
    EXPECT_EQ(session().selection().size(), 2U);
    EXPECT_EQ(window->findChild<QLineEdit*>("tagName")->text(), "a # b");
}

TEST_F(StepScriptTest, AStepThatCannotBeDoneIsSaidWithItsLine)
{
    EXPECT_EQ(error("size 800 600\nselect Nobody"), "line 2, select: there is no node 'Nobody'");
    EXPECT_EQ(error("fly"), "line 1, fly: no such step");
    EXPECT_EQ(error("trigger nothing"), "line 1, trigger: there is no 'nothing'");
    EXPECT_EQ(error("trigger undo"), "line 1, trigger: it is disabled");
    EXPECT_EQ(error("size 1"), "line 1, size: wrong number of words");
    EXPECT_EQ(error("orbit left 3"), "line 1, orbit: no number: left");
    EXPECT_EQ(error("drag x 1 1"), "line 1, drag: there are no handles");
    EXPECT_EQ(error("set addTag maybe"), "line 1, set: on or off, please");
    EXPECT_EQ(error("set sceneTree Nobody"), "line 1, set: there is no item 'Nobody'");
    EXPECT_EQ(error("set frameTime 1"), "line 1, set: it takes no value");
}

TEST_F(StepScriptTest, AnItemOfATreeIsChosenByItsText)
{
    script("set sceneTree Table\nset sceneTree \"Table Top\"");
    EXPECT_EQ(session().selection(), std::vector<osg::NodePtr>{node("Table Top")});
}

TEST_F(StepScriptTest, APickSelectsWhatIsThere)
{
    script("pick 0.5 0.55");
    EXPECT_EQ(session().selection().size(), 1U);
    script("pick 0.01 0.01");
    EXPECT_EQ(session().selection().size(), 0U);
}

} // namespace
