#pragma once

#include <sceneeditor/properties/PropertyDock.h>

#include <moOpenSGUberLight/OSGLensFlareEffect.h>
#include <moOpenSGUberLight/OSGLensFlareGhostLine.h>

#include <OpenSG/OSGNode.h>

#include <vector>

class QTreeWidget;
class QTreeWidgetItem;

/// The lens flare of the selected light: its settings, its elements with the ghosts of the ghost lines, and the settings of
/// the part that is current in the list.
///
/// The light library keeps elements and ghosts in the order in which they were made: there is nothing to move.
class LensFlareDock : public PropertyDock
{
    Q_OBJECT

public:
    explicit LensFlareDock(EditorSession& session, QWidget* parent = nullptr);

private:
    /// An element, or a ghost with its line (0 for an element), by container id.
    struct Part
    {
        osg::UInt32 id;
        osg::UInt32 line;

        friend bool operator==(const Part& a, const Part& b) { return a.id == b.id && a.line == b.line; }
    };

    void addEffectRows();
    void addParts();
    void addPartRows();

    osg::LensFlareEffectPtr effect() const;
    void setPresent(bool present);
    void setUseLight(bool use);
    void applyPreset(osg::LensFlareEffect::Type type);

    std::vector<Part> parts() const;
    void showParts();
    QTreeWidgetItem* itemOf(osg::UInt32 id) const;
    void makeCurrent(osg::UInt32 id);
    osg::FieldContainerPtr currentPart() const;
    osg::LensFlareGhostLinePtr currentLine() const;
    void addElement(const osg::LensFlareElementPtr& element);
    void addGhost();
    void removeSelected();

    QTreeWidget* m_list;
    std::vector<Part> m_shown;
    osg::UInt32 m_current = 0; ///< the part chosen last, by id; it may not be in the list
};
