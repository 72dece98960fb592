#include "EditorWindow.h"

#include <OpenSG/OSGBaseFunctions.h>
#include <OpenSG/OSGRefPtr.h>
#include <OpenSG/OSGSimpleAttachments.h>

#include <QtWidgets/QApplication>

#include <iostream>

int main(int argc, char** argv)
{
    osg::osgInit(argc, argv);
    const QApplication application(argc, argv);
    const osg::NodeRefPtr box(osg::makeNodeFor(osg::Transform3D::create()));
    osg::setName(box.get(), "Box");
    moUndoStack::beginUndo(); // record from now on

    EditorWindow window(moUndoStack::get(), box);
    window.show();

    // What a user would do; an editor calls QApplication::exec() here.
    const auto report = [&window] {
        std::cout << window.height->value() << ", " << window.undo->text().toStdString()
                  << (window.redo->isEnabled() ? ", redo" : "") << '\n';
    };
    report();
    window.height->setValue(2);
    report();
    window.undo->trigger();
    report();

    moUndoStack::clearAll(); // before what the commands are about is destroyed
    return 0;
}
