// The programs on the pages are those that are compiled, and print what the pages say.

#include <docs/Pages.h>

#include <QtCore/QProcess>

#include <gtest/gtest.h>

#include <set>

namespace {

TEST(Snippets, AreTheSourcesThatTheyName)
{
    int compared = 0;
    for (const Block& block : blocks()) {
        if (block.origin.isEmpty() || block.origin.startsWith("prints: ")) continue;
        const QStringList words = block.origin.split(' ');
        QString source = contentsOf(words[0]);
        if (words.size() > 1) source = partOf(source, words[1].mid(1, words[1].size() - 2));
        EXPECT_EQ(block.text.toStdString(), source.toStdString()) << block.page << ": " << block.origin;
        ++compared;
    }
    EXPECT_GE(compared, 10);
}

TEST(Snippets, PrintWhatThePagesSay)
{
    int run = 0;
    for (const Block& block : blocks()) {
        if (!block.origin.startsWith("prints: ")) continue;
        QProcess process;
        process.start(QStringLiteral(EXAMPLES_DIR "/") + block.origin.mid(8), QStringList());
        ASSERT_TRUE(process.waitForFinished(60000)) << block.origin << ": " << process.errorString();
        EXPECT_EQ(process.readAllStandardOutput().toStdString(), block.text.toStdString()) << block.page;
        EXPECT_EQ(process.exitStatus(), QProcess::NormalExit) << block.origin;
        EXPECT_EQ(process.exitCode(), 0) << block.origin;
        ++run;
    }
    EXPECT_GE(run, 7);
}

/// A reader copies from these pages: nothing on them may be typed by hand.
TEST(Snippets, OfTheHowToPagesAndOfTheReadmeAllNameTheirSource)
{
    for (const Block& block : blocks()) {
        if (!block.page.startsWith("docs/howto/") && block.page != "README.md") continue;
        if (block.language != "cpp" && block.language != "text") continue;
        EXPECT_FALSE(block.origin.isEmpty()) << block.page << ":\n" << block.text;
    }
}

TEST(Snippets, ShowEveryProgramOfTheHowToFolder)
{
    std::set<QString> shown;
    for (const Block& block : blocks())
        shown.insert(block.origin.split(' ')[0]);
    for (const QString& file : filesBelow("examples/howto", {"*.cpp", "*.h"}))
        EXPECT_TRUE(shown.count(file)) << file << " stands on no page";
}

} // namespace
