#include <moOpenSGUberMaterial/OSGColorComponentSettings.h>

namespace osg {

OSG_CONTAINER_IMPL(ColorComponentSettings, AttachmentContainer, OSG_COLORCOMPONENTSETTINGS_FIELDS)

} // namespace osg
