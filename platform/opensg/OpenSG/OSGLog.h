#pragma once

#include <OpenSG/OSGBaseTypes.h>

#include <ostream>

namespace osg {

enum LogLevel
{
    LOG_LOG = 0,
    LOG_FATAL = 1,
    LOG_WARNING = 2,
    LOG_NOTICE = 3,
    LOG_INFO = 4,
    LOG_DEBUG = 5
};

/// Where warnings go: stderr, up to a level.
class OSG_BASELIB_DLLMAPPING Log
{
public:
    LogLevel getLogLevel() const { return m_level; }
    void setLogLevel(LogLevel level) { m_level = level; }

    /// A stream that begins a message of that level; one that writes nowhere above the log's level.
    std::ostream& stream(LogLevel level);

private:
    LogLevel m_level = LOG_WARNING;
};

OSG_BASELIB_DLLMAPPING Log& osgLog();

#define SFATAL osg::osgLog().stream(osg::LOG_FATAL)
#define SWARNING osg::osgLog().stream(osg::LOG_WARNING)
#define SNOTICE osg::osgLog().stream(osg::LOG_NOTICE)
#define SINFO osg::osgLog().stream(osg::LOG_INFO)

} // namespace osg
