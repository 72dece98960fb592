#include <Scenarios.h>

#include <moUndoStack/field/moFieldUndoCommand.h>
#include <moUndoStack/material/moMaterialUndoCommand.h>
#include <moUndoUtils/moUndoString.h>

#include <moOpenSGUberMaterial/OSGUberMaterial.h>

#include <OpenSG/OSGFieldContainerFactory.h>
#include <OpenSG/OSGRefPtr.h>

namespace {

using namespace bench;

const QString& editText()
{
    static const QString s_text = QStringLiteral("Change Colour");
    return s_text;
}

const moUndoString& undoString()
{
    static const moUndoString s_string(editText(), QStringLiteral("Change a colour of a material"),
                                       QStringLiteral("Material Commands"));
    return s_string;
}

template<class Ptr>
Ptr found(unsigned int id)
{
    return Ptr::dcast(osg::FieldContainerFactory::the()->getContainer(id));
}

class Material
{
public:
    Material() : m_settings(osg::ColorComponentSettings::create()), m_material(osg::UberMaterial::create())
    {
        m_material->addColorComponent(m_settings);
    }

protected:
    osg::ColorComponentSettingsPtr settings() const { return m_settings; }
    osg::UberMaterialPtr material() const { return m_material; }
    static float red(int step) { return static_cast<float>(step); }

private:
    osg::RefPtr<osg::ColorComponentSettingsPtr> m_settings;
    osg::RefPtr<osg::UberMaterialPtr> m_material;
};

/// One command for what are two of ours: edits the settings and announces the change.
class BareRed : public QUndoCommand
{
public:
    BareRed(const osg::ColorComponentSettingsPtr& settings, const osg::UberMaterialPtr& material, float red,
            QUndoCommand* parent)
        : QUndoCommand(editText(), parent),
          m_settingsId(settings.getFieldContainerId()),
          m_materialId(material.getFieldContainerId()),
          m_red(red)
    {
    }

    int id() const override { return 1; }
    void undo() override { redo(); }
    void redo() override
    {
        using Settings = osg::ColorComponentSettings;
        const auto settings = found<osg::ColorComponentSettingsPtr>(m_settingsId);
        const auto material = found<osg::UberMaterialPtr>(m_materialId);
        if (settings == osg::NullFC || material == osg::NullFC) return;
        const float old = settings->getRed();
        {
            const osg::CPEditor edit(settings, Settings::RedFieldMask);
            settings->setRed(m_red);
        }
        m_red = old;
        osg::endEditCP(settings, Settings::PlanarProjectionFieldMask);
        osg::endEditCP(material, osg::UberMaterial::ColorComponentDataFieldMask);
    }
    bool mergeWith(const QUndoCommand* other) override
    {
        const auto& newer = static_cast<const BareRed&>(*other);
        return newer.m_settingsId == m_settingsId && newer.m_materialId == m_materialId;
    }

private:
    unsigned int m_settingsId;
    unsigned int m_materialId;
    float m_red;
};

/// Drags a slider: all commands merge into the first.
struct OurDrag : Material
{
    QUndoCommand* operator()(int step, QUndoCommand*) const
    {
        static const std::string s_name = "red";
        auto* const field = new moFieldUndoCommand<float>(undoString(), settings(), s_name, red(step));
        return new moMaterialUndoCommand(undoString(), field, material(), settings(), nullptr);
    }
};
struct BareDrag : Material
{
    QUndoCommand* operator()(int step, QUndoCommand* parent) const
    {
        return new BareRed(settings(), material(), red(step), parent);
    }
};

/// Two materials in turn: nothing merges.
struct OurSteps
{
    QUndoCommand* operator()(int step, QUndoCommand* parent) const { return m_materials[step % 2](step, parent); }
    OurDrag m_materials[2];
};
struct BareSteps
{
    QUndoCommand* operator()(int step, QUndoCommand* parent) const { return m_materials[step % 2](step, parent); }
    BareDrag m_materials[2];
};

const Comparisons s_comparisons([] {
    compareCommands<OurSteps, BareSteps>("material");
    compare<Add, OurDrag, BareDrag>("material/merged", {1000}, Listener::None, {2.92, 2.4});
});

} // namespace
