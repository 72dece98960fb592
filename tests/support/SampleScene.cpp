#include <support/SampleScene.h>

#include <support/EditTrace.h>
#include <support/Images.h>

#include <moOpenSGUtils/moLights.h>
#include <moOpenSGUtils/moNodeUtils.h>

#include <OpenSG/OSGFieldContainerFactory.h>
#include <OpenSG/OSGHandleFields.h>
#include <OpenSG/OSGSFSysTypes.h>
#include <OpenSG/OSGSimpleAttachments.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <map>

namespace osg {

MO_TRACED_CONTAINER(Node, "Node")
MO_TRACED_CONTAINER(Transform3D, "Transform3D")
MO_TRACED_CONTAINER(TransformVariant, "TransformVariant")
MO_TRACED_CONTAINER(TagAttachment, "TagAttachment")
MO_TRACED_CONTAINER(UberLight, "UberLight")
MO_TRACED_CONTAINER(LensFlareEffect, "LensFlareEffect")
MO_TRACED_CONTAINER(LensFlareGhostLine, "LensFlareGhostLine")
MO_TRACED_CONTAINER(LightLinkSet, "LightLinkSet")
MO_TRACED_CONTAINER(ColorComponentSettings, "ColorComponentSettings")
MO_TRACED_CONTAINER(UberMaterial, "UberMaterial")
MO_TRACED_CONTAINER(UBRDFMaterial, "UBRDFMaterial")
MO_TRACED_CONTAINER(AimConstraint, "AimConstraint")

} // namespace osg

namespace {

/// Where nodes have flags. By name, as the field is not in every osg::Node.
void markAsVisibilityReference(const osg::NodePtr& node)
{
    if (auto* const flags = dynamic_cast<osg::SFUInt32*>(node->getField("externalFlags"))) flags->setValue(0x10);
}

osg::NodePtr makeNode(const std::string& name, const osg::NodeCorePtr& core)
{
    const osg::NodePtr node = osg::TracedNode::create();
    osg::setName(node, name);
    node->setCore(core);
    return node;
}

/// Sets values that all differ, so that a value in a wrong place shows.
void placeSomewhere(const osg::Transform3DPtr& transform, float first)
{
    transform->setTranslation(osg::Vec3f(first, first + 1, first + 2));
    transform->setEulerRotation(osg::Vec3f(10 * first, 20, 30));
    transform->setRotatePivot(osg::Vec3f(first, 0.5f, 0.25f));
    transform->setRotatePivotTranslation(osg::Vec3f(first, 0.75f, 0.125f));
    transform->setScale(osg::Vec3f(1, 2, first + 1));
    transform->setScalePivot(osg::Vec3f(first, 1.5f, 1.25f));
    transform->setScalePivotTranslation(osg::Vec3f(first, 1.75f, 1.125f));
    transform->setShear(osg::Vec3f(first / 8, 0.25f, 0.5f));
    osg::changedCP(transform, osg::Transform3D::EulerRotationFieldMask);
}

/// Sets what most transforms have in common: where the rotation comes from.
void turnInItsOwnWay(const osg::Transform3DPtr& transform, int number)
{
    static constexpr const char* orders[] = {"YZX", "ZXY", "XZY"};
    const auto first = static_cast<float>(number + 1);
    transform->setEulerRotationOrientation(osg::Vec3f(first, 2 * first, 3 * first));
    transform->setEulerRotationOrder(orders[number]);
    transform->setRotationDirection(osg::Vec3f(first, 1, 2));
    transform->setRotationMode(number + 1);
    transform->setSupposedState(number + 10);
    osg::changedCP(transform, osg::Transform3D::EulerRotationOrderFieldMask);
}

void addVariants(const osg::NodePtr& node, float shift)
{
    moNodeUtils::createTransformVariantsAttachment(node);
    for (int i = 0; i < 3; ++i) {
        const osg::TransformVariantPtr variant = osg::TracedTransformVariant::create();
        variant->setName("variant " + std::to_string(i));
        variant->setTransform(osg::TracedTransform3D::create());
        placeSomewhere(variant->getTransform(), static_cast<float>(i + 4) + shift);
        turnInItsOwnWay(variant->getTransform(), i);
        moNodeUtils::insertTransformVariant(node, static_cast<osg::UInt64>(i), variant);
    }
}

void shine(const osg::UberLightPtr& light, float first)
{
    light->setDiffuse(osg::Color3f(first / 64, first / 32, 0.5f));
    light->setGlossy(osg::Color3f(0.5f, first / 64, first / 32));
    light->setAttenuationDistance(first + 2);
    light->setConeAngle(first + 40);
    light->setPenumbraAngle(first + 4);
}

template<class Container>
void traceEdits(const Container& container)
{
    container->onChanged = [container](osg::BitVector mask, osg::UInt32 origin) {
        EditTrace::tell(container, mask, origin);
    };
}

} // namespace

