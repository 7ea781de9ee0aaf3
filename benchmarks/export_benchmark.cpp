#include "export/database_export.h"
#include "tests/export/sample_model.h"
#include "tests/support/temporary_folder.h"

#include <benchmark/benchmark.h>

namespace {

/// A whole export, file and all; the rate is that of the rows.
void exportModel(benchmark::State& state)
{
    const auto streams = static_cast<unsigned>(state.range(0));
    const auto services = static_cast<unsigned>(state.range(1));
    const tessaview::NetworkMap model = test::manyServices(streams, services);
    const test::TemporaryFolder folder;
    for (auto _ : state) {
        const auto failure = tessaview::exportDatabase(model, folder / "a.sqlite");
        if (failure)
            state.SkipWithError(failure->what());
        state.PauseTiming();
        std::filesystem::remove(folder / "a.sqlite");
        state.ResumeTiming();
    }
    // Each network, each stream with an EMM, each service with an ECM.
    const std::size_t rows = model.size() + 2UL * streams + 2UL * streams * services;
    state.counters["rows"] = benchmark::Counter(static_cast<double>(rows),
                                                benchmark::Counter::kIsIterationInvariantRate);
}

BENCHMARK(exportModel)
    ->Args({100, 20})
    ->Args({1000, 20})
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

} // namespace
