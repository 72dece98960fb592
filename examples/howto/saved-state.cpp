#include <moUndoStack/moUndoCommands.h>

#include <OpenSG/OSGBaseFunctions.h>
#include <OpenSG/OSGRefPtr.h>
#include <OpenSG/OSGSimpleAttachments.h>
#include <OpenSG/OSGTransform3D.h>

#include <QAction>
#include <QtWidgets/QApplication>
#include <QtWidgets/QMainWindow>
#include <QtWidgets/QMenuBar>

#include <iostream>

namespace {

//! [window]
class DocumentWindow : public QMainWindow
{
public:
    explicit DocumentWindow(moUndoStack& stack) : m_state(stack)
    {
        QMenu* const file = menuBar()->addMenu("File");
        file->addAction("Save", this, [this, &stack] {
            if (save()) stack.setClean();
        });
        QMenu* const edit = menuBar()->addMenu("Edit");
        edit->addAction(m_state.createUndoAction(edit));
        edit->addAction(m_state.createRedoAction(edit));

        setWindowTitle("scene.gltf[*]"); // Qt shows the mark in place of [*]
        setWindowModified(!stack.isClean());
        connect(&m_state, &moUndoStackState::cleanChanged, this, [this](bool clean) { setWindowModified(!clean); });
    }

private:
    bool save() { return true; }

    moUndoStackState m_state;
};
//! [window]

} // namespace

int main(int argc, char** argv)
{
    osg::osgInit(argc, argv);
    const QApplication application(argc, argv);
    const osg::NodeRefPtr box(osg::makeNodeFor(osg::Transform3D::create()));
    osg::setName(box.get(), "Box");
    moUndoStack::beginUndo();
    moUndoStack& stack = moUndoStack::get();

    const DocumentWindow window(stack);
    const auto menus = window.menuBar()->findChildren<QMenu*>();
    QAction* const save = menus.at(0)->actions().at(0);
    QAction* const undo = menus.at(1)->actions().at(0);
    const auto report = [&](const char* what) {
        std::cout << what << ": " << (window.isWindowModified() ? "modified" : "saved") << ", "
                  << undo->text().toStdString() << '\n';
    };
    const auto drag = [&](float x) {
        stack.addOrExecute(new moTranslationUndoCommand(box, osg::Vec3f(x, 0, 0), false, nullptr, {}, -1));
    };
    //! [use]
    report("at first");
    drag(1);
    drag(2); // merged: one step
    report("dragged");
    save->trigger();
    report("saved");
    drag(3); // within the merge interval, but not merged into the saved step
    report("dragged on");
    undo->trigger();
    report("undone");
    //! [use]

    moUndoStack::clearAll();
    return 0;
}
