#include "DockTest.h"

#include <moOpenSGConstraint/OSGAimConstraint.h>

#include <algorithm>

namespace {

class ConstraintDockTest : public DockTest
{
protected:
    const char* roles = "constraint-roles";
};

TEST_F(ConstraintDockTest, EachEditOfARoleIsOneStepThatTheDockFollows)
{
    script("select Plate Table");
    expectOneStepEach({
        {"click add-sources", roles, "moAddConstraintSourcesUndoCommand"},
        {"click add-up-vectors", roles, "moAddAimConstraintUpVectorSourcesUndoCommand"},
        {"click set-target", roles, "moSetConstraintTargetUndoCommand"},
        {"select Plate\nclick set-target", roles,
         "moMultiCommand(moGenericFunctionUndoCommand, moSetConstraintTargetUndoCommand)"},
        {"click remove-from-roles", roles,
         "moMultiCommand(moGenericFunctionUndoCommand, moDeleteConstraintReferenceUndoCommand)"},
        {"click set-target", roles, "moSetConstraintTargetUndoCommand"},
        {"click clear-target", roles, "moMultiCommand(moGenericFunctionUndoCommand, moSetConstraintTargetUndoCommand)"},
    });
    EXPECT_EQ(seen(roles), "Target|\nSources|\nTable|1\nUp-vector sources|\nTable|1\n");
}

TEST_F(ConstraintDockTest, AnObjectThatHasTheRoleIsNotGivenItAgain)
{
    script("select Plate\nclick add-sources\nclick add-up-vectors\nclick set-target");
    EXPECT_EQ(stack.size(), 3);
    script("click add-sources\nclick add-up-vectors\nclick set-target");
    EXPECT_EQ(stack.size(), 3);
    script("select Plate Table\nclick add-sources");
    EXPECT_EQ(stack.size(), 4);
    stack.undo();
    EXPECT_EQ(seen(roles), "Target|\nPlate|1\nSources|\nPlate|1\nUp-vector sources|\nPlate|1\n");
    script("select Floor\nclick remove-from-roles");
    EXPECT_EQ(stack.index(), 3) << "the floor has no role";
}

TEST_F(ConstraintDockTest, UndoOfARemovalKeepsTheOrder)
{
    script("select Plate Table Floor\nclick add-sources\nclick add-up-vectors");
    expectOneStep({"select Plate\nclick remove-from-roles", roles,
                   "moMultiCommand(moGenericFunctionUndoCommand, moDeleteConstraintReferenceUndoCommand)"});
    // The sources are made anew by redo, and are found by their scene objects.
    undoAll();
    redoAll();
    stack.undo();
    EXPECT_EQ(seen(roles),
              "Target|\nSources|\nPlate|1\nTable|1\nFloor|1\nUp-vector sources|\nPlate|1\nTable|1\nFloor|1\n");
}

TEST_F(ConstraintDockTest, AnEntrySelectsItsNode)
{
    script("select Plate\nclick add-sources\nselect");
    auto& tree = widget<QTreeWidget>(roles);
    Q_EMIT tree.itemActivated(tree.topLevelItem(1)->child(0), 0);
    EXPECT_TRUE(session().current() == node("Plate"));
    Q_EMIT tree.itemActivated(tree.topLevelItem(1), 0);
    EXPECT_TRUE(session().current() == node("Plate")) << "a role is no node";
}

TEST_F(ConstraintDockTest, WithoutAConstraintAllIsDisabled)
{
    script("select Plate");
    EXPECT_TRUE(widget("add-sources").isEnabled());
    auto& containers = session().model().containers;
    containers.erase(std::remove_if(containers.begin(), containers.end(),
                                    [](const osg::FieldContainerRefPtr& each) {
                                        return osg::AimConstraintPtr::dcast(each.get()) != osg::NullFC;
                                    }),
                     containers.end());
    session().noteSceneChanged();
    for (const char* name : {"constraint", "constraint-roles", "add-sources", "add-up-vectors", "set-target",
                             "clear-target", "remove-from-roles"})
        EXPECT_FALSE(widget(name).isEnabled()) << name;
}

} // namespace
