#pragma once

#include "Operation.h"

#include <array>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

/// What the shadow cannot know: ids and names that the library and the scene give.
struct Facts
{
    struct Thing
    {
        unsigned node = 0;
        unsigned core = 0;
    };
    struct SampleFacts
    {
        int id = 0;
        bool isComposite = false;
        std::string keys;                ///< the first key that it adds to a message
        std::vector<std::string> before; ///< digest of its scene before the first step
        std::vector<std::string> after;  ///< digest after it; empty until the step was run
    };

    int renameId = 0;
    int numberId = 0;
    int textId = 0;
    int switchId = 0;
    int compositeId = 0;
    unsigned numberField = 0;
    unsigned textField = 0;
    unsigned switchField = 0;

    std::array<Thing, Operation::slotCount> things; ///< of the Create that is played
    std::deque<SampleFacts> samples;                ///< one for each Sample played that made a command
};

/// The rules of both stacks once more, in the simplest form: values in maps, steps in vectors. Uses neither the library
/// nor Qt.
class Shadow
{
public:
    explicit Shadow(const Facts& facts) : m_facts(facts) {}

    void play(const Operation& operation);

    /// All that queries return and the scene holds, one line each; of the samples only those given.
    std::vector<std::string> state(const std::vector<std::size_t>& samples) const;

    /// The samples that had a step since the last call.
    std::vector<std::size_t> takeStepped() { return std::exchange(m_stepped, {}); }

    /// What listeners got since the last call, in order. An asterisk at the end of a line matches any text.
    std::vector<std::string> takeTrace();

    /// How often each noteworthy event happened.
    const std::map<std::string, int>& events() const { return m_events; }

    /// For undoing and redoing the whole history.
    bool canUndo(unsigned stack) const { return !inMacro(stack) && m_stacks[stack].index > 0; }
    bool canRedo(unsigned stack) const
    {
        return !inMacro(stack) && m_stacks[stack].index < m_stacks[stack].steps.size();
    }

private:
    enum class Kind
    {
        Swap, ///< exchanges the value in the scene with the command's
        Text,
        Tally,
        Sample,
        Composite,
        Macro
    };

    struct Command;
    using Commands = std::vector<std::shared_ptr<Command>>;

    struct Command
    {
        Kind kind = Kind::Swap;
        int id = -1;
        std::string text;
        std::string description;
        double made = 0;
        double interval = 0.4;
        bool mergeEnabled = true;
        std::string field;
        unsigned target = 0;
        unsigned fieldId = 0;
        std::string value; ///< what the next step writes; of a Text, the newer one
        std::string old;   ///< of a Text
        unsigned number = 0;
        bool hasAfter = false;
        bool cancelled = false;
        std::string changed;
        Commands children;

        /// The first child that was not cancelled; null if there is none.
        const Command* first() const;
    };
    using CommandPtr = std::shared_ptr<Command>;

    struct Stack
    {
        Commands steps;
        std::size_t index = 0;
        std::size_t mark = 0;
        long clean = 0;
        std::size_t limit = 0;
        Commands macros;
        bool messages = true;
        std::deque<Operation> responses;
        bool busy = false;
        std::deque<std::function<void()>> waiting;
    };

    struct Composition
    {
        CommandPtr composite;
        unsigned stack;
        bool hasParent;
    };

    using Fields = std::map<std::string, std::string>;

    bool recording() const { return m_enabled > 0 && m_blocked == 0; }
    bool inMacro(unsigned stack) const { return !m_stacks[stack].macros.empty(); }
    void tell(const std::string& line) { m_trace.push_back(line); }
    void happened(const std::string& event) { ++m_events[event]; }

    CommandPtr make(Kind kind, int id, const std::string& what);
    CommandPtr makeSwap(const std::string& field, int id, unsigned fieldId, unsigned target, const std::string& value);
    CommandPtr makeFor(const Operation& operation);
    void adjust(Command& command, const Operation& operation);
    /// Makes it a child of the composition, if there is one and recording is on; else gives it to the stack.
    void handIn(const CommandPtr& command, unsigned stack, bool execute);

    void begin(const Operation& operation);
    bool mayEnd(unsigned stack, const std::string& call);
    void end(unsigned stack);
    void cancel(unsigned stack);
    static void removeChanged(Command& command);
    void purge(unsigned stack);
    void keepLimit(unsigned stack);
    void clear(unsigned stack);
    void jump(unsigned stack, std::size_t index);
    void undoAll(unsigned stack);
    void endMacro(unsigned stack);
    void create(const Operation& operation);
    void destroy(const Operation& operation);

    template<class Call>
    void perform(unsigned stack, Call call);
    void push(unsigned stack, const CommandPtr& command);
    void runUnrecorded(unsigned stack, const CommandPtr& command);

    void redo(Command& command);
    void undo(Command& command);
    void step(Command& command, bool forward);
    void write(const Command& command, const std::string& value);

    static bool mayMerge(const Command& older, const Command& newer);
    static bool merge(Command& older, const Command& newer);

    void moveTo(unsigned stack, std::size_t index, bool added);
    void report(unsigned stack, const Command* command, bool forward, long index, bool added);
    void signal(unsigned stack, const std::string& line);
    bool isComposite(const Command& command) const;
    std::string keys(const Command& command) const;
    void callChanged(const Command& command, bool forward);

    static std::string tree(const Command& command);

    const Facts& m_facts;
    std::array<Stack, 2> m_stacks;
    std::vector<Composition> m_compositions;
    int m_enabled = 0;
    int m_blocked = 0;
    double m_now = 0;
    int m_made = 0;
    std::array<Facts::Thing, Operation::slotCount + 1> m_slots; ///< the last one is always empty
    std::map<unsigned, Fields> m_containers;
    std::map<unsigned, int> m_tally;
    std::vector<bool> m_samples; ///< whether each is done
    std::vector<std::size_t> m_stepped;
    std::vector<std::string> m_trace;
    std::map<std::string, int> m_events;
};
