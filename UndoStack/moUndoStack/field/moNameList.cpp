#include <moUndoStack/field/moUndoUtil.h>

#include <moOpenSGUtils/moNodeUtils.h>

#include <QtCore/QStringList>

#include <algorithm>

// moUndoUtil::makeNameList().

namespace {

/// Calls appendName(list, element) for the first maxCount elements, and puts the names in quotes.
template<class Element, class AppendName>
QString quotedList(const std::vector<Element>& elements, std::uint64_t maxCount, AppendName appendName)
{
    QStringList names;
    for (std::size_t i = 0; i < maxCount && i < elements.size(); ++i)
        appendName(names, elements[i]);
    return QLatin1Char('\'') + names.join(QLatin1String("', '")) +
           QLatin1String(elements.size() > maxCount ? "', ..." : "'");
}

std::vector<osg::NodePtr> osgNodes(const std::vector<moNodePtr>& nodes)
{
    std::vector<osg::NodePtr> result(nodes.size());
    std::transform(nodes.begin(), nodes.end(), result.begin(), [](const moNodePtr& node) { return node.getPtr(); });
    return result;
}

} // namespace

QString moUndoUtil::makeNameList(const moNodePtr& node)
{
    return makeNameList(node.getPtr());
}

QString moUndoUtil::makeNameList(const osg::NodePtr& node)
{
    const char* const name = moNodeUtils::getName(node);
    return name ? QLatin1Char('\'') + QString(name) + QLatin1Char('\'') : QStringLiteral("''");
}

QString moUndoUtil::makeNameList(const std::vector<osg::NodePtr>& nodes, std::uint64_t maxCount)
{
    return quotedList(nodes, maxCount, [](QStringList& names, const osg::NodePtr& node) {
        if (node == osg::NullFC) return;
        if (const char* const name = moNodeUtils::getName(node)) names << QString::fromUtf8(name);
    });
}

QString moUndoUtil::makeNameList(const std::vector<osg::NodePtr>& nodes)
{
    return makeNameList(nodes, nodes.size());
}

QString moUndoUtil::makeNameList(const std::vector<moNodePtr>& nodes, std::uint64_t maxCount)
{
    return makeNameList(osgNodes(nodes), maxCount);
}

QString moUndoUtil::makeNameList(const std::vector<moNodePtr>& nodes)
{
    return makeNameList(nodes, nodes.size());
}

QString moUndoUtil::makeNameList(const std::vector<std::pair<osg::NodePtr, int>>& nodes, std::uint64_t maxCount)
{
    return quotedList(nodes, maxCount, [](QStringList& names, const std::pair<osg::NodePtr, int>& element) {
        const auto& [node, index] = element;
        if (node == osg::NullFC) return;
        const char* const name = moNodeUtils::getName(node);
        QString text = QString::fromUtf8(name);
        // Intended, part of the interface: for a variant the node's name stands twice. See
        // docs/oddities.md#a-name-twice.
        if (!moNodeUtils::getTransformVariantName(node, index).empty()) text += QString::fromUtf8(name);
        if (!text.isEmpty()) names << text;
    });
}
