#pragma once

#include "component/unknown.h"

#include <cstddef>
#include <cstdint>

// The contract between the explorer and any tuner driver: interfaces in slot order and records
// byte for byte, little-endian. Every operation returns a status and may be called from several
// threads at the same time: which is called from where stands in docs/driver-guide.md.

namespace tessaview {

/// The component category of tuner drivers.
constexpr Guid kDriverCategory = "{EF0D1518-8E81-4B68-940C-42A0ABF05AA6}"_guid;

/// The id in the window system of the window that a driver may use as parent of any window it
/// shows; null for none.
using WindowHandle = void*;

/// What kind of tuner a driver has; any other value means unknown.
enum class TunerType : std::uint16_t { Satellite = 1, Cable = 2, Terrestrial = 3 };

/// How much of a table a request collects.
enum class CollectionMode : std::uint32_t {
    SingleInstance = 0, ///< all sections of one table instance
    OtherNetworks = 3,  ///< all instances of NIT other
    OtherStreams = 4,   ///< all instances of SDT other
    AllEvents = 5,      ///< all EIT instances; for a schedule of its whole table_id range
};

/// One table that the driver is to collect; requests are passed as a contiguous array. Every
/// reserved field is 0 and carries no meaning.
struct TableRequest {
    std::uint32_t PID;
    std::uint8_t table_id; ///< for an EIT schedule the first of its range, 0x50 or 0x60
    std::uint8_t padding1[3];
    std::uint32_t collection_mode; ///< a CollectionMode
    std::uint32_t reserved1[4];
    std::uint32_t match_table_id_extension; ///< 1 when table_id_extension is given
    std::uint16_t table_id_extension;
    std::uint8_t reserved2[10];
    std::uint32_t reserved3[5];
    std::uint8_t reserved4[36];
};
static_assert(sizeof(TableRequest) == 100 && alignof(TableRequest) == 4);
static_assert(offsetof(TableRequest, PID) == 0 && offsetof(TableRequest, table_id) == 4);
static_assert(offsetof(TableRequest, collection_mode) == 8);
static_assert(offsetof(TableRequest, reserved1) == 12);
static_assert(offsetof(TableRequest, match_table_id_extension) == 28);
static_assert(offsetof(TableRequest, table_id_extension) == 32);
static_assert(offsetof(TableRequest, reserved2) == 34);
static_assert(offsetof(TableRequest, reserved3) == 44);
static_assert(offsetof(TableRequest, reserved4) == 64);

/// The driver's answer to one request: raw sections, each from table_id through CRC_32. Array and
/// sections are task memory; the receiver releases every section, then the array. With a count
/// of zero or less only the array, which may be null.
struct SectionList {
    std::int32_t count;
    std::uint8_t** sections;
};
static_assert(offsetof(SectionList, count) == 0);
static_assert(offsetof(SectionList, sections) == sizeof(void*));
static_assert(sizeof(SectionList) == 2 * sizeof(void*));

struct SatelliteTuning {
    std::uint32_t frequency;        ///< 10 kHz
    std::uint16_t orbital_position; ///< the delivery descriptor's degrees, truncated
    std::uint8_t padding1[2];
    std::uint32_t west_east_flag; ///< 1 = east
    std::uint8_t polarization;    ///< 0 horizontal, 1 vertical, 2 left, 3 right
    /// The delivery descriptor's 5 bits: roll_off, modulation_system, modulation_type; 0: not told.
    std::uint8_t modulation;
    std::uint8_t padding2[2];
    std::uint32_t symbol_rate; ///< 100 symbols/s
    std::uint8_t FEC_inner;
    std::uint8_t padding3[3];
};
static_assert(sizeof(SatelliteTuning) == 24);
static_assert(offsetof(SatelliteTuning, orbital_position) == 4);
static_assert(offsetof(SatelliteTuning, west_east_flag) == 8);
static_assert(offsetof(SatelliteTuning, polarization) == 12);
static_assert(offsetof(SatelliteTuning, modulation) == 13);
static_assert(offsetof(SatelliteTuning, symbol_rate) == 16);
static_assert(offsetof(SatelliteTuning, FEC_inner) == 20);

struct CableTuning {
    std::uint32_t frequency; ///< 100 Hz
    std::uint8_t FEC_outer;
    std::uint8_t modulation;
    std::uint8_t padding1[2];
    std::uint32_t symbol_rate; ///< 100 symbols/s
    std::uint8_t FEC_inner;
    std::uint8_t padding2[3];
};
static_assert(sizeof(CableTuning) == 16);
static_assert(offsetof(CableTuning, FEC_outer) == 4 && offsetof(CableTuning, modulation) == 5);
static_assert(offsetof(CableTuning, symbol_rate) == 8 && offsetof(CableTuning, FEC_inner) == 12);

struct TerrestrialTuning {
    std::uint32_t centre_frequency; ///< 10 Hz
    std::uint8_t bandwidth;
    std::uint8_t constellation;
    std::uint8_t hierarchy_information;
    std::uint8_t code_rate_HP_stream;
    std::uint8_t code_rate_LP_stream;
    std::uint8_t guard_interval;
    std::uint8_t transmission_mode;
    std::uint8_t other_frequency_flag;
};
static_assert(sizeof(TerrestrialTuning) == 12);
static_assert(offsetof(TerrestrialTuning, bandwidth) == 4);
static_assert(offsetof(TerrestrialTuning, other_frequency_flag) == 11);

struct ISatListManager;

/// The interface a driver is created with.
struct IDriverInfo : IUnknown {
    static constexpr Guid kId = "{25B857B1-139B-4DB3-98CF-FBFCD0D50B9E}"_guid;

