#include "Monkey.h"

#include <scene/SceneDigest.h>

#include <QtCore/QElapsedTimer>

#include <iostream>

namespace {

constexpr int eventsByDefault = 800;

/// The scene as it was when the history was empty.
class Origin
{
public:
    explicit Origin(EditorSession& session) : m_session(session)
    {
        QObject::connect(&session, &EditorSession::sceneLoaded, &m_lifetime, [this] { begin(); });
        QObject::connect(&session.edits(), &moUndoStack::cleared, &m_lifetime,
                         [this] { m_state = m_watch->readAll(); });
        begin();
    }

    SceneState now() { return m_watch->readAll(); }
    bool isAt(const SceneState& state)
    {
        m_watch->readAll();
        return m_watch->compareWith(state).same;
    }
    const SceneState& state() const { return m_state; }

private:
    void begin()
    {
        m_watch.reset();
        m_watch = std::make_unique<SceneWatch>(m_session.model());
        m_state = m_watch->readAll();
    }

    EditorSession& m_session;
    QObject m_lifetime;
    std::unique_ptr<SceneWatch> m_watch;
    SceneState m_state;
};

/// EDITOR_MONKEY_SECONDS lets it run that long, EDITOR_MONKEY_SEED makes it do other things.
class MonkeyTest : public EditorTest
{
protected:
    void let(Monkey::Manners manners)
    {
        const int seconds = qEnvironmentVariableIntValue("EDITOR_MONKEY_SECONDS");
        const int seed = qEnvironmentVariableIntValue("EDITOR_MONKEY_SEED");
        // Room for the docks beside the viewport.
        window->resize(1000, 700);
        Monkey monkey(session(), *window, clock, static_cast<unsigned int>(seed), manners);
        QElapsedTimer timer;
        timer.start();
        int done = 0;
        while (seconds > 0 ? timer.elapsed() < 1000LL * seconds : done < eventsByDefault) {
            monkey.act();
            ++done;
        }
        window->viewport().cancelDrag();
        RecordProperty("events", done);
        if (seconds > 0) std::cout << done << " events, seed " << seed << ", " << stack.size() << " steps left\n";
    }
};

TEST_F(MonkeyTest, WhateverAUserDoesUndoAllGivesTheLoadedSceneAndRedoAllTheEditedOne)
{
    Origin origin(session());
    int steps = 0;
    const auto counting = QObject::connect(&stack, &moUndoStack::redoPerformed,
                                           [&steps](const QUndoCommand*, bool added) { steps += added; });
    let(Monkey::Manners::EverythingIsRecorded);
    const SceneState edited = origin.now();
    const int index = stack.index();
    undoAll();
    EXPECT_TRUE(origin.isAt(origin.state()));
    while (stack.index() < index)
        stack.redo();
    EXPECT_TRUE(origin.isAt(edited));
    redoAll();
    undoAll();
    EXPECT_TRUE(origin.isAt(origin.state()));
    EXPECT_GT(steps, 10) << "the monkey did too little";
    QObject::disconnect(counting);
}

TEST_F(MonkeyTest, NothingCrashesWhenRecordingIsSwitchedOffAndOnInBetween)
{
    let(Monkey::Manners::Anything);
    undoAll();
    redoAll();
}

} // namespace
