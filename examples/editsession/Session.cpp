#include <editsession/Session.h>

#include <scene/Interrupt.h>
#include <scene/ModelLoader.h>
#include <scene/SceneDigest.h>

#include <moUndoStack/core/moUndoStack.h>

#include <QUndoCommand>

#include <algorithm>

namespace {

/// While it exists, recording is on and all messages of the default stack are written to the report. Its destructor
/// clears the stack, because the commands hold parts of the scene.
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

    // Static, because the callback is a plain function and has no object.
    static inline Report* s_report = nullptr;
    static inline QString s_phase;
};

/// Where a chapter began.
struct Start
{
    const char* chapter;
    int step;
    SceneState scene;
};

class Session
{
public:
    Session(Model& model, const std::vector<Chapter>& chapters, Progress& progress, Report& report)
        : m_model(model), m_chapters(chapters), m_progress(progress), m_report(report)
    {
    }

    void run()
    {
        try {
            edit();
            goBack();
            goForward();
        } catch (const Interrupted&) {
            m_report.interruptedIn = m_progress.phase();
            moUndoStack::get().setMessageCallback(nullptr);
            while (m_stack.canUndo())
                undo();
        }
        // goBack() wrote it from the last step to the first.
        std::reverse(m_report.history.begin(), m_report.history.end());
    }

private:
    void begin(const QString& phase, const QString& title)
    {
        m_recording.setPhase(phase);
        m_progress.begin(title);
    }
    void begin(const QString& phase) { begin(phase, phase); }

    void edit()
    {
        begin(QStringLiteral("prepare"));
        for (const Chapter& chapter : m_chapters) {
            m_progress.step(chapter.name);
            if (chapter.prepare) chapter.prepare(m_model);
        }
        m_loaded = m_scene.readAll();
        m_report.digestAfterLoad = m_loaded.digest;

        Context context{m_model, m_stack, m_report, m_scene, m_progress};
        int number = 0;
        for (const Chapter& chapter : m_chapters) {
            const QString name = QString::fromLatin1(chapter.name);
            begin(name, QStringLiteral("%1 (%2 of %3)").arg(name).arg(++number).arg(m_chapters.size()));
            m_starts.push_back({chapter.name, m_stack.size(), m_scene.state()});
            m_progress.step("editing");
            chapter.run(context);
            m_report.check(QStringLiteral("%1: recorded all of its edits").arg(chapter.name), !m_stack.canRedo());
        }
        m_edited = m_scene.readAll();
        m_report.digestAfterEdits = m_edited.digest;
    }

    void goBack()
    {
        begin(QStringLiteral("undo to the start"));
        const int steps = m_stack.size();
        int step = steps;
        std::for_each(m_starts.rbegin(), m_starts.rend(), [&](const Start& start) {
            for (; step > start.step && m_stack.canUndo(); --step) {
                m_progress.step("undoing", static_cast<std::size_t>(steps - step), static_cast<std::size_t>(steps));
                undo();
            }
            m_scene.state();
            check(QStringLiteral("%1: undo gives back the scene from before it").arg(start.chapter), start.scene);
        });
        m_wentBack = true;
        m_report.digestAfterUndoAll = m_scene.readAll().digest;
        m_undone = m_scene.compareWith(m_loaded);
    }

    void goForward()
    {
        begin(QStringLiteral("redo to the end"));
        const int steps = m_stack.size();
        for (int step = 0; m_stack.canRedo(); ++step) {
            m_progress.step("redoing", static_cast<std::size_t>(step), static_cast<std::size_t>(steps));
            m_stack.redo();
        }
        m_report.digestAfterRedoAll = m_scene.readAll().digest;

        m_report.check(QStringLiteral("the edits changed the scene"),
                       m_report.digestAfterEdits != m_report.digestAfterLoad);
        m_report.check(QStringLiteral("undo-all gives back the scene after load"), m_undone.same, m_undone.rounded);
        check(QStringLiteral("redo-all gives back the scene after the edits"), m_edited);
    }

    void undo()
    {
        if (!m_wentBack) m_report.history.emplace_back(*m_stack.currentCommand());
        m_stack.undo();
    }

    /// Adds a check to the report: the scene is the same as then, up to rounding.
    void check(const QString& what, const SceneState& then)
    {
        const SceneComparison comparison = m_scene.compareWith(then);
        m_report.check(what, comparison.same, comparison.rounded);
    }

    Model& m_model;
    const std::vector<Chapter>& m_chapters;
    Progress& m_progress;
    Report& m_report;
    moUndoStack& m_stack = moUndoStack::get();
    Recording m_recording{m_report};
    SceneWatch m_scene{m_model,
                       [this](std::size_t seen, std::size_t all) { m_progress.step("reading the scene", seen, all); }};
    std::vector<Start> m_starts;
    SceneState m_loaded;
    SceneState m_edited;
    SceneComparison m_undone;
    bool m_wentBack = false; ///< the report has the whole history
};

} // namespace

Report runSession(Model& model, const std::vector<Chapter>& chapters, Progress& progress)
{
    Report report;
    report.nodeCount = model.nodes.size();
    report.lightCount = model.lights.size();
    report.materialCount = model.materials.size();
    Session(model, chapters, progress, report).run();
    return report;
}

Report runSession(Model& model, const std::vector<Chapter>& chapters)
{
    Progress silent;
    return runSession(model, chapters, silent);
}
