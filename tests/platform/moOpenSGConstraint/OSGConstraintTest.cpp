#include <support/Ground.h>
#include <support/UndoTest.h>

#include <moOpenSGConstraint/OSGAimConstraint.h>

#include <OpenSG/OSGNode.h>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using Objects = osg::MFConstraintObjectPtr;

// Sources and up-vector sources follow the same rules, so each test of them runs for both.
struct Role
{
    const char* name;
    const Objects& (*list)(const osg::AimConstraint&);
    osg::ConstraintObjectPtr (*find)(const osg::AimConstraint&, const osg::AttachmentContainerPtr&);
    void (osg::AimConstraint::*add)(const osg::AttachmentContainerPtr&, osg::Real32);
    void (osg::AimConstraint::*remove)(const osg::AttachmentContainerPtr&);
    void (osg::AimConstraint::*addObject)(osg::ConstraintObjectPtr);
    void (osg::AimConstraint::*removeObject)(osg::ConstraintObjectPtr);
};

const Role sources = {
    "Sources",
    [](const osg::AimConstraint& aim) -> const Objects& { return aim.getSources(); },
    [](const osg::AimConstraint& aim, const osg::AttachmentContainerPtr& object) {
        return aim.findSourceConstraintObject(object);
    },
    &osg::AimConstraint::addSource,
    &osg::AimConstraint::removeSource,
    &osg::AimConstraint::addSourceObject,
    &osg::AimConstraint::removeSourceObject,
};

const Role upVectorSources = {
    "UpVectorSources",
    [](const osg::AimConstraint& aim) -> const Objects& { return aim.getUpVectorSources(); },
    [](const osg::AimConstraint& aim, const osg::AttachmentContainerPtr& object) {
        return aim.findUpVectorConstraintObject(object);
    },
    &osg::AimConstraint::addUpVectorSource,
    &osg::AimConstraint::removeUpVectorSource,
    &osg::AimConstraint::addUpVectorObject,
    &osg::AimConstraint::removeUpVectorObject,
};

template<class Test>
class ConstraintFixture : public Test
{
protected:
    ConstraintFixture() : m_containersBefore(liveContainerCount()) {}

    void TearDown() override
    {
        osg::subRefCP(aim);
        osg::subRefCP(lamp);
        osg::subRefCP(door);
        EXPECT_EQ(liveContainerCount(), m_containersBefore);
    }

    template<class Type>
    static typename Type::Ptr created()
    {
        const auto container = Type::create();
        osg::addRefCP(container);
        return container;
    }

private:
    std::size_t m_containersBefore;

protected:
    osg::AimConstraintPtr aim = created<osg::AimConstraint>();
    osg::NodePtr lamp = created<osg::Node>();
    osg::NodePtr door = created<osg::Node>();
};

using Constraint = ConstraintFixture<testing::Test>;

class ConstraintList : public ConstraintFixture<testing::TestWithParam<Role>>
{
protected:
    const Objects::StorageType& list() const { return GetParam().list(*aim).getValues(); }
    osg::ConstraintObjectPtr find(const osg::AttachmentContainerPtr& object) const
    {
        return GetParam().find(*aim, object);
    }
    void add(const osg::AttachmentContainerPtr& object, float weight) { ((*aim).*GetParam().add)(object, weight); }
    void remove(const osg::AttachmentContainerPtr& object) { ((*aim).*GetParam().remove)(object); }
    void addObject(const osg::ConstraintObjectPtr& object) { ((*aim).*GetParam().addObject)(object); }
    void removeObject(const osg::ConstraintObjectPtr& object) { ((*aim).*GetParam().removeObject)(object); }
};

INSTANTIATE_TEST_SUITE_P(Role, ConstraintList, testing::Values(sources, upVectorSources),
                         [](const auto& row) { return row.param.name; });

TEST_P(ConstraintList, AddedSceneObjectIsFoundWithItsWeight)
{
    add(lamp, 0.25f);
    add(door, 0.75f);
    ASSERT_NE(find(lamp), osg::NullFC);
    EXPECT_EQ(find(lamp)->getObject(), lamp);
    EXPECT_EQ(find(lamp)->getWeight(), 0.25f);
    EXPECT_EQ(find(door)->getWeight(), 0.75f);
    EXPECT_THAT(list(), ElementsAre(find(lamp), find(door)));
    EXPECT_EQ(find(lamp).getRefCount(), 1);
    EXPECT_EQ(lamp.getRefCount(), 1) << "a constraint does not keep scene objects alive";
}

TEST_P(ConstraintList, SceneObjectThatIsListedAlreadyOnlyGetsTheWeight)
{
    add(lamp, 0.25f);
    const auto object = find(lamp);
    add(lamp, 0.5f);
    EXPECT_THAT(list(), ElementsAre(object));
    EXPECT_EQ(object->getWeight(), 0.5f);
}

TEST_P(ConstraintList, RemovedSceneObjectIsFoundNoMore)
{
    add(lamp, 1);
    add(door, 1);
    remove(lamp);
    remove(lamp);
    EXPECT_EQ(find(lamp), osg::NullFC);
    EXPECT_THAT(list(), ElementsAre(find(door)));
}

TEST_P(ConstraintList, ObjectPutBackIsTheSameObjectAtTheEnd)
{
    add(lamp, 0.25f);
    add(door, 1);
    const auto object = find(lamp);
    osg::addRefCP(object);
    removeObject(object);
    EXPECT_EQ(object.getRefCount(), 1);
    addObject(object);
    addObject(object);
    EXPECT_EQ(object.getRefCount(), 2);
    EXPECT_THAT(list(), ElementsAre(find(door), object));
    osg::subRefCP(object);
}

