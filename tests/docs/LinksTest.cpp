// Links between pages, and from headers to pages, lead somewhere.

#include <docs/Pages.h>

#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QRegularExpression>

#include <gtest/gtest.h>

#include <set>

namespace {

/// The anchors of a page's headings, as the usual viewers make them.
std::set<QString> anchorsOf(const QString& text)
{
    static const QRegularExpression heading(QStringLiteral("^#+ (.*)$"), QRegularExpression::MultilineOption);
    static const QRegularExpression dropped(QStringLiteral("[^\\w\\- ]"),
                                            QRegularExpression::UseUnicodePropertiesOption);
    std::set<QString> anchors;
    for (auto match = heading.globalMatch(text); match.hasNext();)
        anchors.insert(match.next().captured(1).toLower().remove(dropped).replace(' ', '-'));
    return anchors;
}

/// What is wrong about a link from a file; empty if nothing is.
std::string complaint(const QString& from, const QString& to)
{
    const QString path = to.section('#', 0, 0);
    const QString anchor = to.section('#', 1);
    const QString target = path.isEmpty() ? from : QFileInfo(from).path() + '/' + path;
    if (!QFileInfo::exists(QStringLiteral(SOURCE_DIR "/") + target))
        return (from + ": there is no " + target).toStdString();
    if (!anchor.isEmpty() && !anchorsOf(contentsOf(target)).count(anchor))
        return (from + ": " + target + " has no heading " + anchor).toStdString();
    return {};
}

QStringList linksOf(const QString& text)
{
    static const QRegularExpression pattern(QStringLiteral("\\]\\(([^)\\s]+)\\)"));
    static const QRegularExpression code(QStringLiteral("```.*?```|`[^`\\n]*`"),
                                         QRegularExpression::DotMatchesEverythingOption);
    QStringList links;
    for (auto match = pattern.globalMatch(QString(text).remove(code)); match.hasNext();)
        links += match.next().captured(1);
    return links.filter(QRegularExpression(QStringLiteral("^(?!\\w+://)")));
}

TEST(Links, BetweenPagesLeadSomewhere)
{
    int links = 0;
    for (const Page& page : pages()) {
        for (const QString& to : linksOf(page.text)) {
            EXPECT_EQ(complaint(page.file, to), "");
            ++links;
        }
    }
    EXPECT_GT(links, 80);
}

TEST(Links, FromSourcesToPagesLeadSomewhere)
{
    static const QRegularExpression pattern(QStringLiteral("\\bdocs/([\\w/-]+\\.md(?:#[\\w-]+)?)"));
    const QStringList endings{"*.h", "*.cpp", "CMakeLists.txt"};
    for (const QString& file : filesBelow("UndoStack", endings) + filesBelow("platform", endings) +
                                   filesBelow("tests", endings) + filesBelow("examples", endings)) {
        const QString text = contentsOf(file);
        for (auto match = pattern.globalMatch(text); match.hasNext();)
            EXPECT_EQ(complaint("README.md", "docs/" + match.next().captured(1)), "") << file;
    }
}

/// The table at the top of the page of oddities is its index.
TEST(Links, ListEveryOddityOnce)
{
    const QString text = contentsOf("docs/oddities.md");
    const QString index = text.section("\n## ", 0, 0);
    static const QRegularExpression entry(QStringLiteral("^### (.*)$"), QRegularExpression::MultilineOption);
    for (auto match = entry.globalMatch(text); match.hasNext();) {
        const QString title = match.next().captured(1);
        EXPECT_EQ(index.count("[" + title + "]("), 1) << title;
    }
}

TEST(Links, LeadToEveryPage)
{
    std::set<QString> reached;
    for (const Page& page : pages())
        for (const QString& to : linksOf(page.text))
            reached.insert(QDir::cleanPath(QFileInfo(page.file).path() + '/' + to.section('#', 0, 0)));
    for (const QString& file : filesBelow("docs", {"*.md"}))
        EXPECT_TRUE(reached.count(file)) << "no page leads to " << file;
}

} // namespace
