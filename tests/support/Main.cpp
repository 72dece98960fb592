#include <OpenSG/OSGBaseFunctions.h>

#include <QtWidgets/QApplication>

#include <gmock/gmock.h>

#include <cstdlib>

int main(int argc, char** argv)
{
    setenv("QT_QPA_PLATFORM", "offscreen", 0);
    testing::InitGoogleMock(&argc, argv);
    osg::osgInit(argc, argv);
    QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
