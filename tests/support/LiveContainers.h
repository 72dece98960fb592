#pragma once

#include <OpenSG/OSGFieldContainerFactory.h>

#include <algorithm>
#include <cstddef>

/// Number of containers that exist in the process, prototypes included.
inline std::size_t liveContainerCount()
{
    const auto& store = *osg::FieldContainerFactory::the()->getFieldContainerStore();
    return static_cast<std::size_t>(
        std::count_if(store.begin(), store.end(), [](const auto& container) { return container != osg::NullFC; }));
}

inline bool isAlive(unsigned int id)
{
    return osg::FieldContainerFactory::the()->getContainer(id) != osg::NullFC;
}
