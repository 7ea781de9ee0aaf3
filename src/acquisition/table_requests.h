#pragma once

#include "acquisition/table_selection.h"
#include "driver/tuner_driver.h"
#include "si/pat.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace tessaview {

/// The tables of the first batch, in the order in which they are requested.
enum class SiTable : std::uint8_t {
    Pat,
    NitActual,
    SdtActual,
    Cat,
    Bat,
    Tdt,
    Tot,
    Rst,
    NitOther,
    SdtOther,
    EitPfActual,
    EitPfOther,
    EitScheduleActual,
    EitScheduleOther
};
inline constexpr std::size_t kSiTableCount = 14;

/// What the lines for the user call a table.
const char* siTableName(SiTable table);

/// The first batch of a read: always PAT, NIT actual and SDT actual, then the tables chosen.
class TableRequests {
public:
    explicit TableRequests(const TableSelection& selection);

    const std::vector<TableRequest>& requests() const { return requests_; }
    /// Where the answer to a table's request stands; nothing when it was not requested.
    std::optional<std::size_t> place(SiTable table) const
    {
        return places_[static_cast<std::size_t>(table)];
    }

private:
    std::vector<TableRequest> requests_;
    std::array<std::optional<std::size_t>, kSiTableCount> places_;
};

/// A request for the PMT of every program, in order; the entry for the network_PID is none.
std::vector<TableRequest> pmtRequests(const lib13818::Pat& pat);

} // namespace tessaview
