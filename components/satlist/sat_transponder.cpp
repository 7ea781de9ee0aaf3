#include "components/satlist/sat_transponder.h"

namespace tessaview {

Status SatTransponder::put(Member member, std::int32_t value)
{
    return guarded([&] {
        const std::lock_guard lock(mutex_);
        stored_.*member = value;
        return status::kOk;
    });
}

Status SatTransponder::get(Member member, std::int32_t* value) const
{
    if (!value)
        return status::kNullPointer;
    return guarded([&] {
        const std::lock_guard lock(mutex_);
        *value = stored_.*member;
        return status::kOk;
    });
}

StoredTransponder SatTransponder::stored() const
{
    const std::lock_guard lock(mutex_);
    return stored_;
}

Status SatTransponder::put_Flag(std::int32_t flag) noexcept
{
    return put(&StoredTransponder::flag, flag);
}

Status SatTransponder::get_Flag(std::int32_t* flag) noexcept
{
    return get(&StoredTransponder::flag, flag);
}

Status SatTransponder::put_Frequency(std::int32_t frequency) noexcept
{
    return put(&StoredTransponder::frequency, frequency);
}

Status SatTransponder::get_Frequency(std::int32_t* frequency) noexcept
{
    return get(&StoredTransponder::frequency, frequency);
}

Status SatTransponder::put_TSID(std::int32_t tsid) noexcept
{
    if (!isIdentifier(tsid))
        return status::kInvalidArgument;
    return put(&StoredTransponder::tsid, tsid);
}

Status SatTransponder::get_TSID(std::int32_t* tsid) noexcept
{
    return get(&StoredTransponder::tsid, tsid);
}

Status SatTransponder::put_Polarization(std::int32_t polarization) noexcept
{
    return put(&StoredTransponder::polarization, polarization);
}

Status SatTransponder::get_Polarization(std::int32_t* polarization) noexcept
{
    return get(&StoredTransponder::polarization, polarization);
}

Status SatTransponder::put_SymbolRate(std::int32_t symbolRate) noexcept
{
    return put(&StoredTransponder::symbolRate, symbolRate);
}

Status SatTransponder::get_SymbolRate(std::int32_t* symbolRate) noexcept
{
    return get(&StoredTransponder::symbolRate, symbolRate);
}

Status SatTransponder::put_FEC(std::int32_t fec) noexcept
{
    return put(&StoredTransponder::fec, fec);
}

Status SatTransponder::get_FEC(std::int32_t* fec) noexcept
{
    return get(&StoredTransponder::fec, fec);
}

Status SatTransponder::put_NID(std::int32_t nid) noexcept
{
    if (!isIdentifier(nid))
        return status::kInvalidArgument;
    return put(&StoredTransponder::nid, nid);
}

Status SatTransponder::get_NID(std::int32_t* nid) noexcept
{
    return get(&StoredTransponder::nid, nid);
}

} // namespace tessaview
