#include <sceneeditor/EditorWindow.h>

#include <sceneeditor/EditorSession.h>
#include <sceneeditor/HistoryDock.h>
#include <sceneeditor/MessagesDock.h>
#include <sceneeditor/SceneTreeDock.h>
#include <sceneeditor/Viewport.h>
#include <sceneeditor/properties/PropertyDocks.h>

#include <QActionGroup>
#include <QtCore/QFileInfo>
#include <QtGui/QCloseEvent>
#include <QtWidgets/QApplication>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QLabel>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QStatusBar>

namespace {

QAction* named(QAction* action, const char* name)
{
    action->setObjectName(name);
    return action;
}

QAction* named(QAction* action, const char* name, const QKeySequence& shortcut)
{
    action->setShortcut(shortcut);
    return named(action, name);
}

} // namespace

EditorWindow::EditorWindow(EditorSession& session, QWidget* parent)
    : QMainWindow(parent), m_session(session), m_viewport(new Viewport(session)), m_frameTime(new QLabel)
{
    setObjectName("editorWindow");
    setCentralWidget(m_viewport);
    setDockOptions(AnimatedDocks | AllowNestedDocks | AllowTabbedDocks);
    setTabPosition(Qt::RightDockWidgetArea, QTabWidget::East);
    makeFileMenu();
    makeEditMenu();
    makeToolMenu();
    makeViewMenu();
    makeDocks();

    m_frameTime->setObjectName("frameTime");
    statusBar()->addPermanentWidget(m_frameTime);
    connect(m_viewport, &Viewport::painted, this, [this](double milliseconds, std::size_t triangles) {
        m_frameTime->setText(tr("%1 triangles in %2 ms").arg(triangles).arg(milliseconds, 0, 'f', 1));
    });

    connect(&session.editState(), &moUndoStackState::cleanChanged, this, &EditorWindow::showTitle);
    connect(&session, &EditorSession::sceneLoaded, this, &EditorWindow::showTitle);
    showTitle();
}

void EditorWindow::makeFileMenu()
{
    QMenu* const menu = menuBar()->addMenu(tr("&File"));
    named(menu->addAction(tr("&Open…"), this, &EditorWindow::open), "open", QKeySequence::Open);
    named(menu->addAction(tr("&Save"), this, &EditorWindow::save), "save", QKeySequence::Save);
    menu->addSeparator();
    named(menu->addAction(tr("&Quit"), this, &QWidget::close), "quit", QKeySequence::Quit);
}

void EditorWindow::makeEditMenu()
{
    QMenu* const menu = menuBar()->addMenu(tr("&Edit"));
    menu->addAction(named(m_session.editState().createUndoAction(menu), "undo"));
    menu->addAction(named(m_session.editState().createRedoAction(menu), "redo"));
    menu->addSeparator();
    QAction* const mark =
        named(menu->addAction(tr("&Mark This State"), &m_session.edits(), &moUndoStack::mark), "mark");
    mark->setToolTip(tr("Remembers this state, for the next item"));
    named(menu->addAction(tr("&Back to the Mark"), &m_session.edits(), &moUndoStack::reset), "reset");
    named(menu->addAction(tr("&Clear the History"), &m_session.edits(), &moUndoStack::clear), "clear");
    menu->addSeparator();
    QAction* const record = named(menu->addAction(tr("&Record")), "record");
    record->setCheckable(true);
    connect(record, &QAction::toggled, &m_session, &EditorSession::setRecording);
    QAction* const block = named(menu->addAction(tr("B&lock Recording")), "block");
    block->setCheckable(true);
    connect(block, &QAction::toggled, &m_session, &EditorSession::setBlocked);
    const auto show = [this, record, block] {
        record->setChecked(m_session.isRecording());
        block->setChecked(m_session.isBlocked());
    };
    connect(&m_session, &EditorSession::recordingChanged, this, show);
    show();
}

void EditorWindow::makeToolMenu()
{
    QMenu* const menu = menuBar()->addMenu(tr("&Tool"));
    auto* const group = new QActionGroup(this);
    const auto add = [&](const QString& text, const char* name, Tool tool, const QKeySequence& key) {
        QAction* const action = named(menu->addAction(text), name);
        action->setShortcut(key);
        action->setCheckable(true);
        action->setActionGroup(group);
        connect(action, &QAction::triggered, m_viewport, [this, tool] { m_viewport->setTool(tool); });
        const auto show = [this, action, tool] { action->setChecked(m_viewport->tool() == tool); };
        connect(m_viewport, &Viewport::toolChanged, action, show);
        show();
    };
    add(tr("&Move"), "toolMove", Tool::Move, tr("Ctrl+1"));
    add(tr("&Rotate"), "toolRotate", Tool::Rotate, tr("Ctrl+2"));
    add(tr("&Scale"), "toolScale", Tool::Scale, tr("Ctrl+3"));
}

