#pragma once

#include "Operation.h"
#include "Shadow.h"

#include <support/FakeClock.h>
#include <support/OSGAllFields.h>
#include <support/SampleScene.h>

#include <moUndoStack/core/moUndoStack.h>
#include <moUtils/moLog.h>

#include <array>
#include <memory>
#include <string>
#include <vector>

class moUndoCommandBase;
class moUndoString;

/// Plays operations with the library itself, on a scene of its own, and listens. Destroys what it has made.
class Player
{
public:
    Player();
    ~Player();
    Player(const Player&) = delete;
    Player& operator=(const Player&) = delete;

    void play(const Operation& operation);

    /// The lines of Shadow::state(), read from the library and the scene.
    std::vector<std::string> state(const std::vector<std::size_t>& samples);
    std::vector<std::string> takeTrace() { return std::exchange(m_trace, {}); }

    const Facts& facts() const { return m_facts; }

    /// Empties everything. Returns what is wrong then; empty if nothing is.
    std::string finish();

private:
    struct Thing
    {
        osg::NodePtr node;
        osg::AllSingleFieldsPtr core;
    };

    void tell(const std::string& line) { m_trace.push_back(line); }
    void listen(unsigned stack);
    void signal(unsigned stack, const std::string& line);
    template<unsigned stack>
    static bool receive(const char* name, moMessage& message, int number);
    static void receiveQt(QtMsgType type, const QMessageLogContext& context, const QString& line);

    void push(const Operation& operation);
    moUndoCommandBase* make(const Operation& operation);
    moUndoCommandBase* makeTally(unsigned number, QUndoCommand* parent);
    void pushSample(const Operation& operation);
    moUndoString text(const std::string& what);
    void adjust(moUndoCommandBase& command, const Operation& operation);
    void handIn(moUndoCommandBase* command, const Operation& operation);
    void begin(const Operation& operation);
    void create(unsigned slot);
    void destroy(unsigned slot);
    void toggleMessages(unsigned stack);
    void leaveRecording() const;

    static Player* s_player;

    FakeClock m_clock;
    moLog::Listener m_logBefore;
    QtMessageHandler m_qtBefore;
    Facts m_facts;
    std::array<bool, 2> m_messages = {true, true};
    std::array<std::vector<Operation>, 2> m_responses;
    QObject m_context;
    std::array<Thing, Operation::slotCount + 1> m_things; // the last one is always empty
    std::vector<osg::UInt32> m_ids;
    std::vector<std::unique_ptr<SampleScene>> m_scenes; // one for each sample
    std::map<unsigned, int> m_tally;
    std::shared_ptr<int> m_alive = std::make_shared<int>(0); // shared by all function commands: counts them
    std::vector<std::string> m_trace;
    std::size_t m_containersBefore;
    int m_made = 0;
    bool m_hasOrphans = false;
};
