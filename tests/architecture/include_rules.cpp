#include "tests/architecture/include_rules.h"

#include <algorithm>
#include <optional>
#include <regex>
#include <sstream>
#include <stdexcept>

namespace test {

namespace {

/// The texts in backticks.
std::vector<std::string> quotedNames(const std::string& text)
{
    static const std::regex quoted("`([^`]+)`");
    std::vector<std::string> names;
    for (std::sregex_iterator found(text.begin(), text.end(), quoted), end; found != end; ++found)
        names.push_back((*found)[1]);
    return names;
}

bool isBelow(const std::filesystem::path& path, const std::filesystem::path& folder)
{
    return std::mismatch(folder.begin(), folder.end(), path.begin(), path.end()).first ==
           folder.end();
}

/// "drivers/capture" of a path in that driver, else empty; what drivers share belongs to none.
std::filesystem::path driverOf(const std::filesystem::path& path)
{
    auto part = path.begin();
    if (part == path.end() || *part != "drivers" || ++part == path.end() || *part == "common")
        return {};
    return "drivers" / *part;
}

std::optional<std::string> problemOfOurs(const std::filesystem::path& file,
                                         const std::string& included, const Arrows& arrows)
{
    const std::filesystem::path path = included;
    if (std::find(path.begin(), path.end(), "..") != path.end())
        return "names a folder with '..'";
    const std::string from = roomOf(file);
    const std::string to = roomOf(path);
    if (to.empty() || !arrows.contains(to))
        return "is not in a room";
    if (!driverOf(path).empty() && !isBelow(file, driverOf(path)))
        return "belongs to a driver";
    const auto rule = arrows.find(from);
    if (rule == arrows.end())
        return "is included from a folder that has no row among the rooms";
    if (from != to && !rule->second.rooms.contains(to))
        return "is not below '" + from + "'";
    return std::nullopt;
}

std::optional<std::string> problemOfForeign(const std::filesystem::path& file,
                                            const std::string& included, const Arrows& arrows)
{
    if (arrows.contains(std::filesystem::path(included).begin()->string()))
        return "is ours and belongs in quotation marks";
    const auto rule = arrows.find(roomOf(file));
    const bool mayUseQt = rule != arrows.end() && rule->second.mayUseQt;
    if (included.starts_with('Q') && !mayUseQt)
        return "is Qt";
    return std::nullopt;
}

} // namespace

Arrows parseArrows(std::string_view markdown)
{
    static const std::regex row(R"(\|([^|]*)\|([^|]*)\|([^|]*)\|\s*)");
    Arrows arrows;
    std::istringstream lines{std::string(markdown)};
    for (std::string line; std::getline(lines, line);) {
        std::smatch cells;
        if (!std::regex_match(line, cells, row) || quotedNames(cells[1]).size() != 1)
            continue;
        const std::string room = quotedNames(cells[1])[0];
        RoomRule rule;
        for (const std::string& name : quotedNames(cells[2])) {
            if (!arrows.contains(name))
                throw std::runtime_error("the row of " + room +
                                         " names a room further up: " + name);
            rule.rooms.insert(name);
        }
        rule.mayUseQt = cells[3].str().find("yes") != std::string::npos;
        if (!arrows.emplace(room, rule).second)
            throw std::runtime_error(room + " has two rows");
    }
    if (arrows.empty())
        throw std::runtime_error("no table of rooms");
    return arrows;
}

std::string roomOf(const std::filesystem::path& path)
{
    auto part = path.begin();
    if (part != path.end() && *part == "src")
        ++part;
    if (part == path.end() || std::next(part) == path.end())
        return {}; // a file that lies in no folder
    if (*part != "drivers")
        return part->string();
    const bool isDialog =
        std::find(part, std::prev(path.end()), "dialogs") != std::prev(path.end());
    return isDialog ? "drivers/dialogs" : "drivers";
}

std::vector<std::string> includeProblems(const std::filesystem::path& file,
                                         std::string_view content, const Arrows& arrows)
{
    static const std::regex directive(R"(\s*#\s*include(_next)?\b.*)");
    static const std::regex whole(R"(\s*#\s*include\s*(["<])([^">]+)[">].*)");
    std::vector<std::string> problems;
    std::istringstream lines{std::string(content)};
    int number = 0;
    for (std::string line; std::getline(lines, line);) {
        ++number;
        if (!std::regex_match(line, directive))
            continue;
        const auto report = [&](const std::string& what) {
            problems.push_back(file.string() + ":" + std::to_string(number) + ": " + what);
        };
        std::smatch parts;
        if (!std::regex_match(line, parts, whole)) {
            report("an include that names no file");
            continue;
        }
        const std::string included = parts[2];
        const auto problem = parts[1] == "\"" ? problemOfOurs(file, included, arrows)
                                              : problemOfForeign(file, included, arrows);
        if (problem)
            report("'" + included + "' " + *problem);
    }
    return problems;
}

} // namespace test
