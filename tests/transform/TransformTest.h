#pragma once

#include <support/Trace.h>
#include <support/UndoTest.h>

#include <moOpenSGUtils/moNodeUtils.h>
#include <moOpenSGUtils/moTransformVariantUtils.h>

#include <OpenSG/OSGNode.h>

#include <string>
#include <vector>

/// A test on nodes with transforms. The nodes that make() returns exist until the end of the test, unless destroy() is
/// called.
class TransformTest : public UndoTest
{
protected:
    void SetUp() override;
    void TearDown() override;

    osg::NodePtr make(const osg::NodeCorePtr& core, const std::string& name);
    void destroy(const osg::NodePtr& node);

    /// Appends a variant whose own core is a copy of the node's transform.
    osg::TransformVariantPtr addVariant(const osg::NodePtr& owner, const std::string& name);

    /// Gives every component of a transform a value. It differs from the values that another number below 3 gives, and
    /// from the default.
    static void fill(const osg::NodePtr& owner, int variantIndex, int number);

    /// The names of the node's variants, joined; "none" without a list.
    static std::string names(const osg::NodePtr& owner);

    /// Every field of the node's transform and of its variants, one transform per line.
    static std::string state(const osg::NodePtr& owner);

    /// The arguments of callbacks and synchronisation functions, in the order of the calls.
    std::vector<std::string> told;

    osg::NodePtr node; ///< named Box, with an osg::Transform3D

private:
    std::vector<osg::NodePtr> m_nodes;
};

std::string print(const osg::Vec3f& v);

/// Container id of a node.
unsigned int idOf(const osg::FieldContainerPtr& container);
bool exists(unsigned int id);
