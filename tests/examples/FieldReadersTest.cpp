// For the bundled OpenSG only: an installed one has many more containers than a scene of the session is made of.

#include <scene/FieldContents.h>

#include <OpenSG/OSGFieldContainerFactory.h>
#include <OpenSG/OSGFieldContainerType.h>

#include <gtest/gtest.h>

namespace {

/// Whatever a container of the scene's libraries has, the digest can read.
TEST(FieldContents, CanBeReadOfEveryFieldOfEveryTypeThatHasContainers)
{
    const osg::FieldContainerFactory& factory = *osg::FieldContainerFactory::the();
    for (osg::UInt32 id = 1; id < 10000; ++id) {
        const osg::FieldContainerPtr container = factory.getContainer(id);
        if (container == osg::NullFC) continue;
        for (osg::UInt32 field = 1; field <= container->getType().getNumFieldDescs(); ++field)
            EXPECT_NO_THROW(readerOf(*container->getField(field))) << container->getType().getCName() << ' ' << field;
    }
}

} // namespace
