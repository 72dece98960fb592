#pragma once

#include <moSceneData/moSceneData.h>

/// Gives access to the loaded scenes. This platform holds one scene, number 0.
class moSceneDataManager
{
public:
    moSceneDataManager() = delete;

    /// The data of a scene; null for every number but 0. Scene 0 is always there, without a top node until one is set.
    static moSceneData* getSceneData(unsigned int scene);
};