    /// The driver's display name; the caller frees it.
    virtual Status GetName(char16_t** name) noexcept = 0;

protected:
    ~IDriverInfo() = default;
};

struct IDriverControl : IUnknown {
    static constexpr Guid kId = "{ABB1A3CD-52E4-4648-B059-716356D2D4F7}"_guid;

    /// Called once after creation: where the driver may keep settings and files.
    virtual Status Initialize(const char16_t* settingsKey, const char16_t* userFolder,
                              const char16_t* commonFolder) noexcept = 0;
    /// Called once when the application exits.
    virtual Status Shutdown() noexcept = 0;
    /// A TunerType; other values mean unknown.
    virtual Status GetTunerType(std::uint16_t* type) noexcept = 0;
    /// Called once, right after Initialize.
    virtual Status SetSatListManager(ISatListManager* manager) noexcept = 0;

protected:
    ~IDriverControl() = default;
};

/// A set operation returns when the tuner is set. The satellite is a name of the satellite list,
/// or "" when the parameters come from a NIT.
struct ISetTuner : IUnknown {
    static constexpr Guid kId = "{CCD3785B-4C91-4E52-B001-F68F400F8473}"_guid;

    virtual Status SetSatelliteTuning(WindowHandle owner, const char16_t* satellite,
                                      const SatelliteTuning* tuning) noexcept = 0;
    virtual Status SetCableTuning(WindowHandle owner, const CableTuning* tuning) noexcept = 0;
    virtual Status SetTerrestrialTuning(WindowHandle owner,
                                        const TerrestrialTuning* tuning) noexcept = 0;
    /// The caller frees the satellite's name.
    virtual Status GetSatelliteTuning(char16_t** satellite, SatelliteTuning* tuning) noexcept = 0;
    virtual Status GetCableTuning(CableTuning* tuning) noexcept = 0;
    virtual Status GetTerrestrialTuning(TerrestrialTuning* tuning) noexcept = 0;

protected:
    ~ISetTuner() = default;
};

struct ISectionReader : IUnknown {
    static constexpr Guid kId = "{1771F5A2-F5EE-4C38-BAF2-B939F1F99642}"_guid;

    virtual Status ReservedSlot1() noexcept = 0; ///< never called
    /// Collects the tables of the stream the tuner is set to. `results` has one entry per
    /// request. A request that got nothing is answered with a count of 0; a failure status means
    /// that nothing was read. A count of 0 succeeds and touches nothing.
    virtual Status ReadTables(std::uint32_t count, const TableRequest* requests,
                              std::uint32_t waitLimit, SectionList* results) noexcept = 0;

protected:
    ~ISectionReader() = default;
};

/// The driver's own windows. Called on the window's thread only.
struct IDeviceDialogs : IUnknown {
    static constexpr Guid kId = "{F209EF9A-660B-4D77-A54F-AD659FF97175}"_guid;

