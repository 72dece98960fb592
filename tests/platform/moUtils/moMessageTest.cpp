#include <support/Describe.h>

#include <moUtils/moMessage.h>

#include <gmock/gmock.h>

namespace {

TEST(Message, KeepsItsEntriesInTheOrderInWhichTheyWereSet)
{
    moMessage message;
    message.set("b", 2, true);
    message.set("a", std::string("text"), true);
    message.set("c", 7U, true);
    message.set("d", true, true);
    EXPECT_EQ(describe(message), "b=int:2 a=string:\"text\" c=uint:7 d=bool:true");
}

TEST(Message, KeepsTheTypeOfAValue)
{
    moMessage message;
    message.set("n", 1, true);
    ASSERT_NE(message.find("n"), nullptr);
    EXPECT_NE(boost::any_cast<int>(message.find("n")), nullptr);
    EXPECT_EQ(boost::any_cast<unsigned int>(message.find("n")), nullptr);
    EXPECT_EQ(message.find("missing"), nullptr);
}

TEST(Message, SetAgainKeepsItsPlaceAndTakesTheNewValueOnlyIfItMayOverwrite)
{
    moMessage message;
    message.set("a", 1, true);
    message.set("b", 2, true);
    message.set("a", 3, true);
    message.set("b", 4, false);
    EXPECT_EQ(describe(message), "a=int:3 b=int:2");
}

TEST(Message, TakesMoreKeysThanAnyCommandSets)
{
    moMessage message;
    for (int i = 0; i < 100; ++i)
        message.set("key" + std::to_string(i), i, true);
    EXPECT_EQ(message.entries().size(), 100U);
    EXPECT_EQ(boost::any_cast<int>(*message.find("key99")), 99);
}

TEST(Message, TakesAnAnyForWhatItHolds)
{
    moMessage message;
    const std::string key = "count";
    const boost::any count = 3;
    message.set(key, count, true);
    message.set("again", count, true);
    EXPECT_EQ(describe(message), "count=int:3 again=int:3");
    message.set(key, boost::any(4), true);
    message.set("again", boost::any(5), false);
    EXPECT_EQ(describe(message), "count=int:4 again=int:3");
}

} // namespace
