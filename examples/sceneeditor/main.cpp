#include <sceneeditor/EditorSession.h>
#include <sceneeditor/EditorWindow.h>
#include <sceneeditor/StepScript.h>

#include <OpenSG/OSGBaseFunctions.h>

#include <QtCore/QCommandLineParser>
#include <QtCore/QFile>
#include <QtWidgets/QApplication>

#include <cstdio>
#include <memory>

namespace {

enum ExitStatus
{
    Done = 0,
    Failed = 1,  ///< a step of the script, or the picture, could not be made
    Unusable = 2 ///< the arguments or the model
};

ExitStatus fail(ExitStatus status, const QString& reason)
{
    std::fprintf(stderr, "sceneeditor: %s\n", reason.toUtf8().constData());
    return status;
}

} // namespace

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    osg::osgInit(argc, argv);

    QCommandLineParser parser;
    parser.setApplicationDescription("Edits a 3D model; every edit can be undone.\n"
                                     "Exit status: 0 done, 1 a step of the script or the picture failed, 2 the "
                                     "arguments or the model cannot be used.");
    const QCommandLineOption helpOption({"h", "help"}, "Show this text.");
    const QCommandLineOption screenshotOption("screenshot", "Write a picture of the window and end.", "FILE");
    const QCommandLineOption stepsOption("steps", "Carry out the steps of a script first.", "SCRIPT");
    const QCommandLineOption widgetOption("widget", "Of that part of the window only, by its object name.", "NAME");
    parser.addOptions({helpOption, screenshotOption, stepsOption, widgetOption});
    parser.addPositionalArgument("MODEL", "Any model file that Assimp reads. Default: a small studio scene.",
                                 "[MODEL]");
    if (!parser.parse(QCoreApplication::arguments())) return fail(Unusable, parser.errorText());
    if (parser.isSet(helpOption)) {
        std::fputs(qUtf8Printable(parser.helpText()), stdout);
        return Done;
    }
    const QStringList models = parser.positionalArguments();
    if (models.size() > 1) return fail(Unusable, "one model at a time, please");

    EditorSession session;
    const QString model = models.isEmpty() ? QCoreApplication::applicationDirPath() + "/scene.gltf" : models.first();
    try {
        session.load(model);
    } catch (const ModelError& error) {
        return fail(Unusable, QString::fromStdString(error.what()));
    }
    EditorWindow window(session);
    window.resize(1280, 800);
    window.show();
    QCoreApplication::processEvents();
    try {
        if (parser.isSet(stepsOption)) {
            QFile script(parser.value(stepsOption));
            if (!script.open(QIODevice::ReadOnly)) return fail(Unusable, script.errorString());
            StepScript(session, window).run(QString::fromUtf8(script.readAll()));
        }
    } catch (const StepError& error) {
        return fail(Failed, QString::fromStdString(error.what()));
    }
    if (!parser.isSet(screenshotOption)) return QApplication::exec();
    QCoreApplication::processEvents();
    QWidget* part = &window;
    if (parser.isSet(widgetOption)) part = window.findChild<QWidget*>(parser.value(widgetOption));
    if (!part) return fail(Failed, QStringLiteral("there is no '%1'").arg(parser.value(widgetOption)));
    if (!part->grab().save(parser.value(screenshotOption)))
        return fail(Failed, QStringLiteral("cannot write '%1'").arg(parser.value(screenshotOption)));
    return Done;
}
