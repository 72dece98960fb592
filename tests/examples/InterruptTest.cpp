#include <scene/Interrupt.h>

#include <gtest/gtest.h>

#include <csignal>

#include <unistd.h>

namespace {

TEST(Interrupt, IsNotThereBeforeASignal)
{
    EXPECT_FALSE(wasInterrupted());
}

TEST(InterruptDeathTest, OfTheFirstSignalIsOnlyRemembered)
{
    const auto interrupt = [] {
        rememberInterrupt();
        if (wasInterrupted()) _exit(1);
        std::raise(SIGINT);
        _exit(wasInterrupted() ? 0 : 2);
    };
    EXPECT_EXIT(interrupt(), testing::ExitedWithCode(0), "");
}

TEST(InterruptDeathTest, OfTheSecondSignalEndsTheProcess)
{
    const auto interrupt = [] {
        rememberInterrupt();
        std::raise(SIGINT);
        std::raise(SIGINT);
        _exit(0);
    };
    EXPECT_EXIT(interrupt(), testing::KilledBySignal(SIGINT), "");
}

} // namespace
