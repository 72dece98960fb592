#include <editsession/Trial.h>

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>

namespace {

TEST(Trial, ReturnsWhenTheActionReturns)
{
    EXPECT_EQ(tryOut([] {}, 5), Trial::Returned);
}

TEST(Trial, HasNoEffectHere)
{
    int calls = 0;
    EXPECT_EQ(tryOut([&calls] { ++calls; }, 5), Trial::Returned);
    EXPECT_EQ(calls, 0);
}

TEST(Trial, TellsOfACrash)
{
    EXPECT_EQ(tryOut([] { std::abort(); }, 5), Trial::Crashed);
    EXPECT_EQ(tryOut([] { std::exit(3); }, 5), Trial::Crashed);
}

TEST(Trial, TellsOfAnActionThatDoesNotEnd)
{
    const auto endless = [] {
        volatile bool go = true;
        while (go) {
        }
    };
    EXPECT_EQ(tryOut(endless, 1), Trial::DidNotEnd);
}

TEST(Trial, DropsWhatTheActionWritesToStderr)
{
    testing::internal::CaptureStderr();
    EXPECT_EQ(tryOut([] { std::fputs("assertion failed\n", stderr); }, 5), Trial::Returned);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

} // namespace
