#include <QtCore/QProcess>

#include <gtest/gtest.h>

TEST(ReadmeExample, PrintsWhatTheReadmeSays)
{
    QProcess process;
    process.start(QStringLiteral(README_PROGRAM), QStringList());
    ASSERT_TRUE(process.waitForFinished(60000)) << process.errorString().toStdString();
    // An installed OpenSG puts commas between the components of a vector.
    const QByteArray printed = process.readAllStandardOutput().replace(',', "");
    EXPECT_EQ(printed.toStdString(), "Translate 'Box': 0 2 0\nundone: 0 0 0\n");
    EXPECT_EQ(process.readAllStandardError().toStdString(), "");
    EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(process.exitCode(), 0);
}
