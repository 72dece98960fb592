#include <moOpenSGUtils/moNodeUtils.h>

#include <moOpenSGUtils/moTransformComponent_p.h>

#include <OpenSG/OSGSimpleAttachments.h>

#include <array>
#include <cmath>
#include <exception>
#include <utility>

namespace component = moTransformComponents;

namespace {
using Base = osg::Transform3DBase;

/// Closes the bracket also when the edit throws.
class Edit
{
public:
    Edit(const osg::FieldContainerPtr& container, osg::BitVector mask) : m_container(container), m_mask(mask)
    {
        osg::beginEditCP(m_container, m_mask, osg::ChangedOrigin::External);
    }
    // What a listener to the change throws goes on to the caller, except while another exception is on its way there.
    ~Edit() noexcept(false)
    {
        try {
            osg::endEditCP(m_container, m_mask, osg::ChangedOrigin::External);
        } catch (...) {
            if (std::uncaught_exceptions() == m_exceptions) throw;
        }
    }
    Edit(const Edit&) = delete;
    Edit& operator=(const Edit&) = delete;

private:
    osg::FieldContainerPtr m_container;
    osg::BitVector m_mask;
    int m_exceptions = std::uncaught_exceptions();
};

osg::Vec3f get(const osg::NodePtr& node, int variantIndex, const moTransformComponent& component)
{
    return component.get(moNodeUtils::getTransform3D(node, variantIndex));
}

void set(const osg::NodePtr& node, int variantIndex, const moTransformComponent& component, const osg::Vec3f& value)
{
    const osg::Transform3DPtr transform = moNodeUtils::getTransform3D(node, variantIndex);
    if (transform == osg::NullFC) return;
    const Edit edit(transform, component.mask);
    component.set(transform, value);
}

using Column = std::array<double, 3>;

/// From a node's parent to the world and back, for points. In double precision from field to result: a point taken to the
/// world and back is rounded there and here, and nowhere between.
class ParentSpace
{
public:
    explicit ParentSpace(const osg::NodePtr& node)
    {
        // From the parent up to the root, as each one's matrix acts on what those below have made.
        for (osg::NodePtr parent = node->getParent(); parent != osg::NullFC; parent = parent->getParent())
            actBefore(parent->getCore());
    }

    osg::Vec3d toWorld(const osg::Vec3d& point) const
    {
        const Column world = image(m_columns, {point[0], point[1], point[2]});
        return osg::Vec3d(world[0] + m_origin[0], world[1] + m_origin[1], world[2] + m_origin[2]);
    }

    /// False when the matrix has no inverse. By Cramer's rule.
    bool fromWorld(osg::Vec3d& point) const
    {
        const Column offset{point[0] - m_origin[0], point[1] - m_origin[1], point[2] - m_origin[2]};
        const double whole = determinant(m_columns);
        if (!std::isfinite(whole) || whole == 0.) return false;
        for (osg::UInt32 axis = 0; axis < 3; ++axis) {
            std::array<Column, 3> columns = m_columns;
            columns[axis] = offset;
            point[axis] = determinant(columns) / whole;
        }
        return true;
    }

private:
    void actBefore(const osg::NodeCorePtr& core)
    {
        if (core == osg::NullFC) return;
        osg::Matrix matrix;
        core->accumulateMatrix(matrix);
        const auto column = [&matrix](osg::UInt32 index) {
            return Column{matrix[index][0], matrix[index][1], matrix[index][2]};
        };
        const std::array<Column, 3> columns{column(0), column(1), column(2)};
        for (Column& each : m_columns)
            each = image(columns, each);
        m_origin = image(columns, m_origin);
        for (std::size_t row = 0; row < 3; ++row)
            m_origin[row] += column(3)[row];
    }

    static Column image(const std::array<Column, 3>& columns, const Column& v)
    {
        Column result{};
        for (std::size_t row = 0; row < 3; ++row)
            result[row] = columns[0][row] * v[0] + columns[1][row] * v[1] + columns[2][row] * v[2];
        return result;
    }

