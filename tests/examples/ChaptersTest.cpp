#include "TestModel.h"

#include <editsession/Session.h>
#include <scene/ModelLoader.h>
#include <support/UndoTest.h>

namespace {

/// Each chapter on its own, and all of them together, on models of every size.
class Chapters : public UndoTest
{
protected:
    static std::string failures(const Report& report)
    {
        std::string result;
        for (const Report::Check& check : report.checks) {
            if (!check.passed) result += check.what.toStdString() + '\n';
        }
        return result;
    }

    std::vector<QString> models() const
    {
        return {
            studioModel(), files.write("triangle.obj", objTriangle()), files.write("triangle.ply", plyTriangle()),
            files.write("nameless.gltf", gltf(R"({"children": [1, 2]}, {"scale": [0, 1, 1]}, {"scale": [-1, 1, 1]})"))};
    }

    ModelFiles files;
};

TEST_F(Chapters, HaveANameEach)
{
    std::vector<std::string> names;
    for (const Chapter& chapter : chapters())
        names.emplace_back(chapter.name);
    EXPECT_EQ(names.at(0), "core");
    std::sort(names.begin(), names.end());
    EXPECT_EQ(std::adjacent_find(names.begin(), names.end()), names.end());
}

TEST_F(Chapters, PassAlone)
{
    for (const QString& file : models()) {
        for (const Chapter& chapter : chapters()) {
            Model model = loadModel(file);
            const Report report = runSession(model, {chapter});
            EXPECT_EQ(failures(report), "") << chapter.name << " on " << file.toStdString();
            EXPECT_FALSE(report.history.empty()) << chapter.name << " on " << file.toStdString();
        }
    }
}

TEST_F(Chapters, PassTogether)
{
    for (const QString& file : models()) {
        Model model = loadModel(file);
        EXPECT_EQ(failures(runSession(model, chapters())), "") << file.toStdString();
    }
}

TEST_F(Chapters, PassTwiceOnTheSameModel)
{
    Model model = loadModel(studioModel());
    EXPECT_EQ(failures(runSession(model, {chapters().front()})), "");
    EXPECT_EQ(failures(runSession(model, {chapters().front()})), "");
}

TEST_F(Chapters, OfTheCoreRecordADragACompositeOfTenAndFunctionCommands)
{
    Model model = loadModel(studioModel());
    const Report report = runSession(model, {chapters().front()});
    std::vector<std::string> steps;
    for (const Report::Step& step : report.history)
        steps.push_back(step.text.toStdString() + ", " + std::to_string(step.children.size()) + " children");
    EXPECT_THAT(steps, testing::ElementsAre("Translate 'Upper Arm', 0 children", "Move Selection, 10 children",
                                            "Hide, 0 children", "Add Marker, 0 children", "Rename, 0 children",
                                            "Rotate 'Renamed in a Dialog', 0 children"));
}

TEST_F(Chapters, OfTheCoreReportTheThirtyMovesOfADragAtTheSameIndex)
{
    Model model = loadModel(studioModel());
    const Report report = runSession(model, {chapters().front()});
    ASSERT_GE(report.messages.size(), 30U);
    for (std::size_t i = 0; i < 30; ++i) {
        EXPECT_EQ(report.messages[i].name, "moURManager::redo");
        EXPECT_EQ(report.messages[i].entries[0].value.toInt(), 0);
        EXPECT_TRUE(report.messages[i].entries[1].value.toBool());
    }
}

TEST_F(Chapters, OfTheCoreReportWhatRunsWhileRecordingIsBlockedAtIndexMinusOne)
{
    Model model = loadModel(studioModel());
    const Report report = runSession(model, {chapters().front()});
    EXPECT_EQ(std::count_if(report.messages.begin(), report.messages.end(),
                            [](const Report::Message& m) { return m.entries[0].value.toInt() == -1; }),
              2);
}

} // namespace
