#pragma once

#include <Report.h>

#include <string>
#include <vector>

namespace bench {

/// Ratios that may not rise: a text file with a line "case ratio" for each, and lines of comment that start with '#'.
class Guard
{
public:
    /// Throws std::runtime_error if the file is missing, or a line names no case.
    explicit Guard(std::string file);

    /// The cases of the file, each with its first number of steps.
    std::vector<Case> cases() const;

    /// Prints each ratio beside the stored one. False if one is more than 3 % above it.
    bool keeps(const std::vector<Row>& rows) const;

    /// Stores these ratios in place of the old ones.
    void renew(const std::vector<Row>& rows) const;

private:
    struct Line
    {
        std::string comment; ///< the whole line, if it stores no ratio
        const Comparison* comparison = nullptr;
        double ratio = 0.0;
    };

    std::string m_file;
    std::vector<Line> m_lines;
};

} // namespace bench
