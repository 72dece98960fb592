#include <editsession/Session.h>

#include <editsession/ModelLoader.h>
#include <editsession/SceneDigest.h>

#include <moUndoStack/core/moUndoStack.h>

#include <QtWidgets/QUndoCommand>

#include <algorithm>

namespace {

/// Recording is on, and all messages of the default stack are written to the report, as long as this lives. The
/// history, whose commands hold parts of the scene, ends with it.
class Recording
{
public:
    explicit Recording(Report& report)
    {
        s_report = &report;
        moUndoStack::get().setMessageCallback(receive);
        moUndoStack::beginUndo();
    }
    ~Recording()
    {
        moUndoStack::endUndo();
        moUndoStack::get().setMessageCallback(nullptr);
        moUndoStack::clearAll();
        s_report = nullptr;
    }
    Recording(const Recording&) = delete;
    Recording& operator=(const Recording&) = delete;

    void setPhase(const QString& phase) { s_phase = phase; }

private:
    static bool receive(const char* name, moMessage& message, int)
    {
        s_report->addMessage(s_phase, name, message);
        return true;
    }

    // The callback is a plain function, without a place for an object.
    static inline Report* s_report = nullptr;
    static inline QString s_phase;
};

/// Where a chapter began.
struct Start
{
    const char* chapter;
    int step;
    QByteArray digest;
};

} // namespace

Report runSession(Model& model, const std::vector<Chapter>& chapters)
{
    Report report;
    report.nodeCount = model.nodes.size();
    report.lightCount = model.lights.size();
    report.materialCount = model.materials.size();

    moUndoStack& stack = moUndoStack::get();
    Recording recording(report);
    for (const Chapter& chapter : chapters) {
        if (chapter.prepare) chapter.prepare(model);
    }
    report.digestAfterLoad = sceneDigest(model);

    std::vector<Start> starts;
    Context context{model, stack, report};
    for (const Chapter& chapter : chapters) {
        recording.setPhase(QString::fromLatin1(chapter.name));
        starts.push_back({chapter.name, stack.size(), sceneDigest(model)});
        chapter.run(context);
        report.check(QStringLiteral("%1: recorded all of its edits").arg(chapter.name), !stack.canRedo());
    }
    report.digestAfterEdits = sceneDigest(model);

    recording.setPhase(QStringLiteral("undo to the start"));
    int step = stack.size();
    std::for_each(starts.rbegin(), starts.rend(), [&](const Start& start) {
        for (; step > start.step && stack.canUndo(); --step) {
            report.history.emplace_back(*stack.currentCommand());
            stack.undo();
        }
        report.check(QStringLiteral("%1: undo gives back the scene from before it").arg(start.chapter),
                     sceneDigest(model) == start.digest);
    });
    std::reverse(report.history.begin(), report.history.end());
    report.digestAfterUndoAll = sceneDigest(model);

    recording.setPhase(QStringLiteral("redo to the end"));
    while (stack.canRedo())
        stack.redo();
    report.digestAfterRedoAll = sceneDigest(model);

    report.check(QStringLiteral("the edits changed the scene"), report.digestAfterEdits != report.digestAfterLoad);
    report.check(QStringLiteral("undo-all gives back the scene after load"),
                 report.digestAfterUndoAll == report.digestAfterLoad);
    report.check(QStringLiteral("redo-all gives back the scene after the edits"),
                 report.digestAfterRedoAll == report.digestAfterEdits);
    return report;
}
