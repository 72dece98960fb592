#include <docs/Pages.h>

#include <QtCore/QDir>
#include <QtCore/QDirIterator>
#include <QtCore/QFile>
#include <QtCore/QRegularExpression>

#include <gtest/gtest.h>

#include <algorithm>
#include <ostream>

QString contentsOf(const QString& file)
{
    QFile source(QStringLiteral(SOURCE_DIR "/") + file);
    if (!source.open(QIODevice::ReadOnly)) ADD_FAILURE() << "there is no " << file;
    return QString::fromUtf8(source.readAll());
}

QStringList filesBelow(const QString& folder, const QStringList& endings)
{
    const QDir top(QStringLiteral(SOURCE_DIR));
    QStringList files;
    for (QDirIterator each(top.filePath(folder), endings, QDir::Files, QDirIterator::Subdirectories); each.hasNext();)
        files += top.relativeFilePath(each.next());
    files.sort();
    return files;
}

const std::vector<Page>& pages()
{
    static const std::vector<Page> all = [] {
        std::vector<Page> result;
        const QStringList top{"README.md", "CONTRIBUTING.md", "CHANGELOG.md"};
        for (const QString& file : top + filesBelow("docs", {"*.md"}) + filesBelow("platform", {"*.md"}))
            result.push_back({file, contentsOf(file)});
        return result;
    }();
    return all;
}

std::vector<Block> blocks()
{
    static const QRegularExpression pattern(QStringLiteral("(?:^<!-- ([^\\n]*) -->\\n)?^```(\\w*)\\n(.*?)^```$"),
                                            QRegularExpression::MultilineOption |
                                                QRegularExpression::DotMatchesEverythingOption);
    std::vector<Block> result;
    for (const Page& page : pages()) {
        for (auto match = pattern.globalMatch(page.text); match.hasNext();) {
            const auto block = match.next();
            result.push_back({page.file, block.captured(1), block.captured(2), block.captured(3)});
        }
    }
    return result;
}

QString partOf(const QString& text, const QString& part)
{
    const QStringList lines = text.split('\n');
    const auto isMark = [&part](const QString& line) { return line.trimmed() == "//! [" + part + "]"; };
    const auto first = std::find_if(lines.begin(), lines.end(), isMark);
    if (first == lines.end()) return {};
    const auto last = std::find_if(first + 1, lines.end(), isMark);
    int indent = 1000;
    for (auto line = first + 1; line != last; ++line)
        if (!line->trimmed().isEmpty()) indent = std::min(indent, int(line->size() - line->trimmed().size()));
    QString result;
    for (auto line = first + 1; line != last; ++line)
        result += line->mid(indent) + '\n';
    return result;
}

std::ostream& operator<<(std::ostream& stream, const QString& text)
{
    return stream << text.toStdString();
}
