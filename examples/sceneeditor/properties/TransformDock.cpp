#include <sceneeditor/properties/TransformDock.h>

#include <sceneeditor/EditorSession.h>
#include <sceneeditor/SceneEdits.h>
#include <sceneeditor/properties/ValueRow.h>

#include <moOpenSGUtils/moNodeUtils.h>

#include <moUndoStack/core/moUndoScopes.h>
#include <moUndoStack/moUndoCommands.h>

#include <QtCore/QSignalBlocker>
#include <QtWidgets/QComboBox>

#include <cmath>

namespace {

using Node = osg::NodePtr;
using Value = osg::Vec3f;
using Command = moUndoCommandBase;

const NumberStyle lengths{-1e6, 1e6, 0.1, 3};
const NumberStyle angles{-1e6, 1e6, 5, 2};
const NumberStyle factors{-1e6, 1e6, 0.05, 3};

const QStringList& orders()
{
    static const QStringList all{"XYZ", "XZY", "YXZ", "YZX", "ZXY", "ZYX"};
    return all;
}

} // namespace

/// A component of three numbers.
struct TransformDock::Row
{
    const char* label;
    const char* name;
    const NumberStyle& style;
    bool isOfVariants;
    Value (*read)(const Node& node, bool world, int variant);
    Command* (*make)(const Node& node, const Value& value, bool world, int variant);
};

TransformDock::TransformDock(EditorSession& session, QWidget* parent)
    : PropertyDock(tr("Transform"), "transform-dock", session, parent)
{
    using namespace moNodeUtils;
    connect(&session, &EditorSession::selectionChanged, this, [this] {
        m_variant = -1;
        form().refresh();
    });

    addFrame();
    // clang-format off
    const Row move[] = {
        {QT_TR_NOOP("Translation"), "translation", lengths, true,
         [](const Node& n, bool world, int variant) { return getTransformNodeTranslation(n, world, variant); },
         [](const Node& n, const Value& v, bool world, int variant) -> Command* {
             return new moTranslationUndoCommand(n, v, world, nullptr, {}, variant); }},
        {QT_TR_NOOP("Rotation"), "rotation", angles, true,
         [](const Node& n, bool, int variant) { return getTransformNodeRotation(n, variant); },
         [](const Node& n, const Value& v, bool, int variant) -> Command* {
             return new moRotationUndoCommand(n, v, nullptr, {}, variant); }},
        {QT_TR_NOOP("Scale"), "scale", factors, true,
         [](const Node& n, bool, int variant) { return getTransformNodeScale(n, variant); },
         [](const Node& n, const Value& v, bool, int variant) -> Command* {
             return new moScaleUndoCommand(n, v, nullptr, {}, variant); }},
        {QT_TR_NOOP("Shear"), "shear", factors, false,
         [](const Node& n, bool, int) { return getTransformNodeShear(n); },
         [](const Node& n, const Value& v, bool, int) -> Command* { return new moShearUndoCommand(n, v, nullptr); }},
    };
    const Row pivots[] = {
        {QT_TR_NOOP("Rotation"), "rotation-pivot", lengths, true,
         [](const Node& n, bool world, int variant) { return getTransformNodeRotatePivot(n, world, variant); },
         [](const Node& n, const Value& v, bool world, int variant) -> Command* {
             return new moRotationPivotUndoCommand(n, v, world, nullptr, variant); }},
        {QT_TR_NOOP("  moved by"), "rotation-pivot-translation", lengths, true,
         [](const Node& n, bool, int variant) { return getTransformNodeRotatePivotTranslation(n, variant); },
         [](const Node& n, const Value& v, bool, int variant) -> Command* {
             return new moRotationPivotTranslationUndoCommand(n, v, nullptr, variant); }},
        {QT_TR_NOOP("Scale"), "scale-pivot", lengths, true,
         [](const Node& n, bool world, int variant) { return getTransformNodeScalePivot(n, world, variant); },
         [](const Node& n, const Value& v, bool world, int variant) -> Command* {
             return new moScalePivotUndoCommand(n, v, world, nullptr, variant); }},
        {QT_TR_NOOP("  moved by"), "scale-pivot-translation", lengths, true,
         [](const Node& n, bool, int variant) { return getTransformNodeScalePivotTranslation(n, variant); },
         [](const Node& n, const Value& v, bool, int variant) -> Command* {
             return new moScalePivotTranslationUndoCommand(n, v, nullptr, variant); }},
    };
    const Row orientation{QT_TR_NOOP("Angles"), "orientation", angles, true,
         [](const Node& n, bool, int variant) { return getTransformNodeRotationOrientation(n, variant); },
         [](const Node& n, const Value& v, bool, int variant) -> Command* {
             return new moRotationPivotOrientationUndoCommand(n, v, nullptr, variant); }};
    // clang-format on
    for (const Row& row : move)
        addRow(row);
    addRotation();
    form().addHeading(tr("Pivots"));
    for (const Row& row : pivots)
        addRow(row);
    form().addHeading(tr("Axes of the Rotation"));
    addRow(orientation);
    addOrientation();
    form().refresh();
}

