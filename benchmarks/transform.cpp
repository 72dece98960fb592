#include <Scenarios.h>

#include <moUndoStack/transform/moApplyTransformationVariantUndoCommand.h>
#include <moUndoStack/transform/moTransformValueUndoCommands.h>
#include <moUndoStack/transform/moTransformVariantMoveCommand.h>

#include <moOpenSGUtils/moNodeUtils.h>
#include <moOpenSGUtils/moTransformVariantUtils.h>

#include <OpenSG/OSGFieldContainerFactory.h>
#include <OpenSG/OSGNode.h>
#include <OpenSG/OSGRefPtr.h>
#include <OpenSG/OSGSimpleAttachments.h>

namespace {

using namespace bench;
using T = osg::Transform3D;

/// A named node with a transform and as many variants as a scenario needs.
class Scene
{
public:
    explicit Scene(int variants)
    {
        osg::setName(m_node.get(), "Box");
        if (variants > 0) moNodeUtils::createTransformVariantsAttachment(m_node.get());
        for (int i = 0; i < variants; ++i) {
            moNodeUtils::insertTransformVariant(
                m_node.get(), static_cast<osg::UInt64>(i),
                moTransformVariantUtils::recordTransformVariant(transform(), "Variant"));
            moNodeUtils::setTransformNodeTranslation(m_node.get(), static_cast<float>(i), 1.f, 2.f, false, i);
        }
    }

protected:
    osg::NodePtr node() const { return m_node.get(); }
    osg::Transform3DPtr transform() const { return moNodeUtils::getTransform3D(node(), -1); }
    static osg::Vec3f value(int step) { return osg::Vec3f(static_cast<float>(step), 0.f, 0.f); }

private:
    osg::NodeRefPtr m_node{osg::makeNodeFor(T::create())};
};

osg::NodePtr findNode(unsigned int id)
{
    return osg::NodePtr::dcast(osg::FieldContainerFactory::the()->getContainer(id));
}

const QString& editText()
{
    static const QString s_text = QStringLiteral("Change Transform");
    return s_text;
}

// Translation. The bare side writes the field itself and has no description, callback, synchronisation or message.

class BareTranslation : public QUndoCommand
{
public:
    BareTranslation(const osg::NodePtr& node, const osg::Vec3f& value, bool merges, QUndoCommand* parent)
        : QUndoCommand(editText(), parent), m_nodeId(node.getFieldContainerId()), m_value(value), m_merges(merges)
    {
    }

    void undo() override { redo(); }
    void redo() override
    {
        const osg::NodePtr node = findNode(m_nodeId);
        if (node == osg::NullFC) return;
        const auto transform = osg::Transform3DPtr::dcast(node->getCore());
        if (transform == osg::NullFC) return;
        const osg::Vec3f old = transform->getTranslation();
        osg::beginEditCP(transform, T::TranslationFieldMask);
        transform->setTranslation(m_value);
        osg::endEditCP(transform, T::TranslationFieldMask);
        m_value = old;
    }
    int id() const override { return m_merges ? 1 : -1; }
    bool mergeWith(const QUndoCommand* other) override
    {
        return static_cast<const BareTranslation*>(other)->m_nodeId == m_nodeId;
    }

private:
    unsigned int m_nodeId;
    osg::Vec3f m_value;
    bool m_merges;
};

template<bool merges>
struct OursTranslating : Scene
{
    OursTranslating() : Scene(0) {}
    QUndoCommand* operator()(int step, QUndoCommand*) const
    {
        // No merge interval, so that the clock does not decide what is measured.
        if constexpr (merges)
            return new moTranslationUndoCommand(node(), value(step), false, -1.0, nullptr, {}, -1);
        else
            return new moTranslationUndoCommand(node(), value(step), false, false, nullptr, {}, -1);
    }
};
template<bool merges>
struct BareTranslating : Scene
{
    BareTranslating() : Scene(0) {}
    QUndoCommand* operator()(int step, QUndoCommand* parent) const
    {
        return new BareTranslation(node(), value(step), merges, parent);
    }
};

// Applying a variant. The bare side, too, keeps copies of the fields and writes them in one edit.

class BareApply : public QUndoCommand
{
public:
    BareApply(const osg::NodePtr& node, int variantIndex, QUndoCommand* parent)
        : QUndoCommand(editText(), parent),
          m_nodeId(node.getFieldContainerId()),
          m_applied(moNodeUtils::getTransform3D(node, variantIndex), variantIndex),
          m_previous(moNodeUtils::getTransform3D(node, -1), -1)
    {
    }

    void undo() override { write(m_previous); }
    void redo() override { write(m_applied); }

private:
    struct Values
    {
        Values(const osg::Transform3DPtr& transform, int index)
            : translation(transform->getTranslation()),
              orientation(transform->getEulerRotationOrientation()),
              rotation(transform->getEulerRotation()),
              rotatePivot(transform->getRotatePivot()),
              rotatePivotTranslation(transform->getRotatePivotTranslation()),
              scale(transform->getScale()),
              scalePivot(transform->getScalePivot()),
              scalePivotTranslation(transform->getScalePivotTranslation()),
              direction(transform->getRotationDirection()),
              order(transform->getEulerRotationOrder()),
              mode(transform->getRotationMode()),
              axis(transform->getRotationDirectionMode()),
              state(index)
        {
        }

