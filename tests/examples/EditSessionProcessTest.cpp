#include "TestModel.h"

#include <QtCore/QFile>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QProcess>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>

namespace {

using testing::ContainsRegex;
using testing::HasSubstr;
using testing::MatchesRegex;

struct Outcome
{
    int status = -1;
    std::string output;
    std::string errors;
};

/// The program as a user runs it.
class EditSession : public testing::Test
{
protected:
    static Outcome run(const QStringList& arguments)
    {
        QProcess process;
        process.start(QStringLiteral(EDITSESSION_PROGRAM), arguments);
        EXPECT_TRUE(process.waitForFinished(120000)) << process.errorString().toStdString();
        EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
        return {process.exitCode(), process.readAllStandardOutput().toStdString(),
                process.readAllStandardError().toStdString()};
    }

    static void expectUnusable(const QStringList& arguments)
    {
        const Outcome outcome = run(arguments);
        EXPECT_EQ(outcome.status, 2) << arguments.join(' ').toStdString();
        EXPECT_EQ(outcome.output, "");
        EXPECT_THAT(outcome.errors, MatchesRegex("editsession: [^\n]+\n"));
    }

    static QJsonObject json(const QString& fileName)
    {
        QFile file(fileName);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return QJsonDocument::fromJson(file.readAll()).object();
    }

    ModelFiles files;
};

TEST_F(EditSession, WithoutArgumentsEditsTheStudioAndEndsWithZero)
{
    const Outcome outcome = run({});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.errors, "");
    EXPECT_THAT(outcome.output, HasSubstr("scene.gltf: 23 nodes, 3 lights, "));
    EXPECT_THAT(outcome.output, HasSubstr("   1  Translate 'Upper Arm'  (Translate)\n"));
    EXPECT_THAT(outcome.output, HasSubstr("moURManager::redo index=0 added=true text=\"Translate 'Upper Arm'\""));
    EXPECT_THAT(outcome.output, testing::Not(HasSubstr("FAILED")));
    EXPECT_THAT(outcome.output, ContainsRegex("  after redo-all  [0-9a-f]+\n$"));
}

TEST_F(EditSession, GivesTheSameDigestsInEachRunAndForEachNameOfTheFile)
{
    QFile studio(studioModel());
    ASSERT_TRUE(studio.open(QIODevice::ReadOnly));
    const QString copy = files.write("Kopie ä.gltf", studio.readAll());
    for (const QString& model : {studioModel(), copy})
        EXPECT_EQ(run({model, "--json", files.path("run.json")}).status, 0);
    const QJsonObject digests = json(files.path("run.json"))["digests"].toObject();
    ASSERT_EQ(run({"--json", files.path("again.json")}).status, 0);
    EXPECT_EQ(json(files.path("again.json"))["digests"].toObject(), digests);
    EXPECT_EQ(digests["afterLoad"], digests["afterUndoAll"]);
    EXPECT_EQ(digests["afterEdits"], digests["afterRedoAll"]);
    EXPECT_NE(digests["afterLoad"], digests["afterEdits"]);
}

TEST_F(EditSession, EditsModelsOfOtherFormats)
{
    EXPECT_EQ(run({files.write("triangle.obj", objTriangle())}).status, 0);
    EXPECT_EQ(run({files.write("triangle.ply", plyTriangle())}).status, 0);
}

TEST_F(EditSession, WritesHistoryMessagesChecksAndDigestsAsJson)
{
    ASSERT_EQ(run({"--json", files.path("report.json")}).status, 0);
    const QJsonObject report = json(files.path("report.json"));
    EXPECT_EQ(report.keys(), (QStringList{"checks", "digests", "history", "messages", "model"}));
    EXPECT_EQ(report["model"].toObject()["nodes"].toInt(), 23);
    EXPECT_EQ(report["history"].toArray()[0].toObject()["text"].toString(), "Translate 'Upper Arm'");
    EXPECT_EQ(report["history"].toArray()[0].toObject()["description"].toString(), "Translate");
    EXPECT_EQ(report["history"].toArray()[1].toObject()["children"].toArray().size(), 10);
    for (const QJsonValue& check : report["checks"].toArray())
        EXPECT_TRUE(check.toObject()["passed"].toBool());

    const QJsonObject first = report["messages"].toArray()[0].toObject();
    EXPECT_EQ(first["phase"].toString(), "core");
    EXPECT_EQ(first["name"].toString(), "moURManager::redo");
    QStringList keys;
    for (const QJsonValue& entry : first["entries"].toArray())
        keys += entry.toObject()["key"].toString() + ':' + entry.toObject()["type"].toString();
    EXPECT_EQ(keys, (QStringList{"index:int", "added:bool", "text:std::string", "description:std::string", "id:int",
                                 "node:unsigned int", "transformCommand:bool"}));
}

