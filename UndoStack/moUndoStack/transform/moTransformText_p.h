#pragma once

#include <moUndoUtils/moUndoString.h>

#include <moOpenSGUtils/moNodeUtils.h>

#include <QtCore/QString>

/// The name as the user reads it; empty if the node has none.
inline QString nodeName(const osg::NodePtr& node)
{
    return QString::fromUtf8(moNodeUtils::getName(node));
}

inline moUndoString transformText(const QString& text, const QString& description)
{
    return {text, description, QStringLiteral("Transform Commands")};
}
