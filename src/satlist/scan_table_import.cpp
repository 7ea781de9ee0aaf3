#include "satlist/scan_table_import.h"

#include "platform/format.h"
#include "platform/settings.h"
#include "platform/settings_file.h"
#include "satlist/scan_table.h"

#include <algorithm>
#include <regex>
#include <set>
#include <tuple>

namespace tessaview {

namespace {

constexpr std::size_t kLargestFile = std::size_t{4} << 20U;
constexpr std::int32_t kLastIdentifier = 0xFFFF;

/// What is known of the transponders of one satellite.
class Known {
public:
    explicit Known(const std::vector<TransponderEntry>& entries)
    {
        for (const TransponderEntry& entry : entries) {
            isNew(entry);
            if (entry.nid == 0)
                tsids_.insert(entry.tsid);
        }
    }

    /// Whether it is new; from now on it is not.
    bool isNew(const TransponderEntry& entry)
    {
        return signals_.emplace(entry.frequency, entry.polarization, entry.s2.streamId).second;
    }

    /// The lowest TSID from 1 that no transponder of the NID 0 has; past the last when all are
    /// taken.
    std::int32_t takeFreeTsid()
    {
        while (!tsids_.insert(next_).second)
            ++next_;
        return next_;
    }

private:
    /// Frequency, polarization and stream.
    std::set<std::tuple<std::int32_t, std::int32_t, std::int32_t>> signals_;
    std::set<std::int32_t> tsids_;
    std::int32_t next_ = 1;
};

/// The satellite of that name, created when it is not in the list.
Status obtain(ISatListManager& manager, const std::string& name, ComPtr<ISatellite>& satellite)
{
    const Bstr wide(name);
    Status result = getSatellite(manager, wide, satellite);
    // After any other failure a new one could take the place of one that is there.
    if (result != status::kNotFound)
        return result;
    result = createSatellite(manager, wide, satellite);
    return failed(result) ? result : satellite->put_AddedByUser(1);
}

Status addNew(ISatListManager& manager, const std::string& name,
              const std::vector<TransponderEntry>& transponders, ImportReport& report)
{
    ComPtr<ISatellite> satellite;
    std::vector<TransponderEntry> there;
    Status result = obtain(manager, name, satellite);
    if (!failed(result))
        result = readTransponders(*satellite.get(), there);
    if (failed(result))
        return result;
    Known known(there);
    std::size_t added = 0;
    for (TransponderEntry entry : transponders) {
        if (!known.isNew(entry))
            continue;
        entry.flag = 1;
        entry.tsid = known.takeFreeTsid();
        result = entry.tsid > kLastIdentifier ? status::kInvalidArgument
                                              : addTransponder(*satellite.get(), entry);
        if (failed(result))
            return result;
        ++added;
    }
    if (added > 0)
        result = manager.PutSatellite(satellite.get());
    if (failed(result))
        return result;
    report.added += added;
    report.alreadyThere += transponders.size() - added;
    ++report.filesUsed;
    return status::kOk;
}

void importFile(ISatListManager& manager, const std::filesystem::path& file, ImportReport& report)
{
    std::string content;
    try {
        content = readSmallFile(file, kLargestFile);
    } catch (const SettingsError& problem) {
        report.problems.emplace_back(problem.what());
        return;
    }
    const auto complain = [&](const std::string& what) {
        report.problems.push_back(file.string() + ": " + what);
    };
    if (content.size() > kLargestFile)
        return complain("the file is too large for a list of channels");
    std::error_code ignored;
    if (content.empty() && !std::filesystem::exists(file, ignored))
        return complain("there is no such file");

    const ScanTable table = parseScanTable(content);
    for (const LineProblem& problem : table.problems)
        report.problems.push_back(file.string() + ":" + std::to_string(problem.line) + ": " +
                                  problem.what);
    if (table.transponders.empty()) {
        if (table.problems.empty())
            complain("the file names no channel");
        return;
    }
    const std::string name = satelliteNameOf(file);
    const Status result = addNew(manager, name, table.transponders, report);
    if (failed(result))
        complain(
            formatted("the satellite list refuses '%s' (%08X)", name.c_str(), statusCode(result)));
}

std::string counted(std::size_t count, const char* what)
{
    return std::to_string(count) + " " + what + (count == 1 ? "" : "s");
}

} // namespace

std::string ImportReport::summary() const
{
    std::string text =
        "Imported " + counted(added, "transponder") + " from " + counted(filesUsed, "file");
    if (alreadyThere > 0)
        text += "; " + std::to_string(alreadyThere) +
                " more had the frequency and polarization of one in the list";
    return text + ".";
}

ImportReport importScanTables(ISatListManager& manager,
                              std::span<const std::filesystem::path> files)
{
    ImportReport report;
    for (const std::filesystem::path& file : files)
        importFile(manager, file, report);
    return report;
}

std::string satelliteNameOf(const std::filesystem::path& file)
{
    static const std::regex ending(R"(\.(conf|txt|ini)$)", std::regex::icase);
    static const std::regex position(R"(-(\d+(\.\d+)?[EW])$)", std::regex::icase);
    std::string name = std::regex_replace(file.filename().string(), ending, "");
    name = std::regex_replace(name, position, " $1");
    std::replace(name.begin(), name.end(), '_', ' ');
    return name;
}

} // namespace tessaview
