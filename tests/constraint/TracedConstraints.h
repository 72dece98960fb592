#pragma once

#include <support/EditTrace.h>
#include <support/Trace.h>
#include <support/UndoTest.h>

#include <moOpenSGConstraint/OSGAimConstraint.h>

#include <OpenSG/OSGNode.h>

/// An aim constraint and a constraint that is none, both empty and traced, and three nodes to constrain. The test holds
/// all of them; at the end nobody else may.
class ConstraintTest : public UndoTest
{
protected:
    void SetUp() override;
    void TearDown() override;

    /// The constraint in one line: `sources lamp*1 door*0.5 up lamp*1 target -`.
    std::string describe(const osg::AbstractConstraintPtr& constraint) const;

    /// Destroys the container; the handle becomes null.
    template<class Ptr>
    void destroy(Ptr& container)
    {
        osg::subRefCP(container);
        EXPECT_EQ(container, osg::NullFC) << "somebody else holds it";
    }

    EditTrace edits;
    osg::AimConstraintPtr aim;
    osg::TransformConstraintPtr plain;
    osg::NodePtr lamp;
    osg::NodePtr door;
    osg::NodePtr car;

private:
    std::string nameOf(const osg::ConstraintObjectPtr& object) const;
};
