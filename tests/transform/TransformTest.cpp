#include <transform/TransformTest.h>

#include <OpenSG/OSGFieldContainerFactory.h>
#include <OpenSG/OSGSimpleAttachments.h>

#include <algorithm>
#include <sstream>

void TransformTest::SetUp()
{
    UndoTest::SetUp();
    node = make(osg::Transform3D::create(), "Box");
}

void TransformTest::TearDown()
{
    // Clears the stack first: its commands may hold variants of these nodes.
    moUndoStack::clearAll();
    while (!m_nodes.empty())
        destroy(m_nodes.back());
    UndoTest::TearDown();
}

osg::NodePtr TransformTest::make(const osg::NodeCorePtr& core, const std::string& name)
{
    const osg::NodePtr made = osg::Node::create();
    osg::addRefCP(made);
    if (core != osg::NullFC) made->setCore(core);
    if (!name.empty()) osg::setName(made, name);
    m_nodes.push_back(made);
    return made;
}

void TransformTest::destroy(const osg::NodePtr& gone)
{
    const auto position = std::find(m_nodes.begin(), m_nodes.end(), gone);
    ASSERT_NE(position, m_nodes.end());
    osg::NodePtr handle = *position;
    m_nodes.erase(position);
    osg::subRefCP(handle);
}

osg::TransformVariantPtr TransformTest::addVariant(const osg::NodePtr& owner, const std::string& name)
{
    moNodeUtils::createTransformVariantsAttachment(owner);
    const auto variant = moTransformVariantUtils::recordTransformVariant(moNodeUtils::getTransform3D(owner, -1), name);
    moNodeUtils::insertTransformVariant(owner, moNodeUtils::getTransformVariantCount(owner), variant);
    return variant;
}

void TransformTest::fill(const osg::NodePtr& owner, int variantIndex, int number)
{
    static constexpr const char* orders[] = {"ZYX", "YXZ", "XZY"};
    const auto first = static_cast<float>(100 * (number + 1));
    const auto component = [first](float i) { return osg::Vec3f(first + i, first / 2 + i, first / 4 + i); };
    moNodeUtils::setTransformNodeValues(owner, component(0), component(1), component(2), component(3), component(4),
                                        component(5), component(6), component(7), number + 1, orders[number], true,
                                        component(8), 1, variantIndex);
}

std::string TransformTest::names(const osg::NodePtr& owner)
{
    if (moNodeUtils::getTransformVariantsAttachment(owner) == osg::NullFC) return "none";
    std::string result;
    for (osg::UInt64 i = 0; i < moNodeUtils::getTransformVariantCount(owner); ++i)
        result += moNodeUtils::getTransformVariant(owner, i)->getName();
    return result;
}

std::string TransformTest::state(const osg::NodePtr& owner)
{
    std::string result;
    const int count = static_cast<int>(moNodeUtils::getTransformVariantCount(owner));
    for (int index = -1; index < count; ++index) {
        const osg::Transform3DPtr core = moNodeUtils::getTransform3D(owner, index);
        for (osg::UInt32 id = osg::Transform::MatrixFieldId;
             core != osg::NullFC && id < osg::Transform3DBase::NextFieldId; ++id) {
            std::string value;
            core->getField(id)->getValueByStr(value);
            result += value + " | ";
        }
        result += moNodeUtils::getTransformVariantName(owner, index) + "\n";
    }
    return result;
}

std::string print(const osg::Vec3f& v)
{
    std::ostringstream text;
    text << v[0] << ' ' << v[1] << ' ' << v[2];
    return text.str();
}

unsigned int idOf(const osg::FieldContainerPtr& container)
{
    return container == osg::NullFC ? 0 : container.getFieldContainerId();
}

bool exists(unsigned int id)
{
    return osg::FieldContainerFactory::the()->getContainer(id) != osg::NullFC;
}