TEST_F(EditSession, ExplainsItselfWhenAskedForHelp)
{
    for (const char* option : {"--help", "-h"}) {
        const Outcome outcome = run({option});
        EXPECT_EQ(outcome.status, 0);
        EXPECT_EQ(outcome.errors, "");
        EXPECT_THAT(outcome.output, HasSubstr("[MODEL]"));
        EXPECT_THAT(outcome.output, HasSubstr("--json <FILE>"));
        EXPECT_THAT(outcome.output, HasSubstr("130 ended by Ctrl-C"));
    }
}

TEST_F(EditSession, EndsWithTwoAndOneLineForAModelThatCannotBeLoaded)
{
    expectUnusable({files.path("missing.gltf")});
    expectUnusable({files.path("")});
    expectUnusable({files.write("empty.obj", "")});
    expectUnusable({files.write("corrupt.gltf", gltf("{\"name\": \"a\"").left(60))});
    expectUnusable({files.write("corrupt.ply", "ply\nformat ascii 1.0\nelement vertex 9\n")});
    expectUnusable({files.write("corrupt.obj", "no model\nin here\n")});
    expectUnusable({files.write("unknown.xyz123", "something")});
}

TEST_F(EditSession, EndsWithTwoAndOneLineForAJsonFileThatCannotBeWritten)
{
    expectUnusable({"--json", files.path("no/such/directory.json")});
    expectUnusable({"--json", files.path("")});
}

TEST_F(EditSession, EndsWithTwoWhenTheDiskIsFull)
{
    const Outcome outcome = run({"--json", "/dev/full"});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_THAT(outcome.errors, MatchesRegex("editsession: cannot write '/dev/full': [^\n]+\n"));
}

TEST_F(EditSession, LeavesAnExistingJsonFileAloneWhenTheModelCannotBeLoaded)
{
    const QString existing = files.write("report.json", "old");
    expectUnusable({files.path("missing.gltf"), "--json", existing});
    QFile file(existing);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), "old");
}

TEST_F(EditSession, EndsWith130AndOneLineWhenItIsInterruptedWhileLoading)
{
    // The program starts with a SIGINT waiting for it.
    QProcess process;
    process.start("env", {"--block-signal=INT", "sh", "-c", "kill -INT $$; exec \"$0\"", EDITSESSION_PROGRAM});
    ASSERT_TRUE(process.waitForFinished(120000));
    EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(process.exitCode(), 130);
    EXPECT_EQ(process.readAllStandardOutput(), "");
    EXPECT_EQ(process.readAllStandardError(), "editsession: interrupted while the model was loaded\n");
}

TEST_F(EditSession, EndsWith130AndAReportWhenItIsInterruptedLater)
{
    QByteArray nodes = R"({"children": [1)";
    for (int i = 2; i < 20000; ++i)
        nodes += ',' + QByteArray::number(i);
    nodes += "]}";
    for (int i = 1; i < 20000; ++i)
        nodes += R"(, {"translation": [1, 2, 3]})";
    const QString report = files.path("report.json");

    QProcess process;
    process.start(QStringLiteral(EDITSESSION_PROGRAM), {files.write("many.gltf", gltf(nodes)), "--json", report});
    // The model is loaded when the file is opened.
    while (!QFile::exists(report) && !process.waitForFinished(1)) {
    }
    ASSERT_EQ(process.state(), QProcess::Running);
    kill(static_cast<pid_t>(process.processId()), SIGINT);
    ASSERT_TRUE(process.waitForFinished(120000));
    EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(process.exitCode(), 130);
    EXPECT_EQ(process.readAllStandardError(), "");
    const std::string output = process.readAllStandardOutput().toStdString();
    EXPECT_THAT(output, HasSubstr("20000 nodes"));
    EXPECT_THAT(output, ContainsRegex("\nInterrupted in: [a-z0-9() ]+\n$"));
    EXPECT_FALSE(json(report)["interruptedIn"].toString().isEmpty());
}

TEST_F(EditSession, EndsWithTwoAndOneLineForArgumentsThatItDoesNotKnow)
{
    expectUnusable({"--no-such-option"});
    expectUnusable({"--json"});
    expectUnusable({"a.obj", "b.obj"});
}

} // namespace