    virtual Status ShowTuningDialog(WindowHandle owner) noexcept = 0;
    virtual Status ShowSettingsDialog(WindowHandle owner) noexcept = 0;
    virtual Status ShowStreamingDialog(WindowHandle owner) noexcept = 0;

protected:
    ~IDeviceDialogs() = default;
};

/// Called several times a second from a thread of the explorer's own, also while a tuning or a
/// reading is under way on another; never on the window's thread.
struct ITunerStatus : IUnknown {
    static constexpr Guid kId = "{228BBB7B-9F13-4F9F-BD42-858BF0E473EC}"_guid;

    /// Non-zero when the tuner has a signal lock.
    virtual Status IsLocked(std::int32_t* locked) noexcept = 0;
    virtual Status ReservedSlot2() noexcept = 0; ///< never called
    virtual Status ReservedSlot3() noexcept = 0; ///< never called
    /// A short text for the status bar; the caller frees it.
    virtual Status GetStatusText(char16_t** text) noexcept = 0;

protected:
    ~ITunerStatus() = default;
};

/// Optional: a driver that can be pointed at files or folders for this run, without touching its
/// stored settings.
struct ISourceFiles : IUnknown {
    static constexpr Guid kId = "{6D0C8A35-5E1B-4E0F-9B62-3C7B1A94D7E8}"_guid;

    /// Takes paths in the form of `pathText` (component/path_text.h) as wide strings; the first is
    /// what the tuner is set to. `problem`, if not null, receives one line per path that could not
    /// be used; the caller frees it. Fails when none could.
    virtual Status SetSourceFiles(std::uint32_t count, const char16_t* const* paths,
                                  char16_t** problem) noexcept = 0;

protected:
    ~ISourceFiles() = default;
};

/// Optional: a driver whose work can be cut short, so that who cancels need not wait for a lock or
/// a slow table.
struct IInterrupt : IUnknown {
    static constexpr Guid kId = "{400872CE-69B4-42A8-AB0B-E2F8F16CDBAD}"_guid;

    /// While this was last called with non-zero, a set operation, `SetSourceFiles` or `ReadTables`
    /// under way ends soon, with a failure or with what it has, and one that begins fails at once;
    /// with 0 they work again. A level, not an event, so that an operation that is just beginning
    /// is not missed. Called from any thread, also while another is in an operation; returns at
    /// once.
    virtual Status SetInterrupted(std::int32_t interrupted) noexcept = 0;

protected:
    ~IInterrupt() = default;
};

/// Optional: a driver whose streams are a list, such as captured files, so that all of them can be
/// read without knowing how to tune to each.
struct ISourceList : IUnknown {
    static constexpr Guid kId = "{B1C5D7E2-6F0A-4E38-9C47-5A2D81E3F690}"_guid;

    virtual Status GetSourceCount(std::uint32_t* count) noexcept = 0;
    /// Which source the tuner is set to, from 0; fails when it is set to none.
    virtual Status GetCurrentSource(std::uint32_t* index) noexcept = 0;
    /// What a person calls the source, such as the path of a file. The caller frees it.
    virtual Status GetSourceName(std::uint32_t index, char16_t** name) noexcept = 0;
    /// Sets the tuner to a source, as a set operation of `ISetTuner` does.
    virtual Status SelectSource(std::uint32_t index) noexcept = 0;

protected:
    ~ISourceList() = default;
};

/// Optional: a driver that knows when something may be missing from what it has read.
struct IReadReport : IUnknown {
    static constexpr Guid kId = "{9C5E2F70-3A84-4D1B-B6E9-1F07D2A8C463}"_guid;

    /// Why the last `ReadTables` that succeeded may not have got all of its tables, in a line for
    /// the user; empty when nothing is known to be missing. A table that is not on air is not
    /// missing. The caller frees the text.
    virtual Status GetReadProblem(char16_t** problem) noexcept = 0;

protected:
    ~IReadReport() = default;
};

/// Optional: a driver that knows how far an operation under way is.
struct IReadProgress : IUnknown {
    static constexpr Guid kId = "{5B0F7D42-9A36-4E18-8C71-D4E2A6F03B95}"_guid;

    /// How far the operation under way is: of `ReadTables` the bytes of the stream that were read
    /// and those that there are, of `Initialize` and `SetSourceFiles` the files that were looked at
    /// and those that there are. A batch whose tables are all found ends before `total` is reached.
    /// Both are 0 when nothing is under way or its end is not known. Called from any thread, also
    /// while another is in the operation; returns at once.
    virtual Status GetReadProgress(std::uint64_t* position, std::uint64_t* total) noexcept = 0;

protected:
    ~IReadProgress() = default;
};

} // namespace tessaview
