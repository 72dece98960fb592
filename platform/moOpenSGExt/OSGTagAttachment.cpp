#include <moOpenSGExt/OSGTagAttachment.h>

namespace osg {

OSG_CONTAINER_IMPL(TagAttachment, Attachment, OSG_TAGATTACHMENT_FIELDS)

} // namespace osg
