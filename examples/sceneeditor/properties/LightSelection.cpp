#include <sceneeditor/properties/LightSelection.h>

#include <sceneeditor/EditorSession.h>

#include <moOpenSGUtils/moLights.h>

#include <algorithm>
#include <iterator>

std::vector<osg::NodePtr> selectedLights(const EditorSession& session)
{
    const std::vector<osg::NodePtr> selection = session.selection();
    std::vector<osg::NodePtr> lights;
    std::copy_if(selection.begin(), selection.end(), std::back_inserter(lights), &moLights::isLight);
    return lights;
}

osg::NodePtr currentLight(const EditorSession& session)
{
    const std::vector<osg::NodePtr> lights = selectedLights(session);
    return lights.empty() ? osg::NodePtr(osg::NullFC) : lights.back();
}
