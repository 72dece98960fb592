#pragma once

#include <OpenSG/OSGAttachment.h>
#include <OpenSG/OSGFieldTable.h>

namespace osg {

class TagAttachment;
typedef FCPtr<AttachmentPtr, TagAttachment> TagAttachmentPtr;

// clang-format off
//         type     Name         description
#define OSG_TAGATTACHMENT_FIELDS(SINGLE, MULTI) \
    MULTI (UInt64,  TagStamps,   "tagStamps") \
    MULTI (String,  UserTags,    "userTags") \
    MULTI (String,  SystemTags,  "systemTags")
// clang-format on

OSG_CONTAINER_BASE(TagAttachment, Attachment, OSG_TAGATTACHMENT_FIELDS)

/// The tags of one scene object: those given by the user (field 4) and those given by the application (field 5).
///
/// Field 3 holds one 64-bit stamp per edit of either list, by which an asset server tells which of two versions of the
/// tags is the newer; the editor of the tags gives the new list of stamps. A type derived from this one names the same
/// group, "TagAttachment", so that it is found in its place.
class TagAttachment : public TagAttachmentBase
{
    OSG_CONTAINER(TagAttachment)
};

} // namespace osg
