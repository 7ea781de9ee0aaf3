#include "acquisition/table_requests.h"

#include <set>
#include <utility>

namespace tessaview {

namespace {

/// A table's request and what gates it; bit 0 is for the tables that are always read.
struct Row {
    SiTable table;
    SiTableMask bit;
    std::uint32_t PID;
    std::uint8_t table_id;
    CollectionMode mode;
    const char* name;
};

// clang-format off
constexpr std::array<Row, kSiTableCount> kRows{{
    {SiTable::Pat,               0,                            0x0000, 0x00, CollectionMode::SingleInstance, "PAT"},
    {SiTable::NitActual,         0,                            0x0010, 0x40, CollectionMode::SingleInstance, "NIT"},
    {SiTable::SdtActual,         0,                            0x0011, 0x42, CollectionMode::SingleInstance, "SDT"},
    {SiTable::Cat,               si_table::kCat,               0x0001, 0x01, CollectionMode::SingleInstance, "CAT"},
    {SiTable::Bat,               si_table::kBat,               0x0011, 0x4A, CollectionMode::SingleInstance, "BAT"},
    {SiTable::Tdt,               si_table::kTdt,               0x0014, 0x70, CollectionMode::SingleInstance, "TDT"},
    {SiTable::Tot,               si_table::kTot,               0x0014, 0x73, CollectionMode::SingleInstance, "TOT"},
    {SiTable::Rst,               si_table::kRst,               0x0013, 0x71, CollectionMode::SingleInstance, "RST"},
    {SiTable::NitOther,          si_table::kNitOther,          0x0010, 0x41, CollectionMode::OtherNetworks,  "NIT 0x41"},
    {SiTable::SdtOther,          si_table::kSdtOther,          0x0011, 0x46, CollectionMode::OtherStreams,   "SDT 0x46"},
    {SiTable::EitPfActual,       si_table::kEitPfActual,       0x0012, 0x4E, CollectionMode::AllEvents,      "EIT 0x4e"},
    {SiTable::EitPfOther,        si_table::kEitPfOther,        0x0012, 0x4F, CollectionMode::AllEvents,      "EIT 0x4f"},
    {SiTable::EitScheduleActual, si_table::kEitScheduleActual, 0x0012, 0x50, CollectionMode::AllEvents,      "EIT 0x50"},
    {SiTable::EitScheduleOther,  si_table::kEitScheduleOther,  0x0012, 0x60, CollectionMode::AllEvents,      "EIT 0x60"},
}};
// clang-format on

static_assert(
    [] {
        for (std::size_t i = 0; i < kRows.size(); ++i)
            if (static_cast<std::size_t>(kRows[i].table) != i)
                return false;
        return true;
    }(),
    "the rows stand in the order of the enumeration");

TableRequest requestFor(std::uint32_t PID, std::uint8_t table_id, CollectionMode mode)
{
    TableRequest request{};
    request.PID = PID;
    request.table_id = table_id;
    request.collection_mode = static_cast<std::uint32_t>(mode);
    return request;
}

} // namespace

const char* siTableName(SiTable table)
{
    return kRows[static_cast<std::size_t>(table)].name;
}

TableRequests::TableRequests(const TableSelection& selection)
{
    requests_.reserve(kRows.size());
    for (const Row& row : kRows) {
        if (row.bit != 0 && !selection.IsTableEnabled(row.bit))
            continue;
        places_[static_cast<std::size_t>(row.table)] = requests_.size();
        requests_.push_back(requestFor(row.PID, row.table_id, row.mode));
    }
}

std::vector<TableRequest> pmtRequests(const lib13818::Pat& pat)
{
    constexpr std::uint8_t table_id = 0x02;
    std::vector<TableRequest> requests;
    std::set<std::pair<std::uint32_t, std::uint16_t>> requested; // PID and program_number
    for (const lib13818::PatProgram& program : pat.programs) {
        if (program.program_number == 0)
            continue;
        TableRequest request = requestFor(static_cast<std::uint32_t>(program.program_map_PID),
                                          table_id, CollectionMode::SingleInstance);
        request.match_table_id_extension = 1;
        request.table_id_extension = static_cast<std::uint16_t>(program.program_number);
        if (requested.emplace(request.PID, request.table_id_extension).second)
            requests.push_back(request);
    }
    return requests;
}

} // namespace tessaview