SampleTarget::SampleTarget(std::string prefix, int shift) : m_prefix(std::move(prefix))
{
    action.setCheckable(true);
    const auto by = static_cast<float>(shift);

    const osg::NodePtr box = hold("node", makeNode(m_prefix + "box", osg::TracedTransform3D::create()));
    placeSomewhere(osg::Transform3DPtr::dcast(box->getCore()), by + 1);
    addVariants(box, by);
    hold("variant", moNodeUtils::getTransformVariant(box, 0));
    hold("sibling", moNodeUtils::getTransformVariant(box, 1));

    const auto tagList = hold("tags", osg::TracedTagAttachment::create());
    tagList->getMFUserTags()->push_back(m_prefix + "old");
    tagList->getMFSystemTags()->push_back(m_prefix + "locked");
    tagList->getMFTagStamps()->push_back(static_cast<osg::UInt64>(shift) + 1);
    box->addAttachment(tagList);

    const osg::NodePtr plain = hold("bare", makeNode(m_prefix + "plain", osg::TracedTransform3D::create()));

    const osg::NodePtr lamp = hold("light", makeNode(m_prefix + "lamp", osg::TracedUberLight::create()));
    const auto flare = hold("effect", osg::TracedLensFlareEffect::create());
    const auto ghosts = hold("line", osg::TracedLensFlareGhostLine::create());
    shine(lightCore(), by + 1);
    moLights::changeLightType(lamp, "Area");
    lightCore()->setScale(osg::Vec3f(by + 2, 3, 1));
    osg::changedCP(lightCore(), osg::Transform3D::ScaleFieldMask);
    moLights::setLightValue(lamp, by + 40);
    moLights::setLightProfile(lamp, (m_prefix + "lamp.ies").c_str(), by + 250);
    moLights::setLensFlareEffect(lamp, flare);
    flare->setSize(by + 2);
    flare->setIntensity(by + 3);
    for (int i = 0; i < 3; ++i) {
        flare->addElement(osg::LensFlareElement::create());
        flare->getElements().back()->setSize(by + static_cast<float>(i));
        ghosts->addGhost(osg::LensFlareGhost::create());
        ghosts->getGhosts().back()->setPosition(by + static_cast<float>(i));
    }

    const osg::NodePtr torch = hold("spot", makeNode(m_prefix + "torch", osg::TracedUberLight::create()));
    shine(spotCore(), by + 5);
    moLights::changeLightType(torch, "Spot");
    moLights::setLightValue(torch, by + 60);
    spotCore()->UberLightBase::setAttenuation(osg::UberLight::QuadraticAttenuation);
    spotCore()->setOn(false);
    spotCore()->setLightVisualizationVisible(false);
    spotCore()->setVisibilityReference(box);
    markAsVisibilityReference(box);

    const auto links = hold("set", osg::TracedLightLinkSet::create());
    links->addSceneNode(box);
    links->addLight(lamp);
    links->addLight(plain);

    const auto paint = hold("material", osg::TracedUberMaterial::create());
    const auto colour = hold("settings", osg::TracedColorComponentSettings::create());
    colour->setRed(by + 2);
    colour->setGreen(by + 3);
    paint->addColorComponent(colour);
    osg::changedCP(paint, osg::UberMaterial::ColorComponentsFieldMask);
    hold("component", osg::TracedColorComponentSettings::create())->setRed(by + 4);
    const auto glass = hold("glass", osg::TracedUBRDFMaterial::create());
    const auto day = hold("sky", osg::TracedUberMaterial::create());
    const auto mirror = hold("mirror", osg::TracedUBRDFMaterial::create());
    mirror->setEnvironment(day);
    // An installed OpenSG makes a further container, the state, at the first change of a material.
    for (const osg::MaterialPtr& changed : {osg::MaterialPtr(glass), osg::MaterialPtr(day), osg::MaterialPtr(mirror)})
        osg::changedCP(changed);

    const auto constraint = hold("aim", osg::TracedAimConstraint::create());
    constraint->addSource(box, by + 0.25f);
    constraint->addSource(plain, by + 0.75f);
    constraint->addUpVectorSource(plain, by + 0.5f);
    const auto second = hold("gaze", osg::TracedAimConstraint::create());
    second->addSource(plain, by + 2);
    second->addUpVectorSource(plain, by + 3);
    second->createTarget(plain);

    const auto singles = hold("values", osg::AllSingleFields::create());
    singles->setSingleInt8(static_cast<osg::Int8>(shift + 70));
    singles->setSingleUInt8(static_cast<osg::UInt8>(shift + 71));
    singles->setSingleInt16(static_cast<osg::Int16>(shift + 72));
    singles->setSingleUInt16(static_cast<osg::UInt16>(shift + 73));
    singles->setSingleInt32(shift + 74);
    singles->setSingleUInt32(static_cast<osg::UInt32>(shift) + 75);
    singles->setSingleInt64((osg::Int64(1) << 40) + shift);
    singles->setSingleUInt64((osg::UInt64(1) << 41) + static_cast<osg::UInt64>(shift));
    singles->setSingleReal32(by + 0.5f);
    singles->setSingleReal64(by + 0.25f);
    singles->setSingleString(m_prefix + "text");
    singles->setSecondInt32(shift == 0 ? 0 : 1);
    singles->setSingleImagePtr(makeImage({0}));
    osg::addRefCP(singles->getSingleImagePtr()); // the field's own
    traceEdits(singles);
    const auto multis = hold("lists", osg::AllMultiFields::create());
    multis->getMFMultiString()->push_back(m_prefix + "one");
    traceEdits(multis);
}

