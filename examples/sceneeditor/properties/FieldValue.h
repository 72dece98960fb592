#pragma once

#include <OpenSG/OSGField.h>

#include <QtCore/QString>
#include <QtCore/QStringList>

#include <optional>

// What the library's field commands can edit, read from a field of any type. Nothing if it is of another kind.

/// Integers of all widths.
std::optional<double> wholeOf(const osg::Field& field);
/// Both widths of floating numbers.
std::optional<double> numberOf(const osg::Field& field);
std::optional<bool> flagOf(const osg::Field& field);
std::optional<QString> textOf(const osg::Field& field);
/// A list of texts.
std::optional<QStringList> listOf(const osg::Field& field);
bool isImage(const osg::Field& field);

/// One line for any field.
QString summaryOf(const osg::Field& field);
