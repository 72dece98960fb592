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

/// The highest ratio of our cost to the bare side's that is allowed, and the one that we would like. 0: no target.
struct Target
{
    double hard = 0.0;
    double wished = 0.0;
};

struct Comparison
{
    /// Path-like, e.g. "undo/callback". Filters are matched against the name and the steps.
    std::string name;
    /// Numbers of operations to measure with; counting of instructions and allocations uses the first only.
    std::vector<int> steps;
    MakeWork ours;
    MakeWork bare;
    Target target;
    /// Whether ours must not allocate.
    bool allocationFree = false;
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
/// The cases whose "name/steps" a regular expression matches somewhere; all if it is empty. Throws std::runtime_error if
/// there is none.
std::vector<Case> casesMatching(const std::string& filter);
/// The same, each comparison only with its first number of steps.
std::vector<Case> shortCasesMatching(const std::string& filter);

} // namespace bench