SampleTarget::~SampleTarget()
{
    for (const std::string& role : roles())
        destroy(role);
}

osg::UberLightPtr SampleTarget::coreOf(const osg::NodePtr& light)
{
    return light ? osg::UberLightPtr::dcast(light->getCore()) : osg::UberLightPtr();
}

std::vector<std::string> SampleTarget::roles() const
{
    std::vector<std::string> roles;
    for (const auto& entry : m_held)
        roles.push_back(entry.first);
    return roles;
}

void SampleTarget::destroy(const std::string& role)
{
    const auto held =
        std::find_if(m_held.begin(), m_held.end(), [&](const auto& entry) { return entry.first == role; });
    if (held == m_held.end()) return;
    detach(role);
    m_held.erase(held);
}

/// Removes the container where others refer to it, as the application does before it releases it: no handle to a
/// destroyed container must be left.
void SampleTarget::detach(const std::string& role)
{
    if (const auto asNode = osg::NodePtr::dcast(container(role)); asNode && set()) {
        set()->subSceneNode(asNode);
        set()->subLight(asNode);
    }
    if (const auto asVariant = osg::TransformVariantPtr::dcast(container(role)); asVariant && node()) {
        for (osg::UInt64 i = 0; i < moNodeUtils::getTransformVariantCount(node()); ++i)
            if (moNodeUtils::getTransformVariant(node(), i) == asVariant)
                moNodeUtils::removeTransformVariant(node(), i);
    }
    if (role == "node" && spotCore()) spotCore()->setVisibilityReference(osg::NullFC);
    if (role == "tags" && node()) node()->subAttachment(tags());
    if (role == "bare" && lightCore()) lightCore()->setVisibilityReference(osg::NullFC);
    if (role == "effect" && lightCore()) lightCore()->setLensFlareEffect(osg::NullFC);
    if (role == "settings" && material()) material()->subColorComponent(settings());
    if (role == "sky") {
        for (const osg::UBRDFMaterialPtr& shining : {glass(), mirror()})
            if (shining) shining->setEnvironment(osg::NullFC);
    }
    if (role == "values") {
        // Releases the field's reference, and sets the handle to null.
        osg::ImagePtr image = values()->getSingleImagePtr();
        values()->setSingleImagePtr(osg::NullFC);
        osg::subRefCP(image);
    }
}

std::vector<std::pair<std::string, osg::FieldContainerPtr>> SampleTarget::named() const
{
    std::vector<std::pair<std::string, osg::FieldContainerPtr>> names;
    for (const auto& [role, held] : m_held) {
        const osg::FieldContainerPtr container = held;
        names.emplace_back(m_prefix + role, container);
        if (const auto asNode = osg::NodePtr::dcast(container))
            names.emplace_back(m_prefix + role + " core", asNode->getCore());
        if (const auto asVariant = osg::TransformVariantPtr::dcast(container))
            names.emplace_back(m_prefix + role + " core", asVariant->getTransform());
    }
    return names;
}

namespace {

/// Visits all containers that can be reached from the named ones, field by field.
class Walk
{
public:
    explicit Walk(const SampleScene& scene)
    {
        for (const SampleTarget* target : {&scene.target, &scene.other}) {
            for (const auto& [name, container] : target->named()) {
                m_names.emplace(container.getFieldContainerId(), name);
                m_reached.push_back(container);
            }
        }
        // The list grows in the loop.
        for (std::size_t i = 0; i < m_reached.size(); ++i)
            addContainer(osg::FieldContainerPtr(m_reached[i]));
    }

