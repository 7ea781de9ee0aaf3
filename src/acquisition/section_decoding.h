#pragma once

#include "driver/tuner_driver.h"
#include "model/transponder.h"
#include "si/error.h"

#include <cstddef>
#include <cstdint>
#include <exception>
#include <optional>
#include <span>
#include <string>
#include <utility>

namespace tessaview {

/// Why a section could not be decoded.
struct SectionFault {
    int code = -1;                      ///< that of the SI library
    std::string text = {};              ///< "crc error"; never empty
    std::optional<std::size_t> at = {}; ///< the byte of the section that is wrong, where known
};

/// What was thrown while a section was decoded, as a fault of it.
SectionFault faultOf(const lib13818::error& error, std::span<const std::uint8_t> section);

/// Prints and logs which section is at fault: PID, table, identifiers, number, reason and byte.
void reportFault(const TableRequest& request, std::span<const std::uint8_t> section,
                 const SectionFault& fault);

/// Decodes one section and stores it with `store(Table&&)`; gives what went wrong, or nothing.
/// A section so crafted that it exhausts the memory costs itself, not what was read.
template <class Table, class Store>
std::optional<SectionFault> decodeSection(const lib13818::SectionBytes& section, Store store)
{
    try {
        Table table;
        table.parse(section);
        store(std::move(table));
        return std::nullopt;
    } catch (const lib13818::error& error) {
        return faultOf(error, section.get());
    } catch (const std::exception& error) {
        return SectionFault{.text = error.what()};
    }
}

/// A decoded field as the key of a map.
inline std::uint32_t sectionKey(int field)
{
    return static_cast<std::uint32_t>(field);
}

/// A section replaces an earlier one of the same network and number.
inline void storeNit(NitMap& networks, lib13818::Nit&& nit)
{
    NitSections& sections = networks[sectionKey(nit.table_id_extension)];
    sections.insert_or_assign(sectionKey(nit.section_number), std::move(nit));
}

} // namespace tessaview
