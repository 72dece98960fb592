#include <OpenSG/OSGBaseFunctions.h>
#include <OpenSG/OSGFieldContainerFactory.h>
#include <OpenSG/OSGLog.h>

#include <cstdlib>

namespace osg {

SystemState GlobalSystemState = Startup;

bool osgInit(Int32, Char8**, UInt16 major, UInt16 minor, UInt16, bool, bool, bool)
{
    if (major != OSG_MAJOR_VERSION) {
        SFATAL << "built against version " << major << ", running with " << OSG_MAJOR_VERSION << std::endl;
        return false;
    }
    if (minor != OSG_MINOR_VERSION)
        SWARNING << "built against minor version " << minor << ", running with " << OSG_MINOR_VERSION << std::endl;
    if (GlobalSystemState == Running) return true;

    ChangeList* const changes = Thread::getCurrentChangeList();
    changes->setReadOnly(!ChangeList::s_readWriteDefault);
    const bool complete = FieldContainerFactory::the()->initialize();
    changes->clearAll();

    if (GlobalSystemState == Startup) std::atexit([] { osgExit(); });
    GlobalSystemState = Running;
    return complete;
}

bool osgExit()
{
    if (GlobalSystemState == Running) {
        FieldContainerFactory::the()->terminate();
        GlobalSystemState = Shutdown;
    }
    return true;
}

} // namespace osg
