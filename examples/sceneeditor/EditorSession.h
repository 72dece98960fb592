#pragma once

#include <sceneeditor/Camera.h>

#include <scene/ModelLoader.h>

#include <moOpenSGUtils/moNodePtr.h>

#include <moUndoStack/core/moUndoStack.h>
#include <moUndoStack/core/moUndoStackState.h>

#include <OpenSG/OSGNode.h>

#include <QtCore/QObject>
#include <QtCore/QString>

#include <unordered_set>
#include <vector>

class moMessage;
class moUndoCommandBase;

/// What the window and its docks share: the scene, the selection, the camera, and the two stacks.
///
/// A dock is made with a session. It shows the scene when a signal comes, and edits by handing commands to apply(), or
/// by a Drag where many edits are to be one step. Docks do not know each other. One session at a time.
class EditorSession : public QObject
{
    Q_OBJECT

public:
    explicit EditorSession(QObject* parent = nullptr);
    /// Clears both stacks and releases the scene.
    ~EditorSession() override;

    /// Replaces the scene by that of a file, and clears both stacks.
    /// \throws ModelError  with one line that says why; then the old scene stays.
    void load(const QString& fileName);

    /// Writes the scene as glTF and makes this the clean state.
    /// \throws ModelError  with one line that says why; then the old state of the stack stays.
    void save(const QString& fileName);

    /// Where the scene came from, or was saved last.
    const QString& fileName() const { return m_fileName; }

    /// The scene; empty before the first load().
    Model& model() { return m_model; }

    /// The camera that the viewport looks through. Its commands go to views().
    Camera& camera() { return m_camera; }

    /// The stack of all edits of the scene.
    moUndoStack& edits() { return moUndoStack::get(moUndoStack::DefaultStack); }
    /// The stack of the camera.
    moUndoStack& views() { return moUndoStack::get(moUndoStack::SecondStack); }
    /// Their states as signals and actions.
    const moUndoStackState& editState() const { return m_editState; }
    const moUndoStackState& viewState() const { return m_viewState; }

    /// The selected nodes in the order in which they were selected, without those that were destroyed.
    std::vector<osg::NodePtr> selection() const;
    /// The one selected last; null if nothing is selected.
    osg::NodePtr current() const;
    bool isSelected(const osg::NodePtr& node) const;
    void select(const std::vector<osg::NodePtr>& nodes);

    /// Runs a command on the stack of edits, which owns it from now on.
    void apply(moUndoCommandBase* command) { edits().addOrExecute(command); }

    /// Whether edits are recorded (moUndoStack::beginUndo()). On at first.
    bool isRecording() const { return m_recording; }
    void setRecording(bool on);
    /// Whether recording is blocked (moUndoStack::beginBlockUndo()), whatever isRecording() says.
    bool isBlocked() const { return m_blocked; }
    void setBlocked(bool blocked);

    /// For edits that pass no stack: emits sceneChanged().
    void noteSceneChanged() { Q_EMIT sceneChanged(); }

Q_SIGNALS:
    /// A file was loaded. Handles and ids of the old scene are void.
    void sceneLoaded();
    /// The scene may have changed: a step was done, undone, redone or run unrecorded, or a drag moved.
    void sceneChanged();
    void selectionChanged();
    /// A step of the stack of edits sent a message; it is valid during the call.
    void messageArrived(const QString& name, const moMessage& message);
    void recordingChanged();

private:
    void prepare(Model& model);

    Model m_model;
    QString m_fileName;
    Camera m_camera;
    moUndoStackState m_editState;
    moUndoStackState m_viewState;
    std::vector<moNodePtr> m_selection;
    std::unordered_set<osg::UInt32> m_selectedIds;
    bool m_recording = false;
    bool m_blocked = false;
};
