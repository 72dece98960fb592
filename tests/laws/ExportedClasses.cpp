#include <laws/ExportedClasses.h>

#include <array>
#include <cstdio>
#include <memory>

std::set<std::string> exportedCommandClasses()
{
    std::set<std::string> classes;
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> symbols(
        popen(MO_NM " -DC --defined-only '" MO_LIBRARY "'", "r"), pclose);
    if (!symbols) return classes;

    // A line: address, kind of symbol, name.
    const std::string suffix = "::commandId()";
    std::array<char, 4096> buffer{};
    while (std::fgets(buffer.data(), static_cast<int>(buffer.size()), symbols.get())) {
        std::string line = buffer.data();
        line.erase(line.find_last_not_of('\n') + 1);
        const std::size_t kind = line.find(' ');
        if (kind == std::string::npos || kind + 3 > line.size()) continue;
        const std::string name = line.substr(kind + 3);
        // Other symbols end like this: "guard variable for X::commandId()::cmdId".
        if (name.size() <= suffix.size() || name.compare(name.size() - suffix.size(), suffix.size(), suffix) != 0)
            continue;
        classes.insert(name.substr(0, name.size() - suffix.size()));
    }
    return classes;
}
