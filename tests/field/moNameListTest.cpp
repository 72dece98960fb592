#include <support/UndoTest.h>

#include <moUndoStack/field/moUndoUtil.h>

#include <moOpenSGExt/OSGTransformVariantsAttachment.h>
#include <moOpenSGUtils/moNodeUtils.h>
#include <moOpenSGUtils/moTransformVariantUtils.h>

#include <OpenSG/OSGSimpleAttachments.h>

#include <limits>

namespace {

using Nodes = std::vector<osg::NodePtr>;
using Handles = std::vector<moNodePtr>;
using Variants = std::vector<std::pair<osg::NodePtr, int>>;

class NameListTest : public UndoTest
{
protected:
    void TearDown() override
    {
        for (osg::NodePtr& node : m_nodes)
            osg::subRefCP(node);
        UndoTest::TearDown();
    }

    osg::NodePtr nameless()
    {
        m_nodes.push_back(osg::Node::create());
        osg::addRefCP(m_nodes.back());
        return m_nodes.back();
    }

    osg::NodePtr named(const std::string& name)
    {
        const osg::NodePtr node = nameless();
        osg::setName(node, name);
        return node;
    }

    /// Gives the node a transform variant of that name, at the index behind the last.
    static osg::NodePtr withVariant(const osg::NodePtr& node, const std::string& name)
    {
        moNodeUtils::createTransformVariantsAttachment(node);
        moNodeUtils::insertTransformVariant(node, moNodeUtils::getTransformVariantCount(node),
                                            moTransformVariantUtils::recordTransformVariant(osg::NullFC, name));
        return node;
    }

    const osg::NodePtr null = osg::NullFC;

private:
    Nodes m_nodes;
};

constexpr auto all = std::numeric_limits<std::uint64_t>::max();

} // namespace

TEST_F(NameListTest, ANodeIsItsNameInApostrophes)
{
    EXPECT_EQ(moUndoUtil::makeNameList(named("Box")), "'Box'");
    EXPECT_EQ(moUndoUtil::makeNameList(moNodePtr(named("Box"))), "'Box'");
    EXPECT_EQ(moUndoUtil::makeNameList(named("")), "''");
    EXPECT_EQ(moUndoUtil::makeNameList(named("it's")), "'it's'");
    EXPECT_EQ(moUndoUtil::makeNameList(named("\xC3\xA4")), QString("'%1'").arg(QChar(0xE4)));
}

TEST_F(NameListTest, ANodeWithoutANameAndNoNodeAreAnEmptyName)
{
    EXPECT_EQ(moUndoUtil::makeNameList(nameless()), "''");
    EXPECT_EQ(moUndoUtil::makeNameList(null), "''");
    EXPECT_EQ(moUndoUtil::makeNameList(moNodePtr()), "''");
}

TEST_F(NameListTest, NamesBeyondTheCapBecomeAnEllipsis)
{
    const Nodes nodes = {named("A"), named("B"), named("C")};
    EXPECT_EQ(moUndoUtil::makeNameList(nodes, 0), "'', ...");
    EXPECT_EQ(moUndoUtil::makeNameList(nodes, 1), "'A', ...");
    EXPECT_EQ(moUndoUtil::makeNameList(nodes, 2), "'A', 'B', ...");
    EXPECT_EQ(moUndoUtil::makeNameList(nodes, 3), "'A', 'B', 'C'");
    EXPECT_EQ(moUndoUtil::makeNameList(nodes, 4), "'A', 'B', 'C'");
    EXPECT_EQ(moUndoUtil::makeNameList(nodes, all), "'A', 'B', 'C'");
    EXPECT_EQ(moUndoUtil::makeNameList(nodes), "'A', 'B', 'C'");
}

