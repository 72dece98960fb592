#include "Probe.h"

#include <OpenSG/OSGChangeList.h>

namespace {

using namespace osg;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

class EditTest : public OpenSG
{
protected:
    void SetUp() override
    {
        OpenSG::SetUp();
        probe = Probe::create();
    }
    void TearDown() override
    {
        subRefCP(probe);
        OpenSG::TearDown();
    }

    static std::string all() { return std::to_string(FieldBits::AllFields); }
    std::vector<ChangeList::ChangeEntry> changed() const { return {changes->beginChanged(), changes->endChanged()}; }

    ProbePtr probe;
};

TEST_F(EditTest, DoesNothingAtItsBegin)
{
    changes->setReadOnly(false);
    beginEditCP(probe, Probe::LabelFieldMask, ChangedOrigin::Sync);
    EXPECT_THAT(takeLog(), IsEmpty());
    EXPECT_TRUE(changes->empty());
}

TEST_F(EditTest, EntersTheChangeListAndThenTellsTheContainerAtItsEnd)
{
    changes->setReadOnly(false);
    std::size_t entriesWhenTold = 0;
    probe->whenChanged = [&] { entriesWhenTold = changes->sizeChanged(); };
    endEditCP(probe, Probe::LabelFieldMask, 77);
    EXPECT_THAT(takeLog(), ElementsAre("changed " + std::to_string(Probe::LabelFieldMask) + " from 77"));
    EXPECT_THAT(changed(), ElementsAre(Pair(getContainerId(probe), Probe::LabelFieldMask)));
    EXPECT_EQ(entriesWhenTold, 1u);
}

TEST_F(EditTest, IsOfAllFieldsAndExternalUnlessToldOtherwise)
{
    beginEditCP(probe);
    endEditCP(probe);
    EXPECT_THAT(takeLog(), ElementsAre("changed " + all() + " from 1"));
}

TEST_F(EditTest, IsReportedOncePerEndWhateverTheNesting)
{
    changes->setReadOnly(false);
    beginEditCP(probe, Probe::LabelFieldMask);
    beginEditCP(probe, Probe::LabelFieldMask);
    endEditCP(probe, Probe::LabelFieldMask);
    endEditCP(probe, Probe::LabelFieldMask);
    EXPECT_EQ(takeLog().size(), 2u);
    EXPECT_EQ(changes->sizeChanged(), 2u);
}

TEST_F(EditTest, OfNoFieldIsReportedWithAnEmptyMask)
{
    changes->setReadOnly(false);
    endEditCP(probe, FieldBits::NoField);
    EXPECT_THAT(takeLog(), ElementsAre("changed 0 from 1"));
    EXPECT_THAT(changed(), ElementsAre(Pair(getContainerId(probe), 0u)));
}

TEST_F(EditTest, CanBeHalved)
{
    changes->setReadOnly(false);
    changedCP(probe, Probe::LabelFieldMask);
    EXPECT_EQ(takeLog().size(), 1u);
    EXPECT_TRUE(changes->empty());
    endEditNotChangedCP(probe, Probe::LabelFieldMask);
    EXPECT_THAT(takeLog(), IsEmpty());
    EXPECT_EQ(changes->sizeChanged(), 1u);
}

TEST_F(EditTest, OfNullIsIgnored)
{
    changes->setReadOnly(false);
    beginEditCP(NullFC);
    endEditCP(NullFC);
    changedCP(NullFC);
    endEditNotChangedCP(NodePtr());
    EXPECT_TRUE(changes->empty());
}

TEST_F(EditTest, IsClosedByTheScopeOfAnEditor)
{
    {
        CPEditor editor(probe, Probe::LabelFieldMask);
        EXPECT_THAT(takeLog(), IsEmpty());
    }
    EXPECT_THAT(takeLog(), ElementsAre("changed " + std::to_string(Probe::LabelFieldMask) + " from 1"));
    {
        CPEdit(probe, Probe::EnabledFieldMask);
    }
    {
        CPEditAll(probe);
    }
    EXPECT_THAT(takeLog(), ElementsAre("changed " + std::to_string(Probe::EnabledFieldMask) + " from 1",
                                       "changed " + all() + " from 1"));
}

TEST_F(EditTest, IsNotNeededForWritingOrForASetter)
{
    changes->setReadOnly(false);
    probe->setLabel("x");
    probe->getDirection()[0] = 9;
    EXPECT_THAT(takeLog(), IsEmpty());
    EXPECT_TRUE(changes->empty());
    EXPECT_EQ(probe->getSFLabel()->getValue(), "x");
}

TEST_F(EditTest, HasTheKnownOrigins)
{
    EXPECT_EQ(ChangedOrigin::External, 1u);
    EXPECT_EQ(ChangedOrigin::Sync, 2u);
    EXPECT_EQ(ChangedOrigin::Child, 4u);
    EXPECT_EQ(ChangedOrigin::Abstract, 8u);
    EXPECT_EQ(ChangedOrigin::AbstrIncRefCount, 0x800u);
    EXPECT_EQ(FieldBits::AllFields, ~UInt64(0));
    EXPECT_EQ(sizeof(BitVector), 8u);
}

TEST_F(EditTest, RecordsNothingByDefault)
{
    const NodePtr node = Node::create();
    addRefCP(node);
    endEditCP(node);
    subRefCP(node);
    EXPECT_TRUE(changes->empty());
}

TEST_F(EditTest, RecordsEverythingOnceTheListMayBeWritten)
{
    changes->setReadOnly(false);
    const GroupPtr group = Group::create();
    const UInt32 id = getContainerId(group);
    addRefCP(group);
    addRefCP(group);
    endEditCP(group, 4);
    endEditCP(group, 4);
    subRefCP(group);
    subRefCP(group);
    EXPECT_THAT(std::vector<UInt32>(changes->beginCreated(), changes->endCreated()), ElementsAre(id));
    EXPECT_THAT(std::vector<UInt32>(changes->beginAddRefd(), changes->endAddRefd()), ElementsAre(id, id));
    EXPECT_THAT(changed(), ElementsAre(Pair(id, 4u), Pair(id, 4u)));
    // The last reference is an entry of the destroyed ones instead.
    EXPECT_THAT(std::vector<UInt32>(changes->beginSubRefd(), changes->endSubRefd()), ElementsAre(id));
    EXPECT_THAT(std::vector<UInt32>(changes->beginDestroyed(), changes->endDestroyed()), ElementsAre(id));
    EXPECT_EQ(changes->sizeCreated() + changes->sizeAddRefd() + changes->sizeSubRefd() + changes->sizeDestroyed(), 5u);
}

TEST_F(EditTest, ListsCanBeClearedMergedAndExchanged)
{
    ChangeList a;
    ChangeList b;
    a.setReadOnly(false);
    b.setReadOnly(false);
    const UInt32 id = getContainerId(probe);
    a.addChanged(probe, 2);
    b.addChanged(probe, 4);
    b.addCreated(5);
    a.merge(b);
    EXPECT_THAT((std::vector<ChangeList::ChangeEntry>(a.beginChanged(), a.endChanged())),
                ElementsAre(Pair(id, 2u), Pair(id, 4u)));
    EXPECT_EQ(a.sizeCreated(), 1u);
    a.swap(b);
    EXPECT_EQ(a.sizeChanged(), 1u);
    EXPECT_EQ(b.sizeChanged(), 2u);
    b.clearAll();
    EXPECT_TRUE(b.empty());
}

TEST_F(EditTest, HappensInTheOneAspect)
{
    EXPECT_EQ(Thread::getAspect(), 0u);
    EXPECT_EQ(Thread::getCurrentChangeList(), changes);
}

} // namespace
