#include <support/Samples.h>

#include <support/Images.h>

#include <moUndoStack/light/moNodeFlags_p.h>
#include <moUndoStack/moUndoCommands.h>

#include <moOpenSGUtils/moLights.h>
#include <moOpenSGUtils/moNodeUtils.h>
#include <moUndoUtils/moUndoString.h>

#include <OpenSG/OSGFieldContainerFactory.h>
#include <OpenSG/OSGHandleFields.h>

#include <algorithm>
#include <cxxabi.h>
#include <memory>
#include <ostream>
#include <typeinfo>

namespace {

using Target = SampleTarget;
using Lines = std::vector<std::string>;

const moUndoString text("Sample", QStringLiteral("sample"), QStringLiteral("Samples"));

// What the k-th command of a series writes.

osg::Vec3f vec(int k)
{
    const auto x = static_cast<float>(k);
    return {x + 1.5f, x + 2.25f, x + 3.125f};
}

float number(int k)
{
    return static_cast<float>(k) + 10.5f;
}

osg::Quaternion quaternion(int k)
{
    return osg::Quaternion(osg::Vec3f(0, 0, 1), 0.25f * static_cast<float>(k % 10 + 1));
}

std::string order(int k)
{
    static constexpr const char* orders[] = {"ZYX", "YXZ", "XZY"};
    return orders[k % 3];
}

std::string word(int k)
{
    return "word " + std::to_string(k);
}

/// Off, off, off, off, on, on ...: the first commands of a series have one text, and a long series has both values.
bool offThenOn(int k)
{
    return k / 4 % 2 != 0;
}

/// On, off, on ...
bool onOff(int k)
{
    return k % 2 == 0;
}

// The parts of a target that a command works on.

template<class List>
bool contains(const List& list, const osg::FieldContainerPtr& entry)
{
    return std::find(list.begin(), list.end(), entry) != list.end();
}

/// The first node that is not in the list; null if all are.
template<class IsListed>
osg::NodePtr nodeNotIn(const Target& t, IsListed isListed)
{
    for (const osg::NodePtr& node : {t.light(), t.bare(), t.node()})
        if (node && !isListed(node)) return node;
    return osg::NullFC;
}

std::vector<osg::AttachmentContainerPtr> newSource(const Target& t)
{
    if (!t.aim()) return {};
    return {nodeNotIn(t, [&](const auto& node) { return t.aim()->findSourceConstraintObject(node) != osg::NullFC; })};
}

std::vector<osg::AttachmentContainerPtr> newUpVectorSource(const Target& t)
{
    if (!t.aim()) return {};
    return {nodeNotIn(t, [&](const auto& node) {
        const auto& objects = t.aim()->getUpVectorSources();
        return std::any_of(objects.begin(), objects.end(),
                           [&](const auto& object) { return object->getObject() == node; });
    })};
}

/// The last source, since undo puts it back at the end. Empty if there is none, or if its scene object is also an
/// up-vector source that is not the last one.
std::vector<osg::AttachmentContainerPtr> lastSource(const Target& t)
{
    if (!t.aim() || t.aim()->getSources().empty()) return {};
    const auto object = t.aim()->getSources().back()->getObject();
    const auto& up = t.aim()->getUpVectorSources();
    for (osg::UInt32 i = 0; i + 1 < up.size(); ++i)
        if (up[i]->getObject() == object) return {};
    return {object};
}

std::vector<unsigned int> oneOf(const osg::FieldContainerPtr& owner, const char* field, int k)
{
    if (!owner) return {};
    const auto handles = osg::handlesIn(*owner->getField(field));
    if (handles.empty()) return {};
    return {osg::getContainerId(handles[static_cast<std::size_t>(k) % handles.size()])};
}

/// An effect whose settings all differ from those of the target's effect, with the first element of that.
osg::LensFlareEffectPtr newEffect(const Target& t, int k)
{
    if (!t.effect()) return osg::NullFC;
    const osg::LensFlareEffectPtr effect = osg::LensFlareEffect::create();
    effect->setIntensity(number(k));
    effect->setSize(number(k + 1));
    effect->setLensFlareType(k + 1);
    const auto& elements = t.effect()->getElements();
    if (!elements.empty()) effect->addElement(elements.front());
    return effect;
}

osg::TransformVariantPtr newVariant(int k)
{
    const osg::TransformVariantPtr variant = osg::TransformVariant::create();
    variant->setName(word(k));
    variant->setTransform(osg::Transform3D::create());
    return variant;
}

int variantCount(const osg::NodePtr& node)
{
    return static_cast<int>(moNodeUtils::getTransformVariantCount(node));
}

std::uint64_t variantIndex(const osg::NodePtr& node, int k)
{
    const int count = variantCount(node);
    return static_cast<std::uint64_t>(count == 0 ? 0 : k % count);
}

moUndoCommandBase* moveVariant(Target& t, int k)
{
    const auto from = static_cast<int>(variantIndex(t.node(), k));
    const auto to = static_cast<int>(variantIndex(t.node(), k + 2));
    return new moTransformVariantMoveCommand(t.node(), from, to, nullptr, [](auto&&...) {});
}

template<class T>
moFieldUndoCommand<T>* setField(const osg::FieldContainerPtr& container, const char* field, T value, Target& t,
                                QUndoCommand* parent = nullptr)
{
    auto* const command = new moFieldUndoCommand<T>(text, container, field, value, parent);
    command->setMergeResponseDelta(t.mergeInterval);
    return command;
}

moUndoCommandBase* setSet(Target& t, int k)
{
    if (!t.set()) return new moAddNodeToLightLinkSetUndoCommand(osg::NullFC, t.node(), 0, false, nullptr);
    const auto& nodes = t.set()->getSceneNodes();
    const bool remove = k % 3 == 2 && !nodes.empty();
    const osg::NodePtr node =
        remove ? nodes.front() : nodeNotIn(t, [&](const auto& candidate) { return contains(nodes, candidate); });
    return new moAddNodeToLightLinkSetUndoCommand(t.set(), node, 0, remove, nullptr);
}

/// Removes a light, or adds one.
moUndoCommandBase* takeLightOut(Target& t, int k)
{
    if (!t.set()) return new moAddNodeToLightLinkSetUndoCommand(osg::NullFC, t.node(), 3, true, nullptr);
    const auto& lights = t.set()->getLights();
    const bool remove = k % 3 != 2 && !lights.empty();
    const osg::NodePtr node =
        remove ? lights.front() : nodeNotIn(t, [&](const auto& candidate) { return contains(lights, candidate); });
    return new moAddNodeToLightLinkSetUndoCommand(t.set(), node, 3, remove, nullptr);
}

/// Inert if there is a target already: undo does not put that one back.
moUndoCommandBase* setTarget(Target& t, int)
{
    const bool isFree = t.aim() && !t.aim()->getTarget();
    return new moSetConstraintTargetUndoCommand(isFree ? t.aim() : osg::AimConstraintPtr(), t.bare(), nullptr);
}

/// Adds a visibility reference, or removes it if there is one: undo of adding does not put an earlier one back.
moUndoCommandBase* setVisibilityReference(Target& t, int)
{
    const bool remove = t.lightCore() && t.lightCore()->getVisibilityReference() != osg::NullFC;
    return new moAddNodeAsVisibilityReferenceUndoCommand(t.lightCore(), t.bare(), remove, nullptr);
}

/// The same on a light that has one at first.
moUndoCommandBase* takeVisibilityReference(Target& t, int)
{
    const bool remove = t.spotCore() && t.spotCore()->getVisibilityReference() != osg::NullFC;
    return new moAddNodeAsVisibilityReferenceUndoCommand(t.spotCore(), t.node(), remove, nullptr);
}

template<class Command>
moUndoCommandBase* tag(Target& t, const std::string& name, osg::MFString list,
                       osg::UInt32 field = osg::TagAttachment::UserTagsFieldId)
{
    osg::MFUInt64 before;
    if (t.tags()) before = t.tags()->getTagStamps();
    osg::MFUInt64 after = before;
    after.push_back(after.size() + 1);
    return new Command(text, t.node(), osg::BitVector(1) << field, field, name, &list, before, after);
}

moUndoCommandBase* addSystemTag(Target& t, int k)
{
    osg::MFString list;
    if (t.tags()) list = t.tags()->getSystemTags();
    list.push_back(word(k));
    return tag<moAddTagUndoCommand>(t, word(k), list, osg::TagAttachment::SystemTagsFieldId);
}

moUndoCommandBase* addTag(Target& t, int k)
{
    osg::MFString list;
    if (t.tags()) list = t.tags()->getUserTags();
    list.push_back(word(k));
    return tag<moAddTagUndoCommand>(t, word(k), list);
}

moUndoCommandBase* subTag(Target& t, int)
{
    osg::MFString list;
    if (t.tags()) list = t.tags()->getUserTags();
    const std::string name = list.empty() ? std::string() : list.back();
    if (!list.empty()) list.erase(list.end() - 1);
    return tag<moSubTagUndoCommand>(t, name, list);
}

moUndoCommandBase* setCounter(Target& t, int k)
{
    const auto old = std::make_shared<int>(0);
    return new moGenericFunctionUndoCommand(
        text, [&t, old] { t.counter = *old; },
        [&t, old, k] {
            *old = t.counter;
            t.counter = k + 1;
        },
        nullptr);
}

template<class Composite>
moUndoCommandBase* withTwoChildren(Composite* composite, Target& t, int k)
{
    (new moTranslationUndoCommand(t.node(), vec(k), false, composite, {}, -1))->setMergeResponseDelta(t.mergeInterval);
    setField(t.values(), "singleInt32", k + 1, t, composite);
    return composite;
}

moUndoCommandBase* materialMulti(Target& t, int k)
{
    auto* const composite = new moMaterialMultiUndoCommand(text, t.material(), t.settings());
    setField(t.settings(), "red", number(k), t, composite);
    setField(t.settings(), "green", number(k + 1), t, composite);
    return composite;
}

moUndoCommandBase* switchLight(Target& t, int k)
{
    return new moLightsFunctionUndoCommand<bool>(
        text, t.light(), offThenOn(k), [](const osg::NodePtr& light) { return moLights::getOn(light); },
        [](const osg::NodePtr& light, bool on) { moLights::setOn(light, on); }, nullptr);
}

std::string demangled(const char* name)
{
    const std::unique_ptr<char, void (*)(void*)> readable(abi::__cxa_demangle(name, nullptr, nullptr, nullptr),
                                                          std::free);
    return readable.get();
}

/// A row; undo announces the same changes as redo unless undoing() says otherwise.
template<class Command>
Sample row(Merging merging, const char* target, const char* others, const char* messageKeys, Lines edits,
           Sample::Make make)
{
    int (*commandId)() = nullptr;
    if constexpr (!std::is_same_v<Command, moGenericFunctionUndoCommand>) commandId = &Command::commandId;
    return {demangled(typeid(Command).name()),
            "",
            commandId,
            merging,
            target,
            others,
            messageKeys,
            edits,
            edits,
            edits,
            make,
            {}};
}

/// The edit of a light and, where nodes have flags, that of the node that is its visibility reference.
Lines withMark(const char* light, const char* reference)
{
    if (!moNodeFlags::exist) return {light};
    return {light, reference};
}

/// A further row of a class.
Sample in(const char* form, Sample sample)
{
    sample.form = form;
    return sample;
}

/// For a row that announces other changes if the scene has the new values already.
Sample again(Sample sample, Lines edits)
{
    sample.againEdits = std::move(edits);
    return sample;
}

Sample undoing(Sample sample, Lines edits)
{
    sample.undoEdits = std::move(edits);
    return sample;
}

Sample except(Sample sample, Exception exception, const char* reason)
{
    sample.exceptions.emplace(exception, reason);
    return sample;
}

// Columns that are the same in several rows of a family.
constexpr const char* fieldKeys = "container=uint fieldId=uint";
constexpr const char* transformKeys = "node=uint transformCommand=bool";
constexpr const char* lightKeys = "lightCommand=bool";
constexpr Merging never = Merging::Never;
constexpr Merging merges = Merging::InSeries;

#define MAKE [](Target & t, int k) -> moUndoCommandBase*

template<class T>
Sample fieldRow(const char* edit, Sample::Make make)
{
    return row<moFieldUndoCommand<T>>(merges, "values", "", fieldKeys, {edit}, make);
}

template<class Command>
Sample transformRow(const char* edit, Sample::Make make)
{
    return row<Command>(merges, "node", "", transformKeys, {edit}, make);
}

template<class Command>
Sample variantRow(const char* edit, Sample::Make make)
{
    return in("of a variant", row<Command>(merges, "node", "sibling", transformKeys, {edit}, make));
}

template<class Command>
Sample lightRow(const char* edit, Sample::Make make)
{
    return row<Command>(merges, "light", "", lightKeys, {edit}, make);
}

// clang-format off
std::vector<Sample> makeSamples()
{
    return {
    // --- core
    row<moGenericFunctionUndoCommand>(never, "", "", "", {}, setCounter),
    except(undoing(row<moMultiCommand>(merges, "node", "values", transformKeys, {"node core translation 1", "values singleInt32 1"},
        MAKE { return withTwoChildren(new moMultiCommand(text), t, k); }),
        {"values singleInt32 1", "node core translation 1"}),
        Exception::OlderDecidesMerging, "a composite is asked whether others may be merged into it"),
    except(undoing(row<moInvokeMultiCommand>(merges, "node", "values", transformKeys, {"node core translation 1", "values singleInt32 1"},
        MAKE { return withTwoChildren(new moInvokeMultiCommand(text, &t.action, "toggle()"), t, k); }),
        {"values singleInt32 1", "node core translation 1"}),
        Exception::OlderDecidesMerging, "a composite is asked whether others may be merged into it"),

    // --- field
    fieldRow<signed char>   ("values singleInt8 1",   MAKE { return setField(t.values(), "singleInt8",   static_cast<signed char>(k % 100 + 1), t); }),
    fieldRow<unsigned char> ("values singleUInt8 1",  MAKE { return setField(t.values(), "singleUInt8",  static_cast<unsigned char>(k % 100 + 1), t); }),
    fieldRow<short>         ("values singleInt16 1",  MAKE { return setField(t.values(), "singleInt16",  static_cast<short>(k + 1), t); }),
    fieldRow<unsigned short>("values singleUInt16 1", MAKE { return setField(t.values(), "singleUInt16", static_cast<unsigned short>(k + 1), t); }),
    fieldRow<int>           ("values singleInt32 1",  MAKE { return setField(t.values(), "singleInt32",  k + 1, t); }),
    fieldRow<unsigned int>  ("values singleUInt32 1", MAKE { return setField(t.values(), "singleUInt32", static_cast<unsigned int>(k + 1), t); }),
    fieldRow<std::int64_t>  ("values singleInt64 1",  MAKE { return setField(t.values(), "singleInt64",  std::int64_t(k + 1), t); }),
    fieldRow<std::uint64_t> ("values singleUInt64 1", MAKE { return setField(t.values(), "singleUInt64", static_cast<std::uint64_t>(k + 1), t); }),
    fieldRow<float>         ("values singleReal32 1", MAKE { return setField(t.values(), "singleReal32", number(k), t); }),
    fieldRow<double>        ("values singleReal64 1", MAKE { return setField(t.values(), "singleReal64", double(number(k)), t); }),
    row<moBoolFieldUndoCommand>(never, "values", "", fieldKeys, {"values singleBool 1"},
        MAKE { return new moBoolFieldUndoCommand(text, t.values(), "singleBool", onOff(k)); }),
    in("by id", row<moBoolFieldUndoCommand>(never, "values", "", fieldKeys, {"values singleBool 1"},
        MAKE { return new moBoolFieldUndoCommand(text, t.values(), osg::AllSingleFields::SingleBoolFieldId, onOff(k)); })),
    in("of an integer", row<moBoolFieldUndoCommand>(never, "values", "", fieldKeys, {"values secondInt32 1"},
        MAKE { return new moBoolFieldUndoCommand(t.values(), "secondInt32", onOff(k)); })),
    except(undoing(row<moInvokeBoolFieldUndoCommand>(never, "values", "", fieldKeys, {"values singleBool 1"},
        MAKE { return new moInvokeBoolFieldUndoCommand(text, t.values(), "singleBool", onOff(k), &t.action, "setChecked(bool)"); }),
        {}),
        Exception::UndoDoesNothing, "the receiver of its calls takes the field back itself"),
    except(row<moStringFieldUndoCommand>(merges, "values", "", fieldKeys, {"values singleString 1"},
        MAKE { return new moStringFieldUndoCommand(text, t.values(), "singleString", word(k)); }),
        Exception::TargetsAreNotCompared, "what merges is a text that starts where the last one ended"),
    except(in("by id", row<moStringFieldUndoCommand>(merges, "values", "", fieldKeys, {"values singleString 1"},
        MAKE { return new moStringFieldUndoCommand(t.values(), osg::AllSingleFields::SingleStringFieldId, word(k)); })),
        Exception::TargetsAreNotCompared, "what merges is a text that starts where the last one ended"),
    except(row<moStringsFieldUndoCommand>(merges, "lists", "", fieldKeys, {"lists multiString 1"},
        MAKE { osg::MFString list; list.push_back(word(k)); list.push_back("last"); return new moStringsFieldUndoCommand(text, t.lists(), "multiString", list); }),
        Exception::TargetsAreNotCompared, "what merges is a list that starts where the last one ended"),
    row<moImageFieldUndoCommand>(never, "values", "", fieldKeys, {"values singleImagePtr 1"},
        MAKE { return new moImageFieldUndoCommand(t.values(), "singleImagePtr", makeImage({static_cast<osg::UInt8>(k % 250 + 1)})); }),
    in("by id", row<moImageFieldUndoCommand>(never, "values", "", fieldKeys, {"values singleImagePtr 1"},
        MAKE { return new moImageFieldUndoCommand(t.values(), osg::AllSingleFields::SingleImagePtrFieldId, makeImage({static_cast<osg::UInt8>(k % 250 + 1)})); })),

    // --- transform
    transformRow<moTranslationUndoCommand>             ("node core translation 1",              MAKE { return new moTranslationUndoCommand(t.node(), vec(k), false, nullptr, {}, -1); }),
    transformRow<moRotationUndoCommand>                ("node core eulerRotation 1",            MAKE { return new moRotationUndoCommand(t.node(), vec(k), nullptr, {}, -1); }),
    transformRow<moScaleUndoCommand>                   ("node core scale 1",                    MAKE { return new moScaleUndoCommand(t.node(), vec(k), nullptr, {}, -1); }),
    transformRow<moScalePivotUndoCommand>              ("node core scalePivot 1",               MAKE { return new moScalePivotUndoCommand(t.node(), vec(k), false, nullptr, -1); }),
    transformRow<moRotationPivotUndoCommand>           ("node core rotatePivot 1",              MAKE { return new moRotationPivotUndoCommand(t.node(), vec(k), false, nullptr, -1); }),
    transformRow<moScalePivotTranslationUndoCommand>   ("node core scalePivotTranslation 1",    MAKE { return new moScalePivotTranslationUndoCommand(t.node(), vec(k), nullptr, -1); }),
    transformRow<moRotationPivotTranslationUndoCommand>("node core rotatePivotTranslation 1",   MAKE { return new moRotationPivotTranslationUndoCommand(t.node(), vec(k), nullptr, -1); }),
    transformRow<moRotationPivotOrientationUndoCommand>("node core eulerRotationOrientation 1", MAKE { return new moRotationPivotOrientationUndoCommand(t.node(), vec(k), nullptr, -1); }),
    transformRow<moRotationPivotDirectionUndoCommand>  ("node core rotationDirection|rotationDirectionMode 1",       MAKE { return new moRotationPivotDirectionUndoCommand(t.node(), vec(k), 0, false, nullptr, -1); }),
    transformRow<moShearUndoCommand>                   ("node core shear 1",                    MAKE { return new moShearUndoCommand(t.node(), vec(k), nullptr); }),
    transformRow<moEulerRotationOrderUndoCommand>      ("node core eulerRotationOrder 1",       MAKE { return new moEulerRotationOrderUndoCommand(t.node(), order(k), nullptr, {}, -1); }),
    variantRow<moTranslationUndoCommand>             ("sibling core translation 1",              MAKE { return new moTranslationUndoCommand(t.node(), vec(k), false, nullptr, {}, 1); }),
    variantRow<moRotationUndoCommand>                ("sibling core eulerRotation 1",            MAKE { return new moRotationUndoCommand(t.node(), vec(k), nullptr, {}, 1); }),
    variantRow<moScaleUndoCommand>                   ("sibling core scale 1",                    MAKE { return new moScaleUndoCommand(t.node(), vec(k), nullptr, {}, 1); }),
    variantRow<moScalePivotUndoCommand>              ("sibling core scalePivot 1",               MAKE { return new moScalePivotUndoCommand(t.node(), vec(k), false, nullptr, 1); }),
    variantRow<moRotationPivotUndoCommand>           ("sibling core rotatePivot 1",              MAKE { return new moRotationPivotUndoCommand(t.node(), vec(k), false, nullptr, 1); }),
    variantRow<moScalePivotTranslationUndoCommand>   ("sibling core scalePivotTranslation 1",    MAKE { return new moScalePivotTranslationUndoCommand(t.node(), vec(k), nullptr, 1); }),
    variantRow<moRotationPivotTranslationUndoCommand>("sibling core rotatePivotTranslation 1",   MAKE { return new moRotationPivotTranslationUndoCommand(t.node(), vec(k), nullptr, 1); }),
    variantRow<moRotationPivotOrientationUndoCommand>("sibling core eulerRotationOrientation 1", MAKE { return new moRotationPivotOrientationUndoCommand(t.node(), vec(k), nullptr, 1); }),
    variantRow<moRotationPivotDirectionUndoCommand>  ("sibling core rotationDirection|rotationDirectionMode 1",       MAKE { return new moRotationPivotDirectionUndoCommand(t.node(), vec(k), 0, false, nullptr, 1); }),
    variantRow<moEulerRotationOrderUndoCommand>      ("sibling core eulerRotationOrder 1",       MAKE { return new moEulerRotationOrderUndoCommand(t.node(), order(k), nullptr, {}, 1); }),
    row<moRotationAsQuaternionUndoCommand>(merges, "node", "", "transformCommand=bool", {"node core rotation 1"},
        MAKE { return new moRotationAsQuaternionUndoCommand(text, t.node(), quaternion(k), nullptr); }),
    again(row<moAddTransformVariantUndoCommand>(never, "bare", "", "", {"bare attachments 1"},
        MAKE { return new moAddTransformVariantUndoCommand(t.bare(), newVariant(k), static_cast<std::uint64_t>(variantCount(t.bare())), nullptr, [](auto&&...) {}); }),
        {}), // the list is there by then
    row<moRemoveTransformSwitchVariantUndoCommand>(never, "node", "variant", "", {},
        MAKE { return new moRemoveTransformSwitchVariantUndoCommand(t.node(), variantIndex(t.node(), k), nullptr, [](auto&&...) {}); }),
    row<moTransformVariantMoveCommand>(never, "node", "variant", "", {}, moveVariant),
    row<moTransformVariantNameUndoCommand>(never, "variant", "node", "", {"variant name 1"},
        MAKE { return new moTransformVariantNameUndoCommand(t.variant(), word(k), nullptr, [](auto&&...) {}); }),
    row<moTransformVariantOptionsUndoCommand>(never, "variant", "node", "", {"variant applyFlags 1"},
        MAKE { return new moTransformVariantOptionsUndoCommand(t.variant(), static_cast<std::uint64_t>(k + 1), nullptr, [] {}); }),
    row<moApplyTransformationVariantUndoCommand>(never, "node", "variant", "",
        {"node core supposedState 1",
         "node core translation|eulerRotation|eulerRotationOrder|eulerRotationOrientation|rotationDirection|rotationDirectionMode|"
         "rotatePivot|rotatePivotTranslation|scale|scalePivot|scalePivotTranslation|rotationMode 1"},
        MAKE { return new moApplyTransformationVariantUndoCommand(t.node(), static_cast<int>(variantIndex(t.node(), k)), false, nullptr, {}); }),
    in("from the second on", row<moApplyTransformationVariantUndoCommand>(never, "node", "sibling", "",
        {"node core supposedState 1",
         "node core translation|eulerRotation|eulerRotationOrder|eulerRotationOrientation|rotationDirection|rotationDirectionMode|"
         "rotatePivot|rotatePivotTranslation|scale|scalePivot|scalePivotTranslation|rotationMode 1"},
        MAKE { return new moApplyTransformationVariantUndoCommand(t.node(), static_cast<int>(variantIndex(t.node(), k + 1)), false, nullptr, {}); })),

    // --- light
    lightRow<moLightDiffuseUndoCommand>        ("light core diffuse 1",                   MAKE { return new moLightDiffuseUndoCommand(t.light(), vec(k), nullptr); }),
    lightRow<moLightGlossyUndoCommand>         ("light core glossy 1",                    MAKE { return new moLightGlossyUndoCommand(t.light(), vec(k), nullptr); }),
    lightRow<moLightIntensityUndoCommand>      ("light core intensity 1",                 MAKE { return new moLightIntensityUndoCommand(t.light(), number(k), nullptr); }),
    lightRow<moLightPenumbraAngleUndoCommand>  ("light core penumbraAngle 1",             MAKE { return new moLightPenumbraAngleUndoCommand(t.light(), number(k), nullptr); }),
    lightRow<moLightConeAngleUndoCommand>      ("light core coneAngle 1",                 MAKE { return new moLightConeAngleUndoCommand(t.light(), number(k), nullptr); }),
    row<moLightAttenuationUndoCommand>(merges, "light", "", lightKeys, {"light core intensity|attenuation 1", "light core intensity 1"},
        MAKE { return new moLightAttenuationUndoCommand(t.light(), static_cast<osg::UberLight::LightAttenuation>((k + 1) % 3), nullptr); }),
    lightRow<moLightEnableUndoCommand>         ("light core on 1",                        MAKE { return new moLightEnableUndoCommand(t.light(), offThenOn(k), nullptr); }),
    lightRow<moLightVisibleUndoCommand>        ("light core lightVisualizationVisible 1", MAKE { return new moLightVisibleUndoCommand(t.light(), offThenOn(k), nullptr); }),
    lightRow<moLightsFunctionUndoCommand<bool>>("light core on 1",                        switchLight),
    undoing(row<moSetLightProfileShapeCommand>(never, "light", "", "",
        {"light core scale|lightType|intensity|lightUnit 1", "light core intensity|lightUnit 1", "light core intensity 1"},
        MAKE { return new moSetLightProfileShapeCommand((void(k), t.light()), nullptr); }),
        {"light core scale|lightType|intensity|lightUnit 1", "light core scale 1", "light core intensity 1"}),
    row<moAddLensFlareElementCommand>(never, "light", "effect", "lightId=uint elementIds=uints", {"effect elements 1"},
        MAKE { return new moAddLensFlareElementCommand((void(k), t.light()), {osg::LensFlareElement::create()}, nullptr); }),
    row<moRemoveLensFlareElementCommand>(never, "light", "effect", "lightId=uint elementIds=uints", {"effect elements 1"},
        MAKE { return new moRemoveLensFlareElementCommand(t.light(), oneOf(t.effect(), "elements", k), nullptr); }),
    row<moAddGhostCommand>(never, "line", "", "ghostLineId=uint ghostIds=uints", {"line ghosts 1"},
        MAKE { return new moAddGhostCommand((void(k), t.line()), {osg::LensFlareGhost::create()}, nullptr); }),
    row<moRemoveGhostCommand>(never, "line", "", "ghostLineId=uint ghostIds=uints", {"line ghosts 1"},
        MAKE { return new moRemoveGhostCommand(t.line(), oneOf(t.line(), "ghosts", k), nullptr); }),
    except(row<moSetLensFlareEffectCommand>(never, "effect", "light", lightKeys, {"effect everything 1"},
        MAKE { return new moSetLensFlareEffectCommand(newEffect(t, k), t.effect(), nullptr); }),
        Exception::HoldsTarget, "source, target and backup belong together"),
    again(row<moAddNodeToLightLinkSetUndoCommand>(never, "set", "light bare node", "lightlinkset=uint", {"set sceneNodes 1"}, setSet), {}),
    again(in("taking lights out", row<moAddNodeToLightLinkSetUndoCommand>(never, "set", "light bare node", "lightlinkset=uint", {"set lights 1"}, takeLightOut)), {}),
    row<moAddNodeAsVisibilityReferenceUndoCommand>(never, "light", "bare", "lightCommand=uint", withMark("light core visibilityReference 1", "bare externalFlags 1"), setVisibilityReference),
    in("taken away", row<moAddNodeAsVisibilityReferenceUndoCommand>(never, "spot", "node", "lightCommand=uint", withMark("spot core visibilityReference 1", "node externalFlags 1"), takeVisibilityReference)),

    // --- material
    row<moMaterialUndoCommand>(merges, "settings", "material", "container=uint material=uint componentSettings=uint",
        {"settings red 1", "settings planarProjection 1", "material colorComponentData 1"},
        MAKE { return new moMaterialUndoCommand(text, setField(t.settings(), "red", number(k), t), t.material(), t.settings(), nullptr); }),
    row<moColorComponentUndoCommand>(merges, "component", "glass", "container=uint component=uint parent=uint", {"component red 1"},
        MAKE { return new moColorComponentUndoCommand(text, setField(t.component(), "red", number(k), t), t.glass(), t.component(), nullptr); }),
    except(undoing(row<moMaterialMultiUndoCommand>(merges, "settings", "material", "container=uint fieldId=uint material=uint componentSettings=uint",
        {"settings red 1", "settings green 1", "settings planarProjection 1", "material colorComponentData 1"}, materialMulti),
        {"settings green 1", "settings red 1", "settings planarProjection 1", "material colorComponentData 1"}),
        Exception::OlderDecidesMerging, "a composite is asked whether others may be merged into it"),
    row<moSetEnvironmentUndoCommand>(never, "glass", "sky", "material=uint", {"glass environment 1"},
        MAKE { return new moSetEnvironmentUndoCommand(t.glass(), onOff(k) ? t.sky() : osg::MaterialPtr(), nullptr); }),
    in("taken away", row<moSetEnvironmentUndoCommand>(never, "mirror", "sky", "material=uint", {"mirror environment 1"},
        MAKE { return new moSetEnvironmentUndoCommand(t.mirror(), onOff(k) ? osg::MaterialPtr() : t.sky(), nullptr); })),

    // --- tag
    except(except(row<moAddTagUndoCommand>(never, "node", "tags", "", {"tags userTags 1", "tags userTags 1"}, addTag),
        Exception::AnnouncesOtherFields, "the stamps are edited under the mask of the tags"),
        Exception::HoldsTarget, "tags are given back even to a node that is in the scene no more"),
    except(except(in("of the system", row<moAddTagUndoCommand>(never, "node", "tags", "", {"tags systemTags 1", "tags systemTags 1"}, addSystemTag)),
        Exception::AnnouncesOtherFields, "the stamps are edited under the mask of the tags"),
        Exception::HoldsTarget, "tags are given back even to a node that is in the scene no more"),
    except(except(row<moSubTagUndoCommand>(never, "node", "tags", "", {"tags userTags 1", "tags userTags 1"}, subTag),
        Exception::AnnouncesOtherFields, "the stamps are edited under the mask of the tags"),
        Exception::HoldsTarget, "tags are given back even to a node that is in the scene no more"),
    except(row<moAddEmptyTagUndoCommand>(never, "", "", "", {}, MAKE { return new moAddEmptyTagUndoCommand((void(t), text), word(k), moTagUndoCommand::USER_TAG); }),
        Exception::UndoDoesNothing, "it only shows in the history"),
    except(row<moSubEmptyTagUndoCommand>(never, "", "", "", {}, MAKE { return new moSubEmptyTagUndoCommand((void(t), text), word(k), moTagUndoCommand::USER_TAG); }),
        Exception::UndoDoesNothing, "it only shows in the history"),

    // --- constraint
    row<moAddConstraintSourcesUndoCommand>(never, "aim", "light bare node", "", {"aim sources 1"},
        MAKE { return new moAddConstraintSourcesUndoCommand((void(k), t.aim()), newSource(t), nullptr); }),
    except(row<moAddAimConstraintUpVectorSourcesUndoCommand>(never, "aim", "light bare node", "", {"aim sources 1"},
        MAKE { return new moAddAimConstraintUpVectorSourcesUndoCommand((void(k), t.aim()), newUpVectorSource(t), nullptr); }),
        Exception::AnnouncesOtherFields, "up-vector sources are announced as sources"),
    row<moSetConstraintTargetUndoCommand>(never, "aim", "bare", "", {"aim target 1"}, setTarget),
    row<moDeleteConstraintReferenceUndoCommand>(never, "aim", "light bare node", "", {"aim sources 1", "aim upVectorSources 1"},
        MAKE { return new moDeleteConstraintReferenceUndoCommand((void(k), t.aim()), lastSource(t), nullptr); }),
    in("of every role", row<moDeleteConstraintReferenceUndoCommand>(never, "gaze", "bare", "", {"gaze sources 1", "gaze upVectorSources 1", "gaze target 1"},
        MAKE { return new moDeleteConstraintReferenceUndoCommand((void(k), t.gaze()), {t.bare()}, nullptr); })),
    };
}
// clang-format on

#undef MAKE

} // namespace

