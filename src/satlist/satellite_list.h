#pragma once

#include "component/unknown.h"

#include <cstdint>

// The satellite list as the explorer and tuner drivers see it: interfaces in slot order, kept by a
// component of its own. All values cross as 32-bit integers, texts as length-prefixed wide strings:
// an input text stays the caller's, an output text is released by the caller.

namespace tessaview {

/// The class of the satellite list manager.
constexpr Guid kSatListManagerClass = "{25DD8117-7C68-4F27-8D64-162767784EC1}"_guid;

/// Where a scan starts on a satellite. NID and TSID identify it within its satellite.
struct ISatTransponder : IUnknown {
    static constexpr Guid kId = "{5E1C7A90-2D34-4B8F-9A61-7F0C3B52D8E4}"_guid;

    virtual Status put_Flag(std::int32_t flag) noexcept = 0; ///< above 0: added by the user
    virtual Status get_Flag(std::int32_t* flag) noexcept = 0;
    virtual Status put_Frequency(std::int32_t frequency) noexcept = 0; ///< 10 kHz
    virtual Status get_Frequency(std::int32_t* frequency) noexcept = 0;
    virtual Status put_TSID(std::int32_t tsid) noexcept = 0;
    virtual Status get_TSID(std::int32_t* tsid) noexcept = 0;
    virtual Status put_Polarization(std::int32_t polarization) noexcept = 0; ///< 0 H, 1 V, 2 L, 3 R
    virtual Status get_Polarization(std::int32_t* polarization) noexcept = 0;
    virtual Status put_SymbolRate(std::int32_t symbolRate) noexcept = 0; ///< 100 symbols/s
    virtual Status get_SymbolRate(std::int32_t* symbolRate) noexcept = 0;
    virtual Status put_FEC(std::int32_t fec) noexcept = 0; ///< 0 to 7
    virtual Status get_FEC(std::int32_t* fec) noexcept = 0;
    virtual Status put_NID(std::int32_t nid) noexcept = 0;
    virtual Status get_NID(std::int32_t* nid) noexcept = 0;

protected:
    ~ISatTransponder() = default;
};

/// Optional, answered to by a transponder: what DVB-S2 needs besides. Each value is `kNotGiven`
/// until it is put, and putting `kNotGiven` takes it away again; any other value outside the range
/// is refused.
struct ISatTransponderS2 : IUnknown {
    static constexpr Guid kId = "{BFE9B793-2416-4023-B938-7C585B90AD0A}"_guid;
    static constexpr std::int32_t kNotGiven = -1;

    virtual Status put_System(std::int32_t system) noexcept = 0; ///< 0 DVB-S, 1 DVB-S2
    virtual Status get_System(std::int32_t* system) noexcept = 0;
    /// 1 QPSK, 2 8PSK, 3 16APSK, 4 32APSK
    virtual Status put_Modulation(std::int32_t modulation) noexcept = 0;
    virtual Status get_Modulation(std::int32_t* modulation) noexcept = 0;
    /// As the satellite delivery system descriptor codes it: 0 for 0.35, 1 for 0.25, 2 for 0.20
    virtual Status put_RollOff(std::int32_t rollOff) noexcept = 0;
    virtual Status get_RollOff(std::int32_t* rollOff) noexcept = 0;
    virtual Status put_Pilot(std::int32_t pilot) noexcept = 0; ///< 0 off, 1 on
    virtual Status get_Pilot(std::int32_t* pilot) noexcept = 0;
    virtual Status put_StreamId(std::int32_t streamId) noexcept = 0; ///< 0 to 255
    virtual Status get_StreamId(std::int32_t* streamId) noexcept = 0;

protected:
    ~ISatTransponderS2() = default;
};

/// Gives out one item after another. `Next` is always called with a count of 1 and a null third
/// argument; it returns 0 while it yields an item, which the caller releases.
template <class Item>
struct IEnum : IUnknown {
    virtual Status Next(std::uint32_t count, Item** item, std::uint32_t* fetched) noexcept = 0;

protected:
    ~IEnum() = default;
};

struct IEnumSatTransponder : IEnum<ISatTransponder> {
    static constexpr Guid kId = "{B7D20C61-94AE-4F3B-8C15-3E6A81F09D27}"_guid;

protected:
    ~IEnumSatTransponder() = default;
};

/// One satellite: its name is the key. A change reaches the list with `PutSatellite`.
struct ISatellite : IUnknown {
    static constexpr Guid kId = "{93F4B8D7-61C2-4E0A-A5D9-0B7E2C48F136}"_guid;

