#pragma once

#include "charset/character_table.h"

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace tessaview {

/// What someone has set for the texts of one network, or of all that have no rule of their own.
struct CharsetRule {
    const CharacterTable* table = nullptr;              ///< null: as EN 300 468 Annex A says
    bool beatsSelector = false;                         ///< or only for texts without a selector
    std::optional<std::uint32_t> original_network_id{}; ///< none: all networks

    friend bool operator==(const CharsetRule&, const CharsetRule&) = default;
};

/// A rule as "[NETWORK=]TABLE[,always]": the original_network_id in decimal or behind 0x, the key
/// of a table or "auto", and whether it beats the selector. Nothing, and what is wrong in
/// `problem`, for another text.
std::optional<CharsetRule> parseCharsetRule(std::string_view text, std::string& problem);
/// The text that gives the rule back.
std::string toText(const CharsetRule& rule);

/// The character tables that texts are shown with: automatic until a rule says otherwise.
class CharsetPolicy {
public:
    /// Replaces the rule of the same network, or that of all.
    void set(const CharsetRule& rule);
    /// The rule of the network, or else the common one.
    const CharsetRule& ruleFor(std::optional<std::uint32_t> original_network_id) const;

    const CharsetRule& common() const { return common_; }
    const std::map<std::uint32_t, CharsetRule>& ofNetworks() const { return ofNetworks_; }
    /// Takes the rule of a network away, so that the common one holds for it.
    void forget(std::uint32_t original_network_id) { ofNetworks_.erase(original_network_id); }

private:
    CharsetRule common_;
    std::map<std::uint32_t, CharsetRule> ofNetworks_;
};

} // namespace tessaview
