#pragma once

#include <sceneeditor/Drag.h>
#include <sceneeditor/Handles.h>
#include <sceneeditor/ScenePainter.h>

#include <QtWidgets/QWidget>

class EditorSession;

/// Shows the scene and edits it with the mouse.
///
/// Left: select (with Ctrl: add and remove), or drag a handle. Left beside everything, or middle: orbit. Right: pan.
/// Wheel: zoom. Escape during a drag takes it back as if it had never been.
class Viewport : public QWidget
{
    Q_OBJECT

public:
    explicit Viewport(EditorSession& session, QWidget* parent = nullptr);
    ~Viewport() override;

    Tool tool() const { return m_tool; }
    void setTool(Tool tool);

    bool isDragging() const { return m_mode != Mode::Idle; }

    /// Where a handle can be grasped now.
    QPoint graspOf(Handles::Part part) const { return m_handles.graspOf(part).toPoint(); }
    /// Whether there are handles.
    bool hasHandles() const { return !m_handles.isEmpty(); }

    /// The scene alone, as it was painted last.
    const QImage& image() const { return m_painter.image(); }

    QSize sizeHint() const override { return {640, 480}; }

public Q_SLOTS:
    /// Looks at the selection, or at all if nothing is selected. A step of the camera.
    void fit();

    /// Ends a drag with what it did so far.
    void dropDrag();
    /// Ends a drag and takes it back.
    void cancelDrag();

Q_SIGNALS:
    /// An image of the scene was painted.
    void painted(double milliseconds, std::size_t triangles);
    void toolChanged();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    enum class Mode
    {
        Idle,
        Pressed, ///< on the scene: a click, or the beginning of an orbit
        Handle,
        Orbit,
        Pan
    };

    void showScene();
    void sceneLoaded();
    void placeHandles();
    void begin(Mode mode, const QPoint& at);
    void end();
    void setView(const View& view, const QString& text);
    void click(const QPoint& at, bool toggle);
    osg::NodePtr nodeAt(const QPoint& at) const;

    EditorSession& m_session;
    ScenePainter m_painter;
    Handles m_handles; ///< those of the beginning while a handle is dragged
    Handles::Part m_part = Handles::NoPart;
    Tool m_tool = Tool::Move;
    Mode m_mode = Mode::Idle;
    Qt::MouseButton m_button = Qt::NoButton;
    QPoint m_pressed;
    View m_viewBefore;
    Drag m_editDrag;
    Drag m_viewDrag;
    bool m_isStale = true; ///< the image does not show the scene as it is now
};
