#pragma once

#include "satlist/satellite_list.h"

#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace test {

struct ListedTransponder {
    std::int32_t frequency; ///< 10 kHz
    std::int32_t polarization = 0;
    std::int32_t symbolRate = 275000;
    std::int32_t fec = 3;
};

struct ListedSatellite {
    std::string name; ///< UTF-8
    std::vector<ListedTransponder> transponders = {};
    bool isSelected = true;
};

/// A satellite list that does what a test says.
class ScriptedSatellites final
    : public tessaview::Implements<ScriptedSatellites, tessaview::ISatListManager> {
public:
    using Status = tessaview::Status;

    static tessaview::ComPtr<ScriptedSatellites> make(std::vector<ListedSatellite> list)
    {
        auto made = tessaview::ComPtr<ScriptedSatellites>::adopt(new ScriptedSatellites);
        made->list = std::move(list);
        return made;
    }

    std::vector<ListedSatellite> list;
    /// Operations that fail: by name, or by name and the satellite's, "get_Name Astra".
    std::set<std::string> failing;
    /// Operations that succeed but give nothing.
    std::set<std::string> mute;

    Status EnumSatellites(std::int32_t one, std::int32_t selectedOnly,
                          tessaview::IEnumSatellite** out) noexcept override;
    Status GetSatellite(const char16_t* name, tessaview::ISatellite** out) noexcept override;
    Status Save(const char16_t* path) noexcept override;
    Status Load(const char16_t* path) noexcept override;
    Status PutSatellite(tessaview::ISatellite* satellite) noexcept override;
    Status RemoveSatellite(const char16_t* name) noexcept override;
    Status CreateSatellite(const char16_t* name, tessaview::ISatellite** out) noexcept override;
    Status ReservedSlot8() noexcept override;
    Status GetSatelliteCount(std::uint32_t* count) noexcept override;

    /// What an operation is to answer; for a mute one success.
    Status answer(const std::string& operation, const std::string& satellite = {}) const;
    bool isMute(const std::string& operation) const { return mute.contains(operation); }

private:
    friend Implements;
    ScriptedSatellites() = default;
    ~ScriptedSatellites() = default;
};

} // namespace test
