#include <Report.h>

#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>

namespace {

using namespace bench;
using testing::HasSubstr;

const Target s_ratio(1.5, 1.4);
const Target s_bytes(285, 200, Target::Ours);
const Target s_none(0, 0, Target::Ours);

std::string verdictOf(double ours, double bare, const Target& target)
{
    return verdict({"case", 1, "unit", ours, bare, ours / bare, 0.0, target});
}

const std::vector<Row> s_rows{{"add", 1000, "ns", 150.0, 100.0, 1.5, 0.021, s_ratio},
                              {"add", 100000, "ns", 300.0, 110.0, 2.7273, 0.0, s_ratio},
                              {"drag", 1000, "ns", 5.0, 100000.0, 0.00005, 0.0, {}},
                              {"add", 1000, "bytes", 189.0, 93.0, 2.0323, 0.0, s_bytes},
                              {"undo", 1000, "allocs", 0.0, 0.0, 0.0, 0.0, s_none}};

QByteArray contents(const QString& name)
{
    QFile file(name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

TEST(Verdict, OfARatioGoesByTheNumberThatTheTableShows)
{
    EXPECT_EQ(verdictOf(140.4, 100, s_ratio), "reached");
    EXPECT_EQ(verdictOf(140.6, 100, s_ratio), "ok");
    EXPECT_EQ(verdictOf(150.4, 100, s_ratio), "ok");
    EXPECT_EQ(verdictOf(150.6, 100, s_ratio), "over");
}

TEST(Verdict, OfACostDoesNotLookAtTheBareSide)
{
    EXPECT_EQ(verdictOf(200, 1, s_bytes), "reached");
    EXPECT_EQ(verdictOf(201, 1, s_bytes), "ok");
    EXPECT_EQ(verdictOf(286, 1000, s_bytes), "over");
}

TEST(Verdict, OfWhatMustNotAllocateIsOverAtOneAllocationInAThousandSteps)
{
    EXPECT_EQ(verdictOf(0, 2, s_none), "reached");
    EXPECT_EQ(verdictOf(0.001, 2, s_none), "over");
}

TEST(Verdict, WithoutAGoalThereIsNone)
{
    EXPECT_EQ(verdictOf(100, 1, {}), "");
}

TEST(Table, ShowsGoalVerdictSpreadAndGrowthOfEachRow)
{
    EXPECT_EQ(table(s_rows),
              "case   steps  unit     ours      bare  spread    ratio  hard | wished  verdict       growth\n"
              "add     1000  ns      150.0     100.0      2%     1.50    1.50 | 1.40  ok\n"
              "add   100000  ns      300.0     110.0             2.73    1.50 | 1.40  over     2.00 | 1.10\n"
              "drag    1000  ns        5.0  100000.0          0.00005\n"
              "add     1000  bytes   189.0      93.0             2.03      285 | 200  reached\n"
              "undo    1000  allocs    0.0       0.0                           0 | 0  reached\n");
}

TEST(Table, FromAFileIsTheOneThatWasWritten)
{
    const QTemporaryDir folder;
    const std::string file = folder.filePath(QStringLiteral("rows.json")).toStdString();
    writeJson(file, s_rows);
    EXPECT_EQ(table(readJson(file)), table(s_rows));
}

TEST(Table, IsNotReadFromAFileThatHoldsSomethingElse)
{
    const QTemporaryDir folder;
    const std::string file = folder.filePath(QStringLiteral("rows.json")).toStdString();
    EXPECT_THROW(readJson(file), std::runtime_error);
    writeJson(file, s_rows);
    QFile rows(QString::fromStdString(file));
    const QByteArray changed = contents(rows.fileName()).replace("\"judged\": \"ours\"", "\"judged\": \"theirs\"");
    ASSERT_TRUE(rows.open(QIODevice::WriteOnly) && rows.write(changed) == changed.size());
    rows.close();
    EXPECT_THROW(readJson(file), std::runtime_error);
}

TEST(Table, ForToolsHasTheGrowthOfBothSides)
{
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("rows.json"));
    writeJson(file.toStdString(), {s_rows[0], s_rows[1]});
    const std::string text = contents(file).toStdString();
    EXPECT_THAT(text, HasSubstr("\"growth\": 2"));
    EXPECT_THAT(text, HasSubstr("\"bareGrowth\": 1.1"));
}

TEST(Plot, DrawsABarForEachRowAndAmberForAMissedGoal)
{
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("plot.svg"));
    const QByteArray amber("#e6a23c");
    writePlot(file.toStdString(), {s_rows[1]});
    EXPECT_EQ(contents(file).count("height=\"12\""), 1);
    EXPECT_EQ(contents(file).count(amber), 1);
    Row reached = s_rows[0];
    reached.ratio = 1.4;
    writePlot(file.toStdString(), {reached, s_rows[2]});
    EXPECT_EQ(contents(file).count("height=\"12\""), 2);
    EXPECT_EQ(contents(file).count(amber), 0);
    EXPECT_THROW(writePlot(folder.filePath(QStringLiteral("no/plot.svg")).toStdString(), {}), std::runtime_error);
}

} // namespace
