#pragma once

#include "model/transponder.h"
#include "si/error.h"

#include <cstdint>
#include <exception>
#include <optional>
#include <utility>

namespace tessaview {

/// Decodes one section and stores it with `store(Table&&)`; gives the code of what went wrong, or
/// nothing. A section so crafted that it exhausts the memory costs itself, not what was read.
template <class Table, class Store>
std::optional<int> decodeSection(const lib13818::SectionBytes& section, Store store)
{
    try {
        Table table;
        table.parse(section);
        store(std::move(table));
        return std::nullopt;
    } catch (const lib13818::error& error) {
        return error.code;
    } catch (const std::exception&) {
        return -1;
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
