#include "acquisition/table_selection.h"

#include "platform/format.h"
#include "platform/number.h"
#include "platform/settings.h"

#include <algorithm>
#include <utility>

namespace tessaview {

namespace {

constexpr std::string_view kValueName = "sitables";

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

std::optional<SiTableMask> parseMask(std::string_view text, std::string& problem)
{
    const auto mask = decimalOrHexadecimal<SiTableMask>(text);
    if (!mask)
        problem = formatted("'%s' is not a bit mask of at most 32 bits", std::string(text).c_str());
    return mask;
}

std::string allNames()
{
    std::string names;
    for (const SelectableTable& table : kSelectableTables)
        names += std::string(names.empty() ? "" : ", ") + table.name;
    return names;
}

std::optional<SiTableMask> parseNames(std::string_view text, std::string& problem)
{
    SiTableMask mask = 0;
    for (std::size_t start = 0; start <= text.size();) {
        const std::string_view name = text.substr(start, text.find(',', start) - start);
        const auto* const table =
            std::find_if(kSelectableTables.begin(), kSelectableTables.end(),
                         [&](const SelectableTable& each) { return each.name == name; });
        if (table == kSelectableTables.end()) {
            problem = formatted("'%s' is not a table; there are %s", std::string(name).c_str(),
                                allNames().c_str());
            return std::nullopt;
        }
        mask |= table->bit;
        start += name.size() + 1;
    }
    return mask;
}

} // namespace

TableSelection TableSelection::stored()
{
    return stored(defaultSettingsFile());
}

TableSelection TableSelection::stored(std::filesystem::path settingsFile)
{
    TableSelection selection;
    selection.settingsFile_ = std::move(settingsFile);
    return selection;
}

TableSelection TableSelection::fixed(SiTableMask mask)
{
    TableSelection selection;
    selection.fixed_ = mask;
    return selection;
}

bool TableSelection::IsTableEnabled(SiTableMask mask) const
{
    const SiTableMask chosen =
        fixed_ ? *fixed_
               : Settings(settingsFile_).number(kSettingsKey, kValueName).value_or(~SiTableMask{0});
    return (chosen & mask) == mask;
}

bool IsTableEnabled(SiTableMask mask)
{
    return TableSelection::stored().IsTableEnabled(mask);
}

void storeTableSelection(SiTableMask mask, const std::filesystem::path& settingsFile)
{
    Settings(settingsFile).setNumber(kSettingsKey, kValueName, mask);
}

std::optional<SiTableMask> parseTableList(std::string_view text, std::string& problem)
{
    problem.clear();
    if (text == "all")
        return kAllTables;
    if (text == "default")
        return kDefaultTables;
    if (!text.empty() && isDigit(text.front()))
        return parseMask(text, problem);
    return parseNames(text, problem);
}

} // namespace tessaview
