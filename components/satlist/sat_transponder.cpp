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

Status SatTransponder::put(const OptionalField& field, std::int32_t value)
{
    if (value != kNotGiven && !field.takes(value))
        return status::kInvalidArgument;
    return put(field.member, value);
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

Status SatTransponder::put_System(std::int32_t system) noexcept
{
    return put(kSystemField, system);
}

Status SatTransponder::get_System(std::int32_t* system) noexcept
{
    return get(kSystemField.member, system);
}

Status SatTransponder::put_Modulation(std::int32_t modulation) noexcept
{
    return put(kModulationField, modulation);
}

Status SatTransponder::get_Modulation(std::int32_t* modulation) noexcept
{
    return get(kModulationField.member, modulation);
}

Status SatTransponder::put_RollOff(std::int32_t rollOff) noexcept
{
    return put(kRollOffField, rollOff);
}

Status SatTransponder::get_RollOff(std::int32_t* rollOff) noexcept
{
    return get(kRollOffField.member, rollOff);
}

Status SatTransponder::put_Pilot(std::int32_t pilot) noexcept
{
    return put(kPilotField, pilot);
}

Status SatTransponder::get_Pilot(std::int32_t* pilot) noexcept
{
    return get(kPilotField.member, pilot);
}

Status SatTransponder::put_StreamId(std::int32_t streamId) noexcept
{
    return put(kStreamIdField, streamId);
}

Status SatTransponder::get_StreamId(std::int32_t* streamId) noexcept
{
    return get(kStreamIdField.member, streamId);
}

} // namespace tessaview
