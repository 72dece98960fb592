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

void writeText(const std::string& file, const QByteArray& text)
{
    QFile out(QString::fromStdString(file));
    if (!out.open(QIODevice::WriteOnly) || out.write(text) != text.size() || !out.flush())
        throw std::runtime_error("cannot write " + file);
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
    writeText(file, QJsonDocument(array).toJson());
}

void writePlot(const std::string& file, const std::vector<Row>& rows, const std::string& unit)
{
    constexpr int lineHeight = 18;
    constexpr int top = 44;
    constexpr int left = 210;
    constexpr int width = 560;
    double highest = 2.0;
    for (const Row& row : rows)
        highest = std::max({highest, row.ratio, row.measured.comparison->target.hard});
    const auto x = [&](double ratio) { return QString::number(left + ratio / highest * width, 'f', 1); };
    const int bottom = top + lineHeight * static_cast<int>(rows.size());

    QString svg = QStringLiteral("<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"%1\" height=\"%2\" "
                                 "font-family=\"sans-serif\" font-size=\"12\">\n"
                                 "<rect width=\"100%\" height=\"100%\" fill=\"white\"/>\n"
                                 "<text x=\"8\" y=\"18\">Cost of an operation (%3), ours / a bare QUndoStack&apos;s. "
                                 "Mark: the ratio we want.</text>\n")
                      .arg(left + width + 50)
                      .arg(bottom + 10)
                      .arg(QString::fromStdString(unit));
    for (int ratio = 0; ratio <= static_cast<int>(highest); ++ratio) {
        svg += QStringLiteral("<line x1=\"%1\" x2=\"%1\" y1=\"%2\" y2=\"%3\" stroke=\"#ddd\"/>"
                              "<text x=\"%1\" y=\"%4\" text-anchor=\"middle\">%5</text>\n")
                   .arg(x(ratio))
                   .arg(top)
                   .arg(bottom)
                   .arg(top - 6)
                   .arg(ratio);
    }
    int y = top;
    for (const Row& row : rows) {
        const Target& target = row.measured.comparison->target;
        const bool missed = target.wished > 0.0 && row.ratio > target.wished;
        svg += QStringLiteral("<text x=\"%1\" y=\"%2\" text-anchor=\"end\">%3</text>"
                              "<rect x=\"%4\" y=\"%5\" width=\"%6\" height=\"12\" fill=\"%7\"/>"
                              "<text x=\"%8\" y=\"%2\" dx=\"4\">%9</text>")
                   .arg(left - 6)
                   .arg(y + 13)
                   .arg(QString::fromStdString(row.measured.name()))
                   .arg(left)
                   .arg(y + 3)
                   .arg(row.ratio / highest * width, 0, 'f', 1)
                   .arg(missed ? QStringLiteral("#e6a23c") : QStringLiteral("#5b8db8"))
                   .arg(x(std::max(row.ratio, target.wished)))
                   .arg(row.ratio, 0, 'f', 2);
        if (target.wished > 0.0) {
            svg += QStringLiteral("<line x1=\"%1\" x2=\"%1\" y1=\"%2\" y2=\"%3\" stroke=\"black\" stroke-width=\"2\"/>")
                       .arg(x(target.wished))
                       .arg(y + 1)
                       .arg(y + 17);
        }
        svg += QLatin1Char('\n');
        y += lineHeight;
    }
    writeText(file, (svg + QLatin1String("</svg>\n")).toUtf8());
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
