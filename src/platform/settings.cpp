#include "platform/settings.h"

#include "platform/paths.h"
#include "platform/settings_file.h"

#include <limits>
#include <nlohmann/json.hpp>
#include <system_error>

namespace tessaview {

namespace {

using Json = nlohmann::json;

/// The file is there but holds no settings.
class BrokenSettings : public SettingsError {
    using SettingsError::SettingsError;
};

/// File, key, value, texts of a list: deeper nesting is not ours, and writing it out again would
/// need stack for every level.
constexpr int kDeepest = 8;

Json parsed(const std::filesystem::path& file)
{
    const std::string content = readSmallFile(file);
    if (content.size() > kMaxSettingsBytes)
        throw BrokenSettings(file.string() + " is too large for settings (more than " +
                             std::to_string(kMaxSettingsBytes) + " bytes)");
    if (content.empty())
        return Json::object();
    const auto refuseDepth = [&](int depth, Json::parse_event_t, const Json&) {
        if (depth > kDeepest)
            throw BrokenSettings(file.string() + " is nested too deeply for settings");
        return true;
    };
    try {
        Json root = Json::parse(content, refuseDepth);
        if (!root.is_object())
            throw BrokenSettings(file.string() + " does not hold settings");
        return root;
    } catch (const Json::exception& problem) {
        throw BrokenSettings(file.string() + " is not readable as JSON: " + problem.what());
    }
}

/// The value, or null.
Json valueOf(const std::filesystem::path& file, std::string_view key, std::string_view name)
{
    try {
        Json root = parsed(file);
        const auto group = root.find(key);
        if (group == root.end() || !group->is_object())
            return {};
        const auto value = group->find(name);
        return value == group->end() ? Json() : std::move(*value);
    } catch (const SettingsError&) {
        return {};
    }
}

template <class Change>
void change(const std::filesystem::path& given, Change apply)
{
    if (given.empty())
        throw SettingsError("there is no folder for settings: the user has no home");
    const std::filesystem::path file = resolvedFile(given);
    std::error_code failure;
    std::filesystem::create_directories(file.parent_path(), failure);
    if (failure)
        throw SettingsError(file.parent_path().string() +
                            " cannot be created: " + failure.message());
    const FileLock lock(file);
    Json root = Json::object();
    bool isBroken = false;
    try {
        root = parsed(file);
    } catch (const BrokenSettings&) {
        isBroken = true;
    }
    apply(root);
    std::string content;
    try {
        content = root.dump(2) + "\n";
    } catch (const Json::exception& problem) {
        throw SettingsError(file.string() + " cannot hold the value: " + problem.what());
    }
    if (content.size() > kMaxSettingsBytes)
        throw SettingsError(file.string() + " cannot hold the value: it is too large");
    if (isBroken)
        setFileAside(file);
    replaceFile(file, content);
}

void set(const std::filesystem::path& file, std::string_view key, std::string_view name, Json value)
{
    change(file, [&](Json& root) {
        Json& group = root[std::string(key)];
        if (!group.is_object())
            group = Json::object();
        group[std::string(name)] = std::move(value);
    });
}

} // namespace

bool Settings::canOpen(std::string_view key) const
{
    try {
        const Json root = parsed(file_);
        const auto group = root.find(key);
        return group != root.end() && group->is_object();
    } catch (const SettingsError&) {
        return false;
    }
}

std::optional<std::uint32_t> Settings::number(std::string_view key, std::string_view name) const
{
    const Json value = valueOf(file_, key, name);
    if (!value.is_number_unsigned() ||
        value.get<std::uint64_t>() > std::numeric_limits<std::uint32_t>::max())
        return std::nullopt;
    return value.get<std::uint32_t>();
}

std::optional<std::string> Settings::text(std::string_view key, std::string_view name) const
{
    const Json value = valueOf(file_, key, name);
    if (!value.is_string())
        return std::nullopt;
    return value.get<std::string>();
}

std::vector<std::string> Settings::texts(std::string_view key, std::string_view name) const
{
    const Json value = valueOf(file_, key, name);
    std::vector<std::string> list;
    if (!value.is_array())
        return list;
    for (const Json& each : value) {
        if (!each.is_string())
            return {};
        list.push_back(each.get<std::string>());
    }
    return list;
}

void Settings::setNumber(std::string_view key, std::string_view name, std::uint32_t value)
{
    set(file_, key, name, value);
}

void Settings::setText(std::string_view key, std::string_view name, std::string_view value)
{
    set(file_, key, name, std::string(value));
}

void Settings::setTexts(std::string_view key, std::string_view name,
                        const std::vector<std::string>& values)
{
    set(file_, key, name, values);
}

void Settings::remove(std::string_view key, std::string_view name)
{
    change(file_, [&](Json& root) {
        const auto group = root.find(key);
        if (group != root.end() && group->is_object())
            group->erase(std::string(name));
    });
}

std::filesystem::path defaultSettingsFile()
{
    const std::filesystem::path base = userBaseFolder("XDG_CONFIG_HOME", ".config");
    return base.empty() ? base : base / "tessaview3/settings.json";
}

} // namespace tessaview
