#include <support/LogCapture.h>

#include <QtCore/QByteArray>
#include <QtCore/QLoggingCategory>

#include <gmock/gmock.h>

namespace {

using testing::ElementsAre;

/// Lines that Qt's logging really writes, with their category and kind.
class WrittenLines
{
public:
    WrittenLines() : m_before(qInstallMessageHandler(write)) { lines().clear(); }
    ~WrittenLines() { qInstallMessageHandler(m_before); }
    WrittenLines(const WrittenLines&) = delete;
    WrittenLines& operator=(const WrittenLines&) = delete;

    static std::vector<std::string>& lines()
    {
        static std::vector<std::string> s_lines;
        return s_lines;
    }

private:
    static void write(QtMsgType type, const QMessageLogContext& context, const QString& text)
    {
        const char* kind = type == QtWarningMsg ? "warning" : type == QtCriticalMsg ? "critical" : "other";
        lines().push_back(std::string(context.category) + ' ' + kind + ' ' + text.toStdString());
    }

    QtMessageHandler m_before;
};

TEST(Log, WritesThroughQtsCategoryWithTheKindOfTheCall)
{
    const WrittenLines written;
    moLog::error("%s is %i", "one", 1);
    moLog::errorNR("an error told by this test only");
    moLog::warningNR("a warning told by this test only");
    EXPECT_THAT(WrittenLines::lines(),
                ElementsAre("mo.undo critical one is 1", "mo.undo critical an error told by this test only",
                            "mo.undo warning a warning told by this test only"));
}

TEST(Log, RepeatsErrorsButWritesALineOfTheOthersOnlyOnce)
{
    const WrittenLines written;
    for (int i = 0; i < 2; ++i) {
        moLog::error("repeated");
        moLog::errorNR("not repeated %s", "error");
        moLog::warningNR("not repeated warning");
    }
    moLog::errorNR("not repeated %s", "other error");
    EXPECT_THAT(WrittenLines::lines(), ElementsAre("mo.undo critical repeated", "mo.undo critical not repeated error",
                                                   "mo.undo warning not repeated warning", "mo.undo critical repeated",
                                                   "mo.undo critical not repeated other error"));
}

TEST(Log, TellsItsListenerOfEveryCallBeforeAnythingIsSuppressed)
{
    const WrittenLines written;
    const LogCapture log;
    for (int i = 0; i < 2; ++i)
        moLog::warningNR("heard twice");
    moLog::error("e");
    moLog::errorNR("n");
    EXPECT_THAT(log.lines(), ElementsAre("warningNR: heard twice", "warningNR: heard twice", "error: e", "errorNR: n"));
}

TEST(Log, FormatsLinesOfAnyLengthAndTakesPercentSignsOfArgumentsAsTheyAre)
{
    const WrittenLines written;
    const LogCapture log;
    const std::string text(10000, 'x');
    moLog::error("%s|%s", text.c_str(), "100%s");
    EXPECT_EQ(log.lines().front(), "error: " + text + "|100%s");
}

TEST(Log, AllowsAListenerToReplaceItselfWhileItListens)
{
    const WrittenLines written;
    int first = 0;
    int second = 0;
    moLog::setListener([&](moLog::Kind, const std::string&) {
        ++first;
        moLog::setListener([&](moLog::Kind, const std::string&) { ++second; });
    });
    moLog::error("a");
    moLog::error("b");
    moLog::setListener({});
    EXPECT_EQ(first, 1);
    EXPECT_EQ(second, 1);
}

} // namespace
