#include "Monkey.h"

#include <QtGui/QKeyEvent>
#include <QtGui/QMouseEvent>
#include <QtGui/QWheelEvent>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QDockWidget>
#include <QtWidgets/QMenu>

Monkey::Monkey(EditorSession& session, AnsweredWindow& window, FakeClock& clock, unsigned int seed, Manners manners)
    : m_session(session), m_window(window), m_clock(clock), m_random(seed)
{
    QObject::connect(&m_closer, &QTimer::timeout, [] {
        if (QWidget* const dialog = QApplication::activeModalWidget()) dialog->close();
    });
    m_closer.start(1);
    if (manners == Manners::EverythingIsRecorded) {
        for (const char* name : {"record", "block"})
            window.findChild<QAction*>(name)->setEnabled(false);
    }
}

void Monkey::act()
{
    if (!m_window.isVisible()) m_window.show();
    answer();
    // Some steps merge, others do not.
    m_clock.advance(chance(30) ? 1. : 0.01);
    switch (below(12)) {
    case 0:
    case 1:
    case 2:
        click();
        break;
    case 3:
    case 4:
    case 5:
        drag();
        break;
    case 6:
    case 7:
        typeKey();
        break;
    case 8:
        turnWheel();
        break;
    case 9:
        select();
        break;
    case 10:
        raise();
        break;
    default:
        choose();
    }
    QCoreApplication::processEvents();
}

/// What the dialogs will be answered with.
void Monkey::answer()
{
    static const QStringList models{STUDIO_MODEL, "/no/such/file.gltf", QString()};
    m_window.model = models[below(3)];
    m_window.answer = static_cast<EditorWindow::Answer>(below(3));
}

/// A popup takes all input, as on a screen.
QWidget* Monkey::someWidget()
{
    QWidget* const popup = QApplication::activePopupWidget();
    if (popup && chance(50)) popup->close();
    QWidget* const from = QApplication::activePopupWidget() ? QApplication::activePopupWidget() : &m_window;
    if (from == &m_window && chance(40)) return &m_window.viewport();
    QList<QWidget*> widgets = from->findChildren<QWidget*>();
    widgets.append(from);
    QList<QWidget*> usable;
    for (QWidget* const widget : widgets)
        if (widget->isVisible() && widget->isEnabled() && !widget->size().isEmpty()) usable.append(widget);
    return usable.isEmpty() ? &m_window : usable[below(static_cast<int>(usable.size()))];
}

QPoint Monkey::somePoint(const QWidget& widget)
{
    return {below(widget.width()), below(widget.height())};
}

Qt::KeyboardModifiers Monkey::someModifiers()
{
    static constexpr Qt::KeyboardModifier all[] = {Qt::NoModifier,      Qt::NoModifier,    Qt::NoModifier,
                                                   Qt::ControlModifier, Qt::ShiftModifier, Qt::AltModifier};
    return all[below(6)];
}

void Monkey::mouse(QWidget& widget, QEvent::Type type, const QPoint& at, Qt::MouseButton button,
                   Qt::MouseButtons buttons, Qt::KeyboardModifiers modifiers)
{
    QMouseEvent event(type, at, widget.mapTo(widget.window(), at), widget.mapToGlobal(at), button, buttons, modifiers);
    QApplication::sendEvent(&widget, &event);
}

void Monkey::select()
{
    if (m_window.viewport().isDragging()) return;
    const std::vector<osg::NodePtr> nodes = nodesOf(m_session);
    std::vector<osg::NodePtr> selected;
    for (int count = 1 + below(3); count > 0; --count)
        selected.push_back(nodes[static_cast<std::size_t>(below(static_cast<int>(nodes.size())))]);
    m_session.select(selected);
}

void Monkey::click()
{
    const QPointer<QWidget> widget = someWidget();
    const QPoint at = somePoint(*widget);
    const Qt::KeyboardModifiers modifiers = someModifiers();
    if (widget->focusPolicy() & Qt::ClickFocus) widget->setFocus();
    mouse(*widget, QEvent::MouseButtonPress, at, Qt::LeftButton, Qt::LeftButton, modifiers);
    if (widget) mouse(*widget, QEvent::MouseButtonRelease, at, Qt::LeftButton, Qt::NoButton, modifiers);
    if (!widget || !chance(20)) return;
    mouse(*widget, QEvent::MouseButtonDblClick, at, Qt::LeftButton, Qt::LeftButton, modifiers);
    if (widget) mouse(*widget, QEvent::MouseButtonRelease, at, Qt::LeftButton, Qt::NoButton, modifiers);
}

