#include "RandomModel.h"

#include "Player.h"
#include "Shadow.h"

#include <algorithm>
#include <numeric>

namespace {

bool matches(const std::string& actual, const std::string& expected)
{
    if (expected.empty() || expected.back() != '*') return actual == expected;
    return actual.compare(0, expected.size() - 1, expected, 0, expected.size() - 1) == 0;
}

std::string firstDifference(const std::vector<std::string>& actual, const std::vector<std::string>& expected)
{
    for (std::size_t i = 0; i < std::max(actual.size(), expected.size()); ++i) {
        const std::string is = i < actual.size() ? actual[i] : "nothing";
        const std::string shouldBe = i < expected.size() ? expected[i] : "nothing";
        if (!matches(is, shouldBe)) return "    expected: " + shouldBe + "\n    is:       " + is + '\n';
    }
    return {};
}

/// The library and its shadow, side by side.
class Pair
{
public:
    explicit Pair(Counts* counts) : m_counts(counts) {}

    /// Returns false if the two differ.
    bool play(const Operation& operation)
    {
        m_player.play(operation);
        m_shadow.play(operation);
        ++m_played;
        if (m_counts) ++(*m_counts)[nameOf(operation.kind)];
        std::string difference = firstDifference(m_player.takeTrace(), m_shadow.takeTrace());
        if (difference.empty()) difference = differenceOfStates(m_shadow.takeStepped());
        if (difference.empty()) return true;
        m_difference = "operation " + std::to_string(m_played) + " (" + nameOf(operation.kind) + "):\n" + difference;
        return false;
    }

    /// Undoes all, redoes all and goes to the mark on both stacks, then empties everything.
    bool walk()
    {
        for (unsigned stack = 0; stack < 2; ++stack) {
            if (!play({Operation::Undo, stack}) || !play({Operation::EndMacro, stack})) return false;
            if (!walkWhile(&Shadow::canUndo, {Operation::Undo, stack})) return false;
            if (!walkWhile(&Shadow::canRedo, {Operation::Redo, stack})) return false;
            if (!play({Operation::Reset, stack})) return false;
        }
        std::vector<std::size_t> samples(m_player.facts().samples.size());
        std::iota(samples.begin(), samples.end(), std::size_t(0));
        m_difference = differenceOfStates(samples);
        return m_difference.empty() && play({Operation::ClearAll});
    }

    std::string end()
    {
        if (m_difference.empty()) m_difference = m_player.finish();
        if (m_counts) {
            for (const auto& [event, count] : m_shadow.events())
                (*m_counts)[event] += count;
        }
        return m_difference;
    }

private:
    std::string differenceOfStates(const std::vector<std::size_t>& samples)
    {
        // The player first: it gives the shadow the facts about a sample's scene.
        const std::vector<std::string> actual = m_player.state(samples);
        return firstDifference(actual, m_shadow.state(samples));
    }

    bool walkWhile(bool (Shadow::*can)(unsigned) const, const Operation& operation)
    {
        while ((m_shadow.*can)(operation.stackType())) {
            if (!play(operation)) return false;
        }
        return true;
    }

    Player m_player;
    Shadow m_shadow{m_player.facts()};
    Counts* m_counts;
    int m_played = 0;
    std::string m_difference;
};

} // namespace

std::string differenceOf(const Program& program, Counts* counts)
{
    Pair pair(counts);
    // Switches recording on and makes something to edit, so that short programs have an effect.
    const Program start = {{Operation::BeginUndo}, {Operation::Create, 0, 0}, {Operation::Create, 0, 1}};
    const auto play = [&pair](const Operation& operation) { return pair.play(operation); };
    if (std::all_of(start.begin(), start.end(), play) && std::all_of(program.begin(), program.end(), play)) pair.walk();
    return pair.end();
}

Program shrunk(Program program, const std::function<bool(const Program&)>& isWrong)
{
    std::size_t part = std::max<std::size_t>(program.size() / 2, 1);
    while (true) {
        bool isShorter = false;
        for (std::size_t from = 0; from < program.size();) {
            Program shorter = program;
            const auto first = shorter.begin() + static_cast<std::ptrdiff_t>(from);
            shorter.erase(first, first + static_cast<std::ptrdiff_t>(std::min(part, program.size() - from)));
            if (isWrong(shorter)) {
                program = std::move(shorter);
                isShorter = true;
            } else {
                from += part;
            }
        }
        if (part == 1 && !isShorter) return program;
        if (!isShorter) part = std::max<std::size_t>(part / 2, 1);
    }
}

std::string reportOf(const Program& program, const std::string& name)
{
    const Program smallest = shrunk(program, [](const Program& shorter) { return !differenceOf(shorter).empty(); });
    return differenceOf(smallest) + asCode(smallest, name);
}
