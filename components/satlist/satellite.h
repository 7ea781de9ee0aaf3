#pragma once

#include "components/satlist/stored_list.h"
#include "satlist/satellite_list.h"

#include <mutex>

namespace tessaview {

/// How this component knows its own satellites again when it is handed one.
struct IStoredSatellite : IUnknown {
    static constexpr Guid kId = "{C4710B9E-36FA-4D52-8E1B-7A05D9F28B64}"_guid;

    virtual StoredSatellite stored() const = 0;

protected:
    ~IStoredSatellite() = default;
};

/// A satellite on its own: a change reaches the list with `PutSatellite`. Its transponders go in
/// and out as copies.
class Satellite final : public Implements<Satellite, ISatellite, IStoredSatellite> {
public:
    explicit Satellite(StoredSatellite stored) : stored_(std::move(stored)) {}

    Status get_Name(char16_t** name) noexcept override;
    Status ReservedSlot2() noexcept override { return status::kNotImplemented; }
    /// All transponders, whatever they are wanted for.
    Status EnumTransponders(std::int32_t purpose, IEnumSatTransponder** out) noexcept override;
    Status put_Selected(std::int32_t selected) noexcept override;
    Status get_Selected(std::int32_t* selected) noexcept override;
    Status put_AddedByUser(std::int32_t added) noexcept override;
    Status ReservedSlot7() noexcept override { return status::kNotImplemented; }
    /// Takes a copy of a transponder that this component created. One with the NID and TSID of
    /// another that is there is refused with `kAlreadyExists`.
    Status AddTransponder(ISatTransponder* transponder) noexcept override;
    Status RemoveTransponder(std::int32_t nid, std::int32_t tsid) noexcept override;
    Status CreateTransponder(std::int32_t nid, std::int32_t tsid,
                             ISatTransponder** out) noexcept override;
    Status ReservedSlot11() noexcept override { return status::kNotImplemented; }
    Status ReservedSlot12() noexcept override { return status::kNotImplemented; }
    Status GetTransponderCount(std::uint32_t* count) noexcept override;

    StoredSatellite stored() const override;

private:
    friend class Implements<Satellite, ISatellite, IStoredSatellite>;
    ~Satellite() = default;

    mutable std::mutex mutex_;
    StoredSatellite stored_;
};

} // namespace tessaview
