#pragma once

#include "acquisition/scanner.h"
#include "tests/acquisition/recorder.h"
#include "tests/acquisition/scripted_satellites.h"
#include "tests/acquisition/task_memory_watch.h"
#include "tests/support/scripted_driver.h"
#include "tests/support/tuning_records.h"
#include "tools/multiplex/descriptors.h"
#include "tools/multiplex/sections.h"

#include <array>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

// A small sky for the tests of scans: a network of three streams.

namespace test {

using namespace tessaview; // NOLINT(google-build-using-namespace): what is tested

constexpr unsigned kNetwork = 0x0001;

inline ListedStream listed(unsigned stream, std::uint64_t frequency)
{
    return {.stream = stream,
            .network = kNetwork,
            .descriptors = {test::satelliteDelivery(
                {.frequency = frequency, .orbitalPosition = 192, .polarization = 1})}};
}

/// The NIT of network 3001: streams 0001 and 0002, stream 0003 of cable alone, nothing.
inline std::vector<Bytes> networkSections()
{
    const ListedStream cable{.stream = 3,
                             .network = kNetwork,
                             .descriptors = {test::cableDelivery({.frequency = 3460000})}};
    const std::vector<std::vector<ListedStream>> sections{
        {listed(1, 1110000), listed(2, 1120099)}, {cable}, {}};
    std::vector<Bytes> out;
    for (unsigned i = 0; i < sections.size(); ++i)
        out.push_back(test::nit(0x40, 0x3001, {}, sections[i], {.number = i, .last = 2}));
    return out;
}

inline Air streamAir(unsigned stream, const std::vector<Bytes>& nit = networkSections())
{
    return {{{0x0000, 0x00}, {test::pat(stream, {})}},
            {{0x0010, 0x40}, nit},
            {{0x0011, 0x42}, {test::sdt(0x42, stream, kNetwork, {})}}};
}

inline Bytes damaged(Bytes section)
{
    section.back() ^= 1;
    return section;
}

class ProgressRecorder : public ScanProgress {
public:
    void reached(ScanLevel level, std::size_t number, std::size_t total) override
    {
        constexpr std::array<const char*, kScanLevelCount> names{"satellite", "entry", "section",
                                                                 "stream"};
        lines.push_back(names[static_cast<std::size_t>(level)] + std::string(" ") +
                        scanProgressText(number, total));
    }
    void hasRead(std::optional<unsigned> /*percent*/) override {}
    void askForSatellite() override { lines.emplace_back("which satellite?"); }

    Lines lines;
};

struct Scanning : testing::Test {
    Scanning() { setUpAir(); }

    void setUpAir() const
    {
        driver->satellite = "Quay";
        driver->satelliteTuning = test::satelliteRecord(1099900, 0, 220000, 4);
        driver->air = streamAir(1);
        driver->streams = {{1110000, streamAir(1)},
                           {1120099, streamAir(2)},
                           {1218700, streamAir(1)},
                           {1099900, {}}};
    }

    ScanSummary scan(ScanMode mode, std::optional<std::string> satellite = "Harbour")
    {
        ScanContext context{.driver = static_cast<IDriverInfo*>(driver.get()),
                            .satellites = satellites.get(),
                            .model = &model,
                            .selection = TableSelection::fixed(0),
                            .satellite = std::move(satellite),
                            .owner = &model};
        Scanner scanner(context, progress, cancelled);
        return scanner.run(mode);
    }

    /// All that is to be seen of a scan: a line for each that it prints, and one for each other
    /// thing.
    std::string transcript() const
    {
        std::string text;
        for (const std::string& line : recorder.printed())
            text += "    " + line + '\n';
        const auto add = [&text](const char* what, const Lines& lines) {
            for (std::size_t i = 0; i < lines.size(); ++i)
                text.append(i == 0 ? what : " | ").append(lines[i]);
            text += lines.empty() ? "" : "\n";
        };
        add("    logs ", recorder.logged());
        Lines tuned;
        for (const TuningCall& call : driver->tunings) {
            EXPECT_EQ(call.owner, &model);
            tuned.push_back(tunedText(call));
        }
        add("    tunes ", tuned);
        add("    reaches ", progress.lines);
        Lines stored;
        for (const auto& [id, network] : model)
            for (const auto& [stream, transponder] : network.transponders)
                stored.push_back(transponderText(transponder));
        add("    stores ", stored);
        return text;
    }

    void TearDown() override
    {
        model.clear(); // whose tables share the sections of the driver
        EXPECT_EQ(test::liveTaskBlocks(), blocksBefore) << "something was not released";
        EXPECT_EQ(test::wrongReleases(), 0);
        driver->AddRef();
        EXPECT_EQ(driver->Release(), 1) << "the driver is still held";
        satellites->AddRef();
        EXPECT_EQ(satellites->Release(), 1) << "the list is still held";
    }

    std::size_t blocksBefore = test::liveTaskBlocks();
    std::atomic<bool> cancelled = false;
    NetworkMap model;
    ProgressRecorder progress;
    test::Recorder recorder;
    ComPtr<ScriptedDriver> driver = ScriptedDriver::make();
    ComPtr<ScriptedSatellites> satellites = ScriptedSatellites::make(
        {{.name = "Astra", .transponders = {{.frequency = 1218700}}},
         {.name = "Quay", .transponders = {{.frequency = 900}, {.frequency = 800}}},
         {.name = "Not this one", .isSelected = false}});
};

/// A scan that something happens to.
struct ScanCase {
    const char* name;
    ScanMode mode;
    std::function<void(Scanning&)> script = [](Scanning&) {};
    std::optional<std::string> satellite = "Harbour";
};

inline std::function<void(Scanning&)> failing(const char* operation, int time = 0)
{
    return [=](Scanning& s) { s.driver->failAt(operation, status::kFail, time); };
}

inline std::function<void(Scanning&)> listFailing(const char* operation)
{
    return [=](Scanning& s) { s.satellites->failing.insert(operation); };
}

inline std::function<void(Scanning&)> cancelDuring(const char* operation, int time)
{
    return [=](Scanning& s) {
        s.driver->duringCall = [&s, operation, time](std::string_view called, int before) {
            if (called == operation && before == time)
                s.cancelled = true;
        };
    };
}

} // namespace test