moUndoCommandBase* Sample::make(SampleTarget& of, int k) const
{
    moUndoCommandBase* const command = makeCommand(of, k);
    setMergeInterval(*command, of.mergeInterval);
    return command;
}

std::ostream& operator<<(std::ostream& stream, const Sample& sample)
{
    return stream << sample.className << (sample.form.empty() ? "" : " ") << sample.form;
}

const std::vector<Sample>& samples()
{
    static const std::vector<Sample> all = makeSamples();
    return all;
}

namespace {

/// Qt returns children as const only; a test may change its own commands.
template<class Function>
void forEach(QUndoCommand& command, Function function)
{
    function(command);
    for (int i = 0; i < command.childCount(); ++i)
        forEach(const_cast<QUndoCommand&>(*command.child(i)), function);
}

} // namespace

void setMergeInterval(QUndoCommand& command, double seconds)
{
    forEach(command, [seconds](QUndoCommand& each) {
        if (auto* const single = dynamic_cast<moUndoCommand*>(&each)) single->setMergeResponseDelta(seconds);
    });
}

void setMergingEnabled(QUndoCommand& command, bool enabled)
{
    if (auto* const single = dynamic_cast<moUndoCommand*>(&command)) single->setMergeEnabled(enabled);
    if (auto* const composite = dynamic_cast<moMultiCommand*>(&command)) composite->setMergeEnabled(enabled);
}
