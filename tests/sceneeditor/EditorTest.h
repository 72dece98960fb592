#pragma once

#include <sceneeditor/EditorSession.h>
#include <sceneeditor/EditorWindow.h>
#include <sceneeditor/SceneEdits.h>
#include <sceneeditor/StepScript.h>
#include <sceneeditor/Viewport.h>

#include <scene/SceneDigest.h>

#include <support/UndoTest.h>

#include <QAction>
#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

/// A window whose questions a test answers.
class AnsweredWindow : public EditorWindow
{
public:
    using EditorWindow::EditorWindow;

    Answer answer = Answer::Cancel;
    QString model;  ///< what the user opens
    QString target; ///< where the user saves
    QStringList complaints;
    int questions = 0;

protected:
    Answer askToSave() override
    {
        ++questions;
        return answer;
    }
    QString askForModel() override { return model; }
    QString askForTarget() override { return target; }
    void complain(const QString& text) override { complaints.append(text); }
};

/// A test of the editor with the studio loaded. The session switches recording on, not the fixture.
class EditorTest : public UndoTest
{
protected:
    void SetUp() override
    {
        UndoTest::SetUp();
        moUndoStack::endUndo();
        m_session = std::make_unique<EditorSession>();
        m_session->load(STUDIO_MODEL);
        window = std::make_unique<AnsweredWindow>(*m_session);
        window->resize(900, 640);
        window->show();
        QCoreApplication::processEvents();
        holdKeys(Qt::NoModifier);
    }
    void TearDown() override
    {
        window.reset();
        m_session.reset();
        moUndoStack::beginUndo();
        UndoTest::TearDown();
    }

    EditorSession& session() { return *m_session; }
    void script(const char* steps) { StepScript(session(), *window).run(QString::fromUtf8(steps)); }
    /// Until the next key event. Qt keeps what the test before pressed.
    void holdKeys(Qt::KeyboardModifiers keys) { QTest::keyPress(window.get(), Qt::Key_Shift, keys); }
    QByteArray digest() { return sceneDigest(session().model()); }
    QAction& action(const char* name) { return *window->findChild<QAction*>(name); }
    osg::NodePtr node(const char* name)
    {
        for (const osg::NodePtr& each : session().model().nodes)
            if (nameOf(each) == name) return each;
        return osg::NullFC;
    }
    void undoAll()
    {
        while (stack.canUndo())
            stack.undo();
    }
    void redoAll()
    {
        while (stack.canRedo())
            stack.redo();
    }

    std::unique_ptr<AnsweredWindow> window;
    QTemporaryDir folder;

private:
    std::unique_ptr<EditorSession> m_session;
};