void EditorWindow::makeViewMenu()
{
    QMenu* const menu = menuBar()->addMenu(tr("&View"));
    QAction* const undo = named(m_session.viewState().createUndoAction(menu, tr("Undo View:")), "undoView");
    QAction* const redo = named(m_session.viewState().createRedoAction(menu, tr("Redo View:")), "redoView");
    undo->setShortcuts({tr("Alt+Left")});
    redo->setShortcuts({tr("Alt+Right")});
    menu->addActions({undo, redo});
    named(menu->addAction(tr("&Fit"), m_viewport, &Viewport::fit), "fit", tr("Ctrl+F"));
    menu->addSeparator();
    menu->setObjectName("viewMenu");
}

void EditorWindow::makeDocks()
{
    auto* const viewMenu = menuBar()->findChild<QMenu*>("viewMenu");
    const auto add = [this, viewMenu](QDockWidget* dock, Qt::DockWidgetArea area) {
        addDockWidget(area, dock);
        viewMenu->addAction(dock->toggleViewAction());
        return dock;
    };
    setCorner(Qt::BottomLeftCorner, Qt::LeftDockWidgetArea);
    setCorner(Qt::BottomRightCorner, Qt::RightDockWidgetArea);
    QDockWidget* const scene = add(new SceneTreeDock(m_session, this), Qt::LeftDockWidgetArea);
    QDockWidget* const history =
        add(new HistoryDock(tr("History"), "historyDock", m_session.edits(), this), Qt::LeftDockWidgetArea);
    resizeDocks({scene, history}, {3, 2}, Qt::Vertical);
    constexpr int sceneColumns = 46;
    resizeDocks({scene}, {fontMetrics().averageCharWidth() * sceneColumns}, Qt::Horizontal);
    QDockWidget* const messages = add(new MessagesDock(m_session, this), Qt::BottomDockWidgetArea);
    QDockWidget* const views =
        add(new HistoryDock(tr("Views"), "viewHistoryDock", m_session.views(), this), Qt::BottomDockWidgetArea);
    tabifyDockWidget(messages, views);
    messages->raise();
    constexpr int messageRows = 8;
    resizeDocks({messages}, {fontMetrics().height() * messageRows}, Qt::Vertical);
    QDockWidget* first = nullptr;
    for (QDockWidget* dock : makePropertyDocks(m_session, this)) {
        add(dock, Qt::RightDockWidgetArea);
        if (first) tabifyDockWidget(first, dock);
        if (!first) first = dock;
    }
    if (first) first->raise();
}

bool EditorWindow::load(const QString& fileName)
{
    m_viewport->cancelDrag();
    try {
        m_session.load(fileName);
    } catch (const ModelError& error) {
        complain(QString::fromStdString(error.what()));
        return false;
    }
    m_target.clear();
    return true;
}

bool EditorWindow::save()
{
    const QString target = m_target.isEmpty() ? askForTarget() : m_target;
    if (target.isEmpty()) return false;
    try {
        m_session.save(target);
    } catch (const ModelError& error) {
        complain(QString::fromStdString(error.what()));
        return false;
    }
    m_target = target;
    showTitle();
    return true;
}

void EditorWindow::open()
{
    if (!mayLeave()) return;
    const QString fileName = askForModel();
    if (!fileName.isEmpty()) load(fileName);
}

bool EditorWindow::mayLeave()
{
    m_viewport->cancelDrag();
    if (m_session.edits().isClean()) return true;
    switch (askToSave()) {
    case Answer::Save:
        return save();
    case Answer::Discard:
        return true;
    case Answer::Cancel:
        break;
    }
    return false;
}

void EditorWindow::closeEvent(QCloseEvent* event)
{
    event->setAccepted(mayLeave());
}

void EditorWindow::showTitle()
{
    const QString name = QFileInfo(m_session.fileName()).fileName();
    setWindowTitle(tr("%1[*] – Scene Editor").arg(name.isEmpty() ? tr("No Scene") : name));
    setWindowModified(!m_session.edits().isClean());
}

EditorWindow::Answer EditorWindow::askToSave()
{
    switch (QMessageBox::question(this, tr("Scene Editor"), tr("The scene was changed. Save it?"),
                                  QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel)) {
    case QMessageBox::Save:
        return Answer::Save;
    case QMessageBox::Discard:
        return Answer::Discard;
    default:
        return Answer::Cancel;
    }
}

QString EditorWindow::askForModel()
{
    return QFileDialog::getOpenFileName(this, tr("Open a Model"));
}

QString EditorWindow::askForTarget()
{
    return QFileDialog::getSaveFileName(this, tr("Save the Scene"), QString(), tr("glTF scene (*.gltf)"));
}

void EditorWindow::complain(const QString& text)
{
    QMessageBox::warning(this, tr("Scene Editor"), text);
}
