#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

/// An operation of an application, a user or a listener, as plain numbers. Each number is brought into range where it
/// is used: any numbers make a valid operation, and any part of a program is a program.
struct Operation
{
    enum Kind : unsigned
    {
        Rename,     ///< a command over moFunctionUndoCommand, on a node's name
        Number,     ///< moFieldUndoCommand<int>
        MakeNumber, ///< the same through moUndoUtil::makeCommand(), always on the default stack
        Text,       ///< moStringFieldUndoCommand: merges by value
        Switch,     ///< moBoolFieldUndoCommand: never merges
        Tally,      ///< moGenericFunctionUndoCommand
        Group,      ///< a moMultiCommand made by hand, with an after function
        Sample,     ///< any concrete command class, on a scene of its own
        Undo,
        Redo,
        Mark,
        Reset,
        Begin,
        End,
        BeginMacro,
        EndMacro,
        BeginUndo,
        EndUndo,
        BeginBlock,
        EndBlock,
        Clear,
        ClearAll,
        Wait,
        Destroy,
        Create,
        Messages, ///< the message callback on or off
        Respond,  ///< a slot answers the next signal with a call of the stack
        UndoAll,  ///< calls undo() in a loop, as long as canUndo()
        Cancel,
        SetClean,
        ResetClean,
        Limit
    };
    static constexpr unsigned kindCount = Limit + 1;
    static constexpr unsigned slotCount = 3; ///< without one more, which is always empty

    Kind kind;
    unsigned stack = 0;
    unsigned which = 0;
    unsigned how = 0;

    unsigned stackType() const { return stack % 2; }
    unsigned slot() const { return which % slotCount; }
    unsigned slotOrNone() const { return which % (slotCount + 1); }

    // Read from `how`, for commands that are pushed.
    std::string value() const;
    double interval() const;
    bool hasInterval() const;
    bool mergeEnabled() const { return how / 25 % 4 != 3; }
    bool isExecuted() const { return how / 100 % 4 != 0; } ///< addOrExecute(), else add()
    bool hasChangedCallback() const { return how / 400 % 2 != 0; }

    // Read from `which` and `how`, for other operations.
    bool hasText() const { return which % 2 != 0; }
    bool hasDescription() const { return which / 2 % 2 != 0; }
    bool composesMergeably() const { return how % 4 != 0; }
    unsigned limit() const { return which % 4 * 2; }
    unsigned ticks() const;
    Operation response() const;
};

using Program = std::vector<Operation>;

const char* nameOf(Operation::Kind kind);

/// The code of a test that plays the program, to be pasted into RandomModelTest.cpp.
std::string asCode(const Program& program, const std::string& name);

/// Random operations, always the same ones for a seed. What is opened is mostly closed again soon.
class Generator
{
public:
    explicit Generator(std::uint64_t seed) : m_state(seed) {}

    Operation next();
    Program program(unsigned length);

private:
    unsigned below(unsigned limit);
    void drag(Program& program);
    void repeatComposition(Program& program);
    Operation::Kind kind();

    std::uint64_t m_state;
    std::array<unsigned, 4> m_open{}; // compositions, macros, blocks, missing beginUndo()
};

/// Four bytes make one operation.
Program programOfBytes(const std::uint8_t* bytes, std::size_t size);
