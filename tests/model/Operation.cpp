#include "Operation.h"

#include <algorithm>
#include <iterator>
#include <limits>
#include <sstream>

namespace {

struct KindRow
{
    const char* name;
    unsigned weight;
};

// clang-format off
constexpr std::array<KindRow, Operation::kindCount> kinds = {{
    {"Rename", 70},     {"Number", 70},     {"MakeNumber", 25}, {"Text", 70},      {"Switch", 30},    {"Tally", 30},
    {"Group", 20},      {"Sample", 30},     {"Undo", 150},      {"Redo", 90},      {"Mark", 15},      {"Reset", 25},
    {"Begin", 45},      {"End", 12},        {"BeginMacro", 12}, {"EndMacro", 10},  {"BeginUndo", 14}, {"EndUndo", 14},
    {"BeginBlock", 12}, {"EndBlock", 10},   {"Clear", 10},       {"ClearAll", 5},   {"Wait", 50},      {"Destroy", 12},
    {"Create", 30},     {"Messages", 14},   {"Respond", 25},   {"UndoAll", 14},
    {"Cancel", 14},      {"SetClean", 20},   {"ResetClean", 14},  {"Limit", 8},
}};
// clang-format on

constexpr unsigned totalWeight()
{
    unsigned sum = 0;
    for (const KindRow& row : kinds)
        sum += row.weight;
    return sum;
}

/// An operation that opens something, and the one that closes it.
struct Bracket
{
    Operation::Kind open;
    Operation::Kind close;
    unsigned oneIn; ///< each operation closes it with a chance of 1 in this
};

constexpr std::array<Bracket, 4> brackets = {{
    {Operation::Begin, Operation::End, 4},
    {Operation::BeginMacro, Operation::EndMacro, 5},
    {Operation::BeginBlock, Operation::EndBlock, 4},
    {Operation::EndUndo, Operation::BeginUndo, 4},
}};

} // namespace

std::string Operation::value() const
{
    static const std::array<const char*, 5> s_values = {"0", "1", "2", "3", "4"};
    return s_values[how % s_values.size()];
}

double Operation::interval() const
{
    static const std::array<double, 5> s_intervals = {0.0, 0.25, -1.0, std::numeric_limits<double>::quiet_NaN(), 0.5};
    return s_intervals[how / 5 % s_intervals.size()];
}

bool Operation::hasInterval() const
{
    return how / 25 % 2 != 0;
}

unsigned Operation::ticks() const
{
    // Of 1/64 s each: around the intervals of 0.25, 0.4 and 0.5 s, and exactly 0.25 and 0.5 s.
    static const std::array<unsigned, 8> s_ticks = {1, 8, 15, 16, 25, 26, 32, 64};
    return s_ticks[which % s_ticks.size()];
}

Operation Operation::response() const
{
    static const std::array<Kind, 8> s_kinds = {Undo, Redo, Reset, Mark, Clear, Tally, Number, UndoAll};
    return {s_kinds[which % s_kinds.size()], stack, which / 8, how};
}

const char* nameOf(Operation::Kind kind)
{
    return kinds[kind].name;
}

std::string asCode(const Program& program, const std::string& name)
{
    std::ostringstream out;
    out << "TEST(RandomModelCase, " << name << ")\n{\n    EXPECT_EQ(differenceOf({\n";
    for (const Operation& operation : program) {
        out << "        {Operation::" << nameOf(operation.kind) << ", " << operation.stack << ", " << operation.which
            << ", " << operation.how << "},\n";
    }
    out << "    }), \"\");\n}\n";
    return out.str();
}

/// SplitMix64: the same numbers with every standard library.
unsigned Generator::below(unsigned limit)
{
    m_state += 0x9e3779b97f4a7c15U;
    std::uint64_t mixed = m_state;
    mixed = (mixed ^ (mixed >> 30)) * 0xbf58476d1ce4e5b9U;
    mixed = (mixed ^ (mixed >> 27)) * 0x94d049bb133111ebU;
    return static_cast<unsigned>((mixed ^ (mixed >> 31)) % limit);
}

Operation::Kind Generator::kind()
{
    for (std::size_t i = 0; i < brackets.size(); ++i) {
        if (m_open[i] == 0 || below(brackets[i].oneIn) != 0) continue;
        --m_open[i];
        return brackets[i].close;
    }
    unsigned chosen = below(totalWeight());
    unsigned index = 0;
    while (chosen >= kinds[index].weight)
        chosen -= kinds[index++].weight;
    const auto kind = static_cast<Operation::Kind>(index);
    for (std::size_t i = 0; i < brackets.size(); ++i)
        m_open[i] += kind == brackets[i].open ? 1U : 0U;
    return kind;
}

Operation Generator::next()
{
    // Mostly the default stack and the first slot, so that commands of one target follow each other.
    const Operation::Kind made = kind();
    const unsigned stack = below(8) == 0 ? 1 : 0;
    const unsigned which = below(3) == 0 ? below(64) : below(2) * 8;
    return {made, stack, which, below(800)};
}

Program Generator::program(unsigned length)
{
    Program made;
    while (made.size() < length) {
        made.push_back(next());
        if (made.back().kind == Operation::End && below(2) == 0) repeatComposition(made);
        // A limit is taken only where there is no step.
        if (made.back().kind == Operation::Clear) made.push_back({Operation::Limit, made.back().stack, below(4)});
        if (made.back().kind <= Operation::Text && below(8) == 0) drag(made);
    }
    made.resize(length);
    return made;
}

/// Repeats a command, sometimes after a pause that is too long for a merge, or from a state that was saved.
void Generator::drag(Program& program)
{
    const Operation step = program.back();
    for (unsigned i = 2 + below(4); i > 0; --i) {
        program.push_back({Operation::Wait, 0, below(8)});
        if (below(8) == 0) program.push_back({Operation::SetClean, step.stack});
        program.push_back(step);
    }
}

/// Repeats a composition: composites merge only if their children can, and chance seldom makes two such.
void Generator::repeatComposition(Program& program)
{
    constexpr std::ptrdiff_t longest = 8;
    const auto isBegin = [](const Operation& operation) { return operation.kind == Operation::Begin; };
    const auto found = std::find_if(program.rbegin(), program.rend(), isBegin);
    const std::ptrdiff_t length = std::distance(program.rbegin(), found) + 1;
    if (found == program.rend() || length > longest) return;
    const Program repeated(program.end() - length, program.end());
    program.insert(program.end(), repeated.begin(), repeated.end());
}

Program programOfBytes(const std::uint8_t* bytes, std::size_t size)
{
    Program made;
    for (std::size_t i = 0; i + 4 <= size; i += 4) {
        made.push_back({static_cast<Operation::Kind>(bytes[i] % Operation::kindCount), bytes[i + 1] % 2U,
                        bytes[i + 1] / 2U % 64U, (bytes[i + 2] * 256U + bytes[i + 3]) % 800U});
    }
    return made;
}
