#include <sceneeditor/Viewport.h>

#include <sceneeditor/EditorSession.h>
#include <sceneeditor/LightSymbols.h>

#include <QtCore/QElapsedTimer>
#include <QtGui/QKeyEvent>
#include <QtGui/QMouseEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QApplication>

#include <algorithm>
#include <cmath>

namespace {

constexpr float degreesPerPixel = 0.4f;

} // namespace

Viewport::Viewport(EditorSession& session, QWidget* parent)
    : QWidget(parent), m_session(session), m_editDrag(session.edits()), m_viewDrag(session.views())
{
    setObjectName("viewport");
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setMinimumSize(160, 120);
    connect(&session, &EditorSession::sceneLoaded, this, &Viewport::sceneLoaded);
    connect(&session, &EditorSession::sceneChanged, this, &Viewport::showScene);
    connect(&session, &EditorSession::selectionChanged, this, &Viewport::showScene);
    connect(&session.camera(), &Camera::changed, this, &Viewport::showScene);
    sceneLoaded();
}

Viewport::~Viewport()
{
    cancelDrag();
}

void Viewport::setTool(Tool tool)
{
    if (isDragging() || tool == m_tool) return;
    m_tool = tool;
    placeHandles();
    update();
    Q_EMIT toolChanged();
}

void Viewport::fit()
{
    if (isDragging()) return;
    Box box;
    std::vector<osg::NodePtr> nodes = m_session.selection();
    if (nodes.empty() && m_session.model().root.get() != osg::NullFC) nodes.push_back(m_session.model().root.get());
    for (const osg::NodePtr& node : nodes) {
        const Box part = m_painter.boxOf(node);
        if (part.isEmpty) continue;
        box.extend(part.smallest);
        box.extend(part.largest);
    }
    if (box.isEmpty) return;
    View view = m_session.camera().view();
    view.target = box.centre();
    view.distance = std::max(0.05f, box.radius() / Raster::halfHeight * 1.1f);
    if (view == m_session.camera().view()) return;
    auto* const command = new ViewUndoCommand(tr("Fit"), m_session.camera(), view);
    command->setMergeEnabled(false);
    m_session.views().addOrExecute(command);
}

void Viewport::sceneLoaded()
{
    cancelDrag();
    m_painter.setScene(m_session);
    // The first look at a scene is no step.
    if (m_session.model().root.get() != osg::NullFC) {
        const Box box = m_painter.boxOf(m_session.model().root.get());
        View view;
        view.target = box.centre();
        view.distance = std::max(0.05f, box.radius() / Raster::halfHeight * 1.1f);
        m_session.camera().setView(view);
    }
    showScene();
}

void Viewport::showScene()
{
    m_isStale = true;
    // A drag starts from the handles as they were when it began.
    if (m_mode != Mode::Handle) placeHandles();
    update();
}

void Viewport::placeHandles()
{
    m_handles = Handles(m_session.selection(), m_tool, m_session.camera().view(), size());
}

void Viewport::begin(Mode mode, const QPoint& at)
{
    if (m_mode == Mode::Idle) qApp->installEventFilter(this);
    m_mode = mode;
    m_pressed = at;
    m_viewBefore = m_session.camera().view();
}

void Viewport::end()
{
    if (m_mode == Mode::Idle) return;
    qApp->removeEventFilter(this);
    m_mode = Mode::Idle;
    m_button = Qt::NoButton;
    m_part = Handles::NoPart;
    showScene();
}

void Viewport::dropDrag()
{
    m_editDrag.drop();
    m_viewDrag.drop();
    end();
}

void Viewport::cancelDrag()
{
    const bool edited = m_editDrag.isActive();
    m_editDrag.cancel();
    m_viewDrag.cancel();
    end();
    if (edited) m_session.noteSceneChanged();
}

void Viewport::setView(const View& view, const QString& text)
{
    auto command = std::make_unique<ViewUndoCommand>(text, m_session.camera(), view);
    constexpr double noLimit = -1.;
    command->setMergeResponseDelta(noLimit);
    command->setMergeEnabled(m_viewDrag.isActive());
    m_viewDrag.move(std::move(command));
}

osg::NodePtr Viewport::nodeAt(const QPoint& at) const
{
    const osg::NodePtr light = LightSymbols(m_session, size()).nodeAt(at);
    if (light != osg::NullFC) return light;
    return m_painter.nodeAt((QPointF(at) * devicePixelRatioF()).toPoint());
}

void Viewport::click(const QPoint& at, bool toggle)
{
    const osg::NodePtr node = nodeAt(at);
    std::vector<osg::NodePtr> nodes;
    if (toggle) nodes = m_session.selection();
    const auto known = std::find(nodes.begin(), nodes.end(), node);
    if (known != nodes.end())
        nodes.erase(known);
    else if (node != osg::NullFC)
        nodes.push_back(node);
    m_session.select(nodes);
}

void Viewport::mousePressEvent(QMouseEvent* event)
{
    if (isDragging()) return;
    m_button = event->button();
    const bool orbits = event->button() == Qt::MiddleButton || (event->modifiers() & Qt::AltModifier) != 0;
    if (event->button() == Qt::RightButton)
        begin(Mode::Pan, event->pos());
    else if (orbits)
        begin(Mode::Orbit, event->pos());
    else if (event->button() == Qt::LeftButton) {
        m_part = m_handles.partAt(event->pos());
        begin(m_part == Handles::NoPart ? Mode::Pressed : Mode::Handle, event->pos());
    }
}