/// Which transform is shown, and in which space.
void TransformDock::addFrame()
{
    auto* const variants = new QComboBox;
    variants->setObjectName("transform-of");
    connect(variants, qOverload<int>(&QComboBox::activated), this, [this](int index) {
        m_variant = index - 1;
        form().refresh();
    });
    form().addWidget(tr("Of"), variants, [this, variants] {
        const QSignalBlocker blocked(variants);
        const int count = static_cast<int>(moNodeUtils::getTransformVariantCount(node()));
        if (m_variant >= count) m_variant = -1;
        variants->clear();
        variants->addItem(tr("the node"));
        for (int i = 0; i < count; ++i)
            variants->addItem(QString::fromStdString(moNodeUtils::getTransformVariantName(node(), i)));
        variants->setCurrentIndex(m_variant + 1);
        variants->setEnabled(count > 0);
    });
    form().addFlag(
        tr("In the world"), "world-space", [this] { return m_isWorld; },
        [this](bool on) {
            m_isWorld = on;
            form().refresh();
        });
}

void TransformDock::addRow(const Row& row)
{
    form().addVector<Value>(
        tr(row.label), row.name, row.style,
        [this, row]() -> std::optional<Value> {
            if (transform() == osg::NullFC || (m_variant >= 0 && !row.isOfVariants)) return std::nullopt;
            return row.read(node(), m_isWorld, m_variant);
        },
        [this, row](const Value& value) { session().apply(row.make(node(), value, m_isWorld, m_variant)); });
}

void TransformDock::addRotation()
{
    form().addChoice(
        tr("Order"), "rotation-order", orders(),
        [this]() -> std::optional<int> {
            if (transform() == osg::NullFC) return std::nullopt;
            return orders().indexOf(
                QString::fromStdString(moNodeUtils::getTransformNodeEulerRotationOrder(node(), m_variant)));
        },
        [this](int order) {
            session().apply(
                new moEulerRotationOrderUndoCommand(node(), orders()[order].toStdString(), nullptr, {}, m_variant));
        });
    form().addVector<osg::Quaternion>(
        tr("Quaternion"), "quaternion", {-1, 1, 0.05, 4},
        [this]() -> std::optional<osg::Quaternion> {
            if (transform() == osg::NullFC || m_variant >= 0) return std::nullopt;
            return transform()->getRotation();
        },
        [this](const osg::Quaternion& rotation) { setQuaternion(rotation); });
}

void TransformDock::addOrientation()
{
    form().addVector<Value>(
        tr("Direction"), "direction", factors, [this] { return direction(); },
        [this](const Value& value) { setDirection(value, m_axis); });
    form().addChoice(
        tr("  of the axis"), "direction-axis", {"X", "Y", "Z"},
        [this]() -> std::optional<int> {
            const std::optional<Value> stored = direction();
            if (!stored) return std::nullopt;
            if (*stored != Value()) m_axis = transform()->getRotationDirectionMode();
            return m_axis;
        },
        [this](int axis) {
            // Without a direction there is nothing to change yet.
            m_axis = axis;
            if (direction() && *direction() != Value()) setDirection(*direction(), axis);
        });
    form().addFlag(
        tr("  of length one"), "direction-normalised", [this] { return m_isNormalised; },
        [this](bool on) { m_isNormalised = on; });
}

osg::Transform3DPtr TransformDock::transform() const
{
    return moNodeUtils::getTransform3D(node(), m_variant);
}

std::optional<osg::Vec3f> TransformDock::direction() const
{
    if (transform() == osg::NullFC) return std::nullopt;
    return moNodeUtils::getTransformNodeRotationDirection(node(), m_variant, -1);
}

/// Undo of a quaternion brings back some angles that make it. The first child brings back those that were there.
void TransformDock::setQuaternion(const osg::Quaternion& rotation)
{
    const QString text = tr("Rotate '%1' by a Quaternion").arg(nameOf(node()));
    const Value before = moNodeUtils::getTransformNodeRotation(node(), -1);
    const moCompositionScope composition(session().edits(), text, text, true);
    session().apply(new moRotationUndoCommand(node(), before, nullptr, {}, -1));
    session().apply(new moRotationAsQuaternionUndoCommand(moUndoString(text, text, "Transform Commands"), node(),
                                                          rotation, nullptr));
}

/// Undo of a direction writes the old one along the axis, and with the length, of the new one. Where that makes a
/// difference, a first child writes no direction along the old axis: undo starts from there.
void TransformDock::setDirection(const Value& direction, int axis)
{
    const osg::Vec3f before = transform()->getRotationDirection();
    const int axisBefore = transform()->getRotationDirectionMode();
    const auto make = [this](const Value& value, int along, bool normalised) {
        session().apply(new moRotationPivotDirectionUndoCommand(node(), value, along, normalised, nullptr, m_variant));
    };
    const bool isUnit = std::abs(before.squareLength() - 1.f) < 1e-6f;
    if (before == Value() || (axis == axisBefore && (isUnit || !m_isNormalised))) {
        make(direction, axis, m_isNormalised);
        return;
    }
    const QString text = tr("Direct '%1'").arg(nameOf(node()));
    const moCompositionScope composition(session().edits(), text, text);
    make(Value(), axisBefore, false);
    make(direction, axis, m_isNormalised);
}
