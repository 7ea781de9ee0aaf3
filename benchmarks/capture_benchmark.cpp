#include "drivers/capture/capture_index.h"
#include "drivers/capture/section_answers.h"
#include "tests/support/temporary_folder.h"
#include "tools/multiplex/sections.h"
#include "tools/multiplex/stream_builder.h"

#include <benchmark/benchmark.h>

namespace {

using namespace test;

/// A capture of about 256 MB that is page cache and not disk when it is read: every hundred
/// packets three of a schedule that repeats every sixteen times 300 sections.
class CaptureFile {
public:
    CaptureFile()
    {
        StreamBuilder stream;
        for (unsigned i = 0; i < 16 * 300; ++i) {
            const std::vector<Event> events(
                33, {.id = i % 300, .mjd = 0xC000, .start = 0, .duration = 3000});
            stream.put(0x0012, eit(0x50, i % 300, 1, 1, events)).nullPackets(97);
        }
        const Bytes part = stream.build();
        std::ofstream out(file(), std::ios::binary);
        for (int i = 0; i < 3; ++i)
            out.write(reinterpret_cast<const char*>(part.data()),
                      static_cast<std::streamsize>(part.size()));
    }

    std::filesystem::path file() const { return folder_ / "a.ts"; }
    std::int64_t size() const
    {
        return static_cast<std::int64_t>(std::filesystem::file_size(file()));
    }

private:
    TemporaryFolder folder_;
};

/// One pass for an event schedule, which reads to the end.
void readCapture(benchmark::State& state)
{
    const CaptureFile capture;
    tessaview::TableRequest request{};
    request.PID = 0x0012;
    request.table_id = 0x50;
    request.collection_mode = static_cast<std::uint32_t>(tessaview::CollectionMode::AllEvents);
    for (auto _ : state) {
        const auto answers = tessaview::readSections(capture.file(), {&request, 1});
        if (answers.lists.front().size() != 300)
            state.SkipWithError("sections are missing");
    }
    state.SetBytesProcessed(state.iterations() * capture.size());
}

/// Opening a file whose PAT and NIT stand at its start, as nearly all do.
void indexCapture(benchmark::State& state)
{
    StreamBuilder stream;
    stream.put(0x0000, pat(1, {})).put(0x0010, nit(0x40, 1, {}, {})).nullPackets(10'000);
    const Bytes bytes = stream.build();
    const TemporaryFolder folder;
    writeFile(folder / "a.ts", {reinterpret_cast<const char*>(bytes.data()), bytes.size()});
    for (auto _ : state)
        benchmark::DoNotOptimize(tessaview::indexCapture(folder / "a.ts"));
}

BENCHMARK(readCapture)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(indexCapture)->Unit(benchmark::kMicrosecond);

} // namespace
