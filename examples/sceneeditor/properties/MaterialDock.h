#pragma once

#include <sceneeditor/properties/PropertyDock.h>

#include <moOpenSGUberMaterial/OSGUBRDFMaterial.h>
#include <moOpenSGUberMaterial/OSGUberMaterial.h>

#include <OpenSG/OSGColor.h>

#include <optional>
#include <vector>

/// The materials of the scene: follows the selection to the material of a node, or shows the one that is chosen.
///
/// A field that the renderer reads is set by a command that announces the material, too; one that only the editor reads
/// by a command that does not.
class MaterialDock : public PropertyDock
{
    Q_OBJECT

public:
    explicit MaterialDock(EditorSession& session, QWidget* parent = nullptr);

private:
    void addRenderedRows();
    void addEditorRows();
    void addSelectionRow();
    void addEnvironment();

    std::vector<osg::MaterialPtr> materials() const;
    QStringList namesOf(const std::vector<osg::MaterialPtr>& materials) const;
    std::vector<osg::MaterialPtr> environments() const;
    void followSelection();
    std::vector<osg::UberMaterialPtr> selectedMaterials() const;

    osg::MaterialPtr current() const;
    osg::UberMaterialPtr material() const;
    osg::UBRDFMaterialPtr measured() const;
    osg::ColorComponentSettingsPtr component() const;

    std::optional<osg::Color3f> color() const;
    void setColor(const osg::Color3f& color);
    void paintSelected();
    void setEnvironment(int index);

    std::size_t m_current = 0;
    int m_component = 0;
};