TEST_F(NameListTest, AnEmptyListIsAnEmptyName)
{
    EXPECT_EQ(moUndoUtil::makeNameList(Nodes()), "''");
    EXPECT_EQ(moUndoUtil::makeNameList(Nodes(), 0), "''");
    EXPECT_EQ(moUndoUtil::makeNameList(Nodes(), 5), "''");
    EXPECT_EQ(moUndoUtil::makeNameList(Handles()), "''");
    EXPECT_EQ(moUndoUtil::makeNameList(Handles(), 0), "''");
    EXPECT_EQ(moUndoUtil::makeNameList(Variants(), 0), "''");
    EXPECT_EQ(moUndoUtil::makeNameList(Variants(), 5), "''");
}

TEST_F(NameListTest, NullAndNamelessNodesUseUpTheirPlaceAndLeaveNoTrace)
{
    const Nodes nodes = {named("A"), null, nameless(), named("B"), named("C")};
    EXPECT_EQ(moUndoUtil::makeNameList(nodes), "'A', 'B', 'C'");
    EXPECT_EQ(moUndoUtil::makeNameList(nodes, 3), "'A', ...");
    EXPECT_EQ(moUndoUtil::makeNameList(nodes, 4), "'A', 'B', ...");
    EXPECT_EQ(moUndoUtil::makeNameList(Nodes{nameless()}), "''");
    EXPECT_EQ(moUndoUtil::makeNameList(Nodes(6, nameless()), 5), "'', ...");
}

TEST_F(NameListTest, AnEmptyNameIsAnEmptyEntryOfAList)
{
    EXPECT_EQ(moUndoUtil::makeNameList(Nodes{named("A"), named(""), named("B")}), "'A', '', 'B'");
}

TEST_F(NameListTest, ListsAreUtf8AndNothingIsEscaped)
{
    EXPECT_EQ(moUndoUtil::makeNameList(Nodes{named("\xC3\xA4"), named("it's"), named("a, b")}),
              QString("'%1', 'it's', 'a, b'").arg(QChar(0xE4)));
}

TEST_F(NameListTest, HandlesAreListedAsTheirNodes)
{
    const Handles handles = {named("A"), moNodePtr(), named("B"), nameless(), named("C")};
    EXPECT_EQ(moUndoUtil::makeNameList(handles), "'A', 'B', 'C'");
    EXPECT_EQ(moUndoUtil::makeNameList(handles, 2), "'A', ...");
    EXPECT_EQ(moUndoUtil::makeNameList(handles, 3), "'A', 'B', ...");
    EXPECT_EQ(moUndoUtil::makeNameList(handles, 5), "'A', 'B', 'C'");
}

TEST_F(NameListTest, ANodeWithAVariantAtTheIndexIsListedWithItsNameTwiceAsIntended)
{
    const osg::NodePtr box = withVariant(withVariant(named("Box"), "open"), "closed");
    EXPECT_EQ(moUndoUtil::makeNameList(Variants{{box, 0}}, all), "'BoxBox'");
    EXPECT_EQ(moUndoUtil::makeNameList(Variants{{box, 1}}, all), "'BoxBox'");
    EXPECT_EQ(moUndoUtil::makeNameList(Variants{{box, 2}}, all), "'Box'");
    EXPECT_EQ(moUndoUtil::makeNameList(Variants{{box, -1}}, all), "'Box'");
    EXPECT_EQ(moUndoUtil::makeNameList(Variants{{withVariant(named("Ball"), ""), 0}}, all), "'Ball'");
}

TEST_F(NameListTest, PairsWithoutTextLeaveNoTraceAndTheCapCountsThem)
{
    const Variants pairs = {{named("A"), 0}, {null, 0},
                            {nameless(), 0}, {withVariant(nameless(), "open"), 0},
                            {named(""), 0},  {withVariant(named("B"), "open"), 0}};
    EXPECT_EQ(moUndoUtil::makeNameList(pairs, all), "'A', 'BB'");
    EXPECT_EQ(moUndoUtil::makeNameList(pairs, 6), "'A', 'BB'");
    EXPECT_EQ(moUndoUtil::makeNameList(pairs, 5), "'A', ...");
    EXPECT_EQ(moUndoUtil::makeNameList(pairs, 0), "'', ...");
}
