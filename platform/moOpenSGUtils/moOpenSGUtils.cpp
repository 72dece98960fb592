#include <moOpenSGUtils/moOpenSGUtils.h>

#include <moOpenSGUtils/moNodePtr.h>

static moNodePtr s_root;

namespace moOpenSGUtils {
osg::NodePtr getRoot()
{
    return s_root.getPtr();
}

void setRoot(const osg::NodePtr& root)
{
    s_root = root;
}
} // namespace moOpenSGUtils
