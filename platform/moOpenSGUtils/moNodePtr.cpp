#include <moOpenSGUtils/moNodePtr.h>

#include <OpenSG/OSGFieldContainerFactory.h>

moNodePtr::moNodePtr(const osg::NodePtr& node) : m_id(node == osg::NullFC ? 0 : node.getFieldContainerId()) {}

osg::NodePtr moNodePtr::getPtr() const
{
    return osg::NodePtr::dcast(osg::FieldContainerFactory::the()->getContainer(m_id));
}

moNodePtr::operator bool() const
{
    return getPtr() != osg::NullFC;
}