TEST_P(ConstraintList, ObjectPutBackTakesThePlaceOfTheOneMadeMeanwhile)
{
    add(lamp, 0.25f);
    const auto object = find(lamp);
    osg::addRefCP(object);
    removeObject(object);
    add(lamp, 0.5f);
    add(door, 1);
    ASSERT_NE(find(lamp), object);

    addObject(object);
    EXPECT_THAT(list(), ElementsAre(object, find(door)));
    EXPECT_EQ(object.getRefCount(), 2);
    osg::subRefCP(object);
}

TEST_P(ConstraintList, RemovedObjectTakesTheOneMadeMeanwhileWithIt)
{
    add(lamp, 0.25f);
    const auto object = find(lamp);
    osg::addRefCP(object);
    remove(lamp);
    add(door, 1);
    add(lamp, 0.5f);

    removeObject(object);
    EXPECT_THAT(list(), ElementsAre(find(door)));
    EXPECT_EQ(object.getRefCount(), 1);
    osg::subRefCP(object);
}

TEST_P(ConstraintList, ObjectsWhoseSceneObjectsWereDestroyedAreToldApart)
{
    add(lamp, 0.25f);
    add(door, 0.5f);
    const auto ofLamp = find(lamp);
    const auto ofDoor = find(door);
    osg::subRefCP(lamp);
    osg::subRefCP(door);
    addObject(ofDoor);
    removeObject(ofDoor);
    EXPECT_THAT(list(), ElementsAre(ofLamp));
}

TEST_P(ConstraintList, IgnoresNullAndUnknownObjects)
{
    const auto stranger = osg::ConstraintObject::createFor(door, 1);
    osg::addRefCP(stranger);
    add(lamp, 1);

    add(osg::NullFC, 1);
    remove(osg::NullFC);
    addObject(osg::NullFC);
    removeObject(osg::NullFC);
    removeObject(stranger);
    remove(door);

    EXPECT_THAT(list(), ElementsAre(find(lamp)));
    EXPECT_EQ(find(osg::NullFC), osg::NullFC);
    EXPECT_EQ(stranger.getRefCount(), 1);
    osg::subRefCP(stranger);
}

TEST_P(ConstraintList, ObjectOfASceneObjectThatWasDestroyedStaysListedButIsNotFound)
{
    add(lamp, 1);
    const auto object = find(lamp);
    osg::subRefCP(lamp);
    EXPECT_EQ(object->getObject(), osg::NullFC);
    EXPECT_THAT(list(), ElementsAre(object));
    EXPECT_EQ(find(osg::NullFC), osg::NullFC) << "null must not find the object without a scene object";
}

TEST_P(ConstraintList, CopyHoldsTheSameObjects)
{
    add(lamp, 1);
    const auto copy = osg::AimConstraintPtr::dcast(aim->shallowCopy());
    EXPECT_EQ(GetParam().find(*copy, lamp), find(lamp));
    EXPECT_EQ(find(lamp).getRefCount(), 1 + ground::objectsPerContainer);
    osg::subRefCP(copy);
    EXPECT_EQ(find(lamp).getRefCount(), 1);
}

TEST_P(ConstraintList, GivesItsObjectsBackWhenTheConstraintGoes)
{
    add(lamp, 1);
    const auto object = find(lamp);
    osg::addRefCP(object);
    osg::subRefCP(aim);
    EXPECT_EQ(object.getRefCount(), 1);
    osg::subRefCP(object);
}

TEST_F(Constraint, IsAbstractAtTheTop)
{
    EXPECT_TRUE(osg::AbstractConstraint::getClassType().isAbstract());
    EXPECT_TRUE(osg::AimConstraint::getClassType().isDerivedFrom(osg::AbstractConstraint::getClassType()));
    EXPECT_TRUE(osg::AimConstraint::getClassType().isDerivedFrom(osg::TransformConstraint::getClassType()));
    EXPECT_TRUE(osg::AbstractConstraint::getClassType().isDerivedFrom(osg::NodeCore::getClassType()));
}

TEST_F(Constraint, CreatedTargetStandsForTheSceneObject)
{
    EXPECT_FALSE(aim->hasTarget(lamp));
    EXPECT_FALSE(aim->hasTarget(osg::NullFC));
    aim->createTarget(lamp);
    EXPECT_TRUE(aim->hasTarget(lamp));
    EXPECT_FALSE(aim->hasTarget(door));
    EXPECT_EQ(aim->getTarget()->getObject(), lamp);
    EXPECT_EQ(aim->getTarget().getRefCount(), 1);
    aim->createTarget(osg::NullFC);
    EXPECT_TRUE(aim->hasTarget(lamp));
}

TEST_F(Constraint, HoldsItsTargetUntilItIsReplaced)
{
    const auto target = osg::ConstraintObject::createFor(lamp, 1);
    osg::addRefCP(target);
    aim->setTarget(target);
    aim->setTarget(target);
    EXPECT_EQ(target.getRefCount(), 2);
    aim->createTarget(door);
    EXPECT_EQ(target.getRefCount(), 1);
    aim->setTarget(target);
    osg::subRefCP(aim);
    EXPECT_EQ(target.getRefCount(), 1);
    osg::subRefCP(target);
}

TEST_F(Constraint, TargetWhoseSceneObjectWasDestroyedIsNobodysTarget)
{
    aim->createTarget(lamp);
    osg::subRefCP(lamp);
    EXPECT_NE(aim->getTarget(), osg::NullFC);
    EXPECT_FALSE(aim->hasTarget(osg::NullFC));
    EXPECT_FALSE(aim->hasTarget(door));
}

} // namespace
