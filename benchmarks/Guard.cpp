#include <Guard.h>

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <utility>

namespace bench {

namespace {

constexpr double allowedRise = 0.03;

const Comparison& named(const std::string& name)
{
    const auto& all = comparisons();
    const auto found = std::find_if(all.begin(), all.end(), [&](const Comparison& c) { return c.name == name; });
    if (found == all.end()) throw std::runtime_error("there is no case \"" + name + '"');
    return *found;
}

double ratioOf(const Comparison& comparison, const std::vector<Row>& rows)
{
    const auto isOfIt = [&](const Row& row) { return row.name == comparison.name; };
    return std::find_if(rows.begin(), rows.end(), isOfIt)->ratio;
}

} // namespace

Guard::Guard(std::string file) : m_file(std::move(file))
{
    std::ifstream in(m_file);
    for (std::string text; std::getline(in, text);) {
        Line line;
        std::string name;
        std::istringstream words(text);
        if (text.empty() || text.front() == '#')
            line.comment = text;
        else if (words >> name >> line.ratio)
            line.comparison = &named(name);
        else
            throw std::runtime_error(m_file + ": no \"case ratio\": " + text);
        m_lines.push_back(line);
    }
    if (cases().empty()) throw std::runtime_error(m_file + ": no ratios there");
}

std::vector<Case> Guard::cases() const
{
    std::vector<Case> found;
    for (const Line& line : m_lines) {
        if (line.comparison) found.push_back({line.comparison, line.comparison->steps.front()});
    }
    return found;
}

bool Guard::keeps(const std::vector<Row>& rows) const
{
    bool kept = true;
    for (const Line& line : m_lines) {
        if (!line.comparison) continue;
        const double rise = ratioOf(*line.comparison, rows) / line.ratio - 1.0;
        const bool risen = rise > allowedRise;
        kept = kept && !risen;
        std::printf("%-20s %.3f, stored %.3f: %+.1f%% %s\n", line.comparison->name.c_str(),
                    ratioOf(*line.comparison, rows), line.ratio, rise * 100.0, risen ? "RISEN" : "");
    }
    return kept;
}

void Guard::renew(const std::vector<Row>& rows) const
{
    std::ofstream out(m_file);
    out.setf(std::ios::fixed);
    out.precision(3);
    for (const Line& line : m_lines) {
        if (line.comparison)
            out << line.comparison->name << ' ' << ratioOf(*line.comparison, rows) << '\n';
        else
            out << line.comment << '\n';
    }
    if (!out.flush()) throw std::runtime_error("cannot write " + m_file);
}

} // namespace bench
