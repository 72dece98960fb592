#pragma once

#include <Compare.h>

#include <string>
#include <vector>

namespace bench {

/// What one case cost, per operation, on both sides.
struct Row
{
    Case measured;
    double ours;
    double bare;
    /// Ours divided by bare; the median over the repetitions, each of which measures both sides.
    double ratio;
    /// How wide the middle half of the ratios lies, relative to their median; 0 for counts.
    double spread = 0.0;
};

/// Prints case, steps, both costs, ratio, targets and verdict: "reached" at or below the wished ratio, "ok" at or below
/// the hard one, else "over".
void printTable(const std::vector<Row>& rows, const std::string& unit);

/// The same for tools: an array of objects. Throws std::runtime_error if the file cannot be written.
void writeJson(const std::string& file, const std::vector<Row>& rows, const std::string& unit);

/// A plot of the ratios, as SVG: a bar for each row, with a mark for its wished ratio. Throws likewise.
void writePlot(const std::string& file, const std::vector<Row>& rows, const std::string& unit);

/// For comparisons whose last case has at least a thousand times the steps of the first: how much the cost of one
/// operation grew.
void printGrowth(const std::vector<Row>& rows);

} // namespace bench
