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

} // namespace

Status readListFile(const std::filesystem::path& file, StoredList& list)
{
    std::string content;
    try {
        content = readSmallFile(file, kMaxListBytes);
    } catch (const SettingsError&) {
        return status::kAccessDenied;
    }
    if (content.empty())
        return status::kNotFound;
    auto parsed = parseList(content);
    if (!parsed)
        return status::kInvalidData;
    list = std::move(*parsed);
    return status::kOk;
}

Status writeListFile(const std::filesystem::path& file, const StoredList& base,
                     const StoredList& mine, StoredList& written)
{
    try {
        const std::filesystem::path target = resolvedFile(file);
        std::error_code ignored; // without the folder the lock fails
        std::filesystem::create_directories(target.parent_path(), ignored);
        const FileLock lock(target, kFileMode);
        StoredList theirs;
        const Status result = readListFile(target, theirs);
        StoredList joined = failed(result) ? mine : merged(base, mine, theirs);
        const std::string xml = toXml(joined);
        if (xml.size() > kMaxListBytes)
            return status::kInvalidArgument;
        if (failed(result) && result != status::kNotFound)
            setFileAside(target);
        replaceFile(target, xml, kFileMode);
        written = std::move(joined);
        return status::kOk;
    } catch (const SettingsError&) {
        return status::kAccessDenied;
    }
}

} // namespace tessaview
