#pragma once

#include "EditorTest.h"

#include <QtWidgets/QCheckBox>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QDoubleSpinBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QListWidget>
#include <QtWidgets/QPlainTextEdit>
#include <QtWidgets/QTreeWidget>

#include <cxxabi.h>
#include <memory>
#include <string>
#include <typeinfo>
#include <vector>

/// A control of a dock: what the user does, where it is seen, and the classes of the commands of the one step.
struct Control
{
    const char* steps;
    const char* widget;
    const char* classes;
};

/// A test of docks that show and edit properties.
class DockTest : public EditorTest
{
protected:
    void SetUp() override
    {
        EditorTest::SetUp();
        m_watch = std::make_unique<SceneWatch>(session().model());
    }
    void TearDown() override
    {
        m_watch.reset();
        EditorTest::TearDown();
    }

    SceneState now() { return m_watch->readAll(); }
    /// Up to rounding: places in the world are computed there and back.
    bool isAt(const SceneState& state)
    {
        m_watch->readAll();
        return m_watch->compareWith(state).same;
    }

    /// Any node, also one that is not of the file.
    osg::NodePtr anyNode(const char* name)
    {
        const osg::NodePtr root = session().model().root.get();
        for (osg::UInt32 i = 0; i < root->getNChildren(); ++i)
            if (nameOf(root->getChild(i)) == name) return root->getChild(i);
        return node(name);
    }

    template<class T = QWidget>
    T& widget(const char* name)
    {
        T* const found = window->findChild<T*>(name);
        if (!found) throw std::logic_error(std::string("there is no ") + name);
        return *found;
    }

    /// What the user sees in a widget.
    std::string seen(const char* name)
    {
        QWidget& shown = widget(name);
        if (const auto* box = qobject_cast<QAbstractSpinBox*>(&shown)) return box->text().toStdString();
        if (const auto* box = qobject_cast<QCheckBox*>(&shown)) return box->isChecked() ? "on" : "off";
        if (const auto* box = qobject_cast<QComboBox*>(&shown)) return box->currentText().toStdString();
        if (const auto* edit = qobject_cast<QLineEdit*>(&shown)) return edit->text().toStdString();
        if (const auto* edit = qobject_cast<QPlainTextEdit*>(&shown)) return edit->toPlainText().toStdString();
        if (const auto* label = qobject_cast<QLabel*>(&shown)) return label->text().toStdString();
        std::string lines;
        if (const auto* list = qobject_cast<QListWidget*>(&shown)) {
            for (int i = 0; i < list->count(); ++i)
                lines += list->item(i)->text().toStdString() + (list->item(i)->font().bold() ? "*\n" : "\n");
        }
        if (const auto* tree = qobject_cast<QTreeWidget*>(&shown)) {
            for (QTreeWidgetItemIterator item(const_cast<QTreeWidget*>(tree)); *item; ++item)
                for (int column = 0; column < tree->columnCount(); ++column)
                    lines += (*item)->text(column).toStdString() + (column + 1 < tree->columnCount() ? "|" : "\n");
        }
        return lines;
    }

    /// Class names, with those of the children in parentheses.
    static std::string classesOf(const QUndoCommand& command)
    {
        int status = 0;
        const std::unique_ptr<char, decltype(&std::free)> name(
            abi::__cxa_demangle(typeid(command).name(), nullptr, nullptr, &status), &std::free);
        std::string text = name.get();
        for (int i = 0; i < command.childCount(); ++i)
            text += (i == 0 ? "(" : ", ") + classesOf(*command.child(i));
        return text + (command.childCount() > 0 ? ")" : "");
    }

    /// Uses the control once. It has to be one step, and scene and widget have to follow undo and redo.
    void expectOneStep(const Control& control)
    {
        SCOPED_TRACE(control.steps);
        clock.advance(10.);
        const int steps = stack.index();
        const SceneState before = now();
        const std::string seenBefore = seen(control.widget);
        script(control.steps);
        const SceneState after = now();
        const std::string seenAfter = seen(control.widget);
        ASSERT_EQ(stack.size(), steps + 1);
        EXPECT_EQ(classesOf(*stack.command(steps)), control.classes);
        EXPECT_FALSE(isAt(before));
        EXPECT_NE(seenAfter, seenBefore);
        for (int times = 0; times < 2; ++times) {
            stack.undo();
            EXPECT_TRUE(isAt(before));
            EXPECT_EQ(seen(control.widget), seenBefore);
            stack.redo();
            EXPECT_TRUE(isAt(after));
            EXPECT_EQ(seen(control.widget), seenAfter);
        }
    }

    /// Undo back to that index gives that state, and redo the present one.
    void expectUndoTo(int index, const SceneState& before)
    {
        const SceneState after = now();
        while (stack.index() > index)
            stack.undo();
        EXPECT_TRUE(isAt(before));
        redoAll();
        EXPECT_TRUE(isAt(after));
    }

    /// The same for several controls, and at the end for all of them together.
    void expectOneStepEach(const std::vector<Control>& controls)
    {
        const int index = stack.index();
        const SceneState before = now();
        for (const Control& control : controls)
            expectOneStep(control);
        expectUndoTo(index, before);
    }

private:
    std::unique_ptr<SceneWatch> m_watch;
};
