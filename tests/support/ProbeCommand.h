#pragma once

#include <moUndoStack/core/moUndoCommand.h>

#include <functional>
#include <string>
#include <vector>

/// A command whose steps a test supplies. It counts its instances, so that a test sees how many were deleted.
class ProbeCommand : public moUndoCommand
{
public:
    explicit ProbeCommand(const std::string& text, QUndoCommand* parent = nullptr);
    ~ProbeCommand() override;

    void undo() override;
    void redo() override;
    int id() const override { return m_id; }
    bool mergeWith(const QUndoCommand* other) override;

    /// Each returns this command, so that a test builds one in one expression.
    ProbeCommand* withId(int id);
    ProbeCommand* onRedo(std::function<void()> function);
    ProbeCommand* onUndo(std::function<void()> function);
    ProbeCommand* onMerge(std::function<bool(const QUndoCommand*)> function);
    ProbeCommand* onDestroyed(std::function<void()> function);
    /// Adds "redo text" and "undo text" to a log at each step.
    ProbeCommand* loggingTo(std::vector<std::string>& log);

    using moUndoCommand::adoptCreationTime;
    using moUndoCommand::creationTime;

    static int liveCount();

private:
    std::string m_name;
    int m_id = -1;
    std::vector<std::string>* m_log = nullptr;
    std::function<void()> m_redo;
    std::function<void()> m_undo;
    std::function<bool(const QUndoCommand*)> m_merge;
    std::function<void()> m_destroyed;
};
