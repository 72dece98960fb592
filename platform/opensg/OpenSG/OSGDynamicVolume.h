#pragma once

#include <OpenSG/OSGBaseTypes.h>

namespace osg {

/// Says whether a node's extent is known. Only this mark is kept: nothing here needs the extent itself, but an edit has
/// to invalidate it all the way up.
class OSG_BASELIB_DLLMAPPING DynamicVolume
{
public:
    bool isValid() const { return m_valid; }
    void setValid(bool valid = true) { m_valid = valid; }

    /// A static volume is never invalidated.
    bool isStatic() const { return m_static; }
    void setStatic(bool value = true) { m_static = value; }

    bool operator==(const DynamicVolume& other) const { return m_valid == other.m_valid && m_static == other.m_static; }

private:
    bool m_valid = true;
    bool m_static = false;
};

} // namespace osg