        osg::Vec3f translation, orientation, rotation, rotatePivot, rotatePivotTranslation, scale, scalePivot,
            scalePivotTranslation, direction;
        std::string order;
        int mode, axis, state;
    };

    void write(const Values& values) const
    {
        const osg::NodePtr node = findNode(m_nodeId);
        if (node == osg::NullFC) return;
        const auto transform = osg::Transform3DPtr::dcast(node->getCore());
        if (transform == osg::NullFC) return;
        constexpr osg::BitVector mask =
            T::TranslationFieldMask | T::EulerRotationOrientationFieldMask | T::EulerRotationFieldMask |
            T::RotatePivotFieldMask | T::RotatePivotTranslationFieldMask | T::ScaleFieldMask | T::ScalePivotFieldMask |
            T::ScalePivotTranslationFieldMask | T::RotationDirectionFieldMask | T::EulerRotationOrderFieldMask |
            T::RotationModeFieldMask | T::RotationDirectionModeFieldMask | T::SupposedStateFieldMask;
        osg::beginEditCP(transform, mask);
        transform->setTranslation(values.translation);
        transform->setEulerRotationOrientation(values.orientation);
        transform->setEulerRotation(values.rotation);
        transform->setRotatePivot(values.rotatePivot);
        transform->setRotatePivotTranslation(values.rotatePivotTranslation);
        transform->setScale(values.scale);
        transform->setScalePivot(values.scalePivot);
        transform->setScalePivotTranslation(values.scalePivotTranslation);
        transform->setRotationDirection(values.direction);
        transform->setEulerRotationOrder(values.order);
        transform->setRotationMode(values.mode);
        transform->setRotationDirectionMode(values.axis);
        transform->setSupposedState(values.state);
        osg::endEditCP(transform, mask);
    }

    unsigned int m_nodeId;
    Values m_applied;
    Values m_previous;
};

struct OursApplying : Scene
{
    OursApplying() : Scene(2) {}
    QUndoCommand* operator()(int step, QUndoCommand*) const
    {
        return new moApplyTransformationVariantUndoCommand(node(), step % 2, false, nullptr, {});
    }
};
struct BareApplying : Scene
{
    BareApplying() : Scene(2) {}
    QUndoCommand* operator()(int step, QUndoCommand* parent) const { return new BareApply(node(), step % 2, parent); }
};

// Moving a variant from the end of a long list to its start.

constexpr int listLength = 1000;

class BareMove : public QUndoCommand
{
public:
    BareMove(const osg::NodePtr& node, int from, int to, QUndoCommand* parent)
        : QUndoCommand(editText(), parent), m_nodeId(node.getFieldContainerId()), m_from(from), m_to(to)
    {
    }

    void undo() override { move(m_to, m_from); }
    void redo() override { move(m_from, m_to); }

private:
    void move(int from, int to) const
    {
        const osg::NodePtr node = findNode(m_nodeId);
        if (node == osg::NullFC) return;
        const osg::TransformVariantPtr variant = moNodeUtils::getTransformVariant(node, static_cast<osg::UInt64>(from));
        osg::addRefCP(variant);
        moNodeUtils::removeTransformVariant(node, static_cast<osg::UInt64>(from));
        moNodeUtils::insertTransformVariant(node, static_cast<osg::UInt64>(to), variant);
        osg::subRefCP(variant);
    }

    unsigned int m_nodeId;
    int m_from;
    int m_to;
};

struct OursMoving : Scene
{
    OursMoving() : Scene(listLength) {}
    QUndoCommand* operator()(int, QUndoCommand*) const
    {
        return new moTransformVariantMoveCommand(node(), listLength - 1, 0, nullptr,
                                                 [](unsigned int, const QList<int>&, const QList<int>&) {});
    }
};
struct BareMoving : Scene
{
    BareMoving() : Scene(listLength) {}
    QUndoCommand* operator()(int, QUndoCommand* parent) const
    {
        return new BareMove(node(), listLength - 1, 0, parent);
    }
};

const Comparisons s_comparisons([] {
    compare<Add, OursTranslating<true>, BareTranslating<true>>("translation/drag", {1000}, Listener::None,
                                                               {1.84, 1.75});
    compare<Add, OursTranslating<false>, BareTranslating<false>>("translation/add", {10000}).bytes = bytes(285, 200);
    compare<Undo, OursTranslating<false>, BareTranslating<false>>("translation/undo", {10000}).allocations = none();
    compare<Redo, OursTranslating<false>, BareTranslating<false>>("translation/redo", {10000}).allocations = none();
    compareCommands<OursApplying, BareApplying>("apply-variant", {2.6, 2.2}, {}, bytes(616, 616));
    compareCommands<OursMoving, BareMoving>("move-variant", {2.67, 2.4}, {}, bytes(584, 300));
});

} // namespace
