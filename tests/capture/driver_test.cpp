#include "component/bstr.h"
#include "platform/settings.h"
#include "tests/capture/loaded_driver.h"
#include "tests/support/tests.h"
#include "tests/support/tuning_records.h"
#include "tools/multiplex/descriptors.h"
#include "tools/multiplex/sections.h"
#include "tools/multiplex/stream_builder.h"

#include <atomic>
#include <cstring>

namespace {

Bytes streamReceivedBy(unsigned id, const std::vector<Bytes>& delivery)
{
    return StreamBuilder()
        .put(0x0000, pat(id, {}))
        .put(0x0010, nit(0x40, 1, {},
                         {{.stream = id + 1, .network = 1, .descriptors = {}},
                          {.stream = id, .network = 1, .descriptors = delivery}}))
        .build();
}

Bytes onSatellite(unsigned id, uint64_t frequency, unsigned polarization, unsigned position = 192,
                  bool isEast = true)
{
    return streamReceivedBy(id, {satelliteDelivery({.frequency = frequency,
                                                    .orbitalPosition = position,
                                                    .isEast = isEast,
                                                    .polarization = polarization})});
}

TEST(CaptureDriver, isSetToTheStoredCaptureAndTunerType)
{
    const LoadedDriver driver;
    EXPECT_FALSE(driver.isLocked());
    EXPECT_EQ(driver.tunerType(), 1U);
    EXPECT_EQ(driver.statusText(), "no capture chosen");
    EXPECT_THROW(driver.read({request(0, 0)}), std::runtime_error);

    Settings settings(defaultSettingsFile());
    const fs::path b = driver.file("set/b.ts", streamReceivedBy(2, {}));
    driver.file("set/a.ts", streamReceivedBy(1, {}));
    settings.setTexts("drivers", "captures", {(driver.folder() / "set").string()});
    settings.setText("drivers", "capture", b.string());
    for (const unsigned type : {3U, 2U, 1U, 4U, 0U}) {
        settings.setNumber("drivers", "tunertype", type);
        EXPECT_EQ(driver.initialize(), status::kOk);
        EXPECT_EQ(driver.tunerType(), type >= 1 && type <= 3 ? type : 1U);
    }
    EXPECT_TRUE(driver.isLocked());
    EXPECT_EQ(driver.stream(), 2U);
    EXPECT_EQ(driver.statusText(), "capture b.ts locked");

    settings.setTexts("drivers", "captures", {"/gone.ts"});
    EXPECT_EQ(driver.initialize(), status::kOk);
    EXPECT_FALSE(driver.isLocked());
    EXPECT_EQ(driver.statusText(),
              "no capture chosen (/gone.ts: cannot be opened: No such file or directory)");
}

TEST(CaptureDriver, takesTunerTypeTuningAndStatusFromTheCapture)
{
    const LoadedDriver driver;
    const auto tuner = driver.as<ISetTuner>();
    SatelliteTuning satellite{};
    CableTuning cable{};
    TerrestrialTuning terrestrial{};
    Bstr name;
    driver.file("sat/Astra/a.ts", onSatellite(1, 1218700, 1, 9 + 10 * 8, false));
    driver.use({driver.folder() / "sat"});
    EXPECT_EQ(driver.tunerType(), 1U);
    EXPECT_EQ(driver.statusText(), "capture a.ts 12187 MHz V 27500 kS/s locked");
    ASSERT_EQ(tuner->GetSatelliteTuning(name.put(), &satellite), status::kOk);
    EXPECT_EQ(name.utf8(), "Astra");
    EXPECT_EQ(satellite.frequency, 1218700U);
    EXPECT_EQ(satellite.orbital_position, 8U);
    EXPECT_EQ(satellite.west_east_flag, 0U);
    EXPECT_EQ(satellite.modulation, 1U);
    EXPECT_EQ(satellite.FEC_inner, 3U);

    driver.use({driver.file("c.ts", streamReceivedBy(2, {cableDelivery({.frequency = 3460000})}))});
    EXPECT_EQ(driver.tunerType(), 2U);
    EXPECT_EQ(driver.statusText(), "capture c.ts 346.000 MHz 6900 kS/s locked");
    ASSERT_EQ(tuner->GetCableTuning(&cable), status::kOk);
    EXPECT_EQ(cable.modulation, 3U);

    driver.use({driver.file("t.ts", streamReceivedBy(3, {terrestrialDelivery(0xFFFFFFFF)}))});
    EXPECT_EQ(driver.tunerType(), 3U);
    EXPECT_EQ(driver.statusText(), "capture t.ts locked");
    ASSERT_EQ(tuner->GetTerrestrialTuning(&terrestrial), status::kOk);
    EXPECT_EQ(terrestrial.centre_frequency, 0xFFFFFFFFU);

    // What it does not carry, or not whole, is not known.
    Bytes cut = satelliteDelivery({.frequency = 1218700, .orbitalPosition = 192});
    cut.pop_back();
    cut[1] = 10;
    for (const Bytes& stream : {streamReceivedBy(1, {}), streamReceivedBy(1, {cut})}) {
        driver.use({driver.file("a.ts", stream)});
        EXPECT_EQ(tuner->GetSatelliteTuning(name.put(), &satellite), status::kNotFound);
        EXPECT_EQ(tuner->GetCableTuning(&cable), status::kNotFound);
        EXPECT_EQ(tuner->GetTerrestrialTuning(&terrestrial), status::kNotFound);
    }
}

TEST(CaptureDriver, isTunedToTheSatelliteCaptureThatFits)
{
    const LoadedDriver driver;
    driver.file("set/Astra 1/a.ts", onSatellite(1, 1218700, 0));
    driver.file("set/Astra 1/b.ts", onSatellite(2, 1218700, 1));
    driver.file("set/Astra 1/c.ts", onSatellite(3, 1219200, 0));
    driver.file("set/Hot Bird/a.ts", onSatellite(4, 1218700, 0, 130));
    driver.file("set/Hot Bird/b.ts", onSatellite(5, 1218700, 0, 190, false));
    driver.file("set/d.ts", onSatellite(6, 1300000, 3, 0));
    driver.use({driver.folder() / "set"});
    const struct {
        const char* satellite;
        std::uint32_t frequency;
        int polarization;
        std::uint16_t position;
        std::uint32_t isEast;
        unsigned stream; // 0: none fits
    } cases[] = {
        {"", 1218700, 0, 0, 0, 1},
        {"", 1218700, 1, 0, 0, 2},
        {"", 1218400, 0, 0, 0, 1},
        {"", 1218399, 0, 0, 0, 0},
        {"", 1218960, 0, 0, 0, 3},
        {"", 1219500, 0, 0, 0, 3},
        {"", 1219501, 0, 0, 0, 0},
        {"", 1218700, 2, 0, 0, 0},
        {"", 1218700, 0, 13, 1, 4},
        {"", 1218700, 0, 19, 0, 5},
        {"", 1218700, 0, 28, 1, 0},
        {"Hot Bird", 1218700, 0, 0, 0, 4},
        {" hot BIRD ", 1218700, 0, 0, 0, 4},
        {"Hot Bird", 1219200, 0, 0, 0, 0},
        {"Unknown", 1219200, 0, 0, 0, 3},
        {"Astra 1", 1218700, 0, 13, 1, 0},
        {"", 1300000, 3, 19, 1, 6},
        {"", 0xFFFFFFFF, 0, 0, 0, 0},
        {"", 0, 0, 0, 0, 0},
    };
    unsigned before = driver.stream();
    for (const auto& each : cases) {
        SatelliteTuning wanted = satelliteRecord(each.frequency, each.polarization, 220000, 0);
        wanted.orbital_position = each.position;
        wanted.west_east_flag = each.isEast;
        const Bstr name{std::string_view(each.satellite)};
        const Status status =
            driver.as<ISetTuner>()->SetSatelliteTuning(nullptr, name.get(), &wanted);
        EXPECT_EQ(status, each.stream == 0 ? status::kNotFound : status::kOk);
        // A tuning that fails leaves the tuner as it was.
        before = each.stream == 0 ? before : each.stream;
        EXPECT_EQ(driver.stream(), before) << each.satellite << ' ' << each.frequency;
        EXPECT_TRUE(driver.isLocked());
    }
}

TEST(CaptureDriver, isTunedToTheNearestCableOrTerrestrialCapture)
{
    const LoadedDriver driver;
    driver.file("set/a.ts", streamReceivedBy(1, {cableDelivery({.frequency = 3460000})}));
    driver.file("set/b.ts", streamReceivedBy(2, {cableDelivery({.frequency = 3540000})}));
    driver.file("set/c.ts", streamReceivedBy(3, {terrestrialDelivery(47400000)}));
    driver.file("set/d.ts", streamReceivedBy(4, {terrestrialDelivery(0xFFFFFFFF)}));
    driver.use({driver.folder() / "set"});
    const struct {
        std::uint32_t frequency;
        bool isCable;
        unsigned stream;
    } cases[] = {{3465000, true, 1},   {3465001, true, 0},   {3535000, true, 2},
                 {47400000, true, 0},  {47450000, false, 3}, {47450001, false, 0},
                 {47350000, false, 3}, {3460000, false, 0},  {0xFFFFFFFF, false, 0}};
    for (const auto& each : cases) {
        const CableTuning cable = cableRecord(each.frequency);
        const TerrestrialTuning terrestrial = terrestrialRecord(each.frequency);
        const auto tuner = driver.as<ISetTuner>();
        const Status status = each.isCable ? tuner->SetCableTuning(nullptr, &cable)
                                           : tuner->SetTerrestrialTuning(nullptr, &terrestrial);
        EXPECT_EQ(failed(status), each.stream == 0) << each.frequency;
        if (each.stream != 0) {
            EXPECT_EQ(driver.stream(), each.stream) << each.frequency;
        }
    }
    EXPECT_EQ(driver.statusText(),
              "capture c.ts 474.000 MHz locked (the frequency is not known, so "
              "there is nothing to tune to)");
}

TEST(CaptureDriver, isSetToEachOfItsSourcesInTurn)
{
    const LoadedDriver driver;
    const auto sources = driver.as<ISourceList>();
    std::uint32_t current = 9;
    EXPECT_EQ(sources->GetCurrentSource(&current), status::kNotReady);
    driver.use({driver.file("a.ts", streamReceivedBy(1, {})),
                driver.file("b.ts", streamReceivedBy(2, {}))});
    std::uint32_t count = 0;
    EXPECT_EQ(sources->GetSourceCount(&count), status::kOk);
    EXPECT_EQ(count, 2U);
    for (const std::uint32_t index : {1U, 0U}) {
        EXPECT_EQ(sources->SelectSource(index), status::kOk);
        EXPECT_EQ(sources->GetCurrentSource(&current), status::kOk);
        EXPECT_EQ(current, index);
        EXPECT_EQ(driver.stream(), index + 1);
    }
    Bstr name;
    EXPECT_EQ(sources->GetSourceName(1, name.put()), status::kOk);
    EXPECT_EQ(name.utf8(), (driver.folder() / "b.ts").string());
    EXPECT_EQ(sources->SelectSource(2), status::kInvalidArgument);
    EXPECT_EQ(sources->GetSourceName(2, name.put()), status::kInvalidArgument);
}

TEST(CaptureDriver, readsNothingWhileItIsInterrupted)
{
    const LoadedDriver driver;
    const fs::path file = driver.file("a.ts", onSatellite(1, 1218700, 0));
    driver.use({file});
    const auto interrupt = driver.as<IInterrupt>();
    const TableRequest wanted = request(0, 0);
    SectionList list{};
    EXPECT_EQ(interrupt->SetInterrupted(1), status::kOk);
    EXPECT_EQ(driver.as<ISectionReader>()->ReadTables(1, &wanted, 30, &list), status::kCancelled);
    Status used = status::kOk;
    driver.use({file}, &used);
    EXPECT_EQ(used, status::kCancelled);
    EXPECT_EQ(interrupt->SetInterrupted(0), status::kOk);
    EXPECT_EQ(driver.stream(), 1U);
}

TEST(CaptureDriver, refusesNullPointersAndAnswersToNothingElse)
{
    const LoadedDriver driver;
    driver.use({driver.file("a.ts", onSatellite(1, 1218700, 0))});
    const auto info = driver.as<IDriverInfo>();
    const auto control = driver.as<IDriverControl>();
    const auto tuner = driver.as<ISetTuner>();
    const auto reader = driver.as<ISectionReader>();
    const auto state = driver.as<ITunerStatus>();
    const TableRequest wanted = request(0, 0);
    SectionList list{};
    SatelliteTuning satellite{};
    Bstr name;
    const Status answers[] = {
        info->GetName(nullptr),
        control->GetTunerType(nullptr),
        tuner->SetSatelliteTuning(nullptr, nullptr, nullptr),
        tuner->SetCableTuning(nullptr, nullptr),
        tuner->SetTerrestrialTuning(nullptr, nullptr),
        tuner->GetSatelliteTuning(nullptr, &satellite),
        tuner->GetSatelliteTuning(name.put(), nullptr),
        tuner->GetCableTuning(nullptr),
        tuner->GetTerrestrialTuning(nullptr),
        reader->ReadTables(1, nullptr, 30, &list),
        reader->ReadTables(1, &wanted, 30, nullptr),
        state->IsLocked(nullptr),
        state->GetStatusText(nullptr),
        driver.as<ISourceFiles>()->SetSourceFiles(1, nullptr, nullptr),
        info->QueryInterface(IDriverInfo::kId, nullptr),
    };
    for (std::size_t i = 0; i < std::size(answers); ++i)
        EXPECT_EQ(answers[i], status::kNullPointer) << i;
    // These may be missing.
    EXPECT_EQ(control->Initialize(nullptr, nullptr, nullptr), status::kOk);
    EXPECT_EQ(control->SetSatListManager(nullptr), status::kOk);
    EXPECT_EQ(reader->ReadTables(0, nullptr, 30, nullptr), status::kOk);
    void* object = &object;
    EXPECT_EQ(info->QueryInterface(kDriverCategory, &object), status::kNoInterface);
    EXPECT_EQ(object, nullptr);
    for (const Status reserved :
         {reader->ReservedSlot1(), state->ReservedSlot2(), state->ReservedSlot3()})
        EXPECT_EQ(reserved, status::kNotImplemented);
}

TEST(CaptureDriver, ignoresReservedFieldsOfRequests)
{
    const LoadedDriver driver;
    driver.use({driver.file("a.ts", streamReceivedBy(1, {}))});
    TableRequest wanted;
    std::memset(&wanted, 0xFF, sizeof wanted);
    wanted.PID = wanted.table_id = 0;
    wanted.collection_mode = wanted.match_table_id_extension = 0;
    EXPECT_EQ(driver.read({wanted}).front().size(), 1U);
}

TEST(CaptureDriver, isUsedFromSeveralThreadsAtOnce)
{
    const LoadedDriver driver;
    const fs::path a = driver.file("a.ts", onSatellite(1, 1218700, 0));
    const fs::path b = driver.file("b.ts", onSatellite(2, 1300000, 0));
    driver.use({a, b});
    std::atomic<bool> isOver = false;
    std::thread window([&] {
        while (!isOver) {
            EXPECT_TRUE(driver.isLocked());
            EXPECT_EQ(driver.tunerType(), 1U);
            EXPECT_NE(driver.statusText(), "");
        }
    });
    std::thread files([&] {
        for (int i = 0; i < 50; ++i)
            driver.use(i % 2 ? std::vector{a, b} : std::vector{b, a});
    });
    const auto tuner = driver.as<ISetTuner>();
    for (int i = 0; i < 200; ++i) {
        const SatelliteTuning wanted = satelliteRecord(i % 2 ? 1218700 : 1300000, 0, 0, 0);
        const Status status = tuner->SetSatelliteTuning(nullptr, nullptr, &wanted);
        // The set may have been replaced between looking for the capture and setting to it.
        EXPECT_TRUE(status == status::kOk || status == status::kNotReady);
        EXPECT_EQ(driver.read({request(0, 0)}).front().size(), 1U);
        SatelliteTuning current{};
        Bstr name;
        EXPECT_EQ(tuner->GetSatelliteTuning(name.put(), &current), status::kOk);
    }
    files.join();
    isOver = true;
    window.join();
}

} // namespace
