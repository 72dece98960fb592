// Counts what both sides of the comparisons allocate per operation: calls of malloc and its relatives, Qt's own
// included, and the bytes that are still held after the work. Arguments: a file that gets the rows, as JSON, and a
// filter. Ends with exit status 1 if a case allocates more than its target.

#include <Report.h>

#include <OpenSG/OSGBaseFunctions.h>

#include <QtCore/QCoreApplication>

#include <malloc.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <vector>

namespace {

long s_calls = 0;
long s_bytesHeld = 0;

void* counted(void* block)
{
    ++s_calls;
    s_bytesHeld += static_cast<long>(malloc_usable_size(block));
    return block;
}

} // namespace

// operator new, QString and QList all call these. The names are those of glibc, and so is the heap.
extern "C" {

void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* block, std::size_t size);
void __libc_free(void* block);

void* malloc(std::size_t size)
{
    return counted(__libc_malloc(size));
}

void* calloc(std::size_t count, std::size_t size)
{
    return counted(__libc_calloc(count, size));
}

void* realloc(void* block, std::size_t size)
{
    s_bytesHeld -= static_cast<long>(malloc_usable_size(block));
    return counted(__libc_realloc(block, size));
}

void free(void* block)
{
    s_bytesHeld -= static_cast<long>(malloc_usable_size(block));
    __libc_free(block);
}

} // extern "C"

namespace {

using namespace bench;

struct Count
{
    double calls;
    double bytes;
};

Count count(const MakeWork& make, int steps)
{
    // Memory that is allocated once and kept is no cost of a step, so a first run is not counted.
    make(steps)->run();
    const std::unique_ptr<Work> work = make(steps);
    const long calls = s_calls;
    const long bytes = s_bytesHeld;
    work->run();
    return {static_cast<double>(s_calls - calls) / steps, static_cast<double>(s_bytesHeld - bytes) / steps};
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    osg::osgInit(argc, argv);
    if (argc < 2) {
        std::fprintf(stderr, "usage: moAllocations FILE [FILTER]\n");
        return EXIT_FAILURE;
    }

    std::vector<Row> allocations;
    std::vector<Row> bytes;
    bool kept = true;
    for (const Case& counted : memoryCasesMatching(argc > 2 ? argv[2] : "")) {
        const Comparison& comparison = *counted.comparison;
        const Count ours = count(comparison.ours, counted.steps);
        const Count bare = count(comparison.bare, counted.steps);
        allocations.push_back(countedRow(counted, "allocs", ours.calls, bare.calls, comparison.allocations));
        // Whole bytes: the lists of Qt and OpenSG that grow once in a while add a fraction.
        bytes.push_back(countedRow(counted, "bytes", std::round(ours.bytes), std::round(bare.bytes), comparison.bytes));
        if (verdict(allocations.back()) == "over") {
            std::fprintf(stderr, "%s allocates\n", comparison.name.c_str());
            kept = false;
        }
    }
    const auto saysNothing = [](const Row& row) {
        return row.ours <= 0.0 && row.bare <= 0.0 && row.target.of == Target::Nothing;
    };
    std::vector<Row> rows = allocations;
    rows.insert(rows.end(), bytes.begin(), bytes.end());
    rows.erase(std::remove_if(rows.begin(), rows.end(), saysNothing), rows.end());
    writeJson(argv[1], rows);
    return kept ? EXIT_SUCCESS : EXIT_FAILURE;
}
