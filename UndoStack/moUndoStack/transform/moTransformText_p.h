#pragma once

#include <moUndoUtils/moUndoString.h>

#include <moOpenSGUtils/moNodeUtils.h>

#include <QtCore/QByteArray>
#include <QtCore/QString>

/// The name as the user reads it; empty if the node has none.
inline QString nodeName(const osg::NodePtr& node)
{
    return QString::fromUtf8(moNodeUtils::getName(node));
}

/// The text of a command about a node. Commands often come in rows with one wording about one node: they share it.
/// \param compose  makes the text of a wording and a node's name. Each lambda has a last text of its own.
template<class Compose>
QString sharedText(const QString& wording, const osg::NodePtr& node, const Compose& compose)
{
    static QString s_wording;
    static QByteArray s_name;
    static QString s_text;
    const char* const name = moNodeUtils::getName(node);
    if (s_text.isNull() || s_wording != wording || s_name != name) {
        QByteArray newName(name);
        s_text = compose(wording, nodeName(node));
        s_wording = wording;
        s_name.swap(newName);
    }
    return s_text;
}

/// The same for a wording with a %1, where the name goes.
inline QString sharedText(const QString& wording, const osg::NodePtr& node)
{
    return sharedText(wording, node, [](const QString& pattern, const QString& name) { return pattern.arg(name); });
}

inline moUndoString transformText(const QString& text, const QString& description)
{
    return {text, description, QStringLiteral("Transform Commands")};
}
