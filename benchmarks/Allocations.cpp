// Counts what both sides of the comparisons allocate per operation: calls of malloc and its relatives, Qt's own
// included, and the bytes that are still held after the work. Takes a filter as its only argument. Ends with exit
// status 1 if a case that must not allocate does.

#include <Compare.h>

#include <OpenSG/OSGBaseFunctions.h>

#include <QtCore/QCoreApplication>

#include <malloc.h>

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

    bool kept = true;
    std::printf("%-28s %8s %12s %12s %12s %12s\n", "case", "steps", "ours, allocs", "bare, allocs", "ours, bytes",
                "bare, bytes");
    for (const Case& counted : shortCasesMatching(argc > 1 ? argv[1] : "")) {
        const Comparison& comparison = *counted.comparison;
        const Count ours = count(comparison.ours, counted.steps);
        const Count bare = count(comparison.bare, counted.steps);
        const bool allocates = comparison.allocationFree && ours.calls > 0.0;
        kept = kept && !allocates;
        std::printf("%-28s %8d %12.2f %12.2f %12.1f %12.1f  %s\n", comparison.name.c_str(), counted.steps, ours.calls,
                    bare.calls, ours.bytes, bare.bytes,
                    allocates ? "MUST NOT ALLOCATE" : (comparison.allocationFree ? "none, as it must" : ""));
    }
    return kept ? EXIT_SUCCESS : EXIT_FAILURE;
}
