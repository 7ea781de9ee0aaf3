#include "drivers/capture/capture_index.h"

#include "drivers/capture/delivery_parameters.h"
#include "drivers/capture/demultiplexer.h"
#include "drivers/capture/packet_file.h"
#include "drivers/common/section_collector.h"
#include "si/crc32.h"

#include <algorithm>
#include <set>
#include <system_error>

namespace tessaview {

namespace {

namespace fs = std::filesystem;

constexpr std::uint32_t kPatPid = 0x0000;
constexpr std::uint32_t kNitPid = 0x0010;
constexpr uint8_t kPat = 0x00;
constexpr uint8_t kNitActual = 0x40;

TableRequest requestFor(std::uint32_t pid, uint8_t table_id)
{
    TableRequest request{};
    request.PID = pid;
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

/// A file to look at, or what is wrong with a folder.
struct Entry {
    fs::path file;
    std::size_t source;
    std::string satellite;
    std::string problem;
};

/// Finds the files that sources name, without opening them.
class Listing {
public:
    void addSource(const fs::path& path)
    {
        std::error_code error;
        if (fs::is_directory(path, error))
            addFolder(path);
        else
            addFile(path, "");
        ++source_;
    }

    const std::vector<Entry>& entries() const { return entries_; }

private:
    void addFolder(const fs::path& folder)
    {
        const std::size_t before = entries_.size() + repeated_;
        std::error_code error;
        for (const fs::path& each : contentOf(folder))
            if (fs::is_directory(each, error))
                addSatellite(each);
            else if (isStream(each))
                addFile(each, "");
        if (entries_.size() + repeated_ == before)
            addProblem(folder, "holds no transport streams");
    }

    void addSatellite(const fs::path& folder)
    {
        std::error_code error;
        for (const fs::path& each : contentOf(folder))
            if (fs::is_directory(each, error))
                addProblem(each, "is not looked into: a satellite's folder holds only files");
            else if (isStream(each))
                addFile(each, folder.filename().string());
    }

    void addFile(const fs::path& file, const std::string& satellite)
    {
        std::error_code error;
        if (!known_.insert(fs::weakly_canonical(file, error)).second && !error)
            ++repeated_;
        else
            entries_.push_back({file, source_, satellite, ""});
    }

    void addProblem(const fs::path& file, const std::string& problem)
    {
        entries_.push_back({file, source_, "", problem});
    }

    /// By name, so that a folder reads the same everywhere.
    std::vector<fs::path> contentOf(const fs::path& folder)
    {
        std::vector<fs::path> content;
        std::error_code error;
        for (fs::directory_iterator it(folder, error), end; !error && it != end;
             it.increment(error))
            content.push_back(it->path());
        if (error)
            addProblem(folder, "cannot be read: " + error.message());
        std::sort(content.begin(), content.end());
        return content;
    }

    std::vector<Entry> entries_;
    std::set<fs::path> known_;
    std::size_t source_ = 0;
    std::size_t repeated_ = 0;
};

void index(CaptureSet& set, const Entry& entry, const BlockObserver& observer)
{
    std::string problem = entry.problem;
    if (problem.empty()) {
        try {
            Capture capture = indexCapture(entry.file, observer);
            capture.source = entry.source;
            capture.satellite = entry.satellite;
            set.captures.push_back(std::move(capture));
            return;
        } catch (const CaptureError& e) {
            problem = e.what();
        }
    }
    set.problems.push_back({entry.file, entry.source, std::move(problem)});
}

} // namespace

Capture indexCapture(const fs::path& file, const BlockObserver& observer)
{
    Capture capture;
    capture.file = file;
    PacketFile packets(file, kIndexedBytes, observer);
    std::error_code unknown;
    capture.size = fs::file_size(file, unknown);
    if (unknown)
        capture.size = 0;

    SectionBudget budget(kCollectedBytes);
    SectionCollector pat(requestFor(kPatPid, kPat), budget);
    SectionCollector nit(requestFor(kNitPid, kNitActual), budget);
    Demultiplexer demultiplexer;
    demultiplexer.select(kPatPid);
    demultiplexer.select(kNitPid);
    demultiplexer.run(packets, [&](std::uint32_t pid, std::span<const uint8_t> section) {
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
        if (intact(section) && capture.transport_stream_id && !isGiven(capture.tuning))
            capture.tuning = deliveryOf(section, *capture.transport_stream_id);
    return capture;
}

CaptureSet openCaptures(const std::vector<fs::path>& sources, const IndexProgress& progress,
                        const StopRequested& stop)
{
    CaptureSet set;
    set.sources = sources;
    Listing listing;
    for (const fs::path& source : sources)
        listing.addSource(source);
    const auto checkStop = [&stop](std::uintmax_t, std::uintmax_t) {
        if (stop && stop())
            throw Interrupted();
    };
    const auto tell = [&](std::size_t done) {
        if (progress)
            progress(done, listing.entries().size());
    };
    try {
        std::size_t done = 0;
        tell(done);
        for (const Entry& entry : listing.entries()) {
            checkStop(0, 0);
            index(set, entry, checkStop);
            tell(++done);
        }
    } catch (const Interrupted&) { // the set holds what was looked at until then
        return set;
    }
    return set;
}

void append(CaptureSet& set, CaptureSet more)
{
    std::set<fs::path> known;
    for (const Capture& capture : set.captures)
        known.insert(capture.file);
    const std::size_t offset = set.sources.size();
    for (fs::path& source : more.sources)
        set.sources.push_back(std::move(source));
    for (Capture& capture : more.captures) {
        capture.source += offset;
        if (known.insert(capture.file).second)
            set.captures.push_back(std::move(capture));
    }
    for (CaptureProblem& problem : more.problems) {
        problem.source += offset;
        set.problems.push_back(std::move(problem));
    }
}

void removeSource(CaptureSet& set, std::size_t source)
{
    set.sources.erase(set.sources.begin() + static_cast<std::ptrdiff_t>(source));
    const auto drop = [source](auto& list) {
        std::erase_if(list, [source](const auto& each) { return each.source == source; });
        for (auto& each : list)
            if (each.source > source)
                --each.source;
    };
    drop(set.captures);
    drop(set.problems);
}

} // namespace tessaview
