#include "charset/charset_policy.h"

#include "platform/format.h"
#include "platform/number.h"

namespace tessaview {

namespace {

constexpr std::string_view kAutomatic = "auto";
constexpr std::string_view kAlways = ",always";

std::optional<std::uint32_t> parseNetwork(std::string_view text)
{
    const auto id = decimalOrHexadecimal<std::uint32_t>(text);
    return id && *id <= 0xFFFF ? id : std::nullopt;
}

} // namespace

std::optional<CharsetRule> parseCharsetRule(std::string_view text, std::string& problem)
{
    CharsetRule rule;
    if (const std::size_t equals = text.find('='); equals != std::string_view::npos) {
        const std::string_view network = text.substr(0, equals);
        rule.original_network_id = parseNetwork(network);
        if (!rule.original_network_id) {
            problem = std::string(network).append(
                " is no original_network_id: write it as 133 or 0x0085");
            return std::nullopt;
        }
        text.remove_prefix(equals + 1);
    }
    if (text.ends_with(kAlways)) {
        rule.beatsSelector = true;
        text.remove_suffix(kAlways.size());
    }
    rule.table = findTable(text);
    if (!rule.table && (text != kAutomatic || rule.beatsSelector)) {
        problem = std::string("there is no character table ").append(text);
        return std::nullopt;
    }
    return rule;
}

std::string toText(const CharsetRule& rule)
{
    std::string text;
    if (rule.original_network_id)
        text = formatted("0x%04X=", *rule.original_network_id);
    text += rule.table ? std::string_view(rule.table->key) : kAutomatic;
    if (rule.beatsSelector)
        text += kAlways;
    return text;
}

void CharsetPolicy::set(const CharsetRule& rule)
{
    if (rule.original_network_id)
        ofNetworks_.insert_or_assign(*rule.original_network_id, rule);
    else
        common_ = rule;
}

const CharsetRule& CharsetPolicy::ruleFor(std::optional<std::uint32_t> original_network_id) const
{
    if (original_network_id)
        if (const auto own = ofNetworks_.find(*original_network_id); own != ofNetworks_.end())
            return own->second;
    return common_;
}

} // namespace tessaview
