// Measures the comparisons: how long both sides take or, with --instructions=FILE under callgrind, how many
// instructions they execute. FILE is callgrind's --callgrind-out-file, from whose parts the counts are read.
// Further options: --filter=REGEX, --memory=FILE with the rows that moAllocations wrote, --json=FILE for tools,
// --plot=FILE for a picture; with --instructions also --guard=FILE, and --renew=FILE.

#include <Compare.h>
#include <Guard.h>
#include <Report.h>

#include <OpenSG/OSGBaseFunctions.h>

#include <QtWidgets/QApplication>

#include <benchmark/benchmark.h>
#include <sys/wait.h>
#include <unistd.h>
#include <valgrind/callgrind.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <exception>
#include <fstream>
#include <map>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

using namespace bench;

// Many short repetitions of all cases in random order, so that other load of the machine affects all cases alike.
constexpr const char* defaultArguments[] = {"--benchmark_min_time=0.005",
                                            "--benchmark_enable_random_interleaving=true"};

/// Processor time of this thread, without the time in which it waits for its turn.
double secondsUsed()
{
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + 1e-9 * static_cast<double>(time.tv_nsec);
}

/// Whether a run takes so long that it is its own average, so that fewer repetitions do.
bool isLong(const Case& measured)
{
    constexpr int manySteps = 100000;
    return measured.steps + measured.comparison->before >= manySteps;
}

/// Time of an operation. Runs one side several times in a block, so that each side is measured with about the heap that
/// it makes for itself. One run before it is not measured.
double secondsFor(const MakeWork& make, const Case& measured)
{
    constexpr int stepsInABlock = 20000;
    constexpr double longestBlock = 0.1;
    const int most = std::max(1, stepsInABlock / (measured.steps + measured.comparison->before));
    make(measured.steps)->run();
    const double end = secondsUsed() + longestBlock;
    double seconds = 0.0;
    int runs = 0;
    do {
        const std::unique_ptr<Work> work = make(measured.steps);
        const double start = secondsUsed();
        work->run();
        seconds += secondsUsed() - start;
        ++runs;
    } while (runs < most && secondsUsed() < end);
    return seconds / runs / measured.steps;
}

/// Measures both sides in turn, so that a machine that is slow for a while is slow for both.
void measure(benchmark::State& state, const Case& measured)
{
    double ours = 0.0;
    double bare = 0.0;
    for ([[maybe_unused]] auto iteration : state) {
        const double start = secondsUsed();
        ours += secondsFor(measured.comparison->ours, measured);
        bare += secondsFor(measured.comparison->bare, measured);
        state.SetIterationTime(secondsUsed() - start);
    }
    const auto iterations = static_cast<double>(state.iterations());
    state.counters["ours"] = ours / iterations;
    state.counters["bare"] = bare / iterations;
}

double quantile(std::vector<double> values, double fraction)
{
    std::sort(values.begin(), values.end());
    return values[static_cast<std::size_t>(fraction * static_cast<double>(values.size() - 1))];
}

/// Keeps what each repetition measured.
class Collector : public benchmark::BenchmarkReporter
{
public:
    bool ReportContext(const Context&) override { return true; }
    void ReportRuns(const std::vector<Run>& runs) override
    {
        for (const Run& run : runs) {
            if (run.run_type != Run::RT_Iteration) continue;
            Repetitions& repetitions = m_repetitions[run.run_name.function_name];
            const double ours = run.counters.at("ours").value;
            const double bare = run.counters.at("bare").value;
            repetitions.ours.push_back(ours);
            repetitions.bare.push_back(bare);
            repetitions.ratio.push_back(ours / bare);
        }
    }

    /// Medians in nanoseconds.
    Row row(const Case& measured) const
    {
        constexpr double nanoseconds = 1e9;
        const Repetitions& found = m_repetitions.at(measured.name());
        const double spread = quantile(found.ratio, 0.75) - quantile(found.ratio, 0.25);
        const double ratio = quantile(found.ratio, 0.5);
        return {measured.comparison->name,
                measured.steps,
                "ns",
                quantile(found.ours, 0.5) * nanoseconds,
                quantile(found.bare, 0.5) * nanoseconds,
                ratio,
                spread / ratio,
                measured.comparison->target};
    }

private:
    struct Repetitions
    {
        std::vector<double> ours;
        std::vector<double> bare;
        std::vector<double> ratio;
    };

    std::map<std::string, Repetitions> m_repetitions;
};

