#include "components/satlist/list_file.h"

#include "components/satlist/list_merge.h"
#include "components/satlist/list_xml.h"
#include "platform/settings.h"
#include "platform/settings_file.h"

#include <system_error>

namespace tessaview {

namespace {

// All users of a shared folder keep one list.
constexpr mode_t kFileMode = 0666;

// An entry of the fewest bytes is written with less than this many times as much.
constexpr std::size_t kMostGrowth = 8;

/// Whether a list, read from so many bytes, can be written again.
bool fitsIntoItsFile(const StoredList& list, std::size_t bytes)
{
    return bytes <= kMaxListBytes / kMostGrowth || toXml(list).size() <= kMaxListBytes;
}

} // namespace

Status readListFile(const std::filesystem::path& file, StoredList& list, std::string& why)
{
    std::string content;
    try {
        content = readSmallFile(file, kMaxListBytes);
    } catch (const SettingsError& problem) {
        why = problem.what();
        return status::kAccessDenied;
    }
    if (content.empty())
        return status::kNotFound;
    auto parsed = parseList(content);
    if (!parsed)
        why = file.string() + (content.size() > kMaxListBytes
                                   ? " is larger than 16 MiB"
                                   : " holds no satellite list, or one of a later version");
    else if (!fitsIntoItsFile(*parsed, content.size()))
        why = file.string() + " holds more than can be saved again: that would take over 16 MiB";
    if (!why.empty())
        return status::kInvalidData;
    list = std::move(*parsed);
    return status::kOk;
}

Status writeListFile(const std::filesystem::path& file, const StoredList& base,
                     const StoredList& mine, StoredList& written, std::string& why)
{
    try {
        const std::filesystem::path target = resolvedFile(file);
        std::error_code ignored; // without the folder the lock fails
        std::filesystem::create_directories(target.parent_path(), ignored);
        const FileLock lock(target, kFileMode);
        StoredList theirs;
        const Status result = readListFile(target, theirs, why);
        if (result == status::kAccessDenied)
            return result;
        why.clear();
        StoredList joined = failed(result) ? mine : merged(base, mine, theirs);
        const std::string xml = toXml(joined);
        if (xml.size() > kMaxListBytes) {
            why = file.string() +
                  " would become larger than 16 MiB; remove satellites or transponders";
            return status::kInvalidArgument;
        }
        if (result == status::kInvalidData)
            setFileAside(target);
        replaceFile(target, xml, kFileMode);
        written = std::move(joined);
        return status::kOk;
    } catch (const SettingsError& problem) {
        why = problem.what();
        return status::kAccessDenied;
    }
}

} // namespace tessaview