/// The widget that was pressed gets the mouse until it is released. Meanwhile keys are pressed, too.
void Monkey::drag()
{
    static constexpr Qt::MouseButton buttons[] = {Qt::LeftButton, Qt::LeftButton, Qt::MiddleButton, Qt::RightButton};
    Viewport& viewport = m_window.viewport();
    const QPointer<QWidget> widget =
        chance(50) && !QApplication::activePopupWidget() ? static_cast<QWidget*>(&viewport) : someWidget();
    const Qt::MouseButton button = buttons[below(4)];
    const Qt::KeyboardModifiers modifiers = someModifiers();
    QPoint at = somePoint(*widget);
    if (widget == &viewport && viewport.hasHandles() && chance(70))
        at = viewport.graspOf(static_cast<Handles::Part>(below(4)));
    if (widget->focusPolicy() & Qt::ClickFocus) widget->setFocus();
    mouse(*widget, QEvent::MouseButtonPress, at, button, button, modifiers);
    const int moves = 1 + below(6);
    for (int move = 0; move < moves && widget; ++move) {
        at += QPoint(below(41) - 20, below(41) - 20);
        mouse(*widget, QEvent::MouseMove, at, Qt::NoButton, button, modifiers);
        if (widget && chance(5)) QTest::keyClick(widget, chance(50) ? Qt::Key_Escape : Qt::Key_Z, Qt::ControlModifier);
        if (widget && chance(3)) QTest::keyClick(widget, Qt::Key_Escape);
        if (chance(20)) QCoreApplication::processEvents();
    }
    if (widget) mouse(*widget, QEvent::MouseButtonRelease, at, button, Qt::NoButton, modifiers);
}

void Monkey::typeKey()
{
    static constexpr Qt::Key keys[] = {Qt::Key_Z,     Qt::Key_Y,     Qt::Key_A,      Qt::Key_1,    Qt::Key_2,
                                       Qt::Key_3,     Qt::Key_F,     Qt::Key_Tab,    Qt::Key_Up,   Qt::Key_Down,
                                       Qt::Key_Left,  Qt::Key_F2,    Qt::Key_Return, Qt::Key_Home, Qt::Key_Escape,
                                       Qt::Key_Space, Qt::Key_Right, Qt::Key_Delete, Qt::Key_End,  Qt::Key_Backspace};
    QWidget* const focused = QApplication::focusWidget();
    QWidget* const widget = focused && chance(60) ? focused : someWidget();
    const int times = 1 + below(3);
    const QPointer<QWidget> alive = widget;
    for (int i = 0; i < times && alive; ++i)
        QTest::keyClick(alive.data(), keys[below(20)], someModifiers());
    if (alive && chance(15)) QTest::keyClick(alive.data(), Qt::Key_Z, Qt::ControlModifier);
}

void Monkey::turnWheel()
{
    QWidget* const widget = someWidget();
    const QPoint at = somePoint(*widget);
    QWheelEvent event(at, widget->mapToGlobal(at), QPoint(), QPoint(0, 120 * (below(5) - 2)), Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(widget, &event);
}

/// Most docks are behind others.
void Monkey::raise()
{
    const QList<QDockWidget*> docks = m_window.findChildren<QDockWidget*>();
    QDockWidget* const dock = docks[below(static_cast<int>(docks.size()))];
    dock->show();
    dock->raise();
}

void Monkey::choose()
{
    QList<QAction*> actions;
    for (QAction* const action : m_window.findChildren<QAction*>())
        if (action->isEnabled() && !action->menu() && !action->objectName().isEmpty()) actions.append(action);
    QAction* const chosen = actions[below(static_cast<int>(actions.size()))];
    // These end a history; seldom, so that it grows.
    const bool ends = QStringList{"open", "clear", "quit"}.contains(chosen->objectName());
    if (QApplication::activePopupWidget() || (ends && !chance(5))) return;
    chosen->trigger();
}
