#pragma once

#include <Compare.h>

#include <string>
#include <vector>

namespace bench {

/// What one operation cost on both sides.
struct Row
{
    std::string name; ///< of the comparison
    int steps = 0;
    std::string unit;
    double ours = 0.0;
    double bare = 0.0;
    /// Ours divided by bare; of times the median over the repetitions, each of which measures both sides. 0 if bare
    /// costs nothing.
    double ratio = 0.0;
    /// How wide the middle half of the ratios lies, relative to their median; 0 for counts.
    double spread = 0.0;
    Target target{};
};

/// A row of counts, which have no spread.
Row countedRow(const Case& counted, const std::string& unit, double ours, double bare, const Target& target);

/// "reached" at or below the wished cost, "ok" at or below the hard one, else "over"; empty without a target. A ratio counts as the table shows it: 1.424 is
/// 1.42.
std::string verdict(const Row& row);

/// The table as text. The last column says how the cost of an operation grew since the first row of the same name and
/// unit, as "ours | bare".
std::string table(const std::vector<Row>& rows);

/// The same for tools: an array of objects. Throws std::runtime_error if the file cannot be written.
void writeJson(const std::string& file, const std::vector<Row>& rows);

/// The rows of a file that writeJson() has written. Throws std::runtime_error if it cannot be read.
std::vector<Row> readJson(const std::string& file);

/// A plot of the ratios, as SVG: a bar for each row, with a mark for its wished ratio. Throws as writeJson() does.
void writePlot(const std::string& file, const std::vector<Row>& rows);

} // namespace bench
