#include <scene/Trial.h>

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <new>
#include <string>
#include <vector>

namespace {

TEST(Trial, ReturnsWhenTheActionReturns)
{
    const Trial trial = tryOut([] { return std::string(); }, 5);
    EXPECT_EQ(trial.end, Trial::Returned);
    EXPECT_EQ(trial.complaint, "");
}

TEST(Trial, HasNoEffectHere)
{
    int calls = 0;
    const auto action = [&calls] {
        ++calls;
        return std::string();
    };
    EXPECT_EQ(tryOut(action, 5).end, Trial::Returned);
    EXPECT_EQ(calls, 0);
}

TEST(Trial, TellsOfACrash)
{
    EXPECT_EQ(tryOut([]() -> std::string { std::abort(); }, 5).end, Trial::Crashed);
    EXPECT_EQ(tryOut([]() -> std::string { std::exit(3); }, 5).end, Trial::Crashed);
}

TEST(Trial, TellsOfAnActionThatDoesNotEnd)
{
    const auto endless = [] {
        volatile bool go = true;
        while (go) {
        }
        return std::string();
    };
    EXPECT_EQ(tryOut(endless, 1).end, Trial::DidNotEnd);
}

TEST(Trial, DropsWhatTheActionWritesToStderr)
{
    testing::internal::CaptureStderr();
    const auto action = [] {
        std::fputs("assertion failed\n", stderr);
        return std::string();
    };
    EXPECT_EQ(tryOut(action, 5).end, Trial::Returned);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST(Trial, BringsTheComplaintBackAsFarAsItGoes)
{
    const Trial trial = tryOut([] { return std::string("bad face index"); }, 5);
    EXPECT_EQ(trial.end, Trial::Returned);
    EXPECT_EQ(trial.complaint, "bad face index");
    EXPECT_EQ(tryOut([] { return std::string(100000, 'x'); }, 5).complaint, std::string(4096, 'x'));
}

#ifndef __SANITIZE_ADDRESS__
TEST(Trial, RefusesMoreMemoryThanASceneNeeds)
{
    const auto greedy = [] {
        try {
            const std::vector<char> memory(std::size_t(5) << 30);
            return std::to_string(memory.size());
        } catch (const std::bad_alloc&) {
            return std::string("refused");
        }
    };
    EXPECT_EQ(tryOut(greedy, 5).complaint, "refused");
}
#endif

} // namespace
