#include <moSceneData/moSceneDataManager.h>

moSceneData* moSceneDataManager::getSceneData(unsigned int scene)
{
    static moSceneData s_scene;
    return scene == 0 ? &s_scene : nullptr;
}
