#pragma once

#include <filesystem>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace test {

/// What one room may include.
struct RoomRule {
    std::set<std::string, std::less<>> rooms;
    bool mayUseQt = false;
};

using Arrows = std::map<std::string, RoomRule, std::less<>>;

/// Reads the table of rooms from the text about the architecture. Throws std::runtime_error when
/// there is none, a room has two rows, or a row names a room that does not stand above it.
Arrows parseArrows(std::string_view markdown);

/// The room of a file given by its path from the root of the sources ("src/log/output.h"), or of
/// an include given as written ("log/output.h"); empty for a path in no room.
std::string roomOf(const std::filesystem::path& path);

/// What is wrong with the includes of a file, one line each; `file` is its path from the root of
/// the sources.
std::vector<std::string> includeProblems(const std::filesystem::path& file,
                                         std::string_view content, const Arrows& arrows);

} // namespace test
