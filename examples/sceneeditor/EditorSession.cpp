#include <sceneeditor/EditorSession.h>

#include <scene/ModelWriter.h>
#include <scene/Prepare.h>

#include <moOpenSGUtils/moOpenSGUtils.h>
#include <moSceneData/moSceneDataManager.h>

#include <utility>

EditorSession::EditorSession(QObject* parent) : QObject(parent), m_editState(edits()), m_viewState(views())
{
    edits().setMessageListener(
        [this](const char* name, moMessage& message, int) { Q_EMIT messageArrived(QString::fromUtf8(name), message); });
    connect(&edits(), &moUndoStack::redoPerformed, this, &EditorSession::sceneChanged);
    connect(&edits(), &moUndoStack::undoPerformed, this, &EditorSession::sceneChanged);
    setRecording(true);
}

EditorSession::~EditorSession()
{
    disconnect(&edits(), nullptr, this, nullptr);
    edits().setMessageListener({});
    setBlocked(false);
    setRecording(false);
    // The commands hold parts of the scene.
    moUndoStack::clearAll();
    moSceneDataManager::getSceneData(0)->setSceneNode(osg::NullFC);
}

void EditorSession::load(const QString& fileName)
{
    Model loaded = loadModel(fileName, Geometry::Read);
    prepare(loaded);
    moUndoStack::clearAll();
    m_selection.clear();
    m_selectedIds.clear();
    m_model = std::move(loaded);
    m_fileName = fileName;
    moSceneDataManager::getSceneData(0)->setSceneNode(m_model.root.get());
    Q_EMIT sceneLoaded();
    Q_EMIT selectionChanged();
    Q_EMIT sceneChanged();
}

/// The families of commands edit more than a model file has.
void EditorSession::prepare(Model& model)
{
    prepareFields(model);
    prepareLights(model);
    prepareMaterials(model);
    prepareTags(model);
    prepareConstraints(model);
}

void EditorSession::save(const QString& fileName)
{
    writeModel(m_model, fileName);
    m_fileName = fileName;
    edits().setClean();
}

std::vector<osg::NodePtr> EditorSession::selection() const
{
    std::vector<osg::NodePtr> nodes;
    for (const moNodePtr& handle : m_selection) {
        if (const osg::NodePtr node = handle.getPtr()) nodes.push_back(node);
    }
    return nodes;
}

osg::NodePtr EditorSession::current() const
{
    const std::vector<osg::NodePtr> nodes = selection();
    return nodes.empty() ? osg::NodePtr(osg::NullFC) : nodes.back();
}

bool EditorSession::isSelected(const osg::NodePtr& node) const
{
    return node != osg::NullFC && m_selectedIds.count(osg::getContainerId(node)) > 0;
}

void EditorSession::select(const std::vector<osg::NodePtr>& nodes)
{
    std::vector<moNodePtr> selected(nodes.begin(), nodes.end());
    if (selected == m_selection) return;
    m_selection = std::move(selected);
    m_selectedIds.clear();
    for (const osg::NodePtr& node : nodes)
        m_selectedIds.insert(osg::getContainerId(node));
    Q_EMIT selectionChanged();
}

void EditorSession::setRecording(bool on)
{
    if (on == m_recording) return;
    m_recording = on;
    if (on)
        moUndoStack::beginUndo();
    else
        moUndoStack::endUndo();
    Q_EMIT recordingChanged();
}

void EditorSession::setBlocked(bool blocked)
{
    if (blocked == m_blocked) return;
    m_blocked = blocked;
    if (blocked)
        moUndoStack::beginBlockUndo();
    else
        moUndoStack::endBlockUndo();
    Q_EMIT recordingChanged();
}
