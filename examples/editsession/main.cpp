#include <editsession/ModelLoader.h>
#include <editsession/Session.h>

#include <OpenSG/OSGBaseFunctions.h>

#include <QtCore/QCommandLineParser>
#include <QtCore/QCoreApplication>
#include <QtCore/QFile>
#include <QtCore/QTextStream>

#include <cstdio>
#include <exception>

namespace {

enum ExitStatus
{
    Passed = 0,
    Failed = 1,  ///< undo or redo did not give back what it had to
    Unusable = 2 ///< the arguments, the model or the JSON file
};

ExitStatus unusable(const QString& reason)
{
    std::fprintf(stderr, "editsession: %s\n", reason.toUtf8().constData());
    return Unusable;
}

ExitStatus run(const QString& modelFile, const QString& jsonFile)
{
    Model model = loadModel(modelFile);
    QFile json(jsonFile);
    const auto jsonFailed = [&json] {
        return unusable(QStringLiteral("cannot write '%1': %2").arg(json.fileName(), json.errorString()));
    };
    if (!jsonFile.isEmpty() && !json.open(QIODevice::WriteOnly)) return jsonFailed();

    Report report = runSession(model, chapters());
    report.modelFile = modelFile;

    QTextStream out(stdout);
    out.setCodec("UTF-8");
    report.print(out);
    if (json.isOpen() && (json.write(report.toJson()) < 0 || !json.flush())) return jsonFailed();
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
        "Exit status: 0 all checks passed, 1 one failed, 2 the model cannot be loaded or the file not be written.");
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

    try {
        return run(models.isEmpty() ? QCoreApplication::applicationDirPath() + "/scene.gltf" : models.first(),
                   parser.value(jsonOption));
    } catch (const ModelError& error) {
        return unusable(QString::fromStdString(error.what()));
    } catch (const std::exception& error) {
        std::fprintf(stderr, "editsession: the session broke off: %s\n", error.what());
        return Failed;
    }
}
