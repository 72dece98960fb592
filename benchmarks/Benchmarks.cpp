// Measures the comparisons: how long both sides take or, with --instructions=FILE under callgrind, how many
// instructions they execute. FILE is callgrind's --callgrind-out-file, from whose parts the counts are read.

#include <Compare.h>
#include <Report.h>

#include <OpenSG/OSGBaseFunctions.h>

#include <QtCore/QCoreApplication>

#include <benchmark/benchmark.h>
#include <valgrind/callgrind.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <map>
#include <string>
#include <vector>

namespace {

using namespace bench;

// Many short repetitions of all cases in random order: what else the machine does meets all of them alike.
constexpr const char* defaultArguments[] = {"--benchmark_repetitions=15", "--benchmark_min_time=0.01",
                                            "--benchmark_enable_random_interleaving=true"};

const char* const sides[] = {"/ours", "/bare"};

const MakeWork& makerOf(const Comparison& comparison, const std::string& side)
{
    return side == sides[0] ? comparison.ours : comparison.bare;
}

void measure(benchmark::State& state, const MakeWork& make, int steps)
{
    using Clock = std::chrono::steady_clock;
    for ([[maybe_unused]] auto iteration : state) {
        const std::unique_ptr<Work> work = make(steps);
        const Clock::time_point start = Clock::now();
        work->run();
        state.SetIterationTime(std::chrono::duration<double>(Clock::now() - start).count());
    }
}

/// Keeps every repetition's time per run.
class Collector : public benchmark::BenchmarkReporter
{
public:
    bool ReportContext(const Context&) override { return true; }
    void ReportRuns(const std::vector<Run>& runs) override
    {
        for (const Run& run : runs) {
            if (run.run_type == Run::RT_Iteration)
                m_times[run.run_name.function_name].push_back(run.GetAdjustedRealTime());
        }
    }

    /// Nanoseconds per run at a fraction of the sorted repetitions: 0.5 is the median.
    double quantile(const std::string& name, double fraction)
    {
        std::vector<double>& times = m_times[name];
        std::sort(times.begin(), times.end());
        return times[static_cast<std::size_t>(fraction * static_cast<double>(times.size() - 1))];
    }
    double spread(const std::string& name)
    {
        return (quantile(name, 0.75) - quantile(name, 0.25)) / quantile(name, 0.5);
    }

private:
    std::map<std::string, std::vector<double>> m_times;
};

int compareTimes(int argc, char** argv, const std::vector<Case>& cases)
{
    std::vector<char*> arguments{argv[0]};
    for (const char* argument : defaultArguments)
        arguments.push_back(const_cast<char*>(argument));
    arguments.insert(arguments.end(), argv + 1, argv + argc);
    int count = static_cast<int>(arguments.size());
    benchmark::Initialize(&count, arguments.data());
    if (benchmark::ReportUnrecognizedArguments(count, arguments.data())) return EXIT_FAILURE;

    for (const Case& measured : cases) {
        for (const std::string side : sides) {
            const MakeWork& make = makerOf(*measured.comparison, side);
            const int steps = measured.steps;
            benchmark::RegisterBenchmark((measured.name() + side).c_str(), [&make, steps](benchmark::State& state) {
                measure(state, make, steps);
            })->UseManualTime();
        }
    }
    std::fprintf(stderr, "measuring %zu cases, two sides each ...\n", cases.size());
    Collector collector;
    benchmark::RunSpecifiedBenchmarks(&collector);

    std::vector<Row> rows;
    for (const Case& measured : cases) {
        const std::string ours = measured.name() + sides[0];
        const std::string bare = measured.name() + sides[1];
        rows.push_back({measured, collector.quantile(ours, 0.5) / measured.steps,
                        collector.quantile(bare, 0.5) / measured.steps,
                        std::max(collector.spread(ours), collector.spread(bare))});
    }
    printTable(rows, "ns");
    printGrowth(rows);
    return EXIT_SUCCESS;
}

/// The total of a part that callgrind has written; 0 if there is none.
double instructionsIn(const std::string& file)
{
    std::ifstream part(file);
    std::string word;
    double total = 0.0;
    while (part >> word) {
        if (word == "totals:") part >> total;
    }
    return total;
}

double countInstructions(const MakeWork& make, int steps, const std::string& file)
{
    static int s_part = 0;
    // What happens only the first time is no cost of a step: a first run pays for it.
    make(steps)->run();
    const std::unique_ptr<Work> work = make(steps);
    CALLGRIND_ZERO_STATS;
    CALLGRIND_TOGGLE_COLLECT;
    work->run();
    CALLGRIND_TOGGLE_COLLECT;
    CALLGRIND_DUMP_STATS;
    return instructionsIn(file + '.' + std::to_string(++s_part)) / steps;
}

int compareInstructions(const std::string& file, const std::vector<Case>& cases)
{
    std::vector<Row> rows;
    for (const Case& counted : cases) {
        const double ours = countInstructions(counted.comparison->ours, counted.steps, file);
        const double bare = countInstructions(counted.comparison->bare, counted.steps, file);
        if (ours <= 0.0 || bare <= 0.0) {
            std::fprintf(stderr, "nothing was counted: run this under valgrind --tool=callgrind\n");
            return EXIT_FAILURE;
        }
        rows.push_back({counted, ours, bare});
    }
    printTable(rows, "instr");
    return EXIT_SUCCESS;
}

/// Takes "option=value" out of the arguments.
std::string takeOption(int& argc, char** argv, const std::string& option)
{
    const std::string start = option + '=';
    std::string value;
    char** const end = std::remove_if(argv + 1, argv + argc, [&](const char* argument) {
        const bool found = std::string(argument).compare(0, start.size(), start) == 0;
        if (found) value = argument + start.size();
        return found;
    });
    argc = static_cast<int>(end - argv);
    return value;
}

} // namespace

int main(int argc, char** argv)
{
    const std::string filter = takeOption(argc, argv, "--filter");
    const std::string instructions = takeOption(argc, argv, "--instructions");
    QCoreApplication application(argc, argv);
    osg::osgInit(argc, argv);

    const std::vector<Case> cases = instructions.empty() ? casesMatching(filter) : shortCasesMatching(filter);
    if (cases.empty()) {
        std::fprintf(stderr, "no case matches \"%s\"\n", filter.c_str());
        return EXIT_FAILURE;
    }
    return instructions.empty() ? compareTimes(argc, argv, cases) : compareInstructions(instructions, cases);
}
