#include "components/satlist/satellite.h"

#include "component/bstr.h"
#include "components/satlist/new_object.h"
#include "components/satlist/sat_transponder.h"
#include "components/satlist/snapshot_enumerator.h"

#include <algorithm>

namespace tessaview {

namespace {

using TransponderEnumerator =
    SnapshotEnumerator<IEnumSatTransponder, ISatTransponder, SatTransponder, StoredTransponder>;

auto findTransponder(const std::vector<StoredTransponder>& list, std::int32_t nid,
                     std::int32_t tsid)
{
    return std::find_if(list.begin(), list.end(),
                        [&](const auto& each) { return each.isFor(nid, tsid); });
}

} // namespace

Status Satellite::get_Name(char16_t** name) noexcept
{
    if (!name)
        return status::kNullPointer;
    *name = nullptr;
    return guarded([&] {
        *name = Bstr(stored_.name).release(); // the name never changes
        return status::kOk;
    });
}

Status Satellite::EnumTransponders(std::int32_t /*purpose*/, IEnumSatTransponder** out) noexcept
{
    if (!out)
        return status::kNullPointer;
    *out = nullptr;
    return guarded([&] {
        *out = newObject<TransponderEnumerator>(stored().transponders);
        return status::kOk;
    });
}

Status Satellite::put_Selected(std::int32_t selected) noexcept
{
    return guarded([&] {
        const std::lock_guard lock(mutex_);
        stored_.selected = selected;
        return status::kOk;
    });
}

Status Satellite::get_Selected(std::int32_t* selected) noexcept
{
    if (!selected)
        return status::kNullPointer;
    return guarded([&] {
        const std::lock_guard lock(mutex_);
        *selected = stored_.selected;
        return status::kOk;
    });
}

Status Satellite::put_AddedByUser(std::int32_t added) noexcept
{
    return guarded([&] {
        const std::lock_guard lock(mutex_);
        stored_.addedByUser = added;
        return status::kOk;
    });
}

Status Satellite::AddTransponder(ISatTransponder* transponder) noexcept
{
    if (!transponder)
        return status::kNullPointer;
    return guarded([&] {
        ComPtr<IStoredTransponder> own;
        if (failed(query(transponder, own)))
            return status::kInvalidArgument;
        StoredTransponder added = own->stored();
        const std::lock_guard lock(mutex_);
        auto& list = stored_.transponders;
        if (findTransponder(list, added.nid, added.tsid) != list.end())
            return status::kAlreadyExists;
        list.push_back(std::move(added));
        return status::kOk;
    });
}

Status Satellite::RemoveTransponder(std::int32_t nid, std::int32_t tsid) noexcept
{
    return guarded([&] {
        const std::lock_guard lock(mutex_);
        auto& list = stored_.transponders;
        const auto found = findTransponder(list, nid, tsid);
        if (found == list.end())
            return status::kNotFound;
        list.erase(found);
        return status::kOk;
    });
}

Status Satellite::CreateTransponder(std::int32_t nid, std::int32_t tsid,
                                    ISatTransponder** out) noexcept
{
    if (!out)
        return status::kNullPointer;
    *out = nullptr;
    if (!isIdentifier(nid) || !isIdentifier(tsid))
        return status::kInvalidArgument;
    return guarded([&] {
        *out =
            newObject<SatTransponder>(StoredTransponder{.nid = nid, .tsid = tsid, .foreign = {}});
        return status::kOk;
    });
}

Status Satellite::GetTransponderCount(std::uint32_t* count) noexcept
{
    if (!count)
        return status::kNullPointer;
    return guarded([&] {
        const std::lock_guard lock(mutex_);
        *count = static_cast<std::uint32_t>(stored_.transponders.size());
        return status::kOk;
    });
}

StoredSatellite Satellite::stored() const
{
    const std::lock_guard lock(mutex_);
    return stored_;
}

} // namespace tessaview