    std::vector<std::string> fields;
    std::vector<std::string> references;

private:
    /// A container without a role is named after the field from which it is reached first: `effect.elements/2`.
    std::string nameOf(const osg::FieldContainerPtr& container, const std::string& from)
    {
        if (!container) return "-";
        const auto [name, isNew] = m_names.emplace(container.getFieldContainerId(), std::string());
        if (isNew) {
            name->second = from + '/' + std::to_string(++m_counts[from]);
            m_reached.push_back(container);
        }
        return name->second;
    }

    enum class Kind
    {
        Value,
        Handles,
        Id,
        Attachments,
        Texts
    };
    struct Column
    {
        osg::UInt32 fieldId;
        std::string field;
        Kind kind;
    };

    static Kind kindOf(const osg::Field& field, const std::string& name)
    {
        if (dynamic_cast<const osg::SFAttachmentMap*>(&field)) return Kind::Attachments;
        if (dynamic_cast<const osg::MFString*>(&field)) return Kind::Texts;
        if (name == "objectId") return Kind::Id;
        return osg::holdsHandles(field) ? Kind::Handles : Kind::Value;
    }

    /// The fields of a container that the walk reads; looked up once for each type.
    static const std::vector<Column>& columnsOf(const osg::FieldContainerPtr& container)
    {
        static std::map<osg::UInt32, std::vector<Column>> known;
        const auto [entry, isNew] = known.try_emplace(container->getTypeId());
        const osg::FieldContainerType& type = container->getType();
        for (osg::UInt32 id = 1; isNew && id <= type.getNumFieldDescs(); ++id) {
            const osg::FieldDescription& description = *type.getFieldDescription(id);
            const std::string name = description.getCName();
            if (description.isInternal() || name == "parents" || name == "volume") continue;
            entry->second.push_back({id, '.' + name, kindOf(*container->getField(id), name)});
        }
        return entry->second;
    }

    void addContainer(const osg::FieldContainerPtr& container)
    {
        const std::string name = nameOf(container, std::string());
        references.push_back(name + ' ' + std::to_string(container.getRefCount()));
        for (const Column& column : columnsOf(container)) {
            const std::string text = textOf(column.kind, *container->getField(column.fieldId), name + column.field);
            std::string& line = fields.emplace_back();
            line.reserve(name.size() + column.field.size() + 3 + text.size());
            line.append(name).append(column.field).append(" = ").append(text);
        }
        if (const auto image = osg::ImagePtr::dcast(container)) {
            std::string pixels;
            for (osg::UInt32 i = 0; i < image->getSize(); ++i)
                pixels += ' ' + std::to_string(image->getData()[i]);
            fields.push_back(name + ".pixels =" + pixels);
        }
    }

    std::string textOf(Kind kind, const osg::Field& field, const std::string& from)
    {
        std::string text;
        switch (kind) {
        case Kind::Value:
            text = valueText(field);
            break;
        case Kind::Handles:
            for (const osg::FieldContainerPtr& container : osg::handlesIn(field))
                text += nameOf(container, from) + ' ';
            break;
        case Kind::Id:
            text = nameOf(osg::FieldContainerFactory::the()->getContainer(
                              static_cast<const osg::SFUInt32&>(field).getValue()),
                          from) +
                   ' ';
            break;
        case Kind::Attachments:
            for (const auto& entry : static_cast<const osg::SFAttachmentMap&>(field).getValue())
                text += nameOf(entry.second, from) + ' ';
            break;
        case Kind::Texts:
            for (const std::string& entry : static_cast<const osg::MFString&>(field))
                text += '"' + entry + "\" ";
            break;
        }
        return text;
    }

    std::map<osg::UInt32, std::string> m_names;
    std::vector<osg::FieldContainerPtr> m_reached;
    std::map<std::string, int> m_counts;
};

} // namespace

std::vector<std::string> SampleScene::digest() const
{
    std::vector<std::string> lines = Walk(*this).fields;
    lines.push_back("counter = " + std::to_string(target.counter));
    lines.push_back("other counter = " + std::to_string(other.counter));
    return lines;
}

std::vector<std::string> SampleScene::references() const
{
    return Walk(*this).references;
}

void SampleScene::nameIn(EditTrace& edits) const
{
    for (const SampleTarget* one : {&target, &other})
        for (const auto& [name, container] : one->named())
            edits.name(container, name);
}
