#include <moOpenSGUberLight/OSGLensFlareElement.h>

OSG_BEGIN_NAMESPACE

OSG_CONTAINER_IMPL(LensFlareElement, AttachmentContainer, OSG_LENSFLAREELEMENT_FIELDS)

OSG_END_NAMESPACE
