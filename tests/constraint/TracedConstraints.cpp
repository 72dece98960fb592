#include "TracedConstraints.h"

#include <sstream>

namespace osg {

MO_TRACED_CONTAINER(TransformConstraint, "TransformConstraint")
MO_TRACED_CONTAINER(AimConstraint, "AimConstraint")

} // namespace osg

void ConstraintTest::SetUp()
{
    UndoTest::SetUp();
    aim = edits.name(osg::TracedAimConstraint::create(), "aim");
    plain = edits.name(osg::TracedTransformConstraint::create(), "plain");
    lamp = osg::Node::create();
    door = osg::Node::create();
    car = osg::Node::create();
    for (const osg::FieldContainerPtr& container :
         {osg::FieldContainerPtr(aim), osg::FieldContainerPtr(plain), osg::FieldContainerPtr(lamp),
          osg::FieldContainerPtr(door), osg::FieldContainerPtr(car)})
        osg::addRefCP(container);
}

void ConstraintTest::TearDown()
{
    edits.onChange({});
    stack.clear();
    for (const osg::NodePtr& node : {lamp, door, car})
        EXPECT_LE(node.getRefCount(), 1);
    destroy(aim);
    destroy(plain);
    destroy(lamp);
    destroy(door);
    destroy(car);
    UndoTest::TearDown();
}

std::string ConstraintTest::describe(const osg::AbstractConstraintPtr& constraint) const
{
    std::ostringstream line;
    line << "sources";
    for (const auto& object : constraint->getSources())
        line << ' ' << nameOf(object);
    if (const auto aimed = osg::AimConstraintPtr::dcast(constraint)) {
        line << " up";
        for (const auto& object : aimed->getUpVectorSources())
            line << ' ' << nameOf(object);
    }
    line << " target " << nameOf(constraint->getTarget());
    return line.str();
}

std::string ConstraintTest::nameOf(const osg::ConstraintObjectPtr& object) const
{
    if (object == osg::NullFC) return "-";
    const auto scene = object->getObject();
    std::ostringstream name;
    name << (scene == osg::NullFC ? "gone"
             : scene == lamp      ? "lamp"
             : scene == door      ? "door"
             : scene == car       ? "car"
                                  : "other");
    name << '*' << object->getWeight();
    return name.str();
}
