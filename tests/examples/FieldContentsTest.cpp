#include <scene/FieldContents.h>

#include <OpenSG/OSGMFSysTypes.h>
#include <OpenSG/OSGNode.h>
#include <OpenSG/OSGSFMathTypes.h>
#include <OpenSG/OSGSFSysTypes.h>
#include <OpenSG/OSGSFVecTypes.h>
#include <OpenSG/OSGStringFields.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

FieldContents contentsOf(const osg::Field& field)
{
    FieldContents contents;
    readerOf(field)(field, contents);
    return contents;
}

template<class Multi, class T>
Multi listOf(std::initializer_list<T> values)
{
    Multi field;
    for (const T& value : values)
        field.push_back(value);
    return field;
}

TEST(FieldContents, OfFloatsAreNumbersAndOfEverythingElseExact)
{
    EXPECT_THAT(contentsOf(osg::SFReal32(1.5f)).numbers, ElementsAre(1.5f));
    EXPECT_THAT(contentsOf(osg::SFReal32(1.5f)).exact, IsEmpty());
    EXPECT_THAT(contentsOf(osg::SFVec3f(osg::Vec3f(1.f, 2.f, 3.f))).numbers, ElementsAre(1.f, 2.f, 3.f));
    EXPECT_EQ(contentsOf(osg::SFMatrix(osg::Matrix())).numbers.size(), 16U);
    EXPECT_THAT(contentsOf(osg::SFReal64(1.5)).numbers, IsEmpty());
    EXPECT_EQ(contentsOf(osg::SFReal64(1.5)).exact.size(), sizeof(double));
    EXPECT_EQ(contentsOf(osg::SFBool(true)).exact, std::string(1, '\1'));
}

TEST(FieldContents, OfAListOfFloatsHaveARunForEachElement)
{
    const FieldContents contents = contentsOf(listOf<osg::MFReal32>({1.f, 1000.f}));
    ASSERT_EQ(contents.runs.size(), 2U);
    EXPECT_EQ(contents.runs[1].begin, 1U);
    EXPECT_EQ(contents.runs[1].count, 1U);
}

TEST(FieldContents, TellListsApartThatHaveTheSameBytes)
{
    EXPECT_NE(contentsOf(listOf<osg::MFString, std::string>({"ab", "c"})).exact,
              contentsOf(listOf<osg::MFString, std::string>({"a", "bc"})).exact);
    EXPECT_NE(contentsOf(listOf<osg::MFBool>({true})).exact, contentsOf(listOf<osg::MFBool>({true, false})).exact);
    EXPECT_NE(contentsOf(listOf<osg::MFUInt8, osg::UInt8>({})).exact,
              contentsOf(listOf<osg::MFUInt8, osg::UInt8>({0})).exact);
    EXPECT_NE(contentsOf(listOf<osg::MFNodePtr, osg::NodePtr>({})).exact,
              contentsOf(listOf<osg::MFNodePtr, osg::NodePtr>({osg::NullFC})).exact);
}

TEST(FieldContents, OfHandlesAreIdsAndZeroForNull)
{
    osg::NodePtr node = osg::Node::create();
    EXPECT_THAT(contentsOf(listOf<osg::MFNodePtr, osg::NodePtr>({node, osg::NullFC})).targets,
                ElementsAre(node.getFieldContainerId(), 0U));
    osg::addRefCP(node);
    osg::subRefCP(node);
}

TEST(FieldContents, CannotBeReadOfATypeThatStandsInNoTable)
{
    EXPECT_THROW(readerOf(osg::SFVec2s()), std::logic_error);
}

} // namespace