    static double determinant(const std::array<Column, 3>& c)
    {
        return c[0][0] * (c[1][1] * c[2][2] - c[1][2] * c[2][1]) - c[1][0] * (c[0][1] * c[2][2] - c[0][2] * c[2][1]) +
               c[2][0] * (c[0][1] * c[1][2] - c[0][2] * c[1][1]);
    }

    std::array<Column, 3> m_columns{{{1., 0., 0.}, {0., 1., 0.}, {0., 0., 1.}}};
    Column m_origin{};
};

osg::Vec3d inDouble(const osg::Vec3f& v)
{
    return osg::Vec3d(v[0], v[1], v[2]);
}

osg::Vec3f rounded(const osg::Vec3d& v)
{
    return osg::Vec3f(float(v[0]), float(v[1]), float(v[2]));
}

/// A component that is a point: its value as it stands, and the place in the parent's space that it leads to.
struct PointComponent
{
    const moTransformComponent& component;
    osg::Vec3d (*getInParent)(const osg::Transform3D& transform);
    void (*setInParent)(osg::Transform3D& transform, const osg::Vec3d& point);
};

const PointComponent translationPoint{
    component::translation, [](const osg::Transform3D& transform) { return inDouble(transform.getTranslation()); },
    [](osg::Transform3D& transform, const osg::Vec3d& point) { transform.setTranslation(rounded(point)); }};
const PointComponent rotatePivotPoint{
    component::rotatePivot, [](const osg::Transform3D& transform) { return transform.getRotatePivotInParent(); },
    [](osg::Transform3D& transform, const osg::Vec3d& point) { transform.setRotatePivotInParent(point); }};
const PointComponent scalePivotPoint{
    component::scalePivot, [](const osg::Transform3D& transform) { return transform.getScalePivotInParent(); },
    [](osg::Transform3D& transform, const osg::Vec3d& point) { transform.setScalePivotInParent(point); }};

osg::Vec3f get(const osg::NodePtr& node, bool worldSpace, int variantIndex, const PointComponent& point)
{
    const osg::Transform3DPtr transform = moNodeUtils::getTransform3D(node, variantIndex);
    if (!worldSpace || transform == osg::NullFC) return point.component.get(transform);
    return rounded(ParentSpace(node).toWorld(point.getInParent(*transform)));
}

void set(const osg::NodePtr& node, bool worldSpace, int variantIndex, const PointComponent& point,
         const osg::Vec3f& value)
{
    const osg::Transform3DPtr transform = moNodeUtils::getTransform3D(node, variantIndex);
    if (transform == osg::NullFC) return;
    osg::Vec3d place = inDouble(value);
    if (worldSpace && !ParentSpace(node).fromWorld(place)) return;
    const Edit edit(transform, point.component.mask);
    if (worldSpace)
        point.setInParent(*transform, place);
    else
        point.component.set(transform, value);
}

osg::Vec3f normalisedDirection(const osg::Vec3f& direction)
{
    const double length = std::hypot(double(direction[0]), double(direction[1]), double(direction[2]));
    if (!std::isfinite(length) || length == 0.) return direction;
    return osg::Vec3f(float(direction[0] / length), float(direction[1] / length), float(direction[2] / length));
}
} // namespace

