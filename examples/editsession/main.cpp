#include <editsession/Session.h>
#include <scene/Interrupt.h>
#include <scene/ModelLoader.h>

#include <OpenSG/OSGBaseFunctions.h>

#include <QtCore/QCommandLineParser>
#include <QtCore/QCoreApplication>
#include <QtCore/QFile>
#include <QtCore/QTextStream>

#include <cstdio>
#include <exception>

#include <unistd.h>

namespace {

enum ExitStatus
{
    Passed = 0,
    Failed = 1,     ///< a check failed, e.g. undo did not restore the scene
    Unusable = 2,   ///< the arguments, the model or the JSON file
    BrokenOff = 130 ///< by Ctrl-C; the status that shells use for it
};

ExitStatus unusable(const QString& reason)
{
    std::fprintf(stderr, "editsession: %s\n", reason.toUtf8().constData());
    return Unusable;
}

/// Writes the progress to a terminal, and nothing to a file or a pipe.
Progress::Write terminal()
{
    if (!isatty(STDERR_FILENO)) return {};
    return [](const QByteArray& text) {
        std::fputs(text.constData(), stderr);
        std::fflush(stderr);
    };
}

ExitStatus run(const QString& modelFile, const QString& jsonFile)
{
    Progress progress(terminal(), wasInterrupted);
    Model model = loadModel(modelFile, progress);
    QFile json(jsonFile);
    const auto jsonFailed = [&json] {
        return unusable(QStringLiteral("cannot write '%1': %2").arg(json.fileName(), json.errorString()));
    };
    if (!jsonFile.isEmpty() && !json.open(QIODevice::WriteOnly)) return jsonFailed();

    Report report = runSession(model, chapters(), progress);
    report.modelFile = modelFile;
    progress.end();

    QString text;
    QTextStream out(&text);
    report.print(out);
    std::fputs(text.toUtf8().constData(), stdout);
    if (json.isOpen() && (json.write(report.toJson()) < 0 || !json.flush())) return jsonFailed();
    if (!report.interruptedIn.isNull()) return BrokenOff;
    return report.passed() ? Passed : Failed;
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    osg::osgInit(argc, argv);

    QCommandLineParser parser;
    parser.setApplicationDescription(
        "Loads a 3D model into a scene graph, edits it, undoes everything and does it again.\n"
        "Scenes are compared to the bit. Values that differ by rounding pass, too, and are counted: by 1e-5 of the\n"
        "largest value of the field or, for a place, of the distance to the world's origin.\n"
        "Ctrl-C ends it with a report of what was done so far; a second one ends it at once.\n"
        "Exit status: 0 all checks passed, 1 one failed, 2 the model cannot be loaded or the file not be written,\n"
        "130 ended by Ctrl-C.");
    const QCommandLineOption helpOption({"h", "help"}, "Show this text.");
    const QCommandLineOption jsonOption("json", "Write history, messages, checks and digests to this file.", "FILE");
    parser.addOptions({helpOption, jsonOption});
    parser.addPositionalArgument("MODEL", "Any model file that Assimp reads. Default: a small studio scene.",
                                 "[MODEL]");
    if (!parser.parse(QCoreApplication::arguments())) return unusable(parser.errorText());
    if (parser.isSet(helpOption)) {
        std::fputs(qUtf8Printable(parser.helpText()), stdout);
        return Passed;
    }
    const QStringList models = parser.positionalArguments();
    if (models.size() > 1) return unusable(QStringLiteral("one model at a time, please"));

    rememberInterrupt();
    try {
        return run(models.isEmpty() ? QCoreApplication::applicationDirPath() + "/scene.gltf" : models.first(),
                   parser.value(jsonOption));
    } catch (const ModelError& error) {
        return unusable(QString::fromStdString(error.what()));
    } catch (const Interrupted&) {
        std::fprintf(stderr, "editsession: interrupted while the model was loaded\n");
        return BrokenOff;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "editsession: the session broke off: %s\n", error.what());
        return Failed;
    }
}
