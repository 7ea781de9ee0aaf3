#pragma once

#include "components/satlist/stored_list.h"
#include "satlist/satellite_list.h"

#include <mutex>
#include <string>

namespace tessaview {

/// The satellite list. Satellites go in and out as copies; every operation may be called from
/// every thread. Names are compared as they are written, case included.
class SatListManager final : public Implements<SatListManager, ISatListManager, ISatListFile> {
public:
    SatListManager() = default;

    /// The first argument has no meaning.
    Status EnumSatellites(std::int32_t one, std::int32_t selectedOnly,
                          IEnumSatellite** out) noexcept override;
    Status GetSatellite(const char16_t* name, ISatellite** out) noexcept override;
    /// Keeps what another manager has saved there since this one loaded or saved that file.
    Status Save(const char16_t* path) noexcept override;
    /// Replaces the list, or fails and leaves it.
    Status Load(const char16_t* path) noexcept override;
    /// Takes a copy of a satellite that this component created.
    Status PutSatellite(ISatellite* satellite) noexcept override;
    Status RemoveSatellite(const char16_t* name) noexcept override;
    /// The new satellite is selected: the list of a first start, which sets no flag, has
    /// something to scan.
    Status CreateSatellite(const char16_t* name, ISatellite** out) noexcept override;
    Status ReservedSlot8() noexcept override { return status::kNotImplemented; }
    /// The number of selected satellites.
    Status GetSatelliteCount(std::uint32_t* count) noexcept override;

    Status TakeAsBase(const char16_t* path) noexcept override;
    Status get_Problem(char16_t** text) noexcept override;

private:
    friend Implements;
    ~SatListManager() = default;

    std::mutex fileMutex_; ///< held while a file is read or written; taken before `mutex_`
    // Guarded by `fileMutex_`:
    std::string baseFile_; ///< the file last read or written
    StoredList base_;      ///< what it held then, or what was taken for it
    std::string problem_;  ///< of the last call that read or wrote a file

    std::mutex mutex_; ///< guards `list_`, for moments only
    StoredList list_;
};

} // namespace tessaview
