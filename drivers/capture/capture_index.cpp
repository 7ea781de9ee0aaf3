#include "drivers/capture/capture_index.h"

#include "drivers/capture/demultiplexer.h"
#include "drivers/capture/section_collector.h"
#include "si/bit_reader.h"
#include "si/crc32.h"

#include <algorithm>
#include <system_error>

namespace tessaview {

namespace {

namespace fs = std::filesystem;
using lib13818::BitReader;

constexpr int kPatPid = 0x0000;
constexpr int kNitPid = 0x0010;
constexpr uint8_t kNitActual = 0x40;
constexpr std::size_t kLongHeader = 8;
constexpr std::size_t kCrc = 4;

std::uint32_t bcd(BitReader& in, int digits)
{
    std::uint32_t value = 0;
    for (int i = 0; i < digits; ++i)
        value = value * 10 + static_cast<std::uint32_t>(in.bits(4));
    return value;
}

uint8_t narrow(int value)
{
    return static_cast<uint8_t>(value);
}

// The units of the records are those of the descriptors' last digits (EN 300 468, 6.2.13).

SatelliteTuning satelliteTuning(BitReader in)
{
    SatelliteTuning record{};
    record.frequency = bcd(in, 8);
    record.orbital_position = static_cast<std::uint16_t>(bcd(in, 4) / 10);
    record.west_east_flag = static_cast<std::uint32_t>(in.bits(1));
    record.polarization = narrow(in.bits(2));
    record.modulation = narrow(in.bits(5));
    record.symbol_rate = bcd(in, 7);
    record.FEC_inner = narrow(in.bits(4));
    return record;
}

CableTuning cableTuning(BitReader in)
{
    CableTuning record{};
    record.frequency = bcd(in, 8);
    record.FEC_outer = narrow(in.skip(12).bits(4));
    record.modulation = narrow(in.u8());
    record.symbol_rate = bcd(in, 7);
    record.FEC_inner = narrow(in.bits(4));
    return record;
}

TerrestrialTuning terrestrialTuning(BitReader in)
{
    TerrestrialTuning record{};
    record.centre_frequency = in.u32();
    record.bandwidth = narrow(in.bits(3));
    record.constellation = narrow(in.skip(5).bits(2));
    record.hierarchy_information = narrow(in.bits(3));
    record.code_rate_HP_stream = narrow(in.bits(3));
    record.code_rate_LP_stream = narrow(in.bits(3));
    record.guard_interval = narrow(in.bits(2));
    record.transmission_mode = narrow(in.bits(2));
    record.other_frequency_flag = narrow(in.bits(1));
    return record;
}

/// The first delivery system descriptor of a loop.
CaptureTuning deliveryIn(BitReader loop)
{
    while (!loop.atEnd()) {
        const int tag = loop.u8();
        const BitReader payload(loop.take(loop.u8()));
        switch (tag) {
        case 0x43:
            return satelliteTuning(payload);
        case 0x44:
            return cableTuning(payload);
        case 0x5A:
            return terrestrialTuning(payload);
        default:
            break;
        }
    }
    return {};
}

/// What a NIT section says of the delivery of one transport stream.
CaptureTuning deliveryOf(std::span<const uint8_t> section, int transport_stream_id)
{
    BitReader in(section.subspan(kLongHeader, section.size() - kLongHeader - kCrc));
    in.take(in.skip(4).bits(12));
    BitReader streams(in.take(in.skip(4).bits(12)));
    while (!streams.atEnd()) {
        const int stream = streams.u16();
        const BitReader descriptors(streams.skip(16 + 4).take(streams.bits(12)));
        if (stream == transport_stream_id)
            return deliveryIn(descriptors);
    }
    return {};
}

TableRequest requestFor(int pid, uint8_t table_id)
{
    TableRequest request{};
    request.PID = static_cast<std::uint32_t>(pid);
    request.table_id = table_id;
    return request;
}

bool isStream(const fs::path& file)
{
    std::string ending = file.extension().string();
    std::transform(ending.begin(), ending.end(), ending.begin(), [](unsigned char c) {
        return static_cast<char>(c >= 'A' && c <= 'Z' ? c - 'A' + 'a' : c);
    });
    constexpr const char* kEndings[] = {".ts", ".m2ts", ".mts", ".trp", ".mpg", ".mpeg", ".m2t"};
    return std::find(std::begin(kEndings), std::end(kEndings), ending) != std::end(kEndings);
}

class SetBuilder {
public:
    void addPath(const fs::path& path)
    {
        std::error_code error;
        if (!fs::is_directory(path, error)) {
            addFile(path, "");
            return;
        }
        const std::size_t before = set_.captures.size() + set_.problems.size();
        for (const fs::path& entry : entriesOf(path))
            if (fs::is_directory(entry, error))
                addSatellite(entry);
            else if (isStream(entry))
                addFile(entry, "");
        if (set_.captures.size() + set_.problems.size() == before)
            set_.problems.push_back(path.string() + ": holds no transport streams");
    }

    CaptureSet take() { return std::move(set_); }

private:
    void addSatellite(const fs::path& folder)
    {
        for (const fs::path& entry : entriesOf(folder))
            if (isStream(entry))
                addFile(entry, folder.filename().string());
    }

    void addFile(const fs::path& file, const std::string& satellite)
    {
        try {
            set_.captures.push_back(indexCapture(file, satellite));
        } catch (const CaptureError& e) {
            set_.problems.emplace_back(e.what());
        }
    }

    /// By name, so that a folder reads the same everywhere.
    std::vector<fs::path> entriesOf(const fs::path& folder)
    {
        std::vector<fs::path> entries;
        std::error_code error;
        for (fs::directory_iterator it(folder, error), end; !error && it != end;
             it.increment(error))
            entries.push_back(it->path());
        if (error)
            set_.problems.push_back(folder.string() + ": cannot be read: " + error.message());
        std::sort(entries.begin(), entries.end());
        return entries;
    }

    CaptureSet set_;
};

} // namespace

Capture indexCapture(const fs::path& file, std::string satellite)
{
    Capture capture;
    capture.file = file;
    capture.satellite = std::move(satellite);
    PacketFile packets(file);
    std::error_code unknown;
    capture.size = fs::file_size(file, unknown);

    SectionCollector pat(requestFor(kPatPid, 0x00));
    SectionCollector nit(requestFor(kNitPid, kNitActual));
    Demultiplexer demultiplexer;
    demultiplexer.select(kPatPid);
    demultiplexer.select(kNitPid);
    demultiplexer.run(packets, [&](int pid, std::span<const uint8_t> section) {
        (pid == kPatPid ? pat : nit).take(section);
        return !pat.isComplete() || !nit.isComplete();
    });

    const auto intact = [](const RawSection& section) {
        return lib13818::crc32Mpeg2(section.data(), section.size()) == 0;
    };
    for (const RawSection& section : pat.answer())
        if (intact(section) && !capture.transport_stream_id)
            capture.transport_stream_id = section[3] << 8 | section[4];
    for (const RawSection& section : nit.answer())
        if (intact(section) && capture.transport_stream_id && capture.tuning.index() == 0)
            capture.tuning = deliveryOf(section, *capture.transport_stream_id);
    return capture;
}

CaptureSet openCaptures(const std::vector<fs::path>& paths)
{
    SetBuilder builder;
    for (const fs::path& path : paths)
        builder.addPath(path);
    return builder.take();
}

} // namespace tessaview
