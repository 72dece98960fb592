#include <moUndoStack/core/moHistoryWindow_p.h>

#include <moUndoStack/core/moUndoHistoryModel.h>
#include <moUndoStack/core/moUndoStack.h>

#include <QtCore/QPointer>
#include <QtWidgets/QApplication>
#include <QtWidgets/QUndoView>

#include <array>
#include <cstdlib>

namespace {

using Views = std::array<QPointer<QUndoView>, 2>;

/// Never destroyed: the application object may outlive every static object of the library.
Views& views()
{
    static Views* const s_views = new Views;
    return *s_views;
}

bool s_processEnds = false;

/// Called by the destructor of the application object. If that runs while the process ends, the windows are left as
/// they are: parts of Qt that their destructors need may be destroyed already.
void destroyViews()
{
    for (const QPointer<QUndoView>& view : views())
        if (!s_processEnds) delete view;
}

void destroyViewsInTime()
{
    // An application object calls the post routines once, so each new one needs them again.
    qAddPostRoutine(destroyViews);
    static const int s_registered = std::atexit([] { s_processEnds = true; });
    Q_UNUSED(s_registered)
}

QUndoView* makeView(moUndoStack& stack, QUndoStack& qtStack)
{
    constexpr int width = 300;
    constexpr int height = 100;
    auto* view = new QUndoView(&qtStack);
    // Qt's own model would move Qt's stack directly, where calls that commands make meanwhile would not wait, and it is
    // reset at each step.
    (new moUndoHistoryModel(stack, view))->showIn(*view);
    view->setWindowTitle(moUndoStack::tr("Undo/Redo History"));
    view->resize(width, height);
    view->setAttribute(Qt::WA_QuitOnClose, false);
    destroyViewsInTime();
    return view;
}

} // namespace

void moHistoryWindow::show(unsigned int slot, moUndoStack& stack, QUndoStack& qtStack)
{
    QPointer<QUndoView>& view = views().at(slot);
    if (!view) view = makeView(stack, qtStack);
    view->show();
    view->raise();
}

void moHistoryWindow::abandon(QUndoStack& stack)
{
    stack.disconnect();
}
