// A captured stream from its packets to the collected sections.

#include "drivers/capture/demultiplexer.h"
#include "fuzz/request_set.h"
#include "fuzz/table_harness.h"
#include "si/section.h"

#include <string>
#include <sys/mman.h>
#include <unistd.h>

namespace {

/// A file that lives in memory, under a name that can be opened.
class MemoryFile {
public:
    explicit MemoryFile(std::span<const uint8_t> content) : file_(memfd_create("capture", 0))
    {
        fuzz::require(write(file_, content.data(), content.size()) ==
                      static_cast<ssize_t>(content.size()));
    }
    MemoryFile(const MemoryFile&) = delete;
    MemoryFile& operator=(const MemoryFile&) = delete;
    ~MemoryFile() { close(file_); }

    std::string path() const { return "/proc/self/fd/" + std::to_string(file_); }

private:
    int file_;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size)
{
    const MemoryFile file({data, size});
    tessaview::SectionBudget budget(tessaview::kCollectedBytes);
    auto collectors = fuzz::everyCollector(budget);
    tessaview::Demultiplexer demultiplexer;
    for (const auto& collector : collectors)
        demultiplexer.select(collector.pid());
    try {
        tessaview::PacketFile packets(file.path());
        demultiplexer.run(packets, [&](std::uint32_t pid, std::span<const uint8_t> section) {
            fuzz::require(section.size() >= 3 &&
                          section.size() == lib13818::sectionSize(section.data()));
            for (auto& collector : collectors)
                if (collector.pid() == pid)
                    collector.take(section);
            return true;
        });
    } catch (const tessaview::CaptureError&) {
    }
    for (auto& collector : collectors)
        for (const auto& section : collector.answer())
            fuzz::require(section.size() == lib13818::sectionSize(section.data()));
    return 0;
}
