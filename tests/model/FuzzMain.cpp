// fuzz_model [SECONDS] [SEED]: plays the programs of one seed after the other until the time is up or the two sides
// differ, and then shrinks the program.

#include "RandomModel.h"

#include <OpenSG/OSGBaseFunctions.h>

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <iostream>
#include <unistd.h>

namespace {

constexpr unsigned programLength = 1000;
char s_seed[] = "\nseed                     \n";

/// A program that ends the process cannot be shrunk in it, but its seed can be printed.
void tellSeed(int signal)
{
    const auto written = write(STDERR_FILENO, s_seed, sizeof s_seed - 1);
    (void)written;
    std::signal(signal, SIG_DFL);
    std::raise(signal);
}

} // namespace

int main(int argc, char** argv)
{
    const double seconds = argc > 1 ? std::atof(argv[1]) : 60.0;
    const std::uint64_t first = argc > 2 ? std::strtoull(argv[2], nullptr, 10) : 1;
    osg::osgInit(argc, argv);
    std::signal(SIGABRT, tellSeed);
    std::signal(SIGSEGV, tellSeed);

    using Clock = std::chrono::steady_clock;
    const auto start = Clock::now();
    Counts counts;
    std::uint64_t seed = first;
    do {
        std::to_string(seed).copy(s_seed + 6, sizeof s_seed - 8);
        const Program program = Generator(seed).program(programLength);
        if (!differenceOf(program, &counts).empty()) {
            std::cout << "seed " << seed << ", shrunk:\n" << reportOf(program, "Seed" + std::to_string(seed));
            return 1;
        }
        ++seed;
    } while (std::chrono::duration<double>(Clock::now() - start).count() < seconds);

    std::cout << "seeds " << first << " to " << seed - 1 << ", " << programLength
              << " operations each and the way back: no difference\n";
    for (const auto& [what, count] : counts)
        std::cout << "    " << what << ": " << count << '\n';
    return 0;
}
