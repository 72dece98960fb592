#include <OpenSG/OSGLog.h>

#include <iostream>

namespace osg {

std::ostream& Log::stream(LogLevel level)
{
    static const Char8* const s_names[] = {"LOG", "FATAL", "WARNING", "NOTICE", "INFO", "DEBUG"};
    static std::ostream s_nowhere(nullptr);
    if (level > m_level) return s_nowhere;
    return std::cerr << s_names[level] << ":  ";
}

Log& osgLog()
{
    static Log s_log;
    return s_log;
}

} // namespace osg
