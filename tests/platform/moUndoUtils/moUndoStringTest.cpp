#include <moUndoUtils/moUndoString.h>

#include <gtest/gtest.h>

namespace {

TEST(UndoString, OfThreeStringsGivesTextDescriptionAndGroup)
{
    const moUndoString string(QString("Translate 'Box'"), QString("Translate"), QString("Transform Commands"));
    EXPECT_EQ(string.text(), "Translate 'Box'");
    EXPECT_EQ(string.description(), "Translate");
    EXPECT_EQ(string.group(), "Transform Commands");
}

TEST(UndoString, OfALiteralGivesItAsTextAndDescription)
{
    const moUndoString string("Größe", "Group");
    EXPECT_EQ(string.text(), QString::fromUtf8("Größe"));
    EXPECT_EQ(string.description(), string.text());
    EXPECT_EQ(string.group(), "Group");
}

TEST(UndoString, IsEmptyByDefaultAndForANullLiteral)
{
    const moUndoString empty;
    EXPECT_TRUE(empty.text().isEmpty() && empty.description().isEmpty() && empty.group().isEmpty());
    const moUndoString ofNull(static_cast<const char*>(nullptr), "Group");
    EXPECT_TRUE(ofNull.text().isEmpty() && ofNull.description().isEmpty());
}

} // namespace
