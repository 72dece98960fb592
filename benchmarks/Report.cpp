#include <Report.h>

#include <QtCore/QFile>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>

#include <algorithm>
#include <cstdio>
#include <stdexcept>

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

void writeJson(const std::string& file, const std::vector<Row>& rows, const std::string& unit)
{
    QJsonArray array;
    for (const Row& row : rows) {
        const Comparison& comparison = *row.measured.comparison;
        array.append(QJsonObject{{"case", QString::fromStdString(comparison.name)},
                                 {"steps", row.measured.steps},
                                 {"unit", QString::fromStdString(unit)},
                                 {"ours", row.ours},
                                 {"bare", row.bare},
                                 {"ratio", row.ratio},
                                 {"spread", row.spread},
                                 {"hard", comparison.target.hard},
                                 {"wished", comparison.target.wished},
                                 {"verdict", verdict(row.ratio, comparison.target)}});
    }
    QFile out(QString::fromStdString(file));
    const QByteArray text = QJsonDocument(array).toJson();
    if (!out.open(QIODevice::WriteOnly) || out.write(text) != text.size() || !out.flush())
        throw std::runtime_error("cannot write " + file);
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
