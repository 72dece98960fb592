#include <Scenarios.h>

#include <moUndoStack/field/moBoolFieldUndoCommand.h>
#include <moUndoStack/field/moFieldUndoCommand.h>
#include <moUndoStack/field/moStringFieldUndoCommand.h>
#include <moUndoStack/field/moUndoUtil.h>
#include <moUndoUtils/moUndoString.h>

#include <OpenSG/OSGFieldContainerFactory.h>
#include <OpenSG/OSGFieldContainerType.h>
#include <OpenSG/OSGFieldDescription.h>
#include <OpenSG/OSGImage.h>
#include <OpenSG/OSGSimpleMaterial.h>

namespace {

using namespace bench;

const QString& editText()
{
    static const QString s_text = QStringLiteral("Change Material");
    return s_text;
}

const moUndoString& undoString()
{
    static const moUndoString s_string(editText(), QStringLiteral("Change a field of a material"),
                                       QStringLiteral("Material Commands"));
    return s_string;
}

/// What a host writes by hand for one field of one class: exchanges its value and that of the field.
template<class Ptr, class T, class Get, class Set>
class BareEdit : public QUndoCommand
{
public:
    BareEdit(const Ptr& container, osg::BitVector mask, T value, Get get, Set set, QUndoCommand* parent)
        : QUndoCommand(editText(), parent),
          m_containerId(container.getFieldContainerId()),
          m_mask(mask),
          m_value(std::move(value)),
          m_get(get),
          m_set(set)
    {
    }

    int id() const override { return 1; }
    void undo() override { redo(); }
    void redo() override
    {
        const Ptr container = Ptr::dcast(osg::FieldContainerFactory::the()->getContainer(m_containerId));
        if (container == osg::NullFC) return;
        T old = m_get(container);
        osg::beginEditCP(container, m_mask);
        m_set(container, m_value);
        osg::endEditCP(container, m_mask);
        m_value = std::move(old);
    }
    bool mergeWith(const QUndoCommand* other) override
    {
        return static_cast<const BareEdit*>(other)->m_containerId == m_containerId;
    }

private:
    unsigned int m_containerId;
    osg::BitVector m_mask;
    T m_value;
    Get m_get;
    Set m_set;
};

QUndoCommand* bareShininess(const osg::SimpleMaterialPtr& material, int step, QUndoCommand* parent)
{
    return new BareEdit(
        material, osg::SimpleMaterial::ShininessFieldMask, static_cast<float>(step),
        [](const osg::SimpleMaterialPtr& m) { return m->getShininess(); },
        [](const osg::SimpleMaterialPtr& m, float value) { m->setShininess(value); }, parent);
}

class Materials
{
public:
    Materials() : m_materials{osg::SimpleMaterial::create(), osg::SimpleMaterial::create()}
    {
        for (const osg::SimpleMaterialPtr& material : m_materials)
            osg::addRefCP(material);
    }
    ~Materials()
    {
        for (osg::SimpleMaterialPtr& material : m_materials)
            osg::subRefCP(material);
    }
    Materials(const Materials&) = delete;
    Materials& operator=(const Materials&) = delete;

protected:
    const osg::SimpleMaterialPtr& material() const { return m_materials[0]; }
    /// Never the same container twice in a row, so that merging is considered and refused.
    const osg::SimpleMaterialPtr& alternating(int step) const { return m_materials[step % 2]; }

private:
    osg::SimpleMaterialPtr m_materials[2];
};

struct OurShininess : Materials
{
    QUndoCommand* operator()(int step, QUndoCommand*) const
    {
        static const std::string s_name = "shininess";
        return new moFieldUndoCommand<float>(undoString(), alternating(step), s_name, static_cast<float>(step));
    }
};
struct BareShininess : Materials
{
    QUndoCommand* operator()(int step, QUndoCommand* parent) const
    {
        return bareShininess(alternating(step), step, parent);
    }
};

struct OurDraggedShininess : Materials
{
    QUndoCommand* operator()(int step, QUndoCommand*) const
    {
        static const std::string s_name = "shininess";
        return new moFieldUndoCommand<float>(undoString(), material(), s_name, static_cast<float>(step));
    }
};
struct BareDraggedShininess : Materials
{
    QUndoCommand* operator()(int step, QUndoCommand* parent) const { return bareShininess(material(), step, parent); }
};

struct OurLitById : Materials
{
    QUndoCommand* operator()(int step, QUndoCommand*) const
    {
        constexpr int id = osg::SimpleMaterial::LitFieldId;
        return new moBoolFieldUndoCommand(undoString(), alternating(step), id, step % 4 < 2);
    }
};
struct BareLit : Materials
{
    QUndoCommand* operator()(int step, QUndoCommand* parent) const
    {
        return new BareEdit(
            alternating(step), osg::SimpleMaterial::LitFieldMask, step % 4 < 2,
            [](const osg::SimpleMaterialPtr& m) { return m->getLit(); },
            [](const osg::SimpleMaterialPtr& m, bool value) { m->setLit(value); }, parent);
    }
};

/// Typing: the old text of each command is the new text of the one before.
class NamedImage
{
public:
    NamedImage() : m_image(osg::Image::create()) { osg::addRefCP(m_image); }
    ~NamedImage() { osg::subRefCP(m_image); }
    NamedImage(const NamedImage&) = delete;
    NamedImage& operator=(const NamedImage&) = delete;

protected:
    static std::string typed(int step) { return "texture " + std::to_string(step); }