void Viewport::mouseMoveEvent(QMouseEvent* event)
{
    // The release was lost, to another window perhaps.
    if (isDragging() && (event->buttons() & m_button) == 0) dropDrag();
    const QPoint by = event->pos() - m_pressed;
    View view = m_viewBefore;
    switch (m_mode) {
    case Mode::Idle: {
        const Handles::Part part = m_handles.partAt(event->pos());
        if (part != m_part) update();
        m_part = part;
        return;
    }
    case Mode::Pressed:
        if (by.manhattanLength() < QApplication::startDragDistance()) return;
        m_mode = Mode::Orbit;
        [[fallthrough]];
    case Mode::Orbit:
        view.yaw -= static_cast<float>(by.x()) * degreesPerPixel;
        view.pitch = std::clamp(view.pitch + static_cast<float>(by.y()) * degreesPerPixel, -89.f, 89.f);
        setView(view, tr("Orbit"));
        return;
    case Mode::Pan: {
        const float unitsPerPixel = 2.f * Raster::halfHeight * view.distance / static_cast<float>(height());
        view.target += view.right() * (static_cast<float>(-by.x()) * unitsPerPixel);
        view.target += view.up() * (static_cast<float>(by.y()) * unitsPerPixel);
        setView(view, tr("Pan"));
        return;
    }
    case Mode::Handle:
        if (auto command = m_handles.drag(m_part, m_pressed, event->pos(), !m_editDrag.isActive())) {
            m_editDrag.move(std::move(command));
            m_session.noteSceneChanged();
        }
        return;
    }
}

void Viewport::mouseReleaseEvent(QMouseEvent* event)
{
    if (!isDragging() || event->button() != m_button) return;
    const bool clicked = m_mode == Mode::Pressed;
    dropDrag();
    if (clicked) click(event->pos(), (event->modifiers() & Qt::ControlModifier) != 0);
}

void Viewport::mouseDoubleClickEvent(QMouseEvent* event)
{
    mousePressEvent(event);
}

void Viewport::wheelEvent(QWheelEvent* event)
{
    event->accept();
    if (isDragging() || event->angleDelta().y() == 0) return;
    View view = m_session.camera().view();
    const float factor = std::pow(0.85f, static_cast<float>(event->angleDelta().y()) / 120.f);
    view.distance = std::clamp(view.distance * factor, 0.02f, 1e6f);
    // Turns of the wheel that follow each other are one step: the usual interval of merging.
    m_session.views().addOrExecute(new ViewUndoCommand(tr("Zoom"), m_session.camera(), view));
}

void Viewport::keyPressEvent(QKeyEvent* event)
{
    if (isDragging()) {
        if (event->key() == Qt::Key_Escape) cancelDrag();
        return;
    }
    QWidget::keyPressEvent(event);
}

void Viewport::hideEvent(QHideEvent* event)
{
    cancelDrag();
    QWidget::hideEvent(event);
}

bool Viewport::event(QEvent* event)
{
    switch (event->type()) {
    case QEvent::ShortcutOverride:
        // During a drag all keys belong to it.
        if (isDragging()) {
            event->accept();
            return true;
        }
        break;
    case QEvent::WindowDeactivate:
        dropDrag();
        break;
    case QEvent::PaletteChange:
    case QEvent::EnabledChange:
        showScene();
        break;
    default:
        break;
    }
    return QWidget::event(event);
}

/// During a drag, keys and mouse belong to the viewport: an undo from elsewhere would take back what the drag moves.
bool Viewport::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::Shortcut:
        return true;
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::Wheel:
    case QEvent::ContextMenu:
    case QEvent::Drop:
        if (!watched->isWidgetType() || watched == this) return false;
        if (event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) cancelDrag();
        return true;
    default:
        return false;
    }
}

void Viewport::resizeEvent(QResizeEvent* event)
{
    showScene();
    QWidget::resizeEvent(event);
}

void Viewport::paintEvent(QPaintEvent*)
{
    const QSize pixels = size() * devicePixelRatioF();
    if (m_isStale || m_painter.image().size() != pixels) {
        QElapsedTimer timer;
        timer.start();
        ScenePainter::Look look;
        look.background = palette().color(QPalette::Mid);
        look.highlight = palette().color(QPalette::Highlight);
        look.boxes = isDragging() && m_painter.triangleCount() > ScenePainter::manyTriangles;
        m_painter.paint(m_session, pixels, look);
        m_isStale = false;
        Q_EMIT painted(static_cast<double>(timer.nsecsElapsed()) / 1e6, m_painter.paintedCount());
    }
    QPainter painter(this);
    painter.drawImage(rect(), m_painter.image());
    painter.setRenderHint(QPainter::Antialiasing);
    LightSymbols(m_session, size()).paint(painter);
    if (m_mode == Mode::Handle && m_editDrag.isActive())
        Handles(m_session.selection(), m_tool, m_session.camera().view(), size()).paint(painter, m_part);
    else
        m_handles.paint(painter, m_part);
}
