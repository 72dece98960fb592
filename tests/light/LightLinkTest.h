#pragma once

#include <light/LightTest.h>

#include <moUndoStack/light/moAddNodeToLightLinkSetUndoCommand.h>

#include <OpenSG/OSGGroup.h>

// What the constructor takes: remove, and which list.
inline constexpr bool adding = false, removing = true;
inline constexpr unsigned int lights = 3;

/// The set, its node in the scene, and the helpers of all tests on it.
class LightLinkTest : public LightTest
{
protected:
    using Command = moAddNodeToLightLinkSetUndoCommand;

    void SetUp() override
    {
        LightTest::SetUp();
        set = osg::LightLinkSet::create();
        setNode = place(root, "set", set);
    }

    osg::NodePtr make(const std::string& name) { return makeNode<osg::Group>(name); }

    std::string inLights() const { return namesOf(set->getLights()); }
    std::string inSceneNodes() const { return namesOf(set->getSceneNodes()); }

    osg::LightLinkSetPtr set;
    osg::NodePtr setNode;
};
