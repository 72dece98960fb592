#include <Compare.h>

#include <regex>
#include <stdexcept>

namespace bench {

std::vector<Comparison>& comparisons()
{
    static std::vector<Comparison> s_comparisons;
    return s_comparisons;
}

namespace {

std::vector<Case> select(const std::string& filter, bool shortOnly)
{
    const std::regex pattern(filter);
    std::vector<Case> selected;
    for (const Comparison& comparison : comparisons()) {
        for (const int steps : comparison.steps) {
            const Case candidate{&comparison, steps};
            if (std::regex_search(candidate.name(), pattern)) selected.push_back(candidate);
            if (shortOnly) break;
        }
    }
    if (selected.empty()) throw std::runtime_error("no case matches \"" + filter + '"');
    return selected;
}

} // namespace

std::vector<Case> casesMatching(const std::string& filter)
{
    return select(filter, false);
}

std::vector<Case> shortCasesMatching(const std::string& filter)
{
    return select(filter, true);
}

} // namespace bench
