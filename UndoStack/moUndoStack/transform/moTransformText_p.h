#pragma once

#include <moUndoUtils/moUndoString.h>

#include <moOpenSGUtils/moNodeUtils.h>

#include <QtCore/QString>

/// The text of a command that edits the transform of one node.
/// \param pattern      what the user reads, with %1 for the name of the node (read as UTF-8; empty for a node without
/// name). \param description  the same without the node.
inline moUndoString transformText(const QString& pattern, const QString& description, const osg::NodePtr& node)
{
    return {pattern.arg(QString::fromUtf8(moNodeUtils::getName(node))), description,
            QStringLiteral("Transform Commands")};
}
