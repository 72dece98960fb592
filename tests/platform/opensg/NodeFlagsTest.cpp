#include "Probe.h"

namespace {

using namespace osg;

class NodeFlags : public OpenSG
{
};

TEST_F(NodeFlags, FollowTheCoreAndAreCopied)
{
    const NodePtr node = Node::create();
    EXPECT_EQ(+Node::FlagsFieldId, 7u);
    EXPECT_EQ(Node::ExternalFlagsFieldMask, BitVector(1) << 8);
    EXPECT_EQ(node->getFlags(), 0u);
    EXPECT_EQ(node->getExternalFlags(), 0u);
    node->setFlags(0x80000000u);
    node->setExternalFlags(3);
    EXPECT_EQ(dynamic_cast<SFUInt32*>(node->getField("flags"))->getValue(), 0x80000000u);
    EXPECT_EQ(dynamic_cast<SFUInt32*>(node->getField(Node::ExternalFlagsFieldId))->getValue(), 3u);
    const NodePtr copy = NodePtr::dcast(node->shallowCopy());
    EXPECT_EQ(copy->getFlags(), 0x80000000u);
    EXPECT_EQ(copy->getExternalFlags(), 3u);
    subRefCP(copy);
    subRefCP(node);
}

} // namespace