    virtual Status get_Name(char16_t** name) noexcept = 0;
    virtual Status ReservedSlot2() noexcept = 0; ///< never called
    /// `purpose` is 1 in scans and 0 in the Transponder list dialog.
    virtual Status EnumTransponders(std::int32_t purpose, IEnumSatTransponder** out) noexcept = 0;
    virtual Status put_Selected(std::int32_t selected) noexcept = 0;
    virtual Status get_Selected(std::int32_t* selected) noexcept = 0;
    virtual Status put_AddedByUser(std::int32_t added) noexcept = 0;
    virtual Status ReservedSlot7() noexcept = 0; ///< never called
    virtual Status AddTransponder(ISatTransponder* transponder) noexcept = 0;
    virtual Status RemoveTransponder(std::int32_t nid, std::int32_t tsid) noexcept = 0;
    virtual Status CreateTransponder(std::int32_t nid, std::int32_t tsid,
                                     ISatTransponder** out) noexcept = 0;
    virtual Status ReservedSlot11() noexcept = 0; ///< never called
    virtual Status ReservedSlot12() noexcept = 0; ///< never called
    virtual Status GetTransponderCount(std::uint32_t* count) noexcept = 0;

protected:
    ~ISatellite() = default;
};

struct IEnumSatellite : IEnum<ISatellite> {
    static constexpr Guid kId = "{0C6E19A4-7D5B-4823-B1F0-95D4E7A36C82}"_guid;

protected:
    ~IEnumSatellite() = default;
};

struct ISatListManager : IUnknown {
    static constexpr Guid kId = "{5CBF55BE-A269-416B-8737-EB8F9D3802CF}"_guid;

    /// `one` is always 1. `selectedOnly` 1: only the selected satellites.
    virtual Status EnumSatellites(std::int32_t one, std::int32_t selectedOnly,
                                  IEnumSatellite** out) noexcept = 0;
    virtual Status GetSatellite(const char16_t* name, ISatellite** out) noexcept = 0;
    virtual Status Save(const char16_t* path) noexcept = 0;
    virtual Status Load(const char16_t* path) noexcept = 0;
    /// Adds the satellite, or replaces the one of the same name.
    virtual Status PutSatellite(ISatellite* satellite) noexcept = 0;
    virtual Status RemoveSatellite(const char16_t* name) noexcept = 0;
    /// A new satellite that is not in the list yet.
    virtual Status CreateSatellite(const char16_t* name, ISatellite** out) noexcept = 0;
    virtual Status ReservedSlot8() noexcept = 0; ///< never called
    /// The total that is shown while all selected satellites are scanned.
    virtual Status GetSatelliteCount(std::uint32_t* count) noexcept = 0;

protected:
    ~ISatListManager() = default;
};

/// Optional, answered to by the manager: what it knows of the file besides.
struct ISatListFile : IUnknown {
    static constexpr Guid kId = "{E5821E03-42C0-49FA-8D75-5E1705699A88}"_guid;

    /// Takes the list as it is for what that file held when it was last read, so that only what is
    /// changed from now on counts as a change when `Save` joins both.
    virtual Status TakeAsBase(const char16_t* path) noexcept = 0;
    /// Why the last `Load` or `Save` failed, for a person to read; empty when it did not.
    virtual Status get_Problem(char16_t** text) noexcept = 0;

protected:
    ~ISatListFile() = default;
};

} // namespace tessaview
