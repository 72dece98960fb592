#pragma once

#include <moUndoStack/moUndoCommands.h>

#include <OpenSG/OSGTransform3D.h>

#include <QtCore/QSignalBlocker>
#include <QtWidgets/QAction>
#include <QtWidgets/QDoubleSpinBox>
#include <QtWidgets/QMainWindow>
#include <QtWidgets/QMenuBar>

/// A window with an Edit menu and a field for the height of a node.
class EditorWindow : public QMainWindow
{
public:
    explicit EditorWindow(osg::NodePtr node) : m_node(node)
    {
        QMenu* const menu = menuBar()->addMenu("Edit");
        undo = menu->addAction("Undo", &m_stack, &moUndoStack::undo, QKeySequence::Undo);
        redo = menu->addAction("Redo", &m_stack, &moUndoStack::redo, QKeySequence::Redo);
        menu->addAction("History", &m_stack, &moUndoStack::showHistory);

        setCentralWidget(height);
        connect(height, QOverload<double>::of(&QDoubleSpinBox::valueChanged), this, &EditorWindow::edit);

        // Every step is reported, whatever made it: this window, another one, a script.
        connect(&m_stack, &moUndoStack::redoPerformed, this, &EditorWindow::refresh);
        connect(&m_stack, &moUndoStack::undoPerformed, this, &EditorWindow::refresh);
        connect(&m_stack, &moUndoStack::cleared, this, &EditorWindow::refresh);
        refresh();
    }

    QAction* undo = nullptr;
    QAction* redo = nullptr;
    QDoubleSpinBox* height = new QDoubleSpinBox(this);

private:
    void edit(double value)
    {
        const osg::Vec3f place(0, static_cast<float>(value), 0);
        m_stack.addOrExecute(new moTranslationUndoCommand(m_node, place, false, nullptr, {}, -1));
    }

    void refresh()
    {
        const QSignalBlocker showing(height); // to show a value is no edit
        height->setValue(osg::Transform3DPtr::dcast(m_node->getCore())->getTranslation()[1]);
        undo->setEnabled(m_stack.canUndo());
        redo->setEnabled(m_stack.canRedo());
        const QUndoCommand* const next = m_stack.currentCommand();
        undo->setText(next ? "Undo " + next->text() : "Undo");
    }

    moUndoStack& m_stack = moUndoStack::get();
    osg::NodePtr m_node;
};
