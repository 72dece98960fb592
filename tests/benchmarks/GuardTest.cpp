#include <Guard.h>

#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>

namespace {

using namespace bench;

/// Two cases, and a file that stores the ratio of one.
class GuardedRatios : public testing::Test
{
protected:
    GuardedRatios()
    {
        for (const char* name : {"add", "undo"}) {
            Comparison comparison;
            comparison.name = name;
            comparison.steps = {1000, 100000};
            comparisons().push_back(comparison);
        }
    }
    ~GuardedRatios() override { comparisons().clear(); }

    std::string store(const QByteArray& text) const
    {
        QFile file(m_folder.filePath(QStringLiteral("guard.txt")));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(text) == text.size());
        return file.fileName().toStdString();
    }
    static std::vector<Row> counted(double ratio)
    {
        return {countedRow({&comparisons()[0], 1000}, "instr", ratio * 100.0, 100.0, {})};
    }

private:
    QTemporaryDir m_folder;
};

TEST_F(GuardedRatios, MayRiseByThreePercentAndNoMore)
{
    const Guard guard(store("# why\nadd 1.500\n"));
    ASSERT_EQ(guard.cases().size(), 1U);
    EXPECT_EQ(guard.cases()[0].name(), "add/1000");
    EXPECT_TRUE(guard.keeps(counted(1.54)));
    EXPECT_FALSE(guard.keeps(counted(1.55)));
}

TEST_F(GuardedRatios, AreStoredAnewWithTheLinesOfComment)
{
    const std::string name = store("# why\nadd 1.500\n");
    Guard(name).renew(counted(1.25));
    QFile file(QString::fromStdString(name));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), "# why\nadd 1.250\n");
}

TEST_F(GuardedRatios, OfACaseThatDoesNotExistAreRefused)
{
    EXPECT_THROW(Guard(store("undone 1.5\n")), std::runtime_error);
    EXPECT_THROW(Guard(store("add\n")), std::runtime_error);
    EXPECT_THROW(Guard(store("# none\n")), std::runtime_error);
}

} // namespace
