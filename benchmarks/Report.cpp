#include <Report.h>

#include <algorithm>
#include <cstdio>

namespace bench {

namespace {

constexpr int growthWorthALine = 1000;

const char* verdict(double ratio, const Target& target)
{
    if (target.hard <= 0.0) return "";
    if (ratio <= target.wished) return "reached";
    return ratio <= target.hard ? "ok" : "over";
}

} // namespace

void printTable(const std::vector<Row>& rows, const std::string& unit)
{
    std::size_t width = 4;
    for (const Row& row : rows)
        width = std::max(width, row.measured.comparison->name.size());
    const int nameWidth = static_cast<int>(width);

    std::printf("%-*s %8s %12s %12s %6s %7s %15s  %s\n", nameWidth, "case", "steps", ("ours, " + unit).c_str(),
                ("bare, " + unit).c_str(), "spread", "ratio", "hard | wished", "verdict");
    for (const Row& row : rows) {
        const Target& target = row.measured.comparison->target;
        std::printf("%-*s %8d %12.1f %12.1f %5.0f%% %7.2f ", nameWidth, row.measured.comparison->name.c_str(),
                    row.measured.steps, row.ours, row.bare, row.spread * 100.0, row.ratio);
        if (target.hard > 0.0)
            std::printf("%8.2f | %4.2f", target.hard, target.wished);
        else
            std::printf("%15s", "");
        std::printf("  %s\n", verdict(row.ratio, target));
    }
}

void printGrowth(const std::vector<Row>& rows)
{
    for (const Row& small : rows) {
        for (const Row& large : rows) {
            if (small.measured.comparison != large.measured.comparison) continue;
            if (large.measured.steps / small.measured.steps < growthWorthALine) continue;
            std::printf("%s: one of %d costs %.2f times one of %d (bare: %.2f)\n",
                        small.measured.comparison->name.c_str(), large.measured.steps, large.ours / small.ours,
                        small.measured.steps, large.bare / small.bare);
        }
    }
}

} // namespace bench
