#include <Compare.h>

#include <regex>

namespace bench {

std::vector<Comparison>& comparisons()
{
    static std::vector<Comparison> s_comparisons;
    return s_comparisons;
}

namespace {

using Accepts = std::function<bool(const Comparison&, int)>;

std::vector<Case> select(const std::string& filter, const Accepts& accepts)
{
    const std::regex pattern(filter);
    std::vector<Case> selected;
    for (const Comparison& comparison : comparisons()) {
        for (const int steps : comparison.steps) {
            const Case candidate{&comparison, steps};
            if (accepts(comparison, steps) && std::regex_search(candidate.name(), pattern))
                selected.push_back(candidate);
        }
    }
    return selected;
}

bool isFirst(const Comparison& comparison, int steps)
{
    return !comparison.timeOnly && steps == comparison.steps.front();
}

bool isCounted(const Comparison& comparison, int steps)
{
    constexpr int million = 1000000;
    constexpr int most = 100000;
    const bool growthIsShown = !comparison.timeOnly && comparison.steps.back() >= million;
    return isFirst(comparison, steps) || (growthIsShown && steps == most);
}

} // namespace

std::vector<Case> casesMatching(const std::string& filter)
{
    return select(filter, [](const Comparison&, int) { return true; });
}

std::vector<Case> countedCasesMatching(const std::string& filter)
{
    return select(filter, isCounted);
}

std::vector<Case> memoryCasesMatching(const std::string& filter)
{
    return select(filter, isFirst);
}

} // namespace bench
