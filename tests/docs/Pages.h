#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>

#include <iosfwd>
#include <vector>

/// One page of the documentation.
struct Page
{
    QString file; ///< from the top of the tree
    QString text;
};

/// README.md, CONTRIBUTING.md, CHANGELOG.md, and all pages of docs/ and platform/.
const std::vector<Page>& pages();

/// A block of code that says in a comment above it where it comes from.
struct Block
{
    QString page;
    QString origin; ///< `examples/a.cpp`, `examples/a.cpp [part]` or `prints: program`; empty if it does not say
    QString language;
    QString text;
};

/// The blocks of code of all pages.
std::vector<Block> blocks();

/// The contents of a file of the tree; fails the test if there is none.
QString contentsOf(const QString& file);

/// The files of the tree below a folder with one of the endings.
QStringList filesBelow(const QString& folder, const QStringList& endings);

/// The lines between two lines `//! [part]`, as far to the left as they go.
QString partOf(const QString& text, const QString& part);

std::ostream& operator<<(std::ostream& stream, const QString& text);
