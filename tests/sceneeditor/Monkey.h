#pragma once

#include "EditorTest.h"

#include <QtCore/QPointer>
#include <QtCore/QTimer>

#include <random>

/// Uses a window without sense: clicks, drags, types and chooses menu items at random. The same seed does the same.
class Monkey
{
public:
    /// What it may do.
    enum class Manners
    {
        Anything,
        EverythingIsRecorded ///< leaves the switches of recording alone
    };

    Monkey(EditorSession& session, AnsweredWindow& window, FakeClock& clock, unsigned int seed, Manners manners);

    /// Does one thing: a click, a drag, a key, a turn of the wheel, a selection, another dock or a menu item.
    void act();

private:
    int below(int end) { return std::uniform_int_distribution<int>(0, end - 1)(m_random); }
    bool chance(int percent) { return below(100) < percent; }
    QWidget* someWidget();
    QPoint somePoint(const QWidget& widget);
    Qt::KeyboardModifiers someModifiers();
    void mouse(QWidget& widget, QEvent::Type type, const QPoint& at, Qt::MouseButton button, Qt::MouseButtons buttons,
               Qt::KeyboardModifiers modifiers);
    void click();
    void drag();
    void typeKey();
    void turnWheel();
    void raise();
    void choose();
    void select();
    void answer();

    EditorSession& m_session;
    AnsweredWindow& m_window;
    FakeClock& m_clock;
    std::mt19937 m_random;
    QTimer m_closer; ///< closes the dialogs that wait for a user
};
