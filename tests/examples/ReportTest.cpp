#include <editsession/Report.h>
#include <support/ProbeCommand.h>
#include <support/UndoTest.h>

#include <moUtils/moMessage.h>

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QTextStream>

#include <numeric>

namespace {

using testing::HasSubstr;

class ReportTest : public UndoTest
{
protected:
    void send(const std::string& key, const boost::any& value)
    {
        moMessage message;
        message.set(key, value);
        report.addMessage("phase", "moURManager::redo", message);
    }

    std::string printed() const
    {
        QString text;
        QTextStream stream(&text);
        report.print(stream);
        stream.flush();
        return text.toStdString();
    }

    /// The first entry of the first message in the JSON form.
    std::string firstEntry() const
    {
        const QJsonObject message =
            QJsonDocument::fromJson(report.toJson()).object()["messages"].toArray().first().toObject();
        return QJsonDocument(message["entries"].toArray().first().toObject())
            .toJson(QJsonDocument::Compact)
            .toStdString();
    }

    Report report;
};

TEST_F(ReportTest, KeepsEachValueWithItsType)
{
    struct Case
    {
        boost::any value;
        const char* json;
    };
    const Case cases[] = {
        {-3, R"({"key":"k","type":"int","value":-3})"},
        {true, R"({"key":"k","type":"bool","value":true})"},
        {4000000000U, R"({"key":"k","type":"unsigned int","value":4000000000})"},
        {0.5f, R"({"key":"k","type":"float","value":0.5})"},
        {0.25, R"({"key":"k","type":"double","value":0.25})"},
        {std::string("Gehäuse"), R"({"key":"k","type":"std::string","value":"Gehäuse"})"},
        {std::vector<unsigned int>{1, 2}, R"({"key":"k","type":"std::vector<unsigned int>","value":[1,2]})"},
        {std::vector<std::string>{"a"}, R"({"key":"k","type":"std::vector<std::string>","value":["a"]})"},
        {std::vector<unsigned int>(), R"({"key":"k","type":"std::vector<unsigned int>","value":[]})"},
        {'c', R"({"key":"k","type":"c","value":null})"},
    };
    for (const Case& c : cases) {
        report = Report();
        send("k", c.value);
        EXPECT_EQ(firstEntry(), c.json);
    }
}

TEST_F(ReportTest, KeepsTheOrderOfTheKeys)
{
    moMessage message;
    message.set("z", 1);
    message.set("a", 2);
    report.addMessage("phase", "name", message);
    EXPECT_THAT(printed(), HasSubstr("    name z=1 a=2\n"));
}

TEST_F(ReportTest, PrintsTextQuotedAndListsInBrackets)
{
    send("text", std::string("say \"ä\""));
    send("ids", std::vector<unsigned int>{7, 8});
    EXPECT_THAT(printed(),
                HasSubstr("  phase\n    moURManager::redo text=\"say \\\"ä\\\"\"\n    moURManager::redo ids=[7,8]\n"));
}

TEST_F(ReportTest, PrintsEqualMessagesInARowOnceWithTheirNumber)
{
    for (int value : {1, 1, 1, 2, 1})
        send("k", value);
    EXPECT_THAT(
        printed(),
        HasSubstr("    moURManager::redo k=1  (3 times)\n    moURManager::redo k=2\n    moURManager::redo k=1\n"));
}

TEST_F(ReportTest, ListsTheStepsWithTheirChildren)
{
    QUndoCommand composite("Move Both");
    new QUndoCommand("Move A", &composite);
    new QUndoCommand("Move B", &composite);
    report.history.emplace_back(composite);
    EXPECT_THAT(printed(), HasSubstr("History  1 steps\n   1  Move Both\n        Move A\n        Move B\n"));
}

TEST_F(ReportTest, ShortensLongListsOfValuesAndOfChildrenForTheReaderOnly)
{
    std::vector<unsigned int> ids(23);
    std::iota(ids.begin(), ids.end(), 1);
    send("ids", ids);
    QUndoCommand composite("Move All");
    for (unsigned int id : ids)
        new QUndoCommand(QStringLiteral("Move %1").arg(id), &composite);
    report.history.emplace_back(composite);

    EXPECT_THAT(printed(), HasSubstr("ids=[1,2,3,4,5,6,7,8,9,10,11,12,13,14,15,16,17,18,19,20,… 3 more]\n"));
    EXPECT_THAT(printed(), HasSubstr("        Move 20\n        … 3 more\n"));
    EXPECT_THAT(report.toJson().toStdString(), HasSubstr("Move 23"));
}

TEST_F(ReportTest, KeepsMessagesApartThatDifferInWhatIsNotShown)
{
    std::vector<unsigned int> ids(23);
    send("ids", ids);
    ids.back() = 1;
    send("ids", ids);
    EXPECT_THAT(printed(), testing::Not(HasSubstr("times)")));
}

TEST_F(ReportTest, CountsTheValuesThatDifferByRounding)
{
    report.check("exact", true);
    report.check("close", true, 7);
    EXPECT_THAT(printed(), HasSubstr("  ok      exact\n  ok      close  (7 values differ by rounding)\n"));
    EXPECT_THAT(report.toJson().toStdString(), HasSubstr("\"rounded\": 7"));
}

TEST_F(ReportTest, SaysWhereTheSessionWasInterrupted)
{
    EXPECT_THAT(printed(), testing::Not(HasSubstr("Interrupted")));
    report.interruptedIn = "light (3 of 7)";
    EXPECT_THAT(printed(), HasSubstr("\nInterrupted in: light (3 of 7)\n"));
    EXPECT_THAT(report.toJson().toStdString(), HasSubstr("\"interruptedIn\": \"light (3 of 7)\""));
}

TEST_F(ReportTest, PassesIfAllChecksPass)
{
    EXPECT_TRUE(report.passed());
    report.check("one", true);
    EXPECT_TRUE(report.passed());
    report.check("two", false);
    report.check("three", true);
    EXPECT_FALSE(report.passed());
    EXPECT_THAT(printed(), HasSubstr("  ok      one\n  FAILED  two\n  ok      three\n"));
}

} // namespace
