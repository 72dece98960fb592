// What a post routine can do when the application object is destroyed. Exit status 0: as the history window relies on.

#include <QtCore/QPointer>
#include <QtWidgets/QApplication>
#include <QtWidgets/QWidget>

#include <cstdio>
#include <string>

namespace {

int s_argc = 1;
char s_name[] = "qt_process";
char* s_argv[] = {s_name, nullptr};

int s_calls = 0;
bool s_foundApplication = false;
QPointer<QWidget> s_window;

void postRoutine()
{
    ++s_calls;
    s_foundApplication = qobject_cast<QApplication*>(QCoreApplication::instance());
    delete s_window;
}

int status(bool holds, const char* what)
{
    if (!holds) std::fprintf(stderr, "failed: %s\n", what);
    return holds ? 0 : 1;
}

} // namespace

int main(int argc, char** argv)
{
    const std::string which = argc > 1 ? argv[1] : "";
    auto* application = new QApplication(s_argc, s_argv);
    qAddPostRoutine(postRoutine);

    if (which == "post-routine-finds-the-application") {
        delete application;
        return status(s_calls == 1 && s_foundApplication, "the routine is called while there is an application object");
    }
    if (which == "post-routine-deletes-a-window") {
        s_window = new QWidget;
        s_window->show();
        QApplication::processEvents();
        delete application;
        return status(!s_window, "the routine can delete a window");
    }
    if (which == "post-routine-runs-once") {
        delete application;
        application = new QApplication(s_argc, s_argv);
        delete application;
        return status(s_calls == 1, "a second application object does not call the routine again");
    }
    return status(false, "there is such a case");
}
