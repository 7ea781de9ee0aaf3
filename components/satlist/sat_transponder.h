#pragma once

#include "components/satlist/stored_list.h"
#include "satlist/satellite_list.h"

#include <mutex>

namespace tessaview {

/// How this component knows its own transponders again when it is handed one.
struct IStoredTransponder : IUnknown {
    static constexpr Guid kId = "{2A9D6E41-58B7-4C03-B6F2-D1947A0C3E85}"_guid;

    virtual StoredTransponder stored() const = 0;

protected:
    ~IStoredTransponder() = default;
};

/// A transponder entry on its own: a change reaches a satellite with `AddTransponder`. The
/// properties take every value, NID and TSID those of 16 bits; those of DVB-S2 have ranges.
class SatTransponder final
    : public Implements<SatTransponder, ISatTransponder, ISatTransponderS2, IStoredTransponder> {
public:
    explicit SatTransponder(StoredTransponder stored) : stored_(std::move(stored)) {}

    Status put_Flag(std::int32_t flag) noexcept override;
    Status get_Flag(std::int32_t* flag) noexcept override;
    Status put_Frequency(std::int32_t frequency) noexcept override;
    Status get_Frequency(std::int32_t* frequency) noexcept override;
    Status put_TSID(std::int32_t tsid) noexcept override;
    Status get_TSID(std::int32_t* tsid) noexcept override;
    Status put_Polarization(std::int32_t polarization) noexcept override;
    Status get_Polarization(std::int32_t* polarization) noexcept override;
    Status put_SymbolRate(std::int32_t symbolRate) noexcept override;
    Status get_SymbolRate(std::int32_t* symbolRate) noexcept override;
    Status put_FEC(std::int32_t fec) noexcept override;
    Status get_FEC(std::int32_t* fec) noexcept override;
    Status put_NID(std::int32_t nid) noexcept override;
    Status get_NID(std::int32_t* nid) noexcept override;

    Status put_System(std::int32_t system) noexcept override;
    Status get_System(std::int32_t* system) noexcept override;
    Status put_Modulation(std::int32_t modulation) noexcept override;
    Status get_Modulation(std::int32_t* modulation) noexcept override;
    Status put_RollOff(std::int32_t rollOff) noexcept override;
    Status get_RollOff(std::int32_t* rollOff) noexcept override;
    Status put_Pilot(std::int32_t pilot) noexcept override;
    Status get_Pilot(std::int32_t* pilot) noexcept override;
    Status put_StreamId(std::int32_t streamId) noexcept override;
    Status get_StreamId(std::int32_t* streamId) noexcept override;

    StoredTransponder stored() const override;

private:
    friend Implements;
    ~SatTransponder() = default;

    using Member = std::int32_t StoredTransponder::*;
    Status put(Member member, std::int32_t value);
    Status put(const OptionalField& field, std::int32_t value);
    Status get(Member member, std::int32_t* value) const;

    mutable std::mutex mutex_;
    StoredTransponder stored_;
};

} // namespace tessaview
