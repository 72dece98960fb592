#include "Probe.h"

namespace osg {

OSG_CONTAINER_IMPL(Probe, AttachmentContainer, OSG_PROBE_FIELDS)
OSG_CONTAINER_IMPL(SpecialProbe, Probe, OSG_SPECIALPROBE_FIELDS)
OSG_ABSTRACT_CONTAINER_IMPL(AbstractProbe, FieldContainer, OSG_ABSTRACTPROBE_FIELDS)
OSG_CONTAINER_GROUP_IMPL(TagProbe, Attachment, OSG_TAGPROBE_FIELDS, "tags")

std::vector<std::string> Probe::s_log;

Probe::~Probe()
{
    s_log.push_back("~Probe");
}

void Probe::onDestroy()
{
    s_log.push_back("onDestroy");
    if (whenDestroyed) whenDestroyed(ProbePtr(this).getFieldContainerId());
    Inherited::onDestroy();
}

void Probe::onCreate(const FieldContainer* source)
{
    m_number = source ? static_cast<const Probe*>(source)->m_number + 1 : 1;
}

void Probe::changed(BitVector whichField, UInt32 origin)
{
    s_log.push_back("changed " + std::to_string(whichField) + " from " + std::to_string(origin));
    if (whenChanged) whenChanged();
    Inherited::changed(whichField, origin);
}

} // namespace osg
