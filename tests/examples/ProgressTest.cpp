#include <scene/Interrupt.h>
#include <scene/Progress.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace {

using testing::ElementsAre;

class ProgressTest : public testing::Test
{
protected:
    /// A terminal that keeps what it was sent.
    std::vector<std::string> written;
    std::unique_ptr<Progress> progress =
        std::make_unique<Progress>([this](const QByteArray& text) { written.push_back(text.toStdString()); });
};

TEST_F(ProgressTest, WritesOneLineOverAndOverAndTakesItAwayAtTheEnd)
{
    progress->begin("light (3 of 7)");
    progress->step("editing");
    progress->step("reading the scene", 50, 200);
    progress.reset();
    EXPECT_THAT(written, ElementsAre("\r\033[Klight (3 of 7)", "\r\033[Klight (3 of 7): editing",
                                     "\r\033[Klight (3 of 7): reading the scene, 25 %", "\r\033[K"));
}

TEST_F(ProgressTest, WritesNothingWhenTheLineSaysNothingNew)
{
    progress->begin("light");
    for (std::size_t i = 0; i <= 1000; ++i)
        progress->step("reading", i, 1000);
    EXPECT_EQ(written.size(), 102U);
    EXPECT_EQ(written.back(), "\r\033[Klight: reading, 100 %");
}

TEST_F(ProgressTest, NeverSaysMoreThanAHundred)
{
    progress->begin("light");
    progress->step("reading", 7, 5);
    EXPECT_EQ(written.back(), "\r\033[Klight: reading, 100 %");
}

TEST_F(ProgressTest, WithoutALineHasNothingToTakeAway)
{
    progress.reset();
    EXPECT_THAT(written, ElementsAre());
}

TEST_F(ProgressTest, BreaksOffWhenItIsTold)
{
    bool stop = false;
    Progress silent({}, [&stop] { return stop; });
    silent.begin("light");
    EXPECT_NO_THROW(silent.step("editing"));
    stop = true;
    EXPECT_THROW(silent.step("editing"), Interrupted);
    EXPECT_EQ(silent.phase(), "light");
}

} // namespace