/// Throws if Google Benchmark refuses an argument.
std::vector<Row> measureTimes(int argc, char** argv, const std::vector<Case>& cases)
{
    std::vector<char*> arguments{argv[0]};
    for (const char* argument : defaultArguments)
        arguments.push_back(const_cast<char*>(argument));
    arguments.insert(arguments.end(), argv + 1, argv + argc);
    int count = static_cast<int>(arguments.size());
    benchmark::Initialize(&count, arguments.data());
    if (benchmark::ReportUnrecognizedArguments(count, arguments.data())) throw std::runtime_error("unknown option");

    for (const Case& measured : cases) {
        benchmark::RegisterBenchmark(measured.name().c_str(),
                                     [&measured](benchmark::State& state) { measure(state, measured); })
            ->UseManualTime()
            ->Repetitions(isLong(measured) ? 7 : 21);
    }
    std::fprintf(stderr, "measuring %zu cases ...\n", cases.size());
    Collector collector;
    benchmark::RunSpecifiedBenchmarks(&collector);

    std::vector<Row> rows;
    rows.reserve(cases.size());
    for (const Case& measured : cases)
        rows.push_back(collector.row(measured));
    return rows;
}

/// The total of a part of callgrind's output; 0 if there is none.
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

void runCounted(const MakeWork& make, int steps)
{
    // Work that is done only the first time is no cost of a step, so the first runs are not measured.
    for (int i = 0; i < 3; ++i)
        make(steps)->run();
    const std::unique_ptr<Work> work = make(steps);
    CALLGRIND_ZERO_STATS;
    CALLGRIND_TOGGLE_COLLECT;
    work->run();
    CALLGRIND_TOGGLE_COLLECT;
    CALLGRIND_DUMP_STATS;
}

/// Counts in a child process: a heap that another case has left behind can make an allocation dearer by hundreds of
/// instructions.
double countInstructions(const MakeWork& make, int steps, const std::string& file)
{
    const std::string part = file + ".1";
    std::remove(part.c_str());
    const pid_t child = fork();
    if (child == 0) {
        runCounted(make, steps);
        _exit(EXIT_SUCCESS);
    }
    waitpid(child, nullptr, 0);
    return instructionsIn(part) / steps;
}

std::vector<Row> measureInstructions(const std::string& file, const std::vector<Case>& cases)
{
    std::vector<Row> rows;
    rows.reserve(cases.size()); // a list that grew meanwhile would leave another heap to each case
    for (const Case& counted : cases) {
        const double ours = countInstructions(counted.comparison->ours, counted.steps, file);
        const double bare = countInstructions(counted.comparison->bare, counted.steps, file);
        if (ours <= 0.0 || bare <= 0.0)
            throw std::runtime_error("nothing was counted: run this under valgrind --tool=callgrind");
        rows.push_back(countedRow(counted, "instr", ours, bare, counted.comparison->target));
    }
    return rows;
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

/// Files besides the terminal; empty: none.
struct Files
{
    std::string memory; ///< rows that were counted already
    std::string json;
    std::string plot;
};

int show(std::vector<Row> rows, const Files& files)
{
    if (!files.plot.empty()) writePlot(files.plot, rows);
    if (!files.memory.empty()) {
        const std::vector<Row> memory = readJson(files.memory);
        rows.insert(rows.end(), memory.begin(), memory.end());
    }
    std::printf("%s", table(rows).c_str());
    if (!files.json.empty()) writeJson(files.json, rows);
    return EXIT_SUCCESS;
}

/// Throws if there is none.
const std::vector<Case>& matched(const std::vector<Case>& cases)
{
    if (cases.empty()) throw std::runtime_error("no case matches that");
    return cases;
}

int guardInstructions(const std::string& counts, const std::string& file)
{
    const Guard guard(file);
    if (guard.keeps(measureInstructions(counts, guard.cases()))) return EXIT_SUCCESS;
    std::fprintf(stderr, "Steps have become dearer. If that is intended: scripts/bench --guard --renew\n");
    return EXIT_FAILURE;
}

int renewGuard(const std::string& counts, const std::string& file)
{
    const Guard guard(file);
    guard.renew(measureInstructions(counts, guard.cases()));
    return EXIT_SUCCESS;
}

/// Windows need no display here. Without them there is less on the heap, whose state a count depends on.
std::unique_ptr<QCoreApplication> makeApplication(int& argc, char** argv, bool withWindows)
{
    if (!withWindows) return std::make_unique<QCoreApplication>(argc, argv);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    return std::make_unique<QApplication>(argc, argv);
}

} // namespace

int main(int argc, char** argv)
{
    const std::string filter = takeOption(argc, argv, "--filter");
    const Files files{takeOption(argc, argv, "--memory"), takeOption(argc, argv, "--json"),
                      takeOption(argc, argv, "--plot")};
    const std::string counts = takeOption(argc, argv, "--instructions");
    const std::string guarded = takeOption(argc, argv, "--guard");
    const std::string renewed = takeOption(argc, argv, "--renew");
    const std::unique_ptr<QCoreApplication> application = makeApplication(argc, argv, counts.empty());
    osg::osgInit(argc, argv);

    try {
        if (!guarded.empty()) return guardInstructions(counts, guarded);
        if (!renewed.empty()) return renewGuard(counts, renewed);
        if (!counts.empty()) return show(measureInstructions(counts, matched(countedCasesMatching(filter))), files);
        return show(measureTimes(argc, argv, matched(casesMatching(filter))), files);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return EXIT_FAILURE;
    }
}
