#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

/// Comparisons of this library with a bare QUndoStack that makes the very same edits.
///
/// A file of this folder defines its comparisons in a static object:
///
///     const Comparisons s_comparisons([] {
///         compareCommands<OurShear, BareShear>("shear", {2.2, 1.6});    // Scenarios.h
///     });
namespace bench {

/// One side of a comparison. Each measurement makes a new one and runs it once; only run() is measured.
class Work
{
public:
    Work() = default;
    Work(const Work&) = delete;
    Work& operator=(const Work&) = delete;
    virtual ~Work() = default;

    /// Does as many operations as the object was made for.
    virtual void run() = 0;
};

using MakeWork = std::function<std::unique_ptr<Work>(int steps)>;

/// What our cost is judged by: its ratio to the bare side's, or itself. At most the first number, better the second.
struct Target
{
    enum Of
    {
        Nothing,
        Ratio,
        Ours
    };

    Target() = default;
    Target(double hardest, double wish, Of judged = Ratio) : hard(hardest), wished(wish), of(judged) {}

    double hard = 0.0;
    double wished = 0.0;
    Of of = Nothing;
};

struct Comparison
{
    /// Path-like, e.g. "undo/callback". Filters are matched against the name and the steps.
    std::string name;
    /// Numbers of operations to measure with.
    std::vector<int> steps;
    MakeWork ours;
    MakeWork bare;
    /// Of time, in nanoseconds, and of instructions.
    Target target{};
    /// Of the allocations and the bytes of one operation.
    Target allocations{};
    Target bytes{};
    /// Steps that stand before the first operation.
    int before = 0;
    /// Whether time is measured only: a window's instructions and memory are those of Qt.
    bool timeOnly = false;
};

/// Comparisons in the order in which they were added.
std::vector<Comparison>& comparisons();

class Comparisons
{
public:
    explicit Comparisons(void (*define)()) { define(); }
};

/// A comparison with one of its numbers of steps.
struct Case
{
    const Comparison* comparison;
    int steps;

    std::string name() const { return comparison->name + '/' + std::to_string(steps); }
};

/// The cases whose "name/steps" a regular expression matches somewhere; all if it is empty.
std::vector<Case> casesMatching(const std::string& filter);
/// Those to count instructions of: each comparison with its first number of steps and, if its growth up to a million is
/// measured, with the largest that callgrind runs in seconds.
std::vector<Case> countedCasesMatching(const std::string& filter);
/// Those to count memory of: each comparison with its first number of steps.
std::vector<Case> memoryCasesMatching(const std::string& filter);

} // namespace bench
