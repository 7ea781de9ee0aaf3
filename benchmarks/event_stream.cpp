#include "benchmarks/event_stream.h"

#include "tools/multiplex/descriptors.h"
#include "tools/multiplex/sections.h"
#include "tools/multiplex/stream_builder.h"

#include <algorithm>
#include <fstream>
#include <string>
#include <vector>

namespace {

using test::Bytes;

constexpr unsigned kStream = 0x0451;
constexpr unsigned kNetwork = 0x0085;
constexpr unsigned kEitPid = 0x12;
constexpr unsigned kSectionsOfService = 256;

std::vector<Bytes> descriptorsOf(unsigned event)
{
    return {test::shortEvent("eng", "The Lighthouse Keepers " + std::to_string(event),
                             "A keeper, a storm and a ship that was never on the chart: the last "
                             "night of the old light, told by those who were there."),
            test::content(0x15), test::parentalRating("GBR", 9),
            test::component(1, 3, 1, "eng", "16:9 stereo")};
}

/// One section of the schedule, of the events from `first` on.
Bytes scheduleSection(unsigned index, unsigned first, unsigned count)
{
    std::vector<test::Event> events;
    for (unsigned event = first; event < first + count; ++event)
        events.push_back({.id = event & 0xFFFF,
                          .mjd = 61368 + event % 7,
                          .start = 120000,
                          .duration = 10000,
                          .descriptors = descriptorsOf(event)});
    return test::eit(0x50, 1 + index / kSectionsOfService, kStream, kNetwork, events,
                     {.number = index % kSectionsOfService, .last = kSectionsOfService - 1});
}

void write(std::ofstream& file, unsigned pid, const std::vector<Bytes>& sections)
{
    const Bytes packets = test::StreamBuilder().putPacked(pid, sections).build();
    file.write(reinterpret_cast<const char*>(packets.data()),
               static_cast<std::streamsize>(packets.size()));
}

} // namespace

void writeEventStream(const std::filesystem::path& path, unsigned events, unsigned perSection)
{
    std::ofstream file(path, std::ios::binary);
    file.exceptions(std::ios::failbit | std::ios::badbit);
    write(file, 0x00, {test::pat(kStream, {{0, 0x10}})});
    write(file, 0x10, {test::nit(test::kNitActual, kNetwork, {}, {{kStream, kNetwork}})});
    write(file, 0x11, {test::sdt(test::kSdtActual, kStream, kNetwork, {{.id = 1}})});
    for (int time = 0; time < 2; ++time)
        for (unsigned index = 0; index * perSection < events;) {
            std::vector<Bytes> sections;
            for (; sections.size() < kSectionsOfService && index * perSection < events; ++index)
                sections.push_back(scheduleSection(
                    index, index * perSection, std::min(perSection, events - index * perSection)));
            write(file, kEitPid, sections);
        }
}
