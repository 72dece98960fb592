// Shows the texts of two steps in German.

#include <moUndoStack/moUndoCommands.h>

#include <OpenSG/OSGBaseFunctions.h>
#include <OpenSG/OSGRefPtr.h>
#include <OpenSG/OSGSimpleAttachments.h>

#include <moOpenSGUberLight/OSGUberLight.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QLocale>
#include <QtCore/QTranslator>

#include <iostream>

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    osg::osgInit(argc, argv);

    QTranslator translator; // QLocale() is the language of the user
    if (translator.load(QLocale("de"), "moundostack", "_", TRANSLATIONS)) application.installTranslator(&translator);

    const osg::NodeRefPtr lamp(osg::makeNodeFor(osg::UberLight::create()));
    osg::setName(lamp.get(), "Lamp");
    moUndoStack::beginUndo();
    moUndoStack& stack = moUndoStack::get();
    stack.addOrExecute(new moLightVisibleUndoCommand(lamp, false, nullptr));
    std::cout << stack.undoText().toStdString() << '\n';
    stack.addOrExecute(new moTranslationUndoCommand(lamp, osg::Vec3f(0, 2, 0), false, nullptr, {}, -1));
    std::cout << stack.undoText().toStdString() << '\n';
    return 0;
}
