#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tessaview {

/// The system's own key.
inline constexpr std::string_view kSettingsKey = "SOFTWARE\\Team Tessaview\\Tessaview3";

/// Settings could not be written; the text names the file and says what is wrong.
class SettingsError : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// Typed values under key paths in one JSON file. Every read looks at the file afresh, every write
/// is on disk when the call returns; several programs may use one file at the same time. Reads
/// never throw: what cannot be read is missing, and so is a value of another type.
class Settings {
public:
    explicit Settings(std::filesystem::path file) : file_(std::move(file)) {}

    /// Whether the file can be read and has the key.
    bool canOpen(std::string_view key) const;
    std::optional<std::uint32_t> number(std::string_view key, std::string_view name) const;
    std::optional<std::string> text(std::string_view key, std::string_view name) const;
    /// A list of texts; empty when missing.
    std::vector<std::string> texts(std::string_view key, std::string_view name) const;

    // The writing operations create key and file, keep every other value, including those that
    // another program writes meanwhile, and set a file that is not readable as settings aside
    // under another name. Texts are UTF-8. They throw SettingsError and leave the file as it was.

    void setNumber(std::string_view key, std::string_view name, std::uint32_t value);
    void setText(std::string_view key, std::string_view name, std::string_view value);
    void setTexts(std::string_view key, std::string_view name,
                  const std::vector<std::string>& values);
    /// Removes a value; one that is not there is no error.
    void remove(std::string_view key, std::string_view name);

private:
    std::filesystem::path file_;
};

/// "tessaview3/settings.json" in the user's folder for configuration; empty when there is no place
/// for it.
std::filesystem::path defaultSettingsFile();

} // namespace tessaview
