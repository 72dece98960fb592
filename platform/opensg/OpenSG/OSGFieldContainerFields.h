#pragma once

#include <OpenSG/OSGFieldContainerPtr.h>
#include <OpenSG/OSGFieldTypes.h>

#include <map>

namespace osg {

/// The attachments of a container; the key is group id << 16 | binding.
typedef std::map<UInt32, AttachmentPtr> AttachmentMap;

OSG_HANDLE_FIELDS(FieldContainerPtr)
OSG_HANDLE_FIELDS(AttachmentPtr)
OSG_HANDLE_FIELDS(AttachmentContainerPtr)
OSG_HANDLE_FIELDS(NodePtr)
OSG_HANDLE_FIELDS(NodeCorePtr)
OSG_FIELD_TYPE(AttachmentMap, 0, AttachmentMap, "AttachmentMap")

} // namespace osg
