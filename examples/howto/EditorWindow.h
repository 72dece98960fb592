#pragma once

#include <moUndoStack/moUndoCommands.h>

#include <OpenSG/OSGTransform3D.h>

#include <QAction>
#include <QtCore/QSignalBlocker>
#include <QtWidgets/QDockWidget>
#include <QtWidgets/QDoubleSpinBox>
#include <QtWidgets/QMainWindow>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QTreeView>

/// A window with menus, a field for the height of a node, the history beside it and a mark while changes are not saved.
class EditorWindow : public QMainWindow
{
public:
    EditorWindow(moUndoStack& stack, const osg::NodePtr& node)
        : m_stack(stack), m_node(node), m_state(stack), m_history(stack)
    {
        makeMenus();
        makeHistory();

        setCentralWidget(height);
        connect(height, QOverload<double>::of(&QDoubleSpinBox::valueChanged), this, &EditorWindow::edit);

        // Every step is reported, whatever made it: this window, another one, a script.
        connect(&m_stack, &moUndoStack::redoPerformed, this, &EditorWindow::refresh);
        connect(&m_stack, &moUndoStack::undoPerformed, this, &EditorWindow::refresh);
        connect(&m_stack, &moUndoStack::cleared, this, &EditorWindow::refresh);
        refresh();

        setWindowTitle("scene.gltf[*]"); // Qt shows the mark in place of [*]
        setWindowModified(!m_stack.isClean());
        connect(&m_state, &moUndoStackState::cleanChanged, this, [this](bool clean) { setWindowModified(!clean); });
    }

    QAction* save = nullptr;
    QAction* undo = nullptr;
    QAction* redo = nullptr;
    QAction* reset = nullptr;
    QDoubleSpinBox* height = new QDoubleSpinBox(this);
    QTreeView* history = new QTreeView(this);

private:
    void makeMenus()
    {
        QMenu* const file = menuBar()->addMenu("File");
        save = file->addAction("Save", &m_stack, &moUndoStack::setClean);
        save->setShortcut(QKeySequence::Save);

        QMenu* const menu = menuBar()->addMenu("Edit");
        undo = m_state.createUndoAction(menu);
        redo = m_state.createRedoAction(menu);
        menu->addActions({undo, redo});
        reset = menu->addAction("Reset", this, &EditorWindow::resetNode);
    }

    void makeHistory()
    {
        m_history.showIn(*history);
        auto* const dock = new QDockWidget("History", this);
        dock->setWidget(history);
        addDockWidget(Qt::RightDockWidgetArea, dock);
    }

    void edit(double value)
    {
        const osg::Vec3f place(0, static_cast<float>(value), 0);
        m_stack.addOrExecute(new moTranslationUndoCommand(m_node, place, false, nullptr, {}, -1));
    }

    /// One step, on every way out; none if an exception leaves.
    void resetNode()
    {
        const moCompositionScope composition(m_stack, "Reset");
        const osg::Transform3DPtr transform = osg::Transform3DPtr::dcast(m_node->getCore());
        if (transform->getScale() != osg::Vec3f(1, 1, 1))
            new moScaleUndoCommand(m_node, osg::Vec3f(1, 1, 1), nullptr, {}, -1);
        if (transform->getTranslation() == osg::Vec3f(0, 0, 0)) return;
        new moTranslationUndoCommand(m_node, osg::Vec3f(0, 0, 0), false, nullptr, {}, -1);
    }

    void refresh()
    {
        const QSignalBlocker showing(height); // to show a value is no edit
        height->setValue(osg::Transform3DPtr::dcast(m_node->getCore())->getTranslation()[1]);
    }

    moUndoStack& m_stack;
    osg::NodePtr m_node;
    moUndoStackState m_state;
    moUndoHistoryModel m_history;
};
