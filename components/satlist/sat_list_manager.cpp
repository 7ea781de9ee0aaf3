#include "components/satlist/sat_list_manager.h"

#include "component/bstr.h"
#include "components/satlist/list_file.h"
#include "components/satlist/list_merge.h"
#include "components/satlist/new_object.h"
#include "components/satlist/satellite.h"
#include "components/satlist/snapshot_enumerator.h"

#include <algorithm>

namespace tessaview {

namespace {

using SatelliteEnumerator =
    SnapshotEnumerator<IEnumSatellite, ISatellite, Satellite, StoredSatellite>;

auto findSatellite(std::vector<StoredSatellite>& list, const std::string& name)
{
    return std::find_if(list.begin(), list.end(),
                        [&](const auto& each) { return each.name == name; });
}

} // namespace

Status SatListManager::EnumSatellites(std::int32_t /*one*/, std::int32_t selectedOnly,
                                      IEnumSatellite** out) noexcept
{
    if (!out)
        return status::kNullPointer;
    *out = nullptr;
    return guarded([&] {
        std::vector<StoredSatellite> snapshot;
        {
            const std::lock_guard lock(mutex_);
            std::copy_if(list_.satellites.begin(), list_.satellites.end(),
                         std::back_inserter(snapshot),
                         [&](const auto& each) { return !selectedOnly || each.selected; });
        }
        *out = newObject<SatelliteEnumerator>(std::move(snapshot));
        return status::kOk;
    });
}

Status SatListManager::GetSatellite(const char16_t* name, ISatellite** out) noexcept
{
    if (!out)
        return status::kNullPointer;
    *out = nullptr;
    return guarded([&] {
        const std::string wanted = bstrToUtf8(name);
        const std::lock_guard lock(mutex_);
        const auto found = findSatellite(list_.satellites, wanted);
        if (found == list_.satellites.end())
            return status::kNotFound;
        *out = newObject<Satellite>(*found);
        return status::kOk;
    });
}

Status SatListManager::Save(const char16_t* path) noexcept
{
    return guarded([&] {
        const std::string file = bstrToUtf8(path);
        if (file.empty())
            return status::kInvalidArgument;
        const std::lock_guard fileLock(fileMutex_);
        StoredList mine;
        {
            const std::lock_guard lock(mutex_);
            mine = list_;
        }
        StoredList written;
        const StoredList base = file == baseFile_ ? base_ : StoredList{};
        problem_.clear();
        const Status result = writeListFile(file, base, mine, written, problem_);
        if (failed(result))
            return result;
        const std::lock_guard lock(mutex_);
        list_ = merged(mine, list_, written); // with what was changed while the file was written
        base_ = std::move(written);
        baseFile_ = file;
        return status::kOk;
    });
}

Status SatListManager::Load(const char16_t* path) noexcept
{
    return guarded([&] {
        const std::string file = bstrToUtf8(path);
        if (file.empty())
            return status::kInvalidArgument;
        const std::lock_guard fileLock(fileMutex_);
        StoredList loaded;
        problem_.clear();
        const Status result = readListFile(file, loaded, problem_);
        if (failed(result))
            return result;
        StoredList base = loaded;
        const std::lock_guard lock(mutex_);
        list_ = std::move(loaded);
        base_ = std::move(base);
        baseFile_ = file;
        return status::kOk;
    });
}

Status SatListManager::PutSatellite(ISatellite* satellite) noexcept
{
    if (!satellite)
        return status::kNullPointer;
    return guarded([&] {
        ComPtr<IStoredSatellite> own;
        if (failed(query(satellite, own)))
            return status::kInvalidArgument;
        StoredSatellite put = own->stored();
        const std::lock_guard lock(mutex_);
        const auto found = findSatellite(list_.satellites, put.name);
        if (found == list_.satellites.end())
            list_.satellites.push_back(std::move(put));
        else
            *found = std::move(put);
        return status::kOk;
    });
}

Status SatListManager::RemoveSatellite(const char16_t* name) noexcept
{
    return guarded([&] {
        const std::string wanted = bstrToUtf8(name);
        const std::lock_guard lock(mutex_);
        const auto found = findSatellite(list_.satellites, wanted);
        if (found == list_.satellites.end())
            return status::kNotFound;
        list_.satellites.erase(found);
        return status::kOk;
    });
}

Status SatListManager::CreateSatellite(const char16_t* name, ISatellite** out) noexcept
{
    if (!out)
        return status::kNullPointer;
    *out = nullptr;
    return guarded([&] {
        const std::u16string_view wide{name, TessaviewBstrLength(name)};
        StoredSatellite created{
            .name = toUtf8(wide), .selected = 1, .transponders = {}, .foreign = {}};
        // An unpaired surrogate would come back as another character.
        if (!isSatelliteName(created.name) || toUtf16(created.name) != wide)
            return status::kInvalidArgument;
        *out = newObject<Satellite>(std::move(created));
        return status::kOk;
    });
}

Status SatListManager::GetSatelliteCount(std::uint32_t* count) noexcept
{
    if (!count)
        return status::kNullPointer;
    return guarded([&] {
        const std::lock_guard lock(mutex_);
        *count = static_cast<std::uint32_t>(
            std::count_if(list_.satellites.begin(), list_.satellites.end(),
                          [](const auto& each) { return each.selected != 0; }));
        return status::kOk;
    });
}

Status SatListManager::TakeAsBase(const char16_t* path) noexcept
{
    return guarded([&] {
        const std::string file = bstrToUtf8(path);
        if (file.empty())
            return status::kInvalidArgument;
        const std::lock_guard fileLock(fileMutex_);
        const std::lock_guard lock(mutex_);
        base_ = list_;
        baseFile_ = file;
        return status::kOk;
    });
}

Status SatListManager::get_Problem(char16_t** text) noexcept
{
    if (!text)
        return status::kNullPointer;
    *text = nullptr;
    return guarded([&] {
        const std::lock_guard fileLock(fileMutex_);
        *text = Bstr(problem_).release();
        return status::kOk;
    });
}

} // namespace tessaview
