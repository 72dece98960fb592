#include "HiddenLibrary.h"
#include "Probe.h"

namespace {

using namespace osg;

class AcrossLibraries : public OpenSG
{
};

TEST_F(AcrossLibraries, FieldsAndContainersAreTheSameTypesEvenIfOneHidesItsSymbols)
{
    SFReal32 real;
    SFNodePtr handle;
    const NodePtr node = makeNodeFor(Transform::create());
    EXPECT_TRUE(HiddenLibrary::writes(real, 2.5f));
    EXPECT_EQ(real.getValue(), 2.5f);
    EXPECT_FALSE(HiddenLibrary::writes(handle, 2.5f));
    EXPECT_TRUE(HiddenLibrary::writes(handle, node));
    EXPECT_EQ(handle.getValue(), node);
    EXPECT_TRUE(HiddenLibrary::isTransform(node->getCore()));
    EXPECT_FALSE(HiddenLibrary::isTransform(node));
    EXPECT_EQ(HiddenLibrary::idOfNodeField(), SFNodePtr::getClassType().getId());
    HiddenLibrary::copy(real, 3.5f);
    EXPECT_EQ(real.getValue(), 3.5f);
    subRefCP(node);
}

} // namespace
