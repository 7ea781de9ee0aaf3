#include "si/texts/registry.h"

#include <set>
#include <string_view>

namespace lib13818 {

namespace {

/// Where the counting row may change: at each row's first key and behind its last.
std::set<uint32_t> boundaries(std::span<const RegistryRow> rows)
{
    std::set<uint32_t> keys;
    for (const RegistryRow& row : rows) {
        keys.insert(row.first);
        keys.insert(row.last + 1);
    }
    return keys;
}

const RegistryRow* lastHolding(std::span<const RegistryRow> rows, uint32_t key)
{
    const RegistryRow* found = nullptr;
    for (const RegistryRow& row : rows)
        if (key >= row.first && key <= row.last)
            found = &row;
    return found;
}

} // namespace

Registry::Registry(std::span<const RegistryRow> rows)
{
    const std::set<uint32_t> keys = boundaries(rows);
    for (auto key = keys.begin(); key != keys.end(); ++key) {
        const RegistryRow* const row = lastHolding(rows, *key);
        if (!row)
            continue;
        const uint32_t last = *std::next(key) - 1;
        const bool continues = !ranges_.empty() && ranges_.back().last + 1 == *key &&
                               std::string_view(ranges_.back().text) == row->text;
        if (continues)
            ranges_.back().last = last;
        else
            ranges_.push_back({.first = *key, .last = last, .text = row->text});
    }
}

const char* Registry::name(uint32_t key) const
{
    const auto after = std::upper_bound(
        ranges_.begin(), ranges_.end(), key,
        [](uint32_t wanted, const RegistryRow& row) { return wanted < row.first; });
    if (after == ranges_.begin() || key > std::prev(after)->last)
        return "<unknown>";
    return std::prev(after)->text;
}

} // namespace lib13818