    osg::ImagePtr m_image;
};
struct OurTyping : NamedImage
{
    QUndoCommand* operator()(int step, QUndoCommand*) const
    {
        constexpr int id = osg::Image::NameFieldId;
        return new moStringFieldUndoCommand(undoString(), m_image, id, typed(step));
    }
};
struct BareTyping : NamedImage
{
    QUndoCommand* operator()(int step, QUndoCommand* parent) const
    {
        return new BareEdit(
            m_image, osg::Image::NameFieldMask, typed(step), [](const osg::ImagePtr& i) { return i->getName(); },
            [](const osg::ImagePtr& i, const std::string& value) { i->setName(value); }, parent);
    }
};

/// Looks one name up repeatedly. The bare side asks the type for the field by its exact name.
class Lookup : public Work, private Materials
{
public:
    Lookup(int steps, const std::string& name, bool bare) : m_steps(steps), m_name(name), m_bare(bare) {}

    void run() override
    {
        for (int i = 0; i < m_steps; ++i) {
            // Through a volatile, so that no lookup is left out.
            [[maybe_unused]] const osg::FieldDescription* volatile found =
                m_bare ? material()->getType().findFieldDescription(m_name.c_str())
                       : moUndoUtil::findField(material(), m_name);
        }
    }

private:
    int m_steps;
    std::string m_name;
    bool m_bare;
};

void compareLookup(const std::string& what, const std::string& name)
{
    const MakeWork ours = [name](int steps) { return std::make_unique<Lookup>(steps, name, false); };
    const MakeWork bare = [](int steps) { return std::make_unique<Lookup>(steps, "shininess", true); };
    comparisons().push_back({"field/find/" + what, {1000}, ours, bare});
}

const Comparisons s_comparisons([] {
    compareCommands<OurShininess, BareShininess>("field/name", {1.93, 1.93}, {1.81, 1.51}, bytes(152, 152));
    compare<Add, OurDraggedShininess, BareDraggedShininess>("field/name/merged", {1000}, Listener::None, {2.16, 1.77});
    compareCommands<OurLitById, BareLit>("field/id");
    compare<Add, OurTyping, BareTyping>("field/string/merged", {1000});
    compareLookup("hit", "shininess");
    compareLookup("flipped", "Shininess");
    compareLookup("miss", "shinyness");
});

} // namespace
