// For the bundled OpenSG only, which has a list of its field types: an installed one has more of them than commands can edit.

#include "FieldTest.h"

#include <OpenSG/OSGFieldContainerType.h>
#include <OpenSG/OSGFieldTypes.h>

#include <set>

namespace {

TEST_F(FieldTest, TheTestContainersHaveAFieldOfEveryTypeThereIs)
{
    std::set<osg::UInt32> tested;
    for (const osg::FieldContainerPtr& any : {osg::FieldContainerPtr(container), osg::FieldContainerPtr(lists)}) {
        for (osg::UInt32 id = 1; id <= any->getType().getNumFieldDescs(); ++id)
            tested.insert(any->getField(id)->getType().getId());
    }
#define MO_EXPECT_TESTED(Value, nameSpace, Suffix, name)                                                               \
    EXPECT_TRUE(tested.count(osg::SF##Suffix::getClassType().getId())) << #Suffix;                                     \
    EXPECT_TRUE(tested.count(osg::MF##Suffix::getClassType().getId())) << #Suffix;
    OSG_VALUE_FIELD_TYPES(MO_EXPECT_TESTED)
#undef MO_EXPECT_TESTED
}

} // namespace
