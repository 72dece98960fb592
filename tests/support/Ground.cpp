#include <support/Ground.h>

namespace ground {

#ifdef MO_OPENSG_BUNDLED
const osg::Int32 objectsPerContainer = 1;
const bool listenersToAttachmentsMayThrow = true;
#else
const osg::Int32 objectsPerContainer = 2;
const bool listenersToAttachmentsMayThrow = false;
#endif

std::vector<std::string> destruction(std::vector<std::string> meanwhile)
{
    meanwhile.insert(meanwhile.begin(), "onDestroy");
    meanwhile.insert(meanwhile.end(), static_cast<std::size_t>(objectsPerContainer), "~Probe");
    return meanwhile;
}

} // namespace ground
