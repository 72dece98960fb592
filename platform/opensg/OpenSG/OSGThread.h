#pragma once

#include <OpenSG/OSGChangeList.h>

namespace osg {

/// There is one OpenSG thread, the one that calls osgInit, with the one aspect 0.
class OSG_BASELIB_DLLMAPPING Thread
{
public:
    static ChangeList* getCurrentChangeList() { return s_changeList ? s_changeList : createChangeList(); }
    static UInt32 getAspect() { return 0; }

private:
    friend bool osgInit(Int32, Char8**, UInt16, UInt16, UInt16, bool, bool, bool);

    static ChangeList* createChangeList();

    static ChangeList* s_changeList;
};

} // namespace osg
