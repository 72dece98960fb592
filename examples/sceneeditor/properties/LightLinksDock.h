#pragma once

#include <sceneeditor/properties/PropertyDock.h>

#include <moOpenSGUtils/moNodePtr.h>

#include <moOpenSGUberLight/OSGLightLinkSet.h>

#include <OpenSG/OSGNode.h>

#include <vector>

class QListWidget;

/// The light link sets of the scene: which lights shine on which nodes only.
class LightLinksDock : public PropertyDock
{
    Q_OBJECT

public:
    explicit LightLinksDock(EditorSession& session, QWidget* parent = nullptr);

private:
    /// One of the two lists of a set.
    struct LinkList
    {
        unsigned int type; ///< as moAddNodeToLightLinkSetUndoCommand takes it
        QString what;
        QListWidget* widget;
        std::vector<osg::NodePtr> shown;
    };

    void findSets();
    osg::NodePtr setNode() const;
    osg::LightLinkSetPtr set() const;

    void addList(LinkList& list, const QString& label, const QString& name);
    std::vector<osg::NodePtr> nodesIn(const LinkList& list) const;
    std::vector<osg::NodePtr> addable(const LinkList& list) const;
    void showList(LinkList& list);
    void add(const LinkList& list);
    void remove(const LinkList& list);

    std::vector<moNodePtr> m_sets; ///< the nodes of the sets
    std::size_t m_current = 0;
    LinkList m_lights;
    LinkList m_nodes;
};
