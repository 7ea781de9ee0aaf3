#include "drivers/linuxdvb/dvb_tuner.h"
#include "drivers/linuxdvb/pid_list.h"
#include "drivers/linuxdvb/stream_recorder.h"

#include <exception>
#include <iostream>
#include <string_view>
#include <thread>

// record FILE [PIDS]: records a second of the channel at 11362 MHz H, as "Streaming to file..."
// does. For the virtual machine, which has no window.

namespace {

using namespace tessaview;

constexpr std::chrono::seconds kLength{1};

void record(const char* file, std::string_view pids)
{
    SatelliteTuning channel{};
    channel.frequency = 1136200;
    channel.symbol_rate = 275000;
    DvbTuner tuner;
    tuner.tune({.satellite = {}, .tuning = channel, .s2 = {}});
    StreamRecorder recorder(tuner.kernel(),
                            {.demultiplexer = tuner.demultiplexer(),
                             .pids = pids.empty() ? std::vector<std::uint16_t>() : parsePids(pids),
                             .destination = file});
    StreamRecorder::Result result;
    std::jthread worker([&](const std::stop_token& stop) { result = recorder.run(stop); });
    std::this_thread::sleep_for(kLength);
    worker.request_stop();
    worker.join();
    std::cout << result.text << '\n';
}

} // namespace

int main(int argc, char** argv)
{
    if (argc < 2 || argc > 3) {
        std::cerr << "usage: record FILE [PIDS]\n";
        return 2;
    }
    try {
        record(argv[1], argc > 2 ? argv[2] : "");
        return 0;
    } catch (const std::exception& e) {
        std::cerr << e.what() << '\n';
        return 1;
    }
}
