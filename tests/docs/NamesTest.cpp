// What the pages name is there: functions, tests, headers.

#include <docs/Pages.h>

#include <QtCore/QRegularExpression>

#include <gtest/gtest.h>

#include <set>

namespace {

using Names = std::set<QString>;

Names found(const QString& text, const char* pattern)
{
    const QRegularExpression expression(QString::fromUtf8(pattern), QRegularExpression::MultilineOption);
    Names names;
    for (auto match = expression.globalMatch(text); match.hasNext();) {
        const auto each = match.next();
        names.insert(each.captured(1) + (each.lastCapturedIndex() > 1 ? "." + each.captured(2) : QString()));
    }
    return names;
}

QString allSources()
{
    QString text;
    for (const char* folder : {"UndoStack", "platform"})
        for (const QString& file : filesBelow(folder, {"*.h", "*.cpp"}))
            text += contentsOf(file);
    return text;
}

/// C++ on a page is compiled (see SnippetsTest.cpp), or shows how to add what is not there yet.
QString withoutCode(QString text)
{
    return text.remove(QRegularExpression("^```cpp\n.*?^```$", QRegularExpression::MultilineOption |
                                                                   QRegularExpression::DotMatchesEverythingOption));
}

TEST(Names, OfClassesAndTheirMembersOnThePagesAreThoseOfTheSources)
{
    const QString sources = allSources() + contentsOf("cmake/moUndoStackConfig.cmake.in");
    const Names words = found(sources, "\\b(\\w+)\\b");
    for (const Page& page : pages()) {
        if (page.file == "CHANGELOG.md") continue;
        for (const QString& name : found(page.text, "`(mo[A-Z]\\w*(?!\\w*\\.h)(?:::~?\\w+)?)[^`]*`"))
            for (const QString& word : name.split("::"))
                EXPECT_TRUE(words.count(word)) << page.file << ": there is no " << name;
        for (const QString& name : found(withoutCode(page.text), "\\b(mo[A-Z]\\w*::\\w+)"))
            for (const QString& word : name.split("::"))
                EXPECT_TRUE(words.count(word)) << page.file << ": there is no " << name;
    }
}

TEST(Names, OfTestsOnThePageOfQtAreThoseOfItsTests)
{
    QString tests;
    for (const QString& file : filesBelow("tests/qt", {"*.cpp"}))
        tests += contentsOf(file);
    Names there = found(tests, "^TEST(?:_F)?\\((\\w+),\\s*(\\w+)\\)");
    for (const QString& name : found(tests, "which == \"([\\w-]+)\""))
        there.insert("QtProcess." + name);
    EXPECT_EQ(found(contentsOf("docs/qt.md"), "`(Qt\\w+\\.[\\w-]+)`"), there);
}

TEST(Names, OfHeadersOnThePageOfThePlatformAreThoseThatTheLibraryIncludes)
{
    QString sources;
    for (const QString& file : filesBelow("UndoStack", {"*.h", "*.cpp"}))
        sources += contentsOf(file);
    Names included = found(sources, "^#include <(mo(?!UndoStack)\\w+/[^>]+)>");
    if (sources.contains("<OpenSG/OSGTransform3D.h>")) included.insert("OpenSG/OSGTransform3D.h");
    EXPECT_EQ(found(contentsOf("docs/howto/platform.md"), "`<([^>]+)>`"), included);
}

/// Each entry says why it is so, what follows, and what to do instead.
TEST(Names, OfThePartsOfAnOddityStandInEach)
{
    for (const QString& entry : contentsOf("docs/oddities.md").split("\n### ").mid(1))
        for (const char* part : {"\n- *Why:* ", "\n- *Consequence:* ", "\n- *Instead:* "})
            EXPECT_EQ(entry.count(part), 1) << part << "of " << entry.section('\n', 0, 0);
}

} // namespace