namespace moNodeUtils {
const char* getName(const osg::NodePtr& node)
{
    return osg::getName(node);
}

bool hasParent(const osg::NodePtr& node, const osg::NodePtr& ancestor)
{
    if (node == osg::NullFC || ancestor == osg::NullFC) return false;
    for (osg::NodePtr parent = node->getParent(); parent != osg::NullFC; parent = parent->getParent())
        if (parent == ancestor) return true;
    return false;
}

osg::NodePtr findTransform(const osg::NodePtr& node)
{
    return getTransform3D(node, -1) != osg::NullFC ? node : osg::NodePtr();
}

osg::Transform3DPtr getTransform3D(const osg::NodePtr& node, int variantIndex)
{
    if (node == osg::NullFC) return osg::NullFC;
    if (variantIndex == -1) return osg::Transform3DPtr::dcast(node->getCore());
    // Any other negative index becomes one past any end.
    const osg::TransformVariantPtr variant = getTransformVariant(node, osg::UInt64(variantIndex));
    return variant != osg::NullFC ? variant->getTransform() : osg::Transform3DPtr();
}

bool isTransformNodeIdentity(const osg::NodePtr& node)
{
    const osg::Transform3DPtr transform = getTransform3D(node, -1);
    if (transform == osg::NullFC) return true;
    return transform->getMatrix().equals(osg::Matrix(), osg::Eps); // a matrix that is not finite is no identity
}

// clang-format off
osg::Vec3f getTransformNodeTranslation           (const osg::NodePtr& node, bool worldSpace, int variantIndex) { return get(node, worldSpace, variantIndex, translationPoint); }
osg::Vec3f getTransformNodeRotation              (const osg::NodePtr& node, int variantIndex)                  { return get(node, variantIndex, component::rotation); }
osg::Vec3f getTransformNodeScale                 (const osg::NodePtr& node, int variantIndex)                  { return get(node, variantIndex, component::scale); }
osg::Vec3f getTransformNodeScalePivot            (const osg::NodePtr& node, bool worldSpace, int variantIndex) { return get(node, worldSpace, variantIndex, scalePivotPoint); }
osg::Vec3f getTransformNodeRotatePivot           (const osg::NodePtr& node, bool worldSpace, int variantIndex) { return get(node, worldSpace, variantIndex, rotatePivotPoint); }
osg::Vec3f getTransformNodeScalePivotTranslation (const osg::NodePtr& node, int variantIndex)                  { return get(node, variantIndex, component::scalePivotTranslation); }
osg::Vec3f getTransformNodeRotatePivotTranslation(const osg::NodePtr& node, int variantIndex)                  { return get(node, variantIndex, component::rotatePivotTranslation); }
osg::Vec3f getTransformNodeRotationOrientation   (const osg::NodePtr& node, int variantIndex)                  { return get(node, variantIndex, component::rotationOrientation); }
osg::Vec3f getTransformNodeShear                 (const osg::NodePtr& node)                                    { return get(node, -1, component::shear); }

void setTransformNodeTranslation           (const osg::NodePtr& node, float x, float y, float z, bool worldSpace, int variantIndex) { set(node, worldSpace, variantIndex, translationPoint, osg::Vec3f(x, y, z)); }
void setTransformNodeRotation              (const osg::NodePtr& node, float x, float y, float z, int variantIndex)                  { set(node, variantIndex, component::rotation, osg::Vec3f(x, y, z)); }
void setTransformNodeScale                 (const osg::NodePtr& node, float x, float y, float z, int variantIndex)                  { set(node, variantIndex, component::scale, osg::Vec3f(x, y, z)); }
void setTransformNodeScalePivot            (const osg::NodePtr& node, float x, float y, float z, bool worldSpace, int variantIndex) { set(node, worldSpace, variantIndex, scalePivotPoint, osg::Vec3f(x, y, z)); }
void setTransformNodeRotatePivot           (const osg::NodePtr& node, float x, float y, float z, bool worldSpace, int variantIndex) { set(node, worldSpace, variantIndex, rotatePivotPoint, osg::Vec3f(x, y, z)); }
void setTransformNodeScalePivotTranslation (const osg::NodePtr& node, float x, float y, float z, int variantIndex)                  { set(node, variantIndex, component::scalePivotTranslation, osg::Vec3f(x, y, z)); }
void setTransformNodeRotatePivotTranslation(const osg::NodePtr& node, float x, float y, float z, int variantIndex)                  { set(node, variantIndex, component::rotatePivotTranslation, osg::Vec3f(x, y, z)); }
void setTransformNodeRotationOrientation   (const osg::NodePtr& node, float x, float y, float z, int variantIndex)                  { set(node, variantIndex, component::rotationOrientation, osg::Vec3f(x, y, z)); }
void setTransformNodeShear                 (const osg::NodePtr& node, float x, float y, float z)                                    { set(node, -1, component::shear, osg::Vec3f(x, y, z)); }
// clang-format on

osg::Vec3f getTransformNodeRotationDirection(const osg::NodePtr& node, int variantIndex, int mode)
{
    const osg::Transform3DPtr transform = getTransform3D(node, variantIndex);
    if (mode == -1 || transform == osg::NullFC) return component::rotationDirection.get(transform);
    return transform->getOrientationAxis(mode);
}

void setTransformNodeRotationDirection(const osg::NodePtr& node, float x, float y, float z, int mode, bool normalised,
                                       int variantIndex)
{
    const osg::Transform3DPtr transform = getTransform3D(node, variantIndex);
    if (transform == osg::NullFC) return;
    const Edit edit(transform, Base::RotationDirectionFieldMask | Base::RotationDirectionModeFieldMask);
    const osg::Vec3f direction(x, y, z);
    transform->setRotationDirection(normalised ? normalisedDirection(direction) : direction);
    if (x == 0.f && y == 0.f && z == 0.f)
        transform->setRotationDirectionMode(0); // no direction has no axis: as in a new transform
    else if (mode >= 0 && mode <= 2)
        transform->setRotationDirectionMode(mode);
}

std::string getTransformNodeEulerRotationOrder(const osg::NodePtr& node, int variantIndex)
{
    const osg::Transform3DPtr transform = getTransform3D(node, variantIndex);
    return transform != osg::NullFC ? transform->getEulerRotationOrder() : "XYZ";
}

void setTransformNodeEulerRotationOrder(const osg::NodePtr& node, std::string order, int variantIndex)
{
    const osg::Transform3DPtr transform = getTransform3D(node, variantIndex);
    if (transform == osg::NullFC) return;
    const Edit edit(transform, Base::EulerRotationOrderFieldMask);
    transform->getEulerRotationOrder() = std::move(order);
}

void setTransformNodeValues(const osg::NodePtr& node, const osg::Vec3f& translation,
                            const osg::Vec3f& rotationOrientation, const osg::Vec3f& rotation,
                            const osg::Vec3f& rotatePivot, const osg::Vec3f& rotatePivotTranslation,
                            const osg::Vec3f& scale, const osg::Vec3f& scalePivot,
                            const osg::Vec3f& scalePivotTranslation, int rotationMode,
                            const std::string& eulerRotationOrder, bool rotationDirectionValid,
                            const osg::Vec3f& rotationDirection, int rotationDirectionMode, int variantIndex)
{
    const osg::Transform3DPtr transform = getTransform3D(node, variantIndex);
    if (transform == osg::NullFC) return;
    constexpr osg::BitVector mask =
        Base::TranslationFieldMask | Base::EulerRotationOrientationFieldMask | Base::EulerRotationFieldMask |
        Base::RotatePivotFieldMask | Base::RotatePivotTranslationFieldMask | Base::ScaleFieldMask |
        Base::ScalePivotFieldMask | Base::ScalePivotTranslationFieldMask | Base::RotationModeFieldMask |
        Base::EulerRotationOrderFieldMask | Base::RotationDirectionFieldMask | Base::RotationDirectionModeFieldMask;
    const Edit edit(transform, mask);
    transform->setTranslation(translation);
    transform->setEulerRotationOrientation(rotationOrientation);
    transform->setEulerRotation(rotation);
    transform->setRotatePivot(rotatePivot);
    transform->setRotatePivotTranslation(rotatePivotTranslation);
    transform->setScale(scale);
    transform->setScalePivot(scalePivot);
    transform->setScalePivotTranslation(scalePivotTranslation);
    transform->setRotationMode(rotationMode);
    transform->setEulerRotationOrder(eulerRotationOrder);
    transform->setRotationDirection(rotationDirection);
    transform->setRotationDirectionMode(rotationDirectionMode);

    osg::Vec3f direction;
    osg::Int32 mode = 0;
    const bool inForce = transform->getRotationDirectionValues(direction, mode);
    if (inForce && !rotationDirectionValid) transform->setRotationDirection(osg::Vec3f(0.f, 0.f, 0.f));
}

osg::TransformVariantsAttachmentPtr getTransformVariantsAttachment(const osg::NodePtr& node)
{
    if (node == osg::NullFC) return osg::NullFC;
    return osg::TransformVariantsAttachmentPtr::dcast(
        node->findAttachment(osg::TransformVariantsAttachment::getClassType().getGroupId()));
}

void setTransformVariantsAttachment(const osg::NodePtr& node, const osg::TransformVariantsAttachmentPtr& attachment)
{
    if (node == osg::NullFC || attachment == osg::NullFC) return;
    const Edit edit(node, osg::Node::AttachmentsFieldMask);
    node->addAttachment(attachment);
}

osg::TransformVariantsAttachmentPtr createTransformVariantsAttachment(const osg::NodePtr& node)
{
    osg::TransformVariantsAttachmentPtr attachment = getTransformVariantsAttachment(node);
    if (node == osg::NullFC || attachment != osg::NullFC) return attachment;
    attachment = osg::TransformVariantsAttachment::create();
    setTransformVariantsAttachment(node, attachment);
    return attachment;
}

void removeTransformVariantsAttachment(const osg::NodePtr& node)
{
    const osg::TransformVariantsAttachmentPtr attachment = getTransformVariantsAttachment(node);
    if (attachment == osg::NullFC) return;
    const Edit edit(node, osg::Node::AttachmentsFieldMask);
    node->subAttachment(attachment);
}

osg::UInt64 getTransformVariantCount(const osg::NodePtr& node)
{
    const osg::TransformVariantsAttachmentPtr attachment = getTransformVariantsAttachment(node);
    return attachment != osg::NullFC ? attachment->getVariantCount() : 0;
}

osg::TransformVariantPtr getTransformVariant(const osg::NodePtr& node, osg::UInt64 index)
{
    const osg::TransformVariantsAttachmentPtr attachment = getTransformVariantsAttachment(node);
    return attachment != osg::NullFC ? attachment->getVariant(index) : osg::TransformVariantPtr();
}

void insertTransformVariant(const osg::NodePtr& node, osg::UInt64 index, const osg::TransformVariantPtr& variant)
{
    const osg::TransformVariantsAttachmentPtr attachment = getTransformVariantsAttachment(node);
    if (attachment == osg::NullFC || variant == osg::NullFC || index > attachment->getVariantCount()) return;
    const Edit edit(attachment, osg::TransformVariantsAttachmentBase::VariantsFieldMask);
    attachment->insertVariant(index, variant);
}

void removeTransformVariant(const osg::NodePtr& node, osg::UInt64 index)
{
    const osg::TransformVariantsAttachmentPtr attachment = getTransformVariantsAttachment(node);
    if (attachment == osg::NullFC || index >= attachment->getVariantCount()) return;
    const Edit edit(attachment, osg::TransformVariantsAttachmentBase::VariantsFieldMask);
    attachment->removeVariant(index);
}

std::string getTransformVariantName(const osg::NodePtr& node, int variantIndex)
{
    const osg::TransformVariantPtr variant = getTransformVariant(node, osg::UInt64(variantIndex));
    return variant != osg::NullFC ? variant->getName() : std::string();
}
} // namespace moNodeUtils
