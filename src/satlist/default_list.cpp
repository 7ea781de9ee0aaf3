#include "satlist/default_list.h"

#include "satlist/list_access.h"

#include <span>
#include <string_view>
#include <vector>

namespace tessaview {

namespace {

enum Polarization : std::int32_t { H, V, L, R };

struct DefaultTransponder {
    std::int32_t frequency; ///< 10 kHz
    Polarization polarization;
    std::int32_t symbolRate; ///< 100 symbols/s
    std::int32_t fec;
};

struct DefaultSatellite {
    std::string_view name;
    std::span<const DefaultTransponder> transponders; ///< their TSIDs count from 1
};

// clang-format off
constexpr DefaultTransponder kAstra[]{{1218700, H, 275000, 1}};
constexpr DefaultTransponder kHispasat[]{{1177100, V, 275000, 3}, {1181100, H, 275000, 3}};
constexpr DefaultTransponder kSirius[]{{1238000, H, 245000, 1}};
constexpr DefaultTransponder kOneDegreeWest[]{{1232200, H, 278000, 3}};
constexpr DefaultTransponder kHotbird[]{
    {1071900, V, 275000, 3}, {1093000, H, 275000, 3}, {1099200, V, 275000, 3},
    {1232200, H, 275000, 3}, {1075800, V, 275000, 3}, {1168100, H, 275000, 3},
    {1239900, H, 275000, 3}};
constexpr DefaultTransponder kEchostar7[]{{1223900, L, 200000, 4}};
constexpr DefaultTransponder kOtherAmerican[]{{1222400, R, 200000, 4}};

constexpr DefaultSatellite kSatellites[]{
    {"Astra 19E", kAstra},
    {"Hispasat Europe 30W", kHispasat},
    {"Sirius Satellite System European Coverage", kSirius},
    {"1 degree W", kOneDegreeWest},
    {"Hotbird 13E", kHotbird},
    {"Echostar 7 119 W", kEchostar7},
    {"Echostar 6/8 110 W", kOtherAmerican},
    {"Nimiq 1 91 W", kOtherAmerican},
    {"Nimiq 2 82 W", kOtherAmerican}};
// clang-format on

Status putDefault(ISatListManager& manager, const DefaultSatellite& satellite)
{
    ComPtr<ISatellite> created;
    Status result = createSatellite(manager, Bstr(satellite.name), created);
    std::int32_t tsid = 0;
    for (const DefaultTransponder& transponder : satellite.transponders) {
        if (failed(result))
            return result;
        result = addTransponder(*created.get(), {.tsid = ++tsid,
                                                 .frequency = transponder.frequency,
                                                 .polarization = transponder.polarization,
                                                 .symbolRate = transponder.symbolRate,
                                                 .fec = transponder.fec});
    }
    return failed(result) ? result : manager.PutSatellite(created.get());
}

} // namespace

Status fillDefaultList(ISatListManager& manager)
{
    for (const DefaultSatellite& satellite : kSatellites)
        if (const Status result = putDefault(manager, satellite); failed(result))
            return result;
    return status::kOk;
}

} // namespace tessaview
