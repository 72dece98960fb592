#pragma once

#include <OpenSG/OSGAttachment.h>

namespace osg {

class StateChunk;
typedef FCPtr<AttachmentPtr, StateChunk> StateChunkPtr;

// clang-format off
//         type  Name    description  default
#define OSG_STATECHUNK_FIELDS(SINGLE, MULTI) \
    SINGLE(Bool, Ignore, "ignore",    false)
// clang-format on

OSG_ABSTRACT_CONTAINER_BASE(StateChunk, Attachment, OSG_STATECHUNK_FIELDS)

/// One part of a material; abstract. An attachment, as it has always been.
class OSG_BASELIB_DLLMAPPING StateChunk : public StateChunkBase
{
    OSG_CONTAINER(StateChunk)
};

OSG_HANDLE_FIELDS(StateChunkPtr)

} // namespace osg
