#include <support/FakeClock.h>

#include <gtest/gtest.h>

#include <chrono>

namespace {

int s_counterReadings = 0;
int s_frequencyReadings = 0;

TEST(UndoClock, CountsSecondsFromItsFirstReading)
{
    FakeClock clock;
    clock.advance(0.0);
    EXPECT_EQ(moUndoClock::seconds(), 0.0);
    clock.advance(2.5);
    EXPECT_EQ(moUndoClock::seconds(), 2.5);
}

TEST(UndoClock, ReadsTheFrequencyOnceAndTheCounterOncePerCall)
{
    s_counterReadings = 0;
    s_frequencyReadings = 0;
    const moUndoClock::Source real = moUndoClock::setSource({[]() -> std::int64_t { return 10 * ++s_counterReadings; },
                                                             []() -> std::int64_t {
                                                                 ++s_frequencyReadings;
                                                                 return 20;
                                                             }});
    EXPECT_EQ(s_counterReadings, 1) << "the origin";
    EXPECT_EQ(moUndoClock::seconds(), 0.5);
    EXPECT_EQ(moUndoClock::seconds(), 1.0);
    EXPECT_EQ(s_counterReadings, 3);
    EXPECT_EQ(s_frequencyReadings, 1);
    moUndoClock::setSource(real);
}

TEST(UndoClock, CountsInSecondsWhenNobodyReplacesIt)
{
    using Clock = std::chrono::steady_clock;
    const auto seconds = [](Clock::duration duration) { return std::chrono::duration<double>(duration).count(); };

    const auto beforeTheFirst = Clock::now();
    const double first = moUndoClock::seconds();
    const auto afterTheFirst = Clock::now();
    while (Clock::now() - afterTheFirst < std::chrono::milliseconds(1)) {
    }
    const auto beforeTheSecond = Clock::now();
    const double second = moUndoClock::seconds();
    const auto afterTheSecond = Clock::now();

    constexpr double rounding = 1e-9;
    EXPECT_GE(second - first, seconds(beforeTheSecond - afterTheFirst) - rounding);
    EXPECT_LE(second - first, seconds(afterTheSecond - beforeTheFirst) + rounding);
}

TEST(UndoClock, NeverRunsBackwards)
{
    double last = moUndoClock::seconds();
    for (int i = 0; i < 1000; ++i) {
        const double now = moUndoClock::seconds();
        ASSERT_GE(now, last);
        last = now;
    }
}

} // namespace
